// How the modem's registration changes, shared by the commands that change it:
// leaving the network (^REGISTER=0, +COPS=2), coming back to the profile's
// network (^REGISTER=1), leaving the packet domain (+CGATT=0) and camping on an
// operator that a selection chose (+COPS=0, +COPS=1). Each keeps together what
// +COPS?, +CREG?/+CGREG?/+CEREG?, ^SYSINFO and ^SYSINFOEX report. Pure functions.
#ifndef MODEMSIM_REGISTRATIONSTATE_H
#define MODEMSIM_REGISTRATIONSTATE_H

#include <cstdint>
#include <string>

#include "ModemProfile.h"

namespace modemsim {

// +COPS <mode> values the state holds.
constexpr int32_t kSelectionAutomatic = 0;
constexpr int32_t kSelectionManual = 1;
constexpr int32_t kSelectionDeregistered = 2;

// No service, no domain, no system mode, no registration in any domain, no
// operator; the selection mode says deregistered.
void Deregister(NetworkState& net);

// The registration the profile starts with, brought back: service, domain,
// roaming, modes, the operator, the selection mode and each domain's status
// and technology (report modes and locations stay as they are). A detached
// modem stays out of the packet domain.
void RestoreRegistration(const NetworkState& initial, NetworkState& net);

// A detached modem keeps its circuit-switched service: CS and PS becomes CS
// alone, PS alone becomes none; and it is registered in no packet domain.
void DropPacketDomain(NetworkState& net);

// The modem registers with entry (an operator of the list): service, the
// domain the profile has, home or roaming by the SIM's home network (left as
// it is when the SIM names none), the system mode of the entry's technology,
// each domain's status and technology. The selection mode is the caller's.
void RegisterOn(const Profile& profile, ModemState& state, const OperatorInfo& entry);

}  // namespace modemsim

#endif
