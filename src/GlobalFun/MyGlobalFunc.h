// Text helpers of the service: quotes, letter case, 16-bit strings and the
// host's settings and code-page conversion. Reentrant; no locks.
#ifndef GLOBALFUN_MYGLOBALFUNC_H
#define GLOBALFUN_MYGLOBALFUNC_H

#include <cstring>
#include <string>

typedef std::basic_string<unsigned short> QIRA_wstring;

QIRA_wstring ToQira_wchar(const wchar_t* pswzChar);
bool SetSetting(const QIRA_wstring& pszModuleName, const QIRA_wstring& pszItemName,
                const QIRA_wstring& pszValue);
QIRA_wstring MyGetSetting(const QIRA_wstring& pszModuleName, const QIRA_wstring& pszItemName);
QIRA_wstring MyMultiByteToWideChar(const char* pszMultiByte, int iCodePage);
std::string MyWideCharToMultiByte(const unsigned short* pwszWideChar, int iCodePage);
std::string TakeOutDoubleQuotationMarks(const std::string& strSrc);
std::string AddDoubleQuotationMarks(const char* pszSrc);
bool ToLowerString(std::string& strConvert);
bool ToUpperString(std::string& strConvert);
QIRA_wstring MyGetUserDataPath();
bool QIRA_wcscmp(QIRA_wstring s1, QIRA_wstring s2);
// Ignores its arguments and answers true, by design.
bool QIRA_wcscmp_nos(QIRA_wstring s1, QIRA_wstring s2);
bool QIRA_wcsncmp(QIRA_wstring s1, QIRA_wstring s2, unsigned int n);
void QIRA_strcpy(char* dst, const char* src, unsigned int dstLen);

// A record's text field as a string: up to its terminator, or the whole field
// when a caller filled it to the end without one.
template <size_t N>
std::string FieldText(const char (&szField)[N])
{
    return std::string(szField, strnlen(szField, N));
}

#endif
