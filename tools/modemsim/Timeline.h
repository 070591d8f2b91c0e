// When the timeline's events fall due. Times are milliseconds since the
// simulator started; an event with a repeat falls due again every repeat
// after its first time (late wake-ups fire it once, not once per lost
// period). Pure: the caller brings the clock. One owner at a time.
#ifndef MODEMSIM_TIMELINE_H
#define MODEMSIM_TIMELINE_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "ModemProfile.h"

namespace modemsim {

class TimelineClock {
public:
    TimelineClock() = default;
    explicit TimelineClock(const std::vector<TimelineEvent>& events);

    // Indices of the events due at nowMs, earliest first, ties in profile order.
    std::vector<std::size_t> TakeDue(uint64_t nowMs);
    // When the next event falls due, or nothing when none is left.
    std::optional<uint64_t> NextDueMs() const;

private:
    struct Entry {
        uint64_t dueMs;
        uint32_t repeatMs;
        std::size_t index;
        bool bDone;
    };
    std::vector<Entry> m_entries;
};

}  // namespace modemsim

#endif
