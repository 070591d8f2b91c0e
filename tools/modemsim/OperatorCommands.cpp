// Operator search and selection: +COPS in its three forms. The search lists
// the profile's operators (after the profile's delay for "+COPS=?", during
// which the modem takes no other command, as a real one stays busy scanning);
// the set form selects, deregisters or picks the name format of the read form.

#include "CommandHandlers.h"
#include "OperatorList.h"
#include "ProfileRules.h"
#include "RegistrationState.h"

namespace modemsim {

namespace {

// +COPS <mode> values that the state never holds.
constexpr int32_t kModeFormatOnly = 3;
constexpr int32_t kModeManualThenAutomatic = 4;

// What the modem offers after the operators: the modes (3 "format only"
// included) and the name formats.
constexpr char kSearchSupported[] = ",,(0,1,2,3,4),(0,1,2)";

// AT+COPS=[<mode>[,<format>[,<oper>[,<AcT>]]]]
struct CopsSet {
    int32_t mode = kSelectionAutomatic;
    std::optional<int32_t> format;
    std::string oper;
    std::optional<int32_t> act;
};

// Nothing when the fields do not make a selection: a mode or format out of
// range, a manual selection without format and operator, a numeric operator
// that is not 5 or 6 digits, a technology out of range, more than four fields.
// An operator given with mode 0, 2 or 3 is ignored, as the standard says.
std::optional<CopsSet> ParseCopsSet(std::string_view args)
{
    const std::vector<std::string> fields = SplitArgs(args);
    if (fields.size() > 4) {
        return std::nullopt;
    }
    CopsSet set;
    if (!fields.empty()) {
        const std::optional<int32_t> mode = ParseNumberArg(fields[0], 0, kModeManualThenAutomatic);
        if (!mode) {
            return std::nullopt;
        }
        set.mode = *mode;
    }
    if (!ReadFormatAndOperator(fields, &set.format, &set.oper)) {
        return std::nullopt;
    }
    if (fields.size() > 3 && !fields[3].empty()) {
        set.act = ParseNumberArg(fields[3], 0, kMaxAct);
        if (!set.act) {
            return std::nullopt;
        }
    }
    const bool bManual = set.mode == kSelectionManual || set.mode == kModeManualThenAutomatic;
    if (bManual && (!set.format || set.oper.empty() ||
                    (*set.format == kFormatNumeric && !kPlmnRule.accepts(set.oper)))) {
        return std::nullopt;
    }
    if (set.mode == kModeFormatOnly && !set.format) {
        return std::nullopt;
    }
    return set;
}

// Registers with the operator named in the set's format, on its technology
// when one is asked for. A refusal leaves the registration as it was and says
// why as a modem does: an operator the search does not find (or not on that
// technology) is "no network service" (30); a forbidden one is "network not
// allowed - emergency calls only" (32), what a network that rejects the
// subscription leaves the modem with.
std::optional<int32_t> SelectManually(const Profile& profile, ModemState& state,
                                      const CopsSet& set)
{
    bool bForbidden = false;
    for (const OperatorInfo& entry : state.network.operators) {
        if (NameOf(entry, *set.format) != set.oper || (set.act && entry.act != set.act)) {
            continue;
        }
        if (entry.status == kOperatorForbidden) {
            bForbidden = true;
            continue;
        }
        RegisterOn(profile, state, entry);
        state.network.selectionMode = kSelectionManual;
        return std::nullopt;
    }
    return bForbidden ? kCmeNetworkNotAllowed : kCmeNoNetworkService;
}

// The first entry that is not forbidden with this identity, or with any
// identity when plmn is empty.
const OperatorInfo* FirstAllowed(const std::vector<OperatorInfo>& operators,
                                 const std::string& plmn)
{
    for (const OperatorInfo& entry : operators) {
        if (entry.status != kOperatorForbidden && (plmn.empty() || entry.plmn == plmn)) {
            return &entry;
        }
    }
    return nullptr;
}

// Automatic selection tries networks in the order a modem does: the home
// network, then the user's and the operator's preferred lists in index order,
// then any other the search finds that is not forbidden. Nothing to register
// with: "no network service", the registration as it was.
std::optional<int32_t> SelectAutomatically(const Profile& profile, ModemState& state)
{
    const NetworkState& net = state.network;
    std::vector<std::string> wanted;
    if (!state.sim.homePlmn.empty()) {
        wanted.push_back(state.sim.homePlmn);
    }
    for (const PreferredList* pList : {&net.preferred.user, &net.preferred.operatorControlled}) {
        for (const PreferredOperator& preferred : pList->entries) {
            wanted.push_back(preferred.plmn);
        }
    }
    wanted.emplace_back();   // at last any
    for (const std::string& plmn : wanted) {
        if (const OperatorInfo* pChosen = FirstAllowed(net.operators, plmn)) {
            RegisterOn(profile, state, *pChosen);
            state.network.selectionMode = kSelectionAutomatic;
            return std::nullopt;
        }
    }
    return kCmeNoNetworkService;
}

}  // namespace

// "+COPS: (2,"CHINA MOBILE","CMCC","46000",7),(1,...),,(0,1,2,3,4),(0,1,2)":
// status, long and short name, identity, and the technology when the profile
// gives one (older modems leave it out). A name may hold a comma; the quotes
// keep it whole. Or the failure the profile asks for.
Reply HandleCopsTest(const Profile&, ModemState& state, const AtRequest&)
{
    const NetworkState& net = state.network;
    if (net.scan.failure) {
        switch (*net.scan.failure) {
        case ScanFailure::Error:
            return net.scan.cmeError ? CmeErrorReply(state, *net.scan.cmeError) : ErrorReply();
        case ScanFailure::NoAnswer:
            return NoAnswerReply();
        }
    }
    std::string line = "+COPS: ";
    for (std::size_t i = 0; i < net.operators.size(); ++i) {
        const OperatorInfo& entry = net.operators[i];
        line += (i == 0 ? "(" : ",(") + std::to_string(SearchStatus(net, entry)) + ",\"" +
                entry.longName + "\",\"" + entry.shortName + "\",\"" + entry.plmn + "\"";
        if (entry.act) {
            line += "," + std::to_string(*entry.act);
        }
        line += ")";
    }
    return OkReply({line + kSearchSupported});
}

// "+COPS: 0,0,"CHINA MOBILE",7": mode, format, the operator in that format and
// its technology when known; "+COPS: 2" alone when not registered.
Reply HandleCopsRead(const Profile&, ModemState& state, const AtRequest&)
{
    const NetworkState& net = state.network;
    std::string line = "+COPS: " + std::to_string(net.selectionMode);
    if (const OperatorInfo* pEntry = RegisteredEntry(net)) {
        line += "," + std::to_string(net.nameFormat) + ",\"" + NameOf(*pEntry, net.nameFormat) +
                "\"";
        if (pEntry->act) {
            line += "," + std::to_string(*pEntry->act);
        }
    }
    return OkReply({line});
}

// AT+COPS=0 automatic, =1,<format>,"<oper>"[,<AcT>] manual, =2 deregister,
// =3,<format> the read form's format only, =4 manual falling back to
// automatic. A format given with a selection that succeeds becomes the read
// form's format. A malformed set is "incorrect parameters" (50).
Reply HandleCopsSet(const Profile& profile, ModemState& state, const AtRequest& request)
{
    const std::optional<CopsSet> set = ParseCopsSet(request.args);
    if (!set) {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    std::optional<int32_t> error;
    switch (set->mode) {
    case kSelectionAutomatic:
        error = SelectAutomatically(profile, state);
        break;
    case kSelectionManual:
        error = SelectManually(profile, state, *set);
        break;
    case kSelectionDeregistered:
        Deregister(state.network);
        break;
    case kModeManualThenAutomatic:
        error = SelectManually(profile, state, *set);
        if (error) {
            error = SelectAutomatically(profile, state);
        }
        break;
    default:   // kModeFormatOnly
        break;
    }
    if (error) {
        return CmeErrorReply(state, *error);
    }
    if (set->format) {
        state.network.nameFormat = *set->format;
    }
    return OkReply();
}

}  // namespace modemsim
