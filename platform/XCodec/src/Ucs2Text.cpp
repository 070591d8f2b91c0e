#include "Ucs2Text.h"

namespace xcodec {

namespace {

bool IsHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

}  // namespace

void DecodeUcs2(ByteRun bytes, Utf16Writer& out)
{
    const std::size_t nUnits = bytes.nSize / 2;
    const auto unitAt = [&bytes](std::size_t nIndex) {
        return static_cast<char32_t>(bytes[2 * nIndex] << 8 | bytes[2 * nIndex + 1]);
    };
    for (std::size_t i = 0; i < nUnits && !out.Done(); ++i) {
        const char32_t unit = unitAt(i);
        if (IsHighSurrogate(unit) && i + 1 < nUnits && IsLowSurrogate(unitAt(i + 1))) {
            out.Put(0x10000 + ((unit - 0xD800) << 10) + (unitAt(i + 1) - 0xDC00));
            ++i;
        } else {
            out.Put(unit);  // a lone surrogate is replaced by the writer
        }
    }
}

}  // namespace xcodec
