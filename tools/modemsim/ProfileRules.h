// The checks that text fields of a profile must pass, each with the words that
// a rejection names. Pure functions.
#ifndef MODEMSIM_PROFILERULES_H
#define MODEMSIM_PROFILERULES_H

#include <cstdint>
#include <optional>

#include "SchemaVisitors.h"

namespace modemsim {

extern const TextRule kPlmnRule;         // "46000", "310260"
extern const TextRule kOptionalPlmnRule; // also empty (none named)
extern const TextRule kImsiRule;
extern const TextRule kIccidRule;        // as printed: "89860012345678901234"
extern const TextRule kHexBytesRule;     // file contents: "0000000203"
extern const TextRule kBandRule;         // "3FFFFFFF", "400000", "7fffffffffffffff"
extern const TextRule kOptionalBandRule; // also empty (an empty LTE band field)
extern const TextRule kHexIdRule;        // LAC, TAC, cell identity: "CE00", ""
extern const TextRule kPhoneRule;        // "+8613800138000", ""
extern const TextRule kAcqOrderRule;     // "00", "030201"
extern const TextRule kCapabilityRule;   // "+CGSM"
extern const TextRule kAtNameRule;       // a command the simulator knows: "^SYSCFG"
extern const TextRule kDelayKeyRule;     // "+COPS=?", "^SYSCFG?", "+CGATT=", "+CSQ"
extern const TextRule kCodingRule;       // "gsm7" or "ucs2"
extern const TextRule kNameRule;         // names a modem prints in double quotes
extern const TextRule kBandNameRule;     // "GSM900/GSM1800/WCDMA900/WCDMA2100"
extern const TextRule kLineRule;         // one line a modem sends
extern const TextRule kMinRule;          // a CDMA MIN or IMSI_M: "", "1234567890"
extern const TextRule kDescriptionRule;

// A band mask as the configuration commands print and take it: 1 to 16
// hexadecimal digits, either case ("3FFFFFFF", "7fffffffffffffff"); nothing
// for any other text.
std::optional<uint64_t> ParseBandMask(std::string_view text);

// A name and form as they key the delay table: "+COPS=?" -> ("+COPS", "=?").
bool SplitDelayKey(std::string_view key, std::string* pName, std::string* pForm);

}  // namespace modemsim

#endif
