#include "Garbage.h"

#include <random>

namespace modemsim {

std::string MakeGarbage(uint32_t seed)
{
    std::mt19937 random(seed);
    std::string junk;
    const uint32_t lines = 2 + random() % 3;
    for (uint32_t line = 0; line < lines; ++line) {
        junk += "\r\n";
        const uint32_t length = 1 + random() % 96;
        for (uint32_t i = 0; i < length; ++i) {
            char byte = static_cast<char>(random() & 0xff);
            // Line ends stay where the framing puts them, so each burst is
            // whole junk lines rather than pieces glued to the next answer.
            if (byte == '\r' || byte == '\n') {
                byte = '\x7f';
            }
            junk += byte;
        }
        junk += "\r\n";
    }
    return junk;
}

}  // namespace modemsim
