// Network mode, band and acquisition-order configuration.
//
// Three generations of the modem command serve it: "^SYSCFGEX" (acquisition
// order as text, LTE bands), "^SYSCFG" (mode preference and order, 3GPP bands)
// and "^SYSCONFIG" (TD-SCDMA modems, no bands). The extended operations try
// "^SYSCFGEX" and fall back to the older one through the object's own virtual
// methods, converting between the two records. Which older command a device
// has is told by the device service: a TD-SCDMA device speaks "^SYSCONFIG"
// and neither of the others.

#include <cstring>

#include "GlobalFunction.h"
#include "MyGlobalFunc.h"
#include "NetSrvAcqOrder.h"
#include "NetSrvAtCommonds.h"
#include "NetSrvBandList.h"
#include "NetSrvDevice.h"
#include "NetSrvImpl.h"
#include "NetSrvOutputs.h"
#include "NetSrvTrace.h"

using namespace NETSRV_DATA;

namespace {

// The device kind whose modems speak "^SYSCONFIG" only.
const int kSysconfigDeviceKind = DevDataDef::PRODUCT_TYPE_TD_SCDMA;
// "^SYSCONFIG" carries no band: such a device is taken to use all of them.
const uint64_t kAllBands = 0x3FFFFFFF;

template <size_t N>
std::string QuotedField(const char (&szField)[N])
{
    return AddDoubleQuotationMarks(FieldText(szField).c_str());
}

}  // namespace

bool CNetSrvImpl::DeviceKindForConfiguration(int& iKind)
{
    if (!HasAtProcessor()) {
        return false;
    }
    IDeviceService* pDeviceService = FindDeviceService();
    if (pDeviceService == nullptr) {
        NetSrvTrace(TL_ERRO, "CNetSrvImpl IDeviceService pointer is null");
        return false;
    }
    iKind = pDeviceService->GetProductType();
    return true;
}

// ---- reading the configuration ----------------------------------------------

bool CNetSrvImpl::GetNetConfigurationEx(NetConfigurationExType* pstConfig, unsigned long* pdwStatus)
{
    int iKind = 0;
    if (!OutputsUsable(pstConfig, pdwStatus) || !DeviceKindForConfiguration(iKind) ||
        iKind == kSysconfigDeviceKind) {
        return false;
    }
    return QueryOne<ReadNetworkCfgExCmd, ReadNetworkCfgExRsp>(
        OnFailure(pdwStatus).Trace("GetNetConfigurationEx() ReadNetworkCfgExCmd error"),
        [pstConfig](ReadNetworkCfgExRsp& rsp) {
            CGlobalFunction::chrcpy(pstConfig->szAcqorder, rsp.AcqOrder.GetRawData(),
                                    sizeof(pstConfig->szAcqorder));
            pstConfig->dwBand = rsp.Band.GetNumValue();
            pstConfig->dwDomain = static_cast<DWORD>(rsp.Domain.GetNumValue());
            pstConfig->dwLteBand = rsp.LteBand.GetNumValue();
            pstConfig->dwRoam = static_cast<DWORD>(rsp.Roam.GetNumValue());
            CGlobalFunction::chrcpy(pstConfig->szReserved1, rsp.Reserved1.GetRawData(),
                                    sizeof(pstConfig->szReserved1));
            CGlobalFunction::chrcpy(pstConfig->szReserved2, rsp.Reserved2.GetRawData(),
                                    sizeof(pstConfig->szReserved2));
        });
}

