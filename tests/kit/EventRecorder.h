// A client object that keeps a copy of every event's payload, decoded by the
// event's documented record (payloads live only during the call). Thread-safe:
// events arrive on the processor's and the service's threads.
#ifndef TESTKIT_EVENTRECORDER_H
#define TESTKIT_EVENTRECORDER_H

#include <chrono>
#include <mutex>
#include <vector>

#include "Interface/IUniCommEvent.h"
#include "Interface/NetSrvDef.h"
#include "WaitUntil.h"

namespace testkit {

struct RecordedEvent {
    int event = -1;
    unsigned long number = 0;             // events whose payload is an unsigned long
    NETSRV_DATA::RSSIType rssi;           // EVENT_SRV_RSSI
    NETSRV_DATA::AntennaLevel antenna;    // EVENT_SRV_ANTENNA_LEVEL
    NETSRV_DATA::SPlmnList plmnList;      // EVENT_NETSRV_PLMN_ALL
};

class EventRecorder : public IUniCommEvent {
public:
    bool OnUniCommEvent(DWORD dwEvent, void* pData) override
    {
        using namespace NETSRV_DATA;
        RecordedEvent recorded;
        recorded.event = static_cast<int>(dwEvent);
        switch (recorded.event) {
        case EVENT_SRV_RSSI:
            recorded.rssi = *static_cast<const RSSIType*>(pData);
            break;
        case EVENT_SRV_ANTENNA_LEVEL:
            recorded.antenna = *static_cast<const AntennaLevel*>(pData);
            break;
        case EVENT_NETSRV_PLMN_ALL:
            recorded.plmnList = *static_cast<const SPlmnList*>(pData);
            break;
        case EVENT_PNN_FILEREFRESH:
            break;   // the payload carries no content
        default:
            recorded.number = *static_cast<const unsigned long*>(pData);
            break;
        }
        std::lock_guard<std::mutex> lock(m_mutex);
        m_events.push_back(recorded);
        return true;
    }

    std::vector<RecordedEvent> Events() const
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_events;
    }

    std::vector<int> Ids() const
    {
        std::vector<int> ids;
        for (const RecordedEvent& e : Events()) {
            ids.push_back(e.event);
        }
        return ids;
    }

    bool WaitForCount(std::size_t count, std::chrono::milliseconds limit) const
    {
        return WaitUntil([&] { return Events().size() >= count; }, limit);
    }

    void Clear()
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_events.clear();
    }

private:
    mutable std::mutex m_mutex;
    std::vector<RecordedEvent> m_events;
};

}  // namespace testkit

#endif
