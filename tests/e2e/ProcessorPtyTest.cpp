// The real AT processor against a scripted modem on a pseudo-terminal: the
// bytes it writes for each form of command, how it reads answers, errors and
// reports, time-outs and late answers, a port that vanishes and comes back,
// and clients that call back into it.
//
// The command objects here are the test's own, built only on the interfaces
// (ICommand, PARAMETER): the processor must work with any command object.
#include <gtest/gtest.h>

#include <unistd.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "AtProcessor.h"
#include "ScriptedModem.h"
#include "TempDir.h"
#include "TraceSrv.h"
#include "jthread.h"

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;
using testkit::ScriptedModem;
using testkit::AnswerTable;

long ElapsedMs(Clock::time_point since)
{
    return static_cast<long>(
        std::chrono::duration_cast<milliseconds>(Clock::now() - since).count());
}

// ---- command objects -------------------------------------------------------

// A text field, kept exactly as the processor hands it over.
class TextParam : public PARAMETER {
public:
    long TypeId() override { return PARAM_ID_STRING; }
    std::string ToString() override { return std::string(m_data.RawData, m_data.nSize); }
    bool FromString(const std::string& text) override
    {
        if (text.size() >= PARAM_MAX_SIZE) {
            return false;
        }
        Empty();
        std::memcpy(m_data.RawData, text.data(), text.size());
        m_data.nSize = static_cast<uint32_t>(text.size());
        return true;
    }
    bool SetData(const void*, uint) override { return false; }
    bool GetData(void*, uint) override { return false; }
};

// The read (1) or test (32) operator that opens a command's parameter row.
template <unsigned long N>
class OperatorParam : public PARAMETER {
public:
    long TypeId() override { return PARAM_ID_OPERATOR; }
    uint64 GetNumValue() override { return N; }
    std::string ToString() override { return std::to_string(N); }
    bool FromString(const std::string&) override { return false; }
    bool SetData(const void*, uint) override { return false; }
    bool GetData(void*, uint) override { return false; }
};

static_assert(sizeof(TextParam) == sizeof(PARAMETER), "parameters are walked as an array");
static_assert(sizeof(OperatorParam<1>) == sizeof(PARAMETER), "parameters are walked as an array");

class NamedCommand : public ICommand {
public:
    NamedCommand(const char* name, unsigned long type) : m_name(name), m_type(type) {}
    unsigned long GetIndex() override { return 0; }
    const char* GetName() override { return m_name; }
    unsigned long GetType() override { return m_type; }

private:
    const char* m_name;
    unsigned long m_type;
};

// "AT<name>" (N = 0), "AT<name>?" (N = 1) or "AT<name>=?" (N = 32).
template <unsigned long N>
class FormCmd : public NamedCommand {
public:
    explicit FormCmd(const char* name, unsigned long type = AT_TYPE_NORMAL)
        : NamedCommand(name, type)
    {
    }
    unsigned long GetElemCount() override { return N != 0 ? 1 : 0; }
    ParamPtr GetFirstElemAddr() override { return N != 0 ? &m_op : nullptr; }

private:
    OperatorParam<N> m_op;
};
using BareCmd = FormCmd<0>;
using ReadCmd = FormCmd<OPERATOR_READ_CMD>;
using TestCmd = FormCmd<OPERATOR_TEST_CMD>;

// A set command, or a response: a row of text fields.
template <std::size_t COUNT>
class Fields : public NamedCommand {
public:
    explicit Fields(const char* name, unsigned long type = AT_TYPE_NORMAL,
                    const std::vector<std::string>& values = {})
        : NamedCommand(name, type)
    {
        for (std::size_t i = 0; i < values.size() && i < COUNT; ++i) {
            m_fields[i].FromString(values[i]);
        }
    }
    unsigned long GetElemCount() override { return COUNT; }
    ParamPtr GetFirstElemAddr() override { return &m_fields[0]; }
    std::vector<std::string> Values()
    {
        std::vector<std::string> out;
        for (TextParam& field : m_fields) {
            out.push_back(field.IsEmpty() ? "<empty>" : field.ToString());
        }
        return out;
    }

private:
    TextParam m_fields[COUNT];
};

// Several answer lines of one form.
template <std::size_t COUNT>
class MultiFields : public IMultiResponse {
public:
    explicit MultiFields(const char* name) : m_name(name) {}
    IResponse* AddRsp() override
    {
        m_lines.push_back(std::make_unique<Fields<COUNT>>(m_name));
        return m_lines.back().get();
    }
    unsigned long GetRspCount() override { return static_cast<unsigned long>(m_lines.size()); }
    IResponse* GetFirstRsp() override { return nullptr; }
    IResponse* GetNextRsp() override { return nullptr; }
    std::vector<std::vector<std::string>> Lines()
    {
        std::vector<std::vector<std::string>> out;
        for (auto& line : m_lines) {
            out.push_back(line->Values());
        }
        return out;
    }

private:
    const char* m_name;
    std::vector<std::unique_ptr<Fields<COUNT>>> m_lines;
};

// One command with a response of COUNT text fields, as the service runs it.
struct Outcome {
    bool ok = false;
    unsigned long error = 0;
    std::vector<std::string> fields;
};

template <std::size_t COUNT>
Outcome Ask(host::CAtProcessor& processor, ICommand&& cmd, unsigned long timeoutMs = 2000)
{
    Fields<COUNT> rsp(cmd.GetName(), cmd.GetType());
    Outcome out;
    out.ok = processor.ExecuteCmdWaitResponse(&cmd, &rsp, &out.error, timeoutMs);
    out.fields = rsp.Values();
    return out;
}

// One command without a response, as the service runs a setting.
Outcome Tell(host::CAtProcessor& processor, ICommand&& cmd, unsigned long timeoutMs = 2000)
{
    Outcome out;
    out.ok = processor.ExecuteCmdNoResponse(&cmd, &out.error, timeoutMs);
    return out;
}

