// netsrvctl's views end to end: status, signal, the command-less overview and
// the monitor's events, through the real processor and plugin, against each
// shipped simulator profile. The expected values are read off the profiles in
// tools/modemsim/profiles and carried through the service's formulas; the
// names and the layout of each view are pinned by the unit tests.

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

#include "RunTool.h"
#include "TempDir.h"

namespace {

using e2e::HasFields;
using e2e::Lines;
using e2e::RunTool;
using e2e::ShippedProfile;
using e2e::ToolResult;
using nlohmann::json;

const std::string kTool = NETSRVCTL_PATH;

// The one JSON object a successful command prints.
json RunForJson(const std::vector<std::string>& args)
{
    const ToolResult r = RunTool(kTool, args);
    EXPECT_EQ(r.exitStatus, 0) << ::testing::PrintToString(args) << r.err;
    EXPECT_EQ(Lines(r.out).size(), 1u) << r.out;
    return json::parse(r.out, nullptr, false);
}

// What the command-less overview shows of each profile: the status view's
// numbers and the signal view's readings.
TEST(NetsrvctlViews, StatusAndSignalOfEveryShippedProfile)
{
    const struct {
        const char* profile;
        const char* status;   // these fields among others; null: absent
        const char* signal;   // the whole view
    } rows[] = {
        // ^SYSINFOEX: 2,3,0,1,0,6,"LTE",101,"LTE"
        // ^HCSQ: "LTE",52,46,191,22: RSRP level 4, SINR level 5 -> 80 %;
        // RSRP 46 - 141 = -95 dBm, RSRQ (22 - 40) / 2 = -9 dB. +CSQ: 22,99:
        // -113 + 2 * 22 = -69 dBm, the bit error rate not known.
        // ^LTESCINFO: 301,18,2,5. ^ANQUERY level 4. No WCDMA reading, no EV-DO.
        {"lte",
         R"J({"service_status":2,"system_mode":6,"sub_mode":101,"roaming":0,"domain":3,)J"
         R"J("sim_state":1,"lock_state":0,"modem_mode_name":"LTE","modem_sub_mode_name":"LTE"})J",
         R"J({"signal_percent":80,"rssi":22,"rssi_dbm":-69,"rsrp":-95,"rsrq":-9,"sinr":18,)J"
         R"J("pci":301,"antennas":2,"antenna_level":4})J"},
        // No ^SYSINFOEX: ^SYSINFO:2,3,0,5,1,,9 maps to WCDMA / HSPA+, without
        // names or a lock state.
        // No ^HCSQ: +CSQ 17 -> 17 * 100 / 31 = 54 %; ^CSNR: -88,-9; ^ANQUERY level 3.
        {"wcdma",
         R"J({"service_status":2,"system_mode":3,"sub_mode":45,"domain":3,"sim_state":1,)J"
         R"J("lock_state":null,"modem_mode_name":null})J",
         R"J({"signal_percent":54,"rssi":17,"rssi_dbm":-79,"rscp":-88,"ecio":-9,)J"
         R"J("antenna_level":3})J"},
        // ^HCSQ: "TD-SCDMA",45,36,55: (4500 - 500) / 91 = 43 %; RSCP 36 - 121 = -85,
        // Ec/Io (55 - 65) / 2 = -5. +CSQ 140 is -116 + 40 = -76 dBm on the
        // TD-SCDMA scale: step (40 - 3) / 2 = 18, as the modem's ^RSSI says.
        {"tdscdma",
         R"J({"system_mode":4,"sub_mode":64,"lock_state":0,"modem_mode_name":"TD-SCDMA",)J"
         R"J("modem_sub_mode_name":"HSPA"})J",
         R"J({"signal_percent":43,"rssi":18,"rssi_dbm":-77,"rscp":-85,"ecio":-5,)J"
         R"J("antenna_level":3})J"},
        // ^SYSINFO:2,2,0,8,1: the hybrid system mode 8 without a sub-mode.
        // ^CSQLVL 60 and ^HDRCSQLVL 60 are percentages already; no ^HCSQ,
        // ^CSNR or ^ANQUERY.
        {"cdma", R"J({"system_mode":2,"sub_mode":29,"domain":2,"lock_state":null})J",
         R"J({"signal_percent":60,"rssi":18,"rssi_dbm":-77,"evdo_percent":60})J"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.profile);
        const json both = RunForJson({"--simulate", row.profile, "--json"});
        EXPECT_TRUE(HasFields(both["status"], json::parse(row.status))) << both;
        EXPECT_EQ(both["signal"], json::parse(row.signal));
    }
}

// "+CSQ" as the same 0..31 step on every radio, whatever form the modem
// answers in; a value it does not know (99, or 199 on TD-SCDMA) is left out.
TEST(NetsrvctlViews, SignalStepOnEveryRadio)
{
    const struct {
        const char* profile;
        int rssi;
        int ber;
        const char* signal;   // these fields among others; null: absent
    } rows[] = {
        {"tdscdma", 199, 99, R"J({"rssi":99,"rssi_dbm":null,"ber":null})J"},
        {"tdscdma", 100, 99, R"J({"rssi":0,"rssi_dbm":-113})J"},
        // -116 + 91 = -25 dBm is beyond the top step.
        {"tdscdma", 191, 2, R"J({"rssi":31,"rssi_dbm":-51,"ber":2})J"},
        {"wcdma", 31, 3, R"J({"rssi":31,"rssi_dbm":-51,"ber":3})J"},
        {"wcdma", 99, 99, R"J({"rssi":99,"rssi_dbm":null,"ber":null})J"},
        // Outside the scale: not known rather than a wrong number.
        {"wcdma", 45, 9, R"J({"rssi":99,"rssi_dbm":null,"ber":null})J"},
    };
    testkit::TempDir dir;
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.profile) + " " + std::to_string(row.rssi));
        json profile = ShippedProfile(row.profile);
        profile["signal"]["csq"] = {{"rssi", row.rssi}, {"ber", row.ber}};
        const json signal = RunForJson(
            {"--simulate", dir.Write("csq.json", profile.dump()), "--json", "signal"});
        EXPECT_TRUE(HasFields(signal, json::parse(row.signal))) << signal;
    }
    const ToolResult text = RunTool(kTool, {"--simulate", "tdscdma", "signal"});
    EXPECT_NE(text.out.find("rssi:             18 (-77 dBm)\n"), std::string::npos) << text.out;
}

