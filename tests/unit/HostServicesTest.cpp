// The reference host's services: the plugin container, the device manager,
// the device service's probe and the connect service's list.
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "AtProcessor.h"
#include "ConnectService.h"
#include "DeviceManager.h"
#include "DeviceService.h"
#include "GlobalFunction.h"
#include "Interface/IDeviceMgr.h"
#include "Interface/IDeviceService.h"
#include "Interface/INetConnectService.h"
#include "PluginContainer.h"
#include "ScriptedModem.h"
#include "TempDir.h"
#include "TraceSrv.h"

namespace {

using NETCONNECT_DATA::CONNECT_UNKNOWN;
using NETCONNECT_DATA::CONNECTED;
using NETCONNECT_DATA::DISCONNECTED;
using NETCONNECT_DATA::TYPE_DIALUP;
using NETCONNECT_DATA::TYPE_END;
using NETCONNECT_DATA::TYPE_NDIS;

// Keeps the plugin's traces (no AT processor in these tests) off the output.
class QuietTraces {
public:
    QuietTraces() { TraceSrv_SetSink(&Drop, nullptr); }
    ~QuietTraces() { TraceSrv_SetSink(nullptr, nullptr); }

private:
    static void Drop(int, const char*, const char*, void*) {}
};

// ---- plugin container -------------------------------------------------------

TEST(PluginContainer, HostInterfacesUnderTheirIdentities)
{
    host::CAtProcessor processor("/dev/null-modem-never-opened");
    host::CDeviceManager deviceManager;
    host::CDeviceService deviceService;
    host::CConnectService connectService;
    host::CPluginContainer container;
    container.RegisterHostInterfaces(&processor, &deviceManager, &deviceService, &connectService);

    // The identities plugins were built with.
    struct Row {
        const char* id;
        int number;
        void* expected;
    };
    const Row rows[] = {
        {"AB349C02-A87F-4ef5-A54A-F178A9FABF39", 4097, static_cast<IProcessor*>(&processor)},
        {"5D31EE0B-DA93-4641-BD21-7DCE3DB15D15", 1, static_cast<IDeviceMgr*>(&deviceManager)},
        {"7ABB8FE8-F864-4c1b-9E21-D636795BD72B", 20481,
         static_cast<IDeviceService*>(&deviceService)},
        {"84CC0B43-5AEB-4de3-9FA1-98B97D73E13E", 16385,
         static_cast<INetConnectService*>(&connectService)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.id);
        void* pFound = nullptr;
        EXPECT_TRUE(container.QueryPluginInterface(row.id, row.number, &pFound));
        EXPECT_EQ(pFound, row.expected);
        void* pOther = &pFound;
        EXPECT_FALSE(container.QueryPluginInterface(row.id, row.number + 1, &pOther));
        EXPECT_EQ(pOther, nullptr) << "a miss leaves the out-pointer null";
    }

    // What a plugin does with the untyped pointer works on these objects.
    IDeviceService* pService = CGlobalFunction::GetPluginInterface<IDeviceService*>(
        IDEVICESERVICE_INTERFACE_ID, IDEVICESERVICE_INTERFACE_NO, &container);
    ASSERT_NE(pService, nullptr);
    deviceService.SetProductType(DevDataDef::PRODUCT_TYPE_CDMA);
    EXPECT_EQ(pService->GetProductType(), DevDataDef::PRODUCT_TYPE_CDMA);

    // Withdrawn and unknown entries, bad arguments.
    container.RegisterHostInterfaces(nullptr, &deviceManager, nullptr, &connectService);
    void* pFound = &pFound;
    EXPECT_FALSE(container.QueryPluginInterface(IPROCESSOR_INTERFACE_ID, IPROCESSOR_INTERFACE_NO,
                                                &pFound));
    EXPECT_EQ(pFound, nullptr);
    EXPECT_TRUE(container.QueryPluginInterface(IDEVICEMGR_INTERFACE_ID, IDEVICEMGR_INTERFACE_NO,
                                               &pFound));
    EXPECT_FALSE(container.QueryPluginInterface(nullptr, 1, &pFound));
    EXPECT_FALSE(container.QueryPluginInterface(IDEVICEMGR_INTERFACE_ID, 1, nullptr));
    EXPECT_FALSE(container.QueryPluginInterface("5d31ee0b-da93-4641-bd21-7dce3db15d15", 1,
                                                &pFound))
        << "identities are compared exactly";

    int value = 7;
    container.RegisterInterface("MY-ID", 3, &value);
    EXPECT_TRUE(container.QueryPluginInterface("MY-ID", 3, &pFound));
    EXPECT_EQ(pFound, &value);
}

TEST(PluginContainer, WhereAnEmptyPathLooks)
{
    EXPECT_EQ(host::PluginCandidates("/opt/netsrv/bin"),
              (std::vector<std::string>{"/opt/netsrv/bin/../lib/libNetSrvPlugin.so.1",
                                        "/opt/netsrv/bin/../src/libNetSrvPlugin.so.1",
                                        "/opt/netsrv/bin/../../src/libNetSrvPlugin.so.1"}));
    EXPECT_TRUE(host::PluginCandidates("").empty());

    const std::string exeDir = host::ExecutableDirectory();
    ASSERT_FALSE(exeDir.empty());
    EXPECT_EQ(access((exeDir + "/unit_tests").c_str(), X_OK), 0) << exeDir;
}

TEST(PluginContainer, LoadFailuresAreOneClearLine)
{
    host::CPluginContainer container;
    struct Case {
        const char* path;
        std::vector<std::string> mentions;
    };
    const Case cases[] = {
        {"/nonexistent/dir/libNetSrvPlugin.so.1",
         {"cannot load the plugin", "/nonexistent/dir/libNetSrvPlugin.so.1",
          "No such file or directory"}},
        // A library that is there but is no plugin (it is already mapped into
        // this test, which links it).
        {"libOSDialup.so.1", {"libOSDialup.so.1 is not a plugin", "CreatePlugin"}},
        {"/etc/hostname", {"cannot load the plugin", "/etc/hostname"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.path);
        std::string error;
        EXPECT_FALSE(container.LoadPlugin(c.path, &error));
        EXPECT_EQ(error.find('\n'), std::string::npos) << error;
        for (const std::string& mention : c.mentions) {
            EXPECT_NE(error.find(mention), std::string::npos) << error;
        }
        EXPECT_EQ(container.Plugin(), nullptr);
        EXPECT_EQ(container.NetSrv(), nullptr);
        EXPECT_EQ(container.LoadedPath(), "");
    }
    EXPECT_FALSE(container.LoadPlugin("/nonexistent/x.so", nullptr));
    container.UnloadPlugin();   // nothing loaded: nothing happens
}

TEST(PluginContainer, LoadsTheBuiltPluginAndUnloadsIt)
{
    QuietTraces quiet;
    // The services outlive the container, which unloads the plugin last.
    host::CDeviceManager deviceManager;
    host::CConnectService connectService([] { return std::vector<host::NetInterface>(); });
    host::CPluginContainer container;
    container.RegisterHostInterfaces(nullptr, &deviceManager, nullptr, &connectService);

    // The tests sit in <build>/tests, the plugin in <build>/src.
    std::string error;
    ASSERT_TRUE(container.LoadPlugin("", &error)) << error;
    EXPECT_NE(container.LoadedPath().find("/../src/libNetSrvPlugin.so.1"), std::string::npos)
        << container.LoadedPath();
    ASSERT_NE(container.Plugin(), nullptr);
    EXPECT_STREQ(container.Plugin()->GetPluginName(), "NetSrvPlugin");

    std::string again;
    EXPECT_FALSE(container.LoadPlugin("", &again));
    EXPECT_NE(again.find("already loaded"), std::string::npos) << again;

    INetSrv* pService = container.NetSrv();
    ASSERT_NE(pService, nullptr);
    EXPECT_EQ(container.NetSrv(), pService);
    EXPECT_EQ(deviceManager.Receivers().size(), 1u) << "the service listens for device events";
    deviceManager.Notify(IDeviceMgrEvent::EVENT_DEVICE_REJECT);

    // Through the container the service finds the connect service: no link.
    char buffer[64] = "x";
    EXPECT_FALSE(pService->SRVGetDynamicIP("", "", buffer, sizeof(buffer)));
    EXPECT_STREQ(buffer, "");

    container.UnloadPlugin();
    EXPECT_EQ(container.Plugin(), nullptr);
    EXPECT_EQ(container.NetSrv(), nullptr);
    EXPECT_TRUE(deviceManager.Receivers().empty())
        << "no device event may reach the unloaded service";
    deviceManager.Notify(IDeviceMgrEvent::EVENT_DEVICE_INSERT);

    // A second life starts afresh.
    ASSERT_TRUE(container.LoadPlugin("", &error)) << error;
    EXPECT_NE(container.NetSrv(), nullptr);
}

// ---- device manager ---------------------------------------------------------

class Receiver : public IDeviceMgrEvent {
public:
    explicit Receiver(std::function<void(DWORD)> action = nullptr) : m_action(std::move(action)) {}
    bool OnDeviceMgrEvent(DWORD dwEvent, void* pData) override
    {
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_events.push_back(dwEvent);
            m_bPayload = m_bPayload || pData != nullptr;
        }
        if (m_action) {
            m_action(dwEvent);
        }
        return true;
    }
    std::vector<DWORD> Events() const
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_events;
    }
    bool SawPayload() const { return m_bPayload; }

private:
    std::function<void(DWORD)> m_action;
    mutable std::mutex m_mutex;
    std::vector<DWORD> m_events;
    bool m_bPayload = false;
};

