// netsrvctl's config, config set and bands end to end, through the real
// processor and plugin against the shipped LTE (^SYSCFGEX), WCDMA (^SYSCFG
// only) and TD-SCDMA (^SYSCONFIG only) profiles. The expected values are read
// off tools/modemsim/profiles; the names and layout of the views are pinned
// by the unit tests.

#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "RunTool.h"
#include "SharedModem.h"

namespace {

using e2e::HasFields;
using e2e::Lines;
using e2e::RunTool;
using e2e::SharedModem;
using e2e::ToolResult;
using nlohmann::json;

const std::string kTool = NETSRVCTL_PATH;

// How many configuration sets a modem received (not their test forms).
long ConfigSets(const std::vector<std::string>& received)
{
    return std::count_if(received.begin(), received.end(), [](const std::string& line) {
        return line.rfind("AT^SYS", 0) == 0 && line.find('=') != std::string::npos &&
               line.find("=?") == std::string::npos;
    });
}

TEST(NetsrvctlConfig, ConfigAndBandsOnEveryProfile)
{
    std::string allLteBands;
    for (int band = 1; band <= 63; ++band) {
        allLteBands += (band == 1 ? "" : ",") + std::to_string(band);
    }
    const struct {
        const char* profile;
        const char* command;
        int status;
        std::string json;   // the whole object
    } rows[] = {
        {"lte", "config", 0,
         R"J({"acq_order":"00","acq_order_name":"automatic","band":"3FFFFFFF","roam":1,)J"
         R"J("roam_name":"roaming allowed","domain":2,"domain_name":"CS and PS",)J"
         R"J("lte_band":"7FFFFFFFFFFFFFFF","lte_bands":[)J" + allLteBands + "]}"},
        {"lte", "bands", 0,
         R"J({"bands":[{"mask":"2000004E80380","name":"GSM850/GSM900/GSM1800/GSM1900/)J"
         R"J(WCDMA850/WCDMA900/WCDMA1900/WCDMA2100"},{"mask":"3FFFFFFF","name":"All Bands"}],)J"
         R"J("lte_bands":[{"mask":"800C5","name":"LTE2100/LTE1800/LTE2600/LTE900/LTE800"},)J"
         R"J({"mask":"7FFFFFFFFFFFFFFF","name":"All bands"}],)J"
         R"J("acq_orders":["00","03","02","01","99"]})J"},
        // ^SYSCFG mode 2 (automatic), order 2: WCDMA first.
        {"wcdma", "config", 0,
         R"J({"acq_order":"0201","acq_order_name":"WCDMA, then GSM","band":"400000","roam":0,)J"
         R"J("roam_name":"roaming not allowed","domain":3,"domain_name":"any"})J"},
        // ^SYSCONFIG: no band (all of them), an automatic order has no text.
        {"tdscdma", "config", 0,
         R"J({"band":"3FFFFFFF","roam":1,"roam_name":"roaming allowed","domain":2,)J"
         R"J("domain_name":"CS and PS"})J"},
        {"tdscdma", "bands", 1, R"J({"error":4,"meaning":"operation not supported"})J"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.profile) + " " + row.command);
        const ToolResult r = RunTool(kTool, {"--simulate", row.profile, "--json", row.command});
        EXPECT_EQ(r.exitStatus, row.status) << r.err;
        EXPECT_EQ(Lines(r.out).size(), 1u) << r.out;
        EXPECT_EQ(json::parse(r.out, nullptr, false), json::parse(row.json));
    }
}

// The text names the masks from the modem's lists, and shows them alone
// where the modem has none (a TD-SCDMA modem).
TEST(NetsrvctlConfig, TextNamesTheBandsFromTheModemsLists)
{
    const ToolResult lte = RunTool(kTool, {"--simulate", "lte", "config"});
    EXPECT_EQ(lte.exitStatus, 0) << lte.err;
    EXPECT_EQ(lte.out,
              "acquisition:      00 - automatic\n"
              "band:             3FFFFFFF - All Bands\n"
              "roaming:          1 - roaming allowed\n"
              "domain:           2 - CS and PS\n"
              "LTE band:         7FFFFFFFFFFFFFFF - All bands\n"
              "LTE bands:        1-63\n");
    const ToolResult tdscdma = RunTool(kTool, {"--simulate", "tdscdma", "config"});
    EXPECT_EQ(tdscdma.exitStatus, 0) << tdscdma.err;
    EXPECT_NE(tdscdma.out.find("\nband:             3FFFFFFF\n"), std::string::npos)
        << tdscdma.out;
}

