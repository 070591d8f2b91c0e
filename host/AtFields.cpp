#include "AtFields.h"

#include <cstddef>

namespace host {

namespace {
bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}
}  // namespace

std::string_view TrimBlanks(std::string_view text)
{
    std::size_t begin = 0;
    std::size_t end = text.size();
    while (begin < end && IsBlank(text[begin])) {
        ++begin;
    }
    while (end > begin && IsBlank(text[end - 1])) {
        --end;
    }
    return text.substr(begin, end - begin);
}

std::string_view UnquoteField(std::string_view field)
{
    if (field.size() < 2 || field.front() != '"' || field.back() != '"') {
        return field;
    }
    const std::string_view inner = field.substr(1, field.size() - 2);
    // "\"a\",\"b\"" cannot reach here as one field, but "\"a\" \"b\"" can:
    // that is two quoted texts, not one enclosed field.
    if (inner.find('"') != std::string_view::npos) {
        return field;
    }
    return inner;
}

std::vector<std::string> SplitAtFields(std::string_view text)
{
    std::vector<std::string> fields;
    text = TrimBlanks(text);
    if (text.empty()) {
        return fields;
    }
    bool bInQuotes = false;
    std::size_t depth = 0;   // parentheses open outside quotes
    std::size_t start = 0;
    for (std::size_t i = 0; i <= text.size(); ++i) {
        if (i == text.size() || (text[i] == ',' && !bInQuotes && depth == 0)) {
            fields.emplace_back(UnquoteField(TrimBlanks(text.substr(start, i - start))));
            start = i + 1;
            continue;
        }
        const char c = text[i];
        if (c == '"') {
            bInQuotes = !bInQuotes;
        } else if (!bInQuotes && c == '(') {
            ++depth;
        } else if (!bInQuotes && c == ')' && depth > 0) {
            // "+COPS: (2,\"T - Mobile\",...,\"310260\"),2)": the modem's stray ')'
            // must not close a group that was never opened.
            --depth;
        }
    }
    return fields;
}

}  // namespace host
