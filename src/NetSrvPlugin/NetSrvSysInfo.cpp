// Service status, system mode, roaming and domain: the service's view of where
// the modem is camped, held in one cached record (m_Sysinfo). "^SYSINFOEX" is
// preferred; a modem without it is read with "^SYSINFO", whose modes are mapped
// to the Ex numbering, so that everything handed out is in one numbering.
//
// A reading that sees the domain or the service status change queues a report
// of its own (as if the modem had sent "^SYSINFO" or "^SRVST"): many modems
// send neither when they move, and clients must still hear of it.

#include <cstdlib>
#include <cstring>
#include <string>

#include "NetSrvAtCommonds.h"
#include "NetSrvImpl.h"
#include "NetSrvModeMap.h"
#include "NetSrvOutputs.h"
#include "NetSrvTrace.h"
#include "isapuguard.h"

using namespace NETSRV_DATA;

namespace {

// The processor's code for a command that the modem does not know.
const unsigned long kErrorNotSupported = 4;

int32_t NumberOf(NUMERIC& value)
{
    return static_cast<int32_t>(value.GetNumValue());
}

// A mode name of the reply into a 64-byte field: at most 63 characters, then
// zeros to the end.
void CopyModeName(char (&szName)[64], const std::string& strText)
{
    std::memset(szName, 0, sizeof(szName));
    const std::size_t nLength = strText.size() < sizeof(szName) ? strText.size()
                                                                : sizeof(szName) - 1;
    std::memcpy(szName, strText.data(), nLength);
}

}  // namespace

void CNetSrvImpl::TakeInReading(const char* pszReader, int32_t iSrvStatus, int32_t iDomain,
                                int32_t iRoam, int32_t iSimState,
                                const ParamList& vctSysInfoFields)
{
    const std::string strReader(pszReader);
    // Compared with the cache before it is overwritten; the domain first.
    if (iDomain != m_Sysinfo.dwDomain) {
        Command report = MakeReport(INDEX_SYS_INFO, vctSysInfoFields);
        NetSrvTrace(TL_INFO, (strReader + ": AtCallBackEvent INDEX_SYS_INFO").c_str());
        ReportAtCallBackEvent(report);
    }
    if (iSrvStatus != m_Sysinfo.dwSrvStatus) {
        Command report = MakeReport(INDEX_SERV_IND, {std::to_string(iSrvStatus)});
        NetSrvTrace(TL_INFO, (strReader + ": AtCallBackEvent INDEX_SERV_IND").c_str());
        ReportAtCallBackEvent(report);
    }
    NetSrvTrace(TL_INFO, (strReader + ": Begin GetNumValue").c_str());
    m_Sysinfo.dwSrvStatus = iSrvStatus;
    m_Sysinfo.dwDomain = iDomain;
    m_Sysinfo.dwRoam = iRoam;
    m_Sysinfo.dwSimState = iSimState;
}

