// The host's device manager: tells the registered receivers when the modem
// comes (EVENT_DEVICE_INSERT) and goes (EVENT_DEVICE_REJECT).
// Thread-safe. Receivers are called on the notifying thread with no lock of the
// registry held, so a receiver may register, unregister or notify from inside
// its call. Notifications are delivered one at a time.
#ifndef HOST_DEVICEMANAGER_H
#define HOST_DEVICEMANAGER_H

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

#include "Interface/IDeviceMgr.h"
#include "Interface/IDeviceMgrEvent.h"

namespace host {

class CDeviceManager : public IDeviceMgr {
public:
    CDeviceManager();
    ~CDeviceManager() override;
    CDeviceManager(const CDeviceManager&) = delete;
    CDeviceManager& operator=(const CDeviceManager&) = delete;

    // IBaseInterface: the manager belongs to the host; Release does nothing.
    void Release() override {}
    int GetLastError() override { return 0; }

    // False for a null receiver or one already registered.
    bool RegisterDeviceCallback(IDeviceMgrEvent* pEvent) override;
    // False for a receiver that is not registered. Returns once a delivery to
    // any receiver that is running on another thread has finished, so the
    // receiver may be destroyed right afterwards (from inside a delivery it
    // returns at once).
    bool UnRegisterDeviceCallback(IDeviceMgrEvent* pEvent) override;
    // Unregisters every receiver, with the same wait.
    void UnRegisterAll();

    // Delivers dwEvent (no payload) to every receiver registered when the
    // delivery reaches it, in registration order.
    void Notify(DWORD dwEvent);

    std::vector<IDeviceMgrEvent*> Receivers() const;

private:
    // Marks the end of one call to a receiver, also when it throws.
    class DeliveryEnd {
    public:
        DeliveryEnd(CDeviceManager& owner, bool bNested) : m_owner(owner), m_bNested(bNested) {}
        ~DeliveryEnd();
        DeliveryEnd(const DeliveryEnd&) = delete;
        DeliveryEnd& operator=(const DeliveryEnd&) = delete;

    private:
        CDeviceManager& m_owner;
        bool m_bNested;
    };

    // Waits until no delivery runs on another thread.
    void WaitForDeliveries(std::unique_lock<std::mutex>& lock);
    bool IsRegisteredLocked(IDeviceMgrEvent* pEvent) const;

    mutable std::mutex m_mutex;
    std::condition_variable m_cvIdle;
    std::vector<IDeviceMgrEvent*> m_receivers;
    std::mutex m_deliveryMutex;          // one notification at a time
    bool m_bDelivering;                  // a receiver is being called (under m_mutex)
    std::thread::id m_deliveringThread;  // by this thread
};

}  // namespace host

#endif
