#include "AtProcessor.h"

#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <cstring>
#include <system_error>
#include <utility>

#include "AtFields.h"
#include "AtFormat.h"
#include "ResponseFill.h"
#include "TraceSrv.h"
#include "jthread.h"

namespace host {

namespace {

using std::chrono::milliseconds;

const char* const kTraceModule = "CAtProcessor";

// After a vanish, how often the same path is tried again.
const int kReopenIntervalMs = 500;
// ATE0 and AT+CMEE=1 are answered at once by any modem that is there.
const unsigned long kInitTimeoutMs = 1000;
// At most this long waiting for room on the line; a modem that does not take
// a few bytes in this time is not going to answer either.
const unsigned long kMaxWriteWaitMs = 5000;
// Longest time-out honoured; larger values (a caller's "forever") are cut here
// so that the deadline arithmetic cannot overflow.
const unsigned long kMaxTimeoutMs = 24UL * 60 * 60 * 1000;

// Settling the line after a time-out (see Settle).
const milliseconds kSettleQuiet(300);
const milliseconds kSettleMax(2000);
const milliseconds kProbeTimeout(1000);
const milliseconds kProbeTail(500);
const int kMaxProbesPerSettle = 2;
// The probe: every modem driven here knows +CMEE (it is set at open), and its
// read form answers with a line of its own ("+CMEE: 1") before the final, so
// the probe's final can be told from a late one of a timed-out command.
const char* const kProbeLine = "AT+CMEE?";
const RunningCommand kProbeCommand{"+CMEE", false};

bool IsProbeAnswerLine(const std::string& line)
{
    static const NameSet kNone;
    return ClassifyLine(line, &kProbeCommand, kNone).kind == LineKind::Information;
}

// Reports waiting for the dispatch thread; beyond this (a client that blocks
// its callback while the modem floods reports) new ones are dropped.
const std::size_t kMaxQueuedReports = 1024;
// Information lines kept for one command.
const std::size_t kMaxInfoLines = 1024;

void Trace(int level, const std::string& message)
{
    TraceSrv_Trace(level, kTraceModule, message.c_str());
}

// Garbage from the modem is traced legibly and briefly.
std::string Printable(const std::string& line)
{
    const std::size_t kMaxShown = 200;
    std::string out;
    for (std::size_t i = 0; i < line.size() && i < kMaxShown; ++i) {
        const unsigned char c = static_cast<unsigned char>(line[i]);
        out += (c >= 0x20 && c < 0x7F) ? static_cast<char>(c) : '.';
    }
    if (line.size() > kMaxShown) {
        out += "...";
    }
    return out;
}

bool IsSendableText(const std::string& line)
{
    if (line.empty()) {
        return false;
    }
    for (const char c : line) {
        const unsigned char u = static_cast<unsigned char>(c);
        if ((u < 0x20 && c != '\t') || u == 0x7F) {
            return false;
        }
    }
    return true;
}


// One wait on cv until it is notified or, with pDeadline, until that moment of
// the steady clock (libstdc++'s steady clock is CLOCK_MONOTONIC). Callers loop
// on their condition. Client threads may be killed here (JThread::Kill
// cancels them in the wait): glibc takes the mutex back and unwinds straight
// into the caller, whose RAII guards give the line back. The wait is made on
// the native handles, from a frame without sanitizer stack state, because
// AddressSanitizer's runtime trips over the stale stack poisoning that the
// skipped frames of the inline library wait leave behind.
__attribute__((no_sanitize_address)) void WaitOn(std::condition_variable& cv,
                                                 std::unique_lock<std::mutex>& lock,
                                                 const std::chrono::steady_clock::time_point* pDeadline)
{
    if (pDeadline == nullptr) {
        ::pthread_cond_wait(cv.native_handle(), lock.mutex()->native_handle());
        return;
    }
    const long long ns = std::chrono::duration_cast<std::chrono::nanoseconds>(
                             pDeadline->time_since_epoch())
                             .count();
    struct timespec ts;
    ts.tv_sec = static_cast<time_t>(ns / 1000000000LL);
    ts.tv_nsec = static_cast<long>(ns % 1000000000LL);
    ::pthread_cond_clockwait(cv.native_handle(), lock.mutex()->native_handle(), CLOCK_MONOTONIC,
                             &ts);
}

}  // namespace

// Holds the line for one command. Its destructor gives the line back, also
// when the caller's thread is cancelled while it waits: then the unwinding
// re-acquired the mutex for the lock, or the lock was released around a write
// and is taken again here.
class CAtProcessor::LineTurn {
public:
    LineTurn(CAtProcessor& self, std::unique_lock<std::mutex>& lock, Pending& cmd,
             std::uint64_t generation)
        : m_self(self), m_lock(lock), m_cmd(cmd), m_generation(generation)
    {
        m_self.m_bLineBusy = true;
    }
    ~LineTurn()
    {
        if (!m_lock.owns_lock()) {
            m_lock.lock();
        }
        if (m_self.m_pRunning == &m_cmd) {
            m_self.m_pRunning = nullptr;
        }
        if (m_cmd.bWritten && !m_cmd.bDone && !m_self.PortChanged(m_generation)) {
            // The modem may still answer; that answer must not be taken for the
            // next command's.
            ++m_self.m_uStaleOwed;
            m_self.m_stale = m_cmd.desc;
        }
        m_self.m_bLineBusy = false;
        m_self.m_cvLine.notify_all();
    }
    LineTurn(const LineTurn&) = delete;
    LineTurn& operator=(const LineTurn&) = delete;

private:
    CAtProcessor& m_self;
    std::unique_lock<std::mutex>& m_lock;
    Pending& m_cmd;
    std::uint64_t m_generation;
};

CAtProcessor::CAtProcessor(const std::string& devicePath, int baud)
    : m_path(devicePath), m_baud(baud)
{
}

CAtProcessor::~CAtProcessor()
{
    Close();
}

// ---- life -------------------------------------------------------------------

bool CAtProcessor::Open(std::string* pError)
{
    std::lock_guard<std::mutex> life(m_lifeMutex);
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_bStarted) {
            return true;
        }
    }
    std::string error;
    bool bOpened = false;
    {
        std::lock_guard<std::mutex> write(m_writeMutex);
        bOpened = m_port.Open(m_path, m_baud, &error);
    }
    if (!bOpened) {
        // The caller reports it; TL_WARN keeps it off a tool's error output.
        Trace(TL_WARN, error);
        if (pError != nullptr) {
            *pError = error;
        }
        return false;
    }
    int fds[2] = {-1, -1};
    if (::pipe2(fds, O_CLOEXEC | O_NONBLOCK) != 0) {
        error = "cannot open " + m_path + ": no wake-up pipe (" + std::strerror(errno) + ")";
        std::lock_guard<std::mutex> write(m_writeMutex);
        m_port.Close();
        if (pError != nullptr) {
            *pError = error;
        }
        return false;
    }
    m_wakeRead = fds[0];
    m_wakeWrite = fds[1];

    std::uint64_t generation = 0;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_bStarted = true;
        m_bStopping = false;
        m_bPortUp = true;
        generation = ++m_uGeneration;
        m_bLineBusy = false;
        m_pRunning = nullptr;
        ForgetOwedLocked();
        m_tLastByte = Clock::now();
        m_jobs.clear();
        m_nQueuedReports = 0;
        m_nDroppedReports = 0;
    }
    m_bStopRequested.store(false);
    m_framer.Reset();
    try {
        m_reader = std::thread(&CAtProcessor::ReaderLoop, this);
        m_dispatcher = std::thread(&CAtProcessor::DispatchLoop, this);
    } catch (const std::system_error& e) {
        // No thread to be had: undo what was started and report it like a
        // port that cannot be opened.
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_bStopping = true;
            m_bPortUp = false;
        }
        m_cvDispatch.notify_all();
        StopReader();
        if (m_reader.joinable()) {
            m_reader.join();
        }
        {
            std::lock_guard<std::mutex> write(m_writeMutex);
            m_port.Close();
        }
        CloseWakePipe();
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_bStarted = false;
        }
        if (pError != nullptr) {
            *pError = "cannot open " + m_path + ": cannot start its threads (" + e.what() + ")";
        }
        return false;
    }
    Trace(TL_INFO, "opened " + m_path);

    SendInitCommands();
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        // A port that vanished during the greeting has already been reported
        // lost; announcing it open now would reverse the order.
        if (m_uGeneration == generation && m_bPortUp) {
            Job job;
            job.kind = Job::Kind::PortUp;
            QueueJobLocked(std::move(job));
        }
    }
    m_cvDispatch.notify_all();
    return true;
}

