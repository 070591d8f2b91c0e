// Network mode and bands: the three generations of the configuration command,
// the device kind that picks between them, the conversions of the fall-backs,
// and the band lists that the service owns until a client hands them back.

#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "NetSrvAcqOrder.h"
#include "NetSrvBandList.h"
#include "ServiceFixture.h"
#include "TraceSrv.h"

namespace {

using namespace NETSRV_DATA;
using testkit::AtForm;

const unsigned long kUntouched = 777;
const char* const kNoDeviceService = "CNetSrvImpl IDeviceService pointer is null";
const char* const kNoProcessor = "CNetSrvImpl IProcess pointer is null";

class NetConfig : public ServiceFixture {
protected:
    void UseDeviceKind(int iKind) { deviceService.SetProductType(iKind); }
};

TEST(AcqOrderText, BothTablesWhole)
{
    const struct {
        const char* text;
        DWORD mode;
        DWORD order;
        bool backToText;   // the pair gives the text again
    } rows[] = {
        {"01", GSM_ONLY, 1, true},        {"02", WCDMA_ONLY, 2, true},
        {"0201", AUTO, 2, true},          {"0102", AUTO, 1, true},
        {"05", TD_SCDMA_ONLY, 2, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        DWORD mode = 99, order = 99;
        ASSERT_TRUE(ModeAndOrderOfAcqText(row.text, mode, order));
        EXPECT_EQ(mode, row.mode);
        EXPECT_EQ(order, row.order);
        EXPECT_STREQ(AcqTextOfModeAndOrder(row.mode, row.order), row.text);
    }
    // Texts the older command cannot express leave mode and order alone.
    for (const char* text : {"00", "03", "0302", "1", "010", "", "0201 "}) {
        DWORD mode = 99, order = 98;
        EXPECT_FALSE(ModeAndOrderOfAcqText(text, mode, order)) << text;
        EXPECT_EQ(mode, 99u);
        EXPECT_EQ(order, 98u);
    }
    // Only the mode decides, except for automatic; GSM preferred has no text.
    EXPECT_STREQ(AcqTextOfModeAndOrder(GSM_ONLY, 0), "01");
    EXPECT_STREQ(AcqTextOfModeAndOrder(TD_SCDMA_ONLY, 1), "05");
    EXPECT_EQ(AcqTextOfModeAndOrder(AUTO, 0), nullptr);
    EXPECT_EQ(AcqTextOfModeAndOrder(GSM_PREFER, 1), nullptr);
    EXPECT_EQ(AcqTextOfModeAndOrder(16, 2), nullptr);
}

TEST(BandGroup, PairsOfMaskAndName)
{
    const struct {
        const char* group;
        std::vector<std::pair<uint64_t, std::string>> bands;
    } rows[] = {
        {"((80000,\"GSM850\"),(3FFFFFFF,\"All bands\"))",
         {{0x80000, "GSM850"}, {0x3FFFFFFF, "All bands"}}},
        // Sixteen digits keep all 64 bits; the parse stops at the first non-digit.
        {"((7fffffffffffffff,\"All bands\"),(800c5x1,\"LTE\"))",
         {{0x7FFFFFFFFFFFFFFFull, "All bands"}, {0x800C5, "LTE"}}},
        // An unpaired last item is not a band.
        {"((80000,\"GSM850\"),(400000))", {{0x80000, "GSM850"}}},
        {"(1)", {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.group);
        BandList list;
        ASSERT_TRUE(ParseBandGroup(row.group, list));
        ASSERT_EQ(list.nSize, static_cast<int16_t>(row.bands.size()));
        for (size_t i = 0; i < row.bands.size(); ++i) {
            EXPECT_EQ(list.pstList[i].dwBand, row.bands[i].first);
            EXPECT_EQ(list.pstList[i].szBandName, row.bands[i].second);
        }
        EmptyList(list);
    }
    BandList untouched;
    EXPECT_FALSE(ParseBandGroup("()", untouched));
    EXPECT_FALSE(ParseBandGroup("", untouched));
    EXPECT_EQ(untouched.pstList, nullptr);

    // A name longer than its field is cut and terminated.
    BandList longName;
    ASSERT_TRUE(ParseBandGroup("((1,\"" + std::string(300, 'B') + "\"))", longName));
    EXPECT_EQ(std::strlen(longName.pstList[0].szBandName), 255u);
    EmptyList(longName);

    AcqOrderList orders;
    ASSERT_TRUE(ParseAcqOrderGroup("(\"00\",\"0201\",03)", orders));
    ASSERT_EQ(orders.nSize, 3);
    EXPECT_STREQ(orders.pstList[0].szAcqOrder, "00");
    EXPECT_STREQ(orders.pstList[1].szAcqOrder, "0201");
    EXPECT_STREQ(orders.pstList[2].szAcqOrder, "03");
    EXPECT_STREQ(orders.pstList[1].szAcqOrderName, "");
    EmptyList(orders);
}

// Every operation that talks to the modem checks, in this order: the error
// word, its record, the processor, and (reads and sets only) the device service.
TEST_F(NetConfig, PrologueOrder)
{
    NetConfigurationType config;
    NetConfigurationExType configEx;
    BandList bands, lte;
    AcqOrderList orders;
    struct Op {
        const char* name;
        std::function<bool(unsigned long*, bool bRecord)> call;
        bool hasRecord;
        bool asksDevice;
    };
    const Op ops[] = {
        {"SRVGetNetConfiguration",
         [&](unsigned long* e, bool r) { return Service()->SRVGetNetConfiguration(r ? &config : nullptr, e); },
         true, true},
        {"SRVGetNetConfigurationEx",
         [&](unsigned long* e, bool r) { return Service()->SRVGetNetConfigurationEx(r ? &configEx : nullptr, e); },
         true, true},
        {"SRVSetNetConfiguration",
         [&](unsigned long* e, bool) { return Service()->SRVSetNetConfiguration(config, e); }, false, true},
        {"SRVSetNetConfigurationEx",
         [&](unsigned long* e, bool) { return Service()->SRVSetNetConfigurationEx(configEx, e); }, false, true},
        {"SRVGetBandList",
         [&](unsigned long* e, bool r) { return Service()->SRVGetBandList(r ? &bands : nullptr, e); }, true, false},
        {"SRVGetBandListEx",
         [&](unsigned long* e, bool r) {
             return Service()->SRVGetBandListEx(r ? &bands : nullptr, &lte, &orders, e);
         },
         true, false},
    };
    for (const Op& op : ops) {
        SCOPED_TRACE(op.name);
        EXPECT_FALSE(op.call(nullptr, true));
        unsigned long err = kUntouched;
        if (op.hasRecord) {
            EXPECT_FALSE(op.call(&err, false));
            EXPECT_EQ(err, NETSRV_ERROR_BAD_PARAM);
        }

        container.Register(IDEVICESERVICE_INTERFACE_ID, IDEVICESERVICE_INTERFACE_NO, nullptr);
        container.Register(IPROCESSOR_INTERFACE_ID, IPROCESSOR_INTERFACE_NO, nullptr);
        traces.Clear();
        err = kUntouched;
        EXPECT_FALSE(op.call(&err, true));
        EXPECT_EQ(err, kUntouched);
        EXPECT_TRUE(traces.Contains(kNoProcessor, TL_ERRO));
        EXPECT_FALSE(traces.Contains(kNoDeviceService));

        container.Register(IPROCESSOR_INTERFACE_ID, IPROCESSOR_INTERFACE_NO,
                           static_cast<IProcessor*>(&processor));
        traces.Clear();
        if (op.asksDevice) {
            // The extended ones fall back, and the older one stops there too.
            EXPECT_FALSE(op.call(&err, true));
            EXPECT_EQ(err, kUntouched);
            EXPECT_TRUE(traces.Contains(kNoDeviceService, TL_ERRO));
        }
        container.Register(IDEVICESERVICE_INTERFACE_ID, IDEVICESERVICE_INTERFACE_NO,
                           static_cast<IDeviceService*>(&deviceService));
    }
    EXPECT_TRUE(processor.Calls().empty());
}

TEST_F(NetConfig, ExtendedReadPassesTheReservedTextsThrough)
{
    processor.Expect("^SYSCFGEX", AtForm::Read)
        .Answer({"0302", "3FFFFFFF", "1", "2", "800C5", "r1", "r2"});
    NetConfigurationExType config;
    unsigned long err = kUntouched;
    ASSERT_TRUE(Service()->SRVGetNetConfigurationEx(&config, &err));
    EXPECT_STREQ(config.szAcqorder, "0302");
    EXPECT_EQ(config.dwLteBand, 0x800C5u);
    EXPECT_STREQ(config.szReserved1, "r1");
    EXPECT_STREQ(config.szReserved2, "r2");
}

// A modem without "^SYSCFGEX" answers the older reading, converted; after an
// older reading that fails too, the caller finds the converted zero record.
TEST_F(NetConfig, ExtendedReadFallsBack)
{
    const char* const kSyscfgFailed = "SRVGetNetConfiguration() ReadNetworkCfgCmd error";
    const char* const kSysconfigFailed = "SRVGetNetConfiguration() ReadNetworkConfigCmd error";
    const struct {
        int kind;
        bool exTried;
        const char* older;
        std::vector<std::string> answer;   // empty: the older reading fails with 13
        const char* acq;
        uint64_t band;
        const char* failTrace;
    } rows[] = {
        {DevDataDef::PRODUCT_TYPE_WCDMA, true, "^SYSCFG", {"2", "1", "400380", "1", "2"}, "0102", 0x400380, nullptr},
        {DevDataDef::PRODUCT_TYPE_CDMA, true, "^SYSCFG", {"1", "2", "400380", "1", "2"}, "kept", 0x400380, nullptr},
        {DevDataDef::PRODUCT_TYPE_TD_SCDMA, false, "^SYSCONFIG", {"15", "2", "1", "2"}, "05", 0x3FFFFFFF, nullptr},
        {DevDataDef::PRODUCT_TYPE_WCDMA, true, "^SYSCFG", {}, "kept", 0, kSyscfgFailed},
        {DevDataDef::PRODUCT_TYPE_TD_SCDMA, false, "^SYSCONFIG", {}, "kept", 0, kSysconfigFailed},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.older);
        UseDeviceKind(row.kind);
        if (row.exTried) {
            processor.Expect("^SYSCFGEX", AtForm::Read).Fail(50);
        }
        if (row.answer.empty()) {
            processor.Expect(row.older, AtForm::Read).Fail(13);
        } else {
            processor.Expect(row.older, AtForm::Read).Answer(row.answer);
        }
        NetConfigurationExType config;
        std::strcpy(config.szAcqorder, "kept");
        std::strcpy(config.szReserved1, "x");
        std::strcpy(config.szReserved2, "y");
        config.dwLteBand = 5;
        config.dwRoam = 9;
        unsigned long err = kUntouched;
        traces.Clear();
        EXPECT_EQ(Service()->SRVGetNetConfigurationEx(&config, &err), row.failTrace == nullptr);
        EXPECT_STREQ(config.szAcqorder, row.acq);
        EXPECT_EQ(config.dwBand, row.band);
        EXPECT_EQ(config.dwRoam, row.answer.empty() ? 0u : 1u);
        EXPECT_EQ(config.dwLteBand, 0u);
        EXPECT_STREQ(config.szReserved1, "");
        EXPECT_STREQ(config.szReserved2, "");
        // The word holds the last failure's code.
        EXPECT_EQ(err, row.answer.empty() ? 13u : row.exTried ? 50u : kUntouched);
        EXPECT_EQ(traces.Contains("GetNetConfigurationEx() ReadNetworkCfgExCmd error", TL_ERRO),
                  row.exTried);
        for (const char* trace : {kSyscfgFailed, kSysconfigFailed}) {
            EXPECT_EQ(traces.Contains(trace, TL_ERRO), trace == row.failTrace) << trace;
        }
        EXPECT_TRUE(traces.Contains("SRVGetNetConfigurationEx: Enter!", TL_INFO));
        EXPECT_TRUE(traces.Contains("SRVGetNetConfigurationEx: Leaved!", TL_INFO));
    }
}

TEST_F(NetConfig, SetsGoOutInTheirCommandsForm)
{
    const auto ex = [](const char* acq, uint64_t lte) {
        NetConfigurationExType c;
        std::strcpy(c.szAcqorder, acq);
        c.dwBand = 0x3FFFFFFF;
        c.dwRoam = 1;
        c.dwDomain = 2;
        c.dwLteBand = lte;
        std::strcpy(c.szReserved1, "a");
        return c;
    };
    const struct {
        const char* name;
        int kind;
        NetConfigurationExType config;
        bool exFails;
        const char* at;
        std::vector<std::string> params;
    } rows[] = {
        {"extended", DevDataDef::PRODUCT_TYPE_WCDMA, ex("0302", 0x800C5), false, "^SYSCFGEX",
         {"\"0302\"", "3fffffff", "1", "2", "800c5", "\"a\"", "\"\""}},
        // LTE mask 0: the field goes out empty and the modem keeps its LTE bands.
        {"no LTE change", DevDataDef::PRODUCT_TYPE_WCDMA, ex("00", 0), false, "^SYSCFGEX",
         {"\"00\"", "3fffffff", "1", "2", "", "\"a\"", "\"\""}},
        {"older", DevDataDef::PRODUCT_TYPE_WCDMA, ex("0102", 0x800C5), true, "^SYSCFG",
         {"2", "1", "3fffffff", "1", "2"}},
        // A text the older command cannot say leaves mode and order 0.
        {"older, automatic", DevDataDef::PRODUCT_TYPE_CDMA, ex("00", 0), true, "^SYSCFG",
         {"0", "0", "3fffffff", "1", "2"}},
        {"TD-SCDMA", DevDataDef::PRODUCT_TYPE_TD_SCDMA, ex("05", 0), false, "^SYSCONFIG",
         {"15", "2", "1", "2"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        UseDeviceKind(row.kind);
        if (row.exFails) {
            processor.Expect("^SYSCFGEX", AtForm::Set).Fail(100);
        }
        processor.Expect(row.at, AtForm::Set).With(row.params).Ok();
        unsigned long err = kUntouched;
        traces.Clear();
        EXPECT_TRUE(Service()->SRVSetNetConfigurationEx(row.config, &err));
        EXPECT_EQ(err, row.exFails ? 100u : kUntouched);
        EXPECT_TRUE(traces.Contains("SRVSetNetConfigurationEx: Enter!", TL_INFO));
        EXPECT_TRUE(traces.Contains("SRVGetNetConfigurationEx: Leaved!", TL_INFO));
    }

    // A refused older set: the code in both words, no trace of its own.
    processor.Expect("^SYSCFG", AtForm::Set).Fail(50);
    UseDeviceKind(DevDataDef::PRODUCT_TYPE_WCDMA);
    NetConfigurationType older;
    unsigned long err = 0;
    traces.Clear();
    EXPECT_FALSE(Service()->SRVSetNetConfiguration(older, &err));
    EXPECT_EQ(err, 50u);
    EXPECT_EQ(Service()->GetLastError(), 50);
    EXPECT_EQ(traces.Lines().size(), 0u);
}

TEST_F(NetConfig, BandListsAndTheirRelease)
{
    processor.Expect("^SYSCFGEX", AtForm::Test)
        .Answer({"(\"00\",\"03\")", "((2000004e80380,\"GSM/WCDMA\"),(3fffffff,\"All Bands\"))",
                 "(0-3)", "(0-4)", "((800c5,\"LTE\"),(7fffffffffffffff,\"All bands\"))"});
    BandList bands, lte;
    AcqOrderList orders;
    unsigned long err = kUntouched;
    ASSERT_TRUE(Service()->SRVGetBandListEx(&bands, &lte, &orders, &err));
    ASSERT_EQ(bands.nSize, 2);
    EXPECT_EQ(bands.pstList[0].dwBand, 0x2000004E80380u);
    EXPECT_STREQ(bands.pstList[1].szBandName, "All Bands");
    ASSERT_EQ(lte.nSize, 2);
    EXPECT_EQ(lte.pstList[1].dwBand, 0x7FFFFFFFFFFFFFFFu);
    ASSERT_EQ(orders.nSize, 2);
    EXPECT_STREQ(orders.pstList[1].szAcqOrder, "03");
    EXPECT_TRUE(traces.Contains("SRVGetBandList() success!", TL_ERRO));

    // A list the caller holds empty is not released: the band array stays.
    BandList heldEmpty;
    ASSERT_TRUE(Service()->SRVReleaseBandListEx(&heldEmpty, &lte, &orders, &err));
    EXPECT_EQ(lte.nSize, 0);
    EXPECT_EQ(lte.pstList, nullptr);
    EXPECT_EQ(orders.pstList, nullptr);
    EXPECT_EQ(bands.pstList[0].dwBand, 0x2000004E80380u);   // still the service's array

    // The older release frees the service's array whatever the caller holds.
    BandList other;
    ASSERT_TRUE(Service()->SRVReleaseBandList(&other, &err));
    EXPECT_EQ(other.nSize, 0);
    EXPECT_EQ(other.pstList, nullptr);
    EXPECT_EQ(err, kUntouched);

    EXPECT_FALSE(Service()->SRVReleaseBandList(&other, nullptr));
    EXPECT_FALSE(Service()->SRVReleaseBandListEx(&other, nullptr, &orders, &err));
    EXPECT_EQ(err, NETSRV_ERROR_BAD_PARAM);
}

// An empty LTE group, and a modem with only the older test form: the extended
// lists read as empty and keep the pointers the caller had.
TEST_F(NetConfig, BandListsThatTheModemCannotFill)
{
    AcqOrderInfo callersOrder;
    BandInfo callersBand;
    BandList bands, lte;
    AcqOrderList orders;
    lte.nSize = 7;
    lte.pstList = &callersBand;
    orders.nSize = 7;
    orders.pstList = &callersOrder;
    processor.Expect("^SYSCFGEX", AtForm::Test)
        .Answer({"(\"00\")", "((3fffffff,\"All Bands\"))", "(0-3)", "(0-4)", "()"});
    unsigned long err = kUntouched;
    ASSERT_TRUE(Service()->SRVGetBandListEx(&bands, &lte, &orders, &err));
    EXPECT_EQ(bands.nSize, 1);
    EXPECT_EQ(lte.nSize, 0);
    EXPECT_EQ(lte.pstList, &callersBand);
    EXPECT_EQ(orders.nSize, 1);
    ASSERT_TRUE(Service()->SRVReleaseBandListEx(&bands, &lte, &orders, &err));

    lte.nSize = 7;
    orders.nSize = 7;
    processor.Expect("^SYSCFGEX", AtForm::Test).Fail(100);
    processor.Expect("^SYSCFG", AtForm::Test)
        .Answer({"(2,13,14,16)", "(0)", "((280000,\"GSM850/GSM1900\"),(3fffffff,\"All bands\"))",
                 "(0-2)", "(0-4)"});
    traces.Clear();
    ASSERT_TRUE(Service()->SRVGetBandListEx(&bands, &lte, &orders, &err));
    EXPECT_EQ(err, 100u);
    EXPECT_TRUE(traces.Contains("GetBandListEx() TestNetworkCfgCmd error", TL_ERRO));
    ASSERT_EQ(bands.nSize, 2);
    EXPECT_STREQ(bands.pstList[0].szBandName, "GSM850/GSM1900");
    EXPECT_EQ(lte.nSize, 0);
    EXPECT_EQ(orders.nSize, 0);

    // Asked again without a release: a fresh array, the old one still readable.
    const BandInfo* pFirst = bands.pstList;
    processor.Expect("^SYSCFG", AtForm::Test).Answer({"(2)", "(0)", "((1,\"B\"))", "(0)", "(0)"});
    ASSERT_TRUE(Service()->SRVGetBandList(&bands, &err));
    EXPECT_NE(bands.pstList, pFirst);
    EXPECT_STREQ(pFirst[0].szBandName, "GSM850/GSM1900");

    processor.Expect("^SYSCFG", AtForm::Test).Fail(4);
    traces.Clear();
    EXPECT_FALSE(Service()->SRVGetBandList(&bands, &err));
    EXPECT_EQ(err, 4u);
    EXPECT_TRUE(traces.Contains("SRVGetBandList() TestNetworkCfgCmd error", TL_ERRO));
}

}  // namespace
