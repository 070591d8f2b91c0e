// The modem's answer to one command line, as a pure function of the profile,
// the state (which the commands may change) and the line. No I/O, no clock:
// the caller writes the echo at once and the answer after its delay.
#ifndef MODEMSIM_MODEMENGINE_H
#define MODEMSIM_MODEMENGINE_H

#include <cstdint>
#include <string>
#include <string_view>

#include "CommandLine.h"
#include "ModemProfile.h"

namespace modemsim {

struct Answer {
    std::string echo;        // "ATE0\r" while echo is on, else empty
    std::string text;        // "\r\n+GCAP: +CGSM,+DS,+ES\r\n\r\nOK\r\n"; without a
                             // final result when a command never ends
    uint32_t delayMs = 0;    // how long the modem takes before it answers
};

// bOverlong: the line overflowed the modem's command buffer and was cut.
Answer AnswerCommandLine(const Profile& profile, ModemState& state, std::string_view line,
                         bool bOverlong = false);

// "\r\n<line>\r\n": how the modem frames every line it sends.
std::string FrameLine(std::string_view line);

// The delay of one request: by name and form, else by name, else the default.
uint32_t RequestDelay(const AnswerDelays& delays, const AtRequest& request);

}  // namespace modemsim

#endif
