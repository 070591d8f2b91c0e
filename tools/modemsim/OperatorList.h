// The operators a search finds, as +COPS and +CPOL name them: the three name
// formats, the status a search reports, and which entry the registration is.
// Pure functions.
#ifndef MODEMSIM_OPERATORLIST_H
#define MODEMSIM_OPERATORLIST_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "ModemState.h"

namespace modemsim {

// +COPS and +CPOL <format>.
constexpr int32_t kFormatLong = 0;
constexpr int32_t kFormatShort = 1;
constexpr int32_t kFormatNumeric = 2;

// +COPS=? <stat>.
constexpr int32_t kOperatorAvailable = 1;
constexpr int32_t kOperatorCurrent = 2;
constexpr int32_t kOperatorForbidden = 3;

// The operator's long name, short name or numeric identity, by format.
const std::string& NameOf(const OperatorInfo& entry, int32_t format);

// The second and third fields of AT+COPS= and AT+CPOL=, "<format>,"<oper>"":
// the format when given (empty: none) and the operator (without its quotes;
// empty when left out). False when the format is not 0, 1 or 2.
bool ReadFormatAndOperator(const std::vector<std::string>& fields,
                           std::optional<int32_t>* pFormat, std::string* pOper);

// True when entry is the operator the registration names: the same identity
// and the same technology (or neither gives one).
bool IsRegisteredEntry(const NetworkState& net, const OperatorInfo& entry);

// The entry the registration names, or null when the modem is not registered.
const OperatorInfo* RegisteredEntry(const NetworkState& net);

// The status a search reports: "current" for the registered entry alone; an
// entry the profile calls current while the modem is elsewhere is available.
int32_t SearchStatus(const NetworkState& net, const OperatorInfo& entry);

}  // namespace modemsim

#endif
