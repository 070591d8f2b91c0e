// Registration reports and state of the three domains ("+CREG" circuit
// switched, "+CGREG" packet switched, "+CEREG" LTE), the packet-domain attach
// ("+CGATT") and the HSDPA/HSUPA switches. One command each; the reports that
// a report switch turns on reach the service through its subscription.

#include <memory>
#include <new>

#include "MyGlobalFunc.h"
#include "NetSrvAtCommonds.h"
#include "NetSrvImpl.h"
#include "NetSrvOutputs.h"
#include "NetSrvTrace.h"

using namespace NETSRV_DATA;

namespace {

// The four fields that every registration answer starts with:
// "+CREG: 2,1,"2A3B","01A2B3C4"" gives mode 2, state 1, area and cell as text
// (the processor has taken the quotes off). A modem in report mode 0 or 1
// gives no location: the texts stay empty. Longer texts are cut to the record.
template <typename Rsp>
void CopyRegState(Rsp& rsp, RegStateReport& stReport)
{
    stReport.ReportMode = static_cast<int32_t>(rsp.ReportMode.GetNumValue());
    stReport.ReportState = static_cast<int32_t>(rsp.ReportState.GetNumValue());
    QIRA_strcpy(stReport.LacCode, rsp.LacCode.ToString().c_str(), sizeof(stReport.LacCode));
    QIRA_strcpy(stReport.CellID, rsp.CellID.ToString().c_str(), sizeof(stReport.CellID));
}

// The <n> of a report switch ("+CREG=<n>" and its kin) as the modem reads it;
// a negative mode goes out as the unsigned number it wraps to, for the modem
// to refuse.
uint64 ReportModeValue(int iReportMode)
{
    return static_cast<uint64>(static_cast<int64_t>(iReportMode));
}

}  // namespace

bool CNetSrvImpl::SRVSetCSRegReport(int iReportMode)
{
    return SetOne(&RegisterReportCmd::ReportMode, ReportModeValue(iReportMode), OnFailure());
}

bool CNetSrvImpl::SRVSetPSRegReport(int iReportMode)
{
    return SetOne(&SetGprsReportCmd::ReportMode, ReportModeValue(iReportMode), OnFailure());
}

bool CNetSrvImpl::SRVSetLTEPSRegReport(int iReportMode)
{
    return SetOne(&SetLTEPSReportCmd::ReportMode, ReportModeValue(iReportMode), OnFailure());
}

bool CNetSrvImpl::SRVGetCSRegState(RegStateReport* pstReport, unsigned long* pdwStatus)
{
    return OutputsUsable(pstReport, pdwStatus) &&
           QueryOne<QueryCSRegStateCmd, QueryCSRegStateRsp>(
               OnFailure(pdwStatus),
               [pstReport](QueryCSRegStateRsp& rsp) { CopyRegState(rsp, *pstReport); });
}

bool CNetSrvImpl::SRVGetPSRegState(RegStateReport* pstReport, unsigned long* pdwStatus)
{
    return OutputsUsable(pstReport, pdwStatus) &&
           QueryOne<QueryPSRegStateCmd, QueryPSRegStateRsp>(
               OnFailure(pdwStatus),
               [pstReport](QueryPSRegStateRsp& rsp) { CopyRegState(rsp, *pstReport); });
}

