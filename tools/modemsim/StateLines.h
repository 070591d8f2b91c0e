// The parts of the modem's state that it prints the same way in the answer to
// a command and in an unsolicited report (the text after "^HCSQ:", "^MODE:",
// the fields of "+CREG: "), and the scale conversions its readings need. Pure functions.
#ifndef MODEMSIM_STATELINES_H
#define MODEMSIM_STATELINES_H

#include <cstdint>
#include <string>
#include <vector>

#include "ModemState.h"

namespace modemsim {

// The text after "^HCSQ:" for each radio in use: "\"LTE\",52,46,191,22". A
// modem without service (status 0) or asleep (status 4) has no radio in use
// and says "\"NOSERVICE\"" alone, whatever the last readings were.
std::vector<std::string> HcsqTexts(const ModemState& state);

// "5,9", or "17" when the ^SYSINFO sub-mode is absent: the system mode in the
// ^SYSINFO numbering, as ^MODE reports it.
std::string ModeText(const ModeInfo& mode);

// The fields of a +CREG / +CGREG / +CEREG line after the report mode, as that
// mode asks for them; they are the whole of the unsolicited report and the
// tail of the read answer. The status always; with mode 2 or 3 the location
// when one is known and the modem is registered or searching
// ("1,\"CE00\",\"01CEAD8F\""), the access technology behind it when given;
// with mode 3 the cause of a rejection when given ("3,\"CE00\",\"01CEAD8F\",7,0,15",
// its fields left empty when the location or technology is not known).
std::string RegistrationFields(const RegistrationInfo& registration);

// TD-SCDMA modems print +CSQ's rssi offset by 100: 100 (-116 dBm or less) to
// 191 (-25 dBm or more), 199 unknown. True for a reading in that form.
bool IsTdScdmaCsq(int32_t rssi);

// A +CSQ rssi on the 0..31 scale (-113 dBm + 2 dB a step, 99 unknown): a
// TD-SCDMA reading is brought over by its dBm, other values stay as they are.
int32_t CsqScaleRssi(int32_t rssi);

}  // namespace modemsim

#endif
