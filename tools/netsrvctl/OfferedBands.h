// What the modem offers for its configuration (the lists of ^SYSCFGEX=? or
// ^SYSCFG=?): bands and LTE bands as masks with the modem's names
// ("2000004E80380" GSM850/GSM900/..., "3FFFFFFF" All bands), and the
// acquisition orders. How a configured mask is named from those lists, and
// whether a mask is one the modem offers. Pure.
#ifndef NETSRVCTL_OFFEREDBANDS_H
#define NETSRVCTL_OFFEREDBANDS_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Interface/NetSrvDef.h"

namespace netsrvctl {

struct OfferedBand {
    uint64_t mask;
    std::string name;
};

struct ModemOffer {
    std::vector<OfferedBand> bands;
    std::vector<OfferedBand> lteBands;      // none on a modem without ^SYSCFGEX
    std::vector<std::string> acqOrders;     // none on a modem without ^SYSCFGEX
};

// Copies of the service's lists, names up to their terminator and printable.
// A negative count or a missing array is an empty list.
std::vector<OfferedBand> OfferedBandsOf(const NETSRV_DATA::BandList& list);
std::vector<std::string> AcqOrdersOf(const NETSRV_DATA::AcqOrderList& list);

// The name of a configured mask: the name of the listed mask equal to it;
// otherwise the names of the listed single-band masks it holds, in list
// order ("GSM900, GSM1800"), with the bits that none of them covers after
// them ("GSM900 and unlisted 4"). None when no listed mask names any of it.
std::optional<std::string> BandMaskName(uint64_t mask, const std::vector<OfferedBand>& offered);

// The modem's "All bands" entry: the listed mask whose name says all bands
// (in any case); without one, every listed mask together. None for an empty
// list.
std::optional<uint64_t> AllBandsMask(const std::vector<OfferedBand>& offered);

// A mask the modem offers lies within its listed masks: one of them, some
// together, or any part of them, as a modem takes any of its bands. 0 is
// none.
bool IsOfferedMask(uint64_t mask, const std::vector<OfferedBand>& offered);

// "2000004E80380 (GSM850/GSM900), 3FFFFFFF (All bands)", for a refusal.
std::string OfferedBandsText(const std::vector<OfferedBand>& offered);

}  // namespace netsrvctl

#endif
