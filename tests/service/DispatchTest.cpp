// The report dispatcher: each subscribed report becomes its client event with
// its payload; the operator list of a search; the domain check.

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "EventRecorder.h"
#include "NetSrvAtCommonds.h"
#include "ServiceFixture.h"

namespace {

using testkit::AtForm;
using namespace NETSRV_DATA;

class Dispatch : public ServiceFixture {
protected:
    void SetUp() override
    {
        ServiceFixture::SetUp();
        Service()->SRVRegisterCallback(&events);
    }

    testkit::EventRecorder events;
};

TEST_F(Dispatch, EachReportBecomesItsEvent)
{
    struct Row {
        unsigned long index;
        ParamList params;
        int event;
        unsigned long number;     // for events carrying an unsigned long
        unsigned char percent;    // for EVENT_SRV_RSSI
        uint16_t level;           // for EVENT_SRV_ANTENNA_LEVEL
    };
    const Row rows[] = {
        {INDEX_SYS_INFO, {"2", "3", "0", "5", "1", "", "4"}, EVENT_SRV_DOMAIN, 3, 0, 0},
        {INDEX_SERV_IND, {"1"}, EVENT_NET_SERVER_STATUS, 1, 0, 0},
        // "^RSSI" is on the "+CSQ" scale: 17 * 100 / 31.
        {INDEX_RSSI_IND, {"17"}, EVENT_SRV_RSSI, 0, 54, 0},
        // Level reports carry their percentage as it comes.
        {INDEX_RSSI_IND_EC, {"64"}, EVENT_SRV_RSSI, 0, 64, 0},
        {INDEX_RSSI_HDR_IND, {"80"}, EVENT_SRV_RSSI, 0, 80, 0},
        {INDEX_ANTENNA_REPORT, {"-85", "-6", "22", "4"}, EVENT_SRV_ANTENNA_LEVEL, 0, 0, 4},
        // "^MODE: 5,5" is WCDMA with HSDPA; without a sub-mode (or an empty one)
        // the mode alone decides.
        {INDEX_SYS_MODE, {"5", "5"}, EVENT_SRV_SYSTEM_MODE, SUB_MODE_HSDPA_EX, 0, 0},
        {INDEX_SYS_MODE, {"8"}, EVENT_SRV_SYSTEM_MODE, SUB_MODE_HYBRID_EVDORelA_EX, 0, 0},
        {INDEX_SYS_MODE, {"3", ""}, EVENT_SRV_SYSTEM_MODE, SUB_MODE_GPRS_EX, 0, 0},
        {INDEX_SIM_REFRESH, {"2"}, EVENT_SIM_REFRESH, 2, 0, 0},
        {INDEX_PNN_FILE_REFRESH, {}, EVENT_PNN_FILEREFRESH, 0, 0, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(_GetCmdName(row.index) + std::string(" ") +
                     (row.params.empty() ? "" : row.params[0]));
        events.Clear();
        EXPECT_TRUE(service->AtCallBackEvent(MakeReport(row.index, row.params)));
        const std::vector<testkit::RecordedEvent> seen = events.Events();
        ASSERT_EQ(seen.size(), 1u);
        EXPECT_EQ(seen[0].event, row.event);
        EXPECT_EQ(seen[0].number, row.number);
        EXPECT_EQ(seen[0].rssi.btRSSIPercent, row.percent);
        EXPECT_EQ(seen[0].rssi.nRSSI, 0) << "clients read the percentage only";
        EXPECT_EQ(seen[0].antenna.wLevel, row.level);
    }
}

TEST_F(Dispatch, ReportsWithoutAnEventAreRefused)
{
    // Outside the handled range, and "^SIMST", which is subscribed but has no event.
    const unsigned long refused[] = {INDEX_SYS_CFG, INDEX_SIM_STATUS, INDEX_SYS_SYSCONFIG,
                                     INDEX_CSQ, INDEX_CEREG};
    for (unsigned long index : refused) {
        EXPECT_FALSE(service->AtCallBackEvent(MakeReport(index, {"1"}))) << index;
    }
    // A record that is not what its index says is handled and sends nothing.
    Command mislabelled = MakeReport(INDEX_RSSI_IND, {"17"});
    mislabelled.name = "^MODE";
    EXPECT_TRUE(service->AtCallBackEvent(mislabelled));
    EXPECT_TRUE(events.Events().empty());
}

TEST_F(Dispatch, OperatorListKeepsQuotedCommasAndStopsAtTheEmptyField)
{
    EXPECT_TRUE(service->AtCallBackEvent(MakeReport(
        INDEX_NET_SEARCH, {"(2,\"Op, Inc\",\"Op\",\"00101\",2)", "(1,\"Other\",\"OT\",\"00102\",7)",
                           "(3,\"Banned\",\"\",\"00103\",0)", "", "(0,1,2,3,4)", "(0,1,2)"})));
    const std::vector<testkit::RecordedEvent> seen = events.Events();
    ASSERT_EQ(seen.size(), 1u);
    ASSERT_EQ(seen[0].event, EVENT_NETSRV_PLMN_ALL);
    const SPlmnList& list = seen[0].plmnList;
    ASSERT_EQ(list.btPlmnNumber, 3);
    EXPECT_STREQ(list.stPlmn[0].szLongName, "Op, Inc");
    EXPECT_STREQ(list.stPlmn[0].szShortName, "Op");
    EXPECT_STREQ(list.stPlmn[0].szPlmnID, "00101");
    EXPECT_EQ(list.stPlmn[0].btRat, 2);
    EXPECT_EQ(list.stPlmn[0].btPlmnForbidden, 2);
    EXPECT_EQ(list.stPlmn[0].btListCategory, 2);
    EXPECT_EQ(list.stPlmn[0].dwSigStrength, 0u);
    EXPECT_EQ(list.stPlmn[1].btRat, 7);
    EXPECT_STREQ(list.stPlmn[2].szShortName, "");
    EXPECT_EQ(list.stPlmn[2].btPlmnForbidden, 3);
    EXPECT_STREQ(list.stPlmn[3].szPlmnID, "") << "entries past the count stay empty";
}

TEST_F(Dispatch, EmptyOrOversizedSearchResults)
{
    // An empty first field is how a failed search is reported: an empty list.
    EXPECT_TRUE(service->AtCallBackEvent(MakeReport(INDEX_NET_SEARCH, {""})));
    ASSERT_EQ(events.Events().size(), 1u);
    EXPECT_EQ(events.Events()[0].plmnList.btPlmnNumber, 0);

    // More groups than the list holds: the first twenty are kept.
    events.Clear();
    ParamList groups;
    for (int i = 0; i < 25; ++i) {
        groups.push_back("(1,\"Net " + std::to_string(i) + "\",\"N\",\"0010" + std::to_string(i) +
                         "\",2)");
    }
    EXPECT_TRUE(service->AtCallBackEvent(MakeReport(INDEX_NET_SEARCH, groups)));
    const std::vector<testkit::RecordedEvent> seen = events.Events();
    ASSERT_EQ(seen.size(), 1u);
    const SPlmnList& list = seen[0].plmnList;
    EXPECT_EQ(list.btPlmnNumber, PLMN_LIST_MAX);
    EXPECT_STREQ(list.stPlmn[PLMN_LIST_MAX - 1].szLongName, "Net 19");
}

// Every registration report starts a fresh system-information reading on the
// domain-check thread; a changed domain reaches the clients.
TEST_F(Dispatch, RegistrationReportsStartTheDomainCheck)
{
    processor.Expect("^SYSINFOEX", AtForm::Bare)
        .Answer({"2", "3", "0", "1", "0", "6", "LTE", "101", "LTE"});
    EXPECT_TRUE(service->AtCallBackEvent(MakeReport(INDEX_NET_REGISTER, {"1", "CE00", "01CEAD8F"})));
    ASSERT_TRUE(events.WaitForCount(2, std::chrono::seconds(5)));
    EXPECT_EQ(events.Ids(), (std::vector<int>{EVENT_SRV_DOMAIN, EVENT_NET_SERVER_STATUS}));

    // A second report (here "+CGREG") checks again; within five seconds the
    // reading comes from the cache and nothing has changed.
    ASSERT_TRUE(testkit::WaitUntil(
        [&] { return traces.Count("GetSystemInfoEx: Finish memcpy and return true") == 1; },
        std::chrono::seconds(5)));
    // Let the first check's thread finish returning.
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_TRUE(service->AtCallBackEvent(MakeReport(INDEX_CGREG, {"1"})));
    EXPECT_TRUE(testkit::WaitUntil(
        [&] { return traces.Count("GetSystemInfoEx: Return m_Sysinfo Directely") == 1; },
        std::chrono::seconds(5)));
    EXPECT_EQ(traces.Count("SRVGetSystemInfoEx: Enter!"), 2);
    EXPECT_EQ(processor.Calls().size(), 1u);
}

}  // namespace
