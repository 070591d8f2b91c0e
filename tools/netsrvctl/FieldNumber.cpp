#include "FieldNumber.h"

#include <charconv>

namespace netsrvctl {

std::optional<int> WholeNumber(std::string_view field)
{
    int value = 0;
    const char* pEnd = field.data() + field.size();
    const auto result = std::from_chars(field.data(), pEnd, value);
    if (field.empty() || result.ec != std::errc() || result.ptr != pEnd) {
        return std::nullopt;
    }
    return value;
}

}  // namespace netsrvctl
