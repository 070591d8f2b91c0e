// The pseudo-terminal the simulator serves, and the symbolic link that gives
// it a stable name. Only this file and Simulator.cpp touch file descriptors.
#ifndef MODEMSIM_PTYPORT_H
#define MODEMSIM_PTYPORT_H

#include <string>

namespace modemsim {

struct PtyPort {
    int master = -1;        // non-blocking; the modem's side
    int slave = -1;         // held open by the simulator itself, see OpenPtyPort
    std::string slavePath;  // "/dev/pts/7"
};

// Opens a pair with the slave in raw mode at 115200 baud.
bool OpenPtyPort(PtyPort* pPort, std::string* pError);
void ClosePtyPort(PtyPort* pPort);

// Makes linkPath a symbolic link to target, replacing an existing link in one
// step; refuses to replace anything that is not a symbolic link.
bool PointLink(const std::string& linkPath, const std::string& target, std::string* pError);
// Removes linkPath when it is a symbolic link.
void RemoveLink(const std::string& linkPath);

}  // namespace modemsim

#endif
