#include "ConfigView.h"

#include <optional>

#include "AcquisitionOrder.h"
#include "BandMask.h"
#include "NamedNumber.h"
#include "Names.h"
#include "OutputText.h"
#include "TextColumns.h"

namespace netsrvctl {

namespace {
std::string AcqOrderOf(const NETSRV_DATA::NetConfigurationExType& config)
{
    return FieldText(config.szAcqorder, sizeof(config.szAcqorder));
}

// "030201 - LTE, then WCDMA, then GSM"; a text without a name alone.
std::string AcqOrderText(const std::string& acqOrder)
{
    const std::optional<std::string> name = AcqOrderName(acqOrder);
    return name ? acqOrder + " - " + *name : acqOrder;
}

// "3FFFFFFF - All bands"; a mask the lists do not name alone.
std::string MaskText(uint64_t mask, const std::vector<OfferedBand>* pOffered)
{
    const std::optional<std::string> name =
        pOffered != nullptr ? BandMaskName(mask, *pOffered) : std::nullopt;
    return name ? BandMaskText(mask) + " - " + *name : BandMaskText(mask);
}

nlohmann::ordered_json OfferedBandsJson(const std::vector<OfferedBand>& offered)
{
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const OfferedBand& band : offered) {
        list.push_back({{"mask", BandMaskText(band.mask)}, {"name", band.name}});
    }
    return list;
}
}  // namespace

nlohmann::ordered_json ConfigJson(const NETSRV_DATA::NetConfigurationExType& config)
{
    nlohmann::ordered_json json = nlohmann::ordered_json::object();
    const std::string acqOrder = AcqOrderOf(config);
    if (!acqOrder.empty()) {
        json["acq_order"] = acqOrder;
        if (const std::optional<std::string> name = AcqOrderName(acqOrder)) {
            json["acq_order_name"] = *name;
        }
    }
    json["band"] = BandMaskText(config.dwBand);
    AddNamed(&json, "roam", config.dwRoam, RoamSettingName(config.dwRoam));
    AddNamed(&json, "domain", config.dwDomain, DomainSettingName(config.dwDomain));
    if (config.dwLteBand != 0) {
        json["lte_band"] = BandMaskText(config.dwLteBand);
        json["lte_bands"] = LteBandNumbers(config.dwLteBand);
    }
    return json;
}

std::string ConfigText(const NETSRV_DATA::NetConfigurationExType& config,
                       const ModemOffer* pOffer)
{
    const std::string acqOrder = AcqOrderOf(config);
    std::optional<std::string> lteBand;
    std::optional<std::string> lteNumbers;
    if (config.dwLteBand != 0) {
        lteBand = MaskText(config.dwLteBand, pOffer != nullptr ? &pOffer->lteBands : nullptr);
        lteNumbers = NumberRanges(LteBandNumbers(config.dwLteBand));
    }
    return ReadingLine("acquisition",
                       acqOrder.empty() ? std::nullopt
                                        : std::optional<std::string>(AcqOrderText(acqOrder))) +
           LabelledLine("band", MaskText(config.dwBand, pOffer != nullptr ? &pOffer->bands
                                                                          : nullptr)) +
           LabelledLine("roaming", *NamedReading(config.dwRoam, RoamSettingName)) +
           LabelledLine("domain", *NamedReading(config.dwDomain, DomainSettingName)) +
           ReadingLine("LTE band", lteBand) + ReadingLine("LTE bands", lteNumbers);
}

nlohmann::ordered_json BandsJson(const ModemOffer& offer)
{
    nlohmann::ordered_json json = nlohmann::ordered_json::object();
    if (!offer.bands.empty()) {
        json["bands"] = OfferedBandsJson(offer.bands);
    }
    if (!offer.lteBands.empty()) {
        json["lte_bands"] = OfferedBandsJson(offer.lteBands);
    }
    if (!offer.acqOrders.empty()) {
        json["acq_orders"] = offer.acqOrders;
    }
    return json;
}

std::string BandsText(const ModemOffer& offer)
{
    std::string text;
    for (const OfferedBand& band : offer.bands) {
        text += LabelledLine("band", BandMaskText(band.mask) + " - " + band.name);
    }
    for (const OfferedBand& band : offer.lteBands) {
        text += LabelledLine("LTE band", BandMaskText(band.mask) + " - " + band.name + " (" +
                                             NumberRanges(LteBandNumbers(band.mask)) + ")");
    }
    for (const std::string& acqOrder : offer.acqOrders) {
        text += LabelledLine("acquisition", AcqOrderText(acqOrder));
    }
    return text;
}

}  // namespace netsrvctl