bool CNetSrvImpl::SRVGetNetConfigurationEx(NetConfigurationExType* pstConfig, unsigned long* pdwStatus)
{
    NetSrvTrace(TL_INFO, "SRVGetNetConfigurationEx: Enter!");
    bool bResult = GetNetConfigurationEx(pstConfig, pdwStatus);
    if (!bResult && pstConfig != nullptr) {
        // The older reading is converted whatever its outcome: after a failure
        // the caller finds the converted zero record.
        NetConfigurationType stOlder;
        bResult = SRVGetNetConfiguration(&stOlder, pdwStatus);
        SRVTransformSyscfgStruct(stOlder, *pstConfig);
        pstConfig->dwBand = stOlder.dwBand;
        pstConfig->dwRoam = stOlder.dwRoam;
        pstConfig->dwDomain = stOlder.dwDomain;
        pstConfig->dwLteBand = 0;
        std::memset(pstConfig->szReserved1, 0, sizeof(pstConfig->szReserved1));
        std::memset(pstConfig->szReserved2, 0, sizeof(pstConfig->szReserved2));
    }
    NetSrvTrace(TL_INFO, "SRVGetNetConfigurationEx: Leaved!");
    return bResult;
}

bool CNetSrvImpl::SRVGetNetConfiguration(NetConfigurationType* pstConfig, unsigned long* pdwStatus)
{
    int iKind = 0;
    if (!OutputsUsable(pstConfig, pdwStatus) || !DeviceKindForConfiguration(iKind)) {
        return false;
    }
    if (iKind != kSysconfigDeviceKind) {
        // dwHybr is not the modem's: it keeps what the caller had.
        return QueryOne<ReadNetworkCfgCmd, ReadNetworkCfgRsp>(
            OnFailure(pdwStatus).Trace("SRVGetNetConfiguration() ReadNetworkCfgCmd error"),
            [pstConfig](ReadNetworkCfgRsp& rsp) {
                pstConfig->dwSystemMode = static_cast<DWORD>(rsp.SysModePref.GetNumValue());
                pstConfig->dwAcqOrder = static_cast<DWORD>(rsp.AcqOrder.GetNumValue());
                pstConfig->dwBand = rsp.Band.GetNumValue();
                pstConfig->dwRoam = static_cast<DWORD>(rsp.Roam.GetNumValue());
                pstConfig->dwDomain = static_cast<DWORD>(rsp.Domain.GetNumValue());
            });
    }
    return QueryOne<ReadNetworkConfigCmd, ReadNetworkConfigRsp>(
        OnFailure(pdwStatus).Trace("SRVGetNetConfiguration() ReadNetworkConfigCmd error"),
        [pstConfig](ReadNetworkConfigRsp& rsp) {
            pstConfig->dwSystemMode = static_cast<DWORD>(rsp.SysModePref.GetNumValue());
            pstConfig->dwAcqOrder = static_cast<DWORD>(rsp.AcqOrder.GetNumValue());
            pstConfig->dwRoam = static_cast<DWORD>(rsp.Roam.GetNumValue());
            pstConfig->dwDomain = static_cast<DWORD>(rsp.Domain.GetNumValue());
            pstConfig->dwBand = kAllBands;
        });
}

// ---- changing the configuration ---------------------------------------------

bool CNetSrvImpl::SetNetConfigurationEx(const NetConfigurationExType& stConfig, unsigned long* pdwStatus)
{
    int iKind = 0;
    if (pdwStatus == nullptr || !DeviceKindForConfiguration(iKind) ||
        iKind == kSysconfigDeviceKind) {
        return false;
    }
    SetNetworkCfgExCmd cmd;
    cmd.AcqOrder = QuotedField(stConfig.szAcqorder);
    cmd.Band = stConfig.dwBand;
    cmd.Domain = stConfig.dwDomain;
    if (stConfig.dwLteBand != 0) {
        cmd.LteBand = stConfig.dwLteBand;
    }
    // else the field goes out empty, and the modem keeps its LTE bands.
    cmd.Roam = stConfig.dwRoam;
    cmd.Reserved1 = QuotedField(stConfig.szReserved1);
    cmd.Reserved2 = QuotedField(stConfig.szReserved2);
    return ExecuteNoResponse(cmd, OnFailure(pdwStatus));
}