Outcome AskSysinfo(host::CAtProcessor& processor, unsigned long timeoutMs = 2000)
{
    return Ask<7>(processor, BareCmd("^SYSINFO"), timeoutMs);
}

Outcome AskCsq(host::CAtProcessor& processor)
{
    return Ask<2>(processor, BareCmd("+CSQ"));
}

const std::vector<std::string> kSysinfo = {"2", "4", "5", "3", "1", "0", "6"};
const char* const kSysinfoAnswer = "\r\n^SYSINFO:2,4,5,3,1,0,6\r\n\r\nOK\r\n";
const char* const kCsqAnswer = "\r\n+CSQ: 17,99\r\n\r\nOK\r\n";
const std::vector<std::string> kCsq = {"17", "99"};
// The answer to a "^SYSINFO" that timed out, told apart from kSysinfoAnswer.
const char* const kLateSysinfoAnswer = "\r\n^SYSINFO:1,1,0,0,1,0,0\r\n\r\nOK\r\n";
const char* const kProbe = "AT+CMEE?\r";
const unsigned long kPortClosed = AT_ERROR_PORT_CLOSED;
const unsigned long kTimeout = AT_ERROR_TIMEOUT;

// A modem that answers "^SYSINFO" and "+CSQ", and ERROR to what it lacks.
std::string Answered(const std::string& line)
{
    static const ScriptedModem::Answer answer =
        AnswerTable({{"AT^SYSINFO", kSysinfoAnswer}, {"AT+CSQ", kCsqAnswer}});
    return answer(line);
}

// A modem that leaves the first "AT^SYSINFO" unanswered and hands every later
// line to `after`, telling it which line is the first since.
using AfterLoss = std::function<std::string(ScriptedModem& modem, const std::string& line,
                                            bool bFirst)>;
ScriptedModem::Answer LosesFirstSysinfo(ScriptedModem& modem, AfterLoss after)
{
    auto state = std::make_shared<std::atomic<int>>(0);   // 0 before, 1 lost, 2 after
    return [state, after, &modem](const std::string& line) -> std::string {
        int expected = 0;
        if (line == "AT^SYSINFO" && state->compare_exchange_strong(expected, 1)) {
            return "";
        }
        expected = 1;
        return after(modem, line, state->compare_exchange_strong(expected, 2));
    };
}

std::string AnsweredAfterLoss(ScriptedModem&, const std::string& line, bool)
{
    return Answered(line);
}

// Opens the processor on the modem and takes the greeting.
::testing::AssertionResult Opened(host::CAtProcessor& processor, ScriptedModem& modem)
{
    std::string error;
    if (modem.Path().empty() || !processor.Open(&error)) {
        return ::testing::AssertionFailure() << "cannot open " << modem.Path() << ": " << error;
    }
    modem.TakeReceived();
    return ::testing::AssertionSuccess();
}

// What arrives on other threads, in order, with a wait for it.
template <class T>
class Arrivals {
public:
    void Add(const T& item)
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_items.push_back(item);
        m_cv.notify_all();
    }
    bool WaitUntil(const std::function<bool(const std::vector<T>&)>& done, int timeoutMs)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        return m_cv.wait_for(lock, milliseconds(timeoutMs), [&] { return done(m_items); });
    }
    std::vector<T> All()
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_items;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_cv;
    std::vector<T> m_items;
};

// A client that records its reports, after running its hook on each.
class RecordingClient : public IAtCallBack {
public:
    explicit RecordingClient(std::function<void(const Command&)> hook = nullptr)
        : m_hook(std::move(hook))
    {
    }
    bool AtCallBackEvent(const Command& cmd) override
    {
        if (m_hook) {
            m_hook(cmd);
        }
        m_reports.Add(cmd);
        return true;
    }
    bool WaitForReports(std::size_t count, int timeoutMs)
    {
        return m_reports.WaitUntil(
            [count](const std::vector<Command>& got) { return got.size() >= count; }, timeoutMs);
    }
    std::vector<Command> Reports() { return m_reports.All(); }

private:
    const std::function<void(const Command&)> m_hook;
    Arrivals<Command> m_reports;
};

// Port listener calls, in order.
class PortEvents : public Arrivals<bool> {
public:
    std::function<void(bool)> Listener()
    {
        return [this](bool bOpen) { Add(bOpen); };
    }
    bool WaitFor(const std::vector<bool>& events, int timeoutMs)
    {
        return WaitUntil([&](const std::vector<bool>& got) { return got == events; }, timeoutMs);
    }
};

// Traces of the processor stay out of the test output.
class QuietTraces {
public:
    QuietTraces() { TraceSrv_SetSink([](int, const char*, const char*, void*) {}, nullptr); }
    ~QuietTraces() { TraceSrv_SetSink(nullptr, nullptr); }
};

class ProcessorPtyTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_modem = std::make_unique<ScriptedModem>();
        ASSERT_FALSE(m_modem->Path().empty());
    }

    std::unique_ptr<host::CAtProcessor> OpenProcessor(const std::string& path)
    {
        auto processor = std::make_unique<host::CAtProcessor>(path);
        processor->SetPortListener(m_ports.Listener());
        std::string error;
        EXPECT_TRUE(processor->Open(&error)) << error;
        EXPECT_TRUE(m_ports.WaitFor({true}, 2000));
        m_modem->TakeReceived();   // the greeting
        return processor;
    }

    QuietTraces m_quiet;
    PortEvents m_ports;
    std::unique_ptr<ScriptedModem> m_modem;
};

// ---- tests -------------------------------------------------------------------

