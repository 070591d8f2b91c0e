// What `netsrvctl status` shows of the service's system information: each
// number with its name, as text lines or as one JSON object. Pure.
#ifndef NETSRVCTL_STATUSVIEW_H
#define NETSRVCTL_STATUSVIEW_H

#include <nlohmann/json.hpp>
#include <string>

#include "Interface/NetSrvDef.h"

namespace netsrvctl {

// Keys: service_status, service_status_name, system_mode, system_mode_name,
// sub_mode, sub_mode_name, roaming, roaming_name, domain, domain_name,
// sim_state, sim_state_name, lock_state, lock_state_name, modem_mode_name,
// modem_sub_mode_name. A name is left out when the number has none (a mode
// outside the table takes the modem's own name instead, when it gave one);
// the modem's names and the lock state are left out when the modem gave no
// names (it answers only ^SYSINFO, which carries neither).
nlohmann::ordered_json StatusJson(const NETSRV_DATA::SystemInfo& info);

// One "label: number - name" line per field, e.g.
// "sub-mode:         45 - HSPA+ (WCDMA)"; a name that is the modem's own
// says so: "101 - LTE (the modem's name)".
std::string StatusText(const NETSRV_DATA::SystemInfo& info);

}  // namespace netsrvctl

#endif
