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

struct MonitorOptions {
    int count = 0;          // stop after this many lines; 0: no limit
    double timeoutS = 0;    // stop after this many seconds; 0: no limit
};
// Ends with EXIT_NO_MODEM when the modem's port is gone at the end.
ExitStatus RunMonitor(ToolHost& host, const MonitorOptions& monitor, const OutputOptions& out,
                      std::ostream& os, std::ostream& err);

}  // namespace netsrvctl

#endif