void CAtProcessor::Close()
{
    std::lock_guard<std::mutex> life(m_lifeMutex);
    // From a callback the dispatch thread would have to join itself.
    assert(std::this_thread::get_id() != m_dispatcher.get_id());
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        if (!m_bStarted) {
            return;
        }
        m_bStopping = true;
        m_bPortUp = false;
        ++m_uGeneration;
        if (m_pRunning != nullptr && !m_pRunning->bDone) {
            m_pRunning->bDone = true;
            m_pRunning->dwError = AT_ERROR_PORT_CLOSED;
        }
        m_cvLine.notify_all();
        m_cvDispatch.notify_all();
        // Every caller wakes on the generation change and leaves; none may be
        // inside when the members go away.
        while (m_nCallers != 0) {
            WaitOn(m_cvLine, lock, nullptr);
        }
    }
    StopReader();
    if (m_reader.joinable()) {
        m_reader.join();
    }
    if (m_dispatcher.joinable()) {
        m_dispatcher.join();
    }
    CloseWakePipe();
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_bStarted = false;
        m_jobs.clear();
        m_nQueuedReports = 0;
        m_inFlightClient.clear();
        ForgetOwedLocked();
    }
    Trace(TL_INFO, "closed " + m_path);
}

bool CAtProcessor::IsOpen() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_bStarted && m_bPortUp;
}

