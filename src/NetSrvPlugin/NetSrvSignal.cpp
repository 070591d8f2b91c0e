// Signal strength and the signal-bar percentages.
//
// Not answered yet by this build: each operation traces that it is not
// available and fails, so that a caller sees a clear refusal rather than
// a made-up value.

#include "NetSrvImpl.h"
#include "NetSrvTrace.h"

bool CNetSrvImpl::SRVGetCurRSSI(NETSRV_DATA::RSSIType* pstRssi, unsigned long* pdwStatus)
{
    (void)pstRssi;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetCurRSSI: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetSignalQuality(NETSRV_DATA::Signal* pstSignal, unsigned long* pdwStatus)
{
    (void)pstSignal;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetSignalQuality: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetHdrRssiInfo(NETSRV_DATA::RSSIType* pstRssi, unsigned long* pdwStatus)
{
    (void)pstRssi;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetHdrRssiInfo: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetAntennaLevel(NETSRV_DATA::AntennaLevel* pstLevel, unsigned long* pdwStatus)
{
    (void)pstLevel;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetAntennaLevel: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetRowRSSI(NETSRV_DATA::RowRSSI* pstRssi, unsigned long* pdwStatus)
{
    (void)pstRssi;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetRowRSSI: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetHCSQRssi(int* piRssi)
{
    (void)piRssi;
    NetSrvTrace(TL_ERRO, "SRVGetHCSQRssi: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetLteSignalQuality(LteSignal* pstSignal, unsigned long* pdwStatus)
{
    (void)pstSignal;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetLteSignalQuality: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetLteScInfo(LteScInfo* pstInfo, unsigned long* pdwStatus)
{
    (void)pstInfo;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetLteScInfo: not available in this build");
    return false;
}
