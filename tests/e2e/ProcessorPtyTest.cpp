// The real AT processor against a scripted modem on a pseudo-terminal: the
// bytes it writes for each form of command, how it reads answers, errors and
// reports, time-outs and late answers, a port that vanishes and comes back,
// and clients that call back into it.
//
// The command objects here are the test's own, built only on the interfaces
// (ICommand, PARAMETER): the processor must work with any command object.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <pty.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "AtProcessor.h"
#include "TraceSrv.h"
#include "jthread.h"

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

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

// "AT<name>": no parameters.
class BareCmd : public NamedCommand {
public:
    explicit BareCmd(const char* name, unsigned long type = AT_TYPE_NORMAL)
        : NamedCommand(name, type)
    {
    }
    unsigned long GetElemCount() override { return 0; }
    ParamPtr GetFirstElemAddr() override { return nullptr; }
};

// "AT<name>?" (N = 1) or "AT<name>=?" (N = 32).
template <unsigned long N>
class FormCmd : public NamedCommand {
public:
    explicit FormCmd(const char* name) : NamedCommand(name, AT_TYPE_NORMAL) {}
    unsigned long GetElemCount() override { return 1; }
    ParamPtr GetFirstElemAddr() override { return &m_op; }

private:
    OperatorParam<N> m_op;
};
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

// What a modem answers to the lines the processor sends of its own accord:
// the greeting and the "AT+CMEE?" that settles the line after a time-out.
// "" for any other line.
std::string Housekeeping(const std::string& line)
{
    if (line == "ATE0" || line == "AT+CMEE=1" || line == "AT") {
        return "\r\nOK\r\n";
    }
    if (line == "AT+CMEE?") {
        return "\r\n+CMEE: 1\r\n\r\nOK\r\n";
    }
    return "";
}

// A modem that answers "^SYSINFO" and "+CSQ", and ERROR to what it lacks.
std::string Answered(const std::string& line)
{
    if (line == "AT^SYSINFO") {
        return kSysinfoAnswer;
    }
    if (line == "AT+CSQ") {
        return kCsqAnswer;
    }
    const std::string own = Housekeeping(line);
    return own.empty() ? "\r\nERROR\r\n" : own;
}
const unsigned long kPortClosed = AT_ERROR_PORT_CLOSED;
const unsigned long kTimeout = AT_ERROR_TIMEOUT;

// ---- the scripted modem ----------------------------------------------------

// The master side of a pseudo-terminal, served on its own thread. Every
// command line (up to CR) goes to the answer function, whose result is written
// back as it stands ("" answers nothing). By default the greeting and the
// settling probe are answered and everything else is an ERROR. The answer function
// runs on the modem's thread, which outlives the test body: what it keeps it
// owns (captured by value), nothing on the body's stack.
class ScriptedModem {
public:
    using Answer = std::function<std::string(const std::string& line)>;

    ScriptedModem()
    {
        char name[128] = {};
        if (::openpty(&m_master, &m_slave, name, nullptr, nullptr) != 0) {
            ADD_FAILURE() << "openpty: " << std::strerror(errno);
            return;
        }
        m_path = name;
        ::fcntl(m_master, F_SETFL, ::fcntl(m_master, F_GETFL) | O_NONBLOCK);
        m_thread = std::thread([this] { Serve(); });
    }
    ~ScriptedModem() { Vanish(); }

    const std::string& Path() const { return m_path; }

    // The line settings as the processor left them, seen from the modem's side.
    bool LineIsRaw()
    {
        struct termios tio {};
        return ::tcgetattr(m_slave, &tio) == 0 && (tio.c_lflag & (ICANON | ECHO)) == 0;
    }
    bool LineIsExclusive()
    {
        int excl = 0;
        return ::ioctl(m_slave, TIOCGEXCL, &excl) == 0 && excl != 0;
    }

    void SetAnswer(Answer answer)
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_answer = std::move(answer);
    }

    // Bytes from the modem's side without being asked (reports, late answers).
    void Send(const std::string& bytes)
    {
        std::lock_guard<std::mutex> lock(m_writeMutex);
        WriteAll(bytes);
    }

    // Everything the processor wrote since the last call.
    std::string TakeReceived()
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        std::string out;
        out.swap(m_received);
        return out;
    }

    // Waits until a command line equal to line has arrived (counting those
    // already taken); false after timeoutMs.
    bool WaitForLine(const std::string& line, int timeoutMs)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        return m_cv.wait_for(lock, milliseconds(timeoutMs), [&] {
            for (const std::string& got : m_lines) {
                if (got == line) {
                    return true;
                }
            }
            return false;
        });
    }

    std::vector<std::string> Lines()
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_lines;
    }

    // The far end goes away, as a USB modem pulled out.
    void Vanish()
    {
        m_bStop.store(true);
        if (m_thread.joinable()) {
            m_thread.join();
        }
        if (m_master >= 0) {
            ::close(m_master);
            m_master = -1;
        }
        if (m_slave >= 0) {
            ::close(m_slave);
            m_slave = -1;
        }
    }

