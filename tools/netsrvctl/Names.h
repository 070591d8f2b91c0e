// The words netsrvctl prints for the numbers the service hands out: service
// status, system mode and sub-mode, roaming, domain, SIM and lock state, the
// fields of an operator-search entry, registration and attach states and the
// HSPA, CDMA and network configuration settings. Pure; one table per kind of
// number.
// Each function gives null for a number its table does not hold, so that the
// caller decides how an unknown value is shown.
#ifndef NETSRVCTL_NAMES_H
#define NETSRVCTL_NAMES_H

#include <cstdint>

namespace netsrvctl {

// A SysSrvStatus value: "no service" ... "power saving".
const char* ServiceStatusName(int64_t value);
// A SystemModeEx value: "GSM", "LTE", ...
const char* SystemModeName(int64_t value);
// A SubsysModeEx value: "EDGE", "HSPA+ (WCDMA)", "EV-DO Rev. A", ... The
// high-speed modes of WCDMA and of TD-SCDMA share their names, so those carry
// their radio in brackets.
const char* SubModeName(int64_t value);
// A RoamStatus value: "not roaming", "roaming", then the CDMA roaming
// indicator's states.
const char* RoamingName(int64_t value);
// The service domain of ^SYSINFO / ^SYSINFOEX: "no service", "CS only",
// "PS only", "CS and PS", "searching", and 255 "not applicable" (CDMA modems).
const char* DomainName(int64_t value);
// The SIM state of ^SYSINFO / ^SYSINFOEX: "valid", "absent", ...
const char* SimStateName(int64_t value);
// The SIM lock state of ^SYSINFOEX: "not locked", "locked".
const char* LockStateName(int64_t value);
// The <stat> of an operator-search entry: "unknown", "available", "current",
// "forbidden".
const char* OperatorStatusName(int64_t value);
// The <AcT> of an operator-search entry: "GSM", "WCDMA", "LTE", ...
const char* AccessTechnologyName(int64_t value);
// The <stat> of a registration answer or report (+CREG, +CGREG, +CEREG):
// "not registered", "registered (home network)", "searching", "registration
// denied", "unknown", "registered (roaming)".
const char* RegistrationStateName(int64_t value);
// A PSState value (+CGATT): "detached", "attached", 255 "unknown".
const char* PsAttachName(int64_t value);
// An HSPA_STAT value (^HSDPA, ^HSUPA): "disabled", "enabled".
const char* HspaSwitchName(int64_t value);
// A CdmaPrefMode value (^PREFMODE): "CDMA 1X only", "EV-DO only", "hybrid
// CDMA 1X / EV-DO", and 0 "unknown".
const char* CdmaPrefModeName(int64_t value);
// An EvdoRevision value (^EVDOREV), in the modem's order: 0 "Rev. A", 1
// "Rev. 0", 2 "Rev. B".
const char* EvdoRevisionName(int64_t value);
// A NAMMode value (^SNAM): 0 "NAM 1", 1 "NAM 2".
const char* NamName(int64_t value);
// The roaming setting of the network configuration: "roaming not allowed",
// "roaming allowed", 2 "no change".
const char* RoamSettingName(int64_t value);
// The service domain setting of the network configuration: "CS only", "PS
// only", "CS and PS", "any", 4 "no change".
const char* DomainSettingName(int64_t value);
// A KTFSimType value (^KTFSIMTYPE): "UMTS", "CDMA", "SKT", "overseas", 255
// "unknown".
const char* SimTypeName(int64_t value);

}  // namespace netsrvctl

#endif
