#include "SimAlphaField.h"

#include <cstdint>

#include "Gsm7Alphabet.h"
#include "Ucs2Text.h"

namespace xcodec {

namespace {

constexpr std::uint8_t kUcs2Field = 0x80;
constexpr std::uint8_t kHalfPageField = 0x81;
constexpr std::uint8_t kBasePointerField = 0x82;
constexpr std::uint8_t kUnusedByte = 0xFF;

// The UCS2 field ends at its first 0xFFFF unit: the rest of the record is free.
void DecodeUcs2Field(ByteRun units, Utf16Writer& out)
{
    std::size_t nEnd = 0;
    while (nEnd + 1 < units.nSize && !(units[nEnd] == kUnusedByte && units[nEnd + 1] == kUnusedByte)) {
        nEnd += 2;
    }
    DecodeUcs2(units.Sub(0, nEnd), out);
}

// The body of a 0x81 or 0x82 field: GSM characters and offsets from a base
// that points into the UCS2 code space.
void DecodeBasedCharacters(ByteRun body, char32_t base, Utf16Writer& out)
{
    Gsm7TextDecoder gsm(out);
    for (std::uint8_t byte : body) {
        if (out.Done()) {
            return;
        }
        if (byte < 0x80) {
            gsm.Put(byte);
            continue;
        }
        gsm.ForgetEscape();
        const char32_t character = base + (byte & 0x7F);
        // A base near the top of the 16-bit space points past it: that is no
        // UCS2 character.
        out.Put(character > 0xFFFF ? 0xFFFD : character);
    }
}

}  // namespace

void DecodeUnpackedGsm7(ByteRun bytes, Utf16Writer& out)
{
    Gsm7TextDecoder gsm(out);
    for (std::uint8_t byte : bytes) {
        if (byte == kUnusedByte || out.Done()) {
            return;
        }
        gsm.Put(byte);
    }
}

void DecodeSimAlphaField(ByteRun field, Utf16Writer& out)
{
    if (field.Empty()) {
        return;
    }
    switch (field[0]) {
    case kUcs2Field:
        DecodeUcs2Field(field.Sub(1), out);
        return;
    case kHalfPageField:
        if (field.nSize >= 3) {
            DecodeBasedCharacters(field.Sub(3, field[1]), static_cast<char32_t>(field[2]) << 7, out);
        }
        return;
    case kBasePointerField:
        if (field.nSize >= 4) {
            DecodeBasedCharacters(field.Sub(4, field[1]),
                                  static_cast<char32_t>(field[2] << 8 | field[3]), out);
        }
        return;
    default:
        DecodeUnpackedGsm7(field, out);
        return;
    }
}

}  // namespace xcodec
