#include "HexText.h"

namespace xcodec {

namespace {

// The value of a hexadecimal digit, or -1.
int DigitValue(std::uint8_t c)
{
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    return -1;
}

}  // namespace

std::optional<std::vector<std::uint8_t>> BytesOfHexText(ByteRun text)
{
    if (text.Empty() || text.nSize % 2 != 0) {
        return std::nullopt;
    }
    std::vector<std::uint8_t> bytes;
    bytes.reserve(text.nSize / 2);
    for (std::size_t i = 0; i < text.nSize; i += 2) {
        const int high = DigitValue(text[i]);
        const int low = DigitValue(text[i + 1]);
        if (high < 0 || low < 0) {
            return std::nullopt;
        }
        bytes.push_back(static_cast<std::uint8_t>(high * 16 + low));
    }
    return bytes;
}

}  // namespace xcodec
