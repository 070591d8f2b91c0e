// The simulator's service thread: reads the port, answers command lines
// after their delays, runs the timeline and the fault switches.
//
// Ownership: the state, the port and everything that is read or written on
// the port belong to the service thread alone. API calls reach them as tasks
// that the thread runs (VanishPort and RestorePort wait for theirs); the silent
// switch is an atomic flag. Only the slave path, the task queue and the trace
// function are shared, under Impl::mutex.

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <deque>
#include <future>
#include <mutex>
#include <optional>
#include <thread>

#include "Garbage.h"
#include "InputFramer.h"
#include "ModemEngine.h"
#include "ModemSimulator.h"
#include "PtyPort.h"
#include "StatePatch.h"
#include "Timeline.h"
#include "UnsolicitedReports.h"

namespace modemsim {

namespace {

using Clock = std::chrono::steady_clock;

// Output that nobody reads piles up in the pty; beyond this it is dropped, as
// a serial line drops what no one listens to.
constexpr std::size_t kMaxOutbox = 1024 * 1024;
// Upper bound of one wait, so that a clock step never parks the thread.
constexpr int kMaxWaitMs = 1000;

std::string Printable(std::string_view bytes)
{
    std::string shown;
    for (char ch : bytes) {
        const unsigned char byte = static_cast<unsigned char>(ch);
        if (ch == '\r') {
            shown += "\\r";
        } else if (ch == '\n') {
            shown += "\\n";
        } else if (byte < 0x20 || byte >= 0x7f) {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\x%02x", byte);
            shown += escaped;
        } else {
            shown += ch;
        }
    }
    return shown;
}

}  // namespace

struct Simulator::Impl {
    explicit Impl(const Profile& profileIn) : profile(profileIn) {}

    struct PendingAnswer {
        Clock::time_point due;
        std::string text;
    };

    const Profile profile;

    // Service thread only.
    ModemState state;
    PtyPort port;
    InputFramer framer;
    std::deque<InputLine> lines;
    std::optional<PendingAnswer> pending;
    std::string outbox;
    TimelineClock timeline;
    Clock::time_point started;
    uint32_t garbageSeed = 1;
    std::string linkPath;   // written before the thread starts, read-only after

    // Shared.
    std::atomic<bool> bSilent{false};
    std::atomic<bool> bStopRequested{false};
    mutable std::mutex mutex;
    std::deque<std::function<void()>> tasks;
    bool bAcceptingTasks = false;
    std::thread::id serviceThreadId;
    std::string slavePath;
    std::function<void(const std::string&)> fnTrace;
    int wakeRead = -1;
    int wakeWrite = -1;

    std::mutex lifecycle;   // Start and Stop
    std::thread thread;

    void Trace(const std::string& text)
    {
        std::function<void(const std::string&)> fn;
        {
            std::lock_guard<std::mutex> lock(mutex);
            fn = fnTrace;
        }
        if (fn) {
            fn(text);
        }
    }

    void Wake()
    {
        const char byte = 1;
        // A full pipe already holds a wake-up; nothing is lost by dropping this one.
        ssize_t ignored = write(wakeWrite, &byte, 1);
        (void)ignored;
    }

    bool Post(std::function<void()> task)
    {
        // Under the lock: Stop closes the pipe only once no task is accepted.
        std::lock_guard<std::mutex> lock(mutex);
        if (!bAcceptingTasks) {
            return false;
        }
        tasks.push_back(std::move(task));
        Wake();
        return true;
    }

    // Runs task on the service thread and waits for it; false when the
    // simulator is not running.
    bool RunAndWait(const std::function<void()>& task)
    {
        {
            std::lock_guard<std::mutex> lock(mutex);
            if (bAcceptingTasks && std::this_thread::get_id() == serviceThreadId) {
                // Called from a trace callback: already on the service thread.
                task();
                return true;
            }
        }
        std::promise<void> done;
        std::future<void> finished = done.get_future();
        if (!Post([&task, &done] {
                task();
                done.set_value();
            })) {
            return false;
        }
        finished.wait();
        return true;
    }