// Without a command the tool shows what status and signal show, in that order.
TEST(NetsrvctlViews, NoCommandIsStatusThenSignal)
{
    const json both = RunForJson({"--simulate", "lte", "--json"});
    ASSERT_TRUE(both.is_object());
    EXPECT_EQ(both.size(), 2u) << both;
    EXPECT_EQ(both["status"], RunForJson({"--simulate", "lte", "--json", "status"}));
    EXPECT_EQ(both["signal"], RunForJson({"--simulate", "lte", "--json", "signal"}));

    const ToolResult text = RunTool(kTool, {"--simulate", "lte"});
    ASSERT_EQ(text.exitStatus, 0) << text.err;
    const ToolResult status = RunTool(kTool, {"--simulate", "lte", "status"});
    const ToolResult signal = RunTool(kTool, {"--simulate", "lte", "signal"});
    EXPECT_EQ(Lines(status.out).size(), 8u) << status.out;
    EXPECT_EQ(Lines(signal.out).size(), 11u) << signal.out;
    EXPECT_EQ(text.out, status.out + "\n" + signal.out);
}

// Keys in the documented order, every value one that was read; every text
// view with its values in one column, also across status and signal.
TEST(NetsrvctlViews, OneStyleInEveryView)
{
    const struct {
        std::vector<std::string> args;
        std::vector<std::string> keys;   // of the JSON object, in order
    } jsonRows[] = {
        {{"plugin-info"}, {"name", "clsid", "version", "type", "allow_release"}},
        {{"lasterr", "1"}, {"type", "code"}},
        {{}, {"status", "signal"}},
    };
    for (const auto& row : jsonRows) {
        std::vector<std::string> args = {"--simulate", "--json"};
        args.insert(args.end(), row.args.begin(), row.args.end());
        const ToolResult r = RunTool(kTool, args);
        EXPECT_EQ(r.exitStatus, 0) << r.err;
        const nlohmann::ordered_json object = nlohmann::ordered_json::parse(r.out, nullptr, false);
        std::vector<std::string> keys;
        for (const auto& item : object.items()) {
            keys.push_back(item.key());
        }
        EXPECT_EQ(keys, row.keys) << r.out;
    }
    // No data link here (or one of the machine's own): whatever is not found
    // is left out rather than null.
    const ToolResult address = RunTool(kTool, {"--simulate", "--json", "address"});
    const json addresses = json::parse(address.out, nullptr, false);
    ASSERT_TRUE(addresses.is_object()) << address.out;
    for (const auto& item : addresses.items()) {
        EXPECT_TRUE(item.value().is_string()) << address.out;
    }

    for (const std::vector<std::string>& args :
         {std::vector<std::string>{}, {"plugin-info"}, {"lasterr"}, {"address"},
          {"registration"}, {"hspa"}, {"cdma", "cdma"}}) {
        std::vector<std::string> all = {"--simulate"};
        all.insert(all.end(), args.begin(), args.end());
        const ToolResult r = RunTool(kTool, all);
        std::set<size_t> columns;
        for (const std::string& line : Lines(r.out)) {
            const size_t colon = line.find(": ");
            if (colon != std::string::npos) {
                columns.insert(line.find_first_not_of(' ', colon + 1));
            }
        }
        EXPECT_EQ(columns.size(), 1u) << ::testing::PrintToString(args) << "\n" << r.out;
    }
}

