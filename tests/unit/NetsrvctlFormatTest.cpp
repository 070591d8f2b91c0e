// What netsrvctl prints for error words and for the service's events.

#include <gtest/gtest.h>

#include <cstring>

#include "AtCodec/IProcessor.h"
#include "ErrorText.h"
#include "EventFormat.h"
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
    rssi.nRSSI = -77;
    rssi.btRSSIPercent = 45;
    NETSRV_DATA::AntennaLevel antenna;
    antenna.wLevel = 3;
    unsigned long status = 2;

    struct Row {
        int event;
        const void* payload;
        const char* line;
    };
    const Row rows[] = {
        {NETSRV_DATA::EVENT_SRV_RSSI, &rssi, "EVENT_SRV_RSSI percent=45 rssi=-77"},
        {NETSRV_DATA::EVENT_NET_SERVER_STATUS, &status, "EVENT_NET_SERVER_STATUS status=2"},
        {NETSRV_DATA::EVENT_SRV_DOMAIN, &status, "EVENT_SRV_DOMAIN domain=2"},
        {NETSRV_DATA::EVENT_SRV_SYSTEM_MODE, &status, "EVENT_SRV_SYSTEM_MODE submode=2"},
        {NETSRV_DATA::EVENT_SIM_REFRESH, &status, "EVENT_SIM_REFRESH filetype=2"},
        {NETSRV_DATA::EVENT_SRV_ANTENNA_LEVEL, &antenna, "EVENT_SRV_ANTENNA_LEVEL level=3"},
        // A payload with no defined content is not read.
        {NETSRV_DATA::EVENT_PNN_FILEREFRESH, &status, "EVENT_PNN_FILEREFRESH"},
        {NETSRV_DATA::EVENT_SRV_RSSI, nullptr, "EVENT_SRV_RSSI"},
        {99, &status, "EVENT_99"},
        {-1, nullptr, "EVENT_-1"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(EventLine(row.event, row.payload), row.line);
    }
}

TEST(NetsrvctlEventFormat, OperatorListIsBoundedByItsCapacity)
{
    NETSRV_DATA::SPlmnList list;
    std::strcpy(list.stPlmn[0].szPlmnID, "46000");
    list.stPlmn[0].btRat = 7;
    list.stPlmn[0].btPlmnForbidden = 2;
    // Names that fill their fields without a terminator are cut at the field.
    std::memset(list.stPlmn[0].szLongName, 'L', sizeof(list.stPlmn[0].szLongName));
    list.btPlmnNumber = 1;
    nlohmann::json payload = EventPayload(NETSRV_DATA::EVENT_NETSRV_PLMN_ALL, &list);
    ASSERT_EQ(payload["operators"].size(), 1u);
    EXPECT_EQ(payload["operators"][0]["plmn"], "46000");
    EXPECT_EQ(payload["operators"][0]["rat"], 7);
    EXPECT_EQ(payload["operators"][0]["status"], 2);
    EXPECT_EQ(payload["operators"][0]["long_name"], std::string(64, 'L'));

    // A count beyond the array's 20 entries is reported but not followed.
    list.btPlmnNumber = 200;
    payload = EventPayload(NETSRV_DATA::EVENT_NETSRV_PLMN_ALL, &list);
    EXPECT_EQ(payload["count"], 200);
    EXPECT_EQ(payload["operators"].size(), 20u);
}

}  // namespace
