#include "Gsm7Packing.h"

#include <cstdint>

#include "Gsm7Alphabet.h"

namespace xcodec {

namespace {

// Septet nIndex of the bit stream; its bits exist whenever nIndex is below the
// septet count of the bytes.
std::uint8_t SeptetAt(ByteRun bytes, std::uint64_t nIndex)
{
    const std::uint64_t nBit = nIndex * 7;
    const std::size_t nByte = static_cast<std::size_t>(nBit / 8);
    const unsigned nShift = static_cast<unsigned>(nBit % 8);
    unsigned value = bytes[nByte] >> nShift;
    if (nShift > 1 && nByte + 1 < bytes.nSize) {
        value |= static_cast<unsigned>(bytes[nByte + 1]) << (8 - nShift);
    }
    return static_cast<std::uint8_t>(value & 0x7F);
}

}  // namespace

void DecodePackedGsm7(ByteRun bytes, Utf16Writer& out)
{
    // floor(8n / 7) without the product, which a 32-bit size_t may not hold.
    std::uint64_t nSeptets = bytes.nSize + bytes.nSize / 7;
    if (nSeptets > 0 && bytes.nSize % 7 == 0 && SeptetAt(bytes, nSeptets - 1) == 0) {
        --nSeptets;
    }
    Gsm7TextDecoder text(out);
    for (std::uint64_t i = 0; i < nSeptets && !out.Done(); ++i) {
        text.Put(SeptetAt(bytes, i));
    }
}

}  // namespace xcodec
