#include "SimulateArgument.h"

#include <sys/stat.h>

#include <algorithm>

#include "ModemSimulator.h"

namespace netsrvctl {

namespace {
const char* const kOption = "--simulate";

bool EndsWith(const std::string& text, const std::string& tail)
{
    return text.size() >= tail.size() &&
           text.compare(text.size() - tail.size(), tail.size(), tail) == 0;
}

bool IsProfileFile(const std::string& word)
{
    struct stat info;
    return EndsWith(word, ".json") || ::stat(word.c_str(), &info) == 0;
}

bool IsCommand(const std::string& word, const std::vector<std::string>& commands)
{
    return std::find(commands.begin(), commands.end(), word) != commands.end();
}

std::string BuiltInList()
{
    std::string list;
    for (const std::string& name : modemsim::BuiltInProfileNames()) {
        list += (list.empty() ? "" : ", ") + name;
    }
    return list;
}
}  // namespace

SimulateWord ClassifySimulateWord(const std::string& word,
                                  const std::vector<std::string>& commands)
{
    const std::vector<std::string> builtIn = modemsim::BuiltInProfileNames();
    if (std::find(builtIn.begin(), builtIn.end(), word) != builtIn.end() ||
        IsProfileFile(word)) {
        return SimulateWord::Profile;
    }
    if (IsCommand(word, commands)) {
        return SimulateWord::Command;
    }
    return SimulateWord::Unknown;
}

bool SettleSimulateProfile(std::vector<std::string>* pArgs,
                           const std::vector<std::string>& commands, std::string* pError)
{
    std::vector<std::string>& args = *pArgs;
    const std::string explicitForm = std::string(kOption) + "=";
    for (size_t i = 0; i < args.size() && args[i] != "--"; ++i) {
        if (args[i].compare(0, explicitForm.size(), explicitForm) == 0) {
            const std::string word = args[i].substr(explicitForm.size());
            if (!word.empty() && ClassifySimulateWord(word, commands) != SimulateWord::Profile) {
                *pError = kOption + (": " + word) +
                          " is neither a built-in profile nor a file; the built-in profiles are " +
                          BuiltInList();
                return false;
            }
            continue;
        }
        // An option after it ("--simulate --json") leaves the profile out.
        if (args[i] != kOption || i + 1 == args.size() || args[i + 1].empty() ||
            args[i + 1][0] == '-') {
            continue;
        }
        SimulateWord kind = ClassifySimulateWord(args[i + 1], commands);
        // A name that is both a profile and a command ("cdma") is the command
        // when a word of its own follows it ("--simulate cdma set nam 2"),
        // not a command, an option or nothing.
        if (kind == SimulateWord::Profile && IsCommand(args[i + 1], commands) &&
            i + 2 < args.size() && !args[i + 2].empty() && args[i + 2][0] != '-' &&
            !IsCommand(args[i + 2], commands)) {
            kind = SimulateWord::Command;
        }
        switch (kind) {
        case SimulateWord::Profile:
            // Joined to the option, so that no parser takes a profile that
            // is also a command's name ("cdma") for the command.
            args[i] = explicitForm + args[i + 1];
            args.erase(args.begin() + static_cast<std::ptrdiff_t>(i) + 1);
            continue;
        case SimulateWord::Command:
            args[i] = explicitForm;
            break;
        case SimulateWord::Unknown:
            *pError = kOption + (": " + args[i + 1]) +
                      " is neither a command nor a built-in profile nor a file; the built-in "
                      "profiles are " +
                      BuiltInList();
            return false;
        }
        ++i;
    }
    return true;
}

}  // namespace netsrvctl
