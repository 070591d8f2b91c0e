// Operator search and selection, home operator and the preferred-operator lists.
//
// Not answered yet by this build: each operation traces that it is not
// available and fails, so that a caller sees a clear refusal rather than
// a made-up value.

#include "NetSrvImpl.h"
#include "NetSrvTrace.h"

bool CNetSrvImpl::SRVGetHomePLMN(NETSRV_DATA::PLMNType* pstPlmn, unsigned long* pdwStatus)
{
    (void)pstPlmn;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetHomePLMN: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetPLMNList(unsigned long* pdwStatus)
{
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetPLMNList: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVSelectCurPlmn(unsigned long dwMode, const NETSRV_DATA::PLMNType& stPlmn, unsigned long* pdwStatus)
{
    (void)dwMode;
    (void)stPlmn;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVSelectCurPlmn: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetCurPlmn(unsigned long* pdwMode, NETSRV_DATA::PLMNType* pstPlmn, unsigned long* pdwStatus)
{
    (void)pdwMode;
    (void)pstPlmn;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetCurPlmn: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetPLMNControlMode(NETSRV_DATA::UPLMN_MODE* penMode)
{
    (void)penMode;
    NetSrvTrace(TL_ERRO, "SRVGetPLMNControlMode: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVSetPLMNControlMode(NETSRV_DATA::UPLMN_MODE enMode)
{
    (void)enMode;
    NetSrvTrace(TL_ERRO, "SRVSetPLMNControlMode: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetPLMNPreferList(NETSRV_DATA::UPLMNList* pstList)
{
    (void)pstList;
    NetSrvTrace(TL_ERRO, "SRVGetPLMNPreferList: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVReleasePLMNPreferList(NETSRV_DATA::UPLMNList* pstList)
{
    (void)pstList;
    NetSrvTrace(TL_ERRO, "SRVReleasePLMNPreferList: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVSetPLMNPreferInfo(NETSRV_DATA::UPLMNInfo& stInfo)
{
    (void)stInfo;
    NetSrvTrace(TL_ERRO, "SRVSetPLMNPreferInfo: not available in this build");
    return false;
}
