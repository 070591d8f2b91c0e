// Operators: the home network from the SIM, the search and its one event, the
// selection, the registered operator in three name formats, and the SIM's
// preferred-operator list.

#include <cstring>
#include <string>
#include <vector>

#include "EventRecorder.h"
#include "ServiceFixture.h"
#include "TraceSrv.h"

namespace {

using namespace NETSRV_DATA;
using testkit::AtForm;

const unsigned long kUntouched = 777;

class Operators : public ServiceFixture {
protected:
    std::string Name(const unsigned char* bt) { return reinterpret_cast<const char*>(bt); }
};

TEST_F(Operators, HomeNetworkLengthFromTheAdministrativeFile)
{
    const struct {
        const char* ad;          // the file as hexadecimal text
        const char* home;        // null: the length digit is unusable
    } rows[] = {
        {"00FFFF02", "26201"},
        {"0000000300", "262011"},
        {"00000001", nullptr},
        {"0000000", nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.ad);
        processor.Expect("+CRSM", AtForm::Set).With({"176", "28589", "0", "0", "5"}).Answer({"144", "0", row.ad});
        if (row.home != nullptr) {
            processor.Expect("+CIMI", AtForm::Bare).Answer({"262011234567890"});
        }
        PLMNType plmn;
        std::strcpy(plmn.szPlmn, "x");
        unsigned long err = kUntouched;
        traces.Clear();
        EXPECT_EQ(Service()->SRVGetHomePLMN(&plmn, &err), row.home != nullptr);
        EXPECT_STREQ(plmn.szPlmn, row.home != nullptr ? row.home : "");
        EXPECT_EQ(err, kUntouched);
        EXPECT_EQ(traces.Contains("SRVGetHomePLMN() get len = 0 error", TL_ERRO), row.home == nullptr);
    }

    for (const char* failing : {"+CRSM", "+CIMI"}) {
        SCOPED_TRACE(failing);
        const bool crsmFails = std::strcmp(failing, "+CRSM") == 0;
        if (crsmFails) {
            processor.Expect("+CRSM", AtForm::Set).Fail(13);
        } else {
            processor.Expect("+CRSM", AtForm::Set).Answer({"144", "0", "00000002"});
            processor.Expect("+CIMI", AtForm::Bare).Fail(13);
        }
        PLMNType plmn;
        unsigned long err = 0;
        traces.Clear();
        EXPECT_FALSE(Service()->SRVGetHomePLMN(&plmn, &err));
        EXPECT_EQ(err, 13u);
        EXPECT_TRUE(traces.Contains(crsmFails ? "SRVGetHomePLMN() CrsmCmd error"
                                              : "SRVGetHomePLMN() ReadImsiRsp error",
                                    TL_ERRO));
    }
}

// The search's answer comes through the report dispatcher; a failed search
// reports an empty list itself. Either way: one event per search.
TEST_F(Operators, OneEventPerSearch)
{
    testkit::EventRecorder events;
    Service()->SRVRegisterCallback(&events);
    unsigned long err = 0;

    processor.Expect("+COPS", AtForm::Test).Fail(100);
    ASSERT_TRUE(Service()->SRVGetPLMNList(&err));
    ASSERT_TRUE(events.WaitForCount(1, std::chrono::seconds(5)));
    EXPECT_EQ(events.Events()[0].event, EVENT_NETSRV_PLMN_ALL);
    EXPECT_EQ(events.Events()[0].plmnList.btPlmnNumber, 0);
    ASSERT_EQ(processor.Calls().size(), 1u);
    EXPECT_EQ(processor.Calls()[0].timeoutMs, 240000u);

    processor.Expect("+COPS", AtForm::Test).Ok();
    ASSERT_TRUE(Service()->SRVGetPLMNList(&err));
    ASSERT_TRUE(testkit::WaitUntil([&] { return processor.Calls().size() == 2; },
                                   std::chrono::seconds(5)));
    Command reply;
    reply.name = "+COPS";
    reply.index = INDEX_NET_SEARCH;
    reply.type = AT_TYPE_NORMAL;
    reply.params = {"(2,\"Op, One\",\"One\",\"26201\",7)", "(3,\"Three\",\"3\",\"26203\",0)", "",
                    "(0,1,2,3,4)", "(0,1,2)"};
    Service()->AtCallBackEvent(reply);
    // Nothing else arrives: the search thread sent no event of its own.
    EXPECT_FALSE(events.WaitForCount(3, std::chrono::milliseconds(600)));
    ASSERT_EQ(events.Events().size(), 2u);
    const SPlmnList list = events.Events()[1].plmnList;
    ASSERT_EQ(list.btPlmnNumber, 2);
    EXPECT_STREQ(list.stPlmn[0].szLongName, "Op, One");
    EXPECT_EQ(list.stPlmn[1].btPlmnForbidden, 3);
    Service()->SRVUnRegisterCallback(&events);
}

TEST_F(Operators, SelectionForms)
{
    const auto plmn = [](const char* id, unsigned char rat) {
        PLMNType p;
        std::strcpy(p.szPlmn, id);
        p.btRat = rat;
        return p;
    };
    const struct {
        unsigned long mode;
        PLMNType plmn;
        std::vector<std::string> params;
    } rows[] = {
        {NET_SEARCH_AUTO, plmn("26201", 7), {"0"}},
        {NET_SEARCH_MANNUAL, plmn("26201", 7), {"1", "2", "\"26201\"", "7"}},
        {NET_SEARCH_MANNUAL, plmn("262011", 0), {"1", "2", "\"262011\"", "0"}},
        // An access technology other than GSM, UTRAN and E-UTRAN is left to the modem.
        {NET_SEARCH_MANNUAL, plmn("26202", 1), {"1", "2", "\"26202\""}},
        {NET_SEARCH_MANNUAL, plmn("\"26202\"", 2), {"1", "2", "\"26202\"", "2"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.params.size() > 2 ? row.params[2] : row.params[0]);
        processor.Expect("+COPS", AtForm::Set).With(row.params).Ok();
        unsigned long err = kUntouched;
        EXPECT_TRUE(Service()->SRVSelectCurPlmn(row.mode, row.plmn, &err));
        EXPECT_EQ(processor.Calls().back().timeoutMs, 120000u);
    }

    // A refused selection and an unknown mode: the service's last error.
    processor.Expect("+COPS", AtForm::Set).Fail(30);
    unsigned long err = 0;
    EXPECT_FALSE(Service()->SRVSelectCurPlmn(NET_SEARCH_MANNUAL, plmn("26209", 7), &err));
    EXPECT_EQ(err, 30u);
    err = 0;
    EXPECT_FALSE(Service()->SRVSelectCurPlmn(NET_RIGISTER_OFF, plmn("26201", 7), &err));
    EXPECT_EQ(err, 30u);
    EXPECT_FALSE(Service()->SRVSelectCurPlmn(NET_SEARCH_AUTO, plmn("26201", 7), nullptr));
}

TEST_F(Operators, CurrentOperatorInThreeFormats)
{
    const std::string longName(70, 'L');
    processor.Expect("+COPS", AtForm::Set).With({"3", "1"}).Ok();
    processor.Expect("+COPS", AtForm::Read).Answer({"1", "1", "FFFFFFFF"});
    processor.Expect("+COPS", AtForm::Set).With({"3", "0"}).Ok();
    processor.Expect("+COPS", AtForm::Read).Answer({"1", "0", longName});
    processor.Expect("+COPS", AtForm::Set).With({"3", "2"}).Ok();
    processor.Expect("+COPS", AtForm::Read).Answer({"1", "2", "26201", "7"});
    unsigned long mode = 9, err = kUntouched;
    PLMNType plmn;
    ASSERT_TRUE(Service()->SRVGetCurPlmn(&mode, &plmn, &err));
    EXPECT_EQ(mode, 1u);
    EXPECT_EQ(Name(plmn.btPlmnName), "");   // the SIM's unused name field
    EXPECT_EQ(Name(plmn.btPlmnLongName), longName.substr(0, 63));
    EXPECT_STREQ(plmn.szPlmn, "26201");
    EXPECT_EQ(plmn.btRat, 7);
    EXPECT_EQ(err, kUntouched);
    EXPECT_TRUE(traces.Contains("SRVGetCurPlmn after lock ", TL_INFO));
    EXPECT_TRUE(traces.Contains("SRVGetCurPlmn success ", TL_INFO));

    // Names are best effort; without a numeric identity the modem is not registered.
    processor.Expect("+COPS", AtForm::Set).With({"3", "1"}).Fail(3);
    processor.Expect("+COPS", AtForm::Set).With({"3", "0"}).Ok();
    processor.Expect("+COPS", AtForm::Read).Fail(4);
    processor.Expect("+COPS", AtForm::Set).With({"3", "2"}).Ok();
    processor.Expect("+COPS", AtForm::Read).Answer({"0"});
    PLMNType none;
    traces.Clear();
    EXPECT_FALSE(Service()->SRVGetCurPlmn(&mode, &none, &err));
    EXPECT_EQ(mode, 0u);
    EXPECT_EQ(err, 4u);
    EXPECT_STREQ(none.szPlmn, "");
    EXPECT_TRUE(traces.Contains("SetReadPlmnFormat() NetworkInfoQueryCmd error", TL_ERRO));
    EXPECT_TRUE(traces.Contains("SRVGetCurPlmn() NetworkReadCmd error", TL_ERRO));
    EXPECT_TRUE(traces.Contains("SRVGetCurPlmn() error", TL_ERRO));

    err = kUntouched;
    EXPECT_FALSE(Service()->SRVGetCurPlmn(nullptr, &plmn, &err));
    EXPECT_EQ(err, NETSRV_ERROR_BAD_PARAM);
}

TEST_F(Operators, PreferredList)
{
    processor.Expect("+CPLS", AtForm::Read).Answer({"1"});
    UPLMN_MODE mode = UPLMN_USER_CONTROL;
    ASSERT_TRUE(Service()->SRVGetPLMNControlMode(&mode));
    EXPECT_EQ(mode, UPLMN_OPERATOR_CONTROL);
    processor.Expect("+CPLS", AtForm::Read).Fail(4);
    EXPECT_FALSE(Service()->SRVGetPLMNControlMode(&mode));
    EXPECT_EQ(mode, UPLMN_UNKNOWN_CONTROL);
    processor.Expect("+CPLS", AtForm::Set).With({"0"}).Ok();
    EXPECT_TRUE(Service()->SRVSetPLMNControlMode(UPLMN_USER_CONTROL));

    processor.Expect("+CPOL", AtForm::Read)
        .AnswerLines({{"1", "2", "\"26201\"", "1", "0", "1"}, {"1234", "2", "26202345678901234567", "10"}});
    UPLMNList list;
    list.size = -1;
    ASSERT_TRUE(Service()->SRVGetPLMNPreferList(&list));
    EXPECT_EQ(list.size, -1);
    ASSERT_NE(list.pstUPLMN, nullptr);
    EXPECT_STREQ(list.pstUPLMN[0].szUPLMN, "\"26201\"");
    EXPECT_STREQ(list.pstUPLMN[0].szUTRANAct, "1");
    EXPECT_STREQ(list.pstUPLMN[1].index, "123");
    EXPECT_STREQ(list.pstUPLMN[1].szUPLMN, "262023456789012");
    EXPECT_STREQ(list.pstUPLMN[1].szGSMAct, "1");
    EXPECT_STREQ(list.pstUPLMN[2].index, "");   // the end of the rows
    EXPECT_TRUE(Service()->SRVReleasePLMNPreferList(&list));
    EXPECT_EQ(list.pstUPLMN, nullptr);
    EXPECT_TRUE(Service()->SRVReleasePLMNPreferList(nullptr));

    UPLMNInfo row;
    std::strcpy(row.index, "2");
    std::strcpy(row.format, "2");
    std::strcpy(row.szUPLMN, "\"26203\"");
    std::strcpy(row.szGSMAct, "1");
    std::strcpy(row.szGSMCompactAct, "0");
    std::strcpy(row.szUTRANAct, "1");
    processor.Expect("+CPOL", AtForm::Set).With({"2", "2", "\"26203\"", "1", "0", "1"}).Ok();
    EXPECT_TRUE(Service()->SRVSetPLMNPreferInfo(row));
    processor.Expect("+CPOL", AtForm::Set).Fail(3);
    EXPECT_FALSE(Service()->SRVSetPLMNPreferInfo(row));
}

}  // namespace
