// What `netsrvctl hspa` shows: the HSDPA and HSUPA switches. Pure.
#ifndef NETSRVCTL_HSPAVIEW_H
#define NETSRVCTL_HSPAVIEW_H

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace netsrvctl {

// HSPA_STAT values; empty where the read failed.
struct HspaReadings {
    std::optional<int64_t> hsdpa;
    std::optional<int64_t> hsupa;
};

// Keys hsdpa, hsdpa_name, hsupa, hsupa_name ("enabled", "disabled"); a
// switch not read is left out, a name for a number outside the two too.
nlohmann::ordered_json HspaJson(const HspaReadings& readings);

// "HSDPA: 1 - enabled", "HSUPA: 0 - disabled"; a switch not read is "not
// reported", or with bShowMissing false is left out.
std::string HspaText(const HspaReadings& readings, bool bShowMissing = true);

}  // namespace netsrvctl

#endif
