// Reading profiles: JSON syntax, then the field catalogue (unknown fields,
// types, ranges, texts), then the checks that span fields (each timeline
// event does one thing; its state patch leaves a valid state).

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "ModemSimulator.h"
#include "ProfileSchema.h"
#include "StatePatch.h"

namespace modemsim {

namespace {

// Far above any real profile; keeps a wrong file (a disk image, a log) from
// being read whole.
constexpr std::size_t kMaxProfileBytes = 4 * 1024 * 1024;
// A repeat shorter than this would flood the line rather than model a modem.
constexpr uint32_t kMinRepeatMs = 10;

std::string SyntaxError(const std::string& text, std::size_t byte)
{
    // byte counts from 1 and names the character the parser stopped at.
    std::size_t line = 1;
    std::size_t column = 1;
    const std::size_t end = byte == 0 ? 0 : std::min(byte - 1, text.size());
    for (std::size_t i = 0; i < end; ++i) {
        if (text[i] == '\n') {
            ++line;
            column = 1;
        } else {
            ++column;
        }
    }
    return "line " + std::to_string(line) + ", column " + std::to_string(column) +
           ": not valid JSON";
}

bool CheckTimeline(const Profile& profile, std::string* pProblem)
{
    for (std::size_t i = 0; i < profile.timeline.size(); ++i) {
        const TimelineEvent& event = profile.timeline[i];
        const std::string path = IndexPath("timeline", i);
        const int actions = (event.send.empty() ? 0 : 1) + (event.setPatch.empty() ? 0 : 1) +
                            (event.report ? 1 : 0) + (event.fault ? 1 : 0);
        if (actions != 1) {
            *pProblem = path + ": expected exactly one of send, set, report, fault (found " +
                        std::to_string(actions) + ")";
            return false;
        }
        if (event.repeatMs != 0 && event.repeatMs < kMinRepeatMs) {
            *pProblem = path + ".repeat_ms: out of range: " + std::to_string(event.repeatMs) +
                        " is not 0 (once) or at least " + std::to_string(kMinRepeatMs);
            return false;
        }
        if (!event.setPatch.empty()) {
            ModemState state = profile.initial;
            if (!ApplyStatePatch(&state, event.setPatch, path + ".set", pProblem)) {
                return false;
            }
        }
    }
    return true;
}

}  // namespace

bool ParseProfile(const std::string& jsonText, const std::string& sourceName, Profile* pOut,
                  std::string* pError)
{
    if (jsonText.size() > kMaxProfileBytes) {
        *pError = sourceName + ": too large: " + std::to_string(jsonText.size()) +
                  " bytes (at most " + std::to_string(kMaxProfileBytes) + ")";
        return false;
    }
    Json document;
    try {
        document = Json::parse(jsonText);
    } catch (const Json::parse_error& e) {
        *pError = sourceName + ": " + SyntaxError(jsonText, e.byte);
        return false;
    } catch (const std::exception&) {
        *pError = sourceName + ": not valid JSON";
        return false;
    }
    Profile profile;
    std::string problem;
    if (!ReadObject(document, "", profile, &problem) || !CheckTimeline(profile, &problem)) {
        *pError = sourceName + ": " + problem;
        return false;
    }
    profile.source = sourceName;
    *pOut = std::move(profile);
    return true;
}

bool LoadProfileFile(const std::string& path, Profile* pOut, std::string* pError)
{
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        *pError = path + ": cannot read: " + std::strerror(errno);
        return false;
    }
    struct stat info {};
    if (fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        close(fd);
        *pError = path + ": cannot read: not a regular file";
        return false;
    }
    std::string text;
    char buffer[16384];
    for (;;) {
        const ssize_t n = read(fd, buffer, sizeof buffer);
        if (n == 0) {
            break;
        }
        if (n < 0) {
            if (errno == EINTR) {
                continue;
            }
            const int error = errno;
            close(fd);
            *pError = path + ": cannot read: " + std::strerror(error);
            return false;
        }
        text.append(buffer, static_cast<std::size_t>(n));
        if (text.size() > kMaxProfileBytes) {
            close(fd);
            *pError = path + ": too large: more than " + std::to_string(kMaxProfileBytes) +
                      " bytes";
            return false;
        }
    }
    close(fd);
    return ParseProfile(text, path, pOut, pError);
}

bool LoadProfile(const std::string& nameOrPath, Profile* pOut, std::string* pError)
{
    std::string text;
    if (BuiltInProfileText(nameOrPath, &text)) {
        return ParseProfile(text, nameOrPath + ".json", pOut, pError);
    }
    return LoadProfileFile(nameOrPath, pOut, pError);
}

}  // namespace modemsim
