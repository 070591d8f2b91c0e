// Service status, system mode, roaming and domain, from the system information.
//
// Not answered yet by this build: each operation traces that it is not
// available and fails, so that a caller sees a clear refusal rather than
// a made-up value.

#include "NetSrvImpl.h"
#include "NetSrvTrace.h"

bool CNetSrvImpl::SRVGetSrvStatus(NETSRV_DATA::SysSrvStatus* penSrvStatus, unsigned long* pdwStatus)
{
    (void)penSrvStatus;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetSrvStatus: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVSetSrvStatus(NETSRV_DATA::SysSrvStatus enSrvStatus, unsigned long* pdwStatus)
{
    (void)enSrvStatus;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVSetSrvStatus: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetSystemMode(NETSRV_DATA::SystemMode* penSysMode, unsigned long* pdwStatus)
{
    (void)penSysMode;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetSystemMode: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetRoamStatus(unsigned long* pdwRoam, unsigned long* pdwStatus)
{
    (void)pdwRoam;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetRoamStatus: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetSrvDomain(unsigned long* pdwDomain, unsigned long* pdwStatus)
{
    (void)pdwDomain;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetSrvDomain: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetSysInfo(NETSRV_DATA::SysSrvStatus* penSrvStatus, NETSRV_DATA::SystemMode* penSysMode, NETSRV_DATA::RoamStatus* penRoam, unsigned long* pdwStatus)
{
    (void)penSrvStatus;
    (void)penSysMode;
    (void)penRoam;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetSysInfo: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetSystemInfo(NETSRV_DATA::SystemInfo& rSysInfo)
{
    (void)rSysInfo;
    NetSrvTrace(TL_ERRO, "SRVGetSystemInfo: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetSystemInfoEx(NETSRV_DATA::SystemInfo& rSysInfo)
{
    (void)rSysInfo;
    NetSrvTrace(TL_ERRO, "SRVGetSystemInfoEx: not available in this build");
    return false;
}