TEST_F(ProcessorPtyTest, OpenGreetsTheModemAndRefusesAMissingPort)
{
    auto processor = std::make_unique<host::CAtProcessor>(m_modem->Path());
    ASSERT_FALSE(m_modem->LineIsRaw());
    std::string error;
    ASSERT_TRUE(processor->Open(&error)) << error;
    EXPECT_EQ("ATE0\rAT+CMEE=1\r", m_modem->TakeReceived());
    EXPECT_TRUE(processor->IsOpen());
    EXPECT_TRUE(m_modem->LineIsRaw());
    EXPECT_TRUE(m_modem->LineIsExclusive());
    processor->Close();
    EXPECT_FALSE(processor->IsOpen());
    // The settings found at open are back, and the port is free again.
    EXPECT_FALSE(m_modem->LineIsRaw());
    EXPECT_FALSE(m_modem->LineIsExclusive());

    host::CAtProcessor missing("/nonexistent/ttyUSB9");
    EXPECT_FALSE(missing.Open(&error));
    EXPECT_EQ("cannot open /nonexistent/ttyUSB9: No such file or directory", error);
    const Outcome never = AskSysinfo(missing);
    EXPECT_FALSE(never.ok);
    EXPECT_EQ(kPortClosed, never.error);
}

TEST_F(ProcessorPtyTest, EachFormGoesOutAsItsCommandLineAndItsAnswerComesBack)
{
    m_modem->SetAnswer(AnswerTable({
        {"AT^SYSCFG?", "\r\n^SYSCFG: 2,0,400000,0,3\r\n\r\nOK\r\n"},
        {"AT^SYSCFG=?",
         "\r\n^SYSCFG:(2,13,14,16),(0),((2000000400380,\"GSM900/GSM1800/WCDMA900/WCDMA2100\"),"
         "(3fffffff,\"All bands\")),(0-2),(0-4)\r\n\r\nOK\r\n"},
        {"AT^SYSINFO", "\r\n^SYSINFO:2,4,5,3,1,,\r\n\r\nOK\r\n"},
        {"AT+COPS?", "\r\n+COPS: 1,2,\"46000\"\r\n\r\nOK\r\n"},
        {"AT+COPS=1,2,\"46000\"", "\r\nOK\r\n"},
        {"AT+CRSM=176,28486,0,0,17",
         "\r\n+CRSM: 144, 0, \"0054485552415941FFFFFFFFFFFFFFFFFF\"\r\n\r\nOK\r\n"},
    }));
    auto processor = OpenProcessor(m_modem->Path());

    host::CAtProcessor& p = *processor;
    struct Row {
        const char* where;
        std::function<Outcome()> run;
        std::string written;
        std::vector<std::string> fields;
    };
    const std::vector<Row> rows = {
        {"read form", [&] { return Ask<5>(p, ReadCmd("^SYSCFG")); }, "AT^SYSCFG?\r",
         {"2", "0", "400000", "0", "3"}},
        {"test form: groups whole, their quotes kept", [&] { return Ask<5>(p, TestCmd("^SYSCFG")); },
         "AT^SYSCFG=?\r",
         {"(2,13,14,16)", "(0)",
          "((2000000400380,\"GSM900/GSM1800/WCDMA900/WCDMA2100\"),(3fffffff,\"All bands\"))",
          "(0-2)", "(0-4)"}},
        {"bare form, empty trailing fields", [&] { return AskSysinfo(p); }, "AT^SYSINFO\r",
         {"2", "4", "5", "3", "1", "<empty>", "<empty>"}},
        {"quoted field delivered without its quotes", [&] { return Ask<4>(p, ReadCmd("+COPS")); },
         "AT+COPS?\r", {"1", "2", "46000", "<empty>"}},
        {"set form with its texts as they stand, trailing empty fields dropped",
         [&] { return Tell(p, Fields<4>("+COPS", AT_TYPE_NORMAL, {"1", "2", "\"46000\""})); },
         "AT+COPS=1,2,\"46000\"\r", {}},
        {"blanks after commas and a quoted hex text",
         [&] {
             return Ask<3>(p, Fields<5>("+CRSM", AT_TYPE_NORMAL, {"176", "28486", "0", "0", "17"}));
         },
         "AT+CRSM=176,28486,0,0,17\r", {"144", "0", "0054485552415941FFFFFFFFFFFFFFFFFF"}},
    };
    for (const Row& row : rows) {
        const Outcome out = row.run();
        EXPECT_TRUE(out.ok) << row.where << ": error " << out.error;
        EXPECT_EQ(0u, out.error) << row.where << ": the error word is left alone on success";
        EXPECT_EQ(row.written, m_modem->TakeReceived()) << row.where;
        EXPECT_EQ(row.fields, out.fields) << row.where;
    }
}

TEST_F(ProcessorPtyTest, ModemErrorsBecomeTheirCodes)
{
    const std::vector<std::pair<std::string, unsigned long>> rows = {
        {"+CME ERROR: 30", 30},
        {"+CME ERROR: SIM not inserted", 10},
        {"COMMAND NOT SUPPORT", 4},
        {"TOO MANY PARAMETERS", 4},
        {"ERROR", 100},
        {"+CMS ERROR: 301", 301},
    };
    auto processor = OpenProcessor(m_modem->Path());
    for (const auto& row : rows) {
        m_modem->SetAnswer(AnswerTable({{"AT^SYSINFO", "\r\n" + row.first + "\r\n"}}));
        const Outcome out = AskSysinfo(*processor);
        EXPECT_FALSE(out.ok) << row.first;
        EXPECT_EQ(row.second, out.error) << row.first;
        EXPECT_EQ(static_cast<int>(row.second), processor->GetLastError()) << row.first;
    }
    // A command object that cannot go out on the line.
    const Outcome bad = Tell(*processor, Fields<2>("+COPS", AT_TYPE_NORMAL, {"1", "x\ry"}));
    EXPECT_FALSE(bad.ok);
    EXPECT_EQ(static_cast<unsigned long>(AT_ERROR_BAD_COMMAND), bad.error);
}