// A profile of our own: the LTE modem with other commands missing, answers
// delayed or a timeline.
std::string LteVariant(const testkit::TempDir& dir, const std::string& name, const json& patch)
{
    json profile = ShippedProfile("lte");
    profile.merge_patch(patch);
    return dir.Write(name, profile.dump());
}

TEST(NetsrvctlViews, FailuresKeepTheExitStatuses)
{
    testkit::TempDir dir;
    json lteUnsupported = ShippedProfile("lte")["unsupported"];
    json noSysinfo = lteUnsupported;
    noSysinfo.push_back("^SYSINFOEX");
    noSysinfo.push_back("^SYSINFO");
    // With neither ^HCSQ, ^LTERSRP nor +CSQ the LTE percentage cannot be made.
    json noPercent = lteUnsupported;
    for (const char* name : {"^HCSQ", "^LTERSRP", "+CSQ"}) {
        noPercent.push_back(name);
    }
    const std::string noStatusProfile =
        LteVariant(dir, "nostatus.json", {{"unsupported", noSysinfo}});
    const std::string noPercentProfile =
        LteVariant(dir, "nopercent.json", {{"unsupported", noPercent}});
    // The port vanishes while the modem takes its time over ^SYSINFOEX.
    const std::string vanishingProfile =
        LteVariant(dir, "vanish.json",
                   {{"delays", {{"commands", {{"^SYSINFOEX", 20000}}}}},
                    {"timeline", json::array({{{"at_ms", 2500}, {"fault", "vanish"}}})}});

    struct Row {
        std::vector<std::string> args;
        int status;
        const char* errorLine;
        const char* json;   // what --json prints, null: not checked
    };
    const Row rows[] = {
        {{"--simulate", noStatusProfile, "--json", "status"}, 1,
         "netsrvctl: status failed: error 4 (operation not supported)\n",
         R"J({"error":4,"meaning":"operation not supported"})J"},
        // What could be read is still shown.
        {{"--simulate", noPercentProfile, "--json", "signal"}, 1,
         "netsrvctl: signal failed: error 4 (operation not supported)\n",
         // ^CSNR stands in for ^HCSQ and gives its no-signal values.
         R"J({"rscp":-125,"ecio":-32,"sinr":18,"pci":301,"antennas":2,"antenna_level":4,)J"
         R"J("error":4,"meaning":"operation not supported"})J"},
        // Status read, signal failed: the overview fails with signal's status.
        {{"--simulate", noPercentProfile, "--json"}, 1,
         "netsrvctl: signal failed: error 4 (operation not supported)\n", nullptr},
        // The modem went away: 3, and the signal is not asked for.
        {{"--simulate", vanishingProfile, "--json"}, 3,
         "netsrvctl: status failed: error 20002 (the modem's port is closed or gone)\n",
         R"J({"status":{"error":20002,"meaning":"the modem's port is closed or gone"}})J"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.args));
        const ToolResult r = RunTool(kTool, row.args);
        EXPECT_EQ(r.exitStatus, row.status) << r.err;
        EXPECT_EQ(r.err, row.errorLine);
        if (row.json != nullptr) {
            EXPECT_EQ(json::parse(r.out, nullptr, false), json::parse(row.json));
        }
    }
    // In text too, what could be read is shown.
    const ToolResult text = RunTool(kTool, {"--simulate", noPercentProfile, "signal"});
    EXPECT_EQ(text.exitStatus, 1);
    EXPECT_NE(text.out.find("signal:           not reported\n"), std::string::npos) << text.out;
    EXPECT_NE(text.out.find("antenna level:    4\n"), std::string::npos) << text.out;
}

// The lines of a --json monitor run: events, and with --raw the reports.
struct MonitorRun {
    std::vector<json> events;
    std::vector<json> reports;

    bool HasEvent(const char* pszFields) const
    {
        for (const json& event : events) {
            if (HasFields(event, json::parse(pszFields))) {
                return true;
            }
        }
        return false;
    }
};

MonitorRun Monitor(const std::string& profile, bool bRaw)
{
    std::vector<std::string> args = {"--simulate", profile, "--json", "monitor", "--timeout", "2"};
    if (bRaw) {
        args.push_back("--raw");
    }
    const ToolResult r = RunTool(kTool, args);
    EXPECT_EQ(r.exitStatus, 0) << r.err;
    MonitorRun run;
    for (const std::string& line : Lines(r.out)) {
        const json entry = json::parse(line, nullptr, false);
        // Each line is an event or, with --raw only, a report.
        EXPECT_TRUE(entry.is_object() && entry.contains("event") != entry.contains("report") &&
                    (bRaw || entry.contains("event")))
            << line;
        (entry.contains("event") ? run.events : run.reports).push_back(entry);
    }
    return run;
}

// Each shipped profile's own timeline reports arrive as the service's events.
// The reports come sooner and repeat more often than in the shipped profiles,
// so that the test is short and one sent while the tool was still starting
// comes again.
TEST(NetsrvctlViews, MonitorShowsEachProfilesReportsAsEvents)
{
    const struct {
        const char* profile;
        std::vector<const char*> events;
    } rows[] = {
        // ^RSSI:22 -> 22 * 100 / 31 = 70 %.
        {"lte", {R"J({"event":"signal","signal_percent":70})J"}},
        // ^RSSI:17 -> 54 %; ^ANLEVEL:-88,-9,17,3; ^MODE:5,9 -> HSPA+ on WCDMA (45).
        {"wcdma",
         {R"J({"event":"signal","signal_percent":54})J",
          R"J({"event":"antenna_level","antenna_level":3})J",
          R"J({"event":"system_mode","sub_mode":45})J"}},
        // ^RSSI:18 -> 58 %; ^MODE:15,7 -> HSPA on TD-SCDMA (64).
        {"tdscdma",
         {R"J({"event":"signal","signal_percent":58})J",
          R"J({"event":"system_mode","sub_mode":64})J"}},
        // ^RSSILVL:60 and ^HRSSILVL:60 carry their percentage; ^MODE:8 -> hybrid
        // EV-DO Rev. A (29); ^SRVST:2.
        {"cdma",
         {R"J({"event":"signal","signal_percent":60})J",
          R"J({"event":"system_mode","sub_mode":29})J",
          R"J({"event":"service_status","service_status":2})J"}},
    };
    testkit::TempDir dir;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.profile);
        json profile = ShippedProfile(row.profile);
        ASSERT_FALSE(profile["timeline"].empty());
        int at = 300;
        for (json& entry : profile["timeline"]) {
            ASSERT_TRUE(entry.contains("report")) << entry;
            entry["at_ms"] = at;
            entry["repeat_ms"] = 700;
            at += 50;
        }
        const MonitorRun run =
            Monitor(dir.Write(std::string(row.profile) + ".json", profile.dump()), false);
        for (const char* expected : row.events) {
            EXPECT_TRUE(run.HasEvent(expected)) << expected;
        }
    }
}

