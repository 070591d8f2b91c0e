// Small text helpers of the host: hexadecimal parsing and bounded copies.
#include <cstring>

#include "GlobalFunction.h"
#include "HexDigit.h"

// "1F" and "0x1f" both give 31. Digits past the sixteenth shift the oldest
// ones out, so the result is the value modulo 2^64.
uint64_t CGlobalFunction::atox(const char* pszText)
{
    if (pszText == nullptr) {
        return 0;
    }
    if (pszText[0] == '0' && (pszText[1] == 'x' || pszText[1] == 'X')) {
        pszText += 2;
    }
    uint64_t value = 0;
    for (; common_text::HexDigitValue(*pszText) >= 0; ++pszText) {
        value = (value << 4) | static_cast<uint64_t>(common_text::HexDigitValue(*pszText));
    }
    return value;
}

void CGlobalFunction::chrcpy(char* pszDst, const char* pszSrc, size_t nSize)
{
    if (pszDst == nullptr || pszSrc == nullptr || nSize == 0) {
        return;
    }
    size_t i = 0;
    for (; i + 1 < nSize && pszSrc[i] != '\0'; ++i) {
        pszDst[i] = pszSrc[i];
    }
    pszDst[i] = '\0';
}

void CGlobalFunction::wchrcpy(unsigned short* pszDst, const unsigned short* pszSrc, size_t nSize)
{
    if (pszDst == nullptr || pszSrc == nullptr || nSize == 0) {
        return;
    }
    size_t i = 0;
    for (; i + 1 < nSize && pszSrc[i] != 0; ++i) {
        pszDst[i] = pszSrc[i];
    }
    pszDst[i] = 0;
}
