// The simulated modem: the pure engine (command-line syntax, answers, framing,
// delays, the timeline clock) as tables, then the simulator itself through its
// pseudo-terminal with plain reads and writes, as a host would talk to it.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cctype>
#include <chrono>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "CommandTable.h"
#include "Garbage.h"
#include "InputFramer.h"
#include "ModemEngine.h"
#include "ModemSimulator.h"
#include "NetSrvAtCommonds.h"
#include "ResponseFill.h"
#include "TempDir.h"
#include "Timeline.h"
#include "WaitUntil.h"

namespace {

using modemsim::AtForm;
using modemsim::Profile;
using Clock = std::chrono::steady_clock;

Profile BuiltIn(const std::string& name)
{
    Profile profile;
    std::string error;
    EXPECT_TRUE(modemsim::LoadProfile(name, &profile, &error)) << error;
    // The shipped timelines report every few seconds; these tests set their own.
    profile.timeline.clear();
    return profile;
}

// ---- pure engine ----------------------------------------------------------

TEST(ModemSimEngineTest, CommandLineSyntax)
{
    const struct {
        const char* line;
        bool bValid;
        std::vector<std::string> requests;   // name + form suffix + args
    } rows[] = {
        {"AT", true, {}},
        {"at", true, {}},
        {"ATE0", true, {"E=0"}},
        {"ATE", true, {"E="}},
        {"ATE1V1", true, {"E=1", "V=1"}},
        {"AT&F", true, {"&F="}},
        {"AT+GCAP", true, {"+GCAP"}},
        {"at^syscfg?", true, {"^SYSCFG?"}},
        {"AT^SYSCFG=?", true, {"^SYSCFG=?"}},
        {"AT^GLASTERR=1", true, {"^GLASTERR=1"}},
        {"AT+COPS=1,2,\"46000\"", true, {"+COPS=1,2,\"46000\""}},
        {"AT+COPS=3,2;+COPS?", true, {"+COPS=3,2", "+COPS?"}},
        {"AT+CPOL=1,2,\"a;b\";+CSQ", true, {"+CPOL=1,2,\"a;b\"", "+CSQ"}},
        {"ATE0+CMEE=1", true, {"E=0", "+CMEE=1"}},
        {"hello", false, {}},
        {"A", false, {}},
        {"AT+", false, {}},
        {"AT+CSQ junk", false, {}},
        {"AT+CMEE=\"1", false, {}},
        {"AT#X", false, {}},
        {"AT\x01", false, {}},
        {"AT+GCAP\xff", false, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        auto requests = modemsim::ParseCommandLine(row.line);
        ASSERT_EQ(requests.has_value(), row.bValid);
        if (!requests) {
            continue;
        }
        std::vector<std::string> shown;
        for (const modemsim::AtRequest& request : *requests) {
            shown.push_back(request.name + modemsim::FormSuffix(request.form) + request.args);
        }
        EXPECT_EQ(shown, row.requests);
    }

    EXPECT_EQ(modemsim::SplitArgs(" 1 , \"a,b\" ,"), (std::vector<std::string>{"1", "a,b", ""}));
    EXPECT_TRUE(modemsim::SplitArgs("  ").empty());
    EXPECT_EQ(modemsim::ParseNumberArg("2", 0, 2), 2);
    EXPECT_FALSE(modemsim::ParseNumberArg("3", 0, 2));
    EXPECT_FALSE(modemsim::ParseNumberArg("-1", -5, 5));
    EXPECT_FALSE(modemsim::ParseNumberArg("99999999999", 0, 2147483647));
}

struct ExchangeRow {
    const char* profile;
    const char* line;
    const char* answer;   // the framed answer, without the echo
};

TEST(ModemSimEngineTest, AnswersToOneCommandLine)
{
    const ExchangeRow rows[] = {
        {"lte", "AT", "\r\nOK\r\n"},
        {"lte", "AT+GCAP", "\r\n+GCAP: +CGSM,+DS,+ES\r\n\r\nOK\r\n"},
        {"lte", "at+gcap", "\r\n+GCAP: +CGSM,+DS,+ES\r\n\r\nOK\r\n"},
        {"cdma", "AT+GCAP", "\r\n+GCAP: +CIS707,+DS,+ES\r\n\r\nOK\r\n"},
        {"lte", "AT^GLASTERR=1", "\r\n^GLASTERR: 1,33\r\n\r\nOK\r\n"},
        {"lte", "AT^GLASTERR=2", "\r\n^GLASTERR: 2,0\r\n\r\nOK\r\n"},
        {"lte", "AT^GLASTERR=", "\r\nERROR\r\n"},
        {"lte", "AT+CMEE=1;^GLASTERR=x", "\r\n+CME ERROR: 50\r\n"},
        {"lte", "AT+CMEE=2;^GLASTERR=1,2", "\r\n+CME ERROR: Incorrect parameters\r\n"},
        {"lte", "AT+CMEE=3", "\r\nERROR\r\n"},
        {"lte", "AT+CMEE?", "\r\n+CMEE: 0\r\n\r\nOK\r\n"},
        {"lte", "AT+CMEE=1;+CMEE?;+GCAP",
         "\r\n+CMEE: 1\r\n\r\n+GCAP: +CGSM,+DS,+ES\r\n\r\nOK\r\n"},
        {"lte", "AT+CMEE=?", "\r\n+CMEE: (0-2)\r\n\r\nOK\r\n"},
        {"lte", "AT^SYSCFG?", "\r\n^SYSCFG: 2,0,3FFFFFFF,1,2\r\n\r\nOK\r\n"},
        {"wcdma", "AT^SYSCFG?", "\r\n^SYSCFG: 2,2,400000,0,3\r\n\r\nOK\r\n"},
        {"tdscdma", "AT^SYSCFG?", "\r\nCOMMAND NOT SUPPORT\r\n"},
        {"lte", "AT^SYSCFGEX?",
         "\r\n^SYSCFGEX: \"00\",3FFFFFFF,1,2,7FFFFFFFFFFFFFFF\r\n\r\nOK\r\n"},
        {"tdscdma", "AT^SYSCONFIG?", "\r\n^SYSCONFIG: 2,0,1,2\r\n\r\nOK\r\n"},
        {"tdscdma", "AT^SYSCONFIG=?", "\r\n^SYSCONFIG: (2,13,15),(0-2),(0-2),(0-3)\r\n\r\nOK\r\n"},
        {"lte", "AT^SYSCONFIG?", "\r\nCOMMAND NOT SUPPORT\r\n"},
        {"cdma", "AT^SYSCFG?", "\r\nCOMMAND NOT SUPPORT\r\n"},
        // A command no modem of this family knows, and one the line lacks a
        // handler for in the middle of a line: the rest is not run.
        {"lte", "AT+XYZZY", "\r\nCOMMAND NOT SUPPORT\r\n"},
        {"lte", "AT+XYZZY;+GCAP", "\r\nCOMMAND NOT SUPPORT\r\n"},
        {"lte", "AT+GCAP=?", "\r\nCOMMAND NOT SUPPORT\r\n"},
        {"lte", "hello", "\r\nERROR\r\n"},
        {"lte", "AT+CMEE=\"1", "\r\nERROR\r\n"},
    };
    for (const ExchangeRow& row : rows) {
        SCOPED_TRACE(std::string(row.profile) + " " + row.line);
        const Profile profile = BuiltIn(row.profile);
        modemsim::ModemState state = profile.initial;
        const modemsim::Answer answer = modemsim::AnswerCommandLine(profile, state, row.line);
        EXPECT_EQ(answer.text, row.answer);
        EXPECT_EQ(answer.echo, std::string(row.line) + "\r");
    }
}

// The first information line of the answer, after its "NAME:", split by the
// real processor and filled into the service's response as it fills it.
template <typename Response>
Response FilledByTheProcessor(const std::string& profileName, const std::string& line)
{
    const Profile profile = BuiltIn(profileName);
    modemsim::ModemState state = profile.initial;
    const std::string text = modemsim::AnswerCommandLine(profile, state, line).text;
    const std::size_t colon = text.find(':');
    Response rsp;   // left empty, and so failing the checks, without an information line
    if (colon != std::string::npos) {
        const std::size_t end = text.find("\r\n", colon);
        host::FillResponse(rsp, host::InfoFields(text.substr(colon + 1, end - colon - 1), false));
    }
    return rsp;
}

TEST(ModemSimEngineTest, AnswersFillTheServiceResponsesThroughTheProcessor)
{
    // Quoted location and subnet arrive as bare text, the numbers around them intact.
    auto cereg = FilledByTheProcessor<QueryLTEPSRegStateRsp>("lte", "AT+CEREG?");
    EXPECT_EQ(cereg.LacCode.ToString(), "CE00");
    EXPECT_EQ(cereg.CellID.ToString(), "01CEAD8F");
    EXPECT_EQ(cereg.ActType.GetNumValue(), 7u);
    auto sid = FilledByTheProcessor<ReadCurrNetworkIDRsp>("cdma", "AT^CURRSID?");
    EXPECT_EQ(sid.SubNetID.ToString(), "0A1B2C3D");
    EXPECT_EQ(FilledByTheProcessor<PrlVerReadRsp>("cdma", "AT^PRLVER?").ver.ToString(), "10012");
}

TEST(ModemSimEngineTest, EchoErrorModeAndTheUnsupportedList)
{
    Profile profile = BuiltIn("lte");
    modemsim::ModemState state = profile.initial;
    // The line that turns echo off is still echoed; the next is not.
    EXPECT_EQ(modemsim::AnswerCommandLine(profile, state, "ATE0").echo, "ATE0\r");
    EXPECT_EQ(modemsim::AnswerCommandLine(profile, state, "AT").echo, "");
    EXPECT_EQ(modemsim::AnswerCommandLine(profile, state, "ATE1").echo, "");
    EXPECT_EQ(modemsim::AnswerCommandLine(profile, state, "AT").echo, "AT\r");
    EXPECT_EQ(modemsim::AnswerCommandLine(profile, state, "ATE2").text, "\r\nERROR\r\n");

    // An over-long line is an error whatever it says.
    EXPECT_EQ(modemsim::AnswerCommandLine(profile, state, "AT+GCAP", true).text, "\r\nERROR\r\n");

    // The profile's list wins over the simulator's own handler.
    profile.unsupported.insert("+GCAP");
    EXPECT_EQ(modemsim::AnswerCommandLine(profile, state, "AT+GCAP").text,
              "\r\nCOMMAND NOT SUPPORT\r\n");

    // The state, not the profile, decides: a section removed at run time
    // takes the command with it.
    state.configuration.syscfg.reset();
    EXPECT_EQ(modemsim::AnswerCommandLine(profile, state, "AT^SYSCFG=?").text,
              "\r\nCOMMAND NOT SUPPORT\r\n");
    state.lastErrors = {{3, 7}};
    EXPECT_EQ(modemsim::AnswerCommandLine(profile, state, "AT^GLASTERR=3").text,
              "\r\n^GLASTERR: 3,7\r\n\r\nOK\r\n");
}

TEST(ModemSimEngineTest, DelaysByFormThenNameThenDefault)
{
    Profile profile = BuiltIn("lte");
    profile.delays.defaultMs = 5;
    profile.delays.commands = {{"^SYSCFG?", 40}, {"^SYSCFG", 20}, {"+CMEE=", 7}};
    modemsim::ModemState state = profile.initial;
    EXPECT_EQ(modemsim::AnswerCommandLine(profile, state, "AT^SYSCFG?").delayMs, 40u);
    EXPECT_EQ(modemsim::AnswerCommandLine(profile, state, "AT^SYSCFG=?").delayMs, 20u);
    EXPECT_EQ(modemsim::AnswerCommandLine(profile, state, "AT+GCAP").delayMs, 5u);
    EXPECT_EQ(modemsim::AnswerCommandLine(profile, state, "AT").delayMs, 5u);
    EXPECT_EQ(modemsim::AnswerCommandLine(profile, state, "AT+CMEE=0;^SYSCFG?").delayMs, 47u);
    // A command the modem lacks is refused at once, whatever its delay says.
    profile.unsupported.insert("^SYSCFG");
    EXPECT_EQ(modemsim::AnswerCommandLine(profile, state, "AT^SYSCFG?").delayMs, 5u);
}

TEST(ModemSimEngineTest, CommandSetCoversTheServiceCommandTable)
{
    // Every AT name of the network service's table can be named in a profile.
    for (unsigned long i = 1; i < INDEX_COUNT; ++i) {
        EXPECT_TRUE(modemsim::IsKnownAtName(_AtCmdSetTable[i].name)) << _AtCmdSetTable[i].name;
    }
    // Every handler row belongs to a known name (or a basic command) and is
    // reachable: no two rows for one name and form.
    const auto& rows = modemsim::CommandRows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::string name = rows[i].name;
        EXPECT_TRUE(modemsim::IsKnownAtName(name) || (name.size() == 1 && isalpha(name[0])))
            << name;
        EXPECT_EQ(modemsim::FindHandler(name, rows[i].form), rows[i].handler) << name;
    }
}

TEST(ModemSimEngineTest, InputFramingIsTheSameHoweverTheBytesArrive)
{
    const std::string input = "ATE0\r\r\nAT+GCAP\rat^syscfg?\n\nAT";
    const std::vector<std::string> expected = {"ATE0", "AT+GCAP", "at^syscfg?"};
    for (std::size_t cut = 0; cut <= input.size(); ++cut) {
        modemsim::InputFramer framer;
        std::vector<std::string> lines;
        for (auto& line : framer.Feed(input.substr(0, cut))) {
            lines.push_back(line.text);
        }
        for (auto& line : framer.Feed(input.substr(cut))) {
            lines.push_back(line.text);
        }
        EXPECT_EQ(lines, expected) << "cut at " << cut;
    }
    modemsim::InputFramer framer;
    std::vector<std::string> oneByOne;
    for (char ch : input + "\r") {
        for (auto& line : framer.Feed(std::string(1, ch))) {
            oneByOne.push_back(line.text);
        }
    }
    EXPECT_EQ(oneByOne.back(), "AT");

    // An over-long line is cut, flagged and its tail dropped; the next is whole.
    auto lines = framer.Feed(std::string(5000, 'A') + "\rAT\r");
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_TRUE(lines[0].bOverlong);
    EXPECT_EQ(lines[0].text.size(), modemsim::kMaxCommandLine);
    EXPECT_FALSE(lines[1].bOverlong);
    EXPECT_EQ(lines[1].text, "AT");
}

TEST(ModemSimEngineTest, TimelineClockOrdersAndRepeats)
{
    std::vector<modemsim::TimelineEvent> events(3);
    events[0].atMs = 100;
    events[1].atMs = 50;
    events[1].repeatMs = 30;
    events[2].atMs = 100;
    modemsim::TimelineClock clock(events);
    EXPECT_EQ(clock.NextDueMs(), 50u);
    EXPECT_TRUE(clock.TakeDue(49).empty());
    EXPECT_EQ(clock.TakeDue(50), (std::vector<std::size_t>{1}));
    EXPECT_EQ(clock.NextDueMs(), 80u);
    // Late: the repeat fires once, ties keep profile order.
    EXPECT_EQ(clock.TakeDue(175), (std::vector<std::size_t>{1, 0, 2}));
    EXPECT_EQ(clock.NextDueMs(), 200u);
    EXPECT_TRUE(clock.TakeDue(199).empty());

    EXPECT_FALSE(modemsim::TimelineClock(std::vector<modemsim::TimelineEvent>{}).NextDueMs());
}

TEST(ModemSimEngineTest, GarbageIsFramedJunk)
{
    const std::string junk = modemsim::MakeGarbage(1);
    EXPECT_EQ(junk, modemsim::MakeGarbage(1));
    EXPECT_NE(junk, modemsim::MakeGarbage(2));
    ASSERT_GE(junk.size(), 5u);
    EXPECT_EQ(junk.substr(0, 2), "\r\n");
    EXPECT_EQ(junk.substr(junk.size() - 2), "\r\n");
    // Junk never reads as a command's answer.
    EXPECT_EQ(junk.find("\r\nOK\r\n"), std::string::npos);
}

// ---- through the pseudo-terminal ----------------------------------------

class Port {
public:
    explicit Port(const std::string& path) : m_fd(open(path.c_str(), O_RDWR | O_NOCTTY)) {}
    ~Port()
    {
        if (m_fd >= 0) {
            close(m_fd);
        }
    }
    bool IsOpen() const { return m_fd >= 0; }

