// netsrvctl's registration, attach/detach, hspa and cdma commands end to end,
// through the real processor and plugin against the shipped simulator
// profiles. The expected values are read off tools/modemsim/profiles; the
// names and layout of each view are pinned by the unit tests.

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "RunTool.h"
#include "SharedModem.h"
#include "TempDir.h"

namespace {

using e2e::HasFields;
using e2e::Lines;
using e2e::RunTool;
using e2e::SharedModem;
using e2e::ShippedProfile;
using e2e::ToolResult;
using nlohmann::json;

const std::string kTool = NETSRVCTL_PATH;

TEST(NetsrvctlSettings, RegistrationOnEveryShippedProfile)
{
    const struct {
        const char* profile;
        int status;
        const char* json;   // the whole object
    } rows[] = {
        {"lte", 0,
         R"J({"cs":{"report_mode":2,"state":1,"state_name":"registered (home network)",)J"
         R"J("lac":"CE00","cell_id":"01CEAD8F"},"ps":{"report_mode":2,"state":1,)J"
         R"J("state_name":"registered (home network)","lac":"CE00","cell_id":"01CEAD8F"},)J"
         R"J("eps":{"report_mode":2,"state":1,"state_name":"registered (home network)",)J"
         R"J("tac":"CE00","cell_id":"01CEAD8F"},"ps_attach":1,"ps_attach_name":"attached"})J"},
        // No +CEREG on this 3G card: no eps.
        {"wcdma", 0,
         R"J({"cs":{"report_mode":2,"state":1,"state_name":"registered (home network)",)J"
         R"J("lac":"84CD","cell_id":"00D30156"},"ps":{"report_mode":2,"state":1,)J"
         R"J("state_name":"registered (home network)","lac":"84CD","cell_id":"00D30156"},)J"
         R"J("ps_attach":1,"ps_attach_name":"attached"})J"},
        // A CDMA card has none of the 3GPP domains.
        {"cdma", 1, R"J({"error":4,"meaning":"operation not supported"})J"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.profile);
        const ToolResult r = RunTool(kTool, {"--simulate", row.profile, "--json", "registration"});
        EXPECT_EQ(r.exitStatus, row.status) << r.err;
        EXPECT_EQ(Lines(r.out).size(), 1u) << r.out;
        EXPECT_EQ(json::parse(r.out, nullptr, false), json::parse(row.json));
    }
}

// Each row sets, then reads with another run; the rows of one modem run in
// order, each from the state the row before left.
TEST(NetsrvctlSettings, WhatOneRunSetsTheNextReads)
{
    const SharedModem lte("lte");
    const SharedModem cdma("cdma");
    const struct {
        const SharedModem& modem;
        std::vector<std::string> set;
        const char* setJson;   // what the setting run prints
        std::vector<std::string> read;
        const char* readFields;   // among the fields the reading run prints; null: absent
    } rows[] = {
        // Report mode 0: the modem gives no location any more.
        {lte, {"registration", "report", "cs", "0"}, R"J({"cs":{"report_mode":0}})J",
         {"registration"},
         R"J({"cs":{"report_mode":0,"state":1,"lac":null,"cell_id":null},)J"
         R"J("ps":{"report_mode":2,"lac":"CE00"}})J"},
        {lte, {"registration", "report", "cs", "2"}, R"J({"cs":{"report_mode":2}})J",
         {"registration"}, R"J({"cs":{"report_mode":2,"lac":"CE00","cell_id":"01CEAD8F"}})J"},
        // Detached, the packet domains are not registered; attached again, they are.
        {lte, {"detach"}, R"J({"ps_attach":0,"ps_attach_name":"detached"})J", {"registration"},
         R"J({"ps_attach":0,"ps_attach_name":"detached","ps":{"state":0,)J"
         R"J("state_name":"not registered"},"eps":{"state":0},"cs":{"state":1}})J"},
        {lte, {"attach"}, R"J({"ps_attach":1,"ps_attach_name":"attached"})J", {"registration"},
         R"J({"ps_attach":1,"ps":{"state":1},"eps":{"state":1}})J"},
        {lte, {"hspa", "upa", "off"}, R"J({"hsupa":0,"hsupa_name":"disabled"})J", {"hspa"},
         R"J({"hsdpa":1,"hsdpa_name":"enabled","hsupa":0,"hsupa_name":"disabled"})J"},
        {cdma, {"cdma", "set", "pref-mode", "evdo"},
         R"J({"pref_mode":4,"pref_mode_name":"EV-DO only"})J", {"cdma"},
         R"J({"pref_mode":4,"pref_mode_name":"EV-DO only","evdo_revision":0,"nam":0})J"},
        {cdma, {"cdma", "set", "nam", "2"}, R"J({"nam":1,"nam_name":"NAM 2"})J", {"cdma"},
         R"J({"nam":1,"nam_name":"NAM 2","prl_version":"10012","sid":13824,"nid":65535,)J"
         R"J("subnet_id":"0A1B2C3D","sim_type":1,"sim_type_name":"CDMA"})J"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.set));
        const ToolResult set = row.modem.Run(row.set);
        ASSERT_EQ(set.exitStatus, 0) << set.err;
        EXPECT_EQ(json::parse(set.out, nullptr, false), json::parse(row.setJson));
        const ToolResult read = row.modem.Run(row.read);
        ASSERT_EQ(read.exitStatus, 0) << read.err;
        const json shown = json::parse(read.out, nullptr, false);
        EXPECT_TRUE(HasFields(shown, json::parse(row.readFields))) << shown;
    }
}

