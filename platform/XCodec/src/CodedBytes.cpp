#include "CodedBytes.h"

#include "ByteText.h"
#include "Gsm7Packing.h"
#include "Ucs2Text.h"

namespace xcodec {

void DecodeCodedBytes(int nCoding, ByteRun bytes, Utf16Writer& out)
{
    if (nCoding == kCodingPackedGsm7) {
        DecodePackedGsm7(bytes, out);
    } else if (nCoding == kCodingUcs2) {
        DecodeUcs2(bytes, out);
    } else {
        DecodeLatin1(bytes, out);
    }
}

}  // namespace xcodec
