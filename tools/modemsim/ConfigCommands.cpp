// Network mode and band configuration: ^SYSCFG (3GPP modems), ^SYSCFGEX (LTE
// modems), ^SYSCONFIG (TD-SCDMA modems). A modem without the command has no
// section for it in its configuration and answers "COMMAND NOT SUPPORT".
// Also the HSPA switches ^HSDPA and ^HSUPA of WCDMA and TD-SCDMA modems.

#include "CommandHandlers.h"

namespace modemsim {

namespace {

std::string Num(int32_t value)
{
    return std::to_string(value);
}

// The command table sends ^HSDPA and ^HSUPA here; the name picks the switch.
int32_t& HspaSwitchOf(NetworkState& network, const std::string& name)
{
    return name == "^HSUPA" ? network.hsupa : network.hsdpa;
}

}  // namespace

// "^SYSCFG: 2,0,3FFFFFFF,1,2": mode, acquisition order, band, roaming, domain.
Reply HandleSyscfgRead(const Profile&, ModemState& state, const AtRequest&)
{
    if (!state.configuration.syscfg) {
        return NotSupportedReply();
    }
    const SyscfgValues& cfg = *state.configuration.syscfg;
    return OkReply({"^SYSCFG: " + Num(cfg.mode) + "," + Num(cfg.acqOrder) + "," + cfg.band +
                    "," + Num(cfg.roam) + "," + Num(cfg.domain)});
}

Reply HandleSyscfgTest(const Profile&, ModemState& state, const AtRequest&)
{
    if (!state.configuration.syscfg) {
        return NotSupportedReply();
    }
    return OkReply({"^SYSCFG: " + state.configuration.syscfg->test});
}

// "^SYSCFGEX: "00",3FFFFFFF,1,2,7FFFFFFFFFFFFFFF": acquisition order (quoted),
// band, roaming, domain, LTE band (an empty field on some firmware).
Reply HandleSyscfgexRead(const Profile&, ModemState& state, const AtRequest&)
{
    if (!state.configuration.syscfgex) {
        return NotSupportedReply();
    }
    const SyscfgexValues& cfg = *state.configuration.syscfgex;
    return OkReply({"^SYSCFGEX: \"" + cfg.acqOrder + "\"," + cfg.band + "," + Num(cfg.roam) +
                    "," + Num(cfg.domain) + "," + cfg.lteBand});
}

Reply HandleSyscfgexTest(const Profile&, ModemState& state, const AtRequest&)
{
    if (!state.configuration.syscfgex) {
        return NotSupportedReply();
    }
    return OkReply({"^SYSCFGEX: " + state.configuration.syscfgex->test});
}

// "^SYSCONFIG: 2,0,1,2": mode, acquisition order, roaming, domain.
Reply HandleSysconfigRead(const Profile&, ModemState& state, const AtRequest&)
{
    if (!state.configuration.sysconfig) {
        return NotSupportedReply();
    }
    const SysconfigValues& cfg = *state.configuration.sysconfig;
    return OkReply({"^SYSCONFIG: " + Num(cfg.mode) + "," + Num(cfg.acqOrder) + "," +
                    Num(cfg.roam) + "," + Num(cfg.domain)});
}

Reply HandleSysconfigTest(const Profile&, ModemState& state, const AtRequest&)
{
    if (!state.configuration.sysconfig) {
        return NotSupportedReply();
    }
    return OkReply({"^SYSCONFIG: " + state.configuration.sysconfig->test});
}

// "^HSDPA: 1": 1 on, 0 off (^HSUPA alike).
Reply HandleHspaRead(const Profile&, ModemState& state, const AtRequest& request)
{
    return OkReply({request.name + ": " + Num(HspaSwitchOf(state.network, request.name))});
}

Reply HandleHspaSet(const Profile&, ModemState& state, const AtRequest& request)
{
    const std::optional<int32_t> on = ParseSingleNumberArg(request.args, 0, 1);
    if (!on) {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    HspaSwitchOf(state.network, request.name) = *on;
    return OkReply();
}

}  // namespace modemsim
