// Signal readings: +CSQ (every radio), ^HCSQ (one line per radio in use),
// ^CSNR and ^ANQUERY (WCDMA/TD-SCDMA), ^LTERSRP and ^LTESCINFO (LTE), ^CSQLVL
// and ^HDRCSQLVL (CDMA 1x and EV-DO levels). Each prints the state's values
// as they stand; a modem without the radio has the profile's "unknown"
// defaults, or lists the command as one it lacks.

#include <initializer_list>
#include <string>

#include "CommandHandlers.h"
#include "StateLines.h"

namespace modemsim {

namespace {

// An information line of numbers: NumbersLine("^CSNR", {-88, -9}) is "^CSNR: -88,-9".
std::string NumbersLine(const char* pszName, std::initializer_list<int32_t> values)
{
    std::string line = std::string(pszName) + ": ";
    const char* pszSeparator = "";
    for (int32_t value : values) {
        line += pszSeparator + std::to_string(value);
        pszSeparator = ",";
    }
    return line;
}

}  // namespace

// "+CSQ: 22,99"; a TD-SCDMA modem prints its offset form, "+CSQ: 140,99".
Reply HandleCsqBare(const Profile&, ModemState& state, const AtRequest&)
{
    const CsqValues& csq = state.signal.csq;
    return OkReply({NumbersLine("+CSQ", {csq.rssi, csq.ber})});
}

// The ranges of the scale the modem prints its reading on.
Reply HandleCsqTest(const Profile&, ModemState& state, const AtRequest&)
{
    return OkReply({IsTdScdmaCsq(state.signal.csq.rssi) ? "+CSQ: (100-191,199),(0-7,99)"
                                                         : "+CSQ: (0-31,99),(0-7,99)"});
}

// "^HCSQ: "LTE",52,46,191,22", one line per radio; "^HCSQ: "NOSERVICE"".
Reply HandleHcsqRead(const Profile&, ModemState& state, const AtRequest&)
{
    std::vector<std::string> lines;
    for (const std::string& text : HcsqTexts(state)) {
        lines.push_back("^HCSQ: " + text);
    }
    return OkReply(std::move(lines));
}

// "^CSNR: -88,-9": RSCP in dBm, Ec/Io in dB.
Reply HandleCsnrRead(const Profile&, ModemState& state, const AtRequest&)
{
    const CsnrValues& csnr = state.signal.csnr;
    return OkReply({NumbersLine("^CSNR", {csnr.rscp, csnr.ecio})});
}

// "^ANQUERY: -88,-9,17,3": RSCP, Ec/Io, rssi (+CSQ scale), antenna bars.
Reply HandleAnqueryRead(const Profile&, ModemState& state, const AtRequest&)
{
    const AntennaValues& antenna = state.signal.antenna;
    return OkReply({NumbersLine("^ANQUERY",
                                {antenna.rscp, antenna.ecio, antenna.rssi, antenna.level})});
}

// "^LTERSRP: -95,-9": RSRP in dBm, RSRQ in dB.
Reply HandleLteRsrpRead(const Profile&, ModemState& state, const AtRequest&)
{
    const LteRsrpValues& rsrp = state.signal.lteRsrp;
    return OkReply({NumbersLine("^LTERSRP", {rsrp.rsrp, rsrp.rsrq})});
}

// "^LTESCINFO: 301,18,2,5": physical cell id, downlink SINR in dB, antennas,
// downlink bandwidth index (5: 20 MHz).
Reply HandleLteScInfoRead(const Profile&, ModemState& state, const AtRequest&)
{
    const LteScInfo& info = state.signal.lteScInfo;
    return OkReply(
        {NumbersLine("^LTESCINFO", {info.pci, info.dlsinr, info.numant, info.dlbw})});
}

// "^CSQLVL: 60,99": the CDMA 1x level (0, 20, 40, 60, 80, 99) and the error rate.
Reply HandleCsqlvlBare(const Profile&, ModemState& state, const AtRequest&)
{
    const CsqValues& level = state.signal.cdmaCsq;
    return OkReply({NumbersLine("^CSQLVL", {level.rssi, level.ber})});
}

// "^HDRCSQLVL: 60": the EV-DO level on the same steps.
Reply HandleHdrcsqlvlBare(const Profile&, ModemState& state, const AtRequest&)
{
    return OkReply({NumbersLine("^HDRCSQLVL", {state.signal.hdrRssi})});
}

}  // namespace modemsim
