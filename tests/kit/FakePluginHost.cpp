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

// A list over a copy of the connections; the cursor starts before the first.
class FakeConnectList : public INetConnectList {
public:
    FakeConnectList(FakeConnectService* pOwner, const std::vector<FakeConnection>& connections)
        : m_pOwner(pOwner), m_connections(connections)
    {
    }

    bool MoveFirst() override
    {
        m_nCursor = 0;
        return !m_connections.empty();
    }
    bool MoveNext() override
    {
        if (m_nCursor < m_connections.size()) {
            ++m_nCursor;
        }
        return m_nCursor < m_connections.size();
    }
    int GetState() override
    {
        return Valid() ? m_connections[m_nCursor].state : NETCONNECT_DATA::CONNECT_UNKNOWN;
    }
    int GetType() override
    {
        return Valid() ? m_connections[m_nCursor].type : NETCONNECT_DATA::TYPE_END;
    }
    std::basic_string<unsigned short> GetInterfaceName() override
    {
        std::basic_string<unsigned short> name;
        if (Valid()) {
            for (char16_t unit : m_connections[m_nCursor].name) {
                name.push_back(static_cast<unsigned short>(unit));
            }
        }
        return name;
    }
    void Release() override
    {
        m_pOwner->OnListReleased();
        delete this;
    }

private:
    ~FakeConnectList() override {}
    bool Valid() const { return m_nCursor < m_connections.size(); }

    FakeConnectService* m_pOwner;
    std::vector<FakeConnection> m_connections;
    std::size_t m_nCursor = static_cast<std::size_t>(-1);
};

INetConnectList* FakeConnectService::GetConnectList()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    ++m_nRequested;
    if (!m_bListAvailable) {
        return nullptr;
    }
    FakeConnectList* pList = new FakeConnectList(this, m_connections);
    ++m_nHandedOut;
    return pList;
}

void FakeConnectService::SetConnections(const std::vector<FakeConnection>& connections)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_connections = connections;
}

void FakeConnectService::SetListAvailable(bool bAvailable)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_bListAvailable = bAvailable;
}

int FakeConnectService::ListsRequested() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_nRequested;
}

int FakeConnectService::ListsHandedOut() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_nHandedOut;
}

int FakeConnectService::ListsReleased() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_nReleased;
}

void FakeConnectService::OnListReleased()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    ++m_nReleased;
}

}  // namespace testkit
