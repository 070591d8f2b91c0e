// What `netsrvctl config` and `bands` show: the network configuration
// (acquisition order, band mask, roaming, service domain, LTE band mask) and
// the bands, LTE bands and acquisition orders that the modem offers. Pure.
#ifndef NETSRVCTL_CONFIGVIEW_H
#define NETSRVCTL_CONFIGVIEW_H

#include <nlohmann/json.hpp>
#include <string>

#include "Interface/NetSrvDef.h"
#include "OfferedBands.h"

namespace netsrvctl {

// Keys, in this order: acq_order ("030201"), acq_order_name ("LTE, then
// WCDMA, then GSM"; "automatic" for "00"), band (hexadecimal text), roam,
// roam_name, domain, domain_name, lte_band (hexadecimal text), lte_bands
// (the band numbers). An empty acquisition order and an LTE mask of 0 (a
// modem without LTE settings) are left out, and so is a name for a value
// outside its table.
nlohmann::ordered_json ConfigJson(const NETSRV_DATA::NetConfigurationExType& config);

// "acquisition: 030201 - LTE, then WCDMA, then GSM", "band: 3FFFFFFF -
// All bands" (the masks named from the modem's lists, when it gave them),
// "roaming: 1 - roaming allowed", "domain: 2 - CS and PS", "LTE band: 800C5
// - LTE2100/LTE1800", "LTE bands: 1, 3, 7, 8, 20". What the JSON leaves out
// is "not reported". pOffer null: the lists could not be read, the masks
// are shown alone.
std::string ConfigText(const NETSRV_DATA::NetConfigurationExType& config,
                       const ModemOffer* pOffer);

// {"bands": [{"mask": "80000", "name": "GSM850"}, ...], "lte_bands": [...],
// "acq_orders": ["00", "03", ...]}; a list the modem did not give is left
// out.
nlohmann::ordered_json BandsJson(const ModemOffer& offer);

// One line an entry: "band: 80000 - GSM850", "LTE band: 800C5 - LTE2100
// (1, 3, 7, 8, 20)", "acquisition: 0201 - WCDMA, then GSM".
std::string BandsText(const ModemOffer& offer);

}  // namespace netsrvctl

#endif
