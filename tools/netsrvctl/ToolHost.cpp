#include "ToolHost.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "AtCodec/IProcessor.h"
#include "Interface/DevDataDef.h"
#include "Interface/IDeviceMgr.h"
#include "Interface/IDeviceService.h"
#include "Interface/INetConnectService.h"

namespace netsrvctl {

namespace {
// How long a modem may take to answer a bare "AT" before we call it silent.
const unsigned long kAliveCheckTimeoutMs = 3000;
}  // namespace

int ProductTypeFromKind(const std::string& kind)
{
    if (kind == "gsm") {
        return DevDataDef::PRODUCT_TYPE_WCDMA;
    }
    if (kind == "cdma") {
        return DevDataDef::PRODUCT_TYPE_CDMA;
    }
    if (kind == "td-scdma") {
        return DevDataDef::PRODUCT_TYPE_TD_SCDMA;
    }
    return -1;
}

ToolHost::~ToolHost()
{
    Stop();
}

ExitStatus ToolHost::StartSimulator(const std::string& profile, std::string* pDevicePath,
                                    std::string* pError)
{
    modemsim::Profile parsed;
    std::string text;
    const std::string name = profile.empty() ? "lte" : profile;
    if (modemsim::BuiltInProfileText(name, &text)) {
        if (!modemsim::ParseProfile(text, name, &parsed, pError)) {
            return EXIT_FAILED;
        }
    } else if (!modemsim::LoadProfileFile(profile, &parsed, pError)) {
        return EXIT_USAGE;
    }
    // The simulated modem is reached through a link of its own, as a real one
    // through its device node: when its port vanishes and comes back it gets
    // a fresh pseudo-terminal, and the number of the old one may meanwhile
    // belong to another program, which the processor must never reopen.
    const char* pszTmp = std::getenv("TMPDIR");
    std::string pattern = std::string(pszTmp != nullptr && *pszTmp != '\0' ? pszTmp : "/tmp") +
                          "/netsrvctl-XXXXXX";
    std::vector<char> dir(pattern.begin(), pattern.end());
    dir.push_back('\0');
    if (::mkdtemp(dir.data()) == nullptr) {
        *pError = "cannot make a directory for the simulated modem in " + pattern + ": " +
                  std::strerror(errno);
        return EXIT_NO_MODEM;
    }
    m_simulatorDir = dir.data();
    m_pSimulator.reset(new modemsim::Simulator(parsed));
    if (!m_pSimulator->Start(pError, m_simulatorDir + "/modem")) {
        return EXIT_NO_MODEM;
    }
    *pDevicePath = m_simulatorDir + "/modem";
    return EXIT_OK;
}

ExitStatus ToolHost::Start(const HostOptions& options, std::string* pError)
{
    std::string devicePath = options.devicePath;
    if (options.simulate) {
        const ExitStatus status = StartSimulator(options.profile, &devicePath, pError);
        if (status != EXIT_OK) {
            return status;
        }
    }

    m_pProcessor.reset(new host::CAtProcessor(devicePath, options.baud));
    m_pProcessor->SetPortListener([this](bool bOpen) {
        m_deviceManager.Notify(bOpen ? IDeviceMgrEvent::EVENT_DEVICE_INSERT
                                     : IDeviceMgrEvent::EVENT_DEVICE_REJECT);
    });
    if (!m_pProcessor->Open(pError)) {
        return EXIT_NO_MODEM;
    }
    unsigned long dwError = 0;
    if (!m_pProcessor->ExecuteText("AT", "", nullptr, &dwError, kAliveCheckTimeoutMs)) {
        *pError = "the modem on " + devicePath + " does not answer";
        return EXIT_NO_MODEM;
    }

    if (!options.deviceKind.empty()) {
        m_deviceService.SetProductType(ProductTypeFromKind(options.deviceKind));
    } else {
        m_deviceService.Probe(*m_pProcessor);
    }

    m_container.RegisterInterface(IPROCESSOR_INTERFACE_ID, IPROCESSOR_INTERFACE_NO,
                                  static_cast<IProcessor*>(m_pProcessor.get()));
    m_container.RegisterInterface(IDEVICEMGR_INTERFACE_ID, IDEVICEMGR_INTERFACE_NO,
                                  static_cast<IDeviceMgr*>(&m_deviceManager));
    m_container.RegisterInterface(IDEVICESERVICE_INTERFACE_ID, IDEVICESERVICE_INTERFACE_NO,
                                  static_cast<IDeviceService*>(&m_deviceService));
    m_container.RegisterInterface(INETCONNECTSERVICE_INTERFACE_ID,
                                  INETCONNECTSERVICE_INTERFACE_NO,
                                  static_cast<INetConnectService*>(&m_connectService));

    if (!m_container.LoadPlugin(options.pluginPath, pError)) {
        return EXIT_FAILED;
    }
    m_pNetSrv = m_container.NetSrv();
    if (m_pNetSrv == nullptr) {
        *pError = "the plugin does not offer the network service";
        return EXIT_FAILED;
    }
    return EXIT_OK;
}

void ToolHost::Stop()
{
    m_pNetSrv = nullptr;
    // The port goes first: a report may just have started one of the
    // service's own threads (the domain check that a "+CREG" starts), and the
    // unload waits for those. Closed, the processor fails their commands at
    // once with AT_ERROR_PORT_CLOSED instead of letting them wait out the
    // modem's answer.
    if (m_pProcessor) {
        m_pProcessor->Close();
    }
    m_container.UnloadPlugin();
    if (m_pSimulator) {
        m_pSimulator->Stop();   // removes the link
    }
    if (!m_simulatorDir.empty()) {
        ::rmdir(m_simulatorDir.c_str());
        m_simulatorDir.clear();
    }
}

}  // namespace netsrvctl
