// The exported functions: the queries over the system's interface list and
// resolver files. No exception leaves the library.
#include "OSDialup.h"

#include "OSDialupQuery.h"

namespace {

// Argument errors are told before the system is read.
bool BadArguments(const char* pszInterface, const char* pszBuffer, int nSize)
{
    return pszInterface == nullptr || pszBuffer == nullptr || nSize <= 0;
}

// The empty text into a usable buffer; answers result.
int Refuse(char* pszBuffer, int nSize, int result)
{
    if (pszBuffer != nullptr && nSize > 0) {
        pszBuffer[0] = '\0';
    }
    return result;
}

}  // namespace

extern "C" int OS_DIALUP_GetDynamicIP(const char* pszInterface, const char* pszParam,
                                      char* pszBuffer, int nSize)
{
    if (BadArguments(pszInterface, pszBuffer, nSize)) {
        return Refuse(pszBuffer, nSize, OS_DIALUP_ERROR_BADPARAM);
    }
    try {
        return osdialup::QueryDynamicIP(pszInterface, pszParam, pszBuffer, nSize,
                                        osdialup::ReadLinkAddresses());
    } catch (...) {
        return Refuse(pszBuffer, nSize, OS_DIALUP_ERROR_FAILED);
    }
}

extern "C" int OS_DIALUP_GetDynamicIP6(const char* pszInterface, const char* pszParam,
                                       char* pszBuffer, int nSize)
{
    if (BadArguments(pszInterface, pszBuffer, nSize)) {
        return Refuse(pszBuffer, nSize, OS_DIALUP_ERROR_BADPARAM);
    }
    try {
        return osdialup::QueryDynamicIP6(pszInterface, pszParam, pszBuffer, nSize,
                                         osdialup::ReadLinkAddresses());
    } catch (...) {
        return Refuse(pszBuffer, nSize, OS_DIALUP_ERROR_FAILED);
    }
}

extern "C" int OS_DIALUP_GetDynamicDNS(const char* pszInterface, const char* pszParam,
                                       char* pszBuffer, int nSize)
{
    if (BadArguments(pszInterface, pszBuffer, nSize)) {
        return Refuse(pszBuffer, nSize, OS_DIALUP_ERROR_BADPARAM);
    }
    try {
        return osdialup::QueryDynamicDNS(pszInterface, pszParam, pszBuffer, nSize,
                                         osdialup::ReadLinkAddresses(), osdialup::ResolvFiles());
    } catch (...) {
        return Refuse(pszBuffer, nSize, OS_DIALUP_ERROR_FAILED);
    }
}