void CAtProcessor::SetPortListener(std::function<void(bool bOpen)> fn)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_listener = std::move(fn);
}

int CAtProcessor::GetLastError()
{
    return m_nLastError.load();
}

void CAtProcessor::SendInitCommands()
{
    unsigned long dwError = 0;
    // Without echo the answer lines are the modem's alone; with +CMEE=1 its
    // errors carry numbers rather than a bare ERROR.
    ExecuteText("ATE0", "", nullptr, &dwError, kInitTimeoutMs);
    ExecuteText("AT+CMEE=1", "", nullptr, &dwError, kInitTimeoutMs);
}

// ---- clients ----------------------------------------------------------------

bool CAtProcessor::RegisterClient(const std::string& strClient, IAtCallBack* pCallBack,
                                  const std::vector<CmdSetItem>& vctCmds)
{
    if (strClient.empty() || pCallBack == nullptr) {
        return false;
    }
    try {
        Client client;
        client.pCallBack = pCallBack;
        for (const CmdSetItem& row : vctCmds) {
            if (!row.name.empty()) {
                client.rows[row.name] = row;
            }
        }
        std::lock_guard<std::mutex> lock(m_mutex);
        m_clients[strClient] = std::move(client);
        RecomputeSubscribedLocked();
        return true;
    } catch (...) {
        if (JThread::IsCancellationInFlight()) {
            throw;
        }
        return false;
    }
}

bool CAtProcessor::UnRegisterClient(const std::string& strClient)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    const auto it = m_clients.find(strClient);
    if (it == m_clients.end()) {
        return false;
    }
    m_clients.erase(it);
    try {
        RecomputeSubscribedLocked();
    } catch (...) {
        if (JThread::IsCancellationInFlight()) {
            throw;
        }
        // Out of memory: the set may miss names; only reports are lost.
    }
    // A callback to this client may be running; the client may be destroyed
    // as soon as this returns. From inside that callback there is nothing to
    // wait for (and waiting would never end).
    if (std::this_thread::get_id() != m_dispatchId) {
        while (m_inFlightClient == strClient) {
            WaitOn(m_cvDispatch, lock, nullptr);
        }
    }
    return true;
}

void CAtProcessor::RecomputeSubscribedLocked()
{
    m_subscribed.clear();
    for (const auto& client : m_clients) {
        for (const auto& row : client.second.rows) {
            m_subscribed.insert(row.first);
        }
    }
}

// ---- commands ---------------------------------------------------------------

bool CAtProcessor::Fail(unsigned long code, unsigned long* pdwError)
{
    m_nLastError.store(static_cast<int>(code));
    if (pdwError != nullptr) {
        *pdwError = code;
    }
    return false;
}

bool CAtProcessor::PortChanged(std::uint64_t generation) const
{
    return m_bStopping || !m_bPortUp || m_uGeneration != generation;
}

bool CAtProcessor::WriteLine(const std::string& bytes, unsigned long ulTimeoutMs,
                             SerialPort::IoResult* pResult)
{
    const unsigned long waitMs = std::min(ulTimeoutMs, kMaxWriteWaitMs);
    std::lock_guard<std::mutex> write(m_writeMutex);
    *pResult = m_port.Write(bytes, static_cast<int>(waitMs));
    return *pResult == SerialPort::IoResult::Done;
}

