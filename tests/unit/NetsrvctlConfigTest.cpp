// netsrvctl's network configuration: the --mode argument, acquisition-order
// names, band masks and LTE band numbers, naming a mask from the modem's
// lists, the check of a change against what the modem offers, and the views.
// The lists are the shipped LTE profile's ^SYSCFGEX=? answer and a ^SYSCFG=?
// answer of single bands.

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
        {"auto", "00", "automatic"}, {"00", "00", "automatic"}, {"cdma", "04", "CDMA 1X"},
        {"lte,wcdma,gsm", "030201", "LTE, then WCDMA, then GSM"},
        {"030201", "030201", "LTE, then WCDMA, then GSM"},
        {"td-scdma,evdo", "0507", "TD-SCDMA, then EV-DO"},
        {"", nullptr, nullptr},       {"LTE", nullptr, nullptr},  {"lte,,gsm", nullptr, nullptr},
        {"lte,", nullptr, nullptr},   {"lte,auto", nullptr, nullptr},
        {"lte,lte", nullptr, nullptr}, {"0303", nullptr, nullptr}, {"0001", nullptr, nullptr},
        {"031", nullptr, nullptr},    {"08", nullptr, nullptr},
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
    // A modem's "no change" code and broken texts have no name.
    for (const char* text : {"99", "", "0", "0099"}) {
        EXPECT_FALSE(AcqOrderName(text)) << text;
    }
}

TEST(NetsrvctlBandMask, HexadecimalMasksAndLteBandNumbers)
{
    const struct {
        const char* text;
        std::optional<uint64_t> mask;
    } rows[] = {
        {"3fffffff", 0x3FFFFFFF}, {"0x800c5", 0x800C5}, {"0X1", 1},
        {"FFFFFFFFFFFFFFFF", UINT64_MAX}, {"00000000000000000080", 0x80},
        {"10000000000000000", std::nullopt}, {"", std::nullopt}, {"0x", std::nullopt},
        {"-1", std::nullopt}, {"+1", std::nullopt}, {" 1", std::nullopt},
        {"1 ", std::nullopt}, {"0x0x1", std::nullopt},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ParseBandMask(row.text), row.mask) << row.text;
    }
    for (const uint64_t mask : {uint64_t{0}, uint64_t{0x2000004E80380}, UINT64_MAX}) {
        EXPECT_EQ(ParseBandMask(BandMaskText(mask)), mask);
    }

    EXPECT_EQ(LteBandNumbers(0x800C5), (std::vector<int>{1, 3, 7, 8, 20}));
    EXPECT_EQ(LteBandNumbers(uint64_t{1} << 63), std::vector<int>{64});
    EXPECT_EQ(NumberRanges(LteBandNumbers(0x7FFFFFFFFFFFFFFF)), "1-63");
    EXPECT_EQ(NumberRanges({1, 2, 4, 5, 6, 9}), "1, 2, 4-6, 9");
}

