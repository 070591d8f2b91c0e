#include "LocalTime.h"

#include <time.h>

#include <cstdio>
#include <cstdlib>

namespace netsrvctl {

LocalTime LocalTimeOf(std::chrono::system_clock::time_point moment)
{
    using std::chrono::duration_cast;
    using std::chrono::milliseconds;
    using std::chrono::seconds;
    // Whole seconds rounded down, also before 1970, so that the milliseconds
    // are never negative.
    auto wholeSeconds = duration_cast<seconds>(moment.time_since_epoch());
    if (wholeSeconds > moment.time_since_epoch()) {
        wholeSeconds -= seconds(1);
    }
    const long long millis =
        duration_cast<milliseconds>(moment.time_since_epoch() - wholeSeconds).count();
    const time_t when = static_cast<time_t>(wholeSeconds.count());
    struct tm local = {};
    localtime_r(&when, &local);

    char clock[40];
    std::snprintf(clock, sizeof(clock), "%02d:%02d:%02d", local.tm_hour, local.tm_min,
                  local.tm_sec);
    // tm_gmtoff is the zone's offset east of UTC, daylight saving included.
    const long offsetMinutes = local.tm_gmtoff / 60;
    const long absMinutes = std::labs(offsetMinutes);
    char iso[160];
    std::snprintf(iso, sizeof(iso), "%04d-%02d-%02dT%s.%03lld%c%02ld:%02ld",
                  local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, clock, millis,
                  offsetMinutes < 0 ? '-' : '+', absMinutes / 60, absMinutes % 60);
    return {clock, iso};
}

}  // namespace netsrvctl
