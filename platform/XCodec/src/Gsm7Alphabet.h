// The GSM 7-bit default alphabet and its extension table, and the turning of
// a run of septets into characters. Where the septets come from (packed into
// octets, one a byte, mixed into a SIM alpha field) is the caller's concern.
#ifndef XCODEC_GSM7ALPHABET_H
#define XCODEC_GSM7ALPHABET_H

#include <cstdint>

#include "Utf16Writer.h"

namespace xcodec {

// Septets in, characters out. 0x1B escapes to the extension table for the
// septet after it; a code the extension table lacks gives the default
// alphabet's character, a second escape a space. An escape that nothing
// follows gives nothing.
class Gsm7TextDecoder {
public:
    explicit Gsm7TextDecoder(Utf16Writer& out) : m_out(out) {}

    // Only the low seven bits of the septet count.
    void Put(std::uint8_t septet);

    // The text goes on in another coding: a pending escape is dropped.
    void ForgetEscape() { m_bEscaped = false; }

private:
    Utf16Writer& m_out;
    bool m_bEscaped = false;
};

}  // namespace xcodec

#endif
