#include "Utf8Text.h"

namespace common_text {

int32_t DecodeUtf8(std::string_view text, size_t& nUsed)
{
    nUsed = 1;
    const auto byteAt = [&text](size_t i) { return static_cast<uint8_t>(text[i]); };
    const uint8_t lead = byteAt(0);
    if (lead < 0x80) {
        return lead;
    }
    size_t nLength = 0;
    uint32_t codePoint = 0;
    uint32_t minimum = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        nLength = 2;
        codePoint = lead & 0x1Fu;
        minimum = 0x80;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        nLength = 3;
        codePoint = lead & 0x0Fu;
        minimum = 0x800;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        nLength = 4;
        codePoint = lead & 0x07u;
        minimum = 0x10000;
    } else {
        return -1;  // continuation byte, overlong lead C0/C1, or F5..FF
    }
    if (text.size() < nLength) {
        return -1;
    }
    for (size_t i = 1; i < nLength; ++i) {
        const uint8_t next = byteAt(i);
        if ((next & 0xC0u) != 0x80u) {
            return -1;
        }
        codePoint = (codePoint << 6) | (next & 0x3Fu);
    }
    if (codePoint < minimum || codePoint > 0x10FFFF ||
        (codePoint >= 0xD800 && codePoint <= 0xDFFF)) {
        return -1;
    }
    nUsed = nLength;
    return static_cast<int32_t>(codePoint);
}

void AppendUtf8(std::string& out, uint32_t codePoint)
{
    if (codePoint < 0x80) {
        out += static_cast<char>(codePoint);
    } else if (codePoint < 0x800) {
        out += static_cast<char>(0xC0 | (codePoint >> 6));
        out += static_cast<char>(0x80 | (codePoint & 0x3F));
    } else if (codePoint < 0x10000) {
        out += static_cast<char>(0xE0 | (codePoint >> 12));
        out += static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (codePoint & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (codePoint >> 18));
        out += static_cast<char>(0x80 | ((codePoint >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (codePoint & 0x3F));
    }
}

std::vector<unsigned short> Utf8ToUtf16(std::string_view text)
{
    std::vector<unsigned short> units;
    units.reserve(text.size());
    while (!text.empty()) {
        size_t nUsed = 0;
        const int32_t decoded = DecodeUtf8(text, nUsed);
        const uint32_t codePoint = decoded < 0 ? kReplacementChar : static_cast<uint32_t>(decoded);
        if (codePoint >= 0x10000) {
            units.push_back(static_cast<unsigned short>(0xD800 + ((codePoint - 0x10000) >> 10)));
            units.push_back(static_cast<unsigned short>(0xDC00 + (codePoint & 0x3FF)));
        } else {
            units.push_back(static_cast<unsigned short>(codePoint));
        }
        text.remove_prefix(nUsed);
    }
    return units;
}

size_t Utf16Length(const unsigned short* pszText)
{
    size_t n = 0;
    if (pszText != nullptr) {
        while (pszText[n] != 0) {
            ++n;
        }
    }
    return n;
}

}  // namespace common_text
