// The unsolicited reports that the modem builds from its current state, as a
// timeline "report" entry asks for them. Pure functions.
#ifndef MODEMSIM_UNSOLICITEDREPORTS_H
#define MODEMSIM_UNSOLICITEDREPORTS_H

#include <string>
#include <utility>
#include <vector>

#include "ModemProfile.h"

namespace modemsim {

// The names a profile gives reports by ("^RSSI", "+CREG", ...), in the order
// that messages list them.
const std::vector<std::pair<const char*, ReportKind>>& ReportChoices();

// The lines of one report, unframed: "^RSSI:22". One line for every report
// but ^HCSQ, which sends one per radio in use, and the registration reports,
// which send none while their report mode is 0.
std::vector<std::string> RenderReport(ReportKind kind, const ModemState& state);

}  // namespace modemsim

#endif
