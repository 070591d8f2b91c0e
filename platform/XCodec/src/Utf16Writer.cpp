#include "Utf16Writer.h"

#include <climits>
#include <limits>

namespace xcodec {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsScalarValue(char32_t character)
{
    return character <= 0x10FFFF && (character < 0xD800 || character > 0xDFFF);
}

}  // namespace

Utf16Writer::Utf16Writer(unsigned short* pOut, int nOutLength)
    : m_pOut(pOut),
      m_nRoom(pOut == nullptr      ? std::numeric_limits<std::size_t>::max()
              : nOutLength > 0     ? static_cast<std::size_t>(nOutLength) - 1
                                   : 0),
      m_bTerminated(pOut != nullptr && nOutLength > 0)
{
}

void Utf16Writer::Put(char32_t character)
{
    if (Done()) {
        return;
    }
    if (character == 0) {
        m_bEnded = true;
        return;
    }
    if (!IsScalarValue(character)) {
        character = kReplacement;
    }
    const std::size_t nNeeded = character > 0xFFFF ? 2 : 1;
    if (m_nRoom - m_nUnits < nNeeded) {
        m_bFull = true;
        return;
    }
    if (nNeeded == 1) {
        Append(static_cast<char16_t>(character));
    } else {
        const char32_t offset = character - 0x10000;
        Append(static_cast<char16_t>(0xD800 + (offset >> 10)));
        Append(static_cast<char16_t>(0xDC00 + (offset & 0x3FF)));
    }
}

void Utf16Writer::Append(char16_t unit)
{
    if (m_pOut != nullptr) {
        m_pOut[m_nUnits] = unit;
    }
    ++m_nUnits;
}

int Utf16Writer::Finish()
{
    if (m_bTerminated) {
        m_pOut[m_nUnits] = 0;
    }
    return m_nUnits > static_cast<std::size_t>(INT_MAX) ? INT_MAX : static_cast<int>(m_nUnits);
}

}  // namespace xcodec