private:
    static std::string DefaultAnswer(const std::string& line)
    {
        const std::string own = Housekeeping(line);
        return own.empty() ? "\r\nERROR\r\n" : own;
    }

    void WriteAll(const std::string& bytes)
    {
        std::size_t done = 0;
        while (done < bytes.size() && m_master >= 0) {
            const ssize_t n = ::write(m_master, bytes.data() + done, bytes.size() - done);
            if (n > 0) {
                done += static_cast<std::size_t>(n);
            } else if (n < 0 && (errno == EAGAIN || errno == EINTR)) {
                std::this_thread::sleep_for(milliseconds(1));
            } else {
                return;
            }
        }
    }

    void Serve()
    {
        std::string partial;
        while (!m_bStop.load()) {
            struct pollfd pfd = {};
            pfd.fd = m_master;
            pfd.events = POLLIN;
            if (::poll(&pfd, 1, 20) <= 0) {
                continue;
            }
            char buffer[512];
            const ssize_t n = ::read(m_master, buffer, sizeof(buffer));
            if (n <= 0) {
                continue;
            }
            std::vector<std::string> lines;
            Answer answer;
            {
                std::lock_guard<std::mutex> lock(m_mutex);
                m_received.append(buffer, static_cast<std::size_t>(n));
                for (ssize_t i = 0; i < n; ++i) {
                    if (buffer[i] == '\r') {
                        lines.push_back(partial);
                        m_lines.push_back(partial);
                        partial.clear();
                    } else if (buffer[i] != '\n') {
                        partial += buffer[i];
                    }
                }
                answer = m_answer;
            }
            m_cv.notify_all();
            for (const std::string& line : lines) {
                const std::string reply = answer ? answer(line) : DefaultAnswer(line);
                std::lock_guard<std::mutex> lock(m_writeMutex);
                WriteAll(reply);
            }
        }
    }

    int m_master = -1;
    int m_slave = -1;   // held so that the pty lives until the processor opens it
    std::string m_path;
    std::mutex m_mutex;
    std::condition_variable m_cv;
    Answer m_answer;
    std::string m_received;
    std::vector<std::string> m_lines;
    std::mutex m_writeMutex;
    std::atomic<bool> m_bStop{false};
    std::thread m_thread;
};

// Answers from a table of exact command lines; the greeting OK; the rest ERROR.
ScriptedModem::Answer Table(std::map<std::string, std::string> answers)
{
    return [answers](const std::string& line) -> std::string {
        const auto it = answers.find(line);
        if (it != answers.end()) {
            return it->second;
        }
        const std::string own = Housekeeping(line);
        return own.empty() ? "\r\nERROR\r\n" : own;
    };
}

// ---- a client ----------------------------------------------------------------

class RecordingClient : public IAtCallBack {
public:
    ~RecordingClient() = default;

    bool AtCallBackEvent(const Command& cmd) override
    {
        std::function<void(const Command&)> hook;
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            hook = m_hook;
        }
        if (hook) {
            hook(cmd);
        }
        std::lock_guard<std::mutex> lock(m_mutex);
        m_reports.push_back(cmd);
        m_cv.notify_all();
        return true;
    }

    void SetHook(std::function<void(const Command&)> hook)
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_hook = std::move(hook);
    }

    bool WaitForReports(std::size_t count, int timeoutMs)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        return m_cv.wait_for(lock, milliseconds(timeoutMs),
                             [&] { return m_reports.size() >= count; });
    }

    std::vector<Command> Reports()
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_reports;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_cv;
    std::vector<Command> m_reports;
    std::function<void(const Command&)> m_hook;
};

