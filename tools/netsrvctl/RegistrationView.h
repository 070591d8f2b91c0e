// What `netsrvctl registration` shows, and the monitor's lines for the
// registration reports: each domain's report mode, state, area and cell as
// the modem gave them, and the packet attach state. Pure.
#ifndef NETSRVCTL_REGISTRATIONVIEW_H
#define NETSRVCTL_REGISTRATIONVIEW_H

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "Interface/NetSrvDef.h"
#include "RegistrationReport.h"

namespace netsrvctl {

struct RegistrationReadings {
    // Indexed by RegDomain; empty where the modem did not answer.
    std::optional<NETSRV_DATA::RegStateReport> domains[3];
    std::optional<int64_t> psAttach;   // a PSState value
};

// The state's name, or "state N" for a number that has none.
std::string RegistrationStateText(int64_t state);

// {"cs": {report_mode, state, state_name, lac, cell_id}, "ps": {the same},
// "eps": {report_mode, state, state_name, tac, cell_id}, ps_attach,
// ps_attach_name}. A domain or the attach state that was not read is left
// out, and so are an area and a cell that the modem did not give (report
// modes 0 and 1). ps_attach_name is "detached", "attached" or "unknown".
nlohmann::ordered_json RegistrationJson(const RegistrationReadings& readings);

// "CS report mode: 2", "CS state: 1 - registered (home network)", "CS LAC:
// 2A3B", "CS cell id: 01A2B3C4", the same for PS and EPS (with "EPS TAC"),
// then "PS attach: 1 - attached". What was not read is "not reported", or
// with bShowMissing false is left out.
std::string RegistrationText(const RegistrationReadings& readings, bool bShowMissing = true);

// {"event": "registration", "domain": "cs", state, state_name, lac (tac for
// eps), cell_id}, the area and cell left out when the report has none.
nlohmann::ordered_json RegistrationEventJson(const RegistrationReport& report);

// "cs registration: registered (home network), lac 2A3B, cell 01A2B3C4".
std::string RegistrationEventText(const RegistrationReport& report);

}  // namespace netsrvctl

#endif
