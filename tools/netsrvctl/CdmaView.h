// What `netsrvctl cdma` shows: a CDMA modem's preferred mode, EV-DO
// revision, NAM, PRL version, current SID/NID/subnet and card type, each
// where its read succeeded. Pure.
#ifndef NETSRVCTL_CDMAVIEW_H
#define NETSRVCTL_CDMAVIEW_H

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "Interface/NetSrvDef.h"

namespace netsrvctl {

struct CdmaReadings {
    std::optional<int64_t> prefMode;       // CdmaPrefMode
    std::optional<int64_t> evdoRevision;   // EvdoRevision
    std::optional<int64_t> nam;            // NAMMode
    std::optional<std::string> prlVersion;
    std::optional<CURRNETWORKIDINFO> network;
    std::optional<int64_t> simType;        // KTFSimType
};

// Keys, in this order, each only with its reading: pref_mode,
// pref_mode_name ("unknown" for a mode outside the three), evdo_revision,
// evdo_revision_name, nam, nam_name, prl_version, sid, nid, subnet_id (left
// out when the modem gives none), sim_type, sim_type_name. Other names are
// left out for a number outside their table.
nlohmann::ordered_json CdmaJson(const CdmaReadings& readings);

// One line per value, "preferred mode: 8 - hybrid CDMA 1X / EV-DO"; what was
// not read is "not reported", or with bShowMissing false is left out.
std::string CdmaText(const CdmaReadings& readings, bool bShowMissing = true);

}  // namespace netsrvctl

#endif
