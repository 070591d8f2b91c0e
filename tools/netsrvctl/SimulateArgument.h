// The word after --simulate. Its profile is optional and a command may follow
// the option directly ("--simulate status", "--simulate cdma status"), so the
// word is read by what it names, not by where it stands: a built-in profile's
// name or a profile file (an existing file, or any name ending in ".json") is
// the profile, one of the tool's commands is the command, and anything else is
// a mistake that is reported before the modem is touched.
#ifndef NETSRVCTL_SIMULATEARGUMENT_H
#define NETSRVCTL_SIMULATEARGUMENT_H

#include <string>
#include <vector>

namespace netsrvctl {

enum class SimulateWord { Profile, Command, Unknown };

SimulateWord ClassifySimulateWord(const std::string& word,
                                  const std::vector<std::string>& commands);

// Goes through the arguments (without the program's name) and, where
// "--simulate" is followed by a command, gives the option its empty profile
// ("--simulate=") so that no parser can take the command for the profile;
// a profile that follows it is joined to it ("--simulate=cdma"), since a
// profile's name may also be a command's. Such a name ("cdma") is the
// profile unless a word that is no command follows it: "--simulate cdma
// status" runs status on the cdma profile, "--simulate cdma set nam 2" the
// cdma command on the default one.
// False with a one-line reason when the word after "--simulate" (or after
// "--simulate=") is neither a profile nor, in the first form, a command.
bool SettleSimulateProfile(std::vector<std::string>* pArgs,
                           const std::vector<std::string>& commands, std::string* pError);

}  // namespace netsrvctl

#endif