// Stale answers. A command that timed out may still be answered: a slow
// operator search, or a modem that was busy. Until every answer the line owes
// has come (or is known never to come) no command is written, so a late final
// can never complete a newer command. What is owed is counted: one final per
// timed-out command and one per probe written and not yet answered.
//
// Settling, before the next command: the stale final is awaited for as long as
// the line keeps talking (its lines are recognised by the old command's name
// and dropped, also when that name is subscribed). When the line goes quiet an
// "AT+CMEE?" probe is sent. Modems answer in order, so once the probe's
// "+CMEE: 1" and the final after it have come, every final a timed-out command
// could still send came before it: the line owes nothing, also when the modem
// lost the old command altogether. When the probe's characters abort the old
// command (an abortable "+COPS=?") the abort result comes and the probe is
// swallowed; one more probe is sent then.
//
// Probes that went unanswered in an earlier settling may still be answered
// (a busy modem queues them) or never (it dropped them). Once a probe has been
// answered the modem is working through its input, and an instant command
// queued behind is answered at once; when a short quiet follows instead, the
// remaining ones were dropped and are no longer awaited.
//
// A modem that answers no probe at all is not taken for a clean line: the
// command fails with AT_ERROR_TIMEOUT unwritten, what is owed stays owed (a
// late final, however late, is still dropped), and the next command settles
// again with a fresh probe.
CAtProcessor::SettleResult CAtProcessor::Settle(std::unique_lock<std::mutex>& lock,
                                                std::uint64_t generation)
{
    const Clock::time_point start = Clock::now();
    const Clock::time_point hardEnd =
        start + kSettleMax + kMaxProbesPerSettle * kProbeTimeout + kProbeTail;
    const std::uint64_t answersAtStart = m_uProbeAnswers;
    int probesSent = 0;
    std::uint64_t finalsAtProbe = 0;
    Clock::time_point probeSentAt;
    for (;;) {
        if (PortChanged(generation)) {
            return SettleResult::PortChanged;
        }
        if (!OwedLocked()) {
            return SettleResult::Settled;
        }
        const Clock::time_point now = Clock::now();
        Clock::time_point wake;
        bool bProbe = false;
        if (m_uProbeAnswers != answersAtStart) {
            // A probe was answered; older ones are still owed.
            wake = m_tLastByte + kProbeTail;
            if (now >= wake || now >= hardEnd) {
                const unsigned dropped = m_uProbesOwed;
                ForgetOwedLocked();
                lock.unlock();
                Trace(TL_WARN, std::to_string(dropped) + " earlier probe(s) never answered");
                lock.lock();
                continue;
            }
        } else if (now >= hardEnd) {
            return SettleResult::Silent;
        } else if (probesSent == 0) {
            wake = std::min(m_tLastByte + kSettleQuiet, start + kSettleMax);
            bProbe = now >= wake;
        } else if (m_uDroppedFinals != finalsAtProbe && probesSent < kMaxProbesPerSettle) {
            // A final came after the probe went out, but not the probe's
            // answer: the probe may have been taken as an abort.
            wake = m_tLastByte + kSettleQuiet;
            bProbe = now >= wake;
        } else {
            wake = probeSentAt + kProbeTimeout;
            if (now >= wake) {
                return SettleResult::Silent;
            }
        }
        if (bProbe) {
            // Owed before it goes out: its answer may come before the write
            // call returns.
            ++m_uProbesOwed;
            ++probesSent;
            finalsAtProbe = m_uDroppedFinals;
            lock.unlock();
            Trace(TL_WARN, std::string("line unsettled after a time-out; sending ") + kProbeLine);
            SerialPort::IoResult io = SerialPort::IoResult::Done;
            WriteLine(std::string(kProbeLine) + "\r",
                      static_cast<unsigned long>(kProbeTimeout.count()), &io);
            lock.lock();
            if (io == SerialPort::IoResult::Lost) {
                return SettleResult::PortChanged;
            }
            if (io == SerialPort::IoResult::WouldBlock) {
                return SettleResult::Silent;   // the modem takes no bytes
            }
            probeSentAt = Clock::now();
            continue;
        }
        const Clock::time_point until = std::min(wake, hardEnd);
        WaitOn(m_cvLine, lock, &until);
    }
}

void CAtProcessor::ForgetOwedLocked()
{
    m_uStaleOwed = 0;
    m_uProbesOwed = 0;
    m_bProbeLineSeen = false;
    m_stale = RunningCommand();
}

