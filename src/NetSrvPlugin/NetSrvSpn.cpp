// The service provider name.
//
// Not answered yet by this build: each operation traces that it is not
// available and fails, so that a caller sees a clear refusal rather than
// a made-up value.

#include "NetSrvImpl.h"
#include "NetSrvTrace.h"

bool CNetSrvImpl::SRVGetSpnData(NETSRV_DATA::SSpnDataType* pstSpn, unsigned long* pdwStatus)
{
    (void)pstSpn;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetSpnData: not available in this build");
    return false;
}
