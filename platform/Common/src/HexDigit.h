// The value of one hexadecimal digit, shared by the common library's parsers.
#ifndef COMMON_HEXDIGIT_H
#define COMMON_HEXDIGIT_H

namespace common_text {

// 0-15 for '0'-'9', 'a'-'f', 'A'-'F'; -1 for any other character.
inline int HexDigitValue(char ch)
{
    if (ch >= '0' && ch <= '9') {
        return ch - '0';
    }
    if (ch >= 'a' && ch <= 'f') {
        return ch - 'a' + 10;
    }
    if (ch >= 'A' && ch <= 'F') {
        return ch - 'A' + 10;
    }
    return -1;
}

}  // namespace common_text

#endif
