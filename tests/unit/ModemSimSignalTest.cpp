// The simulated modem's system information, registration, signal and CDMA
// answers per shipped profile, the reports its timeline builds from the state, and
// state changes showing up in what it says next.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "ModemEngine.h"
#include "ModemSimKit.h"
#include "ModemSimulator.h"
#include "StateLines.h"
#include "StatePatch.h"
#include "UnsolicitedReports.h"

namespace {

using modemsim::ModemState;
using modemsim::Profile;
using modemsim::ReportKind;
using testkit::Framed;
using testkit::Shipped;

std::string Ask(const Profile& profile, ModemState& state, const std::string& line)
{
    return modemsim::AnswerCommandLine(profile, state, line).text;
}

constexpr char kNo[] = "COMMAND NOT SUPPORT";

struct AnswerRow {
    const char* profile;
    const char* line;
    std::vector<std::string> answer;   // information lines, then the final result
};

// Each row on a fresh modem of its profile.
void ExpectAnswers(const std::vector<AnswerRow>& rows)
{
    for (const AnswerRow& row : rows) {
        SCOPED_TRACE(std::string(row.profile) + " " + row.line);
        const Profile profile = Shipped(row.profile);
        ModemState state = profile.initial;
        EXPECT_EQ(Ask(profile, state, row.line), Framed(row.answer));
    }
}

// Each answer's form once; which profile lacks which command, and the values
// each one reads, show in the end-to-end views of every shipped profile.
TEST(ModemSimSignalTest, EachProfileAnswersAsItsKindOfModem)
{
    ExpectAnswers({
        {"lte", "AT^SYSINFOEX", {"^SYSINFOEX: 2,3,0,1,0,6,\"LTE\",101,\"LTE\"", "OK"}},
        {"lte", "AT^SYSINFO", {"^SYSINFO:2,3,0,17,1", "OK"}},
        {"lte", "AT^HCSQ?", {"^HCSQ: \"LTE\",52,46,191,22", "OK"}},
        {"lte", "AT+CSQ", {"+CSQ: 22,99", "OK"}},
        {"lte", "AT+CSQ=?", {"+CSQ: (0-31,99),(0-7,99)", "OK"}},
        {"lte", "AT^LTERSRP?", {"^LTERSRP: -95,-9", "OK"}},
        {"lte", "AT^LTESCINFO?", {"^LTESCINFO: 301,18,2,5", "OK"}},
        {"lte", "AT^ANQUERY?", {"^ANQUERY: -95,-9,22,4", "OK"}},
        {"lte", "AT^CSNR?", {"^CSNR: -125,-32", "OK"}},
        {"lte", "AT^CSQLVL", {kNo}},
        // Only the forms the modem has.
        {"lte", "AT^SYSINFOEX?", {kNo}},
        {"wcdma", "AT^SYSINFO", {"^SYSINFO:2,3,0,5,1,,9", "OK"}},
        {"wcdma", "AT^SYSINFOEX", {kNo}},
        // A TD-SCDMA modem prints "+CSQ" offset by 100.
        {"tdscdma", "AT+CSQ", {"+CSQ: 140,99", "OK"}},
        {"tdscdma", "AT+CSQ=?", {"+CSQ: (100-191,199),(0-7,99)", "OK"}},
        {"cdma", "AT^CSQLVL", {"^CSQLVL: 60,99", "OK"}},
        {"cdma", "AT^HDRCSQLVL", {"^HDRCSQLVL: 60", "OK"}},
        {"cdma", "AT^HCSQ?", {kNo}},
    });
}

TEST(ModemSimSignalTest, RegisterTakesTheModemOffTheNetworkAndBack)
{
    const Profile profile = Shipped("wcdma");
    ModemState state = profile.initial;
    const std::string ok = Framed({"OK"});

    EXPECT_EQ(Ask(profile, state, "AT^REGISTER=0"), ok);
    EXPECT_EQ(Ask(profile, state, "AT^SYSINFO"), Framed({"^SYSINFO:0,0,0,0,1,,0", "OK"}));
    EXPECT_EQ(modemsim::RenderReport(ReportKind::Creg, state),
              std::vector<std::string>{"+CREG: 0"});
    EXPECT_FALSE(state.network.registered);
    EXPECT_EQ(Ask(profile, state, "AT^REGISTER=0"), ok);

    EXPECT_EQ(Ask(profile, state, "AT^REGISTER=1"), ok);
    EXPECT_EQ(modemsim::StateToJson(state), modemsim::StateToJson(profile.initial));

    // Registering a modem that has service changes nothing.
    state.network.serviceDomain = 2;
    EXPECT_EQ(Ask(profile, state, "AT^REGISTER=1"), ok);
    EXPECT_EQ(state.network.serviceDomain, 2);

    // An LTE modem off the network has no radio in use.
    const Profile lte = Shipped("lte");
    ModemState lteState = lte.initial;
    EXPECT_EQ(Ask(lte, lteState, "AT^REGISTER=0;^SYSINFOEX;^HCSQ?"),
              Framed({"^SYSINFOEX: 0,0,0,1,0,0,\"NO SERVICE\",0,\"NO SERVICE\"",
                      "^HCSQ: \"NOSERVICE\"", "OK"}));

    // Anything but 0 or 1 alone is refused and changes nothing.
    ModemState fresh = profile.initial;
    EXPECT_EQ(Ask(profile, fresh, "AT^REGISTER=2"), Framed({"ERROR"}));
    EXPECT_EQ(Ask(profile, fresh, "AT+CMEE=1;^REGISTER=0,0"), Framed({"+CME ERROR: 50"}));
    EXPECT_EQ(fresh.network.serviceStatus, 2);
}

// Registration, packet attach, the HSPA switches and the CDMA settings, read
// from the state and set; a chained line sets, then reads what the set changed.
TEST(ModemSimSignalTest, RegistrationAttachHspaAndCdmaAnswerFromTheState)
{
    ExpectAnswers({
        {"lte", "AT+CREG?", {"+CREG: 2,1,\"CE00\",\"01CEAD8F\"", "OK"}},
        {"lte", "AT+CGREG?", {"+CGREG: 2,1,\"CE00\",\"01CEAD8F\",7", "OK"}},
        {"lte", "AT+CEREG?", {"+CEREG: 2,1,\"CE00\",\"01CEAD8F\",7", "OK"}},
        {"tdscdma", "AT+CGREG?", {"+CGREG: 2,1,\"18D8\",\"2A7B\",2", "OK"}},
        {"lte", "AT+CREG=1;+CREG?;+CGREG?",
         {"+CREG: 1,1", "+CGREG: 2,1,\"CE00\",\"01CEAD8F\",7", "OK"}},
        {"lte", "AT+CEREG=0;+CEREG?", {"+CEREG: 0,1", "OK"}},
        {"lte", "AT+CREG=3", {"ERROR"}},
        {"lte", "AT+CMEE=1;+CGREG=1,2", {"+CME ERROR: 50"}},
        {"wcdma", "AT+CEREG?", {kNo}},
        {"lte", "AT+CGATT?", {"+CGATT: 1", "OK"}},
        // Detached: CS alone, no packet registration; attached again: as before.
        {"lte", "AT+CGATT=0;+CGATT?;^SYSINFOEX;+CREG?;+CGREG?;+CEREG?",
         {"+CGATT: 0", "^SYSINFOEX: 2,1,0,1,0,6,\"LTE\",101,\"LTE\"",
          "+CREG: 2,1,\"CE00\",\"01CEAD8F\"", "+CGREG: 2,0", "+CEREG: 2,0", "OK"}},
        {"lte", "AT+CGATT=0;+CGATT=0;+CGATT=1;+CGATT?;^SYSINFOEX;+CEREG?",
         {"+CGATT: 1", "^SYSINFOEX: 2,3,0,1,0,6,\"LTE\",101,\"LTE\"",
          "+CEREG: 2,1,\"CE00\",\"01CEAD8F\",7", "OK"}},
        // Registering again keeps a detach; attaching without service waits for it.
        {"wcdma", "AT+CGATT=0;^REGISTER=0;^REGISTER=1;^SYSINFO;+CGREG?",
         {"^SYSINFO:2,1,0,5,1,,9", "+CGREG: 2,0", "OK"}},
        {"wcdma", "AT^REGISTER=0;+CGATT=0;+CGATT=1;^SYSINFO", {"^SYSINFO:0,0,0,0,1,,0", "OK"}},
        {"lte", "AT+CGATT=2", {"ERROR"}},
        {"cdma", "AT+CGATT?", {kNo}},
        {"cdma", "AT^PREFMODE?", {"^PREFMODE:8", "OK"}},
        {"cdma", "AT^PREFMODE=?", {"^PREFMODE:(2,4,8)", "OK"}},
        {"cdma", "AT^PREFMODE=4;^PREFMODE?", {"^PREFMODE:4", "OK"}},
        {"cdma", "AT^PREFMODE=3", {"ERROR"}},
        {"cdma", "AT^EVDOREV?", {"^EVDOREV: 0", "OK"}},
        {"cdma", "AT^EVDOREV=2;^EVDOREV?", {"^EVDOREV: 2", "OK"}},
        {"cdma", "AT+CMEE=1;^EVDOREV=3", {"+CME ERROR: 50"}},
        {"cdma", "AT^SNAM?", {"^SNAM: 0", "OK"}},
        {"cdma", "AT^SNAM=1;^SNAM?", {"^SNAM: 1", "OK"}},
        {"cdma", "AT^REG=1234567890", {"OK"}},
        {"cdma", "AT^REG=\"460030912121001\"", {"OK"}},
        {"cdma", "AT+CMEE=2;^REG=12345678a0", {"+CME ERROR: Incorrect parameters"}},
        {"cdma", "AT^PRLVER?", {"^PRLVER: \"10012\"", "OK"}},
        {"cdma", "AT^KTFSIMTYPE?", {"^KTFSIMTYPE: 1", "OK"}},
        {"cdma", "AT^CURRSID?", {"^CURRSID: 13824,65535,\"0A1B2C3D\"", "OK"}},
        {"lte", "AT^PREFMODE?", {kNo}},
        {"wcdma", "AT^REG=1234567890", {kNo}},
        {"lte", "AT^HSDPA?", {"^HSDPA: 1", "OK"}},
        {"wcdma", "AT^HSUPA=0;^HSUPA?;^HSDPA?", {"^HSUPA: 0", "^HSDPA: 1", "OK"}},
        {"lte", "AT+CMEE=1;^HSDPA=2", {"+CME ERROR: 50"}},
    });
    // ^REG keeps the MIN it took, and keeps it through a refused one. A 3GPP
    // modem whose list forgets a CDMA command has no section to answer from.
    Profile profile = Shipped("cdma");
    ModemState state = profile.initial;
    Ask(profile, state, "AT^REG=\"460030912121001\";^REG=123");
    EXPECT_EQ(state.cdma->registeredMin, "460030912121001");
    profile = Shipped("lte");
    profile.unsupported.clear();
    state = profile.initial;
    EXPECT_EQ(Ask(profile, state, "AT^PRLVER?"), Framed({kNo}));

    // A modem with the packet domain alone has none left after a detach.
    const Profile lte = Shipped("lte");
    ModemState psOnly = lte.initial;
    psOnly.network.serviceDomain = 2;
    EXPECT_EQ(Ask(lte, psOnly, "AT+CGATT=0;^SYSINFO"), Framed({"^SYSINFO:2,0,0,17,1", "OK"}));
}

TEST(ModemSimSignalTest, ReportsAreBuiltFromTheState)
{
    // The shipped profiles' own reports show in their timelines, below.
    // A hybrid modem reports each radio in use.
    ModemState state = Shipped("lte").initial;
    state.signal.hcsq = {{"CDMA", {40, 20}}, {"EVDO", {35, 18, 120}}};
    state.sim.refreshFileType = 3;
    EXPECT_EQ(modemsim::RenderReport(ReportKind::Hcsq, state),
              (std::vector<std::string>{"^HCSQ:\"CDMA\",40,20", "^HCSQ:\"EVDO\",35,18,120"}));

    // Registration reports say as much as the mode AT+CREG=<n> stored asks;
    // the cause of a rejection keeps its place behind fields not known.
    const struct {
        modemsim::RegistrationInfo domain;   // mode, stat, lac, ci, act, cause type, cause
        std::vector<std::string> report;
    } registrations[] = {
        {{2, 1, "CE00", "01CEAD8F", 7, {}, {}}, {"+CEREG: 1,\"CE00\",\"01CEAD8F\",7"}},
        {{2, 1, "", "", 7, {}, {}}, {"+CEREG: 1"}},
        {{1, 1, "CE00", "01CEAD8F", 7, {}, {}}, {"+CEREG: 1"}},
        {{0, 1, "CE00", "01CEAD8F", 7, {}, {}}, {}},
        {{3, 3, "CE00", "01CEAD8F", 7, 0, 15}, {"+CEREG: 3,\"CE00\",\"01CEAD8F\",7,0,15"}},
        {{3, 3, "CE00", "01CEAD8F", {}, 0, 15}, {"+CEREG: 3,\"CE00\",\"01CEAD8F\",,0,15"}},
        {{3, 0, "", "", 7, 0, 15}, {"+CEREG: 0,,,,0,15"}},
    };
    for (const auto& row : registrations) {
        ModemState reg = state;
        reg.network.cereg = row.domain;
        EXPECT_EQ(modemsim::RenderReport(ReportKind::Cereg, reg), row.report)
            << (row.report.empty() ? "none" : row.report.front());
    }
    EXPECT_EQ(modemsim::RenderReport(ReportKind::SimRefresh, state),
              std::vector<std::string>{"^SIMREFRESH:3"});
    state.network.serviceStatus = 4;
    EXPECT_EQ(modemsim::RenderReport(ReportKind::Hcsq, state),
              std::vector<std::string>{"^HCSQ:\"NOSERVICE\""});

    // TD-SCDMA steps (-116 dBm + 1 dB) on the +CSQ scale (-113 dBm + 2 dB).
    const struct {
        int32_t csq;
        int32_t rssi;
    } scale[] = {{104, 0}, {105, 1}, {140, 18}, {165, 31}, {191, 31}, {199, 99}, {99, 99}};
    for (const auto& row : scale) {
        EXPECT_EQ(modemsim::CsqScaleRssi(row.csq), row.rssi) << row.csq;
    }

    // Every name a profile may give has a report.
    for (const auto& choice : modemsim::ReportChoices()) {
        const std::vector<std::string> lines = modemsim::RenderReport(choice.second, state);
        ASSERT_FALSE(lines.empty()) << choice.first;
        EXPECT_EQ(lines.front().substr(0, lines.front().find(':')), choice.first);
    }
}

TEST(ModemSimSignalTest, ShippedTimelinesReportEarlyThenPeriodically)
{
    const struct {
        const char* profile;
        std::vector<std::string> reports;   // in timeline order, from the initial state
    } rows[] = {
        {"lte", {"^RSSI:22", "^HCSQ:\"LTE\",52,46,191,22", "+CREG: 1,\"CE00\",\"01CEAD8F\""}},
        {"wcdma", {"^RSSI:17", "^ANLEVEL:-88,-9,17,3", "^MODE:5,9",
                   "+CREG: 1,\"84CD\",\"00D30156\""}},
        // The TD-SCDMA +CSQ reading 140 (-76 dBm) is step 18 of ^RSSI's scale.
        {"tdscdma", {"^RSSI:18", "^MODE:15,7", "+CREG: 1,\"18D8\",\"2A7B\""}},
        {"cdma", {"^RSSILVL:60", "^HRSSILVL:60", "^MODE:8", "^SRVST:2"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.profile);
        const Profile profile = Shipped(row.profile);
        std::vector<std::string> reports;
        for (const modemsim::TimelineEvent& event : profile.timeline) {
            ASSERT_TRUE(event.report);
            EXPECT_GE(event.atMs, 1000u);
            EXPECT_LE(event.atMs, 3000u);
            EXPECT_GE(event.repeatMs, 10000u);
            EXPECT_LE(event.repeatMs, 30000u);
            for (const std::string& line : modemsim::RenderReport(*event.report, profile.initial)) {
                reports.push_back(line);
            }
        }
        EXPECT_EQ(reports, row.reports);
    }
}

TEST(ModemSimSignalTest, ReportNamesAreCheckedWhenTheProfileIsRead)
{
    std::string text;
    ASSERT_TRUE(modemsim::BuiltInProfileText("wcdma", &text));
    nlohmann::json document = nlohmann::json::parse(text);
    Profile profile;
    std::string error;

    document["timeline"][1] = {{"at_ms", 5}, {"report", "^RSSIX"}};
    EXPECT_FALSE(modemsim::ParseProfile(document.dump(), "t.json", &profile, &error));
    EXPECT_EQ(error, "t.json: timeline[1].report: invalid value \"^RSSIX\": expected one of "
                     "^RSSI, ^RSSILVL, ^HRSSILVL, ^ANLEVEL, ^SRVST, ^MODE, +CREG, +CGREG, +CEREG, "
                     "^HCSQ, "
                     "^SIMREFRESH, ^PNNFILEREFRESH");

    document["timeline"][1] = {{"at_ms", 5}, {"report", "^SIMREFRESH"}};
    document["sim"]["refresh_file_type"] = 256;
    EXPECT_FALSE(modemsim::ParseProfile(document.dump(), "t.json", &profile, &error));
    EXPECT_EQ(error, "t.json: sim.refresh_file_type: out of range: 256 is not within 0..255");

    document["sim"]["refresh_file_type"] = 2;
    ASSERT_TRUE(modemsim::ParseProfile(document.dump(), "t.json", &profile, &error)) << error;
    EXPECT_EQ(profile.timeline[1].report, ReportKind::SimRefresh);
    EXPECT_EQ(profile.initial.sim.refreshFileType, 2);
}

TEST(ModemSimSignalTest, SetReachesEverySignalAndModeField)
{
    const Profile profile = Shipped("lte");
    ModemState state = profile.initial;
    // Every signal and mode field, each to a value that differs from the profile's.
    const nlohmann::json patch = nlohmann::json::parse(R"({
        "network": { "mode": { "sys_mode": 3, "sys_mode_name": "WCDMA", "sub_mode": 41,
                    "sub_mode_name": "WCDMA", "sysinfo_sys_mode": 5, "sysinfo_sub_mode": 4 } },
        "signal": { "csq": { "rssi": 9, "ber": 2 },
          "hcsq": [ { "sysmode": "WCDMA", "values": [26, 29, 51] } ],
          "csnr": { "rscp": -92, "ecio": -7 },
          "antenna": { "rscp": -92, "ecio": -7, "rssi": 9, "level": 2 },
          "lte_rsrp": { "rsrp": -140, "rsrq": -20 },
          "lte_scinfo": { "pci": 7, "dlsinr": -3, "numant": 1, "dlbw": 2 },
          "cdma_csq": { "rssi": 20, "ber": 1 }, "hdr_rssi": 40 } })");
    std::string error;
    ASSERT_TRUE(modemsim::ApplyStatePatch(&state, patch.dump(), "set", &error)) << error;
    const nlohmann::json written = modemsim::StateToJson(state);
    EXPECT_EQ(written["signal"], patch["signal"]);
    EXPECT_EQ(written["network"]["mode"], patch["network"]["mode"]);
    EXPECT_EQ(Ask(profile, state, "AT^SYSINFO;^HCSQ?"),
              Framed({"^SYSINFO:2,3,0,5,1,,4", "^HCSQ: \"WCDMA\",26,29,51", "OK"}));

    // Removing the optional sub-mode takes the field out of the answer again.
    ASSERT_TRUE(modemsim::ApplyStatePatch(
        &state, R"({"network": {"mode": {"sysinfo_sub_mode": null}}})", "set", &error));
    EXPECT_EQ(Ask(profile, state, "AT^SYSINFO"), Framed({"^SYSINFO:2,3,0,5,1", "OK"}));
}

// Reads from fd until text ends with `end` or the time is up.
std::string ReadUntil(int fd, const std::string& end, int timeoutMs)
{
    std::string text;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    while (text.size() < end.size() || text.compare(text.size() - end.size(), end.size(), end)) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
                              deadline - std::chrono::steady_clock::now())
                              .count();
        pollfd item = {fd, POLLIN, 0};
        char byte;
        if (left <= 0 || poll(&item, 1, static_cast<int>(left)) <= 0 || read(fd, &byte, 1) != 1) {
            break;
        }
        text += byte;
    }
    return text;
}

TEST(ModemSimSignalTest, PtyTimelineChangesThenReportsTheNewValue)
{
    Profile profile = Shipped("lte");
    profile.initial.echo = false;
    modemsim::TimelineEvent change;
    change.atMs = 50;
    change.setPatch = R"({"signal": {"csq": {"rssi": 5}}})";
    modemsim::TimelineEvent report;
    report.atMs = 50;
    report.report = ReportKind::Rssi;
    profile.timeline = {change, report};

    modemsim::Simulator simulator(profile);
    std::string error;
    ASSERT_TRUE(simulator.Start(&error)) << error;
    const int fd = open(simulator.SlavePath().c_str(), O_RDWR | O_NOCTTY);
    ASSERT_GE(fd, 0);
    // Due together, they run in profile order: the report carries the change.
    EXPECT_EQ(ReadUntil(fd, "^RSSI:5\r\n", 3000), "\r\n^RSSI:5\r\n");
    ASSERT_EQ(write(fd, "AT+CSQ\r", 7), 7);
    EXPECT_EQ(ReadUntil(fd, "OK\r\n", 3000), "\r\n+CSQ: 5,99\r\n\r\nOK\r\n");
    close(fd);
}

}  // namespace
