// Codings of one character a byte.
#ifndef XCODEC_BYTETEXT_H
#define XCODEC_BYTETEXT_H

#include "ByteRun.h"
#include "Utf16Writer.h"

namespace xcodec {

// ISO 8859-1: each byte is the character of the same number.
void DecodeLatin1(ByteRun bytes, Utf16Writer& out);

// 7-bit ASCII as CDMA networks send names: the low seven bits of each byte.
void DecodeAscii7(ByteRun bytes, Utf16Writer& out);

}  // namespace xcodec

#endif
