// Which values the network configuration commands take (^SYSCFG, ^SYSCFGEX,
// ^SYSCONFIG): their "no change" codes, the bands and acquisition orders a
// modem offers, and the profile reader's check that the current values are
// ones a set would take. Pure functions.
#ifndef MODEMSIM_CONFIGRULES_H
#define MODEMSIM_CONFIGRULES_H

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <vector>

#include "ModemState.h"
#include "SchemaVisitors.h"

namespace modemsim {

// The codes with which a set leaves a setting as it is, as the commands
// define them. ^SYSCONFIG uses those of ^SYSCFG.
constexpr int32_t kKeepMode = 16;
constexpr int32_t kKeepAcqOrder = 3;
constexpr char kKeepAcqOrderText[] = "99";   // ^SYSCFGEX
constexpr char kAutoAcqOrderText[] = "00";   // ^SYSCFGEX: automatic, always taken
constexpr uint64_t kKeepBand = 0x40000000;   // the band, and the LTE band of ^SYSCFGEX
constexpr int32_t kKeepRoam = 2;
// ^SYSCFGEX lists its roaming values as (0-3) on this family; hosts send 2 to
// keep roaming there as with ^SYSCFG, and 3, the extra value, keeps it too.
constexpr int32_t kKeepRoamEx = 3;
constexpr int32_t kKeepDomain = 4;

// What a set does with one value.
enum class Verdict {
    Keep,    // a "no change" code: the setting stays as it is
    Take,    // an offered value: it becomes the setting
    Refuse   // neither: the whole set fails and changes nothing
};

// A number: Keep for one of keepCodes, Take when offered, else Refuse.
Verdict JudgeNumber(int32_t value, const std::vector<int32_t>& offered,
                    std::initializer_list<int32_t> keepCodes);

// A band mask as sent: 40000000 keeps the bands. Any other mask is taken when
// it is 1 to 16 hexadecimal digits, not 0, and every bit of it lies in some
// offered mask: an offered mask itself, or any part or union of them, as a
// modem takes any subset of its bands (so with "All bands" 3FFFFFFF offered,
// every mask within 3FFFFFFF is taken). The mask is stored as sent.
Verdict JudgeBand(std::string_view text, const std::vector<BandOffer>& offered);

// A ^SYSCFGEX acquisition order: "99" keeps it; "00" (automatic) is always
// taken; so is an offered entry, or a run of two-digit system codes each
// offered on its own and each named once ("0302" where "03" and "02" are
// offered). Anything else is refused.
Verdict JudgeAcqOrderText(std::string_view order, const std::vector<std::string>& offered);

// The verdict on each field of a section, judged against the section's own
// offer: a set puts the values it was sent into a copy and judges that.
struct SyscfgVerdicts {
    Verdict mode, acqOrder, band, roam, domain;
};
struct SyscfgexVerdicts {
    Verdict acqOrder, band, roam, domain, lteBand;   // an empty LTE band keeps the LTE bands
};
struct SysconfigVerdicts {
    Verdict mode, acqOrder, roam, domain;
};
SyscfgVerdicts JudgeSyscfg(const SyscfgValues& values);
SyscfgexVerdicts JudgeSyscfgex(const SyscfgexValues& values);
SysconfigVerdicts JudgeSysconfig(const SysconfigValues& values);

// True when any of the verdicts refuses.
bool AnyRefused(std::initializer_list<Verdict> verdicts);

// The profile reader's rule for each section: every current value is one a
// set would take, offered and not a "no change" code (an empty LTE band, as
// some firmware prints it, is allowed).
std::optional<FieldProblem> CheckSyscfg(const SyscfgValues& values);
std::optional<FieldProblem> CheckSyscfgex(const SyscfgexValues& values);
std::optional<FieldProblem> CheckSysconfig(const SysconfigValues& values);

}  // namespace modemsim

#endif
