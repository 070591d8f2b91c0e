// What netsrvctl prints for error words and for the service's events.

#include <gtest/gtest.h>

#include <cstring>

#include "AtCodec/IProcessor.h"
#include "ErrorText.h"
#include "EventFormat.h"
#include "OutputText.h"
#include "Interface/NetSrvDef.h"

namespace {

using namespace netsrvctl;

TEST(NetsrvctlErrorText, EveryCodeTheServiceOrProcessorWritesHasAMeaning)
{
    struct Row {
        unsigned long code;
        const char* meaning;
    };
    const Row rows[] = {
        {10001, "bad argument"},
        {AT_ERROR_TIMEOUT, "the modem did not answer in time"},
        {AT_ERROR_PORT_CLOSED, "the modem's port is closed or gone"},
        {AT_ERROR_BAD_COMMAND, "the command could not be formatted"},
        {4, "operation not supported"},
        {100, "unknown"},
        {10, "SIM not inserted"},
        {30, "no network service"},
        {777, "modem error 777"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(DescribeErrorWord(row.code), row.meaning) << row.code;
    }
}

TEST(NetsrvctlEventFormat, EventsAndTheirPayloads)
{
    NETSRV_DATA::RSSIType rssi;
    rssi.nRSSI = 0;
    rssi.btRSSIPercent = 64;
    NETSRV_DATA::AntennaLevel antenna;
    antenna.wLevel = 4;
    unsigned long normal = 2;
    unsigned long csAndPs = 3;
    unsigned long hspaPlus = 45;
    unsigned long lteSubMode = 101;
    unsigned long fileType = 2;
    unsigned long odd = 77;

    struct Row {
        int event;
        const void* payload;
        const char* text;
        const char* json;
    };
    const Row rows[] = {
        {NETSRV_DATA::EVENT_SRV_RSSI, &rssi, "signal 64%",
         R"J({"event":"signal","event_id":1,"signal_percent":64})J"},
        {NETSRV_DATA::EVENT_SRV_ANTENNA_LEVEL, &antenna, "antenna level 4",
         R"J({"event":"antenna_level","event_id":11,"antenna_level":4})J"},
        {NETSRV_DATA::EVENT_SRV_SYSTEM_MODE, &hspaPlus, "mode HSPA+ (WCDMA)",
         R"J({"event":"system_mode","event_id":7,"sub_mode":45,"sub_mode_name":"HSPA+ (WCDMA)"})J"},
        // A sub-mode outside the enumeration keeps its number.
        {NETSRV_DATA::EVENT_SRV_SYSTEM_MODE, &lteSubMode, "mode 101",
         R"J({"event":"system_mode","event_id":7,"sub_mode":101})J"},
        {NETSRV_DATA::EVENT_NET_SERVER_STATUS, &normal, "service status: normal service",
         R"J({"event":"service_status","event_id":4,"service_status":2,)J"
         R"J("service_status_name":"normal service"})J"},
        {NETSRV_DATA::EVENT_NET_SERVER_STATUS, &odd, "service status: 77",
         R"J({"event":"service_status","event_id":4,"service_status":77})J"},
        {NETSRV_DATA::EVENT_SRV_DOMAIN, &csAndPs, "domain: CS and PS",
         R"J({"event":"domain","event_id":5,"domain":3,"domain_name":"CS and PS"})J"},
        {NETSRV_DATA::EVENT_SIM_REFRESH, &fileType, "SIM refresh: file type 2",
         R"J({"event":"sim_refresh","event_id":13,"file_type":2})J"},
        // A payload with no defined content is not read.
        {NETSRV_DATA::EVENT_PNN_FILEREFRESH, &odd, "PNN file refreshed",
         R"J({"event":"pnn_file_refresh","event_id":12})J"},
        {NETSRV_DATA::EVENT_SRV_MS_UNAVAILABLE, &odd, "modem unavailable",
         R"J({"event":"modem_unavailable","event_id":9})J"},
        // A null payload where one is defined: the event alone.
        {NETSRV_DATA::EVENT_SRV_RSSI, nullptr, "signal", R"J({"event":"signal","event_id":1})J"},
        {NETSRV_DATA::EVENT_SRV_DOMAIN, nullptr, "domain", R"J({"event":"domain","event_id":5})J"},
        {99, &odd, "event 99", R"J({"event":"event_99","event_id":99})J"},
        {-1, nullptr, "event -1", R"J({"event":"event_-1","event_id":-1})J"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(EventText(row.event, row.payload), row.text);
        EXPECT_EQ(EventJson(row.event, row.payload).dump(), row.json);
    }
}

NETSRV_DATA::SPlmnInfo Operator(const char* pszPlmn, const char* pszLong, const char* pszShort,
                                unsigned char status, unsigned char rat)
{
    NETSRV_DATA::SPlmnInfo info;
    std::strncpy(info.szPlmnID, pszPlmn, sizeof(info.szPlmnID) - 1);
    std::strncpy(info.szLongName, pszLong, sizeof(info.szLongName) - 1);
    std::strncpy(info.szShortName, pszShort, sizeof(info.szShortName) - 1);
    info.btPlmnForbidden = status;
    info.btListCategory = status;
    info.btRat = rat;
    return info;
}

TEST(NetsrvctlEventFormat, OperatorListNamesEachOperator)
{
    NETSRV_DATA::SPlmnList list;
    list.stPlmn[0] = Operator("46000", "CHINA MOBILE", "CMCC", 2, 7);
    // No long name: the short one stands in; numbers without a name stay numbers.
    list.stPlmn[1] = Operator("46001", "", "UNICOM", 1, 2);
    list.stPlmn[2] = Operator("46011", "", "", 9, 12);
    list.btPlmnNumber = 3;
    EXPECT_EQ(EventText(NETSRV_DATA::EVENT_NETSRV_PLMN_ALL, &list),
              "operator list: 3 operators: 46000 CHINA MOBILE (current, LTE); "
              "46001 UNICOM (available, WCDMA); 46011 (status 9, AcT 12)");
    const auto json = EventJson(NETSRV_DATA::EVENT_NETSRV_PLMN_ALL, &list);
    EXPECT_EQ(json["event"], "operator_list");
    EXPECT_EQ(json["count"], 3);
    ASSERT_EQ(json["operators"].size(), 3u);
    EXPECT_EQ(json["operators"][0].dump(),
              R"J({"plmn":"46000","long_name":"CHINA MOBILE","short_name":"CMCC","status":2,)J"
              R"J("status_name":"current","rat":7,"rat_name":"LTE"})J");
    EXPECT_EQ(json["operators"][2].dump(),
              R"J({"plmn":"46011","long_name":"","short_name":"","status":9,"rat":12})J");

    list.btPlmnNumber = 1;
    EXPECT_EQ(EventText(NETSRV_DATA::EVENT_NETSRV_PLMN_ALL, &list),
              "operator list: 1 operator: 46000 CHINA MOBILE (current, LTE)");
    list.btPlmnNumber = 0;
    EXPECT_EQ(EventText(NETSRV_DATA::EVENT_NETSRV_PLMN_ALL, &list), "operator list: no operators");
    EXPECT_EQ(EventJson(NETSRV_DATA::EVENT_NETSRV_PLMN_ALL, &list)["operators"].size(), 0u);
}

TEST(NetsrvctlEventFormat, OperatorListIsBoundedByItsCapacity)
{
    NETSRV_DATA::SPlmnList list;
    list.stPlmn[0] = Operator("46000", "", "", 2, 7);
    // Names that fill their fields without a terminator are cut at the field.
    std::memset(list.stPlmn[0].szLongName, 'L', sizeof(list.stPlmn[0].szLongName));
    list.btPlmnNumber = 1;
    auto json = EventJson(NETSRV_DATA::EVENT_NETSRV_PLMN_ALL, &list);
    ASSERT_EQ(json["operators"].size(), 1u);
    EXPECT_EQ(json["operators"][0]["long_name"], std::string(64, 'L'));

    // A count beyond the array's 20 entries is reported but not followed.
    list.btPlmnNumber = 200;
    json = EventJson(NETSRV_DATA::EVENT_NETSRV_PLMN_ALL, &list);
    EXPECT_EQ(json["count"], 200);
    EXPECT_EQ(json["operators"].size(), 20u);
    const std::string text = EventText(NETSRV_DATA::EVENT_NETSRV_PLMN_ALL, &list);
    EXPECT_EQ(text.rfind("operator list: 200 operators: 46000 ", 0), 0u) << text;
    // 20 entries, 19 separators between them.
    size_t separators = 0;
    for (size_t at = text.find("; "); at != std::string::npos; at = text.find("; ", at + 1)) {
        ++separators;
    }
    EXPECT_EQ(separators, 19u);
}

TEST(NetsrvctlOutputText, JsonLinesSurviveNamesThatAreNotUtf8)
{
    // A modem's operator name in its own code page (Latin-1 "Telefónica").
    NETSRV_DATA::SPlmnList list;
    list.stPlmn[0] = Operator("21407", "Telef\xf3nica", "", 2, 2);
    list.btPlmnNumber = 1;
    const std::string line = JsonLine(EventJson(NETSRV_DATA::EVENT_NETSRV_PLMN_ALL, &list));
    EXPECT_EQ(nlohmann::json::parse(line)["operators"][0]["long_name"], "Telef\xef\xbf\xbdnica");
}

}  // namespace