TEST_F(ProcessorPtyTest, RawDataAnswerIsTheBareLine)
{
    m_modem->SetAnswer(AnswerTable({{"AT+CIMI", "\r\n998899889988997\r\n\r\nOK\r\n"}}));
    auto processor = OpenProcessor(m_modem->Path());
    const Outcome imsi = Ask<1>(*processor, BareCmd("+CIMI", AT_TYPE_RAWDATA));
    ASSERT_TRUE(imsi.ok) << imsi.error;
    EXPECT_EQ(std::vector<std::string>{"998899889988997"}, imsi.fields);
    EXPECT_EQ("AT+CIMI\r", m_modem->TakeReceived());

    // A modem that kept its echo sends the command back first.
    m_modem->SetAnswer(AnswerTable({{"AT+CIMI", "AT+CIMI\r\r\n460001234567890\r\n\r\nOK\r\n"}}));
    const Outcome echoed = Ask<1>(*processor, BareCmd("+CIMI", AT_TYPE_RAWDATA));
    ASSERT_TRUE(echoed.ok) << echoed.error;
    EXPECT_EQ(std::vector<std::string>{"460001234567890"}, echoed.fields);
}

TEST_F(ProcessorPtyTest, ReportInsideAMultiLineAnswerGoesToItsSubscriber)
{
    m_modem->SetAnswer(AnswerTable({{"AT+CPOL?",
                                     "\r\n+CPOL: 1,2,\"24412\",0,0,0\r\n\r\n^RSSI: 12\r\n"
                                     "\r\n+CPOL: 2,2,\"24491\"\r\n\r\nOK\r\n"}}));
    auto processor = OpenProcessor(m_modem->Path());
    RecordingClient client;
    ASSERT_TRUE(processor->RegisterClient(
        "NetSrv", &client, {CmdSetItem(INDEX_RSSI_IND, "^RSSI", AT_TYPE_NORMAL)}));

    ReadCmd cmd("+CPOL");
    MultiFields<6> rsp("+CPOL");
    unsigned long dwError = 0;
    ASSERT_TRUE(processor->ExecuteCmdWaitMultiResponse(&cmd, &rsp, &dwError, 2000)) << dwError;
    const std::vector<std::vector<std::string>> lines = {
        {"1", "2", "24412", "0", "0", "0"},
        {"2", "2", "24491", "<empty>", "<empty>", "<empty>"},
    };
    EXPECT_EQ(lines, rsp.Lines());

    ASSERT_TRUE(client.WaitForReports(1, 2000));
    const Command report = client.Reports().front();
    EXPECT_EQ("^RSSI", report.name);
    EXPECT_EQ(static_cast<CmdIndex>(INDEX_RSSI_IND), report.index);
    EXPECT_EQ(static_cast<CmdType>(AT_TYPE_NORMAL), report.type);
    EXPECT_EQ(ParamList{"12"}, report.params);
    EXPECT_TRUE(processor->UnRegisterClient("NetSrv"));
}

TEST_F(ProcessorPtyTest, ReportsArriveInOrderAndOnlyToTheirSubscribers)
{
    auto processor = OpenProcessor(m_modem->Path());
    RecordingClient service;
    RecordingClient other;
    ASSERT_TRUE(processor->RegisterClient(
        "NetSrv", &service,
        {CmdSetItem(INDEX_RSSI_IND, "^RSSI", AT_TYPE_NORMAL),
         CmdSetItem(INDEX_SYS_MODE, "^MODE", AT_TYPE_UNSOLICITED),
         CmdSetItem(INDEX_NET_REGISTER, "+CREG", AT_TYPE_NORMAL)}));
    ASSERT_TRUE(processor->RegisterClient(
        "Other", &other, {CmdSetItem(INDEX_SYS_MODE, "^MODE", AT_TYPE_UNSOLICITED)}));

    m_modem->Send("\r\n^RSSI:17\r\n\r\n^BOOT:123,0\r\n\r\n^MODE:5,4\r\n"
                  "\r\n+CREG: 1,\"CE00\",\"00005449\"\r\n\r\n^RSSI: 20\r\n");
    ASSERT_TRUE(service.WaitForReports(4, 2000));
    ASSERT_TRUE(other.WaitForReports(1, 2000));
    const std::vector<Command> got = service.Reports();
    ASSERT_EQ(4u, got.size());
    EXPECT_EQ("^RSSI", got[0].name);
    EXPECT_EQ(ParamList{"17"}, got[0].params);
    EXPECT_EQ("^MODE", got[1].name);
    EXPECT_EQ(static_cast<CmdType>(AT_TYPE_UNSOLICITED), got[1].type);
    EXPECT_EQ((ParamList{"5", "4"}), got[1].params);
    EXPECT_EQ("+CREG", got[2].name);
    EXPECT_EQ((ParamList{"1", "CE00", "00005449"}), got[2].params);
    EXPECT_EQ(ParamList{"20"}, got[3].params);
    ASSERT_EQ(1u, other.Reports().size());
    EXPECT_EQ("^MODE", other.Reports()[0].name);

    // After unregistering, nothing more arrives.
    EXPECT_TRUE(processor->UnRegisterClient("Other"));
    EXPECT_FALSE(processor->UnRegisterClient("Other"));
    m_modem->Send("\r\n^MODE:3,2\r\n");
    ASSERT_TRUE(service.WaitForReports(5, 2000));
    EXPECT_EQ(1u, other.Reports().size());
}

