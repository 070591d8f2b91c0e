#include "CdmaView.h"

#include "NamedNumber.h"
#include "Names.h"
#include "OutputText.h"
#include "TextColumns.h"

namespace netsrvctl {

namespace {
// Every preferred mode has a name: one outside the table is not known.
const char* PrefModeName(int64_t value)
{
    const char* pszName = CdmaPrefModeName(value);
    return pszName != nullptr ? pszName : "unknown";
}

std::string SubnetOf(const CURRNETWORKIDINFO& network)
{
    return FieldText(network.szSubNetID, sizeof(network.szSubNetID));
}
}  // namespace

nlohmann::ordered_json CdmaJson(const CdmaReadings& r)
{
    nlohmann::ordered_json json = nlohmann::ordered_json::object();
    AddReading(&json, "pref_mode", r.prefMode, PrefModeName);
    AddReading(&json, "evdo_revision", r.evdoRevision, EvdoRevisionName);
    AddReading(&json, "nam", r.nam, NamName);
    if (r.prlVersion) {
        json["prl_version"] = *r.prlVersion;
    }
    if (r.network) {
        json["sid"] = r.network->unCurrSID;
        json["nid"] = r.network->unCurrNID;
        if (!SubnetOf(*r.network).empty()) {
            json["subnet_id"] = SubnetOf(*r.network);
        }
    }
    AddReading(&json, "sim_type", r.simType, SimTypeName);
    return json;
}

std::string CdmaText(const CdmaReadings& r, bool bShowMissing)
{
    std::optional<std::string> sid;
    std::optional<std::string> nid;
    std::optional<std::string> subnet;
    if (r.network) {
        sid = std::to_string(r.network->unCurrSID);
        nid = std::to_string(r.network->unCurrNID);
        if (!SubnetOf(*r.network).empty()) {
            subnet = SubnetOf(*r.network);
        }
    }
    return ReadingLine("preferred mode", NamedReading(r.prefMode, PrefModeName), bShowMissing) +
           ReadingLine("EV-DO revision", NamedReading(r.evdoRevision, EvdoRevisionName),
                       bShowMissing) +
           ReadingLine("NAM", NamedReading(r.nam, NamName), bShowMissing) +
           ReadingLine("PRL version", r.prlVersion, bShowMissing) +
           ReadingLine("SID", sid, bShowMissing) + ReadingLine("NID", nid, bShowMissing) +
           ReadingLine("subnet ID", subnet, bShowMissing) +
           ReadingLine("SIM type", NamedReading(r.simType, SimTypeName), bShowMissing);
}

}  // namespace netsrvctl