// A final result while no command waits for one: owed by a timed-out command
// or a probe, and dropped.
void CAtProcessor::DropFinalLocked()
{
    ++m_uDroppedFinals;
    if (m_bProbeLineSeen) {
        // "+CMEE: 1" then "OK": a probe's answer. Modems answer in order, so
        // whatever a timed-out command owed came before it or never comes.
        m_bProbeLineSeen = false;
        if (m_uProbesOwed != 0) {
            --m_uProbesOwed;
        }
        m_uStaleOwed = 0;
        ++m_uProbeAnswers;
    } else if (m_uStaleOwed != 0) {
        --m_uStaleOwed;
    } else if (m_uProbesOwed != 0) {
        // Nothing but probes is owed: a probe answered without its "+CMEE:"
        // line (a bare ERROR).
        --m_uProbesOwed;
        ++m_uProbeAnswers;
    }
    if (m_uStaleOwed == 0) {
        // Its lines are not awaited any more: reports of that name flow again.
        m_stale = RunningCommand();
    }
}

bool CAtProcessor::Run(const std::string& line, Pending& cmd, unsigned long ulTimeoutMs,
                       unsigned long* pdwError)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    if (!m_bStarted || m_bStopping || !m_bPortUp) {
        return Fail(AT_ERROR_PORT_CLOSED, pdwError);
    }
    const std::uint64_t generation = m_uGeneration;

    // Counts this thread in for Close(), which waits until all are out.
    struct CallerCount {
        CAtProcessor& self;
        std::unique_lock<std::mutex>& lock;
        explicit CallerCount(CAtProcessor& s, std::unique_lock<std::mutex>& l) : self(s), lock(l)
        {
            ++self.m_nCallers;
        }
        ~CallerCount()
        {
            if (!lock.owns_lock()) {
                lock.lock();
            }
            --self.m_nCallers;
            self.m_cvLine.notify_all();
        }
    } caller(*this, lock);

    while (m_bLineBusy && !PortChanged(generation)) {
        WaitOn(m_cvLine, lock, nullptr);
    }
    if (PortChanged(generation)) {
        return Fail(AT_ERROR_PORT_CLOSED, pdwError);
    }
    LineTurn turn(*this, lock, cmd, generation);
    if (OwedLocked()) {
        switch (Settle(lock, generation)) {
        case SettleResult::Settled:
            break;
        case SettleResult::PortChanged:
            return Fail(AT_ERROR_PORT_CLOSED, pdwError);
        case SettleResult::Silent:
            lock.unlock();
            Trace(TL_WARN, "the modem answers no probe; " + Printable(line) + " not sent");
            return Fail(AT_ERROR_TIMEOUT, pdwError);
        }
    }

    m_pRunning = &cmd;
    cmd.bWritten = true;
    lock.unlock();
    Trace(TL_INFO, "-> " + Printable(line));
    SerialPort::IoResult io = SerialPort::IoResult::Done;
    WriteLine(line + "\r", ulTimeoutMs, &io);
    lock.lock();
    if (cmd.bDone) {
        // Answered (or failed by a port loss) before the write call returned.
    } else if (io == SerialPort::IoResult::Lost) {
        return Fail(AT_ERROR_PORT_CLOSED, pdwError);
    } else if (io == SerialPort::IoResult::WouldBlock) {
        return Fail(AT_ERROR_TIMEOUT, pdwError);
    }

    const Clock::time_point deadline =
        Clock::now() + milliseconds(std::min(ulTimeoutMs, kMaxTimeoutMs));
    while (!cmd.bDone && !PortChanged(generation) && Clock::now() < deadline) {
        WaitOn(m_cvLine, lock, &deadline);
    }
    if (cmd.bDone) {
        if (cmd.bOk) {
            return true;
        }
        return Fail(cmd.dwError, pdwError);
    }
    if (PortChanged(generation)) {
        return Fail(AT_ERROR_PORT_CLOSED, pdwError);
    }
    return Fail(AT_ERROR_TIMEOUT, pdwError);
}

