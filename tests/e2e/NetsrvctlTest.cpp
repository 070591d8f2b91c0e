// netsrvctl end to end: the tool, the real AT processor and the plugin against
// the built-in simulator on a pseudo-terminal.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <nlohmann/json.hpp>
#include <regex>
#include <string>

#include "AtProcessor.h"
#include "ModemSimulator.h"
#include "RunTool.h"
#include "ScopedEnv.h"
#include "TempDir.h"

namespace {

using e2e::Lines;
using e2e::RunTool;
using e2e::ToolResult;

const std::string kTool = NETSRVCTL_PATH;

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
    // The LTE profile remembers a last error of kind 1; the others none.
    const struct {
        const char* profile;
        unsigned long code;
    } rows[] = {{"lte", 33}, {"wcdma", 0}, {"tdscdma", 0}, {"cdma", 0}};
    for (const auto& row : rows) {
        const ToolResult r =
            RunTool(kTool, {"--simulate", row.profile, "--json", "lasterr", "1"});
        ASSERT_EQ(r.exitStatus, 0) << row.profile << ": " << r.err;
        const nlohmann::json answer = nlohmann::json::parse(r.out);
        EXPECT_EQ(answer["type"], 1) << row.profile;
        EXPECT_EQ(answer["code"], row.code) << row.profile;
    }
}

// True when this machine has a data link of the kinds the connect service
// reports (a user's modem, say), so that an address may well be found.
bool MachineHasDataLink()
{
    for (const char* prefix : {"ppp", "wwan", "usb"}) {
        const std::string command =
            std::string("ls /sys/class/net 2>/dev/null | grep -q '^") + prefix + "'";
        if (std::system(command.c_str()) == 0) {
            return true;
        }
    }
    return false;
}

