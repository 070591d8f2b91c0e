// UTF-8 <-> UTF-16 for the library's own files and paths (the settings store,
// the user-data directory). Code-page conversion for callers is in CodePage.cpp
// and goes through iconv; these helpers need no locale and no gconv module.
#ifndef COMMON_UTF8TEXT_H
#define COMMON_UTF8TEXT_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace common_text {

constexpr uint32_t kReplacementChar = 0xFFFD;

// Decodes one UTF-8 sequence at the front of text (which must not be empty).
// Sets nUsed to the bytes taken and returns the code point, or returns -1 with
// nUsed = 1 when the first byte does not start a valid, shortest-form sequence
// of a scalar value (no surrogates, nothing above U+10FFFF).
int32_t DecodeUtf8(std::string_view text, size_t& nUsed);

// Appends the UTF-8 form of a scalar value.
void AppendUtf8(std::string& out, uint32_t codePoint);

// UTF-8 bytes to UTF-16 units; every byte that starts no valid sequence
// becomes one U+FFFD.
std::vector<unsigned short> Utf8ToUtf16(std::string_view text);

// Length of a zero-terminated 16-bit text; 0 for null.
size_t Utf16Length(const unsigned short* pszText);

}  // namespace common_text

#endif
