#include "RegistrationState.h"

namespace modemsim {

namespace {

constexpr int32_t kServiceValid = 2;

// ^SYSINFO / ^SYSINFOEX service domains.
constexpr int32_t kDomainNone = 0;
constexpr int32_t kDomainCs = 1;
constexpr int32_t kDomainPs = 2;
constexpr int32_t kDomainCsPs = 3;

// +CREG <stat>: registered on the home network, registered while roaming.
constexpr int32_t kStatHome = 1;
constexpr int32_t kStatRoaming = 5;

constexpr int32_t kActEutran = 7;

// How ^SYSINFOEX names the mode and sub-mode 0.
constexpr char kNoServiceName[] = "NO SERVICE";

// The plain system mode of each technology a modem camps on, in both
// numberings; HSPA and the like are the profile's own (see ModeOf).
struct TechnologyMode {
    int32_t act;
    ModeInfo mode;
};

const TechnologyMode kTechnologyModes[] = {
    {0, {1, "GSM", 1, "GSM", 3, 1}},
    {2, {3, "WCDMA", 41, "WCDMA", 5, 4}},
    {kActEutran, {6, "LTE", 101, "LTE", 17, std::nullopt}},
};

// The system mode on technology act: the profile's own when it starts on that
// technology (its sub-mode, HSPA+ say, or TD-SCDMA for the UTRAN of a TD-SCDMA
// modem), else the technology's plain mode, printed in the shape this modem
// prints ^SYSINFO (with or without a sub-mode); the current mode when neither
// is known.
ModeInfo ModeOf(const NetworkState& initial, const ModeInfo& current, int32_t act)
{
    if (initial.registered && initial.registered->act == act) {
        return initial.mode;
    }
    for (const TechnologyMode& row : kTechnologyModes) {
        if (row.act == act) {
            ModeInfo mode = row.mode;
            if (!initial.mode.sysinfoSubMode) {
                mode.sysinfoSubMode.reset();
            }
            return mode;
        }
    }
    return current;
}

}  // namespace

void Deregister(NetworkState& net)
{
    net.serviceStatus = 0;
    net.serviceDomain = kDomainNone;
    net.mode.sysMode = 0;
    net.mode.sysModeName = kNoServiceName;
    net.mode.subMode = 0;
    net.mode.subModeName = kNoServiceName;
    net.mode.sysinfoSysMode = 0;
    if (net.mode.sysinfoSubMode) {
        net.mode.sysinfoSubMode = 0;
    }
    net.creg.stat = 0;
    net.cgreg.stat = 0;
    net.cereg.stat = 0;
    net.registered.reset();
    net.selectionMode = kSelectionDeregistered;
}

void RestoreRegistration(const NetworkState& initial, NetworkState& net)
{
    net.serviceStatus = initial.serviceStatus;
    net.serviceDomain = initial.serviceDomain;
    net.roaming = initial.roaming;
    net.mode = initial.mode;
    net.registered = initial.registered;
    net.selectionMode = initial.selectionMode;
    for (auto domain : {&NetworkState::creg, &NetworkState::cgreg, &NetworkState::cereg}) {
        (net.*domain).stat = (initial.*domain).stat;
        (net.*domain).act = (initial.*domain).act;
    }
    // Registering again does not undo an AT+CGATT=0.
    if (!net.psAttached) {
        DropPacketDomain(net);
    }
}

void DropPacketDomain(NetworkState& net)
{
    if (net.serviceDomain == kDomainCsPs) {
        net.serviceDomain = kDomainCs;
    } else if (net.serviceDomain == kDomainPs) {
        net.serviceDomain = kDomainNone;
    }
    net.cgreg.stat = 0;
    net.cereg.stat = 0;
}

void RegisterOn(const Profile& profile, ModemState& state, const OperatorInfo& entry)
{
    const NetworkState& initial = profile.initial.network;
    NetworkState& net = state.network;
    net.registered = RegisteredOperator{entry.plmn, entry.act};
    net.serviceStatus = kServiceValid;
    net.serviceDomain = initial.serviceDomain != kDomainNone ? initial.serviceDomain : kDomainCsPs;
    if (!state.sim.homePlmn.empty()) {
        net.roaming = entry.plmn == state.sim.homePlmn ? 0 : 1;
    }
    if (entry.act) {
        net.mode = ModeOf(initial, net.mode, *entry.act);
    }
    const int32_t stat = net.roaming == 0 ? kStatHome : kStatRoaming;
    net.creg.stat = stat;
    net.cgreg.stat = stat;
    // Only LTE is an EPS registration.
    net.cereg.stat = entry.act == kActEutran ? stat : 0;
    for (RegistrationInfo* pDomain : {&net.creg, &net.cgreg, &net.cereg}) {
        // A domain whose reports carry no technology goes on without one.
        if (pDomain->act && entry.act) {
            pDomain->act = entry.act;
        }
    }
    if (!net.psAttached) {
        DropPacketDomain(net);
    }
}

}  // namespace modemsim
