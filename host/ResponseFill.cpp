#include "ResponseFill.h"

#include "AtFields.h"

namespace host {

namespace {
// No response class holds more; a larger count is not to be walked.
const unsigned long kMaxParams = 64;
}  // namespace

std::vector<std::string> InfoFields(const std::string& text, bool bRawData)
{
    if (!bRawData) {
        return SplitAtFields(text);
    }
    const std::string_view field = UnquoteField(TrimBlanks(text));
    if (field.empty()) {
        return {};
    }
    return {std::string(field)};
}

void FillResponse(ICommand& rsp, const std::vector<std::string>& fields)
{
    PARAMETER* pFirst = rsp.GetFirstElemAddr();
    if (pFirst == nullptr) {
        return;
    }
    unsigned long count = rsp.GetElemCount();
    if (count > kMaxParams) {
        count = kMaxParams;
    }
    for (unsigned long k = 0; k < count && k < fields.size(); ++k) {
        if (!pFirst[k].FromString(fields[k])) {
            break;
        }
    }
}

}  // namespace host