// Port listener calls, in order.
class PortEvents {
public:
    std::function<void(bool)> Listener()
    {
        return [this](bool bOpen) {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_events.push_back(bOpen);
            m_cv.notify_all();
        };
    }
    bool WaitFor(const std::vector<bool>& events, int timeoutMs)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        return m_cv.wait_for(lock, milliseconds(timeoutMs), [&] { return m_events == events; });
    }
    std::vector<bool> Events()
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_events;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_cv;
    std::vector<bool> m_events;
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
    m_modem->SetAnswer(Table({
        {"AT^SYSCFG?", "\r\n^SYSCFG: 2,0,400000,0,3\r\n\r\nOK\r\n"},
        {"AT^SYSCFG=?",
         "\r\n^SYSCFG:(2,13,14,16),(0),((2000000400380,\"GSM900/GSM1800/WCDMA900/WCDMA2100\"),"
         "(3fffffff,\"All bands\")),(0-2),(0-4)\r\n\r\nOK\r\n"},
        {"AT^SYSINFO", "\r\n^SYSINFO:2,4,5,3,1,,\r\n\r\nOK\r\n"},
        {"AT+COPS?", "\r\n+COPS: 1,2,\"46000\"\r\n\r\nOK\r\n"},
        {"AT^HCSQ?", "\r\n^HCSQ:\"LTE\",30,19,66,0\r\n\r\nOK\r\n"},
        {"AT+COPS=1,2,\"46000\"", "\r\nOK\r\n"},
        {"AT+CPOL=1,,\"24412\"", "\r\nOK\r\n"},
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
        {"quoted system name without a blank after the colon",
         [&] { return Ask<6>(p, ReadCmd("^HCSQ")); }, "AT^HCSQ?\r",
         {"LTE", "30", "19", "66", "0", "<empty>"}},
        {"set form with its texts as they stand",
         [&] {
             Fields<4> cmd("+COPS", AT_TYPE_NORMAL, {"1", "2", "\"46000\""});
             Outcome out;
             out.ok = p.ExecuteCmdNoResponse(&cmd, &out.error, 2000);
             return out;
         },
         "AT+COPS=1,2,\"46000\"\r", {}},
        {"set form with an empty middle field, trailing empty fields dropped",
         [&] {
             Fields<6> cmd("+CPOL", AT_TYPE_NORMAL, {"1", "", "\"24412\""});
             Outcome out;
             out.ok = p.ExecuteCmdNoResponse(&cmd, &out.error, 2000);
             return out;
         },
         "AT+CPOL=1,,\"24412\"\r", {}},
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
    // Shared with the modem's thread, which may outlive this body.
    struct Final {
        std::mutex mutex;
        std::string text;
    };
    auto final = std::make_shared<Final>();
    m_modem->SetAnswer([final](const std::string& line) -> std::string {
        if (line == "AT^SYSINFO") {
            std::lock_guard<std::mutex> lock(final->mutex);
            return "\r\n" + final->text + "\r\n";
        }
        return "\r\nOK\r\n";
    });
    auto processor = OpenProcessor(m_modem->Path());
    for (const auto& row : rows) {
        {
            std::lock_guard<std::mutex> lock(final->mutex);
            final->text = row.first;
        }
        const Outcome out = AskSysinfo(*processor);
        EXPECT_FALSE(out.ok) << row.first;
        EXPECT_EQ(row.second, out.error) << row.first;
        EXPECT_EQ(static_cast<int>(row.second), processor->GetLastError()) << row.first;
    }
    // A command object that cannot go out on the line.
    Fields<2> bad("+COPS", AT_TYPE_NORMAL, {"1", "x\ry"});
    unsigned long dwError = 0;
    EXPECT_FALSE(processor->ExecuteCmdNoResponse(&bad, &dwError, 2000));
    EXPECT_EQ(static_cast<unsigned long>(AT_ERROR_BAD_COMMAND), dwError);
}

TEST_F(ProcessorPtyTest, RawDataAnswerIsTheBareLine)
{
    m_modem->SetAnswer(Table({{"AT+CIMI", "\r\n998899889988997\r\n\r\nOK\r\n"}}));
    auto processor = OpenProcessor(m_modem->Path());
    const Outcome imsi = Ask<1>(*processor, BareCmd("+CIMI", AT_TYPE_RAWDATA));
    ASSERT_TRUE(imsi.ok) << imsi.error;
    EXPECT_EQ(std::vector<std::string>{"998899889988997"}, imsi.fields);
    EXPECT_EQ("AT+CIMI\r", m_modem->TakeReceived());

    // A modem that kept its echo sends the command back first.
    m_modem->SetAnswer(Table({{"AT+CIMI", "AT+CIMI\r\r\n460001234567890\r\n\r\nOK\r\n"}}));
    const Outcome echoed = Ask<1>(*processor, BareCmd("+CIMI", AT_TYPE_RAWDATA));
    ASSERT_TRUE(echoed.ok) << echoed.error;
    EXPECT_EQ(std::vector<std::string>{"460001234567890"}, echoed.fields);
}

TEST_F(ProcessorPtyTest, ReportInsideAMultiLineAnswerGoesToItsSubscriber)
{
    m_modem->SetAnswer(Table({{"AT+CPOL?",
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
    m_modem->SetAnswer(Table({{"AT+COPS=?",
                               "\r\n+COPS: (2,\"T-Mobile\",\"TMO\",\"31026\",0),"
                               "(1,\"AT&T\",\"AT&T\",\"310410\",2),,(0,1,2,3,4),(0,1,2)\r\n"
                               "\r\nOK\r\n"}}));
    auto processor = OpenProcessor(m_modem->Path());
    RecordingClient client;
    ASSERT_TRUE(processor->RegisterClient(
        "NetSrv", &client, {CmdSetItem(INDEX_NET_SEARCH, "+COPS", AT_TYPE_NORMAL)}));
    TestCmd search("+COPS");
    unsigned long dwError = 0;
    ASSERT_TRUE(processor->ExecuteCmdNoResponse(&search, &dwError, 5000)) << dwError;
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
    m_modem->SetAnswer(Table({{"AT^SYSINFO", ""}, {"AT+CSQ", kCsqAnswer}}));
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
    using Peer = std::function<ScriptedModem::Answer(ScriptedModem*)>;
    struct Row {
        const char* where;
        Peer peer;
        int probes;   // settling probes written; -1 when it depends on timing
    };
    const std::vector<Row> rows = {
        {"lost for good: the probe alone settles the line",
         [](ScriptedModem*) -> ScriptedModem::Answer {
             auto asked = std::make_shared<std::atomic<bool>>(false);
             return [asked](const std::string& line) -> std::string {
                 if (line == "AT^SYSINFO" && !asked->exchange(true)) {
                     return "";
                 }
                 return Answered(line);
             };
         },
         1},
        {"busy: answered when the probe comes, then the probe",
         [](ScriptedModem*) -> ScriptedModem::Answer {
             auto held = std::make_shared<std::atomic<int>>(0);
             return [held](const std::string& line) -> std::string {
                 int expected = 0;
                 if (line == "AT^SYSINFO" && held->compare_exchange_strong(expected, 1)) {
                     return "";
                 }
                 expected = 1;
                 const bool bLate = held->compare_exchange_strong(expected, 2);
                 return (bLate ? kLateSysinfoAnswer : "") + Answered(line);
             };
         },
         1},
        {"answered when the probe comes, the probe's own answer a while later",
         [](ScriptedModem* modem) -> ScriptedModem::Answer {
             auto held = std::make_shared<std::atomic<int>>(0);
             return [held, modem](const std::string& line) -> std::string {
                 int expected = 0;
                 if (line == "AT^SYSINFO" && held->compare_exchange_strong(expected, 1)) {
                     return "";
                 }
                 expected = 1;
                 if (held->compare_exchange_strong(expected, 2)) {
                     modem->Send(kLateSysinfoAnswer);
                     std::this_thread::sleep_for(milliseconds(200));
                 }
                 return Answered(line);
             };
         },
         -1},
        {"the probe taken for an abort: its result comes, the probe never",
         [](ScriptedModem*) -> ScriptedModem::Answer {
             auto held = std::make_shared<std::atomic<int>>(0);
             return [held](const std::string& line) -> std::string {
                 int expected = 0;
                 if (line == "AT^SYSINFO" && held->compare_exchange_strong(expected, 1)) {
                     return "";
                 }
                 expected = 1;
                 if (held->compare_exchange_strong(expected, 2)) {
                     return "\r\nERROR\r\n";
                 }
                 return Answered(line);
             };
         },
         2},
        {"lost, and the probe refused with a bare ERROR",
         [](ScriptedModem*) -> ScriptedModem::Answer {
             auto asked = std::make_shared<std::atomic<bool>>(false);
             return [asked](const std::string& line) -> std::string {
                 if (line == "AT^SYSINFO" && !asked->exchange(true)) {
                     return "";
                 }
                 return line == "AT+CMEE?" ? "\r\nERROR\r\n" : Answered(line);
             };
         },
         2},
    };
    for (const Row& row : rows) {
        ScriptedModem modem;
        ASSERT_FALSE(modem.Path().empty());
        modem.SetAnswer(row.peer(&modem));
        host::CAtProcessor processor(modem.Path());
        std::string error;
        ASSERT_TRUE(processor.Open(&error)) << error;
        modem.TakeReceived();

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
        ASSERT_FALSE(modem.Path().empty());
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
        std::string error;
        ASSERT_TRUE(processor.Open(&error)) << error;
        RecordingClient client;
        ASSERT_TRUE(processor.RegisterClient(
            "NetSrv", &client,
            {CmdSetItem(INDEX_SYS_INFO, "^SYSINFO", AT_TYPE_NORMAL),
             CmdSetItem(INDEX_SYS_MODE, "^MODE", AT_TYPE_UNSOLICITED)}));
        modem.TakeReceived();

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
    m_modem->SetAnswer(Table({{"AT^SYSINFO", kSysinfoAnswer}}));
    auto processor = OpenProcessor(m_modem->Path());
    RecordingClient client;
    std::atomic<bool> bAnswered{false};
    client.SetHook([&](const Command&) {
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
    auto client = std::make_unique<RecordingClient>();
    client->SetHook([&](const Command&) {
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
    RecordingClient second;
    second.SetHook([&](const Command&) { bSelf.store(processor->UnRegisterClient("Second")); });
    ASSERT_TRUE(processor->RegisterClient(
        "Second", &second, {CmdSetItem(INDEX_SYS_MODE, "^MODE", AT_TYPE_UNSOLICITED)}));
    m_modem->Send("\r\n^MODE:5,4\r\n");
    ASSERT_TRUE(second.WaitForReports(1, 2000));
    EXPECT_TRUE(bSelf.load());
}

TEST_F(ProcessorPtyTest, GarbageAndOverLongLinesDoNotStallTheLine)
{
    m_modem->SetAnswer(Table({{"AT+CSQ", kCsqAnswer}}));
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

// A temporary directory with a symbolic link that plays the device node.
class LinkedPort {
public:
    LinkedPort()
    {
        char dir[] = "/tmp/netsrv-proc-XXXXXX";
        if (::mkdtemp(dir) == nullptr) {
            ADD_FAILURE() << "mkdtemp: " << std::strerror(errno);
            return;
        }
        m_dir = dir;
        m_link = m_dir + "/ttyUSB2";
    }
    ~LinkedPort()
    {
        ::unlink(m_link.c_str());
        ::rmdir(m_dir.c_str());
    }
    const std::string& Path() const { return m_link; }
    void PointTo(const std::string& target)
    {
        const std::string temp = m_dir + "/next";
        ::unlink(temp.c_str());
        ASSERT_EQ(0, ::symlink(target.c_str(), temp.c_str()));
        ASSERT_EQ(0, ::rename(temp.c_str(), m_link.c_str()));
    }
    void Remove() { ::unlink(m_link.c_str()); }

private:
    std::string m_dir;
    std::string m_link;
};

TEST_F(ProcessorPtyTest, VanishedPortFailsTheWaitingCommandsAndComesBack)
{
    LinkedPort port;
    port.PointTo(m_modem->Path());
    m_modem->SetAnswer(Table({{"AT^SYSINFO", ""}}));
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
    back.SetAnswer(Table({{"AT^SYSINFO", kSysinfoAnswer}}));
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
    m_modem->SetAnswer(Table({{"AT^SYSINFO", ""}, {"AT+CMEE?", ""}}));
    auto processor = OpenProcessor(port.Path());
    EXPECT_EQ(kTimeout, AskSysinfo(*processor, 200).error);
    EXPECT_EQ(kTimeout, AskCsq(*processor).error);
    EXPECT_EQ(std::string("AT^SYSINFO\r") + kProbe, m_modem->TakeReceived());

    m_modem->Vanish();
    port.Remove();
    ASSERT_TRUE(m_ports.WaitFor({true, false}, 2000));
    ScriptedModem back;
    back.SetAnswer(Table({{"AT^SYSINFO", kSysinfoAnswer}}));
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
    m_modem->SetAnswer(Table({{"AT^SYSINFO", ""}}));
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
    m_modem->SetAnswer(Table({{"AT^SYSINFO", kSysinfoAnswer}}));
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
    auto asked = std::make_shared<std::atomic<int>>(0);
    m_modem->SetAnswer([asked](const std::string& line) -> std::string {
        if (line == "AT^SYSINFO" && asked->fetch_add(1) == 0) {
            return "";
        }
        return Answered(line);
    });
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
