// UCS2 text, big-endian, as SIMs and networks store it.
#ifndef XCODEC_UCS2TEXT_H
#define XCODEC_UCS2TEXT_H

#include "ByteRun.h"
#include "Utf16Writer.h"

namespace xcodec {

// Two bytes a unit, the high byte first; an odd last byte is half a unit and
// gives nothing. A surrogate pair in the data is kept as its character; a
// surrogate without its partner becomes U+FFFD.
void DecodeUcs2(ByteRun bytes, Utf16Writer& out);

}  // namespace xcodec

#endif
