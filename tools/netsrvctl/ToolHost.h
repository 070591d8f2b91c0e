// The host that netsrvctl builds around the plugin: an optional in-process
// modem simulator, the AT processor on the modem's port, the device manager,
// device service and connect service, and the plugin container that loads
// libNetSrvPlugin.so.1 and hands out INetSrv. Used from the tool's main thread.
#ifndef NETSRVCTL_TOOLHOST_H
#define NETSRVCTL_TOOLHOST_H

#include <memory>
#include <string>

#include "AtProcessor.h"
#include "ConnectService.h"
#include "DeviceManager.h"
#include "DeviceService.h"
#include "Interface/INetSrv.h"
#include "ModemSimulator.h"
#include "PluginContainer.h"

namespace netsrvctl {

// Exit statuses of the tool.
enum ExitStatus {
    EXIT_OK = 0,
    EXIT_FAILED = 1,        // the operation failed
    EXIT_USAGE = 2,
    EXIT_NO_MODEM = 3       // the modem could not be opened or does not answer
};

struct HostOptions {
    std::string devicePath;    // a real modem's AT port
    bool simulate = false;     // run the built-in simulator instead
    std::string profile;       // simulator profile: a built-in name or a file
    std::string deviceKind;    // gsm, cdma or td-scdma; empty: probe the modem
    int baud = 115200;
    std::string pluginPath;    // empty: the plugin beside the tool
};

class ToolHost {
public:
    ToolHost() = default;
    ~ToolHost();
    ToolHost(const ToolHost&) = delete;
    ToolHost& operator=(const ToolHost&) = delete;

    // Brings the host up; on failure returns the exit status and a one-line reason.
    ExitStatus Start(const HostOptions& options, std::string* pError);
    // Closes the port (failing the commands still pending), then unloads the
    // plugin and stops the simulator.
    void Stop();

    INetSrv* NetSrv() { return m_pNetSrv; }
    IBasePlugin* Plugin() { return m_container.Plugin(); }
    host::CAtProcessor* Processor() { return m_pProcessor.get(); }
    // Tells its receivers when the modem's port goes (EVENT_DEVICE_REJECT) and
    // when it is open again (EVENT_DEVICE_INSERT, also once after Start).
    host::CDeviceManager& DeviceManager() { return m_deviceManager; }
    modemsim::Simulator* Simulator() { return m_pSimulator.get(); }
    // The device kind the device service reports (a DevDataDef::PRODUCT_TYPE).
    int DeviceKind() { return m_deviceService.GetProductType(); }

private:
    ExitStatus StartSimulator(const std::string& profile, std::string* pDevicePath,
                              std::string* pError);

    std::unique_ptr<modemsim::Simulator> m_pSimulator;
    std::string m_simulatorDir;   // holds the link to the simulated modem's port
    std::unique_ptr<host::CAtProcessor> m_pProcessor;
    host::CDeviceManager m_deviceManager;
    host::CDeviceService m_deviceService;
    host::CConnectService m_connectService;
    host::CPluginContainer m_container;
    INetSrv* m_pNetSrv = nullptr;
};

// The product type of a --device-kind name, or -1 for an unknown name.
int ProductTypeFromKind(const std::string& kind);

}  // namespace netsrvctl

#endif
