#include "MyGlobalFunc.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <vector>

#include "GlobalFunction.h"

namespace {

// The text of a zero-filled buffer up to its first zero unit.
template <typename Unit>
std::basic_string<Unit> TextUpToZero(const Unit* pBuffer, size_t nUnits)
{
    const Unit* pEnd = std::find(pBuffer, pBuffer + nUnits, Unit(0));
    return std::basic_string<Unit>(pBuffer, pEnd);
}

// The host's two-call protocol: ask for the size with no buffer, then fetch
// into a zeroed buffer one unit larger, so a result always ends in a zero.
template <typename Unit, typename HostCall>
std::basic_string<Unit> FetchFromHost(HostCall hostCall)
{
    const int nNeeded = hostCall(static_cast<Unit*>(nullptr), 0);
    const size_t nUnits = nNeeded > 0 ? static_cast<size_t>(nNeeded) : 0;
    std::vector<Unit> buffer(nUnits + 1, Unit(0));
    hostCall(buffer.data(), static_cast<int>(nUnits));
    return TextUpToZero(buffer.data(), buffer.size());
}

template <typename Transform>
bool TransformAscii(std::string& strConvert, Transform transform)
{
    try {
        for (char& ch : strConvert) {
            const unsigned char byte = static_cast<unsigned char>(ch);
            if (byte < 128) {
                ch = static_cast<char>(transform(byte));
            }
        }
        return true;
    } catch (...) {
        return false;
    }
}

}  // namespace

QIRA_wstring ToQira_wchar(const wchar_t* pswzChar)
{
    if (pswzChar == nullptr) {
        return QIRA_wstring();
    }
    const std::wstring strWide(pswzChar);
    const size_t nLength = strWide.size();
    if (nLength == 0) {
        return QIRA_wstring();
    }
    // Room for a surrogate pair per character and the terminator.
    std::unique_ptr<unsigned short[]> scratch(new (std::nothrow) unsigned short[2 * nLength + 1]());
    if (!scratch) {
        return QIRA_wstring();
    }
    size_t nOut = 0;
    for (const wchar_t ch : strWide) {
        // wchar_t is 32 bits here; values past U+10FFFF and lone surrogates
        // are passed on without checks.
        const uint32_t codePoint = static_cast<uint32_t>(ch);
        if (codePoint > 0xFFFF) {
            scratch[nOut++] = static_cast<unsigned short>((codePoint >> 10) + 0xD7C0);
            scratch[nOut++] = static_cast<unsigned short>((codePoint & 0x3FF) + 0xDC00);
        } else {
            scratch[nOut++] = static_cast<unsigned short>(codePoint);
        }
    }
    return TextUpToZero(scratch.get(), 2 * nLength + 1);
}

bool SetSetting(const QIRA_wstring& pszModuleName, const QIRA_wstring& pszItemName,
                const QIRA_wstring& pszValue)
{
    return CGlobalFunction::SetSetting(pszModuleName.c_str(), pszItemName.c_str(), pszValue.c_str());
}

QIRA_wstring MyGetSetting(const QIRA_wstring& pszModuleName, const QIRA_wstring& pszItemName)
{
    return FetchFromHost<unsigned short>([&](unsigned short* pBuffer, int nSize) {
        return CGlobalFunction::GetSetting(pszModuleName.c_str(), pszItemName.c_str(), pBuffer, nSize);
    });
}

QIRA_wstring MyMultiByteToWideChar(const char* pszMultiByte, int iCodePage)
{
    return FetchFromHost<unsigned short>([&](unsigned short* pBuffer, int nSize) {
        return CGlobalFunction::MultiByteToWideChar(pszMultiByte, pBuffer, nSize, iCodePage);
    });
}

std::string MyWideCharToMultiByte(const unsigned short* pwszWideChar, int iCodePage)
{
    return FetchFromHost<char>([&](char* pBuffer, int nSize) {
        return CGlobalFunction::WideCharToMultiByte(pwszWideChar, pBuffer, nSize, iCodePage);
    });
}

// "\"CHINA MOBILE\"" -> "CHINA MOBILE"; one pair only, and only when the text
// is quoted at both ends. A lone quote character counts as quoted at both
// ends and leaves nothing.
std::string TakeOutDoubleQuotationMarks(const std::string& strSrc)
{
    const size_t nLength = strSrc.size();
    if (nLength > 0 && strSrc[0] == '"' && strSrc[nLength - 1] == '"') {
        return nLength >= 2 ? strSrc.substr(1, nLength - 2) : std::string();
    }
    return strSrc;
}

std::string AddDoubleQuotationMarks(const char* pszSrc)
{
    std::string strResult = "\"";
    if (pszSrc != nullptr) {
        strResult += pszSrc;
    }
    strResult += '"';
    return strResult;
}

// Bytes of 128 and above belong to UTF-8 or GBK operator names and stay as
// they are.
bool ToLowerString(std::string& strConvert)
{
    return TransformAscii(strConvert, [](unsigned char byte) {
        return (byte >= 'A' && byte <= 'Z') ? byte - 'A' + 'a' : byte;
    });
}

bool ToUpperString(std::string& strConvert)
{
    return TransformAscii(strConvert, [](unsigned char byte) {
        return (byte >= 'a' && byte <= 'z') ? byte - 'a' + 'A' : byte;
    });
}

QIRA_wstring MyGetUserDataPath()
{
    const int kPathUnits = 260;
    unsigned short buffer[kPathUnits] = {};
    CGlobalFunction::GetUserDataDirectory(buffer, kPathUnits);
    return TextUpToZero(buffer, kPathUnits);
}

bool QIRA_wcscmp(QIRA_wstring s1, QIRA_wstring s2)
{
    return s1.size() == s2.size() && std::equal(s1.begin(), s1.end(), s2.begin());
}

// Ignores its arguments by design: callers rely on it matching everything.
bool QIRA_wcscmp_nos(QIRA_wstring /*s1*/, QIRA_wstring /*s2*/)
{
    return true;
}

bool QIRA_wcsncmp(QIRA_wstring s1, QIRA_wstring s2, unsigned int n)
{
    if (s1.size() < n && s2.size() < n) {
        return QIRA_wcscmp(s1, s2);
    }
    if (n > std::min(s1.size(), s2.size())) {
        return false;
    }
    return std::equal(s1.begin(), s1.begin() + n, s2.begin());
}

void QIRA_strcpy(char* dst, const char* src, unsigned int dstLen)
{
    if (dst == nullptr || src == nullptr || dstLen == 0) {
        return;
    }
    memset(dst, 0, dstLen);
    const size_t nCopy = std::min(static_cast<size_t>(dstLen) - 1, strlen(src));
    memcpy(dst, src, nCopy);
}
