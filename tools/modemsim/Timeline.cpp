#include "Timeline.h"

#include <algorithm>

namespace modemsim {

TimelineClock::TimelineClock(const std::vector<TimelineEvent>& events)
{
    for (std::size_t i = 0; i < events.size(); ++i) {
        m_entries.push_back(Entry{events[i].atMs, events[i].repeatMs, i, false});
    }
}

std::vector<std::size_t> TimelineClock::TakeDue(uint64_t nowMs)
{
    std::vector<std::pair<uint64_t, std::size_t>> due;
    for (Entry& entry : m_entries) {
        if (entry.bDone || entry.dueMs > nowMs) {
            continue;
        }
        due.emplace_back(entry.dueMs, entry.index);
        if (entry.repeatMs == 0) {
            entry.bDone = true;
        } else {
            const uint64_t missed = (nowMs - entry.dueMs) / entry.repeatMs;
            entry.dueMs += (missed + 1) * entry.repeatMs;
        }
    }
    std::sort(due.begin(), due.end());
    std::vector<std::size_t> indices;
    for (const auto& item : due) {
        indices.push_back(item.second);
    }
    return indices;
}

std::optional<uint64_t> TimelineClock::NextDueMs() const
{
    std::optional<uint64_t> next;
    for (const Entry& entry : m_entries) {
        if (!entry.bDone && (!next || entry.dueMs < *next)) {
            next = entry.dueMs;
        }
    }
    return next;
}

}  // namespace modemsim
