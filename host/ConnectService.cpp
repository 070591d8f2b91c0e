#include "ConnectService.h"

#include <ifaddrs.h>
#include <limits.h>
#include <net/if.h>
#include <stdlib.h>

#include <algorithm>
#include <new>

#include "GlobalFunction.h"

namespace host {

namespace {

bool StartsWith(const std::string& text, const char* pszPrefix)
{
    return text.compare(0, std::char_traits<char>::length(pszPrefix), pszPrefix) == 0;
}

std::basic_string<unsigned short> ToUtf16(const std::string& text)
{
    const int nNeeded = CGlobalFunction::MultiByteToWideChar(text.c_str(), nullptr, 0, CP_UTF8);
    if (nNeeded <= 0) {
        return std::basic_string<unsigned short>();
    }
    std::basic_string<unsigned short> wide(static_cast<std::size_t>(nNeeded), 0);
    const int nWritten =
        CGlobalFunction::MultiByteToWideChar(text.c_str(), &wide[0], nNeeded, CP_UTF8);
    wide.resize(static_cast<std::size_t>(std::max(0, std::min(nWritten, nNeeded))));
    return wide;
}

// The list handed to clients: a copy of the entries and a cursor.
class CConnectList : public INetConnectList {
public:
    explicit CConnectList(const std::vector<ConnectEntry>& entries)
    {
        for (const ConnectEntry& entry : entries) {
            m_entries.push_back({entry.state, entry.type, ToUtf16(entry.name)});
        }
    }

    bool MoveFirst() override
    {
        m_nCursor = 0;
        return !m_entries.empty();
    }
    bool MoveNext() override
    {
        if (m_nCursor < m_entries.size()) {
            ++m_nCursor;
        }
        return m_nCursor < m_entries.size();
    }
    int GetState() override
    {
        return Valid() ? m_entries[m_nCursor].state : NETCONNECT_DATA::CONNECT_UNKNOWN;
    }
    int GetType() override
    {
        return Valid() ? m_entries[m_nCursor].type : NETCONNECT_DATA::TYPE_END;
    }
    std::basic_string<unsigned short> GetInterfaceName() override
    {
        return Valid() ? m_entries[m_nCursor].name : std::basic_string<unsigned short>();
    }
    void Release() override { delete this; }

private:
    struct Entry {
        int state;
        int type;
        std::basic_string<unsigned short> name;
    };

    ~CConnectList() override {}
    bool Valid() const { return m_nCursor < m_entries.size(); }

    std::vector<Entry> m_entries;
    std::size_t m_nCursor = 0;
};

}  // namespace

std::vector<ConnectEntry> ConnectEntriesFromInterfaces(const std::vector<NetInterface>& interfaces)
{
    std::vector<ConnectEntry> entries;
    for (const NetInterface& iface : interfaces) {
        int type = NETCONNECT_DATA::TYPE_END;
        if (StartsWith(iface.name, "ppp")) {
            type = NETCONNECT_DATA::TYPE_DIALUP;
        } else if (iface.usbDevice && (StartsWith(iface.name, "wwan") ||
                                       StartsWith(iface.name, "usb") ||
                                       StartsWith(iface.name, "eth"))) {
            type = NETCONNECT_DATA::TYPE_NDIS;
        } else {
            continue;
        }
        entries.push_back({iface.up ? NETCONNECT_DATA::CONNECTED : NETCONNECT_DATA::DISCONNECTED,
                           type, iface.name});
    }
    return entries;
}

bool IsUsbNetInterface(const std::string& sysClassNet, const std::string& name)
{
    // /sys/class/net/wwan0/device -> ../../../2-1:1.4, a USB interface, whose
    // subsystem link ends in /bus/usb; a PCI network card's ends in /bus/pci.
    if (name.empty() || name.find('/') != std::string::npos || name == "." || name == "..") {
        return false;
    }
    const std::string link = sysClassNet + "/" + name + "/device/subsystem";
    char resolved[PATH_MAX];
    if (realpath(link.c_str(), resolved) == nullptr) {
        return false;
    }
    const std::string target(resolved);
    const std::string::size_type slash = target.rfind('/');
    return slash != std::string::npos && target.compare(slash + 1, std::string::npos, "usb") == 0;
}

std::vector<NetInterface> ListSystemInterfaces()
{
    std::vector<NetInterface> interfaces;
    ifaddrs* pList = nullptr;
    if (getifaddrs(&pList) != 0) {
        return interfaces;
    }
    try {
        for (const ifaddrs* p = pList; p != nullptr; p = p->ifa_next) {
            if (p->ifa_name == nullptr) {
                continue;
            }
            const std::string name(p->ifa_name);
            const bool bSeen = std::any_of(interfaces.begin(), interfaces.end(),
                                           [&name](const NetInterface& i) { return i.name == name; });
            if (bSeen) {
                continue;
            }
            NetInterface iface;
            iface.name = name;
            iface.up = (p->ifa_flags & IFF_UP) != 0 && (p->ifa_flags & IFF_RUNNING) != 0;
            iface.usbDevice = IsUsbNetInterface("/sys/class/net", name);
            interfaces.push_back(iface);
        }
    } catch (...) {
        freeifaddrs(pList);
        throw;
    }
    freeifaddrs(pList);
    return interfaces;
}

CConnectService::CConnectService() : m_lister(ListSystemInterfaces) {}

CConnectService::CConnectService(InterfaceLister lister) : m_lister(std::move(lister)) {}

INetConnectList* CConnectService::GetConnectList()
{
    try {
        const std::vector<NetInterface> interfaces =
            m_lister ? m_lister() : std::vector<NetInterface>();
        return new CConnectList(ConnectEntriesFromInterfaces(interfaces));
    } catch (...) {
        return nullptr;
    }
}

}  // namespace host
