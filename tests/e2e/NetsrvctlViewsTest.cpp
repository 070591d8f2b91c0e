// netsrvctl's views end to end: status, signal, the command-less overview and
// the monitor's events, through the real processor and plugin, against each
// shipped simulator profile. The expected values are read off the profiles in
// tools/modemsim/profiles and carried through the service's formulas.

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

#include "RunTool.h"
#include "TempDir.h"

namespace {

using e2e::Lines;
using e2e::RunTool;
using e2e::ToolResult;

const std::string kTool = NETSRVCTL_PATH;

nlohmann::json ShippedProfile(const std::string& name)
{
    std::ifstream in(std::string(NETSRV_SOURCE_DIR) + "/tools/modemsim/profiles/" + name +
                     ".json");
    return nlohmann::json::parse(in);
}

// The one JSON object a successful command prints.
nlohmann::json RunForJson(const std::vector<std::string>& args)
{
    const ToolResult r = RunTool(kTool, args);
    EXPECT_EQ(r.exitStatus, 0) << ::testing::PrintToString(args) << r.err;
    EXPECT_EQ(Lines(r.out).size(), 1u) << r.out;
    return nlohmann::json::parse(r.out, nullptr, false);
}

void ExpectLines(const std::string& text, const std::vector<std::string>& lines)
{
    for (const std::string& line : lines) {
        EXPECT_NE(text.find(line + "\n"), std::string::npos) << "missing: " << line << "\n"
                                                             << text;
    }
}

TEST(NetsrvctlViews, StatusOfEveryShippedProfile)
{
    struct Row {
        const char* profile;
        const char* json;
        std::vector<std::string> lines;
    };
    const Row rows[] = {
        // ^SYSINFOEX: 2,3,0,1,0,6,"LTE",101,"LTE"
        {"lte",
         R"J({"service_status":2,"service_status_name":"normal service","system_mode":6,)J"
         R"J("system_mode_name":"LTE","sub_mode":101,"sub_mode_name":"LTE","roaming":0,)J"
         R"J("roaming_name":"not roaming","domain":3,"domain_name":"CS and PS",)J"
         R"J("sim_state":1,"sim_state_name":"valid","lock_state":0,)J"
         R"J("lock_state_name":"not locked","modem_mode_name":"LTE",)J"
         R"J("modem_sub_mode_name":"LTE"})J",
         {"sub-mode:         101 - LTE (the modem's name)", "modem mode names: LTE / LTE",
          "lock state:       0 - not locked"}},
        // No ^SYSINFOEX: ^SYSINFO: 2,3,0,5,1,,9 maps to WCDMA / HSPA+, no names.
        {"wcdma",
         R"J({"service_status":2,"service_status_name":"normal service","system_mode":3,)J"
         R"J("system_mode_name":"WCDMA","sub_mode":45,"sub_mode_name":"HSPA+ (WCDMA)",)J"
         R"J("roaming":0,"roaming_name":"not roaming","domain":3,"domain_name":"CS and PS",)J"
         R"J("sim_state":1,"sim_state_name":"valid"})J",
         {"sub-mode:         45 - HSPA+ (WCDMA)", "lock state:       not reported",
          "modem mode names: none (the modem answers only ^SYSINFO, which carries no names)"}},
        {"tdscdma",
         R"J({"service_status":2,"service_status_name":"normal service","system_mode":4,)J"
         R"J("system_mode_name":"TD-SCDMA","sub_mode":64,"sub_mode_name":"HSPA (TD-SCDMA)",)J"
         R"J("roaming":0,"roaming_name":"not roaming","domain":3,"domain_name":"CS and PS",)J"
         R"J("sim_state":1,"sim_state_name":"valid","lock_state":0,)J"
         R"J("lock_state_name":"not locked","modem_mode_name":"TD-SCDMA",)J"
         R"J("modem_sub_mode_name":"HSPA"})J",
         {"system mode:      4 - TD-SCDMA", "sub-mode:         64 - HSPA (TD-SCDMA)",
          "modem mode names: TD-SCDMA / HSPA"}},
        // ^SYSINFO with the hybrid system mode 8 and no sub-mode: CDMA, hybrid EV-DO Rev. A.
        {"cdma",
         R"J({"service_status":2,"service_status_name":"normal service","system_mode":2,)J"
         R"J("system_mode_name":"CDMA","sub_mode":29,"sub_mode_name":"hybrid EV-DO Rev. A",)J"
         R"J("roaming":0,"roaming_name":"not roaming","domain":2,"domain_name":"PS only",)J"
         R"J("sim_state":1,"sim_state_name":"valid"})J",
         {"service status:   2 - normal service", "domain:           2 - PS only",
          "sub-mode:         29 - hybrid EV-DO Rev. A", "lock state:       not reported"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.profile);
        EXPECT_EQ(RunForJson({"--simulate", row.profile, "status", "--json"}),
                  nlohmann::json::parse(row.json));
        const ToolResult text = RunTool(kTool, {"--simulate", row.profile, "status"});
        ASSERT_EQ(text.exitStatus, 0) << text.err;
        EXPECT_EQ(Lines(text.out).size(), 8u) << text.out;
        ExpectLines(text.out, row.lines);
    }
}

TEST(NetsrvctlViews, SignalOfEveryShippedProfile)
{
    struct Row {
        const char* profile;
        const char* json;
        std::vector<std::string> lines;
    };
    const Row rows[] = {
        // ^HCSQ: "LTE",52,46,191,22: RSRP level 4, SINR level 5 -> 80 %;
        // RSRP 46 - 141 = -95 dBm, RSRQ (22 - 40) / 2 = -9 dB. +CSQ: 22,99.
        // ^LTESCINFO: 301,18,2,5. ^ANQUERY level 4. No WCDMA reading, no EV-DO.
        {"lte",
         R"J({"signal_percent":80,"rssi":22,"ber":99,"rsrp":-95,"rsrq":-9,"sinr":18,)J"
         R"J("pci":301,"antennas":2,"antenna_level":4})J",
         {"signal:        [########--] 80%", "RSRP:          -95 dBm", "SINR:          18 dB",
          "LTE cell:      PCI 301, 2 antennas", "RSCP:          not reported",
          "EV-DO signal:  not reported"}},
        // No ^HCSQ: +CSQ 17 -> 17 * 100 / 31 = 54 %; ^CSNR: -88,-9; ^ANQUERY level 3.
        {"wcdma",
         R"J({"signal_percent":54,"rssi":17,"ber":99,"rscp":-88,"ecio":-9,)J"
         R"J("antenna_level":3})J",
         {"signal:        [#####-----] 54%", "rssi:          17", "ber:           99 (not known)",
          "RSCP:          -88 dBm", "Ec/Io:         -9 dB", "RSRP:          not reported",
          "LTE cell:      not reported"}},
        // ^HCSQ: "TD-SCDMA",45,36,55: (4500 - 500) / 91 = 43 %; RSCP 36 - 121 = -85,
        // Ec/Io (55 - 65) / 2 = -5. +CSQ 140 loses its TD-SCDMA offset of 100.
        {"tdscdma",
         R"J({"signal_percent":43,"rssi":40,"ber":99,"rscp":-85,"ecio":-5,)J"
         R"J("antenna_level":3})J",
         {"signal:        [####------] 43%", "rssi:          40", "RSCP:          -85 dBm"}},
        // A CDMA modem: ^CSQLVL 60 and ^HDRCSQLVL 60 are percentages already;
        // it has no ^ANQUERY.
        {"cdma", R"J({"signal_percent":60,"rssi":18,"ber":99,"evdo_percent":60})J",
         {"signal:        [######----] 60%", "EV-DO signal:  [######----] 60%",
          "antenna level: not reported", "Ec/Io:         not reported"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.profile);
        EXPECT_EQ(RunForJson({"--simulate", row.profile, "--json", "signal"}),
                  nlohmann::json::parse(row.json));
        const ToolResult text = RunTool(kTool, {"--simulate", row.profile, "signal"});
        ASSERT_EQ(text.exitStatus, 0) << text.err;
        EXPECT_EQ(Lines(text.out).size(), 11u) << text.out;
        ExpectLines(text.out, row.lines);
    }
}

// Without a command the tool shows what status and signal show, in that order.
TEST(NetsrvctlViews, NoCommandIsStatusThenSignal)
{
    for (const char* profile : {"lte", "cdma"}) {
        SCOPED_TRACE(profile);
        const nlohmann::json both = RunForJson({"--simulate", profile, "--json"});
        ASSERT_TRUE(both.is_object());
        EXPECT_EQ(both.size(), 2u) << both;
        EXPECT_EQ(both["status"], RunForJson({"--simulate", profile, "--json", "status"}));
        EXPECT_EQ(both["signal"], RunForJson({"--simulate", profile, "--json", "signal"}));

        const ToolResult text = RunTool(kTool, {"--simulate", profile});
        ASSERT_EQ(text.exitStatus, 0) << text.err;
        const ToolResult status = RunTool(kTool, {"--simulate", profile, "status"});
        const ToolResult signal = RunTool(kTool, {"--simulate", profile, "signal"});
        EXPECT_EQ(text.out, status.out + "\n" + signal.out);
    }
}

// A profile of our own: the LTE modem with other commands missing, answers
// delayed or a timeline.
std::string LteVariant(const testkit::TempDir& dir, const std::string& name,
                       const nlohmann::json& patch)
{
    nlohmann::json profile = ShippedProfile("lte");
    profile.merge_patch(patch);
    return dir.Write(name, profile.dump());
}

TEST(NetsrvctlViews, FailuresKeepTheExitStatuses)
{
    testkit::TempDir dir;
    nlohmann::json lteUnsupported = ShippedProfile("lte")["unsupported"];
    nlohmann::json noSysinfo = lteUnsupported;
    noSysinfo.push_back("^SYSINFOEX");
    noSysinfo.push_back("^SYSINFO");
    // With neither ^HCSQ, ^LTERSRP nor +CSQ the LTE percentage cannot be made.
    nlohmann::json noPercent = lteUnsupported;
    for (const char* name : {"^HCSQ", "^LTERSRP", "+CSQ"}) {
        noPercent.push_back(name);
    }
    const std::string noStatusProfile =
        LteVariant(dir, "nostatus.json", {{"unsupported", noSysinfo}});
    const std::string noPercentProfile =
        LteVariant(dir, "nopercent.json", {{"unsupported", noPercent}});
    // The port vanishes while the modem takes its time over ^SYSINFOEX.
    const std::string vanishingProfile = LteVariant(
        dir, "vanish.json",
        {{"delays", {{"commands", {{"^SYSINFOEX", 20000}}}}},
         {"timeline", nlohmann::json::array({{{"at_ms", 2500}, {"fault", "vanish"}}})}});

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
            EXPECT_EQ(nlohmann::json::parse(r.out, nullptr, false),
                      nlohmann::json::parse(row.json));
        }
    }

    const ToolResult text = RunTool(kTool, {"--simulate", noPercentProfile, "signal"});
    EXPECT_EQ(text.exitStatus, 1);
    ExpectLines(text.out, {"signal:        not reported", "RSRP:          not reported",
                           "antenna level: 4"});
}

// The events of a monitor run as {event key: the objects of that event}.
// Without bReports every line must be an event.
std::map<std::string, std::vector<nlohmann::json>> EventsOf(const ToolResult& r,
                                                            bool bReports = false)
{
    std::map<std::string, std::vector<nlohmann::json>> events;
    for (const std::string& line : Lines(r.out)) {
        const nlohmann::json entry = nlohmann::json::parse(line, nullptr, false);
        EXPECT_TRUE(entry.contains("event") || (bReports && entry.contains("report"))) << line;
        if (entry.contains("event")) {
            events[entry["event"].get<std::string>()].push_back(entry);
        }
    }
    return events;
}

bool HasEvent(const std::map<std::string, std::vector<nlohmann::json>>& events,
              const nlohmann::json& expected)
{
    const auto it = events.find(expected["event"].get<std::string>());
    if (it == events.end()) {
        return false;
    }
    for (const nlohmann::json& entry : it->second) {
        if (entry == expected) {
            return true;
        }
    }
    return false;
}

// Each shipped profile's own timeline reports arrive as the service's events.
// The reports come sooner and repeat more often than in the shipped profiles,
// so that the test is short and one sent while the tool was still starting
// comes again.
TEST(NetsrvctlViews, MonitorShowsEachProfilesReportsAsEvents)
{
    struct Row {
        const char* profile;
        std::vector<nlohmann::json> events;
    };
    const Row rows[] = {
        // ^RSSI: 22 -> 22 * 100 / 31 = 70 %.
        {"lte",
         {{{"event", "signal"}, {"id", 1}, {"signal_percent", 70}}}},
        // ^RSSI: 17 -> 54 %; ^ANLEVEL: -88,-9,17,3; ^MODE: 5,9 -> HSPA+ on WCDMA (45).
        {"wcdma",
         {{{"event", "signal"}, {"id", 1}, {"signal_percent", 54}},
          {{"event", "antenna_level"}, {"id", 11}, {"antenna_level", 3}},
          {{"event", "system_mode"}, {"id", 7}, {"sub_mode", 45},
           {"sub_mode_name", "HSPA+ (WCDMA)"}}}},
        // ^RSSI: 18 -> 58 %; ^MODE: 15,7 -> HSPA on TD-SCDMA (64).
        {"tdscdma",
         {{{"event", "signal"}, {"id", 1}, {"signal_percent", 58}},
          {{"event", "system_mode"}, {"id", 7}, {"sub_mode", 64},
           {"sub_mode_name", "HSPA (TD-SCDMA)"}}}},
        // ^RSSILVL: 60 and ^HRSSILVL: 60 carry their percentage; ^MODE: 8 -> hybrid
        // EV-DO Rev. A (29); ^SRVST: 2.
        {"cdma",
         {{{"event", "signal"}, {"id", 1}, {"signal_percent", 60}},
          {{"event", "system_mode"}, {"id", 7}, {"sub_mode", 29},
           {"sub_mode_name", "hybrid EV-DO Rev. A"}},
          {{"event", "service_status"}, {"id", 4}, {"service_status", 2},
           {"service_status_name", "normal service"}}}},
    };
    testkit::TempDir dir;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.profile);
        nlohmann::json profile = ShippedProfile(row.profile);
        ASSERT_FALSE(profile["timeline"].empty());
        int at = 300;
        for (nlohmann::json& entry : profile["timeline"]) {
            ASSERT_TRUE(entry.contains("report")) << entry;
            entry["at_ms"] = at;
            entry["repeat_ms"] = 700;
            at += 50;
        }
        const std::string path = dir.Write(std::string(row.profile) + ".json", profile.dump());

