// What `netsrvctl signal` shows: the readings that the modem gave, each
// only where its query succeeded, as text lines or as one JSON object. Pure.
#ifndef NETSRVCTL_SIGNALVIEW_H
#define NETSRVCTL_SIGNALVIEW_H

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "Interface/NetSrvDef.h"

namespace netsrvctl {

// One reading per query of the service; empty where the query failed.
struct SignalReadings {
    std::optional<int> percent;                    // signal bar, SRVGetCurRSSI
    std::optional<NETSRV_DATA::RowRSSI> csq;       // "+CSQ" rssi and ber, SRVGetRowRSSI
    std::optional<NETSRV_DATA::Signal> quality;    // RSCP, Ec/Io, SRVGetSignalQuality
    std::optional<LteSignal> lte;                  // RSRP, RSRQ, SRVGetLteSignalQuality
    std::optional<LteScInfo> lteCell;              // SINR, cell id, antennas, SRVGetLteScInfo
    std::optional<int> antennaLevel;               // SRVGetAntennaLevel
    std::optional<int> evdoPercent;                // SRVGetHdrRssiInfo
};

// A percentage as a ten-cell bar and its number: "[######----] 64%". The bar
// rounds to the nearest cell and is full from 95; a value beyond 100 (the
// service does not clamp every formula) fills it and is shown as it is.
std::string SignalBar(int percent);

// Keys, each present only with its reading: signal_percent, rssi, ber, rscp,
// ecio, rsrp, rsrq, sinr, pci, antennas, antenna_level, evdo_percent.
nlohmann::ordered_json SignalJson(const SignalReadings& readings);

// One "label: value" line per reading, "not reported" where there is none.
std::string SignalText(const SignalReadings& readings);

}  // namespace netsrvctl

#endif
