// The text form of the settings file: one entry a line,
//   module <TAB> item <TAB> value <LF>
// in UTF-8. Inside a field a backslash, tab, line feed and carriage return are
// written \\ \t \n \r, and a UTF-16 unit that has no UTF-8 form (a surrogate
// without its partner) is written \uXXXX, so every 16-bit value survives the
// round trip. Lines that do not have exactly three fields are ignored.
#ifndef COMMON_SETTINGSFORMAT_H
#define COMMON_SETTINGSFORMAT_H

#include <string>
#include <string_view>
#include <vector>

namespace common_settings {

struct SettingEntry {
    std::u16string module;
    std::u16string item;
    std::u16string value;
};

std::string EscapeField(const std::u16string& strField);
// Lenient: an unknown or cut escape is kept as written; bytes that are not
// UTF-8 become U+FFFD.
std::u16string UnescapeField(std::string_view field);

std::string FormatSettings(const std::vector<SettingEntry>& entries);
std::vector<SettingEntry> ParseSettings(std::string_view text);

}  // namespace common_settings

#endif
