#include "AcquisitionOrder.h"

#include <algorithm>
#include <vector>

namespace netsrvctl {

const char kAutomaticAcqOrder[] = "00";

namespace {
// The systems of ^SYSCFGEX's acquisition order: its code, the word of
// --mode and the name shown.
struct AcqSystem {
    const char* code;
    const char* word;
    const char* name;
};

const AcqSystem kAcqSystems[] = {
    {"01", "gsm", "GSM"},         {"02", "wcdma", "WCDMA"},    {"03", "lte", "LTE"},
    {"04", "cdma", "CDMA 1X"},    {"05", "td-scdma", "TD-SCDMA"}, {"06", "wimax", "WiMAX"},
    {"07", "evdo", "EV-DO"},
};

const char kAutoWord[] = "auto";

template <typename Field>
const AcqSystem* FindSystem(std::string_view value, Field field)
{
    for (const AcqSystem& system : kAcqSystems) {
        if (value == system.*field) {
            return &system;
        }
    }
    return nullptr;
}

// The systems of a run of two-digit codes, in order; none when the text is
// empty, of odd length or holds a code that names no system.
std::optional<std::vector<const AcqSystem*>> SystemsOfCodes(std::string_view text)
{
    if (text.empty() || text.size() % 2 != 0) {
        return std::nullopt;
    }
    std::vector<const AcqSystem*> systems;
    for (size_t i = 0; i < text.size(); i += 2) {
        const AcqSystem* pSystem = FindSystem(text.substr(i, 2), &AcqSystem::code);
        if (pSystem == nullptr) {
            return std::nullopt;
        }
        systems.push_back(pSystem);
    }
    return systems;
}

// The systems of "lte,wcdma,gsm"; none for an empty item or an unknown word.
std::optional<std::vector<const AcqSystem*>> SystemsOfWords(std::string_view list)
{
    std::vector<const AcqSystem*> systems;
    while (true) {
        const size_t comma = list.find(',');
        const AcqSystem* pSystem = FindSystem(list.substr(0, comma), &AcqSystem::word);
        if (pSystem == nullptr) {
            return std::nullopt;
        }
        systems.push_back(pSystem);
        if (comma == std::string_view::npos) {
            return systems;
        }
        list.remove_prefix(comma + 1);
    }
}

bool IsDigits(std::string_view text)
{
    return text.find_first_not_of("0123456789") == std::string_view::npos;
}
}  // namespace

std::optional<std::string> AcqOrderOfModeArgument(std::string_view argument)
{
    if (argument == kAutoWord || argument == kAutomaticAcqOrder) {
        return std::string(kAutomaticAcqOrder);
    }
    const auto systems = IsDigits(argument) ? SystemsOfCodes(argument) : SystemsOfWords(argument);
    if (!systems) {
        return std::nullopt;
    }
    std::string text;
    for (auto it = systems->begin(); it != systems->end(); ++it) {
        // A system named twice would only be tried once: a slip, not an order.
        if (std::find(systems->begin(), it, *it) != it) {
            return std::nullopt;
        }
        text += (*it)->code;
    }
    return text;
}

std::string ModeArgumentForms()
{
    std::string forms = kAutoWord;
    for (const AcqSystem& system : kAcqSystems) {
        forms += std::string(", ") + system.word;
    }
    return forms + ", a list such as lte,wcdma,gsm, or codes such as 030201";
}

std::optional<std::string> AcqOrderName(std::string_view text)
{
    if (text == kAutomaticAcqOrder) {
        return std::string("automatic");
    }
    const auto systems = SystemsOfCodes(text);
    if (!systems) {
        return std::nullopt;
    }
    std::string name;
    for (const AcqSystem* pSystem : *systems) {
        name += (name.empty() ? "" : ", then ") + std::string(pSystem->name);
    }
    return name;
}

}  // namespace netsrvctl
