#include "FakePluginHost.h"

#include <algorithm>

namespace testkit {

void FakeContainer::Register(const std::string& id, int number, void* pInterface)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (pInterface == nullptr) {
        m_interfaces.erase({id, number});
    } else {
        m_interfaces[{id, number}] = pInterface;
    }
}

int FakeContainer::LookupCount(const std::string& id, int number) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    auto it = m_lookups.find({id, number});
    return it == m_lookups.end() ? 0 : it->second;
}

bool FakeContainer::QueryPluginInterface(const char* pszInterfaceId, int nInterfaceNo,
                                         void** ppInterface)
{
    if (pszInterfaceId == nullptr || ppInterface == nullptr) {
        return false;
    }
    std::lock_guard<std::mutex> lock(m_mutex);
    const std::pair<std::string, int> key(pszInterfaceId, nInterfaceNo);
    ++m_lookups[key];
    auto it = m_interfaces.find(key);
    if (it == m_interfaces.end()) {
        return false;
    }
    *ppInterface = it->second;
    return true;
}

bool FakeDeviceMgr::RegisterDeviceCallback(IDeviceMgrEvent* pEvent)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (pEvent == nullptr ||
        std::find(m_receivers.begin(), m_receivers.end(), pEvent) != m_receivers.end()) {
        return false;
    }
    m_receivers.push_back(pEvent);
    return true;
}

bool FakeDeviceMgr::UnRegisterDeviceCallback(IDeviceMgrEvent* pEvent)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    auto it = std::find(m_receivers.begin(), m_receivers.end(), pEvent);
    if (it == m_receivers.end()) {
        return false;
    }
    m_receivers.erase(it);
    return true;
}

std::vector<IDeviceMgrEvent*> FakeDeviceMgr::Receivers() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_receivers;
}

void FakeDeviceMgr::Fire(DWORD dwEvent)
{
    for (IDeviceMgrEvent* pReceiver : Receivers()) {
        pReceiver->OnDeviceMgrEvent(dwEvent, nullptr);
    }
}

int FakeDeviceService::GetProductType()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_productType;
}

void FakeDeviceService::SetProductType(int productType)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_productType = productType;
}

}  // namespace testkit