TEST_F(ProcessorPtyTest, SearchLinesOfACommandWithoutResponseReachTheSubscribers)
{
    m_modem->SetAnswer(AnswerTable({{"AT+COPS=?",
                                     "\r\n+COPS: (2,\"T-Mobile\",\"TMO\",\"31026\",0),"
                                     "(1,\"AT&T\",\"AT&T\",\"310410\",2),,(0,1,2,3,4),(0,1,2)\r\n"
                                     "\r\nOK\r\n"}}));
    auto processor = OpenProcessor(m_modem->Path());
    RecordingClient client;
    ASSERT_TRUE(processor->RegisterClient(
        "NetSrv", &client, {CmdSetItem(INDEX_NET_SEARCH, "+COPS", AT_TYPE_NORMAL)}));
    const Outcome search = Tell(*processor, TestCmd("+COPS"), 5000);
    ASSERT_TRUE(search.ok) << search.error;
    EXPECT_EQ("AT+COPS=?\r", m_modem->TakeReceived());
    ASSERT_TRUE(client.WaitForReports(1, 2000));
    const Command report = client.Reports().front();
    EXPECT_EQ("+COPS", report.name);
    EXPECT_EQ(static_cast<CmdIndex>(INDEX_NET_SEARCH), report.index);
    const ParamList groups = {"(2,\"T-Mobile\",\"TMO\",\"31026\",0)",
                              "(1,\"AT&T\",\"AT&T\",\"310410\",2)", "", "(0,1,2,3,4)", "(0,1,2)"};
    EXPECT_EQ(groups, report.params);
}

TEST_F(ProcessorPtyTest, SilentModemTimesOutAndItsLateAnswerIsDropped)
{
    // Only "^SYSINFO" goes unanswered; its answer is sent late by the test.
    m_modem->SetAnswer(AnswerTable({{"AT^SYSINFO", ""}, {"AT+CSQ", kCsqAnswer}}));
    auto processor = OpenProcessor(m_modem->Path());
    RecordingClient client;
    ASSERT_TRUE(processor->RegisterClient(
        "NetSrv", &client, {CmdSetItem(INDEX_SYS_INFO, "^SYSINFO", AT_TYPE_NORMAL)}));

    const Clock::time_point start = Clock::now();
    const Outcome silent = AskSysinfo(*processor, 300);
    const long elapsed = ElapsedMs(start);
    EXPECT_FALSE(silent.ok);
    EXPECT_EQ(kTimeout, silent.error);
    EXPECT_GE(elapsed, 300);
    EXPECT_LT(elapsed, 1300);

    EXPECT_EQ("AT^SYSINFO\r", m_modem->TakeReceived());

    // The late answer arrives before the next command, followed by a genuine
    // report of the same name: the answer is dropped, the report delivered.
    m_modem->Send("\r\n^SYSINFO:2,4,5,3,1\r\n\r\nOK\r\n\r\n^SYSINFO:1,1,0,0,1,0,0\r\n");
    ASSERT_TRUE(client.WaitForReports(1, 2000));
    EXPECT_FALSE(client.WaitForReports(2, 200));
    EXPECT_EQ((ParamList{"1", "1", "0", "0", "1", "0", "0"}), client.Reports()[0].params);

    // The line is known to be clean: the next command goes out at once.
    const Outcome signal = AskCsq(*processor);
    ASSERT_TRUE(signal.ok) << signal.error;
    EXPECT_EQ(kCsq, signal.fields);
    EXPECT_EQ("AT+CSQ\r", m_modem->TakeReceived());
    EXPECT_TRUE(processor->UnRegisterClient("NetSrv"));
}

TEST_F(ProcessorPtyTest, TimedOutCommandDoesNotSpoilTheCommandsAfterIt)
{
    // Each modem leaves the first "^SYSINFO" unanswered until the time-out
    // and then deals with it in its own way; every command after it must get
    // its own answer, and the line is settled once, not before each command.
    // The modem's answer functions see only what they own.
    struct Row {
        const char* where;
        AfterLoss after;
        int probes;   // settling probes written; -1 when it depends on timing
    };
    const std::vector<Row> rows = {
        {"lost for good: the probe alone settles the line", AnsweredAfterLoss, 1},
        {"busy: answered when the probe comes, then the probe",
         [](ScriptedModem&, const std::string& line, bool bFirst) {
             return (bFirst ? kLateSysinfoAnswer : "") + Answered(line);
         },
         1},
        {"answered when the probe comes, the probe's own answer a while later",
         [](ScriptedModem& modem, const std::string& line, bool bFirst) {
             if (bFirst) {
                 modem.Send(kLateSysinfoAnswer);
                 std::this_thread::sleep_for(milliseconds(200));
             }
             return Answered(line);
         },
         -1},
        {"the probe taken for an abort: its result comes, the probe never",
         [](ScriptedModem&, const std::string& line, bool bFirst) {
             return bFirst ? "\r\nERROR\r\n" : Answered(line);
         },
         2},
        {"lost, and the probe refused with a bare ERROR",
         [](ScriptedModem&, const std::string& line, bool) {
             return line == "AT+CMEE?" ? "\r\nERROR\r\n" : Answered(line);
         },
         2},
    };
    for (const Row& row : rows) {
        ScriptedModem modem;
        modem.SetAnswer(LosesFirstSysinfo(modem, row.after));
        host::CAtProcessor processor(modem.Path());
        ASSERT_TRUE(Opened(processor, modem));

        const Outcome timedOut = AskSysinfo(processor, 200);
        EXPECT_EQ(kTimeout, timedOut.error) << row.where;
        EXPECT_EQ(std::vector<std::string>(7, "<empty>"), timedOut.fields) << row.where;

        const Outcome first = AskCsq(processor);
        EXPECT_TRUE(first.ok) << row.where << ": error " << first.error;
        EXPECT_EQ(kCsq, first.fields) << row.where;
        const Outcome info = AskSysinfo(processor);
        EXPECT_TRUE(info.ok) << row.where << ": error " << info.error;
        EXPECT_EQ(kSysinfo, info.fields) << row.where;
        const Outcome second = AskCsq(processor);
        EXPECT_TRUE(second.ok) << row.where << ": error " << second.error;
        EXPECT_EQ(kCsq, second.fields) << row.where;

        const std::string written = modem.TakeReceived();
        const std::string commands = "AT+CSQ\rAT^SYSINFO\rAT+CSQ\r";
        if (row.probes >= 0) {
            std::string probes;
            for (int i = 0; i < row.probes; ++i) {
                probes += kProbe;
            }
            EXPECT_EQ("AT^SYSINFO\r" + probes + commands, written) << row.where;
        } else {
            ASSERT_GE(written.size(), commands.size()) << row.where;
            EXPECT_EQ(commands, written.substr(written.size() - commands.size())) << row.where;
        }
    }
}