bool CNetSrvImpl::GetSystemInfoEx(SystemInfo& rSysInfo)
{
    NetSrvTrace(TL_INFO, "GetSystemInfoEx: Enter!");
    CISAPUGuard<JMutex> guard(m_LockSysInfo);

    // An all-zero cache was never filled (or the modem had nothing): it is
    // never served, whatever the clock says.
    const bool bRefresh = IsGetSystemInfo();
    const bool bCacheFilled = m_Sysinfo.dwSrvStatus != 0 || m_Sysinfo.dwSysMode != 0 ||
                              m_Sysinfo.dwDomain != 0 || m_Sysinfo.dwRoam != 0 ||
                              m_Sysinfo.dwSimState != 0;
    if (!bRefresh && bCacheFilled) {
        rSysInfo = m_Sysinfo;
        NetSrvTrace(TL_INFO, "GetSystemInfoEx: Return m_Sysinfo Directely");
        return true;
    }

    SystemInfoExCmd cmd;
    SystemInfoExRsp rsp;
    // Nothing remembers a refusal: the modem may learn the command with new
    // firmware, and asking costs one round trip.
    if (!ExecuteWithResponse(
            cmd, rsp,
            OnFailure()
                .Trace("GetSystemInfoEx: Excues command SYSINFOEX ERROR")
                .TraceForCode(kErrorNotSupported,
                              "GetSystemInfoEx , don't support SYSINFOEX command", TL_INFO))) {
        return false;
    }
    NetSrvTrace(TL_INFO, "SRVGetSystemMode , support SYSINFOEX command and success");

    const int32_t iSrvStatus = NumberOf(rsp.SrvStatus);
    const int32_t iDomain = NumberOf(rsp.SrvDomain);
    TakeInReading("GetSystemInfoEx", iSrvStatus, iDomain, NumberOf(rsp.RoamStatus),
                  NumberOf(rsp.SimState),
                  {std::to_string(iSrvStatus), std::to_string(iDomain),
                   std::to_string(NumberOf(rsp.RoamStatus)), std::to_string(NumberOf(rsp.SysMode)),
                   std::to_string(NumberOf(rsp.SimState)), std::to_string(NumberOf(rsp.SubMode))});
    m_Sysinfo.dwLockState = NumberOf(rsp.SimLockState);
    m_Sysinfo.dwSysMode = NumberOf(rsp.SysMode);
    m_Sysinfo.dwSubMode = NumberOf(rsp.SubMode);
    CopyModeName(m_Sysinfo.szSysModeName, rsp.SysModeName.ToString());
    CopyModeName(m_Sysinfo.szSubModeName, rsp.SubModeName.ToString());

    rSysInfo = m_Sysinfo;
    NetSrvTrace(TL_INFO, "GetSystemInfoEx: Finish memcpy and return true");
    return true;
}

bool CNetSrvImpl::GetSystemInfo(SystemInfo& rSysInfo)
{
    CISAPUGuard<JMutex> guard(m_LockSysInfo);

    SystemInfoCmd cmd;
    SystemInfoRsp rsp;
    if (!ExecuteWithResponse(cmd, rsp,
                             OnFailure().Trace("GetSystemInfo: Execute AT command error"))) {
        return false;
    }

    const int32_t iSrvStatus = NumberOf(rsp.SrvStatus);
    const int32_t iDomain = NumberOf(rsp.SrvDomain);
    const std::string strSysMode = rsp.SysMode.ToString();
    const std::string strSubMode = rsp.SubSysmode.ToString();
    // The report carries the modem's own "^SYSINFO" numbers, as a real one would.
    TakeInReading("GetSystemInfo", iSrvStatus, iDomain, NumberOf(rsp.RoamStatus),
                  NumberOf(rsp.SimState),
                  {std::to_string(iSrvStatus), std::to_string(iDomain),
                   std::to_string(NumberOf(rsp.RoamStatus)), strSysMode,
                   std::to_string(NumberOf(rsp.SimState)), strSubMode});
    // "^SYSINFO" has no mode names; the lock state it carries is not trusted
    // (older modems leave the field out), so the last "^SYSINFOEX" value stays.
    std::memset(m_Sysinfo.szSysModeName, 0, sizeof(m_Sysinfo.szSysModeName));
    std::memset(m_Sysinfo.szSubModeName, 0, sizeof(m_Sysinfo.szSubModeName));

    const int iSysMode = std::atoi(strSysMode.c_str());
    m_Sysinfo.dwSysMode = MapOldSysModeToExSysMode(iSysMode);
    m_Sysinfo.dwSubMode = strSubMode.empty()
                              ? MapOldSysModeToExSubMode(iSysMode)
                              : MapOldSubModeToExSubMode(iSysMode, std::atoi(strSubMode.c_str()));

    rSysInfo = m_Sysinfo;
    NetSrvTrace(TL_INFO, "GetSystemInfo: end");
    return true;
}

