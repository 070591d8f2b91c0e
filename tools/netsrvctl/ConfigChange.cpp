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

bool ChooseAcqOrder(const std::string& acqOrder, const ModemOffer& offer, std::string* pRefusal)
{
    const bool bListed = !offer.acqOrders.empty();
    const std::vector<std::string>& orders = bListed ? offer.acqOrders : OlderModemAcqOrders();
    if (std::find(orders.begin(), orders.end(), acqOrder) != orders.end()) {
        return true;
    }
    *pRefusal = "--mode " + acqOrder + ": " +
                (bListed ? "the modem offers " : "the modem lists no acquisition orders; its "
                                                 "configuration takes ") +
                JoinedOrders(orders);
    return false;
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
                    ", or several of them together";
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
        if (!ChooseAcqOrder(*change.acqOrder, offer, pRefusal)) {
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
