// Network mode, band and acquisition-order configuration.
//
// Not answered yet by this build: each operation traces that it is not
// available and fails, so that a caller sees a clear refusal rather than
// a made-up value.

#include "NetSrvImpl.h"
#include "NetSrvTrace.h"

bool CNetSrvImpl::SRVGetNetConfiguration(NETSRV_DATA::NetConfigurationType* pstConfig, unsigned long* pdwStatus)
{
    (void)pstConfig;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetNetConfiguration: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetBandList(NETSRV_DATA::BandList* pstBandList, unsigned long* pdwStatus)
{
    (void)pstBandList;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetBandList: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVReleaseBandList(NETSRV_DATA::BandList* pstBandList, unsigned long* pdwStatus)
{
    (void)pstBandList;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVReleaseBandList: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVSetNetConfiguration(const NETSRV_DATA::NetConfigurationType& stConfig, unsigned long* pdwStatus)
{
    (void)stConfig;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVSetNetConfiguration: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetNetConfigurationEx(NETSRV_DATA::NetConfigurationExType* pstConfig, unsigned long* pdwStatus)
{
    (void)pstConfig;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetNetConfigurationEx: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVSetNetConfigurationEx(const NETSRV_DATA::NetConfigurationExType& stConfig, unsigned long* pdwStatus)
{
    (void)stConfig;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVSetNetConfigurationEx: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetBandListEx(NETSRV_DATA::BandList* pstBandList, NETSRV_DATA::BandList* pstLteBandList, NETSRV_DATA::AcqOrderList* pstAcqOrderList, unsigned long* pdwStatus)
{
    (void)pstBandList;
    (void)pstLteBandList;
    (void)pstAcqOrderList;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetBandListEx: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVReleaseBandListEx(NETSRV_DATA::BandList* pstBandList, NETSRV_DATA::BandList* pstLteBandList, NETSRV_DATA::AcqOrderList* pstAcqOrderList, unsigned long* pdwStatus)
{
    (void)pstBandList;
    (void)pstLteBandList;
    (void)pstAcqOrderList;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVReleaseBandListEx: not available in this build");
    return false;
}
