// General commands: echo, error reporting, capabilities, the last error.

#include "CommandHandlers.h"

namespace modemsim {

// ATE / ATE0 / ATE1. The line that switches echo off is still echoed: the
// modem echoes as it reads, before it acts.
Reply HandleEcho(const Profile&, ModemState& state, const AtRequest& request)
{
    if (request.args.empty() || request.args == "0") {
        state.echo = false;
    } else if (request.args == "1") {
        state.echo = true;
    } else {
        return ErrorReply();
    }
    return OkReply();
}

// AT+CMEE=<n>; an empty value means 0.
Reply HandleCmeeSet(const Profile&, ModemState& state, const AtRequest& request)
{
    const std::vector<std::string> args = SplitArgs(request.args);
    if (args.empty()) {
        state.cmee = 0;
        return OkReply();
    }
    std::optional<int32_t> mode = ParseNumberArg(args[0], 0, 2);
    if (args.size() != 1 || !mode) {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    state.cmee = *mode;
    return OkReply();
}

Reply HandleCmeeRead(const Profile&, ModemState& state, const AtRequest&)
{
    return OkReply({"+CMEE: " + std::to_string(state.cmee)});
}

Reply HandleCmeeTest(const Profile&, ModemState&, const AtRequest&)
{
    return OkReply({"+CMEE: (0-2)"});
}

// "+GCAP: +CGSM,+DS,+ES"; a CDMA modem names +CIS707.
Reply HandleGcap(const Profile& profile, ModemState&, const AtRequest&)
{
    std::string line = "+GCAP: ";
    for (std::size_t i = 0; i < profile.gcap.size(); ++i) {
        line += (i == 0 ? "" : ",") + profile.gcap[i];
    }
    return OkReply({line});
}

// AT^GLASTERR=<type> -> "^GLASTERR: <type>,<code>"; a kind of error that never
// happened reads as code 0.
Reply HandleGlasterrSet(const Profile&, ModemState& state, const AtRequest& request)
{
    const std::optional<int32_t> type = ParseSingleNumberArg(request.args, 0, 255);
    if (!type) {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    int32_t code = 0;
    for (const LastError& entry : state.lastErrors) {
        if (entry.type == *type) {
            code = entry.code;
        }
    }
    return OkReply({"^GLASTERR: " + std::to_string(*type) + "," + std::to_string(code)});
}

}  // namespace modemsim
