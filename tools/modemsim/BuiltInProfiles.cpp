#include "EmbeddedProfiles.h"
#include "ModemSimulator.h"

namespace modemsim {

namespace {

constexpr char kDefaultProfileName[] = "lte";

}  // namespace

std::vector<std::string> BuiltInProfileNames()
{
    std::vector<std::string> names;
    for (std::size_t i = 0; i < kEmbeddedProfileCount; ++i) {
        names.emplace_back(kEmbeddedProfiles[i].name);
    }
    return names;
}

bool BuiltInProfileText(const std::string& name, std::string* pText)
{
    for (std::size_t i = 0; i < kEmbeddedProfileCount; ++i) {
        if (name == kEmbeddedProfiles[i].name) {
            *pText = kEmbeddedProfiles[i].text;
            return true;
        }
    }
    return false;
}

const std::string& DefaultProfileText()
{
    static const std::string text = [] {
        std::string found;
        BuiltInProfileText(kDefaultProfileName, &found);
        return found;
    }();
    return text;
}

}  // namespace modemsim