TEST(Netsrvctl, AddressWithNoLink)
{
    if (MachineHasDataLink()) {
        GTEST_SKIP() << "this machine has a data link of its own";
    }
    // The simulator brings up no data link, so no address is found.
    const ToolResult r = RunTool(kTool, {"--simulate", "address"});
    EXPECT_EQ(r.exitStatus, 1);
    EXPECT_NE(r.out.find("ipv4:             (none)\n"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("ipv6:             (none)\n"), std::string::npos) << r.out;
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

TEST(Netsrvctl, MonitorShowsTheModemsReportsWhenAskedForThem)
{
    // Repeated, so that reports sent before the monitor subscribed come again.
    testkit::TempDir dir;
    const std::string profile =
        dir.Write("reports.json", LteProfileWithTimeline(nlohmann::json::array({
                                      {{"at_ms", 300}, {"repeat_ms", 300}, {"send", "^RSSI: 18"}},
                                      {{"at_ms", 400}, {"repeat_ms", 300}, {"send", "^MODE: 5,4"}},
                                  })));
    const ToolResult r = RunTool(kTool, {"--simulate", profile, "--json", "monitor", "--raw",
                                         "--count", "8", "--timeout", "20"});
    ASSERT_EQ(r.exitStatus, 0) << r.err;
    const auto lines = Lines(r.out);
    ASSERT_EQ(lines.size(), 8u) << r.out;
    nlohmann::json rssi, mode;
    for (const std::string& line : lines) {
        const nlohmann::json entry = nlohmann::json::parse(line);
        if (!entry.contains("report")) {
            continue;   // the service's own events
        }
        (entry["report"] == "^RSSI" ? rssi : mode) = entry;
    }
    ASSERT_FALSE(rssi.is_null()) << r.out;
    ASSERT_FALSE(mode.is_null()) << r.out;
    EXPECT_EQ(rssi["fields"], nlohmann::json::array({"18"}));
    EXPECT_EQ(mode["report"], "^MODE");
    EXPECT_EQ(mode["fields"], nlohmann::json::array({"5", "4"}));

    // In text, one line a report beside the events; the time-out ends a
    // monitor with success.
    const ToolResult text =
        RunTool(kTool, {"--simulate", profile, "monitor", "--raw", "--timeout", "2"});
    ASSERT_EQ(text.exitStatus, 0) << text.err;
    EXPECT_NE(text.out.find("report ^RSSI 18\n"), std::string::npos) << text.out;
    EXPECT_NE(text.out.find("report ^MODE 5,4\n"), std::string::npos) << text.out;
    // ^RSSI: 18 is 18 * 100 / 31 = 58 %; ^MODE: 5,4 is plain WCDMA.
    EXPECT_NE(text.out.find("signal 58%\n"), std::string::npos) << text.out;
    EXPECT_NE(text.out.find("mode WCDMA\n"), std::string::npos) << text.out;

    // Without --raw only the events.
    const ToolResult events =
        RunTool(kTool, {"--simulate", profile, "monitor", "--count", "4", "--timeout", "20"});
    ASSERT_EQ(events.exitStatus, 0) << events.err;
    EXPECT_EQ(events.out.find("report"), std::string::npos) << events.out;
    EXPECT_EQ(Lines(events.out).size(), 4u) << events.out;
}

// The port vanishes and comes back while the monitor runs: both are lines of
// their own when they happen, and the monitor goes on. Every line starts with
// the local time (the test's zone is half an hour off a whole hour, so that
// the offset's minutes show).
TEST(Netsrvctl, MonitorSaysWhenTheModemGoesAndComesBack)
{
    testkit::TempDir dir;
    const std::string profile =
        dir.Write("vanish.json",
                  LteProfileWithTimeline(nlohmann::json::array({
                      {{"at_ms", 300}, {"repeat_ms", 400}, {"send", "^RSSI: 18"}},
                      {{"at_ms", 2000}, {"fault", "vanish"}},
                      {{"at_ms", 3000}, {"fault", "restore"}},
                  })));
    testkit::ScopedEnv zone("TZ", "IST-5:30");
    const std::regex jsonTime(R"(\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}\+05:30)");
    const std::regex textTime(R"(\d\d:\d\d:\d\d .*)");
    for (const bool bJson : {true, false}) {
        SCOPED_TRACE(bJson ? "json" : "text");
        std::vector<std::string> args = {"--simulate", profile, "monitor", "--timeout", "5"};
        if (bJson) {
            args.insert(args.begin(), "--json");
        }
        const ToolResult r = RunTool(kTool, args);
        EXPECT_EQ(r.exitStatus, 0) << r.err;
        // What each line says, without its time.
        std::vector<std::string> said;
        for (const std::string& line : Lines(r.out)) {
            if (!bJson) {
                EXPECT_TRUE(std::regex_match(line, textTime)) << line;
                said.push_back(line.substr(line.find(' ') + 1));
                continue;
            }
            const auto entry = nlohmann::ordered_json::parse(line, nullptr, false);
            ASSERT_TRUE(entry.is_object()) << line;
            EXPECT_EQ(entry.begin().key(), "time") << line;
            EXPECT_TRUE(std::regex_match(entry.value("time", ""), jsonTime)) << line;
            EXPECT_FALSE(entry.contains("id")) << line;
            const std::string event = entry.value("event", "");
            EXPECT_EQ(event == "signal", entry.value("event_id", 0) == 1) << line;
            said.push_back(event);
        }
        const std::string removed = bJson ? "device_removed" : "device removed";
        const std::string back = bJson ? "device_back" : "device back";
        const std::string signal = bJson ? "signal" : "signal 58%";
        const auto gone = std::find(said.begin(), said.end(), removed);
        const auto returned = std::find(gone, said.end(), back);
        EXPECT_NE(std::find(said.begin(), gone, signal), gone) << r.out;
        ASSERT_NE(returned, said.end()) << r.out;
        EXPECT_EQ(std::count(said.begin(), said.end(), removed), 1) << r.out;
        EXPECT_NE(std::find(returned, said.end(), signal), said.end()) << r.out;
    }
}

TEST(Netsrvctl, EndsAtOnceWhileTheServiceStillWaitsForTheModem)
{
    // Each "+CREG" report starts the service's domain check, whose ^SYSINFOEX
    // this modem takes 20 s to answer; the check is still waiting when the
    // monitor has its lines. The bound is a hang guard: the tool is expected
    // to be gone well within it.
    std::ifstream in(std::string(NETSRV_SOURCE_DIR) + "/tools/modemsim/profiles/lte.json");
    nlohmann::json profile = nlohmann::json::parse(in);
    profile["delays"]["commands"]["^SYSINFOEX"] = 20000;
    profile["timeline"] = nlohmann::json::array({
        {{"at_ms", 300}, {"repeat_ms", 300}, {"report", "+CREG"}},
        {{"at_ms", 600}, {"repeat_ms", 400}, {"send", "^RSSI: 18"}},
    });
    testkit::TempDir dir;
    const ToolResult r = RunTool(kTool, {"--simulate", dir.Write("slow.json", profile.dump()),
                                         "monitor", "--count", "3", "--timeout", "30"});
    ASSERT_EQ(r.exitStatus, 0) << r.err;
    EXPECT_EQ(Lines(r.out).size(), 3u) << r.out;
    EXPECT_LT(r.afterLastOutput.count(), 3000) << "ms from the last line to the end";
}

TEST(Netsrvctl, UsageErrors)
{
    struct Row {
        std::vector<std::string> args;
        const char* mention;   // the message names what was wrong
    };
    const Row rows[] = {
        {{}, "--device"},
        {{"lasterr"}, "--simulate"},                        // neither --device nor --simulate
        {{"--simulate", "lte", "frobnicate"}, "frobnicate"},   // no such command
        {{"--simulate", "--baud", "1234", "lasterr"}, "1234"},   // no such line speed
        {{"--device", "/dev/null", "--simulate", "lasterr"}, "--simulate"},
        {{"--simulate", "--device-kind", "wimax", "lasterr"}, "wimax"},
        // A kind of last error is one byte; never sent to the modem wrapped round.
        {{"--simulate", "lasterr", "-5"}, "from 0 to 255, not -5"},
        {{"--simulate", "lasterr", "256"}, "from 0 to 255, not 256"},
        {{"--simulate", "monitor", "--count", "-1"}, "0 or more, not -1"},
        {{"--simulate", "monitor", "--count", "1.5"}, "not 1.5"},
        {{"--simulate", "monitor", "--timeout", "nan"}, "0 or more, not nan"},
        {{"--simulate", "monitor", "--timeout", "-0.5"}, "0 or more, not -0.5"},
        {{"--simulate", "status", "signal"}, "signal"},     // one command at a time
        {{"--simulate", "signal", "--raw"}, "--raw"},       // a monitor option elsewhere
        // Each setting names the words it takes.
        {{"--simulate", "registration", "report", "lte", "1"}, "one of cs, ps, eps, not lte"},
        {{"--simulate", "registration", "report", "cs", "3"}, "one of 0, 1, 2, not 3"},
        {{"--simulate", "hspa", "hsdpa", "on"}, "one of dpa, upa, not hsdpa"},
        {{"--simulate", "lte", "cdma", "set", "pref-mode", "lte"},
         "one of cdma, evdo, hybrid, not lte"},
        {{"--simulate", "cdma", "cdma", "set", "evdo-rev", "C"}, "one of 0, A, B, not C"},
        {{"--device", "/dev/ttyUSB-does-not-exist", "cdma", "set"}, "pref-mode, evdo-rev or nam"},
        // A bad MIN is refused before the port is even opened.
        {{"--device", "/dev/ttyUSB-does-not-exist", "cdma", "register-min", "12345"},
         "10 or 15 digits, not 12345"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.args));
        const ToolResult r = RunTool(kTool, row.args);
        EXPECT_EQ(r.exitStatus, 2) << r.err;
        ExpectOneLineError(r);
        EXPECT_NE(r.err.find(row.mention), std::string::npos) << r.err;
    }
    // The ends of the range are kinds like any other.
    for (const char* type : {"0", "255"}) {
        const ToolResult r = RunTool(kTool, {"--simulate", "--json", "lasterr", type});
        EXPECT_EQ(r.exitStatus, 0) << r.err;
        EXPECT_EQ(nlohmann::json::parse(r.out, nullptr, false)["type"], std::stoi(type)) << r.out;
    }
}

// The word after --simulate is a profile or a command by what it names.
TEST(Netsrvctl, SimulateTakesAProfileOnlyWhenOneIsNamed)
{
    const struct {
        std::vector<std::string> args;
        int status;
        const char* out;   // in standard output, or with status 2 in standard error
    } rows[] = {
        {{"--simulate", "status"}, 0, "system mode:      6 - LTE\n"},
        {{"--simulate", "cdma", "status"}, 0, "system mode:      2 - CDMA\n"},
        // "cdma" names a profile and a command: alone or before a command it
        // is the profile, before a word of its own the command.
        {{"--simulate", "cdma"}, 0, "system mode:      2 - CDMA\n"},
        {{"--simulate", "cdma", "cdma"}, 0, "SID:              13824\n"},
        {{"--simulate", "cdma", "set", "nam", "2"}, 1, "cdma set failed"},
        {{"--simulate", "plugin-info", "--json"}, 0, "\"name\":\"NetSrvPlugin\""},
        {{"--simulate", "frobnicate"}, 2,
         "frobnicate is neither a command nor a built-in profile nor a file; the built-in "
         "profiles are lte, wcdma, tdscdma, cdma\n"},
        // A name ending in .json is a profile file, even one that is missing.
        {{"--simulate", "missing.json", "status"}, 2, "missing.json"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.args));
        const ToolResult r = RunTool(kTool, row.args);
        EXPECT_EQ(r.exitStatus, row.status) << r.err;
        EXPECT_NE((row.status == 0 ? r.out : r.err).find(row.out), std::string::npos)
            << r.out << r.err;
        if (row.status != 0) {
            ExpectOneLineError(r);
        }
    }
}

