#include "RegistrationView.h"

#include "NamedNumber.h"
#include "Names.h"
#include "OutputText.h"
#include "TextColumns.h"

namespace netsrvctl {

namespace {
using NETSRV_DATA::RegStateReport;

// The area and cell of a record: up to the terminator, printable.
std::string Field(const char (&field)[16])
{
    return FieldText(field, sizeof(field));
}

void AddPlace(nlohmann::ordered_json* pJson, const RegDomainInfo& info, int64_t state,
              const std::string& area, const std::string& cell)
{
    (*pJson)["state"] = state;
    (*pJson)["state_name"] = RegistrationStateText(state);
    if (!area.empty()) {
        (*pJson)[info.areaKey] = area;
    }
    if (!cell.empty()) {
        (*pJson)["cell_id"] = cell;
    }
}

std::string PsAttachText(int64_t value)
{
    return NameOr(PsAttachName(value), "unknown");
}

// A line of a domain: "CS state: ...". An empty value was not reported.
std::string DomainLine(const RegDomainInfo& info, const char* pszWhat, const std::string& value,
                       bool bShowMissing)
{
    return ReadingLine(std::string(info.label) + " " + pszWhat,
                       value.empty() ? std::nullopt : std::optional<std::string>(value),
                       bShowMissing);
}

std::string DomainText(const RegDomainInfo& info, const std::optional<RegStateReport>& reading,
                       bool bShowMissing)
{
    if (!reading) {
        return DomainLine(info, "state", "", bShowMissing);
    }
    return DomainLine(info, "report mode", std::to_string(reading->ReportMode), bShowMissing) +
           DomainLine(info, "state",
                      NumberAndName(reading->ReportState,
                                    RegistrationStateText(reading->ReportState)),
                      bShowMissing) +
           DomainLine(info, info.areaLabel, Field(reading->LacCode), bShowMissing) +
           DomainLine(info, "cell id", Field(reading->CellID), bShowMissing);
}

std::string Printable(const std::string& text)
{
    return FieldText(text.c_str(), text.size());
}
}  // namespace

std::string RegistrationStateText(int64_t state)
{
    return NameOr(RegistrationStateName(state), "state " + std::to_string(state));
}

nlohmann::ordered_json RegistrationJson(const RegistrationReadings& readings)
{
    nlohmann::ordered_json json = nlohmann::ordered_json::object();
    for (const RegDomainInfo& info : RegDomains()) {
        const std::optional<RegStateReport>& reading =
            readings.domains[static_cast<size_t>(info.domain)];
        if (!reading) {
            continue;
        }
        nlohmann::ordered_json domain = {{"report_mode", reading->ReportMode}};
        AddPlace(&domain, info, reading->ReportState, Field(reading->LacCode),
                 Field(reading->CellID));
        json[info.key] = domain;
    }
    if (readings.psAttach) {
        json["ps_attach"] = *readings.psAttach;
        json["ps_attach_name"] = PsAttachText(*readings.psAttach);
    }
    return json;
}

std::string RegistrationText(const RegistrationReadings& readings, bool bShowMissing)
{
    std::string text;
    for (const RegDomainInfo& info : RegDomains()) {
        text += DomainText(info, readings.domains[static_cast<size_t>(info.domain)],
                           bShowMissing);
    }
    const std::optional<int64_t>& attach = readings.psAttach;
    return text + ReadingLine("PS attach",
                              attach ? NumberAndName(*attach, PsAttachText(*attach))
                                     : std::optional<std::string>(),
                              bShowMissing);
}

nlohmann::ordered_json RegistrationEventJson(const RegistrationReport& report)
{
    const RegDomainInfo& info = InfoOf(report.domain);
    nlohmann::ordered_json json = {{"event", "registration"}, {"domain", info.key}};
    AddPlace(&json, info, report.state, Printable(report.area), Printable(report.cell));
    return json;
}

std::string RegistrationEventText(const RegistrationReport& report)
{
    const RegDomainInfo& info = InfoOf(report.domain);
    std::string text =
        std::string(info.key) + " registration: " + RegistrationStateText(report.state);
    if (!report.area.empty()) {
        text += std::string(", ") + info.areaKey + " " + Printable(report.area);
    }
    if (!report.cell.empty()) {
        text += ", cell " + Printable(report.cell);
    }
    return text;
}

}  // namespace netsrvctl
