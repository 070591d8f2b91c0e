// What `config set` changes in the network configuration, checked against
// what the modem offers before anything is sent. Pure.
#ifndef NETSRVCTL_CONFIGCHANGE_H
#define NETSRVCTL_CONFIGCHANGE_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "Interface/NetSrvDef.h"
#include "OfferedBands.h"

namespace netsrvctl {

// The value of --band and --lte-band: a mask, or the modem's "all bands".
struct BandChoice {
    bool all = false;
    uint64_t mask = 0;
};

// "all" or a mask as ParseBandMask takes it; none for anything else.
std::optional<BandChoice> ParseBandChoice(std::string_view text);

struct ConfigChange {
    std::optional<std::string> acqOrder;   // an acquisition text, "030201"
    std::optional<BandChoice> band;
    std::optional<BandChoice> lteBand;
    std::optional<uint32_t> roam;          // 0..2, checked on the command line
    std::optional<uint32_t> domain;        // 0..4, checked on the command line

    bool Empty() const { return !acqOrder && !band && !lteBand && !roam && !domain; }
    // Whether checking it needs the modem's lists.
    bool NeedsOffer() const { return acqOrder || band || lteBand; }
};

// The configuration with the change made, everything else as it was read.
// False, with a one-line reason that lists what the modem offers, when the
// acquisition order, band or LTE band is not among the modem's (an order is
// offered when it is listed or when each of its systems is). A modem that
// lists no acquisition orders (one without ^SYSCFGEX) takes the orders that
// its older configuration can express: 01, 02, 0201, 0102 and 05. An order
// that reads as none (an older modem's automatic mode, which the service
// does not put into words) cannot be written back: the change must give one.
bool ApplyConfigChange(NETSRV_DATA::NetConfigurationExType* pConfig, const ConfigChange& change,
                       const ModemOffer& offer, std::string* pRefusal);

}  // namespace netsrvctl

#endif
