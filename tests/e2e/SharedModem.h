// One simulated modem that the tool's runs reach in turn, so that what one
// run sets the next one reads; it keeps the commands it received, so that a
// test can tell that a refused setting never reached it.
#ifndef E2E_SHAREDMODEM_H
#define E2E_SHAREDMODEM_H

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "ModemSimulator.h"
#include "RunTool.h"

namespace e2e {

class SharedModem {
public:
    // A shipped profile's name or a profile file.
    explicit SharedModem(const std::string& profile);
    ~SharedModem();
    SharedModem(const SharedModem&) = delete;
    SharedModem& operator=(const SharedModem&) = delete;

    // Runs the tool on this modem with --json before the arguments.
    ToolResult Run(std::vector<std::string> args) const;
    // The command lines received since the last call ("AT^SYSCFGEX?").
    std::vector<std::string> TakeReceived() const;

private:
    std::unique_ptr<modemsim::Simulator> m_pSimulator;
    mutable std::mutex m_mutex;
    mutable std::vector<std::string> m_received;
};

}  // namespace e2e

#endif