    void Write(const std::string& text)
    {
        ASSERT_EQ(write(m_fd, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }

    // Everything up to and including the first `end`, or what came when the
    // time is up. What follows `end` waits for the next read.
    std::string ReadUntil(const std::string& end, int timeoutMs = 3000)
    {
        ReadWhile(timeoutMs, [&] { return m_buffer.find(end) == std::string::npos; });
        const std::size_t found = m_buffer.find(end);
        const std::size_t length = found == std::string::npos ? m_buffer.size()
                                                              : found + end.size();
        std::string received = m_buffer.substr(0, length);
        m_buffer.erase(0, length);
        return received;
    }

    // Everything that arrives within the time.
    std::string ReadFor(int ms)
    {
        ReadWhile(ms, [] { return true; });
        std::string received;
        received.swap(m_buffer);
        return received;
    }

    // True when the port reports a hang-up or fails to read (the modem is gone).
    bool HungUp(int timeoutMs)
    {
        pollfd fd = {m_fd, POLLIN, 0};
        if (poll(&fd, 1, timeoutMs) <= 0) {
            return false;
        }
        char byte;
        return (fd.revents & (POLLHUP | POLLERR)) != 0 || read(m_fd, &byte, 1) <= 0;
    }

private:
    template <class Condition>
    void ReadWhile(int timeoutMs, Condition more)
    {
        const Clock::time_point deadline = Clock::now() + std::chrono::milliseconds(timeoutMs);
        while (more()) {
            const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
                                  deadline - Clock::now())
                                  .count();
            if (left <= 0 || !ReadSome(static_cast<int>(left))) {
                return;
            }
        }
    }

    bool ReadSome(int timeoutMs)
    {
        pollfd fd = {m_fd, POLLIN, 0};
        if (poll(&fd, 1, timeoutMs) <= 0 || (fd.revents & POLLIN) == 0) {
            return false;
        }
        char buffer[512];
        const ssize_t n = read(m_fd, buffer, sizeof buffer);
        if (n <= 0) {
            return false;
        }
        m_buffer.append(buffer, static_cast<std::size_t>(n));
        return true;
    }

    int m_fd;
    std::string m_buffer;
};

// Starts the simulator, its port behind the link when one is given.
::testing::AssertionResult Started(modemsim::Simulator& simulator, const std::string& link = "")
{
    std::string error;
    if (simulator.Start(&error, link)) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure() << error;
}

std::string LinkTarget(const std::string& link)
{
    char target[256];
    const ssize_t n = readlink(link.c_str(), target, sizeof target);
    return n > 0 ? std::string(target, static_cast<std::size_t>(n)) : std::string();
}

TEST(ModemSimEngineTest, PtyEchoOffThenCapabilities)
{
    modemsim::Simulator simulator(BuiltIn("lte"));
    ASSERT_TRUE(Started(simulator));
    Port port(simulator.SlavePath());
    ASSERT_TRUE(port.IsOpen());

    port.Write("ATE0\r");
    EXPECT_EQ(port.ReadUntil("OK\r\n"), "ATE0\r\r\nOK\r\n");
    port.Write("AT+GCAP\r");
    EXPECT_EQ(port.ReadUntil("OK\r\n"), "\r\n+GCAP: +CGSM,+DS,+ES\r\n\r\nOK\r\n");
    // Garbage from the host side is an error, and the modem goes on.
    port.Write(std::string("\x01\xff junk\r", 8));
    EXPECT_EQ(port.ReadUntil("ERROR\r\n"), "\r\nERROR\r\n");
    port.Write("AT\r");
    EXPECT_EQ(port.ReadUntil("OK\r\n"), "\r\nOK\r\n");
}

TEST(ModemSimEngineTest, PtyTimelineReportsAndChangesState)
{
    Profile profile = BuiltIn("lte");
    profile.initial.echo = false;
    modemsim::TimelineEvent report;
    report.atMs = 80;
    report.send = "^RSSI:25";
    modemsim::TimelineEvent change;
    change.atMs = 40;
    change.setPatch = R"({"configuration": {"syscfg": null}})";
    modemsim::TimelineEvent repeat;
    repeat.atMs = 200;
    repeat.repeatMs = 50;
    repeat.send = "^HRSSILVL:60";
    profile.timeline = {report, change, repeat};

    modemsim::Simulator simulator(profile);
    ASSERT_TRUE(Started(simulator));
    Port port(simulator.SlavePath());
    EXPECT_EQ(port.ReadUntil("^RSSI:25\r\n"), "\r\n^RSSI:25\r\n");
    // The change fell due before the report: the section the profile has
    // (and the other tests read) is gone.
    port.Write("AT^SYSCFG?\r");
    EXPECT_EQ(port.ReadUntil("SUPPORT\r\n"), "\r\nCOMMAND NOT SUPPORT\r\n");
    const std::string repeats = port.ReadUntil("\r\n^HRSSILVL:60\r\n\r\n^HRSSILVL:60\r\n");
    EXPECT_EQ(repeats, "\r\n^HRSSILVL:60\r\n\r\n^HRSSILVL:60\r\n");

    simulator.InjectReport("^SRVST: 0");
    EXPECT_EQ(port.ReadUntil("^SRVST: 0\r\n"), "\r\n^SRVST: 0\r\n");
}

TEST(ModemSimEngineTest, PtyDelayedAnswersKeepTheirOrder)
{
    Profile profile = BuiltIn("lte");
    profile.initial.echo = false;
    profile.delays.commands = {{"+GCAP", 300}};
    modemsim::Simulator simulator(profile);
    ASSERT_TRUE(Started(simulator));
    Port port(simulator.SlavePath());
    const Clock::time_point sent = Clock::now();
    port.Write("AT+GCAP\rAT+CMEE?\r");
    EXPECT_EQ(port.ReadUntil("OK\r\n"), "\r\n+GCAP: +CGSM,+DS,+ES\r\n\r\nOK\r\n");
    EXPECT_GE(Clock::now() - sent, std::chrono::milliseconds(300));
    EXPECT_EQ(port.ReadUntil("OK\r\n"), "\r\n+CMEE: 0\r\n\r\nOK\r\n");
}

TEST(ModemSimEngineTest, PtySilentAndGarbageSwitches)
{
    Profile profile = BuiltIn("lte");
    profile.initial.echo = false;
    modemsim::Simulator simulator(profile);
    ASSERT_TRUE(Started(simulator));
    Port port(simulator.SlavePath());

    simulator.SetSilent(true);
    port.Write("AT+GCAP\r");
    EXPECT_EQ(port.ReadFor(300), "");
    // Reports still go out while the modem ignores commands.
    simulator.InjectReport("^RSSI:3");
    EXPECT_EQ(port.ReadUntil("^RSSI:3\r\n"), "\r\n^RSSI:3\r\n");
    simulator.SetSilent(false);
    // The command sent while silent was dropped, not kept for later.
    port.Write("AT\r");
    EXPECT_EQ(port.ReadUntil("OK\r\n"), "\r\nOK\r\n");

    simulator.SendGarbage();
    const std::string junk = port.ReadFor(200);
    EXPECT_GE(junk.size(), 5u);
    port.Write("AT\r");
    EXPECT_EQ(port.ReadUntil("OK\r\n"), "\r\nOK\r\n");
}

TEST(ModemSimEngineTest, PtyVanishAndRestoreRepointTheLink)
{
    testkit::TempDir dir;
    const std::string link = dir / "modem";
    modemsim::Simulator simulator(BuiltIn("lte"));
    ASSERT_TRUE(Started(simulator, link));
    std::string error;
    const std::string first = simulator.SlavePath();
    EXPECT_EQ(LinkTarget(link), first);

    auto port = std::make_unique<Port>(link);
    ASSERT_TRUE(port->IsOpen());
    simulator.VanishPort();
    EXPECT_TRUE(port->HungUp(1000));
    EXPECT_EQ(simulator.SlavePath(), "");
    struct stat info {};
    EXPECT_NE(lstat(link.c_str(), &info), 0);
    EXPECT_FALSE(Port(link).IsOpen());
    port.reset();

    ASSERT_TRUE(simulator.RestorePort(&error)) << error;
    EXPECT_FALSE(simulator.SlavePath().empty());
    EXPECT_EQ(LinkTarget(link), simulator.SlavePath());
    Port again(link);
    ASSERT_TRUE(again.IsOpen());
    // A fresh port, and the modem as it was: echo still on.
    again.Write("AT\r");
    EXPECT_EQ(again.ReadUntil("OK\r\n"), "AT\r\r\nOK\r\n");
    EXPECT_TRUE(simulator.RestorePort(&error));   // nothing to restore

    simulator.Stop();
    EXPECT_NE(lstat(link.c_str(), &info), 0);
    EXPECT_FALSE(simulator.RestorePort(&error));
    EXPECT_EQ(error, "the simulator is not running");
    simulator.Stop();

    // A stopped simulator starts again from the profile.
    ASSERT_TRUE(Started(simulator, link));
    EXPECT_EQ(LinkTarget(link), simulator.SlavePath());
    Port restarted(link);
    restarted.Write("ATE0\r");
    EXPECT_EQ(restarted.ReadUntil("OK\r\n"), "ATE0\r\r\nOK\r\n");
}

TEST(ModemSimEngineTest, PtyTimelineFaultsVanishAndRestore)
{
    testkit::TempDir dir;
    const std::string link = dir / "modem";
    Profile profile = BuiltIn("lte");
    modemsim::TimelineEvent vanish;
    vanish.atMs = 300;
    vanish.fault = modemsim::FaultAction::Vanish;
    modemsim::TimelineEvent restore;
    restore.atMs = 600;
    restore.fault = modemsim::FaultAction::Restore;
    profile.timeline = {vanish, restore};
    modemsim::Simulator simulator(profile);
    ASSERT_TRUE(Started(simulator, link));
    {
        Port port(link);
        ASSERT_TRUE(port.IsOpen());
        EXPECT_TRUE(port.HungUp(2000));
        EXPECT_EQ(simulator.SlavePath(), "");
    }
    ASSERT_TRUE(testkit::WaitUntil([&] { return !simulator.SlavePath().empty(); },
                                   std::chrono::seconds(3)));
    EXPECT_EQ(LinkTarget(link), simulator.SlavePath());
    Port port(link);
    port.Write("AT\r");
    EXPECT_EQ(port.ReadUntil("OK\r\n"), "AT\r\r\nOK\r\n");
}

TEST(ModemSimEngineTest, StartRefusesToReplaceAFile)
{
    testkit::TempDir dir;
    const std::string link = dir / "modem";
    { std::ofstream(link) << "not a link"; }
    modemsim::Simulator simulator(BuiltIn("lte"));
    std::string error;
    EXPECT_FALSE(simulator.Start(&error, link));
    EXPECT_EQ(error, link + " exists and is not a symbolic link");
    EXPECT_EQ(simulator.SlavePath(), "");
}

TEST(ModemSimEngineTest, ApiIsSafeFromManyThreads)
{
    modemsim::Simulator simulator(BuiltIn("lte"));
    ASSERT_TRUE(Started(simulator));
    Port port(simulator.SlavePath());
    std::atomic<bool> bReading{true};
    std::thread reader([&] {
        while (bReading) {
            port.ReadFor(20);
        }
    });
    std::vector<std::thread> callers;
    for (int t = 0; t < 4; ++t) {
        callers.emplace_back([&simulator, t] {
            for (int i = 0; i < 50; ++i) {
                simulator.InjectReport("^RSSI:" + std::to_string(i));
                simulator.SetSilent(((i + t) % 2) == 0);
                if (i % 10 == 0) {
                    simulator.SendGarbage();
                }
                (void)simulator.SlavePath();
            }
        });
    }
    for (std::thread& caller : callers) {
        caller.join();
    }
    simulator.VanishPort();
    std::string restoreError;
    EXPECT_TRUE(simulator.RestorePort(&restoreError)) << restoreError;
    simulator.Stop();
    bReading = false;
    reader.join();
    // Calls after the stop are harmless.
    simulator.InjectReport("^RSSI:1");
    simulator.SendGarbage();
    simulator.VanishPort();
}

}  // namespace