// A modem that lacks the commands: the modem's error word and its meaning,
// exit 1, and nothing made up.
TEST(NetsrvctlSettings, CommandsTheModemLacksFail)
{
    const struct {
        std::vector<std::string> args;
        const char* errorLine;
    } rows[] = {
        {{"--simulate", "lte", "cdma"},
         "netsrvctl: cdma failed: error 4 (operation not supported)\n"},
        {{"--simulate", "lte", "cdma", "register-min", "1234567890"},
         "netsrvctl: cdma register-min failed: error 4 (operation not supported)\n"},
        {{"--simulate", "cdma", "detach"},
         "netsrvctl: detach failed: error 4 (operation not supported)\n"},
        {{"--simulate", "cdma", "registration", "report", "ps", "1"},
         "netsrvctl: registration report failed: error 4 (operation not supported)\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.args));
        std::vector<std::string> args = row.args;
        args.push_back("--json");
        const ToolResult r = RunTool(kTool, args);
        EXPECT_EQ(r.exitStatus, 1) << r.err;
        EXPECT_EQ(r.err, row.errorLine);
        EXPECT_EQ(json::parse(r.out, nullptr, false),
                  json::parse(R"J({"error":4,"meaning":"operation not supported"})J"));
    }
}

// The monitor shows registration reports without --raw, in the modem's
// report form (the state first).
TEST(NetsrvctlSettings, MonitorShowsRegistrationReports)
{
    json profile = ShippedProfile("lte");
    profile["network"]["cgreg"]["stat"] = 5;
    profile["timeline"] = json::array({
        {{"at_ms", 300}, {"repeat_ms", 400}, {"report", "+CREG"}},
        {{"at_ms", 350}, {"repeat_ms", 400}, {"report", "+CGREG"}},
        {{"at_ms", 400}, {"repeat_ms", 400}, {"report", "+CEREG"}},
    });
    testkit::TempDir dir;
    const std::string path = dir.Write("reports.json", profile.dump());
    const ToolResult r = RunTool(kTool, {"--simulate", path, "monitor", "--timeout", "2"});
    EXPECT_EQ(r.exitStatus, 0) << r.err;
    for (const char* line :
         {" cs registration: registered (home network), lac CE00, cell 01CEAD8F\n",
          " ps registration: registered (roaming), lac CE00, cell 01CEAD8F\n",
          " eps registration: registered (home network), tac CE00, cell 01CEAD8F\n"}) {
        EXPECT_NE(r.out.find(line), std::string::npos) << line << r.out;
    }
    EXPECT_EQ(r.out.find("report +C"), std::string::npos) << r.out;
}

}  // namespace
