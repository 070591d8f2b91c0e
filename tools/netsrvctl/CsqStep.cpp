#include "CsqStep.h"

#include <string>
#include <vector>

#include "AtFields.h"
#include "FieldNumber.h"
#include "StateLines.h"

namespace netsrvctl {

namespace {
const int kNotKnown = 99;
const int kRssiMax = 31;
const int kBerMax = 7;

int OnScale(int value, int max)
{
    return value >= 0 && value <= max ? value : kNotKnown;
}
}  // namespace

std::optional<CsqStep> ParseCsqAnswer(std::string_view text)
{
    const std::vector<std::string> fields = host::SplitAtFields(text);
    if (fields.size() < 2) {
        return std::nullopt;
    }
    const std::optional<int> rssi = WholeNumber(fields[0]);
    const std::optional<int> ber = WholeNumber(fields[1]);
    if (!rssi || !ber) {
        return std::nullopt;
    }
    CsqStep step;
    // The conversion by dBm is shared with the simulator, whose TD-SCDMA
    // modem reports the same step in ^RSSI; other values pass unchanged.
    step.rssi = OnScale(modemsim::CsqScaleRssi(*rssi), kRssiMax);
    step.ber = OnScale(*ber, kBerMax);
    return step;
}

std::optional<int> RssiDbm(int step)
{
    if (step < 0 || step > kRssiMax) {
        return std::nullopt;
    }
    return -113 + 2 * step;
}

}  // namespace netsrvctl