TEST(DeviceManager, RegistryAndDelivery)
{
    host::CDeviceManager manager;
    Receiver a;
    Receiver b;
    EXPECT_FALSE(manager.RegisterDeviceCallback(nullptr));
    EXPECT_TRUE(manager.RegisterDeviceCallback(&a));
    EXPECT_FALSE(manager.RegisterDeviceCallback(&a)) << "once only";
    EXPECT_TRUE(manager.RegisterDeviceCallback(&b));
    EXPECT_EQ(manager.Receivers(), (std::vector<IDeviceMgrEvent*>{&a, &b}));

    manager.Notify(IDeviceMgrEvent::EVENT_DEVICE_INSERT);
    EXPECT_TRUE(manager.UnRegisterDeviceCallback(&a));
    EXPECT_FALSE(manager.UnRegisterDeviceCallback(&a));
    EXPECT_FALSE(manager.UnRegisterDeviceCallback(nullptr));
    manager.Notify(IDeviceMgrEvent::EVENT_DEVICE_REJECT);

    EXPECT_EQ(a.Events(), (std::vector<DWORD>{IDeviceMgrEvent::EVENT_DEVICE_INSERT}));
    EXPECT_EQ(b.Events(), (std::vector<DWORD>{IDeviceMgrEvent::EVENT_DEVICE_INSERT,
                                              IDeviceMgrEvent::EVENT_DEVICE_REJECT}));
    EXPECT_FALSE(a.SawPayload() || b.SawPayload());

    manager.UnRegisterAll();
    EXPECT_TRUE(manager.Receivers().empty());
    manager.Notify(IDeviceMgrEvent::EVENT_DEVICE_INSERT);
    EXPECT_EQ(b.Events().size(), 2u);
}