bool CAtProcessor::ExecuteText(const std::string& strLine, const std::string& strInfoName,
                               std::vector<std::string>* pInfoLines, unsigned long* pdwError,
                               unsigned long ulTimeoutMs)
{
    try {
        if (!IsSendableText(strLine)) {
            return Fail(AT_ERROR_BAD_COMMAND, pdwError);
        }
        Pending cmd;
        cmd.desc.name = strInfoName;
        cmd.bRouteInfo = pInfoLines == nullptr && !strInfoName.empty();
        if (!Run(strLine, cmd, ulTimeoutMs, pdwError)) {
            Trace(TL_WARN, Printable(strLine) + " failed: " + std::to_string(m_nLastError.load()));
            return false;
        }
        if (pInfoLines != nullptr) {
            *pInfoLines = std::move(cmd.infoTexts);
        }
        return true;
    } catch (...) {
        if (JThread::IsCancellationInFlight()) {
            throw;
        }
        return Fail(AT_ERROR_UNKNOWN, pdwError);
    }
}

bool CAtProcessor::RunObject(ICommand* pCmd, bool bRouteInfo, unsigned long ulTimeoutMs,
                             unsigned long* pdwError, Pending& cmd)
{
    if (pCmd == nullptr) {
        return Fail(AT_ERROR_BAD_COMMAND, pdwError);
    }
    const std::string line = FormatCommandLine(*pCmd);
    if (line.empty()) {
        return Fail(AT_ERROR_BAD_COMMAND, pdwError);
    }
    cmd.desc.name = pCmd->GetName();
    cmd.desc.bRawData = (pCmd->GetType() & AT_TYPE_RAWDATA) != 0;
    cmd.bRouteInfo = bRouteInfo;
    if (!Run(line, cmd, ulTimeoutMs, pdwError)) {
        Trace(TL_WARN, Printable(line) + " failed: " + std::to_string(m_nLastError.load()));
        return false;
    }
    return true;
}

template <typename Body>
bool CAtProcessor::Guarded(unsigned long* pdwError, Body body)
{
    try {
        return body();
    } catch (...) {
        if (JThread::IsCancellationInFlight()) {
            throw;
        }
        return Fail(AT_ERROR_UNKNOWN, pdwError);
    }
}

bool CAtProcessor::ExecuteCmdWaitResponse(ICommand* pCmd, ICommand* pRsp,
                                          unsigned long* pdwError, unsigned long ulTimeoutMs)
{
    return Guarded(pdwError, [&] {
        if (pRsp == nullptr) {
            return Fail(AT_ERROR_BAD_COMMAND, pdwError);
        }
        Pending cmd;
        if (!RunObject(pCmd, false, ulTimeoutMs, pdwError, cmd)) {
            return false;
        }
        // One answer line is expected; a modem that repeats it is read once.
        if (!cmd.infoTexts.empty()) {
            FillResponse(*pRsp, InfoFields(cmd.infoTexts.front(), cmd.desc.bRawData));
        }
        return true;
    });
}

bool CAtProcessor::ExecuteCmdWaitMultiResponse(ICommand* pCmd, IMultiResponse* pRsp,
                                               unsigned long* pdwError,
                                               unsigned long ulTimeoutMs)
{
    return Guarded(pdwError, [&] {
        if (pRsp == nullptr) {
            return Fail(AT_ERROR_BAD_COMMAND, pdwError);
        }
        Pending cmd;
        if (!RunObject(pCmd, false, ulTimeoutMs, pdwError, cmd)) {
            return false;
        }
        for (const std::string& text : cmd.infoTexts) {
            IResponse* pOne = pRsp->AddRsp();
            if (pOne == nullptr) {
                break;   // the collection ran out of memory; keep what it holds
            }
            FillResponse(*pOne, InfoFields(text, cmd.desc.bRawData));
        }
        return true;
    });
}

bool CAtProcessor::ExecuteCmdNoResponse(ICommand* pCmd, unsigned long* pdwError,
                                        unsigned long ulTimeoutMs)
{
    // Its information lines (an operator search's list) go to the subscribers.
    return Guarded(pdwError, [&] {
        Pending cmd;
        return RunObject(pCmd, true, ulTimeoutMs, pdwError, cmd);
    });
}

void CAtProcessor::CloseWakePipe()
{
    ::close(m_wakeRead);
    ::close(m_wakeWrite);
    m_wakeRead = -1;
    m_wakeWrite = -1;
}

// ---- reader thread ----------------------------------------------------------

