// The C runtime's unsigned 64-bit to text conversion. AT parameters print
// through it: numbers in radix 10 and hexadecimal fields (band masks such as
// 3fffffff) in radix 16, lower case.
#include "GlobalFunction.h"

// An unsupported radix gives an empty text, as a null buffer gives null.
extern "C" char* _ui64toa(uint64_t value, char* buffer, int radix)
{
    if (buffer == nullptr) {
        return nullptr;
    }
    if (radix < 2 || radix > 36) {
        buffer[0] = '\0';
        return buffer;
    }
    static const char kDigits[] = "0123456789abcdefghijklmnopqrstuvwxyz";
    char reversed[64];
    size_t nDigits = 0;
    const uint64_t base = static_cast<uint64_t>(radix);
    do {
        reversed[nDigits++] = kDigits[value % base];
        value /= base;
    } while (value != 0);
    for (size_t i = 0; i < nDigits; ++i) {
        buffer[i] = reversed[nDigits - 1 - i];
    }
    buffer[nDigits] = '\0';
    return buffer;
}
