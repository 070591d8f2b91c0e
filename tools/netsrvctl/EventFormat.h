// Turns service events into readable text and JSON for the monitor. Pure: the
// payload is read only during the call, as the service requires.
#ifndef NETSRVCTL_EVENTFORMAT_H
#define NETSRVCTL_EVENTFORMAT_H

#include <nlohmann/json.hpp>
#include <string>

namespace netsrvctl {

// The event's name in snake case, e.g. "signal", "system_mode", or
// "event_<n>" for an identifier the service does not define.
std::string EventKey(int iEvent);

// {"event": key, "event_id": n, ...the payload's fields}, n the service's
// identifier of the event (not a sequence number); the fields use the keys
// of `status` and `signal` (signal_percent, service_status, domain, sub_mode,
// antenna_level ... with their _name). A null payload, or one that the event
// does not define, adds no fields.
nlohmann::ordered_json EventJson(int iEvent, const void* pData);

// One line: "signal 64%", "mode HSPA+ (WCDMA)", "service status: normal
// service", "operator list: 3 operators: 46000 CHINA MOBILE (current, LTE); ...".
std::string EventText(int iEvent, const void* pData);

}  // namespace netsrvctl

#endif
