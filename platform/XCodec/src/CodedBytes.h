// Bytes in a network name's coding, as a network name information element or
// the modem's hexadecimal answer carries them.
#ifndef XCODEC_CODEDBYTES_H
#define XCODEC_CODEDBYTES_H

#include "ByteRun.h"
#include "Utf16Writer.h"

namespace xcodec {

constexpr int kCodingPackedGsm7 = 0;
constexpr int kCodingUcs2 = 8;

// kCodingPackedGsm7: GSM 7-bit packed septets; kCodingUcs2: UCS2 big-endian;
// any other coding: ISO 8859-1, a byte a character.
void DecodeCodedBytes(int nCoding, ByteRun bytes, Utf16Writer& out);

}  // namespace xcodec

#endif