TEST(NetsrvctlOfferedBands, NamesAllBandsAndWhatIsOffered)
{
    const struct {
        uint64_t mask;
        const ModemOffer& offer;
        const char* name;   // "": no name
        bool bOffered;
    } rows[] = {
        {0x3FFFFFFF, kLteOffer, "All Bands", true},
        // Any part of what the lists hold is offered, named or not.
        {0x80, kLteOffer, "", true},
        {0x4000000000000000, kLteOffer, "", false},
        {0x80080, kSingleBandOffer, "GSM1800, GSM850", true},
        {0x80081, kSingleBandOffer, "GSM1800, GSM850 and unlisted 1", false},
        {0, kSingleBandOffer, "", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(BandMaskText(row.mask));
        EXPECT_EQ(BandMaskName(row.mask, row.offer.bands).value_or(""), row.name);
        EXPECT_EQ(IsOfferedMask(row.mask, row.offer.bands), row.bOffered);
    }
    EXPECT_EQ(AllBandsMask(kLteOffer.bands), 0x3FFFFFFFu);
    EXPECT_EQ(AllBandsMask(kSingleBandOffer.bands), 0x480080u);
    EXPECT_FALSE(AllBandsMask({}));

    NETSRV_DATA::BandInfo entry;
    std::memset(entry.szBandName, 'G', sizeof(entry.szBandName));   // no terminator
    NETSRV_DATA::BandList list;
    list.pstList = &entry;
    list.nSize = 1;
    EXPECT_EQ(OfferedBandsOf(list).at(0).name, std::string(256, 'G'));
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

ConfigChange Change(const char* mode, const char* band, const char* lteBand)
{
    ConfigChange change;
    change.acqOrder = mode != nullptr ? AcqOrderOfModeArgument(mode) : std::nullopt;
    change.band = band != nullptr ? ParseBandChoice(band) : std::nullopt;
    change.lteBand = lteBand != nullptr ? ParseBandChoice(lteBand) : std::nullopt;
    return change;
}

TEST(NetsrvctlConfigChange, ChangesWhatTheModemOffersAndRefusesTheRest)
{
    const NetConfigurationExType lteModem = Config("00", 0x3FFFFFFF, 1, 2, 0x7FFFFFFFFFFFFFFF);
    const NetConfigurationExType olderModem = Config("0201", 0x80, 1, 2, 0);
    ConfigChange roam = Change(nullptr, nullptr, nullptr);
    roam.roam = 0;
    const char* const kOlderOrders =
        "the modem lists no acquisition orders; its configuration takes 01, 02, 0201, 0102, 05";
    const struct {
        const NetConfigurationExType& config;
        const ModemOffer& offer;
        ConfigChange change;
        const char* json;   // the fields that changed; null: refused
        std::string refusal;
    } rows[] = {
        // Not listed whole, but each of its systems is.
        {lteModem, kLteOffer, Change("lte,wcdma,gsm", "80", "all"),
         R"J({"acq_order":"030201","acq_order_name":"LTE, then WCDMA, then GSM","band":"80"})J",
         ""},
        {lteModem, kLteOffer, Change(nullptr, "all", "800c5"),
         R"J({"lte_band":"800C5","lte_bands":[1,3,7,8,20]})J", ""},
        // The mode was offered; the band is not, and nothing changes.
        {lteModem, kLteOffer, Change("lte", nullptr, "8000000000000000"), nullptr,
         "--lte-band 8000000000000000: the modem offers 800C5 (LTE2100/LTE1800/LTE2600/"
         "LTE900/LTE800), 7FFFFFFFFFFFFFFF (All bands), or any part of them"},
        {olderModem, kSingleBandOffer, Change("gsm", "all", nullptr),
         R"J({"acq_order":"01","acq_order_name":"GSM","band":"480080"})J", ""},
        // Only a listed order, not its systems one by one.
        {olderModem, kSingleBandOffer, Change("gsm,wcdma,td-scdma", nullptr, nullptr), nullptr,
         std::string("--mode 010205: ") + kOlderOrders},
        // An automatic older modem reads as no order, which cannot be kept.
        {Config("", 0x80, 1, 2, 0), kSingleBandOffer, roam, nullptr,
         std::string("the modem's acquisition order reads as none and cannot be written back: "
                     "give --mode; ") + kOlderOrders},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.refusal);
        NetConfigurationExType config = row.config;
        std::string refusal;
        const bool bApplied = ApplyConfigChange(&config, row.change, row.offer, &refusal);
        EXPECT_EQ(refusal, row.refusal);
        ASSERT_EQ(bApplied, row.json != nullptr);
        nlohmann::json expected = nlohmann::json::parse(ConfigJson(row.config).dump());
        expected.merge_patch(nlohmann::json::parse(bApplied ? row.json : "{}"));
        EXPECT_EQ(nlohmann::json::parse(ConfigJson(config).dump()), expected);
    }
}

TEST(NetsrvctlConfigView, ConfigurationAndOffer)
{
    // Without ^SYSCFGEX: no LTE mask, and an order the service did not put
    // into words is empty; a roaming value outside the table has no name.
    // Without lists the masks stand alone.
    const NetConfigurationExType older = Config("", 0x80080, 7, 4, 0);
    EXPECT_EQ(ConfigText(older, nullptr),
              "acquisition:      not reported\n"
              "band:             80080\n"
              "roaming:          7 - unknown\n"
              "domain:           4 - no change\n"
              "LTE band:         not reported\n"
              "LTE bands:        not reported\n");
    const std::string named = ConfigText(Config("99", 0x80080, 1, 2, 0), &kSingleBandOffer);
    EXPECT_EQ(named.rfind("acquisition:      99\nband:             80080 - GSM1800, GSM850\n",
                          0),
              0u)
        << named;

    ModemOffer lteOnly;
    lteOnly.lteBands = {kLteOffer.lteBands[0]};
    lteOnly.acqOrders = {"00", "99"};
    EXPECT_EQ(BandsText(lteOnly),
              "LTE band:         800C5 - LTE2100/LTE1800/LTE2600/LTE900/LTE800 "
              "(1, 3, 7, 8, 20)\n"
              "acquisition:      00 - automatic\n"
              "acquisition:      99\n");
}

}  // namespace
