// Dynamic addresses of the current data link. The modem is not asked: the
// operating system knows the addresses of the link, and the dial-up library
// reads them. The service's part is to name the link, through the host's
// connect service.

#include <string>

#include "GlobalFunction.h"
#include "Interface/INetConnectService.h"
#include "MyGlobalFunc.h"
#include "NetSrvImpl.h"
#include "NetSrvPlugin.h"
#include "NetSrvTrace.h"
#include "OSDialup.h"

namespace {

typedef int (*PFN_DIALUP_QUERY)(const char* pszInterface, const char* pszParam,
                                char* pszBuffer, int nSize);

// One address query: the library function and the three messages.
struct AddressQuery {
    PFN_DIALUP_QUERY pfnQuery;
    const char* pszBadParam;
    const char* pszFailed;
    const char* pszSuccess;
};

const AddressQuery kDynamicIP = {OS_DIALUP_GetDynamicIP, "SRVGetDynamicIP : bad param",
                                 "SRVGetDynamicIP : failed", "SRVGetDynamicIP : success"};
const AddressQuery kDynamicDNS = {OS_DIALUP_GetDynamicDNS, "SRVGetDynamicDNS : bad param",
                                  "SRVGetDynamicDNS : failed", "SRVGetDynamicDNS : success"};
const AddressQuery kDynamicIP6 = {OS_DIALUP_GetDynamicIP6, "SRVGetDynamicIP6 : bad param",
                                  "SRVGetDynamicIP6 : failed", "SRVGetDynamicIP6 : success"};

// Hands the connection list back to the connect service however the walk ends.
class ConnectListHolder {
public:
    explicit ConnectListHolder(INetConnectList* pList) : m_pList(pList) {}
    ~ConnectListHolder() { m_pList->Release(); }
    ConnectListHolder(const ConnectListHolder&) = delete;
    ConnectListHolder& operator=(const ConnectListHolder&) = delete;

private:
    INetConnectList* m_pList;
};

bool RunAddressQuery(CNetSrvImpl& service, const AddressQuery& query, const char* pszReserved,
                     const char* pszParam, char* pszBuffer, int iSize)
{
    if (pszReserved == nullptr || pszParam == nullptr || pszBuffer == nullptr || iSize <= 0) {
        NetSrvTrace(TL_ERRO, query.pszBadParam);
        return false;
    }
    // The link's name stands in for the reserved argument. A connect service
    // that fails on the way counts as no connection: the library then refuses
    // the empty name and the caller hears "failed".
    std::string strName;
    try {
        service.GetCurrentConnectDeviceName(strName);
    } catch (...) {
        strName.clear();
    }
    if (query.pfnQuery(strName.c_str(), pszParam, pszBuffer, iSize) != OS_DIALUP_ERROR_SUCCED) {
        NetSrvTrace(TL_ERRO, query.pszFailed);
        return false;
    }
    NetSrvTrace(TL_INFO, query.pszSuccess);
    return true;
}

}  // namespace

void CNetSrvImpl::GetCurrentConnectDeviceName(std::string& name)
{
    name.clear();
    INetConnectService* pConnectService = CGlobalFunction::GetPluginInterface<INetConnectService*>(
        INETCONNECTSERVICE_INTERFACE_ID, INETCONNECTSERVICE_INTERFACE_NO,
        CNetSrvPlugin::GetPluginContainer());
    if (pConnectService == nullptr) {
        return;
    }
    INetConnectList* pList = pConnectService->GetConnectList();
    if (pList == nullptr) {
        return;
    }
    ConnectListHolder holder(pList);
    if (!pList->MoveFirst()) {
        return;
    }
    do {
        if (pList->GetState() == NETCONNECT_DATA::CONNECTED) {
            const int iType = pList->GetType();
            // The modem's dial-up link is always the first ppp unit, whatever
            // name the connect service keeps for the entry.
            if (iType == NETCONNECT_DATA::TYPE_DIALUP) {
                name = "ppp0";
                return;
            }
            if (iType == NETCONNECT_DATA::TYPE_NDIS) {
                const std::basic_string<unsigned short> strWide = pList->GetInterfaceName();
                name = MyWideCharToMultiByte(strWide.c_str(), CP_UTF8);
                return;
            }
        }
    } while (pList->MoveNext());
}

bool CNetSrvImpl::SRVGetDynamicIP(const char* pszReserved, const char* pszParam, char* pszBuffer,
                                  int iSize)
{
    return RunAddressQuery(*this, kDynamicIP, pszReserved, pszParam, pszBuffer, iSize);
}

bool CNetSrvImpl::SRVGetDynamicDNS(const char* pszReserved, const char* pszParam, char* pszBuffer,
                                   int iSize)
{
    return RunAddressQuery(*this, kDynamicDNS, pszReserved, pszParam, pszBuffer, iSize);
}

bool CNetSrvImpl::SRVGetDynamicIP6(const char* pszReserved, const char* pszParam, char* pszBuffer,
                                   int iSize)
{
    return RunAddressQuery(*this, kDynamicIP6, pszReserved, pszParam, pszBuffer, iSize);
}
