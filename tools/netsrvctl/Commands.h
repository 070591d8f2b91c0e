// The commands of netsrvctl. Each runs against a started host, prints its
// result (text, or one JSON object with --json) and returns the exit status.
#ifndef NETSRVCTL_COMMANDS_H
#define NETSRVCTL_COMMANDS_H

#include <ostream>

#include "ToolHost.h"

namespace netsrvctl {

struct OutputOptions {
    bool json = false;
};

ExitStatus RunPluginInfo(ToolHost& host, const OutputOptions& out, std::ostream& os);
ExitStatus RunLastErr(ToolHost& host, unsigned long dwType, const OutputOptions& out,
                      std::ostream& os, std::ostream& err);
ExitStatus RunAddress(ToolHost& host, const OutputOptions& out, std::ostream& os,
                      std::ostream& err);

// Where the modem is camped (SRVGetSystemInfoEx). Fails as the other
// queries do: the error word of the failed read, EXIT_NO_MODEM when the modem
// is silent or gone.
ExitStatus RunStatus(ToolHost& host, const OutputOptions& out, std::ostream& os,
                     std::ostream& err);
// Every signal reading the modem gives. Succeeds when the signal-bar
// percentage was read; without it the readings that were read are still
// printed and the percentage's failure is reported as for the other queries.
ExitStatus RunSignal(ToolHost& host, const OutputOptions& out, std::ostream& os,
                     std::ostream& err);
// No command given: status, then signal. With --json one object
// {"status": {...}, "signal": {...}}. The exit status is the first failure's;
// when status finds the modem silent or gone, signal is not tried.
ExitStatus RunOverview(ToolHost& host, const OutputOptions& out, std::ostream& os,
                       std::ostream& err);

struct MonitorOptions {
    int count = 0;          // stop after this many lines; 0: no limit
    double timeoutS = 0;    // stop after this many seconds; 0: no limit
    bool raw = false;       // also print the modem's reports as they come
};
// Ends with EXIT_NO_MODEM when the modem's port is gone at the end.
ExitStatus RunMonitor(ToolHost& host, const MonitorOptions& monitor, const OutputOptions& out,
                      std::ostream& os, std::ostream& err);

}  // namespace netsrvctl

#endif
