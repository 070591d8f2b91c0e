// netsrvctl end to end: the tool, the real AT processor and the plugin against
// the built-in simulator on a pseudo-terminal.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

#include "AtProcessor.h"
#include "ModemSimulator.h"
#include "RunTool.h"

namespace {

using e2e::Lines;
using e2e::RunTool;
using e2e::ToolResult;

const std::string kTool = NETSRVCTL_PATH;

// A temporary file that is removed at the end of the test.
class TempFile {
public:
    explicit TempFile(const std::string& content)
    {
        char name[] = "/tmp/netsrvctl-e2e-XXXXXX";
        const int fd = mkstemp(name);
        m_path = name;
        if (fd >= 0) {
            const ssize_t written = write(fd, content.data(), content.size());
            (void)written;
            close(fd);
        }
    }
    ~TempFile() { std::remove(m_path.c_str()); }
    const std::string& Path() const { return m_path; }

private:
    std::string m_path;
};

// Every error the tool reports is one line on standard error.
void ExpectOneLineError(const ToolResult& r)
{
    EXPECT_EQ(Lines(r.err).size(), 1u) << r.err;
    EXPECT_EQ(r.err.rfind("netsrvctl: ", 0), 0u) << r.err;
}

TEST(Netsrvctl, PluginInfoOnTheSimulator)
{
    const ToolResult r = RunTool(kTool, {"--simulate", "plugin-info"});
    ASSERT_EQ(r.exitStatus, 0) << r.err;
    EXPECT_NE(r.out.find("385BDF98-9AA3-4121-9FBB-CACB1CD9608C"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("NetSrvPlugin"), std::string::npos);
    EXPECT_NE(r.out.find("257"), std::string::npos);

    const ToolResult j = RunTool(kTool, {"--simulate", "--json", "plugin-info"});
    ASSERT_EQ(j.exitStatus, 0) << j.err;
    const nlohmann::json info = nlohmann::json::parse(j.out);
    EXPECT_EQ(info["clsid"], "385BDF98-9AA3-4121-9FBB-CACB1CD9608C");
    EXPECT_EQ(info["name"], "NetSrvPlugin");
    EXPECT_EQ(info["version"], 257);
    EXPECT_EQ(info["type"], "OPERATION");
    EXPECT_EQ(info["allow_release"], true);
}

TEST(Netsrvctl, LastErrOnEveryShippedProfile)
{
    for (const char* profile : {"lte", "wcdma", "tdscdma", "cdma"}) {
        const ToolResult r = RunTool(kTool, {"--simulate", profile, "--json", "lasterr", "1"});
        ASSERT_EQ(r.exitStatus, 0) << profile << ": " << r.err;
        const nlohmann::json answer = nlohmann::json::parse(r.out);
        EXPECT_EQ(answer["type"], 1) << profile;
        EXPECT_TRUE(answer["code"].is_number_unsigned()) << profile;
    }
}

TEST(Netsrvctl, AddressWithNoLink)
{
    // The simulator brings up no data link, so no address is found.
    const ToolResult r = RunTool(kTool, {"--simulate", "address"});
    EXPECT_EQ(r.exitStatus, 1);
    EXPECT_NE(r.out.find("ipv4: (none)"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("ipv6: (none)"), std::string::npos) << r.out;
    ExpectOneLineError(r);
}

// The default LTE profile with a timeline of our own.
std::string LteProfileWithTimeline(const nlohmann::json& timeline)
{
    std::ifstream in(std::string(NETSRV_SOURCE_DIR) + "/tools/modemsim/profiles/lte.json");
    nlohmann::json profile = nlohmann::json::parse(in);
    profile["timeline"] = timeline;
    return profile.dump();
}

TEST(Netsrvctl, MonitorReceivesTheSimulatorsReports)
{
    TempFile profile(LteProfileWithTimeline(nlohmann::json::array({
        {{"at_ms", 300}, {"send", "^RSSI: 18"}},
        {{"at_ms", 400}, {"send", "^MODE: 5,4"}},
    })));
    const ToolResult r = RunTool(
        kTool, {"--simulate", profile.Path(), "--json", "monitor", "--count", "2", "--timeout", "20"});
    ASSERT_EQ(r.exitStatus, 0) << r.err;
    const auto lines = Lines(r.out);
    ASSERT_EQ(lines.size(), 2u) << r.out;
    const nlohmann::json first = nlohmann::json::parse(lines[0]);
    const nlohmann::json second = nlohmann::json::parse(lines[1]);
    EXPECT_EQ(first["kind"], "report");
    EXPECT_EQ(first["name"], "^RSSI");
    EXPECT_EQ(first["fields"], nlohmann::json::array({"18"}));
    EXPECT_EQ(second["name"], "^MODE");
    EXPECT_EQ(second["fields"], nlohmann::json::array({"5", "4"}));

    // In text, one line a report; the timeout ends a quiet monitor with success.
    const ToolResult text =
        RunTool(kTool, {"--simulate", profile.Path(), "monitor", "--timeout", "2"});
    ASSERT_EQ(text.exitStatus, 0) << text.err;
    EXPECT_NE(text.out.find("report ^RSSI 18\n"), std::string::npos) << text.out;
    EXPECT_NE(text.out.find("report ^MODE 5,4\n"), std::string::npos) << text.out;
}

TEST(Netsrvctl, SilentModemIsOneLineAndStatusThree)
{
    TempFile profile(LteProfileWithTimeline(nlohmann::json::array({
        {{"at_ms", 0}, {"fault", "silent_on"}},
    })));
    const ToolResult r = RunTool(kTool, {"--simulate", profile.Path(), "lasterr"});
    EXPECT_EQ(r.exitStatus, 3) << r.err;
    ExpectOneLineError(r);
    EXPECT_NE(r.err.find("does not answer"), std::string::npos) << r.err;
}

TEST(Netsrvctl, UsageErrors)
{
    struct Row {
        std::vector<std::string> args;
        int status;
    };
    const Row rows[] = {
        {{}, 2},
        {{"lasterr"}, 2},                                   // neither --device nor --simulate
        {{"--simulate", "frobnicate"}, 2},                  // no such command
        {{"--device", "/dev/null", "--simulate", "lasterr"}, 2},
        {{"--simulate", "--device-kind", "wimax", "lasterr"}, 2},
        {{"--simulate", "monitor", "--count", "-1"}, 2},
    };
    for (const Row& row : rows) {
        const ToolResult r = RunTool(kTool, row.args);
        EXPECT_EQ(r.exitStatus, row.status) << ::testing::PrintToString(row.args) << r.err;
        EXPECT_FALSE(r.err.empty());
    }
}

TEST(Netsrvctl, HelpOnEveryCommand)
{
    for (const char* command : {"plugin-info", "lasterr", "address", "monitor"}) {
        const ToolResult r = RunTool(kTool, {command, "--help"});
        EXPECT_EQ(r.exitStatus, 0) << command;
        EXPECT_NE(r.out.find(command), std::string::npos) << r.out;
    }
}

TEST(Netsrvctl, MissingDeviceIsOneLineAndStatusThree)
{
    const ToolResult r = RunTool(kTool, {"--device", "/dev/ttyUSB-does-not-exist", "lasterr"});
    EXPECT_EQ(r.exitStatus, 3);
    ExpectOneLineError(r);
    EXPECT_NE(r.err.find("/dev/ttyUSB-does-not-exist"), std::string::npos) << r.err;
}

TEST(Netsrvctl, BusyPortIsOneLineAndStatusThree)
{
    modemsim::Profile profile;
    std::string error;
    ASSERT_TRUE(modemsim::LoadProfile("lte", &profile, &error)) << error;
    modemsim::Simulator simulator(profile);
    ASSERT_TRUE(simulator.Start(&error)) << error;
    // Another program holds the modem's port.
    host::CAtProcessor holder(simulator.SlavePath());
    ASSERT_TRUE(holder.Open(&error)) << error;

    const ToolResult r = RunTool(kTool, {"--device", simulator.SlavePath(), "lasterr"});
    EXPECT_EQ(r.exitStatus, 3);
    ExpectOneLineError(r);
    EXPECT_NE(r.err.find("busy"), std::string::npos) << r.err;
    holder.Close();
    simulator.Stop();
}

TEST(Netsrvctl, BadProfilesAreOneLineAndStatusTwo)
{
    TempFile truncated("{\"network\": ");
    TempFile wrongType("[1, 2, 3]");
    for (const TempFile* file : {&truncated, &wrongType}) {
        const ToolResult r = RunTool(kTool, {"--simulate", file->Path(), "lasterr"});
        EXPECT_EQ(r.exitStatus, 2) << r.err;
        ExpectOneLineError(r);
        EXPECT_NE(r.err.find(file->Path()), std::string::npos) << r.err;
    }
    const ToolResult missing = RunTool(kTool, {"--simulate", "/tmp/no-such-profile.json", "lasterr"});
    EXPECT_EQ(missing.exitStatus, 2);
    ExpectOneLineError(missing);
}

}  // namespace