        const ToolResult json =
            RunTool(kTool, {"--simulate", path, "--json", "monitor", "--timeout", "2"});
        ASSERT_EQ(json.exitStatus, 0) << json.err;
        // Every line an event: the modem's reports themselves only with --raw.
        const auto events = EventsOf(json);
        for (const nlohmann::json& expected : row.events) {
            EXPECT_TRUE(HasEvent(events, expected)) << expected << "\n" << json.out;
        }

    }
}

// Reports of every kind the service turns into events, sent by a timeline of
// our own: each has its readable line, and --raw adds the report itself.
TEST(NetsrvctlViews, MonitorNamesEveryEvent)
{
    const char* const operators =
        "+COPS: (2,\"CHINA MOBILE\",\"CMCC\",\"46000\",7),(1,\"CHINA UNICOM\",\"UNICOM\","
        "\"46001\",2),(3,\"CHINA TELECOM\",\"CTCC\",\"46011\",7)";
    nlohmann::json timeline = nlohmann::json::array();
    int at = 300;
    for (const char* line : {"^RSSILVL: 64", "^ANLEVEL: -95,-9,22,4", "^MODE: 5,9", "^SRVST: 1",
                             "^SYSINFO: 1,2,0,5,1,,9", "^SIMREFRESH: 2", "^PNNFILEREFRESH",
                             operators}) {
        timeline.push_back({{"at_ms", at}, {"repeat_ms", 2000}, {"send", line}});
        at += 50;
    }
    testkit::TempDir dir;
    const std::string path = LteVariant(dir, "events.json", {{"timeline", timeline}});

    const ToolResult text = RunTool(kTool, {"--simulate", path, "monitor", "--timeout", "2"});
    ASSERT_EQ(text.exitStatus, 0) << text.err;
    ExpectLines(text.out, {"signal 64%", "antenna level 4", "mode HSPA+ (WCDMA)",
                           "service status: limited service", "domain: PS only",
                           "SIM refresh: file type 2", "PNN file refreshed",
                           "operator list: 3 operators: 46000 CHINA MOBILE (current, LTE); "
                           "46001 CHINA UNICOM (available, WCDMA); "
                           "46011 CHINA TELECOM (forbidden, LTE)"});

    const ToolResult raw =
        RunTool(kTool, {"--simulate", path, "--json", "monitor", "--raw", "--timeout", "2"});
    ASSERT_EQ(raw.exitStatus, 0) << raw.err;
    std::set<std::string> reports;
    for (const std::string& line : Lines(raw.out)) {
        const nlohmann::json entry = nlohmann::json::parse(line, nullptr, false);
        ASSERT_TRUE(entry.is_object()) << line;
        // Each line is either an event or a report.
        ASSERT_NE(entry.contains("event"), entry.contains("report")) << line;
        if (entry.contains("report")) {
            reports.insert(entry["report"].get<std::string>());
            if (entry["report"] == "^SYSINFO") {
                EXPECT_EQ(entry["fields"],
                          nlohmann::json::array({"1", "2", "0", "5", "1", "", "9"}));
            }
        }
    }
    const auto events = EventsOf(raw, /*bReports=*/true);
    EXPECT_TRUE(HasEvent(events, nlohmann::json::parse(
                                     R"J({"event":"domain","id":5,"domain":2,)J"
                                     R"J("domain_name":"PS only"})J")))
        << raw.out;
    EXPECT_TRUE(HasEvent(events, nlohmann::json::parse(
                                     R"J({"event":"sim_refresh","id":13,"file_type":2})J")))
        << raw.out;
    for (const char* name : {"^RSSILVL", "^ANLEVEL", "^MODE", "^SRVST", "^SYSINFO",
                             "^SIMREFRESH", "^PNNFILEREFRESH", "+COPS"}) {
        EXPECT_EQ(reports.count(name), 1u) << name << "\n" << raw.out;
    }
}

}  // namespace