TEST_F(ProcessorPtyTest, LateAnswerLongAfterTheLineWasGivenUpOnIsDropped)
{
    // After "^SYSINFO" the modem is busy and answers nothing, the settling
    // probe included, until the test lets it go on. Then the old answer comes
    // (and, from a modem that kept its input, the probes' answers), long after
    // the next command gave up on the line.
    struct Busy {
        std::mutex mutex;
        std::condition_variable cv;
        bool bKeepsInput = false;
        bool bStarted = false;
        bool bBusy = false;
        std::vector<std::string> queued;
    };
    struct Row {
        const char* where;
        bool bKeepsInput;
        bool bFreedWhileSettling;   // else while the line is idle
        std::string written;        // after the timed-out command
    };
    const std::vector<Row> rows = {
        {"keeps its input, catches up while the next command settles", true, true,
         std::string(kProbe) + kProbe + "AT+CSQ\rAT^SYSINFO\r"},
        {"keeps its input, catches up while the line is idle", true, false,
         std::string(kProbe) + "AT+CSQ\rAT^SYSINFO\r"},
        {"drops what comes while it is busy", false, false,
         std::string(kProbe) + kProbe + "AT+CSQ\rAT^SYSINFO\r"},
    };
    for (const Row& row : rows) {
        ScriptedModem modem;
        auto busy = std::make_shared<Busy>();
        busy->bKeepsInput = row.bKeepsInput;
        modem.SetAnswer([busy](const std::string& line) -> std::string {
            std::lock_guard<std::mutex> lock(busy->mutex);
            if (line == "AT^SYSINFO" && !busy->bStarted) {
                busy->bStarted = true;
                busy->bBusy = true;
                return "";
            }
            if (busy->bBusy) {
                if (busy->bKeepsInput) {
                    busy->queued.push_back(line);
                    busy->cv.notify_all();
                }
                return "";
            }
            return Answered(line);
        });
        // The modem goes on: the old answer, what it kept, and a report that
        // shows when the processor has read all of it.
        const auto freeModem = [&] {
            std::lock_guard<std::mutex> lock(busy->mutex);
            std::string burst = kLateSysinfoAnswer;
            for (const std::string& line : busy->queued) {
                burst += Answered(line);
            }
            busy->queued.clear();
            busy->bBusy = false;
            modem.Send(burst + "\r\n^MODE:5,4\r\n");
        };
        host::CAtProcessor processor(modem.Path());
        ASSERT_TRUE(Opened(processor, modem));
        RecordingClient client;
        ASSERT_TRUE(processor.RegisterClient(
            "NetSrv", &client,
            {CmdSetItem(INDEX_SYS_INFO, "^SYSINFO", AT_TYPE_NORMAL),
             CmdSetItem(INDEX_SYS_MODE, "^MODE", AT_TYPE_UNSOLICITED)}));

        EXPECT_EQ(kTimeout, AskSysinfo(processor, 200).error) << row.where;
        // The probe goes unanswered: the next command is not written at all.
        const Clock::time_point start = Clock::now();
        EXPECT_EQ(kTimeout, AskCsq(processor).error) << row.where;
        EXPECT_LT(ElapsedMs(start), 3000) << row.where;

        Outcome next;
        if (row.bFreedWhileSettling) {
            std::thread caller([&] { next = AskCsq(processor); });
            {
                // Both probes are with the modem before it goes on.
                std::unique_lock<std::mutex> lock(busy->mutex);
                EXPECT_TRUE(busy->cv.wait_for(lock, milliseconds(3000),
                                              [&] { return busy->queued.size() >= 2; }))
                    << row.where;
            }
            freeModem();
            caller.join();
        } else {
            freeModem();
            EXPECT_TRUE(client.WaitForReports(1, 2000)) << row.where;
            next = AskCsq(processor);
        }
        EXPECT_TRUE(next.ok) << row.where << ": error " << next.error;
        EXPECT_EQ(kCsq, next.fields) << row.where;
        const Outcome info = AskSysinfo(processor);
        EXPECT_TRUE(info.ok) << row.where << ": error " << info.error;
        EXPECT_EQ(kSysinfo, info.fields) << row.where;
        EXPECT_EQ("AT^SYSINFO\r" + row.written, modem.TakeReceived()) << row.where;

        // The old answer was no report; the report after it was.
        ASSERT_TRUE(client.WaitForReports(1, 2000)) << row.where;
        const std::vector<Command> reports = client.Reports();
        ASSERT_EQ(1u, reports.size()) << row.where;
        EXPECT_EQ("^MODE", reports[0].name) << row.where;
        EXPECT_TRUE(processor.UnRegisterClient("NetSrv"));
    }
}