void CAtProcessor::ReaderLoop()
{
    bool bReopenTraced = false;
    while (!m_bStopRequested.load()) {
        if (!m_port.IsOpen()) {
            WaitForWake(kReopenIntervalMs);
            if (m_bStopRequested.load()) {
                break;
            }
            if (TryReopen()) {
                bReopenTraced = false;
            } else if (!bReopenTraced) {
                Trace(TL_INFO, "waiting for " + m_path + " to come back");
                bReopenTraced = true;
            }
            continue;
        }
        struct pollfd fds[2] = {};
        fds[0].fd = m_port.Fd();
        fds[0].events = POLLIN;
        fds[1].fd = m_wakeRead;
        fds[1].events = POLLIN;
        const int ready = ::poll(fds, 2, 1000);
        if (ready < 0) {
            if (errno != EINTR) {
                WaitForWake(50);   // should not happen; do not spin
            }
            continue;
        }
        if (fds[1].revents != 0) {
            WaitForWake(0);
            continue;
        }
        if ((fds[0].revents & POLLIN) != 0) {
            ReadAvailable();
        } else if ((fds[0].revents & (POLLHUP | POLLERR | POLLNVAL)) != 0) {
            OnPortLost();
        }
    }
    std::lock_guard<std::mutex> write(m_writeMutex);
    m_port.Close();
}

void CAtProcessor::StopReader()
{
    m_bStopRequested.store(true);
    const char wake = 1;
    if (::write(m_wakeWrite, &wake, 1) < 0) {
        // EAGAIN: the pipe is full, so the reader has been woken already.
    }
}

void CAtProcessor::WaitForWake(int timeoutMs)
{
    struct pollfd pfd = {};
    pfd.fd = m_wakeRead;
    pfd.events = POLLIN;
    if (::poll(&pfd, 1, timeoutMs) > 0) {
        char drain[64];
        while (::read(m_wakeRead, drain, sizeof(drain)) > 0) {
        }
    }
}

void CAtProcessor::ReadAvailable()
{
    char buffer[4096];
    for (;;) {
        std::size_t got = 0;
        const SerialPort::IoResult io = m_port.Read(buffer, sizeof(buffer), &got);
        if (io == SerialPort::IoResult::Lost) {
            OnPortLost();
            return;
        }
        if (io == SerialPort::IoResult::WouldBlock) {
            return;
        }
        HandleLines(m_framer.Feed(std::string_view(buffer, got)));
    }
}

void CAtProcessor::HandleLines(const std::vector<std::string>& lines)
{
    // Traced before they are acted on, so that the trace shows an answer
    // before the next command that its caller writes.
    for (const std::string& line : lines) {
        Trace(TL_INFO, "<- " + Printable(line));
    }
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        // Any byte counts as activity, also the first part of a line.
        m_tLastByte = Clock::now();
        for (const std::string& line : lines) {
            HandleLineLocked(line);
        }
    }
    m_cvLine.notify_all();
    m_cvDispatch.notify_all();
}

void CAtProcessor::HandleLineLocked(const std::string& line)
{
    Pending* pRunning = (m_pRunning != nullptr && !m_pRunning->bDone) ? m_pRunning : nullptr;
    const RunningCommand* pDesc = nullptr;
    if (pRunning != nullptr) {
        pDesc = &pRunning->desc;
    } else if (m_uStaleOwed != 0) {
        pDesc = &m_stale;
    }
    LineClass cls = ClassifyLine(line, pDesc, m_subscribed);
    // The old command's own lines first: a timed-out "AT+CMEE?" answers
    // "+CMEE: 1" too, before any probe does.
    if (pRunning == nullptr && m_uProbesOwed != 0 && cls.kind != LineKind::Information &&
        IsProbeAnswerLine(line)) {
        m_bProbeLineSeen = true;
        return;
    }
    switch (cls.kind) {
    case LineKind::FinalOk:
    case LineKind::FinalError:
        if (pRunning != nullptr) {
            pRunning->bDone = true;
            pRunning->bOk = cls.kind == LineKind::FinalOk;
            pRunning->dwError = cls.errorCode;
        } else {
            DropFinalLocked();
        }
        break;
    case LineKind::Information:
        if (pRunning == nullptr) {
            break;   // a line of the timed-out command: dropped with it
        }
        if (pRunning->bRouteInfo) {
            if (m_subscribed.find(cls.name) != m_subscribed.end()) {
                Job job;
                job.name = std::move(cls.name);
                job.text = std::move(cls.text);
                QueueJobLocked(std::move(job));
            }
        } else if (pRunning->infoTexts.size() < kMaxInfoLines) {
            pRunning->infoTexts.push_back(std::move(cls.text));
        }
        break;
    case LineKind::Report: {
        Job job;
        job.name = std::move(cls.name);
        job.text = std::move(cls.text);
        QueueJobLocked(std::move(job));
        break;
    }
    case LineKind::Other:
        break;
    }
}

