#include "ConfigRules.h"

#include <algorithm>
#include <string>

#include "ProfileRules.h"

namespace modemsim {

namespace {

template <typename T, typename V>
bool Contains(const std::vector<T>& items, const V& value)
{
    return std::find(items.begin(), items.end(), value) != items.end();
}

// The problem with a current value, or nothing when a set would take it.
// refusal says what it lacks: "is not in offered.modes".
std::optional<FieldProblem> Expect(const char* field, Verdict verdict, const std::string& shown,
                                   const char* refusal)
{
    switch (verdict) {
    case Verdict::Take:
        return std::nullopt;
    case Verdict::Keep:
        return FieldProblem{field, "not a setting: " + shown + " is the no-change value"};
    case Verdict::Refuse:
        return FieldProblem{field, "not offered: " + shown + " " + refusal};
    }
    return std::nullopt;
}

std::optional<FieldProblem> FirstOf(std::initializer_list<std::optional<FieldProblem>> problems)
{
    for (const std::optional<FieldProblem>& problem : problems) {
        if (problem) {
            return problem;
        }
    }
    return std::nullopt;
}

constexpr char kNotInModes[] = "is not in offered.modes";
constexpr char kNotInOrders[] = "is not in offered.acq_orders";
constexpr char kNotInRoams[] = "is not in offered.roams";
constexpr char kNotInDomains[] = "is not in offered.domains";
constexpr char kOutsideBands[] = "has bits outside offered.bands";

}  // namespace

Verdict JudgeNumber(int32_t value, const std::vector<int32_t>& offered,
                    std::initializer_list<int32_t> keepCodes)
{
    if (std::find(keepCodes.begin(), keepCodes.end(), value) != keepCodes.end()) {
        return Verdict::Keep;
    }
    return Contains(offered, value) ? Verdict::Take : Verdict::Refuse;
}

Verdict JudgeBand(std::string_view text, const std::vector<BandOffer>& offered)
{
    const std::optional<uint64_t> mask = ParseBandMask(text);
    if (!mask) {
        return Verdict::Refuse;
    }
    if (*mask == kKeepBand) {
        return Verdict::Keep;
    }
    uint64_t covered = 0;
    for (const BandOffer& band : offered) {
        covered |= ParseBandMask(band.mask).value_or(0);
    }
    return *mask != 0 && (*mask & ~covered) == 0 ? Verdict::Take : Verdict::Refuse;
}

Verdict JudgeAcqOrderText(std::string_view order, const std::vector<std::string>& offered)
{
    if (order == kKeepAcqOrderText) {
        return Verdict::Keep;
    }
    if (!kAcqOrderRule.accepts(order)) {
        return Verdict::Refuse;
    }
    if (order == kAutoAcqOrderText || Contains(offered, order)) {
        return Verdict::Take;
    }
    for (std::size_t i = 0; i < order.size(); i += 2) {
        const std::string_view code = order.substr(i, 2);
        if (code == kAutoAcqOrderText || code == kKeepAcqOrderText || !Contains(offered, code)) {
            return Verdict::Refuse;
        }
        for (std::size_t earlier = 0; earlier < i; earlier += 2) {
            if (order.substr(earlier, 2) == code) {
                return Verdict::Refuse;
            }
        }
    }
    return Verdict::Take;
}

SyscfgVerdicts JudgeSyscfg(const SyscfgValues& values)
{
    const SyscfgOffer& offer = values.offered;
    return {JudgeNumber(values.mode, offer.modes, {kKeepMode}),
            JudgeNumber(values.acqOrder, offer.acqOrders, {kKeepAcqOrder}),
            JudgeBand(values.band, offer.bands),
            JudgeNumber(values.roam, offer.roams, {kKeepRoam}),
            JudgeNumber(values.domain, offer.domains, {kKeepDomain})};
}

SyscfgexVerdicts JudgeSyscfgex(const SyscfgexValues& values)
{
    const SyscfgexOffer& offer = values.offered;
    return {JudgeAcqOrderText(values.acqOrder, offer.acqOrders),
            JudgeBand(values.band, offer.bands),
            JudgeNumber(values.roam, offer.roams, {kKeepRoam, kKeepRoamEx}),
            JudgeNumber(values.domain, offer.domains, {kKeepDomain}),
            values.lteBand.empty() ? Verdict::Keep : JudgeBand(values.lteBand, offer.lteBands)};
}

SysconfigVerdicts JudgeSysconfig(const SysconfigValues& values)
{
    const SysconfigOffer& offer = values.offered;
    return {JudgeNumber(values.mode, offer.modes, {kKeepMode}),
            JudgeNumber(values.acqOrder, offer.acqOrders, {kKeepAcqOrder}),
            JudgeNumber(values.roam, offer.roams, {kKeepRoam}),
            JudgeNumber(values.domain, offer.domains, {kKeepDomain})};
}

bool AnyRefused(std::initializer_list<Verdict> verdicts)
{
    return std::find(verdicts.begin(), verdicts.end(), Verdict::Refuse) != verdicts.end();
}

std::optional<FieldProblem> CheckSyscfg(const SyscfgValues& values)
{
    const SyscfgVerdicts v = JudgeSyscfg(values);
    return FirstOf({Expect("mode", v.mode, std::to_string(values.mode), kNotInModes),
                    Expect("acq_order", v.acqOrder, std::to_string(values.acqOrder), kNotInOrders),
                    Expect("band", v.band, QuoteForMessage(values.band), kOutsideBands),
                    Expect("roam", v.roam, std::to_string(values.roam), kNotInRoams),
                    Expect("domain", v.domain, std::to_string(values.domain), kNotInDomains)});
}

std::optional<FieldProblem> CheckSyscfgex(const SyscfgexValues& values)
{
    const SyscfgexVerdicts v = JudgeSyscfgex(values);
    const Verdict lteBand = values.lteBand.empty() ? Verdict::Take : v.lteBand;
    return FirstOf(
        {Expect("acq_order", v.acqOrder, QuoteForMessage(values.acqOrder),
                "is not \"00\" or made of offered.acq_orders"),
         Expect("band", v.band, QuoteForMessage(values.band), kOutsideBands),
         Expect("roam", v.roam, std::to_string(values.roam), kNotInRoams),
         Expect("domain", v.domain, std::to_string(values.domain), kNotInDomains),
         Expect("lte_band", lteBand, QuoteForMessage(values.lteBand),
                "has bits outside offered.lte_bands")});
}

std::optional<FieldProblem> CheckSysconfig(const SysconfigValues& values)
{
    const SysconfigVerdicts v = JudgeSysconfig(values);
    return FirstOf({Expect("mode", v.mode, std::to_string(values.mode), kNotInModes),
                    Expect("acq_order", v.acqOrder, std::to_string(values.acqOrder), kNotInOrders),
                    Expect("roam", v.roam, std::to_string(values.roam), kNotInRoams),
                    Expect("domain", v.domain, std::to_string(values.domain), kNotInDomains)});
}

}  // namespace modemsim
