// Changing the state by a JSON merge patch: the state is written out as the
// JSON a profile holds, the patch is merged in (objects merge field by field,
// anything else replaces, null removes an optional field or section and so
// restores its default), and the result is read back with every check a
// profile gets. Pure functions.
#ifndef MODEMSIM_STATEPATCH_H
#define MODEMSIM_STATEPATCH_H

#include <string>

#include <nlohmann/json.hpp>

#include "ModemState.h"

namespace modemsim {

nlohmann::json StateToJson(const ModemState& state);

// Reads a state from its JSON form; *pProblem gets "<path>: <problem>", with
// paths under pathPrefix.
bool StateFromJson(const nlohmann::json& object, const std::string& pathPrefix,
                   ModemState* pState, std::string* pProblem);

// Applies patchText (a JSON object) to *pState. On a fault the state is left as
// it was and *pProblem names the field under pathPrefix ("timeline[3].set").
bool ApplyStatePatch(ModemState* pState, const std::string& patchText,
                     const std::string& pathPrefix, std::string* pProblem);

}  // namespace modemsim

#endif
