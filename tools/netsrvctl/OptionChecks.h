// Checks of netsrvctl's numeric arguments. Each refuses a value with one
// short line that says what is wanted ("TYPE: must be a whole number from 0
// to 255, not -5"), so that a mistyped number is a usage error instead of
// something sent to the modem.
#ifndef NETSRVCTL_OPTIONCHECKS_H
#define NETSRVCTL_OPTIONCHECKS_H

#include <CLI/CLI.hpp>
#include <string>

namespace netsrvctl {

// A whole number in [min, max], written in decimal. pszWanted is the
// message after the option's name: "must be a whole number from 0 to 255".
CLI::Validator WholeNumberIn(long long min, long long max, const char* pszWanted);

// A number of seconds, 0 or more; not-a-number and infinity are refused.
// pszWanted is the message after the option's name, as above.
CLI::Validator Seconds(const char* pszWanted);

}  // namespace netsrvctl

#endif
