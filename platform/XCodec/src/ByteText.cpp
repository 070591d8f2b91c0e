// A 0 byte is a NUL character, which ends the text in the writer: these
// codings reach us in C strings.

#include "ByteText.h"

namespace xcodec {

void DecodeLatin1(ByteRun bytes, Utf16Writer& out)
{
    for (std::uint8_t byte : bytes) {
        out.Put(byte);
    }
}

void DecodeAscii7(ByteRun bytes, Utf16Writer& out)
{
    for (std::uint8_t byte : bytes) {
        out.Put(byte & 0x7F);
    }
}

}  // namespace xcodec
