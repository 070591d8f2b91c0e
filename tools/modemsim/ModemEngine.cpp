#include "ModemEngine.h"

#include "CommandTable.h"

namespace modemsim {

std::string FrameLine(std::string_view line)
{
    std::string framed = "\r\n";
    framed += line;
    framed += "\r\n";
    return framed;
}

uint32_t RequestDelay(const AnswerDelays& delays, const AtRequest& request)
{
    auto it = delays.commands.find(request.name + FormSuffix(request.form));
    if (it == delays.commands.end()) {
        it = delays.commands.find(request.name);
    }
    return it != delays.commands.end() ? it->second : delays.defaultMs;
}

Answer AnswerCommandLine(const Profile& profile, ModemState& state, std::string_view line,
                         bool bOverlong)
{
    Answer answer;
    if (state.echo) {
        answer.echo = std::string(line) + "\r";
    }
    std::optional<std::vector<AtRequest>> requests;
    if (!bOverlong) {
        requests = ParseCommandLine(line);
    }
    if (!requests) {
        answer.delayMs = profile.delays.defaultMs;
        answer.text = FrameLine(kFinalError);
        return answer;
    }
    // Requests run in order; the first that does not end in OK ends the line
    // with its result, as on a modem.
    Reply total;
    uint64_t delayMs = requests->empty() ? profile.delays.defaultMs : 0;
    for (const AtRequest& request : *requests) {
        CommandHandler handler = nullptr;
        if (profile.unsupported.count(request.name) == 0) {
            handler = FindHandler(request.name, request.form);
        }
        // A command the modem lacks is turned away at once; only work takes time.
        delayMs += handler != nullptr ? RequestDelay(profile.delays, request)
                                      : profile.delays.defaultMs;
        Reply reply = handler != nullptr ? handler(profile, state, request) : NotSupportedReply();
        total.lines.insert(total.lines.end(), reply.lines.begin(), reply.lines.end());
        if (reply.final != kFinalOk) {
            total.final = reply.final;
            break;
        }
    }
    for (const std::string& info : total.lines) {
        answer.text += FrameLine(info);
    }
    if (!total.final.empty()) {
        answer.text += FrameLine(total.final);
    }
    answer.delayMs = delayMs > UINT32_MAX ? UINT32_MAX : static_cast<uint32_t>(delayMs);
    return answer;
}

}  // namespace modemsim
