// The bounded output that every text decoder writes through.
//
// With no buffer it only counts, so that a caller can ask for the size first.
// With one it keeps a unit for the terminator and, once a character does not
// fit, takes no more: what was written is always a whole prefix of the text,
// and a character outside the basic plane (a surrogate pair) goes in whole or
// not at all. A NUL character ends the text, so that the count a caller gets
// back always matches the terminated text it finds in the buffer.
#ifndef XCODEC_UTF16WRITER_H
#define XCODEC_UTF16WRITER_H

#include <cstddef>

namespace xcodec {

class Utf16Writer {
public:
    // pOut null: count only. nOutLength 0 or less with a buffer: write nothing.
    Utf16Writer(unsigned short* pOut, int nOutLength);

    // Appends one character. What is not a Unicode scalar value (a lone
    // surrogate, a value past U+10FFFF) is written as U+FFFD.
    void Put(char32_t character);

    // True when nothing more will be taken: the text ended or the buffer is full.
    bool Done() const { return m_bEnded || m_bFull; }

    // Terminates the buffer (when there is room for it) and returns the number
    // of units of the text: written, or, when only counting, needed.
    int Finish();

private:
    void Append(char16_t unit);

    unsigned short* m_pOut;
    std::size_t m_nRoom;  // units that may go before the terminator
    bool m_bTerminated;   // a buffer with room for the terminator at least
    std::size_t m_nUnits = 0;
    bool m_bFull = false;
    bool m_bEnded = false;
};

}  // namespace xcodec

#endif
