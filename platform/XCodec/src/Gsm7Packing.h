// GSM 7-bit text packed into octets, as network names and SMS carry it.
#ifndef XCODEC_GSM7PACKING_H
#define XCODEC_GSM7PACKING_H

#include "ByteRun.h"
#include "Utf16Writer.h"

namespace xcodec {

// n bytes hold floor(8n / 7) septets, the first in the least significant bits
// of the first byte. When 8n is a multiple of 7 and the last septet is 0, the
// sender had seven bits to spare: that septet is fill, not "@", and is dropped.
void DecodePackedGsm7(ByteRun bytes, Utf16Writer& out);

}  // namespace xcodec

#endif
