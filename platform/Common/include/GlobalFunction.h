// Services of the host's common library: interface lookup through the plugin
// container, a settings store in the user's data directory, code-page
// conversion and small text helpers. All functions are thread-safe.
#ifndef COMMON_GLOBALFUNCTION_H
#define COMMON_GLOBALFUNCTION_H

#include <cstddef>
#include <cstdint>

#include "Interface/IPluginContainer.h"

// Code pages that callers name; any other number is handed to iconv as "CP<n>".
enum {
    CP_ACP = 0,         // the system's code page: UTF-8 here
    CP_UTF8 = 65001
};

class CGlobalFunction {
public:
    // The interface registered under (id, number), or null. Never throws.
    template <typename T>
    static T GetPluginInterface(const char* pszId, int nNumber, IPluginContainer* pContainer)
    {
        if (pszId == nullptr || pContainer == nullptr) {
            return nullptr;
        }
        void* pResult = nullptr;
        try {
            pContainer->QueryPluginInterface(pszId, nNumber, &pResult);
        } catch (...) {
            return nullptr;
        }
        return static_cast<T>(pResult);
    }

    // Settings: values are kept per module and item in a file under the user-data
    // directory. SetSetting returns false when the file cannot be written.
    static bool SetSetting(const unsigned short* pszModule, const unsigned short* pszItem,
                           const unsigned short* pszValue);
    // The same two-call protocol as the conversions below: copies at most nSize
    // units of the value into pszBuffer, and a terminator when room is left;
    // with a null buffer or nSize 0 writes nothing. Returns the value's length
    // in units (0 for an unknown item).
    static int GetSetting(const unsigned short* pszModule, const unsigned short* pszItem,
                          unsigned short* pszBuffer, int nSize);

    // $XDG_DATA_HOME/netsrv, else $HOME/.local/share/netsrv, as UTF-16 in a
    // buffer of nSize units (terminated, cut to fit). Returns false when no
    // directory can be named or nSize is 0.
    static bool GetUserDataDirectory(unsigned short* pszBuffer, int nSize);

    // The two-call protocol of the conversions: with a null buffer or a size of 0
    // they return the number of units the whole converted text needs (no
    // terminator); otherwise they write at most nSize units (no terminator) and
    // return how many they wrote. Text that is invalid in the code page is
    // replaced unit by unit; an unknown code page converts nothing and gives 0.
    static int MultiByteToWideChar(const char* pszText, unsigned short* pszBuffer, int nSize,
                                   int nCodePage);
    static int WideCharToMultiByte(const unsigned short* pszText, char* pszBuffer, int nSize,
                                   int nCodePage);

    // The value of a hexadecimal text ("1F", "0x1f"); stops at the first other
    // character; 0 for a null pointer.
    static uint64_t atox(const char* pszText);
    // Bounded copies: copy at most nSize - 1 units of the source and always
    // terminate; nothing happens with a null pointer or a size of 0.
    static void chrcpy(char* pszDst, const char* pszSrc, size_t nSize);
    static void wchrcpy(unsigned short* pszDst, const unsigned short* pszSrc, size_t nSize);
};

// Prints value in the given radix (2 to 36) into buffer, lower-case digits, no
// sign, no padding, as the C runtime function of that name does; returns buffer.
// The buffer must hold 65 characters.
extern "C" char* _ui64toa(uint64_t value, char* buffer, int radix);

#endif
