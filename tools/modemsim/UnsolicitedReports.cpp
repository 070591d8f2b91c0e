// Reports are printed the way this family's firmware prints them: no blank
// after the colon ("^RSSI:17", "^MODE:5,9"), except for the 3GPP registration
// reports, which follow the standard's "+CREG: 1,...".

#include "UnsolicitedReports.h"

#include "StateLines.h"

namespace modemsim {

namespace {

// A modem reports its registration only when the host asked for it with
// AT+CREG=1 or 2 (+CGREG, +CEREG alike); the mode also says how much it tells.
std::vector<std::string> RegistrationReport(const char* prefix, const RegistrationInfo& domain)
{
    if (domain.reportMode == 0) {
        return {};
    }
    return {prefix + RegistrationFields(domain)};
}

}  // namespace

const std::vector<std::pair<const char*, ReportKind>>& ReportChoices()
{
    static const std::vector<std::pair<const char*, ReportKind>> choices = {
        {"^RSSI", ReportKind::Rssi},
        {"^RSSILVL", ReportKind::RssiLevel},
        {"^HRSSILVL", ReportKind::HdrRssiLevel},
        {"^ANLEVEL", ReportKind::AntennaLevel},
        {"^SRVST", ReportKind::ServiceStatus},
        {"^MODE", ReportKind::Mode},
        {"+CREG", ReportKind::Creg},
        {"+CGREG", ReportKind::Cgreg},
        {"+CEREG", ReportKind::Cereg},
        {"^HCSQ", ReportKind::Hcsq},
        {"^SIMREFRESH", ReportKind::SimRefresh},
        {"^PNNFILEREFRESH", ReportKind::PnnFileRefresh},
    };
    return choices;
}

std::vector<std::string> RenderReport(ReportKind kind, const ModemState& state)
{
    const SignalState& signal = state.signal;
    switch (kind) {
    case ReportKind::Rssi:
        // ^RSSI is on the +CSQ scale on every radio; a TD-SCDMA modem's
        // offset +CSQ reading is brought over to it.
        return {"^RSSI:" + std::to_string(CsqScaleRssi(signal.csq.rssi))};
    case ReportKind::RssiLevel:
        // CDMA cards report the 1x level that ^CSQLVL answers (0, 20 ... 80, 99).
        return {"^RSSILVL:" + std::to_string(signal.cdmaCsq.rssi)};
    case ReportKind::HdrRssiLevel:
        // ... and the EV-DO level that ^HDRCSQLVL answers.
        return {"^HRSSILVL:" + std::to_string(signal.hdrRssi)};
    case ReportKind::AntennaLevel:
        return {"^ANLEVEL:" + std::to_string(signal.antenna.rscp) + "," +
                std::to_string(signal.antenna.ecio) + "," + std::to_string(signal.antenna.rssi) +
                "," + std::to_string(signal.antenna.level)};
    case ReportKind::ServiceStatus:
        return {"^SRVST:" + std::to_string(state.network.serviceStatus)};
    case ReportKind::Mode:
        return {"^MODE:" + ModeText(state.network.mode)};
    case ReportKind::Creg:
        return RegistrationReport("+CREG: ", state.network.creg);
    case ReportKind::Cgreg:
        return RegistrationReport("+CGREG: ", state.network.cgreg);
    case ReportKind::Cereg:
        return RegistrationReport("+CEREG: ", state.network.cereg);
    case ReportKind::Hcsq: {
        std::vector<std::string> lines;
        for (const std::string& text : HcsqTexts(state)) {
            lines.push_back("^HCSQ:" + text);
        }
        return lines;
    }
    case ReportKind::SimRefresh:
        return {"^SIMREFRESH:" + std::to_string(state.sim.refreshFileType)};
    case ReportKind::PnnFileRefresh:
        // The report says only that the file changed; the host reads it again.
        return {"^PNNFILEREFRESH"};
    }
    return {};
}

}  // namespace modemsim
