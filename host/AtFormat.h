// Turns a typed command object into the text of its AT command line. Pure;
// safe from any thread (the command object itself belongs to its caller).
#ifndef HOST_ATFORMAT_H
#define HOST_ATFORMAT_H

#include <string>

#include "AtCodec/CmdInterface.h"

namespace host {

// The command line without its terminating CR:
//   first parameter OPERATOR<1>             -> "AT^SYSCFG?"
//   first parameter OPERATOR<32>            -> "AT+COPS=?"
//   no parameters                           -> "AT^SYSINFO"
//   otherwise each parameter's ToString()   -> "AT^GLASTERR=1", "AT+COPS=1,2,\"46000\""
// An empty parameter is an empty field ("AT+COPS=1,,x"); trailing empty fields
// are dropped. STRING texts go out as they stand: the service adds the quotes
// that a command needs.
// Returns an empty string when the object cannot be sent: no name, more
// parameters than any command holds, or a name or field holding a control
// character (a CR inside a field would end the command early and run the rest
// of the text as a second one).
std::string FormatCommandLine(ICommand& cmd);

}  // namespace host

#endif
