// The SIM as the host reads it: its IMSI (+CIMI) and its elementary files
// through the restricted access command (+CRSM). The files are a table keyed
// by file identifier, each made from the state; a new file is one row.

#include <algorithm>

#include "CommandHandlers.h"

namespace modemsim {

namespace {

// +CRSM <command> values of the standard; only READ BINARY is carried out.
constexpr int32_t kReadBinary = 176;
const int32_t kSimCommands[] = {kReadBinary, 178, 192, 203, 214, 219, 220, 242};

// Status words (SW1, SW2) the card answers with.
struct StatusWords {
    int32_t sw1;
    int32_t sw2;
};
constexpr StatusWords kSwOk = {0x90, 0x00};
constexpr StatusWords kSwFileNotFound = {0x6A, 0x82};
constexpr StatusWords kSwOffsetOutside = {0x6B, 0x00};       // wrong P1-P2
constexpr StatusWords kSwInstructionUnknown = {0x6D, 0x00};  // not carried out by this card

// The administrative data file (6FAD): UE operation mode, two bytes of
// additional information, then the length of the MNC, which tells how much of
// the IMSI is the home network. As the profile gives it, else built from the
// home network; a card that names neither has no such file.
std::optional<std::string> AdministrativeData(const ModemState& state)
{
    if (!state.sim.efAd.empty()) {
        return state.sim.efAd;
    }
    if (state.sim.homePlmn.empty()) {
        return std::nullopt;
    }
    return "0000000" + std::to_string(state.sim.homePlmn.size() - 3);
}

struct SimFile {
    int32_t id;
    // The file's bytes as hexadecimal text, or nothing when the card lacks it.
    std::optional<std::string> (*contents)(const ModemState& state);
};

const SimFile kSimFiles[] = {
    {0x6FAD, AdministrativeData},
};

std::string CrsmLine(StatusWords sw, const std::string& hex = "")
{
    return "+CRSM: " + std::to_string(sw.sw1) + "," + std::to_string(sw.sw2) + ",\"" + hex + "\"";
}

// READ BINARY of fileId from offset: at most count bytes (0 asks for 256), and
// no more than the file holds. A read past the end gives what is there: the
// network service asks five bytes of a four-byte EF_AD and must get them.
std::string ReadBinary(const ModemState& state, int32_t fileId, int32_t offset, int32_t count)
{
    for (const SimFile& file : kSimFiles) {
        if (file.id != fileId) {
            continue;
        }
        const std::optional<std::string> hex = file.contents(state);
        if (!hex) {
            break;
        }
        const std::size_t size = hex->size() / 2;
        if (static_cast<std::size_t>(offset) >= size) {
            return CrsmLine(kSwOffsetOutside);
        }
        const std::size_t wanted = count == 0 ? 256 : static_cast<std::size_t>(count);
        return CrsmLine(kSwOk, hex->substr(2 * static_cast<std::size_t>(offset), 2 * wanted));
    }
    return CrsmLine(kSwFileNotFound);
}

}  // namespace

// The IMSI as a bare line of digits, without a name before it: "460001357924680".
Reply HandleCimiBare(const Profile&, ModemState& state, const AtRequest&)
{
    if (IsSimAbsent(state)) {
        return CmeErrorReply(state, kCmeSimNotInserted);
    }
    return OkReply({state.sim.imsi});
}

// AT+CRSM=<command>,<fileid>,<P1>,<P2>,<P3>[,<data>[,<pathid>]] ->
// "+CRSM: 144,0,"00000002"" (SW1, SW2, the bytes read); what the card
// refuses comes back as its status words with no data (+CRSM: 106,130,"" for
// a file it lacks). The data and path fields are not needed to read and are
// ignored. Fields that are not numbers in range, or too few: "incorrect
// parameters" (50).
Reply HandleCrsmSet(const Profile&, ModemState& state, const AtRequest& request)
{
    if (IsSimAbsent(state)) {
        return CmeErrorReply(state, kCmeSimNotInserted);
    }
    const std::vector<std::string> fields = SplitArgs(request.args);
    const std::optional<int32_t> command =
        fields.empty() ? std::nullopt : ParseNumberArg(fields[0], 0, 255);
    if (!command || std::find(std::begin(kSimCommands), std::end(kSimCommands), *command) ==
                        std::end(kSimCommands)) {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    if (*command != kReadBinary) {
        return OkReply({CrsmLine(kSwInstructionUnknown)});
    }
    if (fields.size() < 5 || fields.size() > 7) {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    const std::optional<int32_t> fileId = ParseNumberArg(fields[1], 0, 0xFFFF);
    const std::optional<int32_t> p1 = ParseNumberArg(fields[2], 0, 255);
    const std::optional<int32_t> p2 = ParseNumberArg(fields[3], 0, 255);
    const std::optional<int32_t> p3 = ParseNumberArg(fields[4], 0, 255);
    if (!fileId || !p1 || !p2 || !p3) {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    return OkReply({ReadBinary(state, *fileId, *p1 * 256 + *p2, *p3)});
}

}  // namespace modemsim
