// Splitting what the host types into AT requests, the way a modem's command
// interpreter does: "AT+CMEE=1;^GLASTERR=1" is two requests, "ATE0" one basic
// request. Pure functions.
#ifndef MODEMSIM_COMMANDLINE_H
#define MODEMSIM_COMMANDLINE_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace modemsim {

enum class AtForm {
    Bare,   // AT+GCAP, and basic commands such as ATE0 (args "0")
    Read,   // AT^SYSCFG?
    Test,   // AT^SYSCFG=?
    Set     // AT^GLASTERR=1 (args "1")
};

struct AtRequest {
    std::string name;   // upper case: "+CMEE", "^SYSCFG", "E"
    AtForm form = AtForm::Bare;
    std::string args;   // the text after "=", or a basic command's digits
};

// The requests of one command line (without its CR), or nothing when the line
// is not a well-formed AT command line. "AT" alone gives no requests.
std::optional<std::vector<AtRequest>> ParseCommandLine(std::string_view line);

// "", "?", "=?" or "=": how a form is written after the name.
const char* FormSuffix(AtForm form);

// The fields of a set command's arguments: split at commas outside double
// quotes, blanks around a field dropped, one pair of enclosing quotes removed.
// "1,2,\"46000\"" -> {"1", "2", "46000"}; "" -> {} ; "1," -> {"1", ""}.
std::vector<std::string> SplitArgs(std::string_view args);

// A decimal field within lo..hi, or nothing.
std::optional<int32_t> ParseNumberArg(std::string_view field, int32_t lo, int32_t hi);

// The value of a set command that takes one number ("AT+CGATT=1"): the only
// field of args within lo..hi, or nothing when there is not exactly one such.
std::optional<int32_t> ParseSingleNumberArg(std::string_view args, int32_t lo, int32_t hi);

}  // namespace modemsim

#endif