TEST_F(ProcessorPtyTest, CallersTakeTurnsOnTheLine)
{
    // Each answer names the command it answers, after a pause in which a
    // second command on the line would be seen.
    struct Line {
        std::atomic<int> inFlight{0};
        std::atomic<bool> bOverlap{false};
    };
    auto state = std::make_shared<Line>();
    m_modem->SetAnswer([state](const std::string& line) -> std::string {
        if (line.rfind("AT^GLASTERR=", 0) != 0) {
            return "\r\nOK\r\n";
        }
        if (state->inFlight.fetch_add(1) != 0) {
            state->bOverlap.store(true);
        }
        std::this_thread::sleep_for(milliseconds(5));
        state->inFlight.fetch_sub(1);
        return "\r\n^GLASTERR: " + line.substr(12) + ",7\r\n\r\nOK\r\n";
    });
    auto processor = OpenProcessor(m_modem->Path());
    std::vector<std::thread> callers;
    std::atomic<int> wrong{0};
    for (int t = 0; t < 4; ++t) {
        callers.emplace_back([&, t] {
            for (int i = 0; i < 10; ++i) {
                const std::string kind = std::to_string(t * 100 + i);
                const Outcome out =
                    Ask<2>(*processor, Fields<1>("^GLASTERR", AT_TYPE_NORMAL, {kind}), 5000);
                if (!out.ok || out.fields != std::vector<std::string>{kind, "7"}) {
                    ++wrong;
                }
            }
        });
    }
    for (std::thread& caller : callers) {
        caller.join();
    }
    EXPECT_EQ(0, wrong.load());
    EXPECT_FALSE(state->bOverlap.load());
}

TEST_F(ProcessorPtyTest, ClientMayRunACommandFromItsReportCallback)
{
    m_modem->SetAnswer(AnswerTable({{"AT^SYSINFO", kSysinfoAnswer}}));
    auto processor = OpenProcessor(m_modem->Path());
    std::atomic<bool> bAnswered{false};
    RecordingClient client([&](const Command&) {
        const Outcome info = AskSysinfo(*processor);
        bAnswered.store(info.ok && info.fields == kSysinfo);
    });
    ASSERT_TRUE(processor->RegisterClient(
        "NetSrv", &client, {CmdSetItem(INDEX_SYS_MODE, "^MODE", AT_TYPE_UNSOLICITED)}));
    m_modem->Send("\r\n^MODE:5,4\r\n");
    ASSERT_TRUE(client.WaitForReports(1, 3000));
    EXPECT_TRUE(bAnswered.load());
    EXPECT_TRUE(processor->UnRegisterClient("NetSrv"));
}

TEST_F(ProcessorPtyTest, UnregisteringWaitsForARunningCallback)
{
    auto processor = OpenProcessor(m_modem->Path());
    std::atomic<bool> bInside{false};
    std::atomic<bool> bReturned{false};
    std::atomic<bool> bSelf{false};
    auto client = std::make_unique<RecordingClient>([&](const Command&) {
        bInside.store(true);
        std::this_thread::sleep_for(milliseconds(300));
        bReturned.store(true);
    });
    ASSERT_TRUE(processor->RegisterClient(
        "NetSrv", client.get(), {CmdSetItem(INDEX_RSSI_IND, "^RSSI", AT_TYPE_NORMAL)}));
    m_modem->Send("\r\n^RSSI: 12\r\n");
    while (!bInside.load()) {
        std::this_thread::sleep_for(milliseconds(1));
    }
    EXPECT_TRUE(processor->UnRegisterClient("NetSrv"));
    EXPECT_TRUE(bReturned.load());
    client.reset();   // safe now

    // From inside its own callback a client must not wait for itself.
    RecordingClient second(
        [&](const Command&) { bSelf.store(processor->UnRegisterClient("Second")); });
    ASSERT_TRUE(processor->RegisterClient(
        "Second", &second, {CmdSetItem(INDEX_SYS_MODE, "^MODE", AT_TYPE_UNSOLICITED)}));
    m_modem->Send("\r\n^MODE:5,4\r\n");
    ASSERT_TRUE(second.WaitForReports(1, 2000));
    EXPECT_TRUE(bSelf.load());
}

TEST_F(ProcessorPtyTest, GarbageAndOverLongLinesDoNotStallTheLine)
{
    m_modem->SetAnswer(AnswerTable({{"AT+CSQ", kCsqAnswer}}));
    auto processor = OpenProcessor(m_modem->Path());
    RecordingClient client;
    ASSERT_TRUE(processor->RegisterClient(
        "NetSrv", &client, {CmdSetItem(INDEX_RSSI_IND, "^RSSI", AT_TYPE_NORMAL)}));
    std::string garbage;
    for (int i = 0; i < 20000; ++i) {
        const char c = static_cast<char>((i * 131 + 7) % 256);
        garbage += (c == '\r' || c == '\n') ? '#' : c;
    }
    m_modem->Send(garbage + "\r\n^RSSI: \"unterminated,12\r\n" + std::string(9000, '(') +
                  "\r\n" + std::string(5000, '"') + "\r\n");
    ASSERT_TRUE(client.WaitForReports(1, 2000));
    EXPECT_EQ(ParamList{"\"unterminated,12"}, client.Reports()[0].params);

    const Outcome signal = AskCsq(*processor);
    ASSERT_TRUE(signal.ok) << signal.error;
    EXPECT_EQ(kCsq, signal.fields);
    EXPECT_TRUE(processor->UnRegisterClient("NetSrv"));
}

// A symbolic link in a temporary directory that plays the device node.
class LinkedPort {
public:
    std::string Path() const { return m_dir / "ttyUSB2"; }
    void PointTo(const std::string& target)
    {
        const std::string temp = m_dir / "next";
        ::unlink(temp.c_str());
        ASSERT_EQ(0, ::symlink(target.c_str(), temp.c_str()));
        ASSERT_EQ(0, ::rename(temp.c_str(), Path().c_str()));
    }
    void Remove() { ::unlink(Path().c_str()); }

private:
    testkit::TempDir m_dir;
};

