// SIM files and names: the ICCID and MSISDN files, the network name elements
// of the PNN file matched to the OPL rows, the registered network's name, and
// the service provider name with both of its "^SPN" paths and the file read.

#include <cstring>
#include <string>
#include <vector>

#include "NetSrvPnnName.h"
#include "ServiceFixture.h"
#include "TraceSrv.h"

namespace {

using namespace NETSRV_DATA;
using testkit::AtForm;
typedef std::vector<std::string> Fields;

const unsigned long kUntouched = 777;
const std::string kMarker(32, 'F');

std::u16string Text(const unsigned short* psz)
{
    std::u16string text;
    for (; *psz != 0; ++psz) {
        text += static_cast<char16_t>(*psz);
    }
    return text;
}

std::vector<unsigned char> Bytes(const std::string& hex)
{
    std::vector<unsigned char> bytes;
    for (size_t i = 0; i + 1 < hex.size(); i += 2) {
        bytes.push_back(static_cast<unsigned char>(std::stoi(hex.substr(i, 2), nullptr, 16)));
    }
    return bytes;
}

class SimNames : public ServiceFixture {};

TEST_F(SimNames, IccidAndMsisdnFiles)
{
    const struct {
        EFType type;
        Fields params;
        const char* response;
        const char* text;
        EFStat stat;
    } rows[] = {
        {EF_ICCID, {"176", "12258", "0", "0", "10"}, "98940100000000000001", "89491000000000000010",
         EF_STAT_UNUSED},
        {EF_ICCID, {"176", "12258", "0", "0", "10"}, "984900000000000010F1", "8994000000000000011F",
         EF_STAT_UNUSED},
        {EF_MSISDN, {"178", "28480", "1", "4", "15"}, "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFF",
         "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFF", EF_STAT_UNUSED},
        {EF_MSISDN, {"178", "28480", "1", "4", "15"}, "00000000", "00000000", EF_STAT_UNUSED},
        {EF_MSISDN, {"178", "28480", "1", "4", "15"}, "0791947101670000FF", "0791947101670000FF",
         EF_STAT_USED},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.response);
        processor.Expect("+CRSM", AtForm::Set).With(row.params).Answer({"144", "0", row.response});
        EFFile file;
        unsigned long err = kUntouched;
        traces.Clear();
        ASSERT_TRUE(Service()->SRVGetEFFile(row.type, &file, &err));
        EXPECT_STREQ(file.szFile, row.text);
        EXPECT_EQ(file.enStat, row.stat);
        EXPECT_EQ(err, kUntouched);
        EXPECT_TRUE(traces.Contains("GetIccid: success", TL_INFO));
    }

    // A failure's code goes to the caller's word alone.
    for (EFType type : {EF_ICCID, EF_MSISDN}) {
        processor.Expect("+CRSM", AtForm::Set).Fail(13);
        EFFile file;
        unsigned long err = 0;
        traces.Clear();
        EXPECT_FALSE(Service()->SRVGetEFFile(type, &file, &err));
        EXPECT_EQ(err, 13u);
        EXPECT_EQ(Service()->GetLastError(), 0);
        EXPECT_TRUE(traces.Contains(type == EF_ICCID ? "GetIccid::GetIccid CrsmCmdRsp error"
                                                     : "GetIccid: CrsmCmdRsp failed",
                                    TL_ERRO));
    }
    EFFile file;
    unsigned long err = kUntouched;
    EXPECT_FALSE(Service()->SRVGetEFFile(EF_SPN, &file, &err));
    EXPECT_EQ(err, kUntouched);
    EXPECT_FALSE(Service()->SRVGetEFFile(EF_ICCID, nullptr, &err));
    EXPECT_EQ(err, NETSRV_ERROR_BAD_PARAM);
}

TEST(PnnName, ElementRules)
{
    const struct {
        const char* hex;
        bool parsed;
        std::u16string name;
        CIStat ci;   // starts as CI_STAT_Add: the rows that do not write it keep that
    } rows[] = {
        {"430580D4F29C0E", true, u"Test", CI_STAT_NOT_Add},
        {"45059803A903BA", true, u"\u03A9\u03BA", CI_STAT_Add},
        // The length promises more than follows: GSM 7-bit from the third byte.
        {"4309D4F29C0E", true, u"Test", CI_STAT_Add},
        {"410580D4F29C0E", false, u"", CI_STAT_Add},
        {"4301", false, u"", CI_STAT_Add},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.hex);
        const std::vector<unsigned char> bytes = Bytes(row.hex);
        QIRA_wstring name;
        CIStat ci = CI_STAT_Add;
        EXPECT_EQ(ParserPnnName(bytes.data(), static_cast<int>(bytes.size()), name, ci), row.parsed);
        EXPECT_EQ(std::u16string(name.begin(), name.end()), row.name);
        EXPECT_EQ(ci, row.ci);
    }
}

