// The command interpreter's syntax: "AT" prefix, basic commands (a letter,
// optionally behind "&", and digits), extended commands ("+" or "^", a name,
// then "?", "=?" or "=<args>"), extended commands separated by ";".

#include "CommandLine.h"

namespace modemsim {

namespace {

bool IsAlpha(char ch)
{
    return (ch >= 'A' && ch <= 'Z') || (ch >= 'a' && ch <= 'z');
}

bool IsDigit(char ch)
{
    return ch >= '0' && ch <= '9';
}

char Upper(char ch)
{
    return (ch >= 'a' && ch <= 'z') ? static_cast<char>(ch - 'a' + 'A') : ch;
}

bool IsPrintable(char ch)
{
    const unsigned char byte = static_cast<unsigned char>(ch);
    return byte >= 0x20 && byte < 0x7f;
}

std::string_view Trim(std::string_view text)
{
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) {
        text.remove_prefix(1);
    }
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) {
        text.remove_suffix(1);
    }
    return text;
}

// Length of the arguments up to the next ";" outside quotes, or nothing when a
// quote is left open.
std::optional<std::size_t> ArgsLength(std::string_view rest)
{
    bool bQuoted = false;
    for (std::size_t i = 0; i < rest.size(); ++i) {
        if (rest[i] == '"') {
            bQuoted = !bQuoted;
        } else if (rest[i] == ';' && !bQuoted) {
            return i;
        }
    }
    if (bQuoted) {
        return std::nullopt;
    }
    return rest.size();
}

}  // namespace

std::optional<std::vector<AtRequest>> ParseCommandLine(std::string_view line)
{
    for (char ch : line) {
        if (!IsPrintable(ch)) {
            return std::nullopt;
        }
    }
    if (line.size() < 2 || Upper(line[0]) != 'A' || Upper(line[1]) != 'T') {
        return std::nullopt;
    }
    std::string_view rest = line.substr(2);
    std::vector<AtRequest> requests;
    while (!rest.empty()) {
        const char lead = rest.front();
        if (lead == ' ' || lead == ';') {
            rest.remove_prefix(1);
            continue;
        }
        AtRequest request;
        if (lead == '+' || lead == '^') {
            std::size_t end = 1;
            while (end < rest.size() && (IsAlpha(rest[end]) || IsDigit(rest[end]))) {
                ++end;
            }
            if (end == 1) {
                return std::nullopt;
            }
            for (std::size_t i = 0; i < end; ++i) {
                request.name += Upper(rest[i]);
            }
            rest.remove_prefix(end);
            if (rest.substr(0, 2) == "=?") {
                request.form = AtForm::Test;
                rest.remove_prefix(2);
            } else if (rest.substr(0, 1) == "?") {
                request.form = AtForm::Read;
                rest.remove_prefix(1);
            } else if (rest.substr(0, 1) == "=") {
                rest.remove_prefix(1);
                std::optional<std::size_t> length = ArgsLength(rest);
                if (!length) {
                    return std::nullopt;
                }
                request.form = AtForm::Set;
                request.args = std::string(Trim(rest.substr(0, *length)));
                rest.remove_prefix(*length);
            }
            rest = Trim(rest);
            if (!rest.empty() && rest.front() != ';') {
                return std::nullopt;
            }
        } else if (IsAlpha(lead) || lead == '&') {
            std::size_t start = 0;
            if (lead == '&') {
                request.name = "&";
                start = 1;
            }
            if (start >= rest.size() || !IsAlpha(rest[start])) {
                return std::nullopt;
            }
            request.name += Upper(rest[start]);
            std::size_t end = start + 1;
            while (end < rest.size() && IsDigit(rest[end])) {
                ++end;
            }
            request.form = AtForm::Set;
            request.args = std::string(rest.substr(start + 1, end - start - 1));
            rest.remove_prefix(end);
        } else {
            return std::nullopt;
        }
        requests.push_back(std::move(request));
    }
    return requests;
}

const char* FormSuffix(AtForm form)
{
    switch (form) {
    case AtForm::Bare:
        return "";
    case AtForm::Read:
        return "?";
    case AtForm::Test:
        return "=?";
    case AtForm::Set:
        return "=";
    }
    return "";
}

std::vector<std::string> SplitArgs(std::string_view args)
{
    std::vector<std::string> fields;
    if (Trim(args).empty()) {
        return fields;
    }
    bool bQuoted = false;
    std::size_t start = 0;
    for (std::size_t i = 0; i <= args.size(); ++i) {
        if (i < args.size() && args[i] == '"') {
            bQuoted = !bQuoted;
        }
        if (i == args.size() || (args[i] == ',' && !bQuoted)) {
            std::string_view field = Trim(args.substr(start, i - start));
            if (field.size() >= 2 && field.front() == '"' && field.back() == '"') {
                field = field.substr(1, field.size() - 2);
            }
            fields.emplace_back(field);
            start = i + 1;
        }
    }
    return fields;
}

std::optional<int32_t> ParseNumberArg(std::string_view field, int32_t lo, int32_t hi)
{
    if (field.empty() || field.size() > 9) {
        return std::nullopt;
    }
    int32_t value = 0;
    for (char ch : field) {
        if (!IsDigit(ch)) {
            return std::nullopt;
        }
        value = value * 10 + (ch - '0');
    }
    if (value < lo || value > hi) {
        return std::nullopt;
    }
    return value;
}

std::optional<int32_t> ParseSingleNumberArg(std::string_view args, int32_t lo, int32_t hi)
{
    const std::vector<std::string> fields = SplitArgs(args);
    if (fields.size() != 1) {
        return std::nullopt;
    }
    return ParseNumberArg(fields[0], lo, hi);
}

}  // namespace modemsim