TEST(DeviceManager, ReceiversMayUseTheManagerFromTheirCall)
{
    host::CDeviceManager manager;
    Receiver late;
    Receiver removed;
    Receiver first([&](DWORD event) {
        if (event == IDeviceMgrEvent::EVENT_DEVICE_INSERT) {
            EXPECT_TRUE(manager.UnRegisterDeviceCallback(&removed));   // not yet called
            EXPECT_TRUE(manager.RegisterDeviceCallback(&late));        // not in this round
            manager.Notify(IDeviceMgrEvent::EVENT_DEVICE_SWITCH);      // nested, in place
        }
    });
    Receiver self;
    Receiver leaving([&](DWORD) { EXPECT_TRUE(manager.UnRegisterDeviceCallback(&self)); });
    manager.RegisterDeviceCallback(&first);
    manager.RegisterDeviceCallback(&removed);

    manager.Notify(IDeviceMgrEvent::EVENT_DEVICE_INSERT);
    EXPECT_EQ(first.Events(), (std::vector<DWORD>{IDeviceMgrEvent::EVENT_DEVICE_INSERT,
                                                  IDeviceMgrEvent::EVENT_DEVICE_SWITCH}));
    EXPECT_TRUE(removed.Events().empty());
    EXPECT_EQ(late.Events(), (std::vector<DWORD>{IDeviceMgrEvent::EVENT_DEVICE_SWITCH}));

    // A receiver that unregisters itself from inside its call returns at once.
    host::CDeviceManager other;
    Receiver quitter([&](DWORD) { EXPECT_TRUE(other.UnRegisterDeviceCallback(&quitter)); });
    other.RegisterDeviceCallback(&quitter);
    other.Notify(IDeviceMgrEvent::EVENT_DEVICE_REJECT);
    other.Notify(IDeviceMgrEvent::EVENT_DEVICE_REJECT);
    EXPECT_EQ(quitter.Events().size(), 1u);
}

