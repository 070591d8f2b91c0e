#include "NamedNumber.h"

namespace netsrvctl {

void AddNamed(nlohmann::ordered_json* pJson, const std::string& key, int64_t value,
              const char* pszName)
{
    (*pJson)[key] = value;
    if (pszName != nullptr) {
        (*pJson)[key + "_name"] = pszName;
    }
}

std::string NumberAndName(int64_t value, const std::string& name, bool bFromModem)
{
    return std::to_string(value) + " - " + (name.empty() ? "unknown" : name) +
           (bFromModem ? " (the modem's name)" : "");
}

std::string NameOr(const char* pszName, const std::string& fallback)
{
    return pszName != nullptr ? pszName : fallback;
}

void AddReading(nlohmann::ordered_json* pJson, const std::string& key,
                const std::optional<int64_t>& value, NameFunction name)
{
    if (value) {
        AddNamed(pJson, key, *value, name(*value));
    }
}

std::optional<std::string> NamedReading(const std::optional<int64_t>& value, NameFunction name)
{
    if (!value) {
        return std::nullopt;
    }
    return NumberAndName(*value, NameOr(name(*value), ""));
}

}  // namespace netsrvctl
