#include "RegistrationReport.h"

#include "FieldNumber.h"

namespace netsrvctl {

const std::vector<RegDomainInfo>& RegDomains()
{
    static const std::vector<RegDomainInfo> domains = {
        {RegDomain::Cs, "cs", "CS", "+CREG", "lac", "LAC"},
        {RegDomain::Ps, "ps", "PS", "+CGREG", "lac", "LAC"},
        {RegDomain::Eps, "eps", "EPS", "+CEREG", "tac", "TAC"},
    };
    return domains;
}

const RegDomainInfo& InfoOf(RegDomain domain)
{
    return RegDomains()[static_cast<size_t>(domain)];
}

std::optional<RegistrationReport> ParseRegistrationReport(const std::string& name,
                                                          const std::vector<std::string>& fields)
{
    for (const RegDomainInfo& info : RegDomains()) {
        if (name != info.report) {
            continue;
        }
        const std::optional<int> state = fields.empty() ? std::nullopt : WholeNumber(fields[0]);
        if (!state || *state < 0) {
            return std::nullopt;
        }
        RegistrationReport report;
        report.domain = info.domain;
        report.state = *state;
        report.area = fields.size() > 1 ? fields[1] : "";
        report.cell = fields.size() > 2 ? fields[2] : "";
        return report;
    }
    return std::nullopt;
}

}  // namespace netsrvctl
