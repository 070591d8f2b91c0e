// Fills typed response objects from the fields of an information line, the way
// the service's own casts do: field k into parameter k, stopping at the first
// field a parameter rejects. Pure apart from writing the object it is given;
// safe from any thread that owns that object.
#ifndef HOST_RESPONSEFILL_H
#define HOST_RESPONSEFILL_H

#include <string>
#include <vector>

#include "AtCodec/CmdInterface.h"

namespace host {

// The fields of an information line's text. A raw-data answer ("+CIMI":
// "998899889988997") is one field, the whole line, unquoted when the modem
// quoted it; any other is split by SplitAtFields.
std::vector<std::string> InfoFields(const std::string& text, bool bRawData);

// Hands fields[k] to FromString of parameter k for as long as both last and
// the parameter accepts its field; surplus fields are ignored, surplus
// parameters keep their value.
void FillResponse(ICommand& rsp, const std::vector<std::string>& fields);

}  // namespace host

#endif
