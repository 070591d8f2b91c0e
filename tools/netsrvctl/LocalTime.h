// The local time of a moment as the monitor prints it: "14:03:07" at the
// start of a text line, "2026-11-24T14:03:07.120+01:00" (milliseconds and
// the offset from UTC) in JSON. Uses the process's time zone (TZ).
#ifndef NETSRVCTL_LOCALTIME_H
#define NETSRVCTL_LOCALTIME_H

#include <chrono>
#include <string>

namespace netsrvctl {

struct LocalTime {
    std::string clock;   // "14:03:07"
    std::string iso;     // "2026-11-24T14:03:07.120+01:00"
};

LocalTime LocalTimeOf(std::chrono::system_clock::time_point moment);

}  // namespace netsrvctl

#endif
