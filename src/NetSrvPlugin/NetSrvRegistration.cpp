// Registration reports and state, packet-domain attach and the HSPA switches.
//
// Not answered yet by this build: each operation traces that it is not
// available and fails, so that a caller sees a clear refusal rather than
// a made-up value.

#include "NetSrvImpl.h"
#include "NetSrvTrace.h"

bool CNetSrvImpl::SRVGetHSPAState(NETSRV_DATA::HSPA_MODE enMode, NETSRV_DATA::HSPA_STAT* penStat, unsigned long* pdwStatus)
{
    (void)enMode;
    (void)penStat;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetHSPAState: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVSetHSPAState(NETSRV_DATA::HSPA_MODE enMode, NETSRV_DATA::HSPA_STAT enStat, unsigned long* pdwStatus)
{
    (void)enMode;
    (void)enStat;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVSetHSPAState: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetPSState(NETSRV_DATA::PSState* penState, unsigned long* pdwStatus)
{
    (void)penState;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetPSState: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVSetPSState(NETSRV_DATA::PSState enState, unsigned long* pdwStatus)
{
    (void)enState;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVSetPSState: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVSetCSRegReport(int iReportMode)
{
    (void)iReportMode;
    NetSrvTrace(TL_ERRO, "SRVSetCSRegReport: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetCSRegState(NETSRV_DATA::RegStateReport* pstReport, unsigned long* pdwStatus)
{
    (void)pstReport;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetCSRegState: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVSetPSRegReport(int iReportMode)
{
    (void)iReportMode;
    NetSrvTrace(TL_ERRO, "SRVSetPSRegReport: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetPSRegState(NETSRV_DATA::RegStateReport* pstReport, unsigned long* pdwStatus)
{
    (void)pstReport;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetPSRegState: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVSetLTEPSRegReport(int iReportMode)
{
    (void)iReportMode;
    NetSrvTrace(TL_ERRO, "SRVSetLTEPSRegReport: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetLTEPSRegState(NETSRV_DATA::RegStateReport* pstReport, unsigned long* pdwStatus)
{
    (void)pstReport;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetLTEPSRegState: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetGprsState(NETSRV_DATA::PSState& enState)
{
    (void)enState;
    NetSrvTrace(TL_ERRO, "SRVGetGprsState: not available in this build");
    return false;
}
