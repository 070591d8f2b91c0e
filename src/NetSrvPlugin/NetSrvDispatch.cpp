// The report dispatcher: the one place where a report of the modem (or one that
// the service queued itself) becomes a client event.

#include <cstdlib>
#include <string>

#include "NetSrvAtCommonds.h"
#include "NetSrvImpl.h"
#include "NetSrvModeMap.h"
#include "NetSrvPlmnList.h"
#include "NetSrvSignalMath.h"
#include "NetSrvTrace.h"
#include "isapuguard.h"

using namespace NETSRV_DATA;

namespace {

// Fills the indication from the report when the report is what its index says
// it is. "+CGREG" shares the indication class of "+CREG", so the object is
// filled under the report's own name.
bool CastReport(const Command& report, ICommand* pIndication)
{
    if (report.index >= INDEX_COUNT || report.name != _GetCmdName(report.index)) {
        return false;
    }
    Command named = report;
    named.name = pIndication->GetName();
    return CommandCast(named, pIndication);
}

// Clients read only the percentage of a signal event; the raw value goes out as 0.
bool SendSignalPercent(CNetSrvImpl& service, unsigned char btPercent)
{
    RSSIType rssi;
    rssi.nRSSI = 0;
    rssi.btRSSIPercent = btPercent;
    service.SendCallBackFuns(EVENT_SRV_RSSI, &rssi);
    return true;
}

bool SendNumber(CNetSrvImpl& service, DWORD dwEvent, uint64 value)
{
    unsigned long dwValue = static_cast<unsigned long>(value);
    service.SendCallBackFuns(dwEvent, &dwValue);
    return true;
}

}  // namespace

bool CNetSrvImpl::AtCallBackEvent(const Command& cmd)
{
    CISAPUGuard<JMutex> guard(m_lockerATCBFun);
    if (cmd.index < INDEX_NET_SEARCH || cmd.index > INDEX_PNN_FILE_REFRESH) {
        return false;
    }

    switch (cmd.index) {
    case INDEX_NET_SEARCH: {
        // Sent also when empty: that is how a failed search reaches clients.
        SPlmnList list;
        ParsePlmnList(cmd, list);
        SendCallBackFuns(EVENT_NETSRV_PLMN_ALL, &list);
        return true;
    }
    case INDEX_SYS_INFO: {
        SystemInfoRsp ind;
        if (CastReport(cmd, &ind)) {
            SendNumber(*this, EVENT_SRV_DOMAIN, ind.SrvDomain.GetNumValue());
        }
        return true;
    }
    case INDEX_SERV_IND: {
        SerivceChangedInd ind;
        if (CastReport(cmd, &ind)) {
            SendNumber(*this, EVENT_NET_SERVER_STATUS, ind.SrvStatus.GetNumValue());
        }
        return true;
    }
    case INDEX_NET_REGISTER:
    case INDEX_CGREG: {
        RegisterStatusInd ind;
        if (!CastReport(cmd, &ind)) {
            return true;
        }
        if (m_iPrvATIndex == cmd.index) {
            m_bInitAtCGREG = true;
            m_iPrvATIndex = cmd.index;
        } else {
            // The registration moved: read the system information afresh on
            // the domain-check thread, whose change reports reach the clients.
            // While an earlier check still runs, this report adds nothing.
            m_CheckDomainChangedThread.StartThread(this, &CNetSrvImpl::DomainChangedCallback, 0);
            m_bInitAtCGREG = false;
            m_iPrvATIndex = 0;
        }
        return true;
    }
    case INDEX_RSSI_IND: {
        RssiChangedInd ind;
        if (CastReport(cmd, &ind)) {
            SendSignalPercent(*this, RssiToPercent(static_cast<int>(ind.rssi.GetNumValue())));
        }
        return true;
    }
    case INDEX_RSSI_IND_EC: {
        // "^RSSILVL" and "^HRSSILVL" already carry a level.
        RssiChangedIndEC ind;
        if (CastReport(cmd, &ind)) {
            SendSignalPercent(*this, static_cast<unsigned char>(ind.rssi.GetNumValue()));
        }
        return true;
    }
    case INDEX_RSSI_HDR_IND: {
        HdrRssiChangedInd ind;
        if (CastReport(cmd, &ind)) {
            SendSignalPercent(*this, static_cast<unsigned char>(ind.rssi.GetNumValue()));
        }
        return true;
    }
    case INDEX_ANTENNA_REPORT: {
        AntennaChangedReport ind;
        if (CastReport(cmd, &ind)) {
            AntennaLevel level;
            level.wLevel = static_cast<uint16_t>(ind.level.GetNumValue());
            SendCallBackFuns(EVENT_SRV_ANTENNA_LEVEL, &level);
        }
        return true;
    }
    case INDEX_SYS_MODE: {
        SysModeChangedInd ind;
        if (CastReport(cmd, &ind)) {
            const std::string strSysMode = ind.SysMode.ToString();
            const std::string strSubMode = ind.SysSubMode.ToString();
            const int iSysMode = std::atoi(strSysMode.c_str());
            const SubsysModeEx enSubMode =
                strSubMode.empty()
                    ? MapOldSysModeToExSubMode(iSysMode)
                    : MapOldSubModeToExSubMode(iSysMode, std::atoi(strSubMode.c_str()));
            SendNumber(*this, EVENT_SRV_SYSTEM_MODE, static_cast<uint64>(enSubMode));
        }
        return true;
    }
    case INDEX_SIM_REFRESH: {
        SimRefreshCmd ind;
        if (CastReport(cmd, &ind)) {
            SendNumber(*this, EVENT_SIM_REFRESH, ind.filetype.GetNumValue());
        }
        return true;
    }
    case INDEX_PNN_FILE_REFRESH: {
        // The event has no content; a payload is still needed, since an event
        // without one is never delivered.
        unsigned long dwScratch = 0;
        SendCallBackFuns(EVENT_PNN_FILEREFRESH, &dwScratch);
        return true;
    }
    default:
        // "^SIMST" among them: subscribed, but no client event exists for it.
        return false;
    }
}

void CNetSrvImpl::DomainChangedCallback()
{
    SystemInfo info;
    SRVGetSystemInfoEx(info);
}
