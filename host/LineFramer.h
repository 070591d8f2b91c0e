// Cuts the byte stream of a modem line into text lines. Pure and incremental:
// Feed() returns the lines that the new bytes complete and keeps the partial
// one for the next call. Not thread-safe: one framer belongs to one reader.
#ifndef HOST_LINEFRAMER_H
#define HOST_LINEFRAMER_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace host {

class LineFramer {
public:
    // A line that grows past this many bytes without an end is cut here and
    // delivered, so a modem that streams garbage cannot make it grow without bound.
    static constexpr std::size_t kMaxLineLength = 4096;

    // Lines end at CR, at LF or at both ("\r\n" from a modem, "\n" from a
    // simulator, "\r" from a modem whose S4 was changed); the blank lines that
    // this produces are skipped, so the same bytes give the same lines however
    // they are split between calls.
    std::vector<std::string> Feed(std::string_view bytes);

    // Drops the partial line (after a port was lost and reopened).
    void Reset();

    // Bytes of the line not yet ended.
    std::size_t PendingSize() const { return m_partial.size(); }

private:
    std::string m_partial;
};

}  // namespace host

#endif
