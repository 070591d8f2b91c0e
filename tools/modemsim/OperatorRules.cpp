#include "OperatorRules.h"

#include "OperatorList.h"

namespace modemsim {

std::optional<FieldProblem> CheckHomeNetwork(const SimState& sim)
{
    if (sim.homePlmn.empty()) {
        return std::nullopt;
    }
    if (sim.imsi.compare(0, sim.homePlmn.size(), sim.homePlmn) != 0) {
        return FieldProblem{"home_plmn", QuoteForMessage(sim.homePlmn) + " does not begin imsi " +
                                             QuoteForMessage(sim.imsi)};
    }
    const std::string mncLength = std::to_string(sim.homePlmn.size() - 3);
    if (!sim.efAd.empty() && (sim.efAd.size() < 8 || sim.efAd.substr(7, 1) != mncLength)) {
        return FieldProblem{"ef_ad", QuoteForMessage(sim.efAd) + " does not say an MNC length of " +
                                         mncLength + " (the low digit of its fourth byte), " +
                                         "as home_plmn has"};
    }
    return std::nullopt;
}

std::optional<FieldProblem> CheckRegisteredOperator(const NetworkState& network)
{
    if (!network.registered) {
        return std::nullopt;
    }
    const RegisteredOperator& registered = *network.registered;
    const std::string shown =
        registered.plmn +
        (registered.act ? " (act " + std::to_string(*registered.act) + ")" : " (no act)");
    const OperatorInfo* pEntry = RegisteredEntry(network);
    if (pEntry == nullptr) {
        return FieldProblem{"registered", shown + " is not an entry of operators"};
    }
    if (pEntry->status == kOperatorForbidden) {
        return FieldProblem{"registered", shown + " is forbidden (status 3) in operators"};
    }
    return std::nullopt;
}

std::optional<FieldProblem> CheckOperatorScan(const OperatorScan& scan)
{
    if (scan.cmeError && scan.failure != ScanFailure::Error) {
        return FieldProblem{"cme_error", "only with the failure \"error\""};
    }
    return std::nullopt;
}

std::optional<FieldProblem> CheckPreferredList(const PreferredList& list)
{
    int32_t previous = 0;
    for (std::size_t i = 0; i < list.entries.size(); ++i) {
        const int32_t index = list.entries[i].index;
        const std::string field = IndexPath("entries", i) + ".index";
        if (index > list.capacity) {
            return FieldProblem{field, std::to_string(index) + " is beyond the capacity " +
                                           std::to_string(list.capacity)};
        }
        if (index <= previous) {
            return FieldProblem{field, std::to_string(index) + " does not come after " +
                                           std::to_string(previous) +
                                           " (entries go in rising index order)"};
        }
        previous = index;
    }
    return std::nullopt;
}

}  // namespace modemsim
