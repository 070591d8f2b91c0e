// The three registration domains and the reports a modem sends about them
// when their report switch is on. Pure.
//
// In report mode 1 or 2 a modem reports "+CREG: <stat>[,<lac>,<ci>[,<act>]]"
// (+CGREG for the packet domain, +CEREG for LTE, whose area is a tracking
// area): the state comes first, unlike the read answer "+CREG: <n>,<stat>..."
// that starts with the report mode.
#ifndef NETSRVCTL_REGISTRATIONREPORT_H
#define NETSRVCTL_REGISTRATIONREPORT_H

#include <optional>
#include <string>
#include <vector>

namespace netsrvctl {

enum class RegDomain { Cs, Ps, Eps };

struct RegDomainInfo {
    RegDomain domain;
    const char* key;       // "cs": the command word and the JSON key
    const char* label;     // "CS": the text views' label
    const char* report;    // "+CREG": the modem's report
    const char* areaKey;   // "lac", or "tac" for LTE
    const char* areaLabel; // "LAC", "TAC"
};

// The three domains, CS, PS, EPS, in that order.
const std::vector<RegDomainInfo>& RegDomains();
const RegDomainInfo& InfoOf(RegDomain domain);

struct RegistrationReport {
    RegDomain domain = RegDomain::Cs;
    int state = 0;
    std::string area;   // as the modem gave it; empty when it gave none
    std::string cell;
};

// The report named `name` with the fields the processor split from it. None
// for a name that is no registration report, and for a report without a
// whole-number state (a modem's garbled line is not taken for a state).
// Fields after the cell (the access technology, a reject cause) are not kept.
std::optional<RegistrationReport> ParseRegistrationReport(const std::string& name,
                                                          const std::vector<std::string>& fields);

}  // namespace netsrvctl

#endif
