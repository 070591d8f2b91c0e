// Text that came from the modem, made safe to print, and JSON made into one
// output line. Pure.
#ifndef NETSRVCTL_OUTPUTTEXT_H
#define NETSRVCTL_OUTPUTTEXT_H

#include <cstddef>
#include <nlohmann/json.hpp>
#include <string>

namespace netsrvctl {

// A fixed-size text field of a record, up to its terminator or its end, with
// control characters (a modem's stray CR, an escape sequence) shown as '?'.
std::string FieldText(const char* pszField, size_t nSize);

// The object on one line. Bytes that are not UTF-8 (a modem's name in its own
// code page) become U+FFFD instead of failing the whole line.
// Every object the tool prints is an ordered_json, so that its keys come in
// the documented order rather than sorted.
std::string JsonLine(const nlohmann::ordered_json& value);

}  // namespace netsrvctl

#endif