TEST_F(ProcessorPtyTest, VanishedPortFailsTheWaitingCommandsAndComesBack)
{
    LinkedPort port;
    port.PointTo(m_modem->Path());
    m_modem->SetAnswer(AnswerTable({{"AT^SYSINFO", ""}}));
    auto processor = OpenProcessor(port.Path());

    // One command waits for its answer, another for its turn.
    std::vector<unsigned long> errors(2, 0);
    std::vector<std::thread> callers;
    for (int i = 0; i < 2; ++i) {
        callers.emplace_back([&, i] { errors[i] = AskSysinfo(*processor, 20000).error; });
    }
    ASSERT_TRUE(m_modem->WaitForLine("AT^SYSINFO", 2000));
    std::this_thread::sleep_for(milliseconds(100));
    const Clock::time_point pulled = Clock::now();
    m_modem->Vanish();
    port.Remove();
    for (int i = 0; i < 2; ++i) {
        callers[i].join();
    }
    EXPECT_LT(ElapsedMs(pulled), 1000);
    EXPECT_EQ(std::vector<unsigned long>(2, kPortClosed), errors);
    EXPECT_TRUE(m_ports.WaitFor({true, false}, 2000));
    EXPECT_FALSE(processor->IsOpen());

    // While it is gone, commands fail at once.
    const Clock::time_point start = Clock::now();
    EXPECT_EQ(kPortClosed, AskSysinfo(*processor, 5000).error);
    EXPECT_LT(ElapsedMs(start), 500);

    // The modem comes back under the same name.
    ScriptedModem back;
    back.SetAnswer(AnswerTable({{"AT^SYSINFO", kSysinfoAnswer}}));
    port.PointTo(back.Path());
    ASSERT_TRUE(m_ports.WaitFor({true, false, true}, 3000));
    EXPECT_TRUE(processor->IsOpen());
    EXPECT_EQ("ATE0\rAT+CMEE=1\r", back.TakeReceived());
    const Outcome info = AskSysinfo(*processor);
    ASSERT_TRUE(info.ok) << info.error;
    EXPECT_EQ(kSysinfo, info.fields);
}

TEST_F(ProcessorPtyTest, LineThatComesBackOwesNothingOfTheOldOne)
{
    LinkedPort port;
    port.PointTo(m_modem->Path());
    // A command and the probe after it stay unanswered: the line owes both.
    m_modem->SetAnswer(AnswerTable({{"AT^SYSINFO", ""}, {"AT+CMEE?", ""}}));
    auto processor = OpenProcessor(port.Path());
    EXPECT_EQ(kTimeout, AskSysinfo(*processor, 200).error);
    EXPECT_EQ(kTimeout, AskCsq(*processor).error);
    EXPECT_EQ(std::string("AT^SYSINFO\r") + kProbe, m_modem->TakeReceived());

    m_modem->Vanish();
    port.Remove();
    ASSERT_TRUE(m_ports.WaitFor({true, false}, 2000));
    ScriptedModem back;
    back.SetAnswer(AnswerTable({{"AT^SYSINFO", kSysinfoAnswer}}));
    port.PointTo(back.Path());
    ASSERT_TRUE(m_ports.WaitFor({true, false, true}, 3000));
    const Outcome info = AskSysinfo(*processor);
    ASSERT_TRUE(info.ok) << info.error;
    EXPECT_EQ(kSysinfo, info.fields);
    // No probe: neither the greeting nor the command waited for the old line.
    EXPECT_EQ("ATE0\rAT+CMEE=1\rAT^SYSINFO\r", back.TakeReceived());
}

TEST_F(ProcessorPtyTest, CloseFailsTheWaitingCommand)
{
    m_modem->SetAnswer(AnswerTable({{"AT^SYSINFO", ""}}));
    auto processor = OpenProcessor(m_modem->Path());
    unsigned long dwError = 0;
    std::thread caller([&] { dwError = AskSysinfo(*processor, 20000).error; });
    ASSERT_TRUE(m_modem->WaitForLine("AT^SYSINFO", 2000));
    const Clock::time_point start = Clock::now();
    processor->Close();
    caller.join();
    EXPECT_LT(ElapsedMs(start), 1000);
    EXPECT_EQ(kPortClosed, dwError);

    // And it opens again.
    m_modem->SetAnswer(AnswerTable({{"AT^SYSINFO", kSysinfoAnswer}}));
    std::string error;
    ASSERT_TRUE(processor->Open(&error)) << error;
    EXPECT_EQ(kSysinfo, AskSysinfo(*processor).fields);
}

// A service thread stopped by force while it waits inside the processor.
class WaitingThread : public JThread {
public:
    explicit WaitingThread(host::CAtProcessor& processor) : m_processor(processor) {}
    void* Thread() override
    {
        ThreadStarted();
        AskSysinfo(m_processor, 60000);
        return nullptr;
    }

private:
    host::CAtProcessor& m_processor;
};

TEST_F(ProcessorPtyTest, KilledCallerGivesTheLineBack)
{
    m_modem->SetAnswer(LosesFirstSysinfo(*m_modem, AnsweredAfterLoss));
    auto processor = OpenProcessor(m_modem->Path());
    WaitingThread waiting(*processor);
    ASSERT_EQ(0, waiting.Start());
    ASSERT_TRUE(m_modem->WaitForLine("AT^SYSINFO", 2000));
    std::this_thread::sleep_for(milliseconds(50));
    EXPECT_EQ(0, waiting.Kill());

    const Outcome info = AskSysinfo(*processor, 3000);
    ASSERT_TRUE(info.ok) << info.error;
    EXPECT_EQ(kSysinfo, info.fields);
}

}  // namespace
