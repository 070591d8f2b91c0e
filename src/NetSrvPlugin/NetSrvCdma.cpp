// CDMA settings: preferred mode ("^PREFMODE"), EV-DO revision ("^EVDOREV"),
// NAM ("^SNAM"), MIN registration ("^REG"), PRL version ("^PRLVER"), the SIM
// type of a dual-standard card ("^KTFSIMTYPE") and the current SID/NID
// ("^CURRSID"). Values go to and from the modem as the enums' numbers, with
// no mapping. One command each, through QueryOne for the readings.

#include "GlobalFunction.h"
#include "MyGlobalFunc.h"
#include "NetSrvAtCommonds.h"
#include "NetSrvImpl.h"
#include "NetSrvOutputs.h"
#include "NetSrvTrace.h"

using namespace NETSRV_DATA;

namespace {

template <typename Enum>
Enum EnumOf(NUMERIC& value)
{
    return static_cast<Enum>(value.GetNumValue());
}

}  // namespace

bool CNetSrvImpl::SRVGetCDMAPrefMod(CdmaPrefMode* penMode, unsigned long* pdwStatus)
{
    return OutputsUsable(penMode, pdwStatus) &&
           QueryOne<ReadCDMAPrefModCmd, ReadCDMAPrefModRsp>(
               OnFailure(pdwStatus).Trace("SRVGetCDMAPrefMod error"),
               [penMode](ReadCDMAPrefModRsp& rsp) {
                   *penMode = EnumOf<CdmaPrefMode>(rsp.PrefMod);
               },
               "SRVGetCDMAPrefMod success");
}

bool CNetSrvImpl::SRVSetCDMAPrefMod(CdmaPrefMode enMode, unsigned long* pdwStatus)
{
    if (pdwStatus == nullptr ||
        !SetOne(&SetCDMAPrefModCmd::PrefMod, enMode,
                OnFailure(pdwStatus).Trace("SRVSetCDMAPrefMod error"))) {
        return false;
    }
    NetSrvTrace(TL_ERRO, "SRVSetCDMAPrefMod success");
    return true;
}

bool CNetSrvImpl::SRVGetEvdoRevision(EvdoRevision* penRev, unsigned long* pdwStatus)
{
    // "^EVDOREV: 0" is revision A: the enum keeps the modem's order.
    return OutputsUsable(penRev, pdwStatus) &&
           QueryOne<EvdoGetRevisionCmd, EvdoGetRevisionRsp>(
               OnFailure(pdwStatus),
               [penRev](EvdoGetRevisionRsp& rsp) { *penRev = EnumOf<EvdoRevision>(rsp.EvdoRev); });
}

bool CNetSrvImpl::SRVSetEvdoRevision(EvdoRevision enRev, unsigned long* pdwStatus)
{
    return pdwStatus != nullptr && SetOne(&EvdoSetRevCmd::EvdoRev, enRev, OnFailure(pdwStatus));
}

bool CNetSrvImpl::SRVGetNAM(NAMMode& enMode, unsigned long* pdwStatus)
{
    // The output is a reference: only the error word can be missing.
    return pdwStatus != nullptr &&
           QueryOne<NAMGetModeCmd, NAMGetModeRsp>(
               OnFailure(pdwStatus),
               [&enMode](NAMGetModeRsp& rsp) { enMode = EnumOf<NAMMode>(rsp.NamRev); });
}

bool CNetSrvImpl::SRVSetNAM(NAMMode enMode, unsigned long* pdwStatus)
{
    return pdwStatus != nullptr && SetOne(&NAMSetCmd::mode, enMode, OnFailure(pdwStatus));
}

bool CNetSrvImpl::SRVRegMin(const char* pszMin, unsigned long* pdwStatus)
{
    if (!OutputsUsable(pszMin, pdwStatus)) {
        return false;
    }
    // The text goes out as the caller gave it; the modem judges the MIN.
    RegMinCmd cmd;
    if (!cmd.min.FromString(pszMin)) {
        // Longer than any AT field can carry: no MIN is that long.
        *pdwStatus = NETSRV_ERROR_BAD_PARAM;
        return false;
    }
    return ExecuteNoResponse(cmd, OnFailure(pdwStatus));
}

bool CNetSrvImpl::SRVGetPrlVer(SPrlVer* pstVer, unsigned long* pdwStatus)
{
    return OutputsUsable(pstVer, pdwStatus) &&
           QueryOne<PrlVerReadCmd, PrlVerReadRsp>(
               OnFailure(pdwStatus), [pstVer](PrlVerReadRsp& rsp) {
                   CGlobalFunction::chrcpy(pstVer->szPrlVer, rsp.ver.ToString().c_str(),
                                           sizeof(pstVer->szPrlVer));
               });
}

bool CNetSrvImpl::SRVGetKTFSimType(KTFSimType* penType, unsigned long* pdwStatus)
{
    return OutputsUsable(penType, pdwStatus) &&
           QueryOne<KTFSimTypeCmd, KTFSimTypeRsp>(
               OnFailure(pdwStatus),
               [penType](KTFSimTypeRsp& rsp) { *penType = EnumOf<KTFSimType>(rsp.type); });
}

bool CNetSrvImpl::SRVGetCurrNetworkID(CURRNETWORKIDINFO* pstInfo, unsigned long* pdwStatus)
{
    // Unlike its family, this one hands the processor the caller's word and
    // copies nothing after a failure, and words its missing processor itself.
    return OutputsUsable(pstInfo, pdwStatus) &&
           QueryOne<ReadCurrNetworkIDCmd, ReadCurrNetworkIDRsp>(
               OnFailure(pdwStatus).CallerWordOnly().NoProcessorTrace(
                   "CNetSrvImpl IProcess pointer is NULL"),
               [pstInfo](ReadCurrNetworkIDRsp& rsp) {
                   pstInfo->unCurrSID = static_cast<uint16_t>(rsp.CurrSID.GetNumValue());
                   pstInfo->unCurrNID = static_cast<uint16_t>(rsp.CurrNID.GetNumValue());
                   QIRA_strcpy(pstInfo->szSubNetID, rsp.SubNetID.ToString().c_str(),
                               sizeof(pstInfo->szSubNetID));
               },
               "SRVGetCurrNetworkID() success", TL_INFO);
}
