// A simulator profile: what the modem is (capabilities, the commands it lacks,
// how slowly it answers), its initial state, and a timeline of things that
// happen on their own. Produced by ParseProfile (ModemSimulator.h); a value
// type that may be copied and shared freely once built.
#ifndef MODEMSIM_MODEMPROFILE_H
#define MODEMSIM_MODEMPROFILE_H

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "ModemState.h"

namespace modemsim {

enum class FaultAction {
    SilentOn,    // stop answering commands
    SilentOff,   // answer again
    Garbage,     // emit a burst of junk lines
    Vanish,      // the port disappears
    Restore      // a fresh port appears
};

// The unsolicited reports the modem prints from its state (UnsolicitedReports.h
// renders them).
enum class ReportKind {
    Rssi,            // "^RSSI:22"
    RssiLevel,       // "^RSSILVL:60"
    HdrRssiLevel,    // "^HRSSILVL:60"
    AntennaLevel,    // "^ANLEVEL:-88,-9,17,3"
    ServiceStatus,   // "^SRVST:2"
    Mode,            // "^MODE:5,9"
    Creg,            // "+CREG: 1,"84CD","00D30156""
    Cgreg,           // "+CGREG: 1,"84CD","00D30156""
    Cereg,           // "+CEREG: 1,"CE00","01CEAD8F",7"
    Hcsq,            // "^HCSQ:"LTE",52,46,191,22"
    SimRefresh,      // "^SIMREFRESH:0"
    PnnFileRefresh   // "^PNNFILEREFRESH"
};

// At atMs after start (and every repeatMs after that when it is not 0) exactly
// one of: send a line, change the state, send a report built from the state,
// throw a fault switch.
struct TimelineEvent {
    uint32_t atMs = 0;
    uint32_t repeatMs = 0;
    std::string send;
    std::string setPatch;     // JSON merge patch over the state, compact text
    std::optional<ReportKind> report;
    std::optional<FaultAction> fault;
};

struct AnswerDelays {
    uint32_t defaultMs = 0;
    // "+COPS=?" (test), "+COPS?" (read), "+COPS=" (set) or "+COPS" (every form).
    std::map<std::string, uint32_t> commands;
};

struct Profile {
    std::string source;                 // file or built-in name, for messages
    std::string description;
    std::vector<std::string> gcap;      // +GCAP names
    std::set<std::string> unsupported;  // AT names answered "COMMAND NOT SUPPORT"
    AnswerDelays delays;
    ModemState initial;
    std::vector<TimelineEvent> timeline;
};

}  // namespace modemsim

#endif
