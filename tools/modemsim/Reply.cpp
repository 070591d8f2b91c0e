#include "Reply.h"

namespace modemsim {

namespace {

struct CmeText {
    int32_t code;
    const char* text;
};

// Verbose texts of the mobile-equipment errors the simulator gives.
constexpr CmeText kCmeTexts[] = {
    {kCmeOperationNotAllowed, "operation not allowed"},
    {kCmeOperationNotSupported, "operation not supported"},
    {kCmeSimNotInserted, "SIM not inserted"},
    {kCmeMemoryFull, "memory full"},
    {kCmeInvalidIndex, "invalid index"},
    {kCmeNoNetworkService, "no network service"},
    {kCmeNetworkNotAllowed, "network not allowed - emergency calls only"},
    {kCmeIncorrectParameters, "Incorrect parameters"},
    {kCmeUnknown, "unknown"},
};

}  // namespace

Reply OkReply(std::vector<std::string> lines)
{
    Reply reply;
    reply.lines = std::move(lines);
    return reply;
}

Reply ErrorReply()
{
    Reply reply;
    reply.final = kFinalError;
    return reply;
}

Reply NotSupportedReply()
{
    Reply reply;
    reply.final = kFinalNotSupported;
    return reply;
}

Reply NoAnswerReply()
{
    Reply reply;
    reply.final.clear();
    return reply;
}

bool IsSimAbsent(const ModemState& state)
{
    constexpr int32_t kSimAbsent = 255;
    return state.sim.state == kSimAbsent;
}

Reply CmeErrorReply(const ModemState& state, int32_t code)
{
    Reply reply;
    if (state.cmee == 0) {
        reply.final = kFinalError;
        return reply;
    }
    if (state.cmee == 2) {
        for (const CmeText& entry : kCmeTexts) {
            if (entry.code == code) {
                reply.final = std::string("+CME ERROR: ") + entry.text;
                return reply;
            }
        }
    }
    reply.final = "+CME ERROR: " + std::to_string(code);
    return reply;
}

}  // namespace modemsim
