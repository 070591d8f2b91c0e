#include "OutputText.h"

#include <cstring>

namespace netsrvctl {

std::string FieldText(const char* pszField, size_t nSize)
{
    std::string text(pszField, strnlen(pszField, nSize));
    for (char& c : text) {
        const unsigned char byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7F) {
            c = '?';
        }
    }
    return text;
}

std::string JsonLine(const nlohmann::ordered_json& value)
{
    return value.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

}  // namespace netsrvctl
