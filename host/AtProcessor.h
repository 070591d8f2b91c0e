// The host's AT processor on a real serial line: runs one command at a time,
// routes unsolicited reports to the clients that subscribed to them, and follows
// the port as it vanishes and comes back.
// Thread-safe: every public operation may be called from any thread, also from
// inside a report callback or the port listener, except Open(), Close() and the
// destructor, which must not be called from either (Close joins the thread
// that runs them).
//
// Layers: bytes (SerialPort, reader thread) -> LineFramer -> ClassifyLine ->
// this dispatcher. Three kinds of thread meet here:
//  - callers of the Execute* operations, who take the line in turn, write their
//    command and wait (condition variable with a deadline) for its final result;
//  - the reader thread, the only one that reads the port; it never runs client
//    code and never waits for a client;
//  - the dispatch thread, which calls AtCallBackEvent for every report in
//    arrival order, and the port listener; a client may run commands from there.
// No client callback runs while a lock of the processor is held.
#ifndef HOST_ATPROCESSOR_H
#define HOST_ATPROCESSOR_H

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "AtCodec/IProcessor.h"
#include "LineClassifier.h"
#include "LineFramer.h"
#include "SerialPort.h"

namespace host {

class CAtProcessor : public IProcessor {
public:
    explicit CAtProcessor(const std::string& devicePath, int baud = 115200);
    ~CAtProcessor() override;
    CAtProcessor(const CAtProcessor&) = delete;
    CAtProcessor& operator=(const CAtProcessor&) = delete;

    // Opens the port, starts the reader and dispatch threads and sends ATE0 and
    // AT+CMEE=1 (their outcome is ignored: a modem that keeps its echo still
    // works, and one without +CMEE answers a bare ERROR). False with a one-line
    // reason when the port cannot be opened. True at once when already open.
    bool Open(std::string* pError);
    // Fails the running and waiting commands with AT_ERROR_PORT_CLOSED, stops
    // the threads (reports not yet delivered are dropped) and closes the port.
    // Commands issued afterwards fail at once with AT_ERROR_PORT_CLOSED, so a
    // host may close the line before it unloads the clients whose threads
    // still run commands. Open() may be called again afterwards.
    void Close();
    // True while the port is open (false between a vanish and the reopen).
    bool IsOpen() const;

    // Called with true once the port is open and ATE0/AT+CMEE=1 have been sent
    // (after Open() and after every reopen), and with false when the port
    // vanishes. Runs on the dispatch thread, in order with the reports, with
    // no lock held. After a vanish the processor tries to reopen the same path
    // every 500 ms.
    void SetPortListener(std::function<void(bool bOpen)> fn);

    // A command line of the host's own ("AT+GCAP"), without its CR; a line with
    // a control character fails with AT_ERROR_BAD_COMMAND. On success
    // pInfoLines (if not null) gets the text after "NAME:" of each line that
    // starts with strInfoName and ':', trimmed. With pInfoLines null those
    // lines go to the subscribers of strInfoName as reports.
    bool ExecuteText(const std::string& strLine, const std::string& strInfoName,
                     std::vector<std::string>* pInfoLines, unsigned long* pdwError,
                     unsigned long ulTimeoutMs);

    // IBaseInterface. The processor belongs to the host, which deletes it:
    // Release does nothing. GetLastError gives the code of the last failed
    // command (0 when none failed).
    void Release() override {}
    int GetLastError() override;

    // IProcessor. Errors: a modem's code (+CME ERROR / +CMS ERROR number, 100
    // for a bare ERROR, 4 for COMMAND NOT SUPPORT), or AT_ERROR_TIMEOUT,
    // AT_ERROR_PORT_CLOSED, AT_ERROR_BAD_COMMAND. The time-out of a command is
    // counted from the moment it is written; waiting for one's turn is not.
    // A command that timed out may still be answered later: that answer is
    // dropped, and before the next command is written the line is settled
    // (the late final awaited, or an "AT+CMEE?" probe answered). A modem that
    // answers neither fails the next command with AT_ERROR_TIMEOUT without
    // writing it. The error word is written only on failure.
    bool RegisterClient(const std::string& strClient, IAtCallBack* pCallBack,
                        const std::vector<CmdSetItem>& vctCmds) override;
    // Waits for a callback to this client that is running on the dispatch
    // thread to return (unless called from inside it), so that the client may
    // be destroyed right afterwards.
    bool UnRegisterClient(const std::string& strClient) override;
    bool ExecuteCmdWaitResponse(ICommand* pCmd, ICommand* pRsp, unsigned long* pdwError,
                                unsigned long ulTimeoutMs) override;
    bool ExecuteCmdWaitMultiResponse(ICommand* pCmd, IMultiResponse* pRsp,
                                     unsigned long* pdwError, unsigned long ulTimeoutMs) override;
    // Information lines of the command (the operator search "+COPS=?") are
    // delivered to the subscribers of its name, like reports.
    bool ExecuteCmdNoResponse(ICommand* pCmd, unsigned long* pdwError,
                              unsigned long ulTimeoutMs) override;

private:
    using Clock = std::chrono::steady_clock;

