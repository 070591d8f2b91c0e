// A field of a modem's answer or report read as a whole number. Pure.
#ifndef NETSRVCTL_FIELDNUMBER_H
#define NETSRVCTL_FIELDNUMBER_H

#include <optional>
#include <string_view>

namespace netsrvctl {

// Decimal digits with an optional minus sign, nothing else; none for an
// empty field, other characters or a number beyond int.
std::optional<int> WholeNumber(std::string_view field);

}  // namespace netsrvctl

#endif