TEST_F(SimNames, RegisteredNetworkName)
{
    processor.Expect("^CPNN", AtForm::Set).With({"1"}).Answer({"D4F29C0E", "0", "1", "03A903BA", "1", "0"});
    SPNNInfo info;
    unsigned long err = kUntouched;
    ASSERT_TRUE(Service()->SRVGetPNN(&info, &err));
    EXPECT_EQ(Text(info.wszFullname), u"Test");
    EXPECT_EQ(info.enFullnameCI, CI_STAT_Add);
    EXPECT_EQ(Text(info.wszShortname), u"\u03A9\u03BA");

    processor.Expect("^CPNN", AtForm::Set).Answer({"", "0", "1", "", "0", "1"});
    ASSERT_TRUE(Service()->SRVGetPNN(&info, &err));
    EXPECT_EQ(Text(info.wszFullname), u"");
    EXPECT_EQ(info.enFullnameCI, CI_STAT_NOT_Add);

    processor.Expect("^CPNN", AtForm::Set).Fail(10);
    EXPECT_FALSE(Service()->SRVGetPNN(&info, &err));
    EXPECT_EQ(err, 10u);
}

// OPL rows point into the PNN records by number; without OPL rows the first
// record stands for every network.
TEST_F(SimNames, PnnListFromOplRows)
{
    const std::vector<Fields> pnn = {{"430580D4F29C0E", ""}, {"45059803A903BA", "4301"}};
    const struct {
        const char* name;
        std::vector<Fields> opl;   // empty with oplFails false: a read without rows
        bool oplFails;
        std::vector<std::string> plmns;
        std::u16string firstName;
    } rows[] = {
        {"matched", {{"26201", "0-FFFE", "1"}, {"26202", "", "0"}, {"26203", "", "3"}, {"26204", "", "2"}},
         false, {"26201", "", "", "26204"}, u"Test"},
        {"no OPL file", {}, true, {"FFFFFF"}, u"Test"},
        {"no OPL row", {}, false, {}, u""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        if (row.oplFails) {
            processor.Expect("^OPL", AtForm::Set).Fail(13);
        } else {
            processor.Expect("^OPL", AtForm::Set).With({"1"}).AnswerLines(row.opl);
        }
        processor.Expect("^PNN", AtForm::Set).With({"1"}).AnswerLines(pnn);
        SPNNList list;
        unsigned long err = kUntouched;
        ASSERT_TRUE(Service()->SRVGetPnnList(&list, &err));
        EXPECT_EQ(err, row.oplFails ? 13u : kUntouched);
        ASSERT_EQ(list.size, static_cast<int>(row.plmns.size()));
        for (size_t i = 0; i < row.plmns.size(); ++i) {
            EXPECT_EQ(list.pstPnn[i].szPlmnID, row.plmns[i]);
        }
        if (!row.plmns.empty()) {
            EXPECT_EQ(Text(list.pstPnn[0].wszFullname), row.firstName);
        }
        if (list.size == 4) {
            EXPECT_EQ(Text(list.pstPnn[1].wszFullname), u"");
            EXPECT_EQ(Text(list.pstPnn[3].wszFullname), u"\u03A9\u03BA");
            EXPECT_EQ(list.pstPnn[3].enFullnameCI, CI_STAT_Add);
        }
        ASSERT_TRUE(Service()->SRVReleasePnnList(&list, &err));
        EXPECT_EQ(list.pstPnn, nullptr);
    }

    processor.Expect("^OPL", AtForm::Set).AnswerLines({{"26201", "", "1"}});
    processor.Expect("^PNN", AtForm::Set).AnswerLines({});
    SPNNList list;
    unsigned long err = kUntouched;
    traces.Clear();
    EXPECT_FALSE(Service()->SRVGetPnnList(&list, &err));
    EXPECT_EQ(list.pstPnn, nullptr);
}

// Each row: the device kind, the "^SPN" answers in order (a number fails with
// that code), an SPN file answer when the modem lacks "^SPN", and the result.
TEST_F(SimNames, ServiceProviderName)
{
    const std::string longName(30, 'N');
    const struct {
        const char* name;
        int kind;
        std::vector<Fields> spn;   // {code} or {display, coding, name, cdma coding}
        const char* file;          // SPN file's hexadecimal text, or null
        bool result;
        unsigned long err;
        int display;
        std::u16string text;
    } rows[] = {
        {"USIM name", DevDataDef::PRODUCT_TYPE_WCDMA, {{"1", "0", "Name", ""}}, nullptr, true, kUntouched, 1, u"Name"},
        {"marker, then GSM", DevDataDef::PRODUCT_TYPE_WCDMA, {{"1", "0", kMarker, ""}, {"2", "1", "80004F0070", ""}},
         nullptr, true, kUntouched, 2, u"Op"},
        {"both marker", DevDataDef::PRODUCT_TYPE_WCDMA, {{"1", "0", kMarker, ""}, {"1", "0", "", ""}}, nullptr, true,
         kUntouched, 0, u"kept"},
        {"lower-case marker is a name", DevDataDef::PRODUCT_TYPE_WCDMA, {{"1", "0", "ffffffffffffffffffffffffffffffff", ""}},
         nullptr, true, kUntouched, 1, u"fffffffffffffffffffffff"},
        {"no ^SPN", DevDataDef::PRODUCT_TYPE_UNKNOW, {{"4"}}, "024F70", true, kUntouched, 2, u"Op"},
        {"UCS2 file", DevDataDef::PRODUCT_TYPE_WCDMA, {{"13"}, {"100"}}, "0180004F0070FFFF", true, kUntouched, 1, u"Op"},
        {"GSM refused", DevDataDef::PRODUCT_TYPE_WCDMA, {{"13"}, {"13"}}, nullptr, false, 13, 9, u"kept"},
        {"long name cut", DevDataDef::PRODUCT_TYPE_WCDMA, {{"1", "0", longName, ""}}, nullptr, true, kUntouched, 1,
         std::u16string(23, u'N')},
        {"CDMA lower-case marker, then ROM", DevDataDef::PRODUCT_TYPE_CDMA,
         {{"1", "0", "ffffffffffffffffffffffffffffffff", "2"}, {"3", "0", "Cdma", "2"}}, nullptr, true, kUntouched, 3,
         u"Cdma"},
        {"CDMA UCS2", DevDataDef::PRODUCT_TYPE_CDMA, {{"1", "0", "03A9", "4"}}, nullptr, true, kUntouched, 1, u"\u03A9"},
        {"CDMA unknown coding", DevDataDef::PRODUCT_TYPE_CDMA, {{"1", "0", "Name", "7"}}, nullptr, true, kUntouched, 1,
         u""},
        {"CDMA ROM refused", DevDataDef::PRODUCT_TYPE_CDMA, {{"13"}, {"13"}}, nullptr, false, kUntouched, 9, u"kept"},
        {"CDMA no ^SPN", DevDataDef::PRODUCT_TYPE_CDMA, {{"13"}, {"4"}}, "004F", true, kUntouched, 0, u"O"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        deviceService.SetProductType(row.kind);
        const bool cdma = row.kind == DevDataDef::PRODUCT_TYPE_CDMA;
        for (size_t i = 0; i < row.spn.size(); ++i) {
            const std::string storage = std::to_string((cdma ? 2 : 1) + (cdma ? 1 : -1) * static_cast<int>(i));
            testkit::Expectation& e = processor.Expect("^SPN", AtForm::Set).With({storage});
            if (row.spn[i].size() == 1) {
                e.Fail(std::stoul(row.spn[i][0]));
            } else {
                e.Answer(row.spn[i]);
            }
        }
        if (row.file != nullptr) {
            processor.Expect("+CRSM", AtForm::Set).With({"176", "28486", "0", "0", "17"}).Answer({"144", "0", row.file});
        }
        SSpnDataType spn;
        spn.btDisplay = 9;
        spn.SpnData[0] = u'k', spn.SpnData[1] = u'e', spn.SpnData[2] = u'p', spn.SpnData[3] = u't';
        unsigned long err = kUntouched;
        EXPECT_EQ(Service()->SRVGetSpnData(&spn, &err), row.result);
        EXPECT_EQ(err, row.err);
        EXPECT_EQ(spn.btDisplay, row.display);
        EXPECT_EQ(Text(spn.SpnData), row.text);
    }
}

}  // namespace
