#include "SerialPort.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>

namespace host {

namespace {

std::string ErrnoText(int err)
{
    return std::strerror(err);
}

}  // namespace

speed_t BaudConstant(int baud)
{
    struct Row {
        int baud;
        speed_t speed;
    };
    static const Row kRates[] = {
        {9600, B9600},       {19200, B19200},     {38400, B38400},     {57600, B57600},
        {115200, B115200},   {230400, B230400},   {460800, B460800},   {500000, B500000},
        {576000, B576000},   {921600, B921600},   {1000000, B1000000}, {1152000, B1152000},
        {1500000, B1500000}, {2000000, B2000000}, {3000000, B3000000}, {4000000, B4000000},
    };
    for (const Row& row : kRates) {
        if (row.baud == baud) {
            return row.speed;
        }
    }
    return 0;
}

SerialPort::~SerialPort()
{
    Close();
}

bool SerialPort::Open(const std::string& path, int baud, std::string* pError)
{
    Close();
    const speed_t speed = BaudConstant(baud);
    if (speed == 0) {
        if (pError != nullptr) {
            *pError = "cannot open " + path + ": unsupported baud rate " + std::to_string(baud);
        }
        return false;
    }

    int fd = -1;
    do {
        fd = ::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    } while (fd < 0 && errno == EINTR);
    if (fd < 0) {
        const int err = errno;
        if (pError != nullptr) {
            // EBUSY: another program holds the port with TIOCEXCL (a second
            // instance of this tool, a dialler, a modem manager daemon).
            *pError = err == EBUSY ? "cannot open " + path + ": " + path +
                                         " is busy (another program holds it)"
                                   : "cannot open " + path + ": " + ErrnoText(err);
        }
        return false;
    }

    // TIOCEXCL does not keep out a second program running as root; an advisory
    // lock on the port does, between programs that ask for it as we do.
    if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        const int err = errno;
        ::close(fd);
        if (pError != nullptr) {
            *pError = err == EWOULDBLOCK ? "cannot open " + path + ": " + path +
                                               " is busy (another program holds it)"
                                         : "cannot open " + path + ": " + ErrnoText(err);
        }
        return false;
    }

    struct termios saved {};
    if (!::isatty(fd) || ::tcgetattr(fd, &saved) != 0) {
        const int err = errno;
        ::close(fd);
        if (pError != nullptr) {
            *pError = "cannot open " + path + ": not a serial port (" + ErrnoText(err) + ")";
        }
        return false;
    }
    if (::ioctl(fd, TIOCEXCL) != 0) {
        const int err = errno;
        ::close(fd);
        if (pError != nullptr) {
            *pError = "cannot open " + path + ": cannot take it exclusively (" +
                      ErrnoText(err) + ")";
        }
        return false;
    }

    struct termios raw = saved;
    ::cfmakeraw(&raw);
    raw.c_cflag |= CLOCAL | CREAD;
    raw.c_cflag &= ~static_cast<tcflag_t>(CRTSCTS | CSTOPB);
    raw.c_iflag &= ~static_cast<tcflag_t>(IXON | IXOFF | IXANY);
    raw.c_cc[VMIN] = 1;
    raw.c_cc[VTIME] = 0;
    ::cfsetispeed(&raw, speed);
    ::cfsetospeed(&raw, speed);
    if (::tcsetattr(fd, TCSANOW, &raw) != 0) {
        const int err = errno;
        ::ioctl(fd, TIOCNXCL);
        ::close(fd);
        if (pError != nullptr) {
            *pError = "cannot open " + path + ": cannot set raw mode (" + ErrnoText(err) + ")";
        }
        return false;
    }
    // Whatever the modem said before we came (a boot banner, old reports) is
    // not an answer to anything we send.
    ::tcflush(fd, TCIOFLUSH);

    m_fd = fd;
    m_path = path;
    m_saved = saved;
    m_bSaved = true;
    return true;
}

void SerialPort::Close()
{
    if (m_fd < 0) {
        return;
    }
    // Output the modem has not taken (a modem that stopped reading, a line
    // that hung up) is dropped: otherwise close() waits for it to drain, up to
    // the driver's closing_wait (30 s on USB-serial adapters). Unread input
    // is nobody's any more either.
    ::tcflush(m_fd, TCIOFLUSH);
    if (m_bSaved) {
        // TCSANOW: after a hang-up there is nobody to drain output to.
        ::tcsetattr(m_fd, TCSANOW, &m_saved);
    }
    ::ioctl(m_fd, TIOCNXCL);
    ::close(m_fd);
    m_fd = -1;
    m_bSaved = false;
}

SerialPort::IoResult SerialPort::Read(char* pBuffer, std::size_t capacity, std::size_t* pRead)
{
    *pRead = 0;
    if (m_fd < 0) {
        return IoResult::Lost;
    }
    for (;;) {
        const ssize_t n = ::read(m_fd, pBuffer, capacity);
        if (n > 0) {
            *pRead = static_cast<std::size_t>(n);
            return IoResult::Done;
        }
        if (n == 0) {
            // With VMIN 1 a tty read gives 0 only at hang-up.
            return IoResult::Lost;
        }
        if (errno == EINTR) {
            continue;
        }
        if (errno == EAGAIN || errno == EWOULDBLOCK) {
            return IoResult::WouldBlock;
        }
        // EIO: a USB modem unplugged, or the far side of a pseudo-terminal closed.
        return IoResult::Lost;
    }
}

SerialPort::IoResult SerialPort::Write(std::string_view data, int timeoutMs)
{
    if (m_fd < 0) {
        return IoResult::Lost;
    }
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    while (!data.empty()) {
        const ssize_t n = ::write(m_fd, data.data(), data.size());
        if (n > 0) {
            data.remove_prefix(static_cast<std::size_t>(n));
            continue;
        }
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n < 0 && errno != EAGAIN && errno != EWOULDBLOCK) {
            return IoResult::Lost;
        }
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0) {
            return IoResult::WouldBlock;
        }
        struct pollfd pfd {};
        pfd.fd = m_fd;
        pfd.events = POLLOUT;
        const int ready = ::poll(&pfd, 1, static_cast<int>(left.count()));
        if (ready > 0 && (pfd.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0) {
            return IoResult::Lost;
        }
    }
    return IoResult::Done;
}

}  // namespace host
