#include "OfferedBands.h"

#include <cctype>

#include "BandMask.h"
#include "OutputText.h"

namespace netsrvctl {

namespace {
bool IsSingleBand(uint64_t mask)
{
    return mask != 0 && (mask & (mask - 1)) == 0;
}

bool SaysAllBands(const std::string& name)
{
    const std::string kAllBands = "all bands";
    if (name.size() != kAllBands.size()) {
        return false;
    }
    for (size_t i = 0; i < name.size(); ++i) {
        if (std::tolower(static_cast<unsigned char>(name[i])) != kAllBands[i]) {
            return false;
        }
    }
    return true;
}

// The list's count as a size: a negative count holds nothing.
template <typename List>
size_t EntriesOf(const List& list)
{
    return list.pstList != nullptr && list.nSize > 0 ? static_cast<size_t>(list.nSize) : 0;
}
}  // namespace

std::vector<OfferedBand> OfferedBandsOf(const NETSRV_DATA::BandList& list)
{
    std::vector<OfferedBand> bands;
    for (size_t i = 0; i < EntriesOf(list); ++i) {
        const NETSRV_DATA::BandInfo& entry = list.pstList[i];
        bands.push_back({entry.dwBand, FieldText(entry.szBandName, sizeof(entry.szBandName))});
    }
    return bands;
}

std::vector<std::string> AcqOrdersOf(const NETSRV_DATA::AcqOrderList& list)
{
    std::vector<std::string> orders;
    for (size_t i = 0; i < EntriesOf(list); ++i) {
        const NETSRV_DATA::AcqOrderInfo& entry = list.pstList[i];
        orders.push_back(FieldText(entry.szAcqOrder, sizeof(entry.szAcqOrder)));
    }
    return orders;
}

std::optional<std::string> BandMaskName(uint64_t mask, const std::vector<OfferedBand>& offered)
{
    for (const OfferedBand& band : offered) {
        if (band.mask == mask) {
            return band.name;
        }
    }
    std::string names;
    uint64_t named = 0;
    for (const OfferedBand& band : offered) {
        if (IsSingleBand(band.mask) && (mask & band.mask) != 0 && (named & band.mask) == 0) {
            names += (names.empty() ? "" : ", ") + band.name;
            named |= band.mask;
        }
    }
    if (names.empty()) {
        return std::nullopt;
    }
    const uint64_t unnamed = mask & ~named;
    return unnamed == 0 ? names : names + " and unlisted " + BandMaskText(unnamed);
}

std::optional<uint64_t> AllBandsMask(const std::vector<OfferedBand>& offered)
{
    uint64_t all = 0;
    for (const OfferedBand& band : offered) {
        if (SaysAllBands(band.name)) {
            return band.mask;
        }
        all |= band.mask;
    }
    return offered.empty() ? std::nullopt : std::optional<uint64_t>(all);
}

bool IsOfferedMask(uint64_t mask, const std::vector<OfferedBand>& offered)
{
    uint64_t all = 0;
    for (const OfferedBand& band : offered) {
        all |= band.mask;
    }
    return mask != 0 && (mask & ~all) == 0;
}

std::string OfferedBandsText(const std::vector<OfferedBand>& offered)
{
    std::string text;
    for (const OfferedBand& band : offered) {
        text += (text.empty() ? "" : ", ") + BandMaskText(band.mask) + " (" + band.name + ")";
    }
    return text;
}

}  // namespace netsrvctl
