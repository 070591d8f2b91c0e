#include "PtyPort.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace modemsim {

namespace {

std::string Reason(const std::string& what)
{
    return what + ": " + std::strerror(errno);
}

}  // namespace

bool OpenPtyPort(PtyPort* pPort, std::string* pError)
{
    PtyPort port;
    port.master = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (port.master < 0) {
        *pError = Reason("cannot open a pseudo-terminal");
        return false;
    }
    char name[128];
    if (grantpt(port.master) != 0 || unlockpt(port.master) != 0 ||
        ptsname_r(port.master, name, sizeof name) != 0) {
        *pError = Reason("cannot unlock the pseudo-terminal");
        ClosePtyPort(&port);
        return false;
    }
    port.slavePath = name;
    // The simulator keeps a slave descriptor of its own for the port's whole
    // life: without one the master reports a hang-up whenever the host has the
    // slave closed (before it opens it, between reopenings), and the line
    // discipline's settings would fall back to their defaults.
    port.slave = open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (port.slave < 0) {
        *pError = Reason("cannot open " + port.slavePath);
        ClosePtyPort(&port);
        return false;
    }
    // Raw, like a modem's USB serial port: a canonical, echoing line discipline
    // would hand the modem's own output back to it as input.
    termios settings {};
    if (tcgetattr(port.slave, &settings) != 0) {
        *pError = Reason("cannot read the settings of " + port.slavePath);
        ClosePtyPort(&port);
        return false;
    }
    cfmakeraw(&settings);
    cfsetispeed(&settings, B115200);
    cfsetospeed(&settings, B115200);
    if (tcsetattr(port.slave, TCSANOW, &settings) != 0) {
        *pError = Reason("cannot set raw mode on " + port.slavePath);
        ClosePtyPort(&port);
        return false;
    }
    const int flags = fcntl(port.master, F_GETFL);
    if (flags < 0 || fcntl(port.master, F_SETFL, flags | O_NONBLOCK) != 0) {
        *pError = Reason("cannot make the pseudo-terminal non-blocking");
        ClosePtyPort(&port);
        return false;
    }
    *pPort = std::move(port);
    return true;
}

void ClosePtyPort(PtyPort* pPort)
{
    if (pPort->slave >= 0) {
        close(pPort->slave);
    }
    if (pPort->master >= 0) {
        close(pPort->master);
    }
    *pPort = PtyPort();
}

bool PointLink(const std::string& linkPath, const std::string& target, std::string* pError)
{
    struct stat info {};
    if (lstat(linkPath.c_str(), &info) == 0 && !S_ISLNK(info.st_mode)) {
        *pError = linkPath + " exists and is not a symbolic link";
        return false;
    }
    const std::string temporary = linkPath + ".new-" + std::to_string(getpid());
    unlink(temporary.c_str());
    if (symlink(target.c_str(), temporary.c_str()) != 0) {
        *pError = Reason("cannot create the link " + linkPath);
        return false;
    }
    if (rename(temporary.c_str(), linkPath.c_str()) != 0) {
        *pError = Reason("cannot create the link " + linkPath);
        unlink(temporary.c_str());
        return false;
    }
    return true;
}

void RemoveLink(const std::string& linkPath)
{
    struct stat info {};
    if (!linkPath.empty() && lstat(linkPath.c_str(), &info) == 0 && S_ISLNK(info.st_mode)) {
        unlink(linkPath.c_str());
    }
}

}  // namespace modemsim