TEST(DeviceManager, UnregisterWaitsForARunningDelivery)
{
    host::CDeviceManager manager;
    std::promise<void> entered;
    std::promise<void> release;
    std::shared_future<void> released = release.get_future().share();
    std::atomic<bool> bReturned{false};
    Receiver slow([&](DWORD) {
        entered.set_value();
        released.wait();
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        bReturned = true;
    });
    manager.RegisterDeviceCallback(&slow);
    std::thread notifier([&] { manager.Notify(IDeviceMgrEvent::EVENT_DEVICE_REJECT); });
    entered.get_future().wait();

    std::atomic<bool> bUnregistered{false};
    std::thread remover([&] {
        EXPECT_TRUE(manager.UnRegisterDeviceCallback(&slow));
        bUnregistered = true;
        EXPECT_TRUE(bReturned) << "unregistered while its call still ran";
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_FALSE(bUnregistered);
    release.set_value();
    remover.join();
    notifier.join();
    EXPECT_TRUE(bUnregistered);
}

// ---- device service ---------------------------------------------------------

TEST(DeviceService, ProbeAnswersGiveTheKind)
{
    const int kWcdma = DevDataDef::PRODUCT_TYPE_WCDMA;
    const int kCdma = DevDataDef::PRODUCT_TYPE_CDMA;
    const int kTd = DevDataDef::PRODUCT_TYPE_TD_SCDMA;
    const int kUnknown = DevDataDef::PRODUCT_TYPE_UNKNOW;
    struct Row {
        const char* modem;
        bool gcap;
        std::vector<std::string> gcapLines;
        bool syscfg;
        bool sysconfig;
        int expected;
    };
    const Row rows[] = {
        {"LTE data card", true, {"+CGSM,+DS,+ES"}, true, false, kWcdma},
        {"WCDMA modem", true, {"+CGSM,+FCLASS,+DS"}, true, false, kWcdma},
        {"TD-SCDMA modem", true, {"+CGSM,+DS,+ES"}, false, true, kTd},
        {"CDMA/EV-DO card", true, {"+CIS707-A, +MS, +ES, +DS, +FCLASS"}, false, false, kCdma},
        {"CDMA card speaking both", true, {"+CIS707-A, +CIS-856"}, true, true, kCdma},
        {"CDMA, bare name", true, {"+CIS707"}, false, false, kCdma},
        {"CDMA, lower case", true, {"+cis707-a,+ms"}, false, false, kCdma},
        {"CDMA on a second line", true, {"+CGSM", "+CIS707-A"}, false, false, kCdma},
        {"a longer name is another capability", true, {"+CIS7070,+CIS707A"}, true, false, kWcdma},
        {"quoted and spaced", true, {" \"+CIS707-A\" , +MS"}, false, false, kCdma},
        {"answers ^SYSCFG and ^SYSCONFIG", true, {"+CGSM"}, true, true, kWcdma},
        {"+GCAP refused, ^SYSCFG answered", true, {}, true, false, kWcdma},
        {"answers only with errors", true, {}, false, false, kWcdma},
        {"+GCAP silent, ^SYSCONFIG only", false, {}, false, true, kTd},
        {"+GCAP silent, ^SYSCFG answered", false, {}, true, false, kWcdma},
        {"lines of a silent modem do not count", false, {"+CIS707-A"}, false, false, kUnknown},
        {"no answer at all", false, {}, false, false, kUnknown},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.modem);
        EXPECT_EQ(host::ProductTypeFromProbe(row.gcap, row.gcapLines, row.syscfg, row.sysconfig),
                  row.expected);
    }

    struct Outcome {
        bool ok;
        unsigned long error;
        bool answered;
    };
    const Outcome outcomes[] = {
        {true, 0, true},
        {false, AT_ERROR_NOT_SUPPORTED, true},
        {false, AT_ERROR_UNKNOWN, true},
        {false, 30, true},   // +CME ERROR: 30, no network service
        {false, AT_ERROR_TIMEOUT, false},
        {false, AT_ERROR_PORT_CLOSED, false},
        {false, AT_ERROR_BAD_COMMAND, false},
    };
    for (const Outcome& o : outcomes) {
        EXPECT_EQ(host::ModemAnswered(o.ok, o.error), o.answered) << o.error;
    }
}

TEST(DeviceService, KindFromTheUserStands)
{
    QuietTraces quiet;
    host::CDeviceService service;
    EXPECT_EQ(service.GetProductType(), DevDataDef::PRODUCT_TYPE_UNKNOW);

    // A port that is not open answers nothing.
    host::CAtProcessor closed("/nonexistent/ttyUSB9");
    service.Probe(closed);
    EXPECT_EQ(service.GetProductType(), DevDataDef::PRODUCT_TYPE_UNKNOW);

    service.SetProductType(DevDataDef::PRODUCT_TYPE_TD_SCDMA);
    service.Probe(closed);
    EXPECT_EQ(service.GetProductType(), DevDataDef::PRODUCT_TYPE_TD_SCDMA);
}

TEST(DeviceService, ProbesAModem)
{
    QuietTraces quiet;
    const std::string kGsmCaps = "\r\n+GCAP: +CGSM,+DS,+ES\r\n\r\nOK\r\n";
    struct Case {
        const char* modem;
        std::map<std::string, std::string> answers;
        int expected;
        const char* probe;   // the probe's command lines, in order
    };
    const Case cases[] = {
        {"LTE data card",
         {{"AT+GCAP", kGsmCaps}, {"AT^SYSCFG?", "\r\n^SYSCFG: 2,0,400000,0,3\r\n\r\nOK\r\n"}},
         DevDataDef::PRODUCT_TYPE_WCDMA, "AT+GCAP\rAT^SYSCFG?\r"},
        {"TD-SCDMA modem",
         {{"AT+GCAP", kGsmCaps},
          {"AT^SYSCFG?", "\r\nCOMMAND NOT SUPPORT\r\n"},
          {"AT^SYSCONFIG?", "\r\n^SYSCONFIG: 2,0,1,2\r\n\r\nOK\r\n"}},
         DevDataDef::PRODUCT_TYPE_TD_SCDMA, "AT+GCAP\rAT^SYSCFG?\rAT^SYSCONFIG?\r"},
        {"CDMA/EV-DO card",
         {{"AT+GCAP", "\r\n+GCAP: +CIS707-A, +MS, +ES, +DS, +FCLASS\r\n\r\nOK\r\n"}},
         DevDataDef::PRODUCT_TYPE_CDMA, "AT+GCAP\r"},
        {"a modem that refuses everything", {}, DevDataDef::PRODUCT_TYPE_WCDMA,
         "AT+GCAP\rAT^SYSCFG?\rAT^SYSCONFIG?\r"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.modem);
        testkit::ScriptedModem modem;
        modem.SetAnswer(testkit::AnswerTable(c.answers));
        host::CAtProcessor processor(modem.Path());
        std::string error;
        ASSERT_TRUE(processor.Open(&error)) << error;
        modem.TakeReceived();   // the greeting
        host::CDeviceService service;
        service.Probe(processor);
        EXPECT_EQ(service.GetProductType(), c.expected);
        processor.Close();
        EXPECT_EQ(modem.TakeReceived(), c.probe);
    }
}

// ---- connect service --------------------------------------------------------

struct WalkedEntry {
    int state;
    int type;
    std::string name;
    bool operator==(const WalkedEntry& o) const
    {
        return state == o.state && type == o.type && name == o.name;
    }
};

std::ostream& operator<<(std::ostream& os, const WalkedEntry& e)
{
    return os << "{" << e.state << ", " << e.type << ", " << e.name << "}";
}

// Walks a list the way the network service does and hands it back.
std::vector<WalkedEntry> Walk(INetConnectService& service)
{
    std::vector<WalkedEntry> entries;
    INetConnectList* pList = service.GetConnectList();
    EXPECT_NE(pList, nullptr);
    if (pList == nullptr) {
        return entries;
    }
    for (bool bMore = pList->MoveFirst(); bMore; bMore = pList->MoveNext()) {
        const std::basic_string<unsigned short> wide = pList->GetInterfaceName();
        std::string name;
        for (unsigned short unit : wide) {
            name.push_back(static_cast<char>(unit));
        }
        entries.push_back({pList->GetState(), pList->GetType(), name});
    }
    // Past the end the entry is unknown.
    EXPECT_FALSE(pList->MoveNext());
    EXPECT_EQ(pList->GetState(), CONNECT_UNKNOWN);
    EXPECT_EQ(pList->GetType(), TYPE_END);
    EXPECT_TRUE(pList->GetInterfaceName().empty());
    pList->Release();
    return entries;
}

TEST(ConnectService, ListOfTheSystemsLinks)
{
    std::vector<host::NetInterface> interfaces;
    host::CConnectService service([&interfaces] { return interfaces; });
    struct Case {
        const char* what;
        std::vector<host::NetInterface> interfaces;
        std::vector<WalkedEntry> expected;
    };
    const Case cases[] = {
        {"dial-up link up", {{"lo", true, false}, {"ppp0", true, false}},
         {{CONNECTED, TYPE_DIALUP, "ppp0"}}},
        {"USB adapters up and down",
         {{"wwan0", true, true}, {"usb0", false, true}, {"eth1", true, true}},
         {{CONNECTED, TYPE_NDIS, "wwan0"}, {DISCONNECTED, TYPE_NDIS, "usb0"},
          {CONNECTED, TYPE_NDIS, "eth1"}}},
        {"board and wireless links are not the modem's",
         {{"eth0", true, false}, {"wlan0", true, true}, {"enp0s20u2", true, true},
          {"wwan1", true, false}},
         {}},
        {"system order kept",
         {{"wwan0", true, true}, {"ppp1", false, false}, {"ppp0", true, false}},
         {{CONNECTED, TYPE_NDIS, "wwan0"}, {DISCONNECTED, TYPE_DIALUP, "ppp1"},
          {CONNECTED, TYPE_DIALUP, "ppp0"}}},
        {"nothing", {}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        interfaces = c.interfaces;
        EXPECT_EQ(Walk(service), c.expected);
    }

    // A lister that throws gives no list rather than an exception.
    host::CConnectService broken([]() -> std::vector<host::NetInterface> {
        throw std::runtime_error("no netlink");
    });
    EXPECT_EQ(broken.GetConnectList(), nullptr);

    // The system's own list can be walked (the loopback link is never listed).
    host::CConnectService system;
    for (const WalkedEntry& entry : Walk(system)) {
        EXPECT_NE(entry.name, "lo");
    }
}

TEST(ConnectService, UsbAdapterFromTheDeviceLinks)
{
    testkit::TempDir dir;
    const std::string root = dir.Path();
    // <root>/bus/{usb,pci}; <root>/devices/{2-1:1.4,0000:00:19.0}/subsystem;
    // <root>/net/<if>/device -> the device.
    const std::vector<std::string> dirs = {
        "/bus", "/bus/usb", "/bus/pci", "/devices", "/devices/2-1:1.4", "/devices/0000:00:19.0",
        "/net", "/net/wwan0", "/net/eth0", "/net/lo"};
    for (const std::string& dir : dirs) {
        ASSERT_EQ(mkdir((root + dir).c_str(), 0755), 0) << dir;
    }
    const std::vector<std::pair<std::string, std::string>> links = {
        {"/devices/2-1:1.4/subsystem", "../../bus/usb"},
        {"/devices/0000:00:19.0/subsystem", "../../bus/pci"},
        {"/net/wwan0/device", "../../devices/2-1:1.4"},
        {"/net/eth0/device", "../../devices/0000:00:19.0"},
    };
    for (const auto& link : links) {
        ASSERT_EQ(symlink(link.second.c_str(), (root + link.first).c_str()), 0) << link.first;
    }
    const std::string net = root + "/net";
    EXPECT_TRUE(host::IsUsbNetInterface(net, "wwan0"));
    EXPECT_FALSE(host::IsUsbNetInterface(net, "eth0"));
    EXPECT_FALSE(host::IsUsbNetInterface(net, "lo")) << "a virtual link has no device";
    EXPECT_FALSE(host::IsUsbNetInterface(net, "usb9"));
    EXPECT_FALSE(host::IsUsbNetInterface(net, "../net/wwan0"));
    EXPECT_FALSE(host::IsUsbNetInterface(net, ""));

}

}  // namespace