    // One command on the line; lives on its caller's stack.
    struct Pending {
        RunningCommand desc;
        bool bRouteInfo = false;   // information lines go to subscribers
        bool bWritten = false;     // (some of) its bytes went out
        bool bDone = false;
        bool bOk = false;          // with bDone: "OK" (else dwError holds the code)
        unsigned long dwError = 0;
        std::vector<std::string> infoTexts;
    };

    struct Client {
        IAtCallBack* pCallBack = nullptr;
        std::map<std::string, CmdSetItem, std::less<>> rows;   // by AT name
    };

    struct Job {
        enum class Kind { Report, PortUp, PortDown } kind = Kind::Report;
        std::string name;     // Report
        std::string text;     // Report: what follows "NAME:"
        bool bInit = false;   // PortUp: send ATE0 / AT+CMEE=1 first
    };

    class LineTurn;

    enum class SettleResult { Settled, Silent, PortChanged };

    bool Run(const std::string& line, Pending& cmd, unsigned long ulTimeoutMs,
             unsigned long* pdwError);
    // Closes the pipe that wakes the reader thread (after it was joined).
    void CloseWakePipe();
    // Formats a command object and runs it; its answer lines land in cmd.
    bool RunObject(ICommand* pCmd, bool bRouteInfo, unsigned long ulTimeoutMs,
                   unsigned long* pdwError, Pending& cmd);
    // Runs body; anything it throws but a thread's cancellation fails the command.
    template <typename Body>
    bool Guarded(unsigned long* pdwError, Body body);
    SettleResult Settle(std::unique_lock<std::mutex>& lock, std::uint64_t generation);
    bool OwedLocked() const { return m_uStaleOwed != 0 || m_uProbesOwed != 0; }
    void ForgetOwedLocked();
    void DropFinalLocked();
    bool PortChanged(std::uint64_t generation) const;
    bool WriteLine(const std::string& bytes, unsigned long ulTimeoutMs,
                   SerialPort::IoResult* pResult);
    bool Fail(unsigned long code, unsigned long* pdwError);
    void SendInitCommands();

    void ReaderLoop();
    void ReadAvailable();
    void HandleLines(const std::vector<std::string>& lines);
    void HandleLineLocked(const std::string& line);
    void OnPortLost();
    bool TryReopen();
    void WaitForWake(int timeoutMs);
    void StopReader();

    void DispatchLoop();
    void QueueJobLocked(Job job);
    void RecomputeSubscribedLocked();

    const std::string m_path;
    const int m_baud;

    std::mutex m_lifeMutex;                 // Open/Close against each other
    mutable std::mutex m_mutex;             // everything below up to m_writeMutex
    std::condition_variable m_cvLine;       // line free, command done, port change
    std::condition_variable m_cvDispatch;   // jobs queued, callback returned
    bool m_bStarted = false;
    bool m_bStopping = false;
    bool m_bPortUp = false;
    std::uint64_t m_uGeneration = 0;        // bumped at every open and loss
    int m_nCallers = 0;                     // threads inside Run
    bool m_bLineBusy = false;
    Pending* m_pRunning = nullptr;
    // Answers the line still owes (see Settle); no command is written while
    // any is owed.
    unsigned m_uStaleOwed = 0;              // finals of commands that timed out
    unsigned m_uProbesOwed = 0;             // settling probes not yet answered
    RunningCommand m_stale;                 // the last such command, to recognise its lines
    bool m_bProbeLineSeen = false;          // a probe's "+CMEE:" came: the next final is its
    std::uint64_t m_uProbeAnswers = 0;      // probes answered, ever
    std::uint64_t m_uDroppedFinals = 0;     // finals of no running command, ever
    Clock::time_point m_tLastByte;
    std::map<std::string, Client, std::less<>> m_clients;
    NameSet m_subscribed;
    std::deque<Job> m_jobs;
    std::size_t m_nQueuedReports = 0;
    std::size_t m_nDroppedReports = 0;
    std::string m_inFlightClient;           // whose callback runs now
    std::thread::id m_dispatchId;
    std::function<void(bool)> m_listener;

    std::mutex m_writeMutex;                // m_port's descriptor against close/reopen
    SerialPort m_port;

    // Reader thread only.
    LineFramer m_framer;

    std::atomic<bool> m_bStopRequested{false};
    std::atomic<int> m_nLastError{0};
    int m_wakeRead = -1;                    // self-pipe that wakes the reader
    int m_wakeWrite = -1;
    std::thread m_reader;
    std::thread m_dispatcher;
};

}  // namespace host

#endif
