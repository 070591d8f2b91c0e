// Registration in the CS, PS and EPS domains as the 3GPP commands report it:
// AT+CREG?, AT+CGREG?, AT+CEREG? and their set forms, which choose how much
// the unsolicited reports of the same names tell (StateLines.h prints both).

#include "CommandHandlers.h"
#include "StateLines.h"

namespace modemsim {

namespace {

// AT+CREG=<n> takes 0 (no reports), 1 (status) or 2 (status and location) on
// this family; the cause form 3 is refused like any other bad value.
constexpr int32_t kMaxReportModeSet = 2;

// The command table sends all three names here; the name picks the domain.
RegistrationInfo& DomainOf(NetworkState& network, const std::string& name)
{
    if (name == "+CGREG") {
        return network.cgreg;
    }
    if (name == "+CEREG") {
        return network.cereg;
    }
    return network.creg;
}

}  // namespace

// "+CREG: 2,1,\"CE00\",\"01CEAD8F\"": the report mode, then what a report in
// that mode carries; "+CREG: 0,1" in modes 0 and 1.
Reply HandleRegistrationRead(const Profile&, ModemState& state, const AtRequest& request)
{
    const RegistrationInfo& domain = DomainOf(state.network, request.name);
    return OkReply({request.name + ": " + std::to_string(domain.reportMode) + "," +
                    RegistrationFields(domain)});
}

Reply HandleRegistrationSet(const Profile&, ModemState& state, const AtRequest& request)
{
    const std::optional<int32_t> mode = ParseSingleNumberArg(request.args, 0, kMaxReportModeSet);
    if (!mode) {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    DomainOf(state.network, request.name).reportMode = *mode;
    return OkReply();
}

}  // namespace modemsim
