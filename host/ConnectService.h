// The host's connect service: the data links of the operating system as a
// connection list. A ppp* interface is the modem's dial-up link; a wwan*,
// usb* or eth* interface whose device sits on the USB bus is the modem's
// network adapter (an eth* of the main board is not). A link that is up and
// running is connected; one that is not is listed as disconnected.
// Thread-safe: every GetConnectList reads the system afresh; the lister given
// to the constructor must itself be safe to call from any thread.
#ifndef HOST_CONNECTSERVICE_H
#define HOST_CONNECTSERVICE_H

#include <functional>
#include <string>
#include <vector>

#include "Interface/INetConnectService.h"

namespace host {

// One network interface as the connect service sees it.
struct NetInterface {
    std::string name;         // "ppp0", "wwan0", "enp0s20u2"
    bool up = false;          // administratively up and running
    bool usbDevice = false;   // its device sits on the USB bus
};

// One entry of the connection list.
struct ConnectEntry {
    int state;                // NETCONNECT_DATA::_EN_CONNECT_STATE
    int type;                 // NETCONNECT_DATA::_EN_CONNECT_TYPE
    std::string name;         // the interface name
};

// The connection list of these interfaces, in their order; interfaces that
// are neither a dial-up link nor a USB adapter are left out.
std::vector<ConnectEntry> ConnectEntriesFromInterfaces(const std::vector<NetInterface>& interfaces);

// True when /sys/class/net/<name>/device leads to a device whose subsystem is
// usb (sysClassNet is "/sys/class/net" on a real system).
bool IsUsbNetInterface(const std::string& sysClassNet, const std::string& name);

// The system's interfaces, each once, in the order getifaddrs lists them.
std::vector<NetInterface> ListSystemInterfaces();

class CConnectService : public INetConnectService {
public:
    typedef std::function<std::vector<NetInterface>()> InterfaceLister;

    // Reads the system (ListSystemInterfaces).
    CConnectService();
    // Reads the interfaces through lister instead.
    explicit CConnectService(InterfaceLister lister);

    // IBaseInterface: the service belongs to the host; Release does nothing.
    void Release() override {}
    int GetLastError() override { return 0; }

    // A new list, possibly empty, that the caller hands back with Release;
    // null only when it cannot be made.
    INetConnectList* GetConnectList() override;

private:
    InterfaceLister m_lister;
};

}  // namespace host

#endif
