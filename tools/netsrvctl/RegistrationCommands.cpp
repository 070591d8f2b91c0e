// netsrvctl registration, attach, detach and hspa: the registration and
// packet-domain state and switches, read and set through the service.

#include <nlohmann/json.hpp>

#include "CommandOutcome.h"
#include "Commands.h"
#include "HspaView.h"
#include "RegistrationView.h"
#include "TextColumns.h"

namespace netsrvctl {

using namespace NETSRV_DATA;

ExitStatus RunRegistration(ToolHost& host, const OutputOptions& out, std::ostream& os,
                           std::ostream& err)
{
    typedef bool (INetSrv::*RegQuery)(RegStateReport*, unsigned long*);
    // In the order of RegDomain.
    const RegQuery queries[] = {&INetSrv::SRVGetCSRegState, &INetSrv::SRVGetPSRegState,
                                &INetSrv::SRVGetLTEPSRegState};
    INetSrv* pNetSrv = host.NetSrv();
    ReadSeries reads;
    RegistrationReadings readings;
    for (size_t i = 0; i < RegDomains().size(); ++i) {
        RegStateReport report;
        if (reads.Try([&](unsigned long* pdwError) {
                return (pNetSrv->*queries[i])(&report, pdwError);
            })) {
            readings.domains[i] = report;
        }
    }
    PSState enAttach = PS_STAT_UNKNOW;
    if (reads.Try([&](unsigned long* pdwError) {
            return pNetSrv->SRVGetPSState(&enAttach, pdwError);
        })) {
        readings.psAttach = enAttach;
    }

    // The CS read was the first: when it failed, its failure is the one kept.
    return ReadingsDone(reads, readings.domains[static_cast<size_t>(RegDomain::Cs)].has_value(),
                        "registration", RegistrationJson(readings), RegistrationText(readings),
                        out, os, err);
}

ExitStatus RunRegistrationReport(ToolHost& host, RegDomain domain, int mode,
                                 const OutputOptions& out, std::ostream& os, std::ostream& err)
{
    INetSrv* pNetSrv = host.NetSrv();
    bool bSet = false;
    switch (domain) {
    case RegDomain::Cs:
        bSet = pNetSrv->SRVSetCSRegReport(mode);
        break;
    case RegDomain::Ps:
        bSet = pNetSrv->SRVSetPSRegReport(mode);
        break;
    case RegDomain::Eps:
        bSet = pNetSrv->SRVSetLTEPSRegReport(mode);
        break;
    }
    // These switches hand out no error word; the processor keeps the code of
    // the command that failed.
    const unsigned long dwError =
        bSet ? 0 : static_cast<unsigned long>(host.Processor()->GetLastError());
    const RegDomainInfo& info = InfoOf(domain);
    return SettingDone(bSet, dwError, "registration report",
                       {{info.key, {{"report_mode", mode}}}},
                       LabelledLine(std::string(info.label) + " report mode", std::to_string(mode)),
                       out, os, err);
}

ExitStatus RunPsAttach(ToolHost& host, bool bAttach, const OutputOptions& out, std::ostream& os,
                       std::ostream& err)
{
    const PSState enState = bAttach ? PS_STAT_ATTACH : PS_STAT_DETACHED;
    unsigned long dwError = 0;
    const bool bSet = host.NetSrv()->SRVSetPSState(enState, &dwError);
    RegistrationReadings readings;
    readings.psAttach = enState;
    return SettingDone(bSet, dwError, bAttach ? "attach" : "detach", RegistrationJson(readings),
                       RegistrationText(readings, false), out, os, err);
}

ExitStatus RunHspa(ToolHost& host, const OutputOptions& out, std::ostream& os, std::ostream& err)
{
    INetSrv* pNetSrv = host.NetSrv();
    ReadSeries reads;
    HspaReadings readings;
    for (const HSPA_MODE enSwitch : {HSPA_MODE_DPA, HSPA_MODE_UPA}) {
        HSPA_STAT enState = HSPA_STAT_DISABLE;
        if (reads.Try([&](unsigned long* pdwError) {
                return pNetSrv->SRVGetHSPAState(enSwitch, &enState, pdwError);
            })) {
            (enSwitch == HSPA_MODE_DPA ? readings.hsdpa : readings.hsupa) = enState;
        }
    }
    return ReadingsDone(reads, reads.AnyRead(), "hspa", HspaJson(readings), HspaText(readings),
                        out, os, err);
}

ExitStatus RunHspaSet(ToolHost& host, HSPA_MODE enSwitch, HSPA_STAT enState,
                      const OutputOptions& out, std::ostream& os, std::ostream& err)
{
    unsigned long dwError = 0;
    const bool bSet = host.NetSrv()->SRVSetHSPAState(enSwitch, enState, &dwError);
    HspaReadings readings;
    (enSwitch == HSPA_MODE_DPA ? readings.hsdpa : readings.hsupa) = enState;
    return SettingDone(bSet, dwError, "hspa", HspaJson(readings), HspaText(readings, false), out,
                       os, err);
}

}  // namespace netsrvctl