// Reports of every kind the service turns into events, sent by a timeline of
// our own: each becomes its event, and --raw adds the report itself.
TEST(NetsrvctlViews, MonitorNamesEveryEvent)
{
    const char* const operators =
        "+COPS: (2,\"CHINA MOBILE\",\"CMCC\",\"46000\",7),(1,\"CHINA UNICOM\",\"UNICOM\","
        "\"46001\",2),(3,\"CHINA TELECOM\",\"CTCC\",\"46011\",7)";
    json timeline = json::array();
    int at = 300;
    for (const char* line : {"^RSSILVL: 64", "^ANLEVEL: -95,-9,22,4", "^MODE: 5,9", "^SRVST: 1",
                             "^SYSINFO: 1,2,0,5,1,,9", "^SIMREFRESH: 2", "^PNNFILEREFRESH",
                             operators}) {
        timeline.push_back({{"at_ms", at}, {"repeat_ms", 2000}, {"send", line}});
        at += 50;
    }
    testkit::TempDir dir;
    const MonitorRun run = Monitor(LteVariant(dir, "events.json", {{"timeline", timeline}}), true);
    for (const char* expected : {R"J({"event":"signal","signal_percent":64})J",
                                 R"J({"event":"antenna_level","antenna_level":4})J",
                                 R"J({"event":"system_mode","sub_mode":45})J",
                                 R"J({"event":"service_status","service_status":1})J",
                                 R"J({"event":"domain","domain":2})J",
                                 R"J({"event":"sim_refresh","file_type":2})J",
                                 R"J({"event":"pnn_file_refresh"})J",
                                 // The operators as listed, a quoted name kept whole.
                                 R"J({"event":"operator_list","count":3,"operators":[)J"
                                 R"J({"plmn":"46000","long_name":"CHINA MOBILE",)J"
                                 R"J("short_name":"CMCC","status":2,"status_name":"current",)J"
                                 R"J("rat":7,"rat_name":"LTE"},{"plmn":"46001",)J"
                                 R"J("long_name":"CHINA UNICOM","short_name":"UNICOM",)J"
                                 R"J("status":1,"status_name":"available","rat":2,)J"
                                 R"J("rat_name":"WCDMA"},{"plmn":"46011",)J"
                                 R"J("long_name":"CHINA TELECOM","short_name":"CTCC",)J"
                                 R"J("status":3,"status_name":"forbidden","rat":7,)J"
                                 R"J("rat_name":"LTE"}]})J"}) {
        EXPECT_TRUE(run.HasEvent(expected)) << expected;
    }

    std::set<std::string> reports;
    for (const json& entry : run.reports) {
        reports.insert(entry["report"].get<std::string>());
        if (entry["report"] == "^SYSINFO") {
            EXPECT_EQ(entry["fields"], json::array({"1", "2", "0", "5", "1", "", "9"}));
        }
    }
    EXPECT_EQ(reports, (std::set<std::string>{"^RSSILVL", "^ANLEVEL", "^MODE", "^SRVST",
                                              "^SYSINFO", "^SIMREFRESH", "^PNNFILEREFRESH",
                                              "+COPS"}));
}

}  // namespace
