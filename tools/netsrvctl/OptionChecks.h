// Checks of netsrvctl's arguments. Each refuses a value with one
// short line that says what is wanted ("TYPE: must be a whole number from 0
// to 255, not -5"), so that a mistyped number is a usage error instead of
// something sent to the modem.
#ifndef NETSRVCTL_OPTIONCHECKS_H
#define NETSRVCTL_OPTIONCHECKS_H

#include <CLI/CLI.hpp>
#include <string>

#include "SettingWords.h"

namespace netsrvctl {

// A whole number in [min, max], written in decimal. pszWanted is the
// message after the option's name: "must be a whole number from 0 to 255".
CLI::Validator WholeNumberIn(long long min, long long max, const char* pszWanted);

// A number of seconds, 0 or more; not-a-number and infinity are refused.
// pszWanted is the message after the option's name, as above.
CLI::Validator Seconds(const char* pszWanted);

// One of the table's words: "must be one of cs, ps, eps, not xx".
CLI::Validator OneOfWords(const WordTable& table);

// A MIN or IMSI_M: "must be 10 or 15 digits, not 12345".
CLI::Validator MinNumber();

// A network mode as AcqOrderOfModeArgument takes it: "must be auto, gsm,
// ..., or codes such as 030201, not xx".
CLI::Validator ModeArgument();

// A band mask or "all", as ParseBandChoice takes it.
CLI::Validator BandArgument();

}  // namespace netsrvctl

#endif
