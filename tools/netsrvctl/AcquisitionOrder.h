// The acquisition order of the network configuration: the text of two-digit
// system codes in order of preference that ^SYSCFGEX reads and sets
// ("030201": LTE, then WCDMA, then GSM; "00": automatic), the words
// netsrvctl takes for it and the name it shows for it. Pure.
#ifndef NETSRVCTL_ACQUISITIONORDER_H
#define NETSRVCTL_ACQUISITIONORDER_H

#include <optional>
#include <string>
#include <string_view>

namespace netsrvctl {

// The code of automatic acquisition; it stands alone, never in a list.
extern const char kAutomaticAcqOrder[];

// What `config set --mode` takes, to the acquisition text: "auto" ("00"), a
// system's word ("lte": "03"), a list of words in order of preference
// ("lte,wcdma,gsm": "030201"), or the codes themselves ("030201"). None for
// an unknown word or code, an empty item, a system named twice, or
// automatic inside a list. Words are lower case, as the help shows them.
std::optional<std::string> AcqOrderOfModeArgument(std::string_view argument);

// The forms of the above, for a usage message: "auto, gsm, wcdma, ...".
std::string ModeArgumentForms();

// "automatic" for "00", "LTE, then WCDMA, then GSM" for "030201"; none for
// a text that is not a run of known system codes (a modem's "99", which
// leaves the order as it is, has no name here).
std::optional<std::string> AcqOrderName(std::string_view text);

}  // namespace netsrvctl

#endif
