// Code-page conversion between 16-bit text and 8-bit text through iconv.
// Modems and old settings hand us text in Windows code pages (CP936 for GBK
// operator names, CP1252 for Western ones); iconv knows them as "CP<n>".
// Invalid input is replaced unit by unit and never stops the conversion.
#include <errno.h>
#include <iconv.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <string>
#include <vector>

#include "GlobalFunction.h"
#include "Utf8Text.h"

namespace {

const unsigned short kWideReplacement = 0xFFFD;
const char kNarrowReplacement = '?';

std::string IconvName(int nCodePage)
{
    if (nCodePage == CP_ACP || nCodePage == CP_UTF8) {
        return "UTF-8";
    }
    if (nCodePage < 0) {
        return std::string();
    }
    return "CP" + std::to_string(nCodePage);
}

class IconvHandle {
public:
    IconvHandle(const char* pszTo, const char* pszFrom) : m_cd(iconv_open(pszTo, pszFrom)) {}
    ~IconvHandle()
    {
        if (IsOpen()) {
            iconv_close(m_cd);
        }
    }
    IconvHandle(const IconvHandle&) = delete;
    IconvHandle& operator=(const IconvHandle&) = delete;
    bool IsOpen() const { return m_cd != reinterpret_cast<iconv_t>(-1); }
    iconv_t Get() const { return m_cd; }

private:
    iconv_t m_cd;
};

// Runs the whole input through cd. nUnitBytes is the size of one input unit:
// an input unit that cannot be converted is skipped and pfnReplace appends
// its stand-in to the output.
template <typename ReplaceFn>
void RunIconv(iconv_t cd, const char* pInput, size_t nInputBytes, size_t nUnitBytes,
              std::string& strOut, ReplaceFn pfnReplace)
{
    char chunk[1024];
    char* pIn = const_cast<char*>(pInput);  // iconv's signature; it does not write the input
    size_t nInLeft = nInputBytes;
    while (nInLeft > 0) {
        char* pOut = chunk;
        size_t nOutLeft = sizeof(chunk);
        const size_t nResult = iconv(cd, &pIn, &nInLeft, &pOut, &nOutLeft);
        const int nError = errno;
        strOut.append(chunk, sizeof(chunk) - nOutLeft);
        if (nResult != static_cast<size_t>(-1) || nError == E2BIG) {
            continue;
        }
        if (nError != EILSEQ && nError != EINVAL) {
            return;  // not documented for a conversion: keep what we have
        }
        // EILSEQ: a unit that is not valid here or has no counterpart in the
        // target code page; EINVAL: a sequence cut off by the end of the text.
        const size_t nSkip = std::min(nUnitBytes, nInLeft);
        pIn += nSkip;
        nInLeft -= nSkip;
        pfnReplace(strOut);
        iconv(cd, nullptr, nullptr, nullptr, nullptr);  // back to the initial state
    }
    // A stateful encoding may still owe its closing shift sequence.
    for (;;) {
        char* pOut = chunk;
        size_t nOutLeft = sizeof(chunk);
        const size_t nResult = iconv(cd, nullptr, nullptr, &pOut, &nOutLeft);
        const int nError = errno;
        strOut.append(chunk, sizeof(chunk) - nOutLeft);
        if (nResult != static_cast<size_t>(-1) || nError != E2BIG) {
            return;
        }
    }
}

int ClampToInt(size_t n)
{
    return static_cast<int>(std::min(n, static_cast<size_t>(INT_MAX)));
}

}  // namespace

int CGlobalFunction::MultiByteToWideChar(const char* pszText, unsigned short* pszBuffer, int nSize,
                                         int nCodePage)
{
    if (pszText == nullptr) {
        return 0;
    }
    try {
        const std::string strFrom = IconvName(nCodePage);
        if (strFrom.empty()) {
            return 0;
        }
        IconvHandle handle("UTF-16LE", strFrom.c_str());
        if (!handle.IsOpen()) {
            return 0;
        }
        std::string strBytes;
        RunIconv(handle.Get(), pszText, strlen(pszText), 1, strBytes, [](std::string& out) {
            out += static_cast<char>(kWideReplacement & 0xFF);
            out += static_cast<char>(kWideReplacement >> 8);
        });
        const size_t nUnits = strBytes.size() / 2;
        if (pszBuffer == nullptr || nSize <= 0) {
            return ClampToInt(nUnits);
        }
        const size_t nCopy = std::min(nUnits, static_cast<size_t>(nSize));
        for (size_t i = 0; i < nCopy; ++i) {
            pszBuffer[i] = static_cast<unsigned short>(static_cast<unsigned char>(strBytes[2 * i]) |
                                                       (static_cast<unsigned char>(strBytes[2 * i + 1]) << 8));
        }
        return ClampToInt(nCopy);
    } catch (...) {
        return 0;
    }
}

int CGlobalFunction::WideCharToMultiByte(const unsigned short* pszText, char* pszBuffer, int nSize,
                                         int nCodePage)
{
    if (pszText == nullptr) {
        return 0;
    }
    try {
        const std::string strTo = IconvName(nCodePage);
        if (strTo.empty()) {
            return 0;
        }
        IconvHandle handle(strTo.c_str(), "UTF-16LE");
        if (!handle.IsOpen()) {
            return 0;
        }
        const size_t nUnits = common_text::Utf16Length(pszText);
        std::string strInput;
        strInput.reserve(nUnits * 2);
        for (size_t i = 0; i < nUnits; ++i) {
            strInput += static_cast<char>(pszText[i] & 0xFF);
            strInput += static_cast<char>(pszText[i] >> 8);
        }
        std::string strOut;
        RunIconv(handle.Get(), strInput.data(), strInput.size(), 2, strOut,
                 [](std::string& out) { out += kNarrowReplacement; });
        if (pszBuffer == nullptr || nSize <= 0) {
            return ClampToInt(strOut.size());
        }
        const size_t nCopy = std::min(strOut.size(), static_cast<size_t>(nSize));
        memcpy(pszBuffer, strOut.data(), nCopy);
        return ClampToInt(nCopy);
    } catch (...) {
        return 0;
    }
}