// Each row sets on a modem that keeps its state from row to row. A set that
// succeeds prints what the next run reads; one that the tool refuses never
// reaches the modem (exit 2), one that the modem refuses fails with its error
// (exit 1); neither changes what the next run reads.
TEST(NetsrvctlConfig, SetsAndRefusals)
{
    const SharedModem lte("lte");
    const SharedModem wcdma("wcdma");
    const SharedModem tdscdma("tdscdma");
    const struct {
        const SharedModem& modem;
        std::vector<std::string> set;
        int status;
        const char* shown;   // status 0: among the fields read next; else the error's start
    } rows[] = {
        {lte, {"--mode", "lte,wcdma,gsm", "--band", "2000004e80380", "--lte-band", "0x800C5"}, 0,
         R"J({"acq_order":"030201","acq_order_name":"LTE, then WCDMA, then GSM",)J"
         R"J("band":"2000004E80380","lte_band":"800C5","lte_bands":[1,3,7,8,20]})J"},
        {lte, {"--band", "all", "--lte-band", "all", "--roam", "0", "--domain", "1"}, 0,
         R"J({"acq_order":"030201","band":"3FFFFFFF","roam":0,"domain":1,)J"
         R"J("lte_band":"7FFFFFFFFFFFFFFF"})J"},
        {wcdma, {"--mode", "gsm", "--band", "280000", "--roam", "1"}, 0,
         R"J({"acq_order":"01","acq_order_name":"GSM","band":"280000","roam":1,"domain":3})J"},
        // Automatic: the service gives this modem's order no text, and none
        // can be written back without --mode.
        {tdscdma, {"--roam", "0"}, 2, "config set: the modem's acquisition order reads as none"},
        {tdscdma, {"--mode", "td-scdma", "--roam", "0", "--domain", "1"}, 0,
         R"J({"acq_order":"05","band":"3FFFFFFF","roam":0,"domain":1})J"},
        {lte, {"--mode", "lte,cdma"}, 2, "config set: --mode 0304: the modem offers 00, 03,"},
        {lte, {"--roam", "1", "--band", "4000000000000000"}, 2,
         "config set: --band 4000000000000000: the modem offers 2000004E80380"},
        {lte, {"--band", "3FFFFFFFG"}, 2, "--band: must be a hexadecimal mask"},
        {lte, {}, 2, "config set: give what to change: --mode, --band,"},
        {wcdma, {"--lte-band", "all"}, 2, "config set: --lte-band all: the modem lists no LTE"},
        {tdscdma, {"--mode", "gsm", "--band", "80"}, 2, "config set: --band 80: the modem lists"},
        // Mode 15 (TD-SCDMA only) is not among this WCDMA card's modes.
        {wcdma, {"--mode", "td-scdma", "--roam", "0"}, 1,
         "config set failed: error 50 (incorrect parameters)\n"},
        {tdscdma, {"--mode", "wcdma"}, 1, "config set failed: error 50 (incorrect parameters)\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.set));
        const std::string before = row.modem.Run({"config"}).out;
        std::vector<std::string> args = {"config", "set"};
        args.insert(args.end(), row.set.begin(), row.set.end());
        row.modem.TakeReceived();
        const ToolResult set = row.modem.Run(args);
        EXPECT_EQ(set.exitStatus, row.status) << set.err;
        // A refused ^SYSCFGEX set falls back to the older command: one or two sets.
        EXPECT_EQ(ConfigSets(row.modem.TakeReceived()) == 0, row.status == 2);
        const ToolResult read = row.modem.Run({"config"});
        if (row.status == 0) {
            EXPECT_EQ(set.out, read.out);
            EXPECT_TRUE(HasFields(json::parse(read.out), json::parse(row.shown))) << read.out;
        } else {
            EXPECT_EQ(set.err.rfind(std::string("netsrvctl: ") + row.shown, 0), 0u) << set.err;
            EXPECT_EQ(read.out, before);
        }
    }
}

}  // namespace