    void RunTasks()
    {
        std::deque<std::function<void()>> batch;
        {
            std::lock_guard<std::mutex> lock(mutex);
            batch.swap(tasks);
        }
        for (auto& task : batch) {
            task();
        }
    }

    void Emit(const std::string& bytes)
    {
        if (port.master < 0 || bytes.empty()) {
            return;
        }
        if (outbox.size() + bytes.size() > kMaxOutbox) {
            Trace("!! output dropped: nobody reads the port");
            return;
        }
        outbox += bytes;
        Flush();
    }

    void Flush()
    {
        while (!outbox.empty() && port.master >= 0) {
            const ssize_t n = write(port.master, outbox.data(), outbox.size());
            if (n > 0) {
                outbox.erase(0, static_cast<std::size_t>(n));
            } else if (n < 0 && errno == EINTR) {
                continue;
            } else {
                if (n < 0 && errno != EAGAIN && errno != EWOULDBLOCK) {
                    outbox.clear();
                }
                return;
            }
        }
    }

    void DropPortTraffic()
    {
        framer.Reset();
        lines.clear();
        pending.reset();
        outbox.clear();
    }

    void Vanish()
    {
        if (port.master < 0) {
            return;
        }
        // Name first, then the port: a host that sees the hang-up and reopens
        // at once finds no device, as after an unplug.
        RemoveLink(linkPath);
        {
            std::lock_guard<std::mutex> lock(mutex);
            slavePath.clear();
        }
        ClosePtyPort(&port);
        DropPortTraffic();
        Trace("!! port vanished");
    }

    bool Restore(std::string* pError)
    {
        if (port.master >= 0) {
            return true;
        }
        PtyPort fresh;
        if (!OpenPtyPort(&fresh, pError)) {
            return false;
        }
        if (!linkPath.empty() && !PointLink(linkPath, fresh.slavePath, pError)) {
            ClosePtyPort(&fresh);
            return false;
        }
        port = std::move(fresh);
        {
            std::lock_guard<std::mutex> lock(mutex);
            slavePath = port.slavePath;
        }
        Trace("!! port restored at " + port.slavePath);
        return true;
    }

    void Garbage()
    {
        Trace("!! garbage");
        Emit(MakeGarbage(garbageSeed++));
    }

    void Report(const std::string& line)
    {
        Trace("-> " + line);
        Emit(FrameLine(line));
    }

    void RunEvent(const TimelineEvent& event, std::size_t index)
    {
        if (!event.send.empty()) {
            Report(event.send);
        } else if (!event.setPatch.empty()) {
            std::string problem;
            const std::string path = "timeline[" + std::to_string(index) + "].set";
            if (ApplyStatePatch(&state, event.setPatch, path, &problem)) {
                Trace("!! state changed: " + event.setPatch);
            } else {
                Trace("!! " + problem);
            }
        } else if (event.report) {
            for (const std::string& line : RenderReport(*event.report, state)) {
                Report(line);
            }
        } else if (event.fault) {
            switch (*event.fault) {
            case FaultAction::SilentOn:
                bSilent = true;
                Trace("!! silent");
                break;
            case FaultAction::SilentOff:
                bSilent = false;
                Trace("!! answering again");
                break;
            case FaultAction::Garbage:
                Garbage();
                break;
            case FaultAction::Vanish:
                Vanish();
                break;
            case FaultAction::Restore: {
                std::string error;
                if (!Restore(&error)) {
                    Trace("!! " + error);
                }
                break;
            }
            }
        }
    }

    uint64_t ElapsedMs(Clock::time_point now) const
    {
        return static_cast<uint64_t>(
            std::chrono::duration_cast<std::chrono::milliseconds>(now - started).count());
    }

