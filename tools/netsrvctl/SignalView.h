// What `netsrvctl signal` shows: the readings that the modem gave, each
// only where its query succeeded, as text lines or as one JSON object. Pure.
#ifndef NETSRVCTL_SIGNALVIEW_H
#define NETSRVCTL_SIGNALVIEW_H

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "CsqStep.h"
#include "Interface/NetSrvDef.h"

namespace netsrvctl {

// One reading per query of the service; empty where the query failed.
struct SignalReadings {
    std::optional<int> percent;                    // signal bar, SRVGetCurRSSI
    std::optional<CsqStep> csq;                    // "+CSQ" rssi step and ber, read by the tool
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

// Keys, in this order, each present only with its reading: signal_percent,
// rssi, rssi_dbm, ber, rscp, ecio, rsrp, rsrq, sinr, pci, antennas,
// antenna_level, evdo_percent. rssi_dbm and ber are left out when "+CSQ"
// does not know them (99).
nlohmann::ordered_json SignalJson(const SignalReadings& readings);

// One "label: value" line per reading, "not reported" where there is none;
// the rssi with its dBm ("22 (-69 dBm)").
std::string SignalText(const SignalReadings& readings);

}  // namespace netsrvctl

#endif
