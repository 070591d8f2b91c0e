#include "ToolHost.h"

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
    m_pSimulator.reset(new modemsim::Simulator(parsed));
    if (!m_pSimulator->Start(pError)) {
        return EXIT_NO_MODEM;
    }
    *pDevicePath = m_pSimulator->SlavePath();
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
        m_pSimulator->Stop();
    }
}

}  // namespace netsrvctl
