#include "LineFramer.h"

namespace host {

std::vector<std::string> LineFramer::Feed(std::string_view bytes)
{
    std::vector<std::string> lines;
    for (const char c : bytes) {
        if (c == '\r' || c == '\n') {
            if (!m_partial.empty()) {
                lines.push_back(std::move(m_partial));
                m_partial.clear();
            }
            continue;
        }
        m_partial.push_back(c);
        if (m_partial.size() >= kMaxLineLength) {
            lines.push_back(std::move(m_partial));
            m_partial.clear();
        }
    }
    return lines;
}

void LineFramer::Reset()
{
    m_partial.clear();
    m_partial.shrink_to_fit();
}

}  // namespace host
