// What one AT request answers: its information lines and the final result.
// The final results are the texts a modem of this family prints.
#ifndef MODEMSIM_REPLY_H
#define MODEMSIM_REPLY_H

#include <cstdint>
#include <string>
#include <vector>

#include "ModemState.h"

namespace modemsim {

constexpr char kFinalOk[] = "OK";
constexpr char kFinalError[] = "ERROR";
// Not the standard wording: this family's firmware says it for every command it
// lacks, whatever +CMEE is set to.
constexpr char kFinalNotSupported[] = "COMMAND NOT SUPPORT";

// Error numbers of +CME ERROR that the simulator gives.
constexpr int32_t kCmeOperationNotAllowed = 3;
constexpr int32_t kCmeOperationNotSupported = 4;
constexpr int32_t kCmeSimNotInserted = 10;
constexpr int32_t kCmeMemoryFull = 20;
constexpr int32_t kCmeInvalidIndex = 21;
constexpr int32_t kCmeNoNetworkService = 30;
constexpr int32_t kCmeNetworkNotAllowed = 32;
constexpr int32_t kCmeIncorrectParameters = 50;
constexpr int32_t kCmeUnknown = 100;

struct Reply {
    std::vector<std::string> lines;
    std::string final = kFinalOk;
};

Reply OkReply(std::vector<std::string> lines = {});
Reply ErrorReply();
Reply NotSupportedReply();
// No final result at all: the modem never ends the command (a search that
// hangs). Its information lines, if any, still go out.
Reply NoAnswerReply();
// True when the card is absent (SIM state 255): the commands that read or
// write it answer "SIM not inserted" (10).
bool IsSimAbsent(const ModemState& state);

// The error as +CMEE asks for it: 0 "ERROR", 1 "+CME ERROR: 50",
// 2 "+CME ERROR: Incorrect parameters".
Reply CmeErrorReply(const ModemState& state, int32_t code);

}  // namespace modemsim

#endif
