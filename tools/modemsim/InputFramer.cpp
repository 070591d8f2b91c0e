#include "InputFramer.h"

namespace modemsim {

std::vector<InputLine> InputFramer::Feed(std::string_view bytes)
{
    std::vector<InputLine> lines;
    for (char ch : bytes) {
        if (ch == '\r' || ch == '\n') {
            if (!m_partial.empty() || m_bOverlong) {
                lines.push_back(InputLine{std::move(m_partial), m_bOverlong});
            }
            m_partial.clear();
            m_bOverlong = false;
        } else if (m_partial.size() < kMaxCommandLine) {
            m_partial += ch;
        } else {
            m_bOverlong = true;
        }
    }
    return lines;
}

void InputFramer::Reset()
{
    m_partial.clear();
    m_bOverlong = false;
}

}  // namespace modemsim
