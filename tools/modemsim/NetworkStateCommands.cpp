// Where the modem is camped: ^SYSINFOEX (newer firmware), ^SYSINFO (every
// data card of the family), ^REGISTER, which takes the modem off the network
// and back, and +CGATT, which does the same for the packet domain alone.

#include "CommandHandlers.h"
#include "RegistrationState.h"

namespace modemsim {

namespace {

std::string Num(int32_t value)
{
    return std::to_string(value);
}

constexpr int32_t kServiceNone = 0;

}  // namespace

// "^SYSINFOEX: 2,3,0,1,0,6,"LTE",101,"LTE"": status, domain, roaming, SIM
// state, SIM lock state, system mode and its name, sub-mode and its name.
Reply HandleSysinfoexBare(const Profile&, ModemState& state, const AtRequest&)
{
    const NetworkState& net = state.network;
    return OkReply({"^SYSINFOEX: " + Num(net.serviceStatus) + "," + Num(net.serviceDomain) + "," +
                    Num(net.roaming) + "," + Num(state.sim.state) + "," +
                    Num(state.sim.lockState) + "," + Num(net.mode.sysMode) + ",\"" +
                    net.mode.sysModeName + "\"," + Num(net.mode.subMode) + ",\"" +
                    net.mode.subModeName + "\""});
}

// "^SYSINFO:2,3,0,5,1,,9": status, domain, roaming, system mode, SIM state,
// then the SIM lock state (left empty, as these cards print it) and the
// sub-mode. Cards that know no sub-mode stop after the SIM state:
// "^SYSINFO:2,2,0,8,1".
Reply HandleSysinfoBare(const Profile&, ModemState& state, const AtRequest&)
{
    const NetworkState& net = state.network;
    std::string line = "^SYSINFO:" + Num(net.serviceStatus) + "," + Num(net.serviceDomain) + "," +
                       Num(net.roaming) + "," + Num(net.mode.sysinfoSysMode) + "," +
                       Num(state.sim.state);
    if (net.mode.sysinfoSubMode) {
        line += ",," + Num(*net.mode.sysinfoSubMode);
    }
    return OkReply({line});
}

// AT^REGISTER=0 deregisters, as AT+COPS=2 does. AT^REGISTER=1 registers
// again: a modem without service finds the network of its profile again; one
// with service stays as it is. The answer is a bare OK.
Reply HandleRegisterSet(const Profile& profile, ModemState& state, const AtRequest& request)
{
    const std::optional<int32_t> on = ParseSingleNumberArg(request.args, 0, 1);
    if (!on) {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    NetworkState& net = state.network;
    if (*on == 0) {
        Deregister(net);
    } else if (net.serviceStatus == kServiceNone) {
        RestoreRegistration(profile.initial.network, net);
    }
    return OkReply();
}

Reply HandleCgattRead(const Profile&, ModemState& state, const AtRequest&)
{
    return OkReply({std::string("+CGATT: ") + (state.network.psAttached ? "1" : "0")});
}

// AT+CGATT=0 detaches from the packet domain, which ^SYSINFO, ^SYSINFOEX,
// +CGREG and +CEREG then show. AT+CGATT=1 attaches again: a modem with service
// gets the profile's packet registration back; one without service only
// remembers the wish until ^REGISTER=1. Either is a bare OK, also when the
// modem already is as asked (and then nothing changes).
Reply HandleCgattSet(const Profile& profile, ModemState& state, const AtRequest& request)
{
    const std::optional<int32_t> attach = ParseSingleNumberArg(request.args, 0, 1);
    if (!attach) {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    NetworkState& net = state.network;
    if (*attach == 0 && net.psAttached) {
        net.psAttached = false;
        DropPacketDomain(net);
    } else if (*attach == 1 && !net.psAttached) {
        net.psAttached = true;
        if (net.serviceStatus != kServiceNone) {
            const NetworkState& home = profile.initial.network;
            net.serviceDomain = home.serviceDomain;
            net.cgreg.stat = home.cgreg.stat;
            net.cereg.stat = home.cereg.stat;
        }
    }
    return OkReply();
}

}  // namespace modemsim
