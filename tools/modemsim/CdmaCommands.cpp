// The CDMA2000 commands: preferred mode (^PREFMODE), EV-DO revision
// (^EVDOREV), NAM (^SNAM), MIN registration (^REG), PRL version (^PRLVER),
// card type (^KTFSIMTYPE) and the network identity (^CURRSID). They are made
// of the profile's "cdma" section; a modem without one is a 3GPP modem and
// answers "COMMAND NOT SUPPORT", as such modems do.

#include "CommandHandlers.h"
#include "ProfileRules.h"

namespace modemsim {

namespace {

// A CDMA setting that reads as one number and is set to one of a few values.
struct CdmaSetting {
    const char* name;
    const char* prefix;
    int32_t CdmaState::*value;
    uint32_t allowed;   // bit v set: AT<name>=v is taken; 0 for a read-only one
};

constexpr uint32_t Bit(int32_t value)
{
    return 1u << value;
}

// The highest value any setting takes, so that Bit() stays within 32 bits.
constexpr int32_t kMaxSettingValue = 8;

const CdmaSetting kSettings[] = {
    // 2 CDMA 1x only, 4 HDR only, 8 hybrid; "^PREFMODE:8" without a blank, as
    // these cards print it.
    {"^PREFMODE", "^PREFMODE:", &CdmaState::prefMode, Bit(2) | Bit(4) | Bit(8)},
    // 0 Rev A, 1 Rev 0, 2 Rev B.
    {"^EVDOREV", "^EVDOREV: ", &CdmaState::evdoRevision, Bit(0) | Bit(1) | Bit(2)},
    // The NAM in use.
    {"^SNAM", "^SNAM: ", &CdmaState::nam, Bit(0) | Bit(1)},
    // The card: 0 UMTS, 1 CDMA, 2 SKT, 3 overseas, 255 unknown.
    {"^KTFSIMTYPE", "^KTFSIMTYPE: ", &CdmaState::ktfSimType, 0},
};

// The command table sends only the names above here.
const CdmaSetting* SettingOf(const std::string& name)
{
    for (const CdmaSetting& setting : kSettings) {
        if (name == setting.name) {
            return &setting;
        }
    }
    return nullptr;
}

}  // namespace

// "^EVDOREV: 0", "^PREFMODE:8", ...
Reply HandleCdmaSettingRead(const Profile&, ModemState& state, const AtRequest& request)
{
    const CdmaSetting* pSetting = SettingOf(request.name);
    if (!state.cdma || pSetting == nullptr) {
        return NotSupportedReply();
    }
    return OkReply({pSetting->prefix + std::to_string((*state.cdma).*(pSetting->value))});
}

Reply HandleCdmaSettingSet(const Profile&, ModemState& state, const AtRequest& request)
{
    const CdmaSetting* pSetting = SettingOf(request.name);
    if (!state.cdma || pSetting == nullptr) {
        return NotSupportedReply();
    }
    const std::optional<int32_t> value = ParseSingleNumberArg(request.args, 0, kMaxSettingValue);
    if (!value || (pSetting->allowed & Bit(*value)) == 0) {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    (*state.cdma).*(pSetting->value) = *value;
    return OkReply();
}

// "^PREFMODE:(2,4,8)", or what the profile says a card offers.
Reply HandlePrefmodeTest(const Profile&, ModemState& state, const AtRequest&)
{
    if (!state.cdma) {
        return NotSupportedReply();
    }
    return OkReply({"^PREFMODE:" + state.cdma->prefModeTest});
}

// AT^REG=<min> or AT^REG="<min>": a 10-digit MIN or a 15-digit IMSI_M; the
// answer is a bare OK.
Reply HandleRegMinSet(const Profile&, ModemState& state, const AtRequest& request)
{
    if (!state.cdma) {
        return NotSupportedReply();
    }
    const std::vector<std::string> args = SplitArgs(request.args);
    // The profile's rule also allows an empty MIN (none registered yet); the
    // command does not.
    if (args.size() != 1 || args[0].empty() || !kMinRule.accepts(args[0])) {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    state.cdma->registeredMin = args[0];
    return OkReply();
}

// "^PRLVER: \"10012\"": the version quoted, as a text.
Reply HandlePrlverRead(const Profile&, ModemState& state, const AtRequest&)
{
    if (!state.cdma) {
        return NotSupportedReply();
    }
    return OkReply({"^PRLVER: \"" + state.cdma->prlVersion + "\""});
}

// "^CURRSID: 13824,65535,\"0A1B2C3D\"": SID, NID, then the EV-DO subnet when
// the card knows one ("^CURRSID: 13824,65535" on a 1x-only network).
Reply HandleCurrsidRead(const Profile&, ModemState& state, const AtRequest&)
{
    if (!state.cdma) {
        return NotSupportedReply();
    }
    const CdmaState& cdma = *state.cdma;
    std::string line = "^CURRSID: " + std::to_string(cdma.sid) + "," + std::to_string(cdma.nid);
    if (!cdma.subnetId.empty()) {
        line += ",\"" + cdma.subnetId + "\"";
    }
    return OkReply({line});
}

}  // namespace modemsim
