#include "TextColumns.h"

namespace netsrvctl {

namespace {
// "modem mode names: ", the longest label of the views.
const size_t kValueColumn = 18;
}  // namespace

std::string LabelledLine(const std::string& label, const std::string& value)
{
    std::string line = label + ":";
    line.append(line.size() < kValueColumn ? kValueColumn - line.size() : 1, ' ');
    return line + value + "\n";
}

std::string ReadingLine(const std::string& label, const std::optional<std::string>& value,
                        bool bShowMissing)
{
    if (!value && !bShowMissing) {
        return "";
    }
    return LabelledLine(label, value ? *value : "not reported");
}

}  // namespace netsrvctl
