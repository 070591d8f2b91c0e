// The tool's host around the plugin: the device manager tells the service
// when the modem's port goes away.

#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "ToolHost.h"
#include "TraceRecorder.h"
#include "TraceSrv.h"
#include "WaitUntil.h"

namespace {

const char* const kRejectAlarm =
    "===***===***CNetSrvImpl:OnDeviceMgrEvent(): EVENT_DEVICE_REJECT!===***===***";

TEST(ToolHost, VanishedPortReachesTheServiceAsDeviceRejected)
{
    testkit::TraceRecorder traces;
    netsrvctl::ToolHost host;
    netsrvctl::HostOptions options;
    options.simulate = true;
    options.pluginPath = NETSRV_PLUGIN_PATH;
    std::string error;
    ASSERT_EQ(host.Start(options, &error), netsrvctl::EXIT_OK) << error;
    ASSERT_NE(host.NetSrv(), nullptr);
    EXPECT_FALSE(traces.Contains(kRejectAlarm));

    host.Simulator()->VanishPort();
    EXPECT_TRUE(testkit::WaitUntil([&] { return traces.Contains(kRejectAlarm); },
                                   std::chrono::seconds(5)));
    host.Stop();
}

TEST(ToolHost, DeviceKindFromTheOptionOrTheProbe)
{
    const struct {
        const char* profile;
        const char* kind;
        int expected;
    } rows[] = {
        {"lte", "", 0},        // answers ^SYSCFG?
        {"tdscdma", "", 2},    // answers ^SYSCONFIG? only
        {"cdma", "", 1},       // +GCAP names +CIS707
        {"lte", "cdma", 1},    // the user's word stands
    };
    for (const auto& row : rows) {
        netsrvctl::ToolHost host;
        netsrvctl::HostOptions options;
        options.simulate = true;
        options.profile = row.profile;
        options.deviceKind = row.kind;
        options.pluginPath = NETSRV_PLUGIN_PATH;
        std::string error;
        ASSERT_EQ(host.Start(options, &error), netsrvctl::EXIT_OK) << error;
        EXPECT_EQ(host.DeviceKind(), row.expected) << row.profile << " " << row.kind;
        host.Stop();
    }
}

}  // namespace