bool CNetSrvImpl::SRVGetSystemInfo(SystemInfo& rSysInfo)
{
    return GetSystemInfo(rSysInfo);
}

bool CNetSrvImpl::SRVGetSystemInfoEx(SystemInfo& rSysInfo)
{
    NetSrvTrace(TL_INFO, "SRVGetSystemInfoEx: Enter!");
    if (GetSystemInfoEx(rSysInfo)) {
        return true;
    }
    return GetSystemInfo(rSysInfo);
}

template <typename Out>
bool CNetSrvImpl::CopySystemInfoField(Out* pOut, int32_t SystemInfo::*pField,
                                      unsigned long* pdwStatus, const char* pszFailure)
{
    if (!OutputsUsable(pOut, pdwStatus)) {
        return false;
    }
    SystemInfo info;
    if (!SRVGetSystemInfoEx(info)) {
        return FailWithLastError(pdwStatus, pszFailure);
    }
    *pOut = static_cast<Out>(info.*pField);
    return true;
}

bool CNetSrvImpl::SRVGetSrvStatus(SysSrvStatus* penSrvStatus, unsigned long* pdwStatus)
{
    return CopySystemInfoField(penSrvStatus, &SystemInfo::dwSrvStatus, pdwStatus,
                               "SRVGetSrvStatus: get srvice status error");
}

bool CNetSrvImpl::SRVGetSystemMode(SystemMode* penSysMode, unsigned long* pdwStatus)
{
    if (!OutputsUsable(penSysMode, pdwStatus)) {
        return false;
    }
    // Never fails: a modem that cannot be read is "no service" (0). The value
    // is a SystemModeEx number although the pointer says SystemMode; callers
    // compare against the Ex numbering.
    SystemInfo info;
    SRVGetSystemInfoEx(info);
    *penSysMode = static_cast<SystemMode>(info.dwSysMode);
    return true;
}

bool CNetSrvImpl::SRVGetRoamStatus(unsigned long* pdwRoam, unsigned long* pdwStatus)
{
    if (!CopySystemInfoField(pdwRoam, &SystemInfo::dwRoam, pdwStatus, "SRVGetRoamStatus error")) {
        return false;
    }
    NetSrvTrace(TL_ERRO, "SRVGetRoamStatus success");
    return true;
}

bool CNetSrvImpl::SRVGetSrvDomain(unsigned long* pdwDomain, unsigned long* pdwStatus)
{
    return CopySystemInfoField(pdwDomain, &SystemInfo::dwDomain, pdwStatus, nullptr);
}

bool CNetSrvImpl::SRVGetSysInfo(SysSrvStatus* penSrvStatus, SystemMode* penSysMode,
                                RoamStatus* penRoam, unsigned long* pdwStatus)
{
    if (!OutputsUsable(penSrvStatus, pdwStatus) || !OutputsUsable(penSysMode, pdwStatus) ||
        !OutputsUsable(penRoam, pdwStatus)) {
        return false;
    }
    // Always from the modem: this is the query of callers that want the
    // reading of this moment, not the cache.
    SystemInfo info;
    if (!GetSystemInfo(info)) {
        return FailWithLastError(pdwStatus);
    }
    *penSrvStatus = static_cast<SysSrvStatus>(info.dwSrvStatus);
    *penSysMode = static_cast<SystemMode>(info.dwSysMode);
    *penRoam = static_cast<RoamStatus>(info.dwRoam);
    return true;
}

bool CNetSrvImpl::SRVSetSrvStatus(SysSrvStatus enSrvStatus, unsigned long* pdwStatus)
{
    if (pdwStatus == nullptr) {
        return false;
    }
    // "AT^REGISTER=0" leaves the network; any other status asks to register.
    return SetOne(&NetRegistControlCmd::ControlVal, enSrvStatus == SYS_SRV_STATUS_NO_SRV ? 0u : 1u,
                  OnFailure(pdwStatus));
}
