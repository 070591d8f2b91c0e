// A number of a record shown with its name, the same way in every view: as
// "key" and "key_name" in JSON, as "45 - HSPA+ (WCDMA)" in text. Pure.
#ifndef NETSRVCTL_NAMEDNUMBER_H
#define NETSRVCTL_NAMEDNUMBER_H

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace netsrvctl {

// Adds key: value and, when the number has a name, key_name: name.
void AddNamed(nlohmann::ordered_json* pJson, const std::string& key, int64_t value,
              const char* pszName);

// "2 - normal service", "101 - LTE (the modem's name)", "7 - unknown". Not
// "2 (normal service)": some names carry brackets of their own.
std::string NumberAndName(int64_t value, const std::string& name, bool bFromModem = false);

// The name, or the fallback for a number that has none.
std::string NameOr(const char* pszName, const std::string& fallback);

// A table of Names.h: the name of a number, or null.
typedef const char* (*NameFunction)(int64_t value);

// key and key_name (when the number has a name) of a number that was read;
// nothing for one that was not.
void AddReading(nlohmann::ordered_json* pJson, const std::string& key,
                const std::optional<int64_t>& value, NameFunction name);

// "1 - enabled" for a number that was read, none for one that was not.
std::optional<std::string> NamedReading(const std::optional<int64_t>& value, NameFunction name);

}  // namespace netsrvctl

#endif