    void ReadPort()
    {
        char buffer[4096];
        for (;;) {
            const ssize_t n = read(port.master, buffer, sizeof buffer);
            if (n < 0 && errno == EINTR) {
                continue;
            }
            if (n <= 0) {
                return;
            }
            const std::string_view bytes(buffer, static_cast<std::size_t>(n));
            for (InputLine& line : framer.Feed(bytes)) {
                if (bSilent) {
                    Trace("<- " + Printable(line.text) + " (silent: ignored)");
                } else {
                    lines.push_back(std::move(line));
                }
            }
        }
    }

    void AnswerLines(Clock::time_point now)
    {
        if (pending && pending->due <= now) {
            if (!bSilent) {
                Emit(pending->text);
            }
            pending.reset();
        }
        while (!pending && !lines.empty() && port.master >= 0) {
            InputLine line = std::move(lines.front());
            lines.pop_front();
            Answer answer = AnswerCommandLine(profile, state, line.text, line.bOverlong);
            Trace("<- " + Printable(line.text));
            Trace("-> " + Printable(answer.text) +
                  (answer.delayMs ? " (after " + std::to_string(answer.delayMs) + " ms)" : ""));
            if (bSilent) {
                continue;
            }
            Emit(answer.echo);
            if (answer.delayMs == 0) {
                Emit(answer.text);
            } else {
                pending = PendingAnswer{now + std::chrono::milliseconds(answer.delayMs),
                                        std::move(answer.text)};
            }
        }
    }

    int WaitMs(Clock::time_point now) const
    {
        int64_t wait = kMaxWaitMs;
        if (std::optional<uint64_t> next = timeline.NextDueMs()) {
            const int64_t untilEvent = static_cast<int64_t>(*next) -
                                       static_cast<int64_t>(ElapsedMs(now));
            wait = std::min(wait, untilEvent);
        }
        if (pending) {
            using std::chrono::milliseconds;
            const int64_t untilAnswer =
                std::chrono::duration_cast<milliseconds>(pending->due - now).count() + 1;
            wait = std::min(wait, untilAnswer);
        }
        return static_cast<int>(std::max<int64_t>(wait, 0));
    }

