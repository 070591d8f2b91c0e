// The SIM's preferred-operator lists: +CPLS chooses one of the three, +CPOL
// reads and writes the chosen one. Entries are kept in rising index order.

#include <algorithm>

#include "CommandHandlers.h"
#include "OperatorList.h"
#include "ProfileRules.h"

namespace modemsim {

namespace {

constexpr int32_t kListUser = 0;
constexpr int32_t kListOperator = 1;

// AT+CPOL=[<index>][,<format>[,<oper>[,<GSM_AcT>,<GSM_Compact_AcT>,<UTRAN_AcT>]]]
struct CpolSet {
    std::optional<int32_t> index;
    std::optional<int32_t> format;
    std::string oper;
    std::optional<PreferredOperator> technologies;   // only the three flags are used
};

PreferredList& ListOf(NetworkState& net, int32_t list)
{
    if (list == kListUser) {
        return net.preferred.user;
    }
    return list == kListOperator ? net.preferred.operatorControlled : net.preferred.hplmn;
}

// Nothing when the fields are malformed: not numbers where numbers go, a flag
// other than 0 or 1, some of the three flags without the others, an operator
// without its format, more than six fields. The index is not checked here.
std::optional<CpolSet> ParseCpolSet(std::string_view args)
{
    const std::vector<std::string> fields = SplitArgs(args);
    if (fields.empty() || fields.size() > 6 || fields.size() == 4 || fields.size() == 5) {
        return std::nullopt;
    }
    CpolSet set;
    if (!fields[0].empty()) {
        set.index = ParseNumberArg(fields[0], 0, INT32_MAX);
        if (!set.index) {
            return std::nullopt;
        }
    }
    if (!ReadFormatAndOperator(fields, &set.format, &set.oper)) {
        return std::nullopt;
    }
    if (fields.size() == 6) {
        const std::optional<int32_t> gsm = ParseNumberArg(fields[3], 0, 1);
        const std::optional<int32_t> compact = ParseNumberArg(fields[4], 0, 1);
        const std::optional<int32_t> utran = ParseNumberArg(fields[5], 0, 1);
        if (!gsm || !compact || !utran) {
            return std::nullopt;
        }
        set.technologies = PreferredOperator{0, "", *gsm, *compact, *utran};
    }
    if ((!set.oper.empty() && !set.format) || (set.oper.empty() && set.technologies)) {
        return std::nullopt;
    }
    return set;
}

// The identity an operator written in format stands for: a numeric one as it
// is, a name through the operators the modem knows. Nothing when unknown.
std::optional<std::string> PlmnOf(const NetworkState& net, int32_t format, const std::string& oper)
{
    if (format == kFormatNumeric) {
        return kPlmnRule.accepts(oper) ? std::optional<std::string>(oper) : std::nullopt;
    }
    for (const OperatorInfo& entry : net.operators) {
        if (NameOf(entry, format) == oper) {
            return entry.plmn;
        }
    }
    return std::nullopt;
}

// The first index from 1 up that no entry holds, or nothing when the list is full.
std::optional<int32_t> FreeIndex(const PreferredList& list)
{
    int32_t index = 1;
    for (const PreferredOperator& entry : list.entries) {
        if (entry.index != index) {
            break;
        }
        ++index;
    }
    return index <= list.capacity ? std::optional<int32_t>(index) : std::nullopt;
}

// Puts entry at its index, in order, replacing what was there.
void Store(PreferredList& list, const PreferredOperator& entry)
{
    auto it = std::find_if(list.entries.begin(), list.entries.end(),
                           [&entry](const PreferredOperator& e) { return e.index >= entry.index; });
    if (it != list.entries.end() && it->index == entry.index) {
        *it = entry;
    } else {
        list.entries.insert(it, entry);
    }
}

void Remove(PreferredList& list, int32_t index)
{
    auto held = [index](const PreferredOperator& entry) { return entry.index == index; };
    list.entries.erase(std::remove_if(list.entries.begin(), list.entries.end(), held),
                       list.entries.end());
}

}  // namespace

// "+CPLS: 0": 0 the user-controlled list, 1 the operator-controlled one, 2 the
// home network's technologies.
Reply HandleCplsRead(const Profile&, ModemState& state, const AtRequest&)
{
    if (IsSimAbsent(state)) {
        return CmeErrorReply(state, kCmeSimNotInserted);
    }
    return OkReply({"+CPLS: " + std::to_string(state.network.preferredList)});
}

Reply HandleCplsSet(const Profile&, ModemState& state, const AtRequest& request)
{
    if (IsSimAbsent(state)) {
        return CmeErrorReply(state, kCmeSimNotInserted);
    }
    const std::optional<int32_t> list = ParseSingleNumberArg(request.args, 0, 2);
    if (!list) {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    state.network.preferredList = *list;
    return OkReply();
}

// One line per entry of the chosen list, "+CPOL: 1,2,"46000",1,0,1": index,
// format, operator, GSM, GSM compact and UTRAN flags. In a name format the
// operator is named as the search names it; one the modem does not know is
// given by its identity, with format 2. An empty list answers OK alone.
Reply HandleCpolRead(const Profile&, ModemState& state, const AtRequest&)
{
    if (IsSimAbsent(state)) {
        return CmeErrorReply(state, kCmeSimNotInserted);
    }
    NetworkState& net = state.network;
    std::vector<std::string> lines;
    for (const PreferredOperator& entry : ListOf(net, net.preferredList).entries) {
        const OperatorInfo* pKnown = nullptr;
        for (const OperatorInfo& known : net.operators) {
            if (pKnown == nullptr && known.plmn == entry.plmn) {
                pKnown = &known;
            }
        }
        const int32_t format = pKnown != nullptr ? net.preferredFormat : kFormatNumeric;
        const std::string& oper = pKnown != nullptr ? NameOf(*pKnown, format) : entry.plmn;
        lines.push_back("+CPOL: " + std::to_string(entry.index) + "," + std::to_string(format) +
                        ",\"" + oper + "\"," + std::to_string(entry.gsm) + "," +
                        std::to_string(entry.gsmCompact) + "," + std::to_string(entry.utran));
    }
    return OkReply(lines);
}

// AT+CPOL=<index>,<format>,"<oper>"[,<GSM_AcT>,<GSM_Compact_AcT>,<UTRAN_AcT>]
// writes the entry (flags left out: GSM and UTRAN); without the index it goes
// to the first free place. AT+CPOL=<index> deletes it. A format alone,
// AT+CPOL=,<format>, sets how the read form names operators. Refusals change
// nothing: an index of 0 or beyond the list's capacity is "invalid index" (21),
// a full list "memory full" (20), an unknown operator or malformed fields
// "incorrect parameters" (50); the operator-controlled and home lists are
// written by the operator alone, "operation not allowed" (3).
Reply HandleCpolSet(const Profile&, ModemState& state, const AtRequest& request)
{
    if (IsSimAbsent(state)) {
        return CmeErrorReply(state, kCmeSimNotInserted);
    }
    NetworkState& net = state.network;
    const std::optional<CpolSet> set = ParseCpolSet(request.args);
    if (!set || (!set->index && set->oper.empty() && !set->format)) {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    PreferredList& list = ListOf(net, net.preferredList);
    const bool bChangesList = set->index || !set->oper.empty();
    if (bChangesList && net.preferredList != kListUser) {
        return CmeErrorReply(state, kCmeOperationNotAllowed);
    }
    if (set->index && (*set->index < 1 || *set->index > list.capacity)) {
        return CmeErrorReply(state, kCmeInvalidIndex);
    }
    if (!set->oper.empty()) {
        const std::optional<std::string> plmn = PlmnOf(net, *set->format, set->oper);
        if (!plmn) {
            return CmeErrorReply(state, kCmeIncorrectParameters);
        }
        const std::optional<int32_t> index = set->index ? set->index : FreeIndex(list);
        if (!index) {
            return CmeErrorReply(state, kCmeMemoryFull);
        }
        PreferredOperator entry = set->technologies.value_or(PreferredOperator{});
        entry.index = *index;
        entry.plmn = *plmn;
        Store(list, entry);
    } else if (set->index) {
        Remove(list, *set->index);
    }
    if (set->format) {
        net.preferredFormat = *set->format;
    }
    return OkReply();
}

}  // namespace modemsim
