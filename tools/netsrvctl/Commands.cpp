#include "Commands.h"

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "AtCodec/IProcessor.h"
#include "CommandOutcome.h"
#include "OutputText.h"
#include "SignalView.h"
#include "StatusView.h"
#include "TextColumns.h"

namespace netsrvctl {

namespace {
// As long as the service gives its own signal queries.
const unsigned long kCsqTimeoutMs = 30000;

Outcome ReadStatus(ToolHost& host)
{
    Outcome outcome;
    NETSRV_DATA::SystemInfo info;
    if (!host.NetSrv()->SRVGetSystemInfoEx(info)) {
        // This read hands out no error word; the processor keeps the code of
        // the command that failed (the ^SYSINFO that ^SYSINFOEX fell back to).
        const int nLastError = host.Processor()->GetLastError();
        SetFailure(&outcome, "status", static_cast<unsigned long>(nLastError));
        return outcome;
    }
    outcome.json = StatusJson(info);
    outcome.text = StatusText(info);
    return outcome;
}

// Runs one signal query; the reading is kept only when the query succeeded.
// The error word of a query that found no usable data stays 0.
template <typename Record>
std::optional<Record> ReadOne(INetSrv* pNetSrv, bool (INetSrv::*query)(Record*, unsigned long*),
                             unsigned long* pdwError = nullptr)
{
    Record record;
    unsigned long dwError = 0;
    const bool bRead = (pNetSrv->*query)(&record, &dwError);
    if (pdwError != nullptr) {
        *pdwError = dwError;
    }
    return bRead ? std::optional<Record>(record) : std::nullopt;
}

// "+CSQ" is read here rather than through the service: see CsqStep.h.
std::optional<CsqStep> ReadCsq(ToolHost& host)
{
    std::vector<std::string> lines;
    unsigned long dwError = 0;
    if (!host.Processor()->ExecuteText("AT+CSQ", "+CSQ", &lines, &dwError, kCsqTimeoutMs) ||
        lines.empty()) {
        return std::nullopt;
    }
    return ParseCsqAnswer(lines.front());
}

Outcome ReadSignal(ToolHost& host)
{
    INetSrv* pNetSrv = host.NetSrv();
    SignalReadings readings;
    unsigned long dwPercentError = 0;
    if (const auto rssi = ReadOne(pNetSrv, &INetSrv::SRVGetCurRSSI, &dwPercentError)) {
        readings.percent = rssi->btRSSIPercent;
    }
    // Every other query would wait out its own time-out on a silent modem.
    if (readings.percent || StatusOfErrorWord(dwPercentError) != EXIT_NO_MODEM) {
        readings.csq = ReadCsq(host);
        readings.quality = ReadOne(pNetSrv, &INetSrv::SRVGetSignalQuality);
        readings.lte = ReadOne(pNetSrv, &INetSrv::SRVGetLteSignalQuality);
        readings.lteCell = ReadOne(pNetSrv, &INetSrv::SRVGetLteScInfo);
        if (const auto level = ReadOne(pNetSrv, &INetSrv::SRVGetAntennaLevel)) {
            readings.antennaLevel = level->wLevel;
        }
        if (const auto evdo = ReadOne(pNetSrv, &INetSrv::SRVGetHdrRssiInfo)) {
            readings.evdoPercent = evdo->btRSSIPercent;
        }
    }

    Outcome outcome;
    outcome.json = SignalJson(readings);
    outcome.text = SignalText(readings);
    if (!readings.percent) {
        SetFailure(&outcome, "signal", dwPercentError);
    }
    return outcome;
}
}  // namespace

ExitStatus RunPluginInfo(ToolHost& host, const OutputOptions& out, std::ostream& os)
{
    IBasePlugin* pPlugin = host.Plugin();
    const unsigned long version = pPlugin->GetVersion();
    const char* type = pPlugin->GetPluginType() == IBasePlugin::OPERATION ? "OPERATION" : "UI";
    if (out.json) {
        os << JsonLine(nlohmann::ordered_json{{"name", pPlugin->GetPluginName()},
                                              {"clsid", pPlugin->GetCLSID()},
                                              {"version", version},
                                              {"type", type},
                                              {"allow_release", pPlugin->IsAllowRelease()}})
           << "\n";
        return EXIT_OK;
    }
    os << LabelledLine("name", pPlugin->GetPluginName())
       << LabelledLine("clsid", pPlugin->GetCLSID())
       << LabelledLine("version", std::to_string(version >> 8) + "." +
                                      std::to_string(version & 0xFF) + " (" +
                                      std::to_string(version) + ")")
       << LabelledLine("type", type)
       << LabelledLine("allow release", pPlugin->IsAllowRelease() ? "yes" : "no");
    return EXIT_OK;
}

ExitStatus RunLastErr(ToolHost& host, unsigned long dwType, const OutputOptions& out,
                      std::ostream& os, std::ostream& err)
{
    NETSRV_DATA::SRV_LAST_ERROR lastErr;
    lastErr.type = dwType;
    unsigned long dwError = 0;
    if (!host.NetSrv()->SRVGetLastErr(&lastErr, &dwError)) {
        return ReportFailure("lasterr", dwError, out, os, err);
    }
    if (out.json) {
        os << JsonLine(nlohmann::ordered_json{{"type", lastErr.type}, {"code", lastErr.code}})
           << "\n";
    } else {
        os << LabelledLine("type", std::to_string(lastErr.type))
           << LabelledLine("code", std::to_string(lastErr.code));
    }
    return EXIT_OK;
}

ExitStatus RunAddress(ToolHost& host, const OutputOptions& out, std::ostream& os,
                      std::ostream& err)
{
    typedef bool (INetSrv::*AddressQuery)(const char*, const char*, char*, int);
    struct Query {
        const char* label;
        AddressQuery query;
    };
    const Query queries[] = {
        {"ipv4", &INetSrv::SRVGetDynamicIP},
        {"dns", &INetSrv::SRVGetDynamicDNS},
        {"ipv6", &INetSrv::SRVGetDynamicIP6},
    };

    // An address that was not found is left out of the JSON object.
    nlohmann::ordered_json json = nlohmann::ordered_json::object();
    std::string text;
    for (const Query& q : queries) {
        char buffer[256] = {};
        // The reserved argument must be given; the service puts the current
        // link's name in its place.
        if ((host.NetSrv()->*q.query)("", "", buffer, sizeof(buffer) - 1)) {
            const std::string address = FieldText(buffer, sizeof(buffer));
            json[q.label] = address;
            text += LabelledLine(q.label, address);
        } else {
            text += LabelledLine(q.label, "(none)");
        }
    }
    os << (out.json ? JsonLine(json) + "\n" : text);
    if (json.empty()) {
        err << "netsrvctl: address: no address: no data link is connected\n";
        return EXIT_FAILED;
    }
    return EXIT_OK;
}

ExitStatus RunStatus(ToolHost& host, const OutputOptions& out, std::ostream& os,
                     std::ostream& err)
{
    return Print(ReadStatus(host), out, os, err);
}

ExitStatus RunSignal(ToolHost& host, const OutputOptions& out, std::ostream& os,
                     std::ostream& err)
{
    return Print(ReadSignal(host), out, os, err);
}

ExitStatus RunOverview(ToolHost& host, const OutputOptions& out, std::ostream& os,
                       std::ostream& err)
{
    const Outcome status = ReadStatus(host);
    // A silent or vanished modem would fail every signal query after its time-out.
    const bool bSignal = status.status != EXIT_NO_MODEM;
    const Outcome signal = bSignal ? ReadSignal(host) : Outcome();

    if (out.json) {
        nlohmann::ordered_json both = {{"status", status.json}};
        if (bSignal) {
            both["signal"] = signal.json;
        }
        os << JsonLine(both) << "\n";
    } else {
        os << status.text;
        if (bSignal) {
            os << (status.text.empty() ? "" : "\n") << signal.text;
        }
    }
    for (const Outcome* pOutcome : {&status, &signal}) {
        if (!pOutcome->errorLine.empty()) {
            err << pOutcome->errorLine << "\n";
        }
    }
    return status.status != EXIT_OK ? status.status : signal.status;
}

}  // namespace netsrvctl
