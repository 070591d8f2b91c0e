#include "ConfigChange.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "BandMask.h"

namespace netsrvctl {

namespace {
// The acquisition orders that the service can turn into an older modem's
// mode and order (^SYSCFG, ^SYSCONFIG); any other would reach the modem as
// no mode at all.
const std::vector<std::string>& OlderModemAcqOrders()
{
    static const std::vector<std::string> orders = {"01", "02", "0201", "0102", "05"};
    return orders;
}

std::string JoinedOrders(const std::vector<std::string>& orders)
{
    std::string text;
    for (const std::string& order : orders) {
        text += (text.empty() ? "" : ", ") + order;
    }
    return text;
}

// What the modem takes as its acquisition order, said for a refusal.
std::string AcqOrdersTaken(const ModemOffer& offer)
{
    return offer.acqOrders.empty()
               ? "the modem lists no acquisition orders; its configuration takes " +
                     JoinedOrders(OlderModemAcqOrders())
               : "the modem offers " + JoinedOrders(offer.acqOrders) +
                     ", or several of its systems in order";
}

// A listed order, or a run of systems each listed on its own ("030201"
// where "03", "02" and "01" are listed), as ^SYSCFGEX takes them.
bool IsOfferedAcqOrder(const std::string& acqOrder, const ModemOffer& offer)
{
    const std::vector<std::string>& orders =
        offer.acqOrders.empty() ? OlderModemAcqOrders() : offer.acqOrders;
    auto listed = [&orders](const std::string& order) {
        return std::find(orders.begin(), orders.end(), order) != orders.end();
    };
    if (listed(acqOrder)) {
        return true;
    }
    if (offer.acqOrders.empty() || acqOrder.size() % 2 != 0) {
        return false;
    }
    for (size_t i = 0; i < acqOrder.size(); i += 2) {
        if (!listed(acqOrder.substr(i, 2))) {
            return false;
        }
    }
    return true;
}

// The mask a band option stands for, when the modem offers it.
std::optional<uint64_t> ChooseMask(const char* pszOption, const char* pszBands,
                                   const BandChoice& choice,
                                   const std::vector<OfferedBand>& offered,
                                   std::string* pRefusal)
{
    const std::string shown =
        std::string(pszOption) + " " + (choice.all ? "all" : BandMaskText(choice.mask)) + ": ";
    if (offered.empty()) {
        *pRefusal = shown + "the modem lists no " + pszBands;
        return std::nullopt;
    }
    if (choice.all) {
        return AllBandsMask(offered);
    }
    if (!IsOfferedMask(choice.mask, offered)) {
        *pRefusal = shown + "the modem offers " + OfferedBandsText(offered) +
                    ", or any part of them";
        return std::nullopt;
    }
    return choice.mask;
}
}  // namespace

std::optional<BandChoice> ParseBandChoice(std::string_view text)
{
    BandChoice choice;
    if (text == "all") {
        choice.all = true;
        return choice;
    }
    const std::optional<uint64_t> mask = ParseBandMask(text);
    if (!mask) {
        return std::nullopt;
    }
    choice.mask = *mask;
    return choice;
}

bool ApplyConfigChange(NETSRV_DATA::NetConfigurationExType* pConfig, const ConfigChange& change,
                       const ModemOffer& offer, std::string* pRefusal)
{
    NETSRV_DATA::NetConfigurationExType changed = *pConfig;
    if (change.acqOrder) {
        if (!IsOfferedAcqOrder(*change.acqOrder, offer)) {
            *pRefusal = "--mode " + *change.acqOrder + ": " + AcqOrdersTaken(offer);
            return false;
        }
        std::memset(changed.szAcqorder, 0, sizeof(changed.szAcqorder));
        change.acqOrder->copy(changed.szAcqorder, sizeof(changed.szAcqorder) - 1);
    }
    if (change.band) {
        const auto mask = ChooseMask("--band", "bands", *change.band, offer.bands, pRefusal);
        if (!mask) {
            return false;
        }
        changed.dwBand = *mask;
    }
    if (change.lteBand) {
        const auto mask = ChooseMask("--lte-band", "LTE bands", *change.lteBand,
                                     offer.lteBands, pRefusal);
        if (!mask) {
            return false;
        }
        changed.dwLteBand = *mask;
    }
    if (changed.szAcqorder[0] == '\0') {
        // An older modem's order that the service could not put into words
        // (automatic, say) would be written back as no mode at all.
        *pRefusal = "the modem's acquisition order reads as none and cannot be written back: "
                    "give --mode; " + AcqOrdersTaken(offer);
        return false;
    }
    if (change.roam) {
        changed.dwRoam = *change.roam;
    }
    if (change.domain) {
        changed.dwDomain = *change.domain;
    }
    *pConfig = changed;
    return true;
}

}  // namespace netsrvctl
