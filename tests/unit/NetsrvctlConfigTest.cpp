// netsrvctl's network configuration: the --mode argument and the names of
// acquisition orders, band masks and LTE band numbers, naming a mask from
// the modem's lists, the check of a change against what the modem offers,
// and the config and bands views. The lists are those of the shipped LTE
// profile's ^SYSCFGEX=? answer and of a ^SYSCFG=? answer with single bands.

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "AcquisitionOrder.h"
#include "BandMask.h"
#include "ConfigChange.h"
#include "ConfigView.h"
#include "OfferedBands.h"

namespace {

using namespace netsrvctl;
using NETSRV_DATA::NetConfigurationExType;

const ModemOffer kLteOffer = {
    {{0x2000004E80380, "GSM850/GSM900/GSM1800/GSM1900/WCDMA850/WCDMA900/WCDMA1900/WCDMA2100"},
     {0x3FFFFFFF, "All Bands"}},
    {{0x800C5, "LTE2100/LTE1800/LTE2600/LTE900/LTE800"}, {0x7FFFFFFFFFFFFFFF, "All bands"}},
    {"00", "03", "02", "01", "99"}};
// An older modem: bands alone, one band an entry.
const ModemOffer kSingleBandOffer = {
    {{0x80, "GSM1800"}, {0x80000, "GSM850"}, {0x400000, "WCDMA2100"}}, {}, {}};

TEST(NetsrvctlAcquisitionOrder, ModeArgumentsAndNames)
{
    const struct {
        const char* argument;
        const char* acqOrder;   // null: refused
        const char* name;
    } rows[] = {
        {"auto", "00", "automatic"},
        {"00", "00", "automatic"},
        {"lte", "03", "LTE"},
        {"cdma", "04", "CDMA 1X"},
        {"td-scdma", "05", "TD-SCDMA"},
        {"lte,wcdma,gsm", "030201", "LTE, then WCDMA, then GSM"},
        {"030201", "030201", "LTE, then WCDMA, then GSM"},
        {"wimax,evdo", "0607", "WiMAX, then EV-DO"},
        {"", nullptr, nullptr},
        {"LTE", nullptr, nullptr},
        {"lte,,gsm", nullptr, nullptr},
        {"lte,", nullptr, nullptr},
        {"lte,auto", nullptr, nullptr},
        {"lte,lte", nullptr, nullptr},
        {"0303", nullptr, nullptr},
        {"0001", nullptr, nullptr},
        {"031", nullptr, nullptr},
        {"08", nullptr, nullptr},
        {"4g", nullptr, nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.argument);
        const auto acqOrder = AcqOrderOfModeArgument(row.argument);
        ASSERT_EQ(acqOrder.has_value(), row.acqOrder != nullptr) << *acqOrder;
        if (acqOrder) {
            EXPECT_EQ(*acqOrder, row.acqOrder);
            EXPECT_EQ(AcqOrderName(*acqOrder).value_or("(none)"), row.name);
        }
    }
    // What a modem reports but no argument gives: a name, or none.
    EXPECT_EQ(AcqOrderName("0303").value_or("(none)"), "LTE, then LTE");
    for (const char* text : {"99", "", "0", "0099"}) {
        EXPECT_FALSE(AcqOrderName(text)) << text;
    }
}

TEST(NetsrvctlBandMask, HexadecimalMasksAndLteBandNumbers)
{
    const struct {
        const char* text;
        uint64_t mask;
        bool bTaken;
    } rows[] = {
        {"3FFFFFFF", 0x3FFFFFFF, true},
        {"3fffffff", 0x3FFFFFFF, true},
        {"0x800c5", 0x800C5, true},
        {"0X1", 1, true},
        {"FFFFFFFFFFFFFFFF", UINT64_MAX, true},
        {"00000000000000000080", 0x80, true},
        {"10000000000000000", 0, false},
        {"", 0, false},
        {"0x", 0, false},
        {"-1", 0, false},
        {"+1", 0, false},
        {" 1", 0, false},
        {"1 ", 0, false},
        {"0x0x1", 0, false},
        {"G", 0, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const auto mask = ParseBandMask(row.text);
        ASSERT_EQ(mask.has_value(), row.bTaken);
        if (mask) {
            EXPECT_EQ(*mask, row.mask);
        }
    }
    for (const uint64_t mask : {uint64_t{0}, uint64_t{0x800C5}, uint64_t{1} << 63, UINT64_MAX}) {
        EXPECT_EQ(ParseBandMask(BandMaskText(mask)), mask);
    }
    EXPECT_EQ(BandMaskText(0x2000004E80380), "2000004E80380");
    EXPECT_EQ(BandMaskText(0), "0");

    EXPECT_EQ(LteBandNumbers(0x800C5), (std::vector<int>{1, 3, 7, 8, 20}));
    EXPECT_EQ(LteBandNumbers(uint64_t{1} << 63), std::vector<int>{64});
    EXPECT_EQ(LteBandNumbers(0x7FFFFFFFFFFFFFFF).size(), 63u);
    EXPECT_EQ(NumberRanges({1, 3, 7, 8, 20}), "1, 3, 7, 8, 20");
    EXPECT_EQ(NumberRanges(LteBandNumbers(0x7FFFFFFFFFFFFFFF)), "1-63");
    EXPECT_EQ(NumberRanges({1, 2, 4, 5, 6, 9}), "1, 2, 4-6, 9");
    EXPECT_EQ(NumberRanges({}), "");
}

TEST(NetsrvctlOfferedBands, NamesAllBandsAndWhatIsOffered)
{
    const struct {
        uint64_t mask;
        const ModemOffer& offer;
        const char* name;   // null: no name
        bool bOffered;
    } rows[] = {
        {0x3FFFFFFF, kLteOffer, "All Bands", true},
        {0x2000004E80380, kLteOffer, "GSM850/GSM900/GSM1800/GSM1900/WCDMA850/WCDMA900/"
                                     "WCDMA1900/WCDMA2100", true},
        // Two group entries together are offered, but have no name of their own.
        {0x2000004E80380 | 0x3FFFFFFF, kLteOffer, nullptr, true},
        // Any part of what the lists hold is offered, named or not.
        {0x80, kLteOffer, nullptr, true},
        {0x4000000000000000, kLteOffer, nullptr, false},
        {0x80080, kSingleBandOffer, "GSM1800, GSM850", true},
        {0x80081, kSingleBandOffer, "GSM1800, GSM850 and unlisted 1", false},
        {0x1, kSingleBandOffer, nullptr, false},
        {0, kSingleBandOffer, nullptr, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(BandMaskText(row.mask));
        EXPECT_EQ(BandMaskName(row.mask, row.offer.bands).value_or("(none)"),
                  row.name != nullptr ? row.name : "(none)");
        EXPECT_EQ(IsOfferedMask(row.mask, row.offer.bands), row.bOffered);
    }
    EXPECT_EQ(AllBandsMask(kLteOffer.bands), 0x3FFFFFFFu);
    EXPECT_EQ(AllBandsMask(kLteOffer.lteBands), 0x7FFFFFFFFFFFFFFFu);
    EXPECT_EQ(AllBandsMask(kSingleBandOffer.bands), 0x480080u);
    EXPECT_FALSE(AllBandsMask({}));

    NETSRV_DATA::BandInfo entry;
    entry.dwBand = 0x80;
    std::memset(entry.szBandName, 'G', sizeof(entry.szBandName));   // no terminator
    NETSRV_DATA::BandList list;
    list.pstList = &entry;
    list.nSize = 1;
    ASSERT_EQ(OfferedBandsOf(list).size(), 1u);
    EXPECT_EQ(OfferedBandsOf(list)[0].name, std::string(256, 'G'));
    list.nSize = -1;
    EXPECT_TRUE(OfferedBandsOf(list).empty());
}

NetConfigurationExType Config(const char* pszAcqOrder, uint64_t band, uint32_t roam,
                              uint32_t domain, uint64_t lteBand)
{
    NetConfigurationExType config;
    std::strncpy(config.szAcqorder, pszAcqOrder, sizeof(config.szAcqorder) - 1);
    config.dwBand = band;
    config.dwRoam = roam;
    config.dwDomain = domain;
    config.dwLteBand = lteBand;
    return config;
}

TEST(NetsrvctlConfigChange, ChangesWhatTheModemOffersAndRefusesTheRest)
{
    const NetConfigurationExType lteModem = Config("00", 0x3FFFFFFF, 1, 2, 0x7FFFFFFFFFFFFFFF);
    const NetConfigurationExType olderModem = Config("0201", 0x80, 1, 2, 0);
    const NetConfigurationExType automaticOlderModem = Config("", 0x80, 1, 2, 0);
    const ModemOffer none;
    auto change = [](const char* mode, const char* band, const char* lteBand) {
        ConfigChange c;
        c.acqOrder = mode != nullptr ? AcqOrderOfModeArgument(mode) : std::nullopt;
        c.band = band != nullptr ? ParseBandChoice(band) : std::nullopt;
        c.lteBand = lteBand != nullptr ? ParseBandChoice(lteBand) : std::nullopt;
        return c;
    };
    ConfigChange roamAndDomain;
    roamAndDomain.roam = 0;
    roamAndDomain.domain = 4;
    const struct {
        const NetConfigurationExType& config;
        const ModemOffer& offer;
        ConfigChange change;
        const char* json;   // what ConfigJson shows after the change; null: refused
        const char* refusal;
    } rows[] = {
        {lteModem, kLteOffer, change("lte", "2000004e80380", "800c5"),
         R"J({"acq_order":"03","acq_order_name":"LTE","band":"2000004E80380","lte_band":"800C5",)J"
         R"J("lte_bands":[1,3,7,8,20]})J",
         ""},
        {lteModem, kLteOffer, change(nullptr, "all", "all"),
         R"J({"acq_order":"00","band":"3FFFFFFF","lte_band":"7FFFFFFFFFFFFFFF"})J", ""},
        {lteModem, kLteOffer, roamAndDomain, R"J({"roam":0,"roam_name":"roaming not allowed","domain":4,"domain_name":"no change"})J", ""},
        // Not listed whole, but each of its systems is.
        {lteModem, kLteOffer, change("lte,wcdma,gsm", nullptr, nullptr),
         R"J({"acq_order":"030201","acq_order_name":"LTE, then WCDMA, then GSM"})J", ""},
        {lteModem, kLteOffer, change("lte,cdma", nullptr, nullptr), nullptr,
         "--mode 0304: the modem offers 00, 03, 02, 01, 99, or several of its systems in order"},
        // The mode was offered; the band is not, and nothing changes.
        {lteModem, kLteOffer, change("lte", "4000000000000080", nullptr), nullptr,
         "--band 4000000000000080: the modem offers 2000004E80380 (GSM850/GSM900/GSM1800/"
         "GSM1900/WCDMA850/WCDMA900/WCDMA1900/WCDMA2100), 3FFFFFFF (All Bands), or any part "
         "of them"},
        {olderModem, kSingleBandOffer, change("gsm", "480000", nullptr),
         R"J({"acq_order":"01","acq_order_name":"GSM","band":"480000"})J", ""},
        {olderModem, kSingleBandOffer, change("auto", nullptr, nullptr), nullptr,
         "--mode 00: the modem lists no acquisition orders; its configuration takes 01, 02, "
         "0201, 0102, 05"},
        // Only a listed order, not its systems one by one.
        {olderModem, kSingleBandOffer, change("gsm,wcdma,td-scdma", nullptr, nullptr), nullptr,
         "--mode 010205: the modem lists no acquisition orders; its configuration takes 01, "
         "02, 0201, 0102, 05"},
        // An automatic older modem reads as no order, which cannot be kept.
        {automaticOlderModem, kSingleBandOffer, roamAndDomain, nullptr,
         "the modem's acquisition order reads as none and cannot be written back: give --mode; "
         "the modem lists no acquisition orders; its configuration takes 01, 02, 0201, 0102, "
         "05"},
        {olderModem, kSingleBandOffer, change(nullptr, nullptr, "1"), nullptr,
         "--lte-band 1: the modem lists no LTE bands"},
        {olderModem, none, change(nullptr, "all", nullptr), nullptr,
         "--band all: the modem lists no bands"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.refusal);
        NetConfigurationExType config = row.config;
        std::string refusal;
        const bool bApplied = ApplyConfigChange(&config, row.change, row.offer, &refusal);
        EXPECT_EQ(refusal, row.refusal);
        ASSERT_EQ(bApplied, row.json != nullptr);
        // What the row names changed, everything else as it was.
        nlohmann::json expected = nlohmann::json::parse(ConfigJson(row.config).dump());
        if (bApplied) {
            expected.merge_patch(nlohmann::json::parse(row.json));
        }
        EXPECT_EQ(nlohmann::json::parse(ConfigJson(config).dump()), expected);
    }
}

TEST(NetsrvctlConfigView, ConfigurationAndOffer)
{
    const struct {
        const char* from;
        NetConfigurationExType config;
        const ModemOffer* pOffer;
        const char* json;
        const char* text;
    } rows[] = {
        {"LTE modem", Config("030201", 0x3FFFFFFF, 1, 2, 0x800C5), &kLteOffer,
         R"J({"acq_order":"030201","acq_order_name":"LTE, then WCDMA, then GSM",)J"
         R"J("band":"3FFFFFFF","roam":1,"roam_name":"roaming allowed","domain":2,)J"
         R"J("domain_name":"CS and PS","lte_band":"800C5","lte_bands":[1,3,7,8,20]})J",
         "acquisition:      030201 - LTE, then WCDMA, then GSM\n"
         "band:             3FFFFFFF - All Bands\n"
         "roaming:          1 - roaming allowed\n"
         "domain:           2 - CS and PS\n"
         "LTE band:         800C5 - LTE2100/LTE1800/LTE2600/LTE900/LTE800\n"
         "LTE bands:        1, 3, 7, 8, 20\n"},
        // Without ^SYSCFGEX: no LTE mask; an order the conversion did not know
        // is empty. Without lists the masks stand alone.
        {"older modem", Config("", 0x80080, 7, 4, 0), nullptr,
         R"J({"band":"80080","roam":7,"domain":4,"domain_name":"no change"})J",
         "acquisition:      not reported\n"
         "band:             80080\n"
         "roaming:          7 - unknown\n"
         "domain:           4 - no change\n"
         "LTE band:         not reported\n"
         "LTE bands:        not reported\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.from);
        EXPECT_EQ(ConfigJson(row.config).dump(), row.json);
        EXPECT_EQ(ConfigText(row.config, row.pOffer), row.text);
    }
    // An order without a name, a mask named by the single bands it holds.
    const std::string text = ConfigText(Config("99", 0x80080, 1, 2, 0), &kSingleBandOffer);
    EXPECT_EQ(text.rfind("acquisition:      99\nband:             80080 - GSM1800, GSM850\n",
                         0),
              0u)
        << text;

    EXPECT_EQ(BandsJson(kSingleBandOffer).dump(),
              R"J({"bands":[{"mask":"80","name":"GSM1800"},{"mask":"80000","name":"GSM850"},)J"
              R"J({"mask":"400000","name":"WCDMA2100"}]})J");
    ModemOffer lteOnly;
    lteOnly.lteBands = {kLteOffer.lteBands[0]};
    lteOnly.acqOrders = {"00", "99"};
    EXPECT_EQ(BandsJson(lteOnly).dump(),
              R"J({"lte_bands":[{"mask":"800C5","name":"LTE2100/LTE1800/LTE2600/LTE900/)J"
              R"J(LTE800"}],"acq_orders":["00","99"]})J");
    EXPECT_EQ(BandsText(lteOnly),
              "LTE band:         800C5 - LTE2100/LTE1800/LTE2600/LTE900/LTE800 "
              "(1, 3, 7, 8, 20)\n"
              "acquisition:      00 - automatic\n"
              "acquisition:      99\n");
}

}  // namespace
