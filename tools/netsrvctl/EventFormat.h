// Turns service events into text and JSON for the monitor. Pure: the payload
// is read only during the call, as the service requires.
#ifndef NETSRVCTL_EVENTFORMAT_H
#define NETSRVCTL_EVENTFORMAT_H

#include <nlohmann/json.hpp>
#include <string>

namespace netsrvctl {

// The identifier's name, e.g. "EVENT_SRV_RSSI", or "EVENT_<n>" for an unknown one.
std::string EventName(int iEvent);

// The payload's fields as the event's documented record (empty object when the
// event carries none, or the payload is null).
nlohmann::json EventPayload(int iEvent, const void* pData);

// "name key=value key=value" on one line.
std::string EventLine(int iEvent, const void* pData);

}  // namespace netsrvctl

#endif
