// Cuts the bytes the host writes into command lines. A modem ends a command
// line at CR; LF is taken as an end too, so that "AT\r\n" is one line, and
// blank lines are skipped. A line longer than the modem's command buffer is
// cut and flagged, and the rest of it up to its end is dropped, so input
// never grows without bound. Pure and incremental; one owner at a time.
#ifndef MODEMSIM_INPUTFRAMER_H
#define MODEMSIM_INPUTFRAMER_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace modemsim {

constexpr std::size_t kMaxCommandLine = 1024;

struct InputLine {
    std::string text;
    bool bOverlong = false;
};

class InputFramer {
public:
    std::vector<InputLine> Feed(std::string_view bytes);
    void Reset();

private:
    std::string m_partial;
    bool m_bOverlong = false;
};

}  // namespace modemsim

#endif
