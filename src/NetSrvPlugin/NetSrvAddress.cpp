// Dynamic addresses of the current data link.
//
// Not answered yet by this build: each operation traces that it is not
// available and fails, so that a caller sees a clear refusal rather than
// a made-up value.

#include "NetSrvImpl.h"
#include "NetSrvTrace.h"

bool CNetSrvImpl::SRVGetDynamicIP(const char* pszReserved, const char* pszParam, char* pszBuffer, int iSize)
{
    (void)pszReserved;
    (void)pszParam;
    (void)pszBuffer;
    (void)iSize;
    NetSrvTrace(TL_ERRO, "SRVGetDynamicIP: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetDynamicDNS(const char* pszReserved, const char* pszParam, char* pszBuffer, int iSize)
{
    (void)pszReserved;
    (void)pszParam;
    (void)pszBuffer;
    (void)iSize;
    NetSrvTrace(TL_ERRO, "SRVGetDynamicDNS: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetDynamicIP6(const char* pszReserved, const char* pszParam, char* pszBuffer, int iSize)
{
    (void)pszReserved;
    (void)pszParam;
    (void)pszBuffer;
    (void)iSize;
    NetSrvTrace(TL_ERRO, "SRVGetDynamicIP6: not available in this build");
    return false;
}
