// The modem's serial line: a tty (or the slave side of a pseudo-terminal)
// opened exclusively, in raw mode, non-blocking. The only code of the processor
// that touches a file descriptor.
// Not thread-safe as a whole: one owner opens and closes it; while it stays
// open, one thread may Read() and another Write() at the same time.
#ifndef HOST_SERIALPORT_H
#define HOST_SERIALPORT_H

#include <termios.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace host {

class SerialPort {
public:
    SerialPort() = default;
    ~SerialPort();
    SerialPort(const SerialPort&) = delete;
    SerialPort& operator=(const SerialPort&) = delete;

    // Opens path O_RDWR | O_NOCTTY, takes it exclusively (TIOCEXCL), sets raw
    // mode at the given baud rate (8N1, no flow control) and drops whatever
    // the line held. On failure *pError gets one line such as
    // "cannot open /dev/ttyUSB9: No such file or directory".
    bool Open(const std::string& path, int baud, std::string* pError);
    // Restores the terminal settings found at Open and closes. Idempotent.
    void Close();
    bool IsOpen() const { return m_fd >= 0; }
    int Fd() const { return m_fd; }
    const std::string& Path() const { return m_path; }

    enum class IoResult { Done, WouldBlock, Lost };

    // Reads what is there (at most capacity bytes) without waiting. Lost: the
    // device vanished or the peer hung up.
    IoResult Read(char* pBuffer, std::size_t capacity, std::size_t* pRead);

    // Writes all of data, waiting at most timeoutMs for room on the line.
    // WouldBlock: the time ran out (part of data may have gone out).
    IoResult Write(std::string_view data, int timeoutMs);

private:
    int m_fd = -1;
    std::string m_path;
    struct termios m_saved {};
    bool m_bSaved = false;
};

// The termios speed constant of a baud rate; 0 when there is none.
speed_t BaudConstant(int baud);

}  // namespace host

#endif
