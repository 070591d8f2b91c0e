#include "StateLines.h"

#include <algorithm>

namespace modemsim {

namespace {

constexpr int32_t kServiceNone = 0;
constexpr int32_t kServicePowerSaving = 4;

constexpr int32_t kTdCsqOffset = 100;
constexpr int32_t kTdCsqUnknown = 199;
constexpr int32_t kCsqUnknown = 99;
constexpr int32_t kCsqMax = 31;

// +CREG=<n>: 2 adds the location, 3 the cause of a rejection as well.
constexpr int32_t kReportLocation = 2;
constexpr int32_t kReportCause = 3;

}  // namespace

std::vector<std::string> HcsqTexts(const ModemState& state)
{
    const int32_t status = state.network.serviceStatus;
    if (status == kServiceNone || status == kServicePowerSaving || state.signal.hcsq.empty()) {
        return {"\"NOSERVICE\""};
    }
    std::vector<std::string> texts;
    for (const HcsqLine& line : state.signal.hcsq) {
        std::string text = "\"" + line.sysmode + "\"";
        for (int32_t value : line.values) {
            text += "," + std::to_string(value);
        }
        texts.push_back(std::move(text));
    }
    return texts;
}

std::string ModeText(const ModeInfo& mode)
{
    std::string text = std::to_string(mode.sysinfoSysMode);
    if (mode.sysinfoSubMode) {
        text += "," + std::to_string(*mode.sysinfoSubMode);
    }
    return text;
}

std::string RegistrationFields(const RegistrationInfo& registration)
{
    std::string text = std::to_string(registration.stat);
    if (registration.reportMode < kReportLocation) {
        return text;
    }
    // Not registered and not searching: there is no cell to name.
    const bool bLocation =
        registration.stat != 0 && (!registration.lac.empty() || !registration.cellId.empty());
    const bool bCause = registration.reportMode >= kReportCause && registration.causeType &&
                        registration.rejectCause;
    if (bLocation) {
        text += ",\"" + registration.lac + "\",\"" + registration.cellId + "\"";
        if (registration.act) {
            text += "," + std::to_string(*registration.act);
        }
    }
    if (bCause) {
        // The cause comes after the location and technology, in their places
        // even when they are not known.
        if (!bLocation) {
            text += ",,";
        }
        if (!bLocation || !registration.act) {
            text += ",";
        }
        text += "," + std::to_string(*registration.causeType) + "," +
                std::to_string(*registration.rejectCause);
    }
    return text;
}

bool IsTdScdmaCsq(int32_t rssi)
{
    return rssi >= kTdCsqOffset && rssi <= kTdCsqUnknown;
}

int32_t CsqScaleRssi(int32_t rssi)
{
    if (!IsTdScdmaCsq(rssi)) {
        return rssi;
    }
    if (rssi == kTdCsqUnknown) {
        return kCsqUnknown;
    }
    // TD-SCDMA step n is -116 + n dBm; +CSQ step m is -113 + 2m dBm.
    const int32_t step = rssi - kTdCsqOffset;
    return std::min(std::max(step - 3, 0) / 2, kCsqMax);
}

}  // namespace modemsim
