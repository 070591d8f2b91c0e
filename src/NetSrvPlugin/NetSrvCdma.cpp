// CDMA settings: preferred mode, EV-DO revision, NAM, MIN, PRL and network identity.
//
// Not answered yet by this build: each operation traces that it is not
// available and fails, so that a caller sees a clear refusal rather than
// a made-up value.

#include "NetSrvImpl.h"
#include "NetSrvTrace.h"

bool CNetSrvImpl::SRVSetCDMAPrefMod(NETSRV_DATA::CdmaPrefMode enMode, unsigned long* pdwStatus)
{
    (void)enMode;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVSetCDMAPrefMod: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetCDMAPrefMod(NETSRV_DATA::CdmaPrefMode* penMode, unsigned long* pdwStatus)
{
    (void)penMode;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetCDMAPrefMod: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetEvdoRevision(NETSRV_DATA::EvdoRevision* penRev, unsigned long* pdwStatus)
{
    (void)penRev;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetEvdoRevision: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVSetEvdoRevision(NETSRV_DATA::EvdoRevision enRev, unsigned long* pdwStatus)
{
    (void)enRev;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVSetEvdoRevision: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVSetNAM(NETSRV_DATA::NAMMode enMode, unsigned long* pdwStatus)
{
    (void)enMode;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVSetNAM: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetNAM(NETSRV_DATA::NAMMode& enMode, unsigned long* pdwStatus)
{
    (void)enMode;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetNAM: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVRegMin(const char* pszMin, unsigned long* pdwStatus)
{
    (void)pszMin;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVRegMin: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetPrlVer(NETSRV_DATA::SPrlVer* pstPrlVer, unsigned long* pdwStatus)
{
    (void)pstPrlVer;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetPrlVer: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetKTFSimType(NETSRV_DATA::KTFSimType* penType, unsigned long* pdwStatus)
{
    (void)penType;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetKTFSimType: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetCurrNetworkID(CURRNETWORKIDINFO* pstInfo, unsigned long* pdwStatus)
{
    (void)pstInfo;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetCurrNetworkID: not available in this build");
    return false;
}
