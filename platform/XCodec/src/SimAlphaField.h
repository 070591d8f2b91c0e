// The SIM's alpha fields: service provider and network names, phone book
// names. Their codings are those of TS 102 221 Annex A.
#ifndef XCODEC_SIMALPHAFIELD_H
#define XCODEC_SIMALPHAFIELD_H

#include "ByteRun.h"
#include "Utf16Writer.h"

namespace xcodec {

// The GSM 7-bit default alphabet one septet a byte; the eighth bit is not
// part of the alphabet and is ignored. A 0xFF byte is unused space and ends
// the text.
void DecodeUnpackedGsm7(ByteRun bytes, Utf16Writer& out);

// A field by its first byte:
//   0x80  UCS2 big-endian units after it; a 0xFFFF unit ends the text.
//   0x81  count, base byte B, then count bytes: below 0x80 a GSM character,
//         else the character B * 128 + the low seven bits.
//   0x82  count, 16-bit base (high byte first), then count bytes: below 0x80
//         a GSM character, else the base + the low seven bits.
//   else  unpacked GSM 7-bit, as DecodeUnpackedGsm7.
// A count past the end of the field is cut to what is there.
void DecodeSimAlphaField(ByteRun field, Utf16Writer& out);

}  // namespace xcodec

#endif
