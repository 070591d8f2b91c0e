#include "StatePatch.h"

#include "ProfileSchema.h"

namespace modemsim {

nlohmann::json StateToJson(const ModemState& state)
{
    ModemState copy = state;
    return FieldWriter::Write(copy);
}

bool StateFromJson(const nlohmann::json& object, const std::string& pathPrefix,
                   ModemState* pState, std::string* pProblem)
{
    ModemState state;
    if (!ReadObject(object, pathPrefix, state, pProblem)) {
        return false;
    }
    *pState = std::move(state);
    return true;
}

bool ApplyStatePatch(ModemState* pState, const std::string& patchText,
                     const std::string& pathPrefix, std::string* pProblem)
{
    const nlohmann::json patch = nlohmann::json::parse(patchText, nullptr, false);
    if (patch.is_discarded() || !patch.is_object()) {
        *pProblem = (pathPrefix.empty() ? std::string("(top level)") : pathPrefix) +
                    ": wrong type: expected an object";
        return false;
    }
    nlohmann::json merged = StateToJson(*pState);
    merged.merge_patch(patch);
    return StateFromJson(merged, pathPrefix, pState, pProblem);
}

}  // namespace modemsim
