// The commands of netsrvctl. Each runs against a started host, prints its
// result (text, or one JSON object with --json) and returns the exit status.
#ifndef NETSRVCTL_COMMANDS_H
#define NETSRVCTL_COMMANDS_H

#include <ostream>
#include <string>

#include "ConfigChange.h"
#include "RegistrationReport.h"
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

// Registration state of the CS, PS and EPS domains, then the packet attach
// state. A domain the modem does not answer is left out (a 3G modem has no
// EPS); succeeds when the CS state was read, and otherwise fails with that
// read's error word after printing what it did read.
ExitStatus RunRegistration(ToolHost& host, const OutputOptions& out, std::ostream& os,
                           std::ostream& err);
// Switches a domain's registration reports to mode 0, 1 or 2.
ExitStatus RunRegistrationReport(ToolHost& host, RegDomain domain, int mode,
                                 const OutputOptions& out, std::ostream& os, std::ostream& err);
// Attaches to the packet domain, or detaches from it.
ExitStatus RunPsAttach(ToolHost& host, bool bAttach, const OutputOptions& out, std::ostream& os,
                       std::ostream& err);
// The HSDPA and HSUPA switches; succeeds when either was read.
ExitStatus RunHspa(ToolHost& host, const OutputOptions& out, std::ostream& os, std::ostream& err);
// Turns one of them on or off.
ExitStatus RunHspaSet(ToolHost& host, NETSRV_DATA::HSPA_MODE enSwitch,
                      NETSRV_DATA::HSPA_STAT enState, const OutputOptions& out, std::ostream& os,
                      std::ostream& err);
// The CDMA settings, each where its read succeeded; succeeds when one was
// read. A modem without them fails with its word (4, not supported).
ExitStatus RunCdma(ToolHost& host, const OutputOptions& out, std::ostream& os, std::ostream& err);
enum class CdmaSetting { PrefMode, EvdoRevision, Nam };
// Sets one CDMA setting to a CdmaPrefMode, EvdoRevision or NAMMode value.
ExitStatus RunCdmaSet(ToolHost& host, CdmaSetting setting, int value, const OutputOptions& out,
                      std::ostream& os, std::ostream& err);
// Registers a MIN (10 digits) or IMSI_M (15 digits), checked by the caller.
ExitStatus RunRegisterMin(ToolHost& host, const std::string& min, const OutputOptions& out,
                          std::ostream& os, std::ostream& err);

// The network configuration (SRVGetNetConfigurationEx); the text names the
// masks from the modem's band lists when it can read them.
ExitStatus RunConfig(ToolHost& host, const OutputOptions& out, std::ostream& os,
                     std::ostream& err);
// Reads the configuration, changes what the change gives, writes it and
// shows the configuration read back. An acquisition order, band or LTE band
// that the modem does not offer is refused with EXIT_USAGE before anything
// is written.
ExitStatus RunConfigSet(ToolHost& host, const ConfigChange& change, const OutputOptions& out,
                        std::ostream& os, std::ostream& err);
// The bands, LTE bands and acquisition orders the modem offers
// (SRVGetBandListEx), handed back to the service afterwards.
ExitStatus RunBands(ToolHost& host, const OutputOptions& out, std::ostream& os,
                    std::ostream& err);

struct MonitorOptions {
    int count = 0;          // stop after this many lines; 0: no limit
    double timeoutS = 0;    // stop after this many seconds; 0: no limit
    bool raw = false;       // also print the modem's reports as they come
};
// The service's events and the modem's registration reports ("cs
// registration: ...") as they arrive. Ends with EXIT_NO_MODEM when the
// modem's port is gone at the end.
ExitStatus RunMonitor(ToolHost& host, const MonitorOptions& monitor, const OutputOptions& out,
                      std::ostream& os, std::ostream& err);

}  // namespace netsrvctl

#endif