bool CNetSrvImpl::SRVSetNetConfigurationEx(const NetConfigurationExType& stConfig, unsigned long* pdwStatus)
{
    NetSrvTrace(TL_INFO, "SRVSetNetConfigurationEx: Enter!");
    bool bResult = SetNetConfigurationEx(stConfig, pdwStatus);
    if (!bResult) {
        // The older command has no LTE bands and no reserved fields: they are
        // lost on this road.
        NetConfigurationType stOlder;
        stOlder.dwBand = stConfig.dwBand;
        stOlder.dwDomain = stConfig.dwDomain;
        stOlder.dwRoam = stConfig.dwRoam;
        SRVTransformSyscfgexStruct(stConfig, stOlder);
        bResult = SRVSetNetConfiguration(stOlder, pdwStatus);
    }
    // The set's leave message names the get, as the traces have always read.
    NetSrvTrace(TL_INFO, "SRVGetNetConfigurationEx: Leaved!");
    return bResult;
}

bool CNetSrvImpl::SRVSetNetConfiguration(const NetConfigurationType& stConfig, unsigned long* pdwStatus)
{
    int iKind = 0;
    if (pdwStatus == nullptr || !DeviceKindForConfiguration(iKind)) {
        return false;
    }
    if (iKind != kSysconfigDeviceKind) {
        SetNetworkCfgCmd cmd;
        cmd.SysModePref = stConfig.dwSystemMode;
        cmd.AcqOrder = stConfig.dwAcqOrder;
        cmd.Band = stConfig.dwBand;
        cmd.Roam = stConfig.dwRoam;
        cmd.Domain = stConfig.dwDomain;
        return ExecuteNoResponse(cmd, OnFailure(pdwStatus));
    }
    // "^SYSCONFIG" has no set class of its own: its record goes out as the set.
    ReadNetworkConfigRsp cmd;
    cmd.SysModePref = stConfig.dwSystemMode;
    cmd.AcqOrder = stConfig.dwAcqOrder;
    cmd.Roam = stConfig.dwRoam;
    cmd.Domain = stConfig.dwDomain;
    return ExecuteNoResponse(cmd, OnFailure(pdwStatus));
}

void CNetSrvImpl::SRVTransformSyscfgexStruct(const NetConfigurationExType& stConfigEx,
                                             NetConfigurationType& stConfig)
{
    ModeAndOrderOfAcqText(FieldText(stConfigEx.szAcqorder).c_str(), stConfig.dwSystemMode,
                          stConfig.dwAcqOrder);
}

void CNetSrvImpl::SRVTransformSyscfgStruct(const NetConfigurationType& stConfig,
                                           NetConfigurationExType& stConfigEx)
{
    if (const char* pszText = AcqTextOfModeAndOrder(stConfig.dwSystemMode, stConfig.dwAcqOrder)) {
        std::memset(stConfigEx.szAcqorder, 0, sizeof(stConfigEx.szAcqorder));
        CGlobalFunction::chrcpy(stConfigEx.szAcqorder, pszText, sizeof(stConfigEx.szAcqorder));
    }
}

// ---- the lists of what the modem offers -------------------------------------

bool CNetSrvImpl::TakeBandGroup(const std::string& strGroup, BandList& stMember,
                                BandList& stCallers)
{
    BandList stFresh;
    if (!ParseBandGroup(strGroup, stFresh)) {
        return false;
    }
    InstallList(stMember, stFresh, m_vctRetiredBandArrays);
    stCallers = stMember;
    return true;
}

bool CNetSrvImpl::SRVGetBandList(BandList* pstBandList, unsigned long* pdwStatus)
{
    if (!OutputsUsable(pstBandList, pdwStatus)) {
        return false;
    }
    return QueryOne<TestNetworkCfgCmd, TestNetworkCfgRsp>(
        OnFailure(pdwStatus).Trace("SRVGetBandList() TestNetworkCfgCmd error"),
        [this, pstBandList](TestNetworkCfgRsp& rsp) {
            TakeBandGroup(rsp.Bands.ToString(), m_stBandList, *pstBandList);
        },
        "SRVGetBandList() success!");
}

