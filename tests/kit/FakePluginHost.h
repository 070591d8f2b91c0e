// Fakes of the host's plugin services for tests: a container that hands out
// registered interfaces, a device manager that records its receivers and can
// fire events, and a device service with a settable product type. Thread-safe.
#ifndef TESTKIT_FAKEPLUGINHOST_H
#define TESTKIT_FAKEPLUGINHOST_H

#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "Interface/IDeviceMgr.h"
#include "Interface/IDeviceService.h"
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

}  // namespace testkit

#endif