bool CNetSrvImpl::SRVGetLTEPSRegState(RegStateReport* pstReport, unsigned long* pdwStatus)
{
    if (!OutputsUsable(pstReport, pdwStatus)) {
        return false;
    }
    // The LTE answer has seven fields of a kilobyte each: both objects live on
    // the heap rather than on the caller's stack, and each step has its trace.
    std::unique_ptr<QueryLTEPSRegStateCmd> pCmd(new (std::nothrow) QueryLTEPSRegStateCmd());
    if (!pCmd) {
        NetSrvTrace(TL_ERRO, "CNetSrvImpl::SRVGetLTEPSRegState(): NULL == pCmd");
        return false;
    }
    std::unique_ptr<QueryLTEPSRegStateRsp> pRsp(new (std::nothrow) QueryLTEPSRegStateRsp());
    if (!pRsp) {
        NetSrvTrace(TL_ERRO, "CNetSrvImpl::SRVGetLTEPSRegState(): NULL == pRsp");
        return false;
    }
    if (!ExecuteWithResponse(
            *pCmd, *pRsp,
            OnFailure(pdwStatus)
                .NoProcessorTrace("CNetSrvImpl::SRVGetLTEPSRegState(): IProcess pointer is null")
                .Trace("CNetSrvImpl::SRVGetLTEPSRegState(): ExecuteCmdWaitResponse return false"))) {
        return false;
    }
    // The access technology and the reject cause that may follow are not handed out.
    CopyRegState(*pRsp, *pstReport);
    return true;
}

bool CNetSrvImpl::SRVGetPSState(PSState* penState, unsigned long* pdwStatus)
{
    return OutputsUsable(penState, pdwStatus) &&
           QueryOne<GprsStateGetCmd, GprsStateGetCmdRsp>(
               OnFailure(pdwStatus), [penState](GprsStateGetCmdRsp& rsp) {
                   *penState = static_cast<PSState>(rsp.state.GetNumValue());
               });
}

bool CNetSrvImpl::SRVSetPSState(PSState enState, unsigned long* pdwStatus)
{
    return pdwStatus != nullptr && SetOne(&GprsStateSetCmd::state, enState, OnFailure(pdwStatus));
}

bool CNetSrvImpl::SRVGetGprsState(PSState& enState)
{
    // The caller has no error word: a failure says false and nothing more.
    return QueryOne<GprsStateGetCmd, GprsStateGetCmdRsp>(
        OnFailure(), [&enState](GprsStateGetCmdRsp& rsp) {
            enState = static_cast<PSState>(rsp.state.GetNumValue());
        });
}

bool CNetSrvImpl::SRVGetHSPAState(HSPA_MODE enMode, HSPA_STAT* penStat, unsigned long* pdwStatus)
{
    if (!OutputsUsable(penStat, pdwStatus)) {
        return false;
    }
    // Any mode but HSDPA's reads the uplink switch.
    const bool bRead = enMode == HSPA_MODE_DPA ? GetHSDPAState(penStat) : GetHSUPAState(penStat);
    return bRead || FailWithLastError(pdwStatus);
}

bool CNetSrvImpl::SRVSetHSPAState(HSPA_MODE enMode, HSPA_STAT enStat, unsigned long* pdwStatus)
{
    if (pdwStatus == nullptr) {
        return false;
    }
    const bool bSet = enMode == HSPA_MODE_DPA ? SetHSDPAState(enStat) : SetHSUPAState(enStat);
    return bSet || FailWithLastError(pdwStatus);
}

bool CNetSrvImpl::GetHSDPAState(HSPA_STAT* penState)
{
    return QueryOne<HSDPAReadCmd, HSDPAReadRsp>(OnFailure(), [penState](HSDPAReadRsp& rsp) {
        *penState = static_cast<HSPA_STAT>(rsp.state.GetNumValue());
    });
}

bool CNetSrvImpl::GetHSUPAState(HSPA_STAT* penState)
{
    return QueryOne<HSUPAReadCmd, HSUPAReadRsp>(OnFailure(), [penState](HSUPAReadRsp& rsp) {
        *penState = static_cast<HSPA_STAT>(rsp.state.GetNumValue());
    });
}

bool CNetSrvImpl::SetHSDPAState(HSPA_STAT enState)
{
    return SetOne(&HSDPASetCmd::state, enState, OnFailure());
}

bool CNetSrvImpl::SetHSUPAState(HSPA_STAT enState)
{
    return SetOne(&HSUPASetCmd::state, enState, OnFailure());
}
