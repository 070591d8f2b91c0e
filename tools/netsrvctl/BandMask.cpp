#include "BandMask.h"

#include <charconv>

namespace netsrvctl {

std::optional<uint64_t> ParseBandMask(std::string_view text)
{
    if (text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
        text.remove_prefix(2);
    }
    uint64_t mask = 0;
    const char* pEnd = text.data() + text.size();
    const auto result = std::from_chars(text.data(), pEnd, mask, 16);
    if (text.empty() || result.ec != std::errc() || result.ptr != pEnd) {
        return std::nullopt;
    }
    return mask;
}

std::string BandMaskText(uint64_t mask)
{
    char digits[17] = {};
    const auto result = std::to_chars(digits, digits + sizeof(digits) - 1, mask, 16);
    std::string text(digits, result.ptr);
    for (char& c : text) {
        if (c >= 'a' && c <= 'f') {
            c = static_cast<char>(c - 'a' + 'A');
        }
    }
    return text;
}

std::vector<int> LteBandNumbers(uint64_t mask)
{
    std::vector<int> bands;
    for (int bit = 0; bit < 64; ++bit) {
        if ((mask >> bit) & 1u) {
            bands.push_back(bit + 1);
        }
    }
    return bands;
}

std::string NumberRanges(const std::vector<int>& numbers)
{
    std::string text;
    for (size_t first = 0; first < numbers.size();) {
        size_t last = first;
        while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1) {
            ++last;
        }
        text += (text.empty() ? "" : ", ") + std::to_string(numbers[first]);
        if (last - first >= 2) {
            text += "-" + std::to_string(numbers[last]);
        } else {
            last = first;
        }
        first = last + 1;
    }
    return text;
}

}  // namespace netsrvctl
