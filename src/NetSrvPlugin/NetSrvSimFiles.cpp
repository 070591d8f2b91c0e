// SIM files and operator names.
//
// Not answered yet by this build: each operation traces that it is not
// available and fails, so that a caller sees a clear refusal rather than
// a made-up value.

#include "NetSrvImpl.h"
#include "NetSrvTrace.h"

bool CNetSrvImpl::SRVGetPNN(NETSRV_DATA::SPNNInfo* pstPnn, unsigned long* pdwStatus)
{
    (void)pstPnn;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetPNN: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetPnnList(NETSRV_DATA::SPNNList* pstPnnList, unsigned long* pdwStatus)
{
    (void)pstPnnList;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetPnnList: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVReleasePnnList(NETSRV_DATA::SPNNList* pstPnnList, unsigned long* pdwStatus)
{
    (void)pstPnnList;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVReleasePnnList: not available in this build");
    return false;
}

bool CNetSrvImpl::SRVGetEFFile(NETSRV_DATA::EFType enType, NETSRV_DATA::EFFile* pstFile, unsigned long* pdwStatus)
{
    (void)enType;
    (void)pstFile;
    (void)pdwStatus;
    NetSrvTrace(TL_ERRO, "SRVGetEFFile: not available in this build");
    return false;
}
