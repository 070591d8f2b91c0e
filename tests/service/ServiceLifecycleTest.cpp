// The service object's construction, subscription, device events and shutdown.

#include <string>
#include <vector>

#include "NetSrvAtCommonds.h"
#include "ServiceFixture.h"
#include "TraceSrv.h"

namespace {

using ServiceLifecycle = ServiceFixture;

TEST_F(ServiceLifecycle, SubscribesAsNetSrvForThirteenReportsInOrder)
{
    Service();
    const auto registrations = processor.Registrations();
    ASSERT_EQ(registrations.size(), 1u);
    EXPECT_EQ(registrations[0].client, "NetSrv");
    EXPECT_EQ(registrations[0].pCallBack, static_cast<IAtCallBack*>(service));

    const std::vector<std::string> expected = {
        "^RSSI", "^RSSILVL", "^HRSSILVL", "^ANLEVEL", "^SRVST", "^SIMST", "^MODE",
        "+CREG", "+CGREG", "^SYSINFO", "+COPS", "^SIMREFRESH", "^PNNFILEREFRESH"};
    const std::vector<CmdSetItem>& rows = registrations[0].rows;
    ASSERT_EQ(rows.size(), expected.size());
    for (size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].name, expected[i]) << "row " << i;
        // Each row is a copy of the command table's row, type included.
        ASSERT_LT(rows[i].index, static_cast<CmdIndex>(INDEX_COUNT));
        EXPECT_TRUE(rows[i] == _AtCmdSetTable[rows[i].index]) << rows[i].name;
    }
    EXPECT_TRUE(service->IsRegisteredWithProcessor());
}

TEST_F(ServiceLifecycle, RefusedSubscriptionLeavesTheServiceUsable)
{
    processor.SetRegisterResult(false);
    Service();
    EXPECT_FALSE(service->IsRegisteredWithProcessor());

    processor.Expect("^GLASTERR", testkit::AtForm::Set).Answer({"1", "0"});
    NETSRV_DATA::SRV_LAST_ERROR lastErr;
    unsigned long err = 0;
    EXPECT_TRUE(service->SRVGetLastErr(&lastErr, &err));
}

TEST_F(ServiceLifecycle, RegistersWithTheDeviceManager)
{
    Service();
    const auto receivers = deviceMgr.Receivers();
    ASSERT_EQ(receivers.size(), 1u);
    EXPECT_EQ(receivers[0], static_cast<IDeviceMgrEvent*>(service));
    EXPECT_TRUE(traces.Contains(
        "CNetSrvImpl::CNetSrvImpl(): pDeviceMgr->RegisterDeviceCallback(this) succed!", TL_INFO));
}

TEST_F(ServiceLifecycle, ConstructsWithoutProcessorOrDeviceManager)
{
    container.Register(IPROCESSOR_INTERFACE_ID, IPROCESSOR_INTERFACE_NO, nullptr);
    container.Register(IDEVICEMGR_INTERFACE_ID, IDEVICEMGR_INTERFACE_NO, nullptr);
    Service();
    ASSERT_NE(service, nullptr);
    EXPECT_FALSE(service->IsRegisteredWithProcessor());
    EXPECT_TRUE(traces.Contains("CNetSrvImpl IProcess pointer is null", TL_ERRO));
    EXPECT_FALSE(traces.Contains(
        "CNetSrvImpl::CNetSrvImpl(): pDeviceMgr->RegisterDeviceCallback(this) succed!"));
    EXPECT_TRUE(processor.Registrations().empty());
}

TEST_F(ServiceLifecycle, WithoutContainerTheProcessorLookupSaysSo)
{
    // The container is cleared with the plugin object that set it.
    plugin.reset();
    plugin.reset(new CNetSrvPlugin());
    Service();
    EXPECT_TRUE(traces.Contains("GetAtProcessor : get m_pContainer is null", TL_INFO));
    EXPECT_EQ(service->GetAtProcessor(), nullptr);
}

TEST_F(ServiceLifecycle, ProcessorIsLookedUpOnEveryCall)
{
    Service();
    const int before = container.LookupCount(IPROCESSOR_INTERFACE_ID, IPROCESSOR_INTERFACE_NO);
    EXPECT_EQ(service->GetAtProcessor(), static_cast<IProcessor*>(&processor));
    EXPECT_EQ(service->GetAtProcessor(), static_cast<IProcessor*>(&processor));
    EXPECT_EQ(container.LookupCount(IPROCESSOR_INTERFACE_ID, IPROCESSOR_INTERFACE_NO),
              before + 2);
    // A processor that the host replaces is found at once.
    container.Register(IPROCESSOR_INTERFACE_ID, IPROCESSOR_INTERFACE_NO, nullptr);
    EXPECT_EQ(service->GetAtProcessor(), nullptr);
}

TEST_F(ServiceLifecycle, DestructionUnsubscribes)
{
    Service();
    DestroyService();
    EXPECT_EQ(processor.Unregistrations(), std::vector<std::string>{"NetSrv"});
}

// Device loss also makes the throttled system-information refresh due at once.
TEST_F(ServiceLifecycle, DeviceEventsAreTracedAndAcknowledged)
{
    struct Row {
        DWORD event;
        const char* alarm;   // the TL_CRIT trace, or null
        bool resetsThrottle;
    };
    const Row rows[] = {
        {IDeviceMgrEvent::EVENT_DEVICE_REJECT,
         "===***===***CNetSrvImpl:OnDeviceMgrEvent(): EVENT_DEVICE_REJECT!===***===***", true},
        {NETSRV_DATA::EVENT_SRV_MS_AVAILABLE,
         "===***===***CNetSrvImpl::OnDeviceMgrEvent() :EVENT_SRV_MS_AVAILABLE!===***===***",
         false},
        {IDeviceMgrEvent::EVENT_PORT_STATE_CHANGED, nullptr, false},
        {IDeviceMgrEvent::EVENT_DEVICE_INSERT, nullptr, false},
        {12345, nullptr, false},
    };
    Service();
    // The clock starts 5 seconds in the past, so the first reading is due.
    EXPECT_TRUE(service->IsGetSystemInfo());
    for (const Row& row : rows) {
        service->IsGetSystemInfo();   // start a fresh 5-second span, if due
        traces.Clear();
        EXPECT_TRUE(service->OnDeviceMgrEvent(row.event, nullptr)) << row.event;
        EXPECT_EQ(traces.Count("CNetSrvImpl::OnDeviceMgrEvent() begin!", TL_INFO), 1);
        EXPECT_EQ(traces.Count("CNetSrvImpl::OnDeviceMgrEvent() end!", TL_INFO), 1);
        int alarms = 0;
        for (const testkit::TraceLine& line : traces.Lines()) {
            alarms += line.level == TL_CRIT;
        }
        EXPECT_EQ(alarms, row.alarm ? 1 : 0) << row.event;
        if (row.alarm != nullptr) {
            EXPECT_TRUE(traces.Contains(row.alarm, TL_CRIT));
        }
        EXPECT_EQ(service->IsGetSystemInfo(), row.resetsThrottle) << row.event;
    }
}

}  // namespace
