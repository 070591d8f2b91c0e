// The "+CSQ" answer as the same rssi step on every radio. Pure.
//
// Most modems answer "+CSQ: 22,99": rssi 0..31 (-113 dBm + 2 dB a step, 99
// not known) and the bit error rate 0..7 (99 not known). A TD-SCDMA modem
// answers its rssi offset by 100 on its own scale, "+CSQ: 140,99" (100 + n is
// -116 + n dBm, 199 not known). The service removes that offset only while it
// reads the system mode as TD-SCDMA, and what it hands on stays on the
// TD-SCDMA scale, so the tool reads the answer itself and brings every form
// to the 0..31 step.
#ifndef NETSRVCTL_CSQSTEP_H
#define NETSRVCTL_CSQSTEP_H

#include <optional>
#include <string_view>

namespace netsrvctl {

struct CsqStep {
    int rssi = 99;   // 0..31, 99 not known
    int ber = 99;    // 0..7, 99 not known
};

// The text after "+CSQ:" ("22,99", "140,99"). None when it is not two whole
// numbers; a number outside its scale is taken as not known.
std::optional<CsqStep> ParseCsqAnswer(std::string_view text);

// -113 + 2 * step: 0 is -113 dBm or less, 31 is -51 dBm or more. None for a
// step that is not known.
std::optional<int> RssiDbm(int step);

}  // namespace netsrvctl

#endif
