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

template <typename T, typename F>
std::optional<std::string> Shown(const std::optional<T>& reading, F format)
{
    return reading ? std::optional<std::string>(format(*reading)) : std::nullopt;
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
    auto number = [](unsigned value) { return std::to_string(value); };
    std::optional<std::string> subnet;
    if (r.network && !SubnetOf(*r.network).empty()) {
        subnet = SubnetOf(*r.network);
    }
    return ReadingLine("preferred mode", NamedReading(r.prefMode, PrefModeName), bShowMissing) +
           ReadingLine("EV-DO revision", NamedReading(r.evdoRevision, EvdoRevisionName),
                       bShowMissing) +
           ReadingLine("NAM", NamedReading(r.nam, NamName), bShowMissing) +
           ReadingLine("PRL version", r.prlVersion, bShowMissing) +
           ReadingLine("SID", Shown(r.network,
                                    [&](const CURRNETWORKIDINFO& n) { return number(n.unCurrSID); }),
                       bShowMissing) +
           ReadingLine("NID", Shown(r.network,
                                    [&](const CURRNETWORKIDINFO& n) { return number(n.unCurrNID); }),
                       bShowMissing) +
           ReadingLine("subnet ID", subnet, bShowMissing) +
           ReadingLine("SIM type", NamedReading(r.simType, SimTypeName), bShowMissing);
}

}  // namespace netsrvctl
