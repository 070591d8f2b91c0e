#include "EventFormat.h"

#include <algorithm>
#include <cstring>

#include "Interface/NetSrvDef.h"

namespace netsrvctl {

namespace {
using namespace NETSRV_DATA;

const char* const kEventNames[] = {
    "EVENT_NETSRV_PLMN_ALL",   "EVENT_SRV_RSSI",          "EVENT_SRV_PLMN_ID",
    "EVENT_SRV_ROAM_STATUS",   "EVENT_NET_SERVER_STATUS", "EVENT_SRV_DOMAIN",
    "EVENT_SRV_SIM_STATE",     "EVENT_SRV_SYSTEM_MODE",   "EVENT_SRV_MS_AVAILABLE",
    "EVENT_SRV_MS_UNAVAILABLE", "EVENT_SIM_NOT_INSERTED", "EVENT_SRV_ANTENNA_LEVEL",
    "EVENT_PNN_FILEREFRESH",   "EVENT_SIM_REFRESH",
};

// A fixed-size text field, up to its terminator or its end.
std::string FieldText(const char* pszField, size_t nSize)
{
    return std::string(pszField, strnlen(pszField, nSize));
}

nlohmann::json PlmnListJson(const SPlmnList& list)
{
    nlohmann::json entries = nlohmann::json::array();
    const size_t count = std::min<size_t>(list.btPlmnNumber, PLMN_LIST_MAX);
    for (size_t i = 0; i < count; ++i) {
        const SPlmnInfo& info = list.stPlmn[i];
        entries.push_back({{"plmn", FieldText(info.szPlmnID, sizeof(info.szPlmnID))},
                           {"rat", info.btRat},
                           {"status", info.btPlmnForbidden},
                           {"short_name", FieldText(info.szShortName, sizeof(info.szShortName))},
                           {"long_name", FieldText(info.szLongName, sizeof(info.szLongName))}});
    }
    return {{"count", list.btPlmnNumber}, {"operators", entries}};
}
}  // namespace

std::string EventName(int iEvent)
{
    const int known = static_cast<int>(sizeof(kEventNames) / sizeof(kEventNames[0]));
    if (iEvent >= 0 && iEvent < known) {
        return kEventNames[iEvent];
    }
    return "EVENT_" + std::to_string(iEvent);
}

nlohmann::json EventPayload(int iEvent, const void* pData)
{
    if (pData == nullptr) {
        return nlohmann::json::object();
    }
    switch (iEvent) {
    case EVENT_NETSRV_PLMN_ALL:
        return PlmnListJson(*static_cast<const SPlmnList*>(pData));
    case EVENT_SRV_RSSI: {
        const RSSIType* pRssi = static_cast<const RSSIType*>(pData);
        return {{"rssi", pRssi->nRSSI}, {"percent", pRssi->btRSSIPercent}};
    }
    case EVENT_NET_SERVER_STATUS:
        return {{"status", *static_cast<const unsigned long*>(pData)}};
    case EVENT_SRV_DOMAIN:
        return {{"domain", *static_cast<const unsigned long*>(pData)}};
    case EVENT_SRV_SYSTEM_MODE:
        return {{"submode", *static_cast<const unsigned long*>(pData)}};
    case EVENT_SRV_ANTENNA_LEVEL:
        return {{"level", static_cast<const AntennaLevel*>(pData)->wLevel}};
    case EVENT_SIM_REFRESH:
        return {{"filetype", *static_cast<const unsigned long*>(pData)}};
    default:
        // The other events carry no defined content.
        return nlohmann::json::object();
    }
}

std::string EventLine(int iEvent, const void* pData)
{
    std::string line = EventName(iEvent);
    const nlohmann::json payload = EventPayload(iEvent, pData);
    for (auto it = payload.begin(); it != payload.end(); ++it) {
        line += " " + it.key() + "=" + (it->is_string() ? it->get<std::string>() : it->dump());
    }
    return line;
}

}  // namespace netsrvctl
