// A modem on a pseudo-terminal whose answers a test scripts: the master side,
// served on its own thread. Every command line (up to CR) goes to the answer
// function, whose result is written back as it stands ("" answers nothing).
// The answer function runs on the modem's thread, which outlives the test
// body: what it keeps it owns (captured by value), nothing on the body's stack.
#ifndef TESTKIT_SCRIPTEDMODEM_H
#define TESTKIT_SCRIPTEDMODEM_H

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace testkit {

// What a modem answers to the lines a processor sends of its own accord (the
// greeting, and the "AT+CMEE?" that settles the line after a time-out), and
// ERROR to anything else.
inline std::string ModemFallback(const std::string& line)
{
    if (line == "ATE0" || line == "AT+CMEE=1" || line == "AT") {
        return "\r\nOK\r\n";
    }
    if (line == "AT+CMEE?") {
        return "\r\n+CMEE: 1\r\n\r\nOK\r\n";
    }
    return "\r\nERROR\r\n";
}

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

    // Until this is called, the modem answers with ModemFallback.
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
        return m_cv.wait_for(lock, std::chrono::milliseconds(timeoutMs), [&] {
            for (const std::string& got : m_lines) {
                if (got == line) {
                    return true;
                }
            }
            return false;
        });
    }

    // The far end goes away, as a USB modem pulled out.
    void Vanish()
    {
        m_bStop.store(true);
        if (m_thread.joinable()) {
            m_thread.join();
        }
        for (int* fd : {&m_master, &m_slave}) {
            if (*fd >= 0) {
                ::close(*fd);
                *fd = -1;
            }
        }
    }

private:
    void WriteAll(const std::string& bytes)
    {
        std::size_t done = 0;
        while (done < bytes.size() && m_master >= 0) {
            const ssize_t n = ::write(m_master, bytes.data() + done, bytes.size() - done);
            if (n > 0) {
                done += static_cast<std::size_t>(n);
            } else if (n < 0 && (errno == EAGAIN || errno == EINTR)) {
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            } else {
                return;
            }
        }
    }

    void Serve()
    {
        std::string partial;
        while (!m_bStop.load()) {
            struct pollfd pfd = {m_master, POLLIN, 0};
            char buffer[512];
            if (::poll(&pfd, 1, 20) <= 0) {
                continue;
            }
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
                const std::string reply = answer ? answer(line) : ModemFallback(line);
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

// Answers from a table of exact command lines, the rest as ModemFallback.
inline ScriptedModem::Answer AnswerTable(std::map<std::string, std::string> answers)
{
    return [answers](const std::string& line) -> std::string {
        const auto it = answers.find(line);
        return it != answers.end() ? it->second : ModemFallback(line);
    };
}

}  // namespace testkit

#endif
