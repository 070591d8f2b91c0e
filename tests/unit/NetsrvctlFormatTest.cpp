// What netsrvctl prints for error words, for the service's events and for
// the modem's registration reports, and the words its setting commands take.

#include <gtest/gtest.h>

#include <cstring>

#include "AtCodec/IProcessor.h"
#include "ErrorText.h"
#include "EventFormat.h"
#include "OutputText.h"
#include "Interface/NetSrvDef.h"
#include "RegistrationView.h"
#include "SettingWords.h"

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

// Reports in mode 1 and 2 start with the state; what follows the cell (the
// access technology, a reject cause) is not shown.
TEST(NetsrvctlRegistrationReport, ReportsBecomeLines)
{
    struct Row {
        const char* name;
        std::vector<std::string> fields;
        const char* text;   // null: not a registration report that can be read
        const char* json;
    };
    const Row rows[] = {
        {"+CREG", {"1", "2A3B", "01A2B3C4"},
         "cs registration: registered (home network), lac 2A3B, cell 01A2B3C4",
         R"J({"event":"registration","domain":"cs","state":1,)J"
         R"J("state_name":"registered (home network)","lac":"2A3B","cell_id":"01A2B3C4"})J"},
        {"+CGREG", {"5", "84CD", "00D30156", "2"},
         "ps registration: registered (roaming), lac 84CD, cell 00D30156",
         R"J({"event":"registration","domain":"ps","state":5,)J"
         R"J("state_name":"registered (roaming)","lac":"84CD","cell_id":"00D30156"})J"},
        {"+CEREG", {"1", "CE00", "01CEAD8F", "7"},
         "eps registration: registered (home network), tac CE00, cell 01CEAD8F",
         R"J({"event":"registration","domain":"eps","state":1,)J"
         R"J("state_name":"registered (home network)","tac":"CE00","cell_id":"01CEAD8F"})J"},
        // Mode 1: the state alone.
        {"+CREG", {"2"}, "cs registration: searching",
         R"J({"event":"registration","domain":"cs","state":2,"state_name":"searching"})J"},
        // Mode 3 with a rejection: empty location fields, then the cause.
        {"+CEREG", {"3", "", "", "", "0", "15"}, "eps registration: registration denied",
         R"J({"event":"registration","domain":"eps","state":3,)J"
         R"J("state_name":"registration denied"})J"},
        // A stray control character of the modem is not printed as it came.
        {"+CREG", {"1", "2A\x1b" "3B", ""}, "cs registration: registered (home network), lac 2A?3B",
         R"J({"event":"registration","domain":"cs","state":1,)J"
         R"J("state_name":"registered (home network)","lac":"2A?3B"})J"},
        {"+CREG", {""}, nullptr, nullptr},
        {"+CREG", {"x", "1"}, nullptr, nullptr},
        {"+CREG", {"-1"}, nullptr, nullptr},
        {"+COPS", {"1"}, nullptr, nullptr},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.name) + " " + ::testing::PrintToString(row.fields));
        const auto report = ParseRegistrationReport(row.name, row.fields);
        ASSERT_EQ(report.has_value(), row.text != nullptr);
        if (report) {
            EXPECT_EQ(RegistrationEventText(*report), row.text);
            EXPECT_EQ(RegistrationEventJson(*report).dump(), row.json);
        }
    }
}

TEST(NetsrvctlSettingWords, WordsStandForTheServicesNumbers)
{
    struct Row {
        const WordTable& table;
        const char* word;
        int value;   // -1: refused
    };
    const Row rows[] = {
        {DomainWords(), "eps", 2},        {DomainWords(), "lte", -1},
        {ReportModeWords(), "3", -1},     {HspaSwitchWords(), "upa", 1},
        {OnOffWords(), "off", 0},         {PrefModeWords(), "cdma", 2},
        {PrefModeWords(), "evdo", 4},     {PrefModeWords(), "hybrid", 8},
        // Revision 0 is the modem's 1, revision A its 0.
        {EvdoRevisionWords(), "0", 1},    {EvdoRevisionWords(), "A", 0},
        {EvdoRevisionWords(), "B", 2},    {EvdoRevisionWords(), "C", -1},
        {NamWords(), "1", 0},             {NamWords(), "2", 1},
        {NamWords(), "0", -1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.word);
        const std::optional<int> value = ValueOfWord(row.table, row.word);
        EXPECT_EQ(value.value_or(-1), row.value);
    }

    for (const char* min : {"1234567890", "310260123456789"}) {
        EXPECT_TRUE(IsMinNumber(min)) << min;
    }
    for (const char* min : {"", "123456789", "12345678901", "1234567890123456", "+123456789",
                            "123456789a"}) {
        EXPECT_FALSE(IsMinNumber(min)) << min;
    }
}

}  // namespace