    void Serve()
    {
        while (!bStopRequested) {
            RunTasks();
            Clock::time_point now = Clock::now();
            for (std::size_t index : timeline.TakeDue(ElapsedMs(now))) {
                RunEvent(profile.timeline[index], index);
            }
            AnswerLines(now);
            Flush();

            pollfd fds[2] = {{wakeRead, POLLIN, 0}, {port.master, POLLIN, 0}};
            if (!outbox.empty()) {
                fds[1].events |= POLLOUT;
            }
            const nfds_t count = port.master >= 0 ? 2 : 1;
            if (poll(fds, count, WaitMs(Clock::now())) < 0 && errno != EINTR) {
                Trace(std::string("!! poll failed: ") + std::strerror(errno));
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
                continue;
            }
            if (fds[0].revents & POLLIN) {
                char drain[64];
                while (read(wakeRead, drain, sizeof drain) > 0) {
                }
            }
            if (count == 2 && (fds[1].revents & POLLIN)) {
                ReadPort();
            } else if (count == 2 && (fds[1].revents & (POLLHUP | POLLERR | POLLNVAL))) {
                // Not expected while the simulator holds the slave open; never spin on it.
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
            }
        }
        // Tasks that raced with the stop still run, so no caller waits forever.
        {
            std::lock_guard<std::mutex> lock(mutex);
            bAcceptingTasks = false;
        }
        RunTasks();
    }
};

Simulator::Simulator(const Profile& profile) : m_pImpl(new Impl(profile)) {}

Simulator::~Simulator()
{
    Stop();
}

bool Simulator::Start(std::string* pError, const std::string& linkPath)
{
    Impl& impl = *m_pImpl;
    std::lock_guard<std::mutex> lifecycle(impl.lifecycle);
    if (impl.thread.joinable()) {
        *pError = "the simulator is already running";
        return false;
    }
    PtyPort port;
    if (!OpenPtyPort(&port, pError)) {
        return false;
    }
    if (!linkPath.empty() && !PointLink(linkPath, port.slavePath, pError)) {
        ClosePtyPort(&port);
        return false;
    }
    int wake[2];
    if (pipe2(wake, O_CLOEXEC | O_NONBLOCK) != 0) {
        *pError = std::string("cannot create a pipe: ") + std::strerror(errno);
        RemoveLink(linkPath);
        ClosePtyPort(&port);
        return false;
    }
    impl.port = std::move(port);
    impl.linkPath = linkPath;
    impl.state = impl.profile.initial;
    impl.DropPortTraffic();
    impl.timeline = TimelineClock(impl.profile.timeline);
    impl.started = Clock::now();
    impl.bStopRequested = false;
    impl.wakeRead = wake[0];
    impl.wakeWrite = wake[1];
    {
        std::lock_guard<std::mutex> lock(impl.mutex);
        impl.slavePath = impl.port.slavePath;
        impl.bAcceptingTasks = true;
    }
    try {
        impl.thread = std::thread([&impl] { impl.Serve(); });
    } catch (const std::exception& e) {
        *pError = std::string("cannot start the simulator thread: ") + e.what();
        {
            std::lock_guard<std::mutex> lock(impl.mutex);
            impl.bAcceptingTasks = false;
            impl.slavePath.clear();
        }
        close(impl.wakeRead);
        close(impl.wakeWrite);
        impl.wakeRead = impl.wakeWrite = -1;
        RemoveLink(linkPath);
        ClosePtyPort(&impl.port);
        return false;
    }
    {
        std::lock_guard<std::mutex> lock(impl.mutex);
        impl.serviceThreadId = impl.thread.get_id();
    }
    return true;
}

std::string Simulator::SlavePath() const
{
    std::lock_guard<std::mutex> lock(m_pImpl->mutex);
    return m_pImpl->slavePath;
}

void Simulator::Stop()
{
    Impl& impl = *m_pImpl;
    std::lock_guard<std::mutex> lifecycle(impl.lifecycle);
    if (!impl.thread.joinable()) {
        return;
    }
    impl.bStopRequested = true;
    impl.Wake();
    impl.thread.join();
    ClosePtyPort(&impl.port);
    impl.DropPortTraffic();
    RemoveLink(impl.linkPath);
    std::lock_guard<std::mutex> lock(impl.mutex);
    close(impl.wakeRead);
    close(impl.wakeWrite);
    impl.wakeRead = impl.wakeWrite = -1;
    impl.slavePath.clear();
    impl.serviceThreadId = std::thread::id();
}

void Simulator::SetSilent(bool bSilent)
{
    m_pImpl->bSilent = bSilent;
}

void Simulator::SendGarbage()
{
    Impl* pImpl = m_pImpl.get();
    pImpl->Post([pImpl] { pImpl->Garbage(); });
}

void Simulator::VanishPort()
{
    Impl* pImpl = m_pImpl.get();
    pImpl->RunAndWait([pImpl] { pImpl->Vanish(); });
}

bool Simulator::RestorePort(std::string* pError)
{
    Impl* pImpl = m_pImpl.get();
    bool bOk = false;
    std::string error;
    if (!pImpl->RunAndWait([pImpl, &bOk, &error] { bOk = pImpl->Restore(&error); })) {
        error = "the simulator is not running";
    }
    if (!bOk && pError != nullptr) {
        *pError = error;
    }
    return bOk;
}

void Simulator::InjectReport(const std::string& line)
{
    Impl* pImpl = m_pImpl.get();
    pImpl->Post([pImpl, line] { pImpl->Report(line); });
}

void Simulator::SetTrace(std::function<void(const std::string&)> fnTrace)
{
    std::lock_guard<std::mutex> lock(m_pImpl->mutex);
    m_pImpl->fnTrace = std::move(fnTrace);
}

}  // namespace modemsim
