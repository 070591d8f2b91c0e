#include "EventFormat.h"

#include <algorithm>

#include "Interface/NetSrvDef.h"
#include "NamedNumber.h"
#include "Names.h"
#include "OutputText.h"

namespace netsrvctl {

namespace {
using namespace NETSRV_DATA;

struct EventRow {
    int id;
    const char* key;
    const char* text;   // the line of an event without content, and the label of the others
};

const EventRow kEvents[] = {
    {EVENT_NETSRV_PLMN_ALL, "operator_list", "operator list"},
    {EVENT_SRV_RSSI, "signal", "signal"},
    {EVENT_SRV_PLMN_ID, "plmn_id", "PLMN ID changed"},
    {EVENT_SRV_ROAM_STATUS, "roam_status", "roaming status changed"},
    {EVENT_NET_SERVER_STATUS, "service_status", "service status"},
    {EVENT_SRV_DOMAIN, "domain", "domain"},
    {EVENT_SRV_SIM_STATE, "sim_state", "SIM state changed"},
    {EVENT_SRV_SYSTEM_MODE, "system_mode", "mode"},
    {EVENT_SRV_MS_AVAILABLE, "modem_available", "modem available"},
    {EVENT_SRV_MS_UNAVAILABLE, "modem_unavailable", "modem unavailable"},
    {EVENT_SIM_NOT_INSERTED, "sim_not_inserted", "SIM not inserted"},
    {EVENT_SRV_ANTENNA_LEVEL, "antenna_level", "antenna level"},
    {EVENT_PNN_FILEREFRESH, "pnn_file_refresh", "PNN file refreshed"},
    {EVENT_SIM_REFRESH, "sim_refresh", "SIM refresh"},
};

const EventRow* FindEvent(int iEvent)
{
    for (const EventRow& row : kEvents) {
        if (row.id == iEvent) {
            return &row;
        }
    }
    return nullptr;
}

// A number with its name, or the number alone when it has none.
std::string NameOrNumber(const char* pszName, unsigned long value)
{
    return NameOr(pszName, std::to_string(value));
}

size_t EntriesOf(const SPlmnList& list)
{
    return std::min<size_t>(list.btPlmnNumber, PLMN_LIST_MAX);
}

nlohmann::ordered_json OperatorJson(const SPlmnInfo& info)
{
    nlohmann::ordered_json entry = {
        {"plmn", FieldText(info.szPlmnID, sizeof(info.szPlmnID))},
        {"long_name", FieldText(info.szLongName, sizeof(info.szLongName))},
        {"short_name", FieldText(info.szShortName, sizeof(info.szShortName))},
    };
    // The service puts the search result's <stat> in btPlmnForbidden.
    AddNamed(&entry, "status", info.btPlmnForbidden, OperatorStatusName(info.btPlmnForbidden));
    AddNamed(&entry, "rat", info.btRat, AccessTechnologyName(info.btRat));
    return entry;
}

// "46000 CHINA MOBILE (current, LTE)"
std::string OperatorText(const SPlmnInfo& info)
{
    std::string name = FieldText(info.szLongName, sizeof(info.szLongName));
    if (name.empty()) {
        name = FieldText(info.szShortName, sizeof(info.szShortName));
    }
    const char* pszStatus = OperatorStatusName(info.btPlmnForbidden);
    const char* pszRat = AccessTechnologyName(info.btRat);
    std::string text = FieldText(info.szPlmnID, sizeof(info.szPlmnID));
    if (!name.empty()) {
        text += " " + name;
    }
    return text + " (" +
           (pszStatus != nullptr ? pszStatus : "status " + std::to_string(info.btPlmnForbidden)) +
           ", " + (pszRat != nullptr ? pszRat : "AcT " + std::to_string(info.btRat)) + ")";
}

std::string OperatorListText(const SPlmnList& list)
{
    if (list.btPlmnNumber == 0) {
        return "operator list: no operators";
    }
    std::string text = "operator list: " + std::to_string(list.btPlmnNumber) +
                       (list.btPlmnNumber == 1 ? " operator" : " operators");
    for (size_t i = 0; i < EntriesOf(list); ++i) {
        text += (i == 0 ? ": " : "; ") + OperatorText(list.stPlmn[i]);
    }
    return text;
}

unsigned long Word(const void* pData)
{
    return *static_cast<const unsigned long*>(pData);
}
}  // namespace

std::string EventKey(int iEvent)
{
    const EventRow* pRow = FindEvent(iEvent);
    return pRow != nullptr ? pRow->key : "event_" + std::to_string(iEvent);
}

nlohmann::ordered_json EventJson(int iEvent, const void* pData)
{
    nlohmann::ordered_json json = {{"event", EventKey(iEvent)}, {"event_id", iEvent}};
    if (pData == nullptr) {
        return json;
    }
    switch (iEvent) {
    case EVENT_NETSRV_PLMN_ALL: {
        const SPlmnList& list = *static_cast<const SPlmnList*>(pData);
        nlohmann::ordered_json operators = nlohmann::ordered_json::array();
        for (size_t i = 0; i < EntriesOf(list); ++i) {
            operators.push_back(OperatorJson(list.stPlmn[i]));
        }
        // A count beyond the list's capacity is reported but not followed.
        json["count"] = list.btPlmnNumber;
        json["operators"] = operators;
        break;
    }
    case EVENT_SRV_RSSI:
        // nRSSI is always 0 in this event: the percentage is its content.
        json["signal_percent"] = static_cast<const RSSIType*>(pData)->btRSSIPercent;
        break;
    case EVENT_NET_SERVER_STATUS:
        AddNamed(&json, "service_status", Word(pData), ServiceStatusName(Word(pData)));
        break;
    case EVENT_SRV_DOMAIN:
        AddNamed(&json, "domain", Word(pData), DomainName(Word(pData)));
        break;
    case EVENT_SRV_SYSTEM_MODE:
        AddNamed(&json, "sub_mode", Word(pData), SubModeName(Word(pData)));
        break;
    case EVENT_SRV_ANTENNA_LEVEL:
        json["antenna_level"] = static_cast<const AntennaLevel*>(pData)->wLevel;
        break;
    case EVENT_SIM_REFRESH:
        json["file_type"] = Word(pData);
        break;
    default:
        // The other events carry no defined content.
        break;
    }
    return json;
}

std::string EventText(int iEvent, const void* pData)
{
    const EventRow* pRow = FindEvent(iEvent);
    if (pRow == nullptr) {
        return "event " + std::to_string(iEvent);
    }
    const std::string label = pRow->text;
    if (pData == nullptr) {
        return label;
    }
    switch (iEvent) {
    case EVENT_NETSRV_PLMN_ALL:
        return OperatorListText(*static_cast<const SPlmnList*>(pData));
    case EVENT_SRV_RSSI:
        return label + " " +
               std::to_string(static_cast<const RSSIType*>(pData)->btRSSIPercent) + "%";
    case EVENT_NET_SERVER_STATUS:
        return label + ": " + NameOrNumber(ServiceStatusName(Word(pData)), Word(pData));
    case EVENT_SRV_DOMAIN:
        return label + ": " + NameOrNumber(DomainName(Word(pData)), Word(pData));
    case EVENT_SRV_SYSTEM_MODE:
        return label + " " + NameOrNumber(SubModeName(Word(pData)), Word(pData));
    case EVENT_SRV_ANTENNA_LEVEL:
        return label + " " + std::to_string(static_cast<const AntennaLevel*>(pData)->wLevel);
    case EVENT_SIM_REFRESH:
        return label + ": file type " + std::to_string(Word(pData));
    default:
        return label;
    }
}

}  // namespace netsrvctl
