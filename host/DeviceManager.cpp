#include "DeviceManager.h"

#include <algorithm>

namespace host {

CDeviceManager::CDeviceManager() : m_bDelivering(false) {}

CDeviceManager::~CDeviceManager() {}

bool CDeviceManager::RegisterDeviceCallback(IDeviceMgrEvent* pEvent)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    if (pEvent == nullptr || IsRegisteredLocked(pEvent)) {
        return false;
    }
    m_receivers.push_back(pEvent);
    return true;
}

bool CDeviceManager::UnRegisterDeviceCallback(IDeviceMgrEvent* pEvent)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    auto it = std::find(m_receivers.begin(), m_receivers.end(), pEvent);
    if (it == m_receivers.end()) {
        return false;
    }
    m_receivers.erase(it);
    WaitForDeliveries(lock);
    return true;
}

void CDeviceManager::UnRegisterAll()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_receivers.clear();
    WaitForDeliveries(lock);
}

void CDeviceManager::WaitForDeliveries(std::unique_lock<std::mutex>& lock)
{
    if (m_bDelivering && m_deliveringThread == std::this_thread::get_id()) {
        return;   // called from inside a delivery: waiting would never end
    }
    m_cvIdle.wait(lock, [this] { return !m_bDelivering; });
}

bool CDeviceManager::IsRegisteredLocked(IDeviceMgrEvent* pEvent) const
{
    return std::find(m_receivers.begin(), m_receivers.end(), pEvent) != m_receivers.end();
}

void CDeviceManager::Notify(DWORD dwEvent)
{
    bool bNested = false;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        bNested = m_bDelivering && m_deliveringThread == std::this_thread::get_id();
    }
    // A receiver that notifies from inside its call already holds the
    // delivery lock through the outer notification: it delivers in place.
    std::unique_lock<std::mutex> delivery(m_deliveryMutex, std::defer_lock);
    if (!bNested) {
        delivery.lock();
    }
    for (IDeviceMgrEvent* pReceiver : Receivers()) {
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            // One that left while earlier receivers ran is not called.
            if (!IsRegisteredLocked(pReceiver)) {
                continue;
            }
            m_bDelivering = true;
            m_deliveringThread = std::this_thread::get_id();
        }
        DeliveryEnd end(*this, bNested);
        pReceiver->OnDeviceMgrEvent(dwEvent, nullptr);
    }
}

CDeviceManager::DeliveryEnd::~DeliveryEnd()
{
    if (m_bNested) {
        return;   // the outer delivery is still running
    }
    std::lock_guard<std::mutex> lock(m_owner.m_mutex);
    m_owner.m_bDelivering = false;
    m_owner.m_deliveringThread = std::thread::id();
    m_owner.m_cvIdle.notify_all();
}

std::vector<IDeviceMgrEvent*> CDeviceManager::Receivers() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_receivers;
}

}  // namespace host