TEST(Netsrvctl, HelpOnEveryCommand)
{
    for (const char* command : {"status", "signal", "plugin-info", "lasterr", "address",
                                "monitor", "registration", "attach", "detach", "hspa", "cdma"}) {
        const ToolResult r = RunTool(kTool, {command, "--help"});
        EXPECT_EQ(r.exitStatus, 0) << command;
        EXPECT_NE(r.out.find(command), std::string::npos) << r.out;
    }
    // What 0 means for the monitor's limits is said where they are described.
    const ToolResult monitor = RunTool(kTool, {"monitor", "--help"});
    EXPECT_NE(monitor.out.find("N lines; 0 (the default): no limit"), std::string::npos)
        << monitor.out;
    EXPECT_NE(monitor.out.find("S seconds; 0 (the default): no limit"), std::string::npos)
        << monitor.out;
}

// A failure is one line on standard error, with 3 for the modem and 2 for
// what the user gave.
TEST(Netsrvctl, FailuresAreOneLineWithTheirStatus)
{
    testkit::TempDir dir;
    const std::string silent = dir.Write(
        "silent.json",
        LteProfileWithTimeline(nlohmann::json::array({{{"at_ms", 0}, {"fault", "silent_on"}}})));
    const std::string truncated = dir.Write("truncated.json", "{\"network\": ");
    const std::string wrongType = dir.Write("array.json", "[1, 2, 3]");
    // Another program holds the simulated modem's port.
    modemsim::Profile lte;
    std::string error;
    ASSERT_TRUE(modemsim::LoadProfile("lte", &lte, &error)) << error;
    modemsim::Simulator simulator(lte);
    ASSERT_TRUE(simulator.Start(&error)) << error;
    host::CAtProcessor holder(simulator.SlavePath());
    ASSERT_TRUE(holder.Open(&error)) << error;

    const struct {
        std::vector<std::string> args;
        int status;
        std::string mention;
    } rows[] = {
        {{"--simulate", silent, "lasterr"}, 3, "does not answer"},
        {{"--device", "/dev/ttyUSB-does-not-exist", "lasterr"}, 3, "/dev/ttyUSB-does-not-exist"},
        {{"--device", simulator.SlavePath(), "lasterr"}, 3, "busy"},
        {{"--simulate", truncated, "lasterr"}, 2, truncated},
        {{"--simulate", wrongType, "lasterr"}, 2, wrongType},
        {{"--simulate", dir / "none.json", "lasterr"}, 2, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.args));
        const ToolResult r = RunTool(kTool, row.args);
        EXPECT_EQ(r.exitStatus, row.status) << r.err;
        ExpectOneLineError(r);
        EXPECT_NE(r.err.find(row.mention), std::string::npos) << r.err;
    }
    holder.Close();
    simulator.Stop();
}

}  // namespace
