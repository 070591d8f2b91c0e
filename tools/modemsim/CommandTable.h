// The simulator's command set as data: which AT names it knows, and which
// (name, form) pairs it answers with which handler. A name it knows but has no
// handler for is answered "COMMAND NOT SUPPORT", as by a modem without it.
// Immutable; safe to read from any thread.
#ifndef MODEMSIM_COMMANDTABLE_H
#define MODEMSIM_COMMANDTABLE_H

#include <string>
#include <string_view>
#include <vector>

#include "CommandLine.h"
#include "ModemProfile.h"
#include "Reply.h"

namespace modemsim {

// A handler reads and may change the state; it never blocks and never fails
// other than through the reply it returns.
using CommandHandler = Reply (*)(const Profile& profile, ModemState& state,
                                 const AtRequest& request);

struct CommandRow {
    const char* name;
    AtForm form;
    CommandHandler handler;
};

// Every extended AT name a profile may name (unsupported commands, delays):
// the network service's command set and the general commands.
const std::vector<std::string>& KnownAtNames();
bool IsKnownAtName(std::string_view name);

const std::vector<CommandRow>& CommandRows();
// The handler of (name, form), or null.
CommandHandler FindHandler(std::string_view name, AtForm form);

}  // namespace modemsim

#endif
