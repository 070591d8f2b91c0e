// Fakes of the host's plugin services for tests: a container that hands out
// registered interfaces, a device manager that records its receivers and can
// fire events, a device service with a settable product type, and a connect
// service with a scripted connection list. Thread-safe.
#ifndef TESTKIT_FAKEPLUGINHOST_H
#define TESTKIT_FAKEPLUGINHOST_H

#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "Interface/IDeviceMgr.h"
#include "Interface/IDeviceService.h"
#include "Interface/INetConnectService.h"
#include "Interface/IPluginContainer.h"

namespace testkit {

class FakeContainer : public IPluginContainer {
public:
    // Registers pInterface under (id, number); null removes it.
    void Register(const std::string& id, int number, void* pInterface);
    // How many lookups asked for (id, number).
    int LookupCount(const std::string& id, int number) const;

    bool QueryPluginInterface(const char* pszInterfaceId, int nInterfaceNo,
                              void** ppInterface) override;

private:
    mutable std::mutex m_mutex;
    std::map<std::pair<std::string, int>, void*> m_interfaces;
    std::map<std::pair<std::string, int>, int> m_lookups;
};

class FakeDeviceMgr : public IDeviceMgr {
public:
    void Release() override {}
    int GetLastError() override { return 0; }
    bool RegisterDeviceCallback(IDeviceMgrEvent* pEvent) override;
    bool UnRegisterDeviceCallback(IDeviceMgrEvent* pEvent) override;

    std::vector<IDeviceMgrEvent*> Receivers() const;
    // Delivers an event to every receiver, on the calling thread.
    void Fire(DWORD dwEvent);

private:
    mutable std::mutex m_mutex;
    std::vector<IDeviceMgrEvent*> m_receivers;
};

class FakeDeviceService : public IDeviceService {
public:
    explicit FakeDeviceService(int productType = DevDataDef::PRODUCT_TYPE_WCDMA)
        : m_productType(productType) {}
    void Release() override {}
    int GetLastError() override { return 0; }
    int GetProductType() override;
    void SetProductType(int productType);

private:
    mutable std::mutex m_mutex;
    int m_productType;
};

// One entry of the fake connect service's list.
struct FakeConnection {
    int state;              // NETCONNECT_DATA::_EN_CONNECT_STATE
    int type;               // NETCONNECT_DATA::_EN_CONNECT_TYPE
    std::u16string name;    // the interface name as the list hands it out
};

class FakeConnectService : public INetConnectService {
public:
    void Release() override {}
    int GetLastError() override { return 0; }
    // A fresh list over the scripted connections, or null when lists are
    // switched off. Every list hands its Release back to this service, which
    // must outlive the lists it gave out.
    INetConnectList* GetConnectList() override;

    void SetConnections(const std::vector<FakeConnection>& connections);
    // false: GetConnectList answers null.
    void SetListAvailable(bool bAvailable);

    // How many lists were asked for, how many were handed out (not null), and
    // how many came back through Release.
    int ListsRequested() const;
    int ListsHandedOut() const;
    int ListsReleased() const;

private:
    friend class FakeConnectList;
    void OnListReleased();

    mutable std::mutex m_mutex;
    std::vector<FakeConnection> m_connections;
    bool m_bListAvailable = true;
    int m_nRequested = 0;
    int m_nHandedOut = 0;
    int m_nReleased = 0;
};

}  // namespace testkit

#endif