bool CNetSrvImpl::GetBandListEx(BandList* pstBandList, BandList* pstLteBandList,
                                AcqOrderList* pstAcqOrderList, unsigned long* pdwStatus)
{
    if (pdwStatus == nullptr) {
        return false;
    }
    if (pstBandList == nullptr || pstLteBandList == nullptr || pstAcqOrderList == nullptr) {
        *pdwStatus = NETSRV_ERROR_BAD_PARAM;
        return false;
    }
    return QueryOne<TestNetworkCfgExCmd, TestNetworkCfgExRsp>(
        OnFailure(pdwStatus).Trace("GetBandListEx() TestNetworkCfgCmd error"),
        [&](TestNetworkCfgExRsp& rsp) {
            AcqOrderList stFresh;
            if (ParseAcqOrderGroup(rsp.AcqOrders.ToString(), stFresh)) {
                InstallList(m_stAcqOrderList, stFresh, m_vctRetiredAcqOrderArrays);
                *pstAcqOrderList = m_stAcqOrderList;
            }
            TakeBandGroup(rsp.Bands.ToString(), m_stBandList, *pstBandList);
            TakeBandGroup(rsp.LteBand.ToString(), m_stLteBandList, *pstLteBandList);
        },
        "SRVGetBandList() success!");
}

bool CNetSrvImpl::SRVGetBandListEx(BandList* pstBandList, BandList* pstLteBandList,
                                   AcqOrderList* pstAcqOrderList, unsigned long* pdwStatus)
{
    NetSrvTrace(TL_INFO, "SRVGetBandListEx: Enter!");
    // Lists that an older modem cannot fill read as empty.
    const auto emptyExtendedLists = [pstLteBandList, pstAcqOrderList] {
        if (pstLteBandList != nullptr) {
            pstLteBandList->nSize = 0;
        }
        if (pstAcqOrderList != nullptr) {
            pstAcqOrderList->nSize = 0;
        }
    };
    emptyExtendedLists();
    bool bResult = GetBandListEx(pstBandList, pstLteBandList, pstAcqOrderList, pdwStatus);
    if (!bResult) {
        emptyExtendedLists();
        bResult = SRVGetBandList(pstBandList, pdwStatus);
    }
    NetSrvTrace(TL_INFO, "SRVGetBandListEx: Leaved!");
    return bResult;
}

bool CNetSrvImpl::SRVReleaseBandList(BandList* pstBandList, unsigned long* pdwStatus)
{
    if (!OutputsUsable(pstBandList, pdwStatus)) {
        return false;
    }
    // The service's own array is freed, whatever array the caller holds.
    EmptyList(m_stBandList);
    *pstBandList = m_stBandList;
    return true;
}

bool CNetSrvImpl::SRVReleaseBandListEx(BandList* pstBandList, BandList* pstLteBandList,
                                       AcqOrderList* pstAcqOrderList, unsigned long* pdwStatus)
{
    if (pdwStatus == nullptr) {
        return false;
    }
    if (pstBandList == nullptr || pstLteBandList == nullptr || pstAcqOrderList == nullptr) {
        *pdwStatus = NETSRV_ERROR_BAD_PARAM;
        return false;
    }
    // A list the caller holds empty was never handed out: its array stays.
    if (pstBandList->nSize != 0) {
        EmptyList(m_stBandList);
        *pstBandList = m_stBandList;
    }
    if (pstLteBandList->nSize != 0) {
        EmptyList(m_stLteBandList);
        *pstLteBandList = m_stLteBandList;
    }
    if (pstAcqOrderList->nSize != 0) {
        EmptyList(m_stAcqOrderList);
        *pstAcqOrderList = m_stAcqOrderList;
    }
    return true;
}
