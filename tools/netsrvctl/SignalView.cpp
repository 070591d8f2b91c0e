#include "SignalView.h"

#include <algorithm>

#include "TextColumns.h"

namespace netsrvctl {

namespace {
const char* const kNotReported = "not reported";
// "+CSQ" gives 99 for an rssi or a bit error rate that it does not know.
const int kCsqUnknown = 99;
const int kBarCells = 10;

template <typename T, typename F>
std::string Shown(const std::optional<T>& reading, F format)
{
    return reading ? format(*reading) : kNotReported;
}

std::string CsqValue(int value)
{
    return std::to_string(value) + (value == kCsqUnknown ? " (not known)" : "");
}

std::string RssiValue(int step)
{
    const std::optional<int> dbm = RssiDbm(step);
    return dbm ? std::to_string(step) + " (" + std::to_string(*dbm) + " dBm)" : CsqValue(step);
}

std::string WithUnit(int value, const char* pszUnit)
{
    return std::to_string(value) + " " + pszUnit;
}
}  // namespace

std::string SignalBar(int percent)
{
    const int cells = std::min(kBarCells, std::max(0, (percent + 5) / 10));
    return "[" + std::string(static_cast<size_t>(cells), '#') +
           std::string(static_cast<size_t>(kBarCells - cells), '-') + "] " +
           std::to_string(percent) + "%";
}

nlohmann::ordered_json SignalJson(const SignalReadings& r)
{
    nlohmann::ordered_json json = nlohmann::ordered_json::object();
    if (r.percent) {
        json["signal_percent"] = *r.percent;
    }
    if (r.csq) {
        json["rssi"] = r.csq->rssi;
        if (const std::optional<int> dbm = RssiDbm(r.csq->rssi)) {
            json["rssi_dbm"] = *dbm;
        }
        if (r.csq->ber != kCsqUnknown) {
            json["ber"] = r.csq->ber;
        }
    }
    if (r.quality) {
        json["rscp"] = r.quality->nRSCP;
        json["ecio"] = r.quality->nECIO;
    }
    if (r.lte) {
        json["rsrp"] = r.lte->nRSRP;
        json["rsrq"] = r.lte->nRSRQ;
    }
    if (r.lteCell) {
        json["sinr"] = r.lteCell->dlsinr;
        json["pci"] = r.lteCell->pci;
        json["antennas"] = r.lteCell->numant;
    }
    if (r.antennaLevel) {
        json["antenna_level"] = *r.antennaLevel;
    }
    if (r.evdoPercent) {
        json["evdo_percent"] = *r.evdoPercent;
    }
    return json;
}

std::string SignalText(const SignalReadings& r)
{
    using NETSRV_DATA::Signal;
    std::string text;
    text += LabelledLine("signal", Shown(r.percent, SignalBar));
    text += LabelledLine("rssi", Shown(r.csq, [](const CsqStep& v) { return RssiValue(v.rssi); }));
    text += LabelledLine("ber", Shown(r.csq, [](const CsqStep& v) { return CsqValue(v.ber); }));
    text += LabelledLine(
        "RSCP", Shown(r.quality, [](const Signal& v) { return WithUnit(v.nRSCP, "dBm"); }));
    text += LabelledLine(
        "Ec/Io", Shown(r.quality, [](const Signal& v) { return WithUnit(v.nECIO, "dB"); }));
    text += LabelledLine(
        "RSRP", Shown(r.lte, [](const LteSignal& v) { return WithUnit(v.nRSRP, "dBm"); }));
    text += LabelledLine(
        "RSRQ", Shown(r.lte, [](const LteSignal& v) { return WithUnit(v.nRSRQ, "dB"); }));
    text += LabelledLine(
        "SINR", Shown(r.lteCell, [](const LteScInfo& v) { return WithUnit(v.dlsinr, "dB"); }));
    text += LabelledLine("LTE cell", Shown(r.lteCell, [](const LteScInfo& v) {
                             return "PCI " + std::to_string(v.pci) + ", " +
                                    std::to_string(v.numant) +
                                    (v.numant == 1 ? " antenna" : " antennas");
                         }));
    text += LabelledLine("antenna level", Shown(r.antennaLevel, [](int level) {
                             return std::to_string(level);
                         }));
    text += LabelledLine("EV-DO signal", Shown(r.evdoPercent, SignalBar));
    return text;
}

}  // namespace netsrvctl