void CAtProcessor::OnPortLost()
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_bPortUp) {
            m_bPortUp = false;
            ++m_uGeneration;
            if (m_pRunning != nullptr && !m_pRunning->bDone) {
                m_pRunning->bDone = true;
                m_pRunning->dwError = AT_ERROR_PORT_CLOSED;
            }
            // A new line owes nothing; the old one's answers are gone with it.
            ForgetOwedLocked();
            if (!m_bStopping) {
                Job job;
                job.kind = Job::Kind::PortDown;
                QueueJobLocked(std::move(job));
            }
        }
    }
    m_cvLine.notify_all();
    m_cvDispatch.notify_all();
    {
        std::lock_guard<std::mutex> write(m_writeMutex);
        m_port.Close();
    }
    m_framer.Reset();
    Trace(TL_WARN, m_path + " vanished");
}

bool CAtProcessor::TryReopen()
{
    std::string error;
    {
        std::lock_guard<std::mutex> write(m_writeMutex);
        if (!m_port.Open(m_path, m_baud, &error)) {
            return false;
        }
    }
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        if (m_bStopping) {
            return true;   // Close() is on its way; the reader closes the port on exit
        }
        m_bPortUp = true;
        ++m_uGeneration;
        m_tLastByte = Clock::now();
        Job job;
        job.kind = Job::Kind::PortUp;
        job.bInit = true;
        QueueJobLocked(std::move(job));
    }
    m_cvLine.notify_all();
    m_cvDispatch.notify_all();
    Trace(TL_WARN, m_path + " is back");
    return true;
}

// ---- dispatch thread --------------------------------------------------------

void CAtProcessor::QueueJobLocked(Job job)
{
    if (job.kind == Job::Kind::Report) {
        if (m_nQueuedReports >= kMaxQueuedReports) {
            ++m_nDroppedReports;
            return;
        }
        ++m_nQueuedReports;
    }
    m_jobs.push_back(std::move(job));
}

void CAtProcessor::DispatchLoop()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_dispatchId = std::this_thread::get_id();
    for (;;) {
        m_cvDispatch.wait(lock, [this] { return m_bStopping || !m_jobs.empty(); });
        if (m_bStopping) {
            break;
        }
        Job job = std::move(m_jobs.front());
        m_jobs.pop_front();
        if (job.kind == Job::Kind::Report) {
            --m_nQueuedReports;
        }
        if (m_nDroppedReports != 0) {
            const std::string dropped = std::to_string(m_nDroppedReports);
            m_nDroppedReports = 0;
            lock.unlock();
            Trace(TL_WARN, dropped + " reports dropped: the report queue was full");
            lock.lock();
        }

        if (job.kind != Job::Kind::Report) {
            const std::function<void(bool)> listener = m_listener;
            lock.unlock();
            if (job.bInit) {
                SendInitCommands();
            }
            if (listener) {
                try {
                    listener(job.kind == Job::Kind::PortUp);
                } catch (...) {
                    if (JThread::IsCancellationInFlight()) {
                        throw;
                    }
                    Trace(TL_CRIT, "port listener threw an exception");
                }
            }
            lock.lock();
            continue;
        }

        const ParamList fields = SplitAtFields(job.text);
        std::vector<std::string> targets;
        for (const auto& client : m_clients) {
            if (client.second.rows.count(job.name) != 0) {
                targets.push_back(client.first);
            }
        }
        for (const std::string& target : targets) {
            if (m_bStopping) {
                break;
            }
            const auto it = m_clients.find(target);
            if (it == m_clients.end()) {
                continue;   // unregistered meanwhile
            }
            const auto row = it->second.rows.find(job.name);
            if (row == it->second.rows.end()) {
                continue;
            }
            Command cmd;
            cmd.name = job.name;
            cmd.index = row->second.index;
            cmd.type = row->second.type;
            cmd.params = fields;
            IAtCallBack* pCallBack = it->second.pCallBack;
            m_inFlightClient = target;
            lock.unlock();
            try {
                pCallBack->AtCallBackEvent(cmd);
            } catch (...) {
                if (JThread::IsCancellationInFlight()) {
                    throw;
                }
                Trace(TL_CRIT, "client " + target + " threw an exception from its report callback");
            }
            lock.lock();
            m_inFlightClient.clear();
            m_cvDispatch.notify_all();
        }
    }
    m_dispatchId = std::thread::id();
}

}  // namespace host
