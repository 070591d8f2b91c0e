#include "SettingsFormat.h"

#include <cstdint>

#include "HexDigit.h"
#include "Utf8Text.h"

namespace common_settings {

namespace {

bool IsHighSurrogate(uint32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLowSurrogate(uint32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

// Reads the four hex digits of a \u escape; -1 when they are not there.
int32_t ReadUnitEscape(std::string_view digits)
{
    if (digits.size() < 4) {
        return -1;
    }
    int32_t unit = 0;
    for (size_t i = 0; i < 4; ++i) {
        const int digit = common_text::HexDigitValue(digits[i]);
        if (digit < 0) {
            return -1;
        }
        unit = unit * 16 + digit;
    }
    return unit;
}

void AppendUnits(std::u16string& out, std::string_view utf8)
{
    for (unsigned short unit : common_text::Utf8ToUtf16(utf8)) {
        out += static_cast<char16_t>(unit);
    }
}

}  // namespace

std::string EscapeField(const std::u16string& strField)
{
    static const char kHex[] = "0123456789ABCDEF";
    std::string out;
    out.reserve(strField.size());
    for (size_t i = 0; i < strField.size(); ++i) {
        const uint32_t unit = strField[i];
        if (IsHighSurrogate(unit) && i + 1 < strField.size() && IsLowSurrogate(strField[i + 1])) {
            const uint32_t low = strField[++i];
            common_text::AppendUtf8(out, 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00));
        } else if (IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
            out += "\\u";
            for (int shift = 12; shift >= 0; shift -= 4) {
                out += kHex[(unit >> shift) & 0xF];
            }
        } else if (unit == '\\') {
            out += "\\\\";
        } else if (unit == '\t') {
            out += "\\t";
        } else if (unit == '\n') {
            out += "\\n";
        } else if (unit == '\r') {
            out += "\\r";
        } else {
            common_text::AppendUtf8(out, unit);
        }
    }
    return out;
}

std::u16string UnescapeField(std::string_view field)
{
    std::u16string out;
    out.reserve(field.size());
    while (!field.empty()) {
        const size_t nSlash = field.find('\\');
        AppendUnits(out, field.substr(0, nSlash));
        if (nSlash == std::string_view::npos) {
            break;
        }
        field.remove_prefix(nSlash + 1);
        if (field.empty()) {
            out += u'\\';
            break;
        }
        const char code = field.front();
        field.remove_prefix(1);
        switch (code) {
        case '\\': out += u'\\'; break;
        case 't': out += u'\t'; break;
        case 'n': out += u'\n'; break;
        case 'r': out += u'\r'; break;
        case 'u': {
            const int32_t unit = ReadUnitEscape(field);
            if (unit < 0) {
                out += u"\\u";
            } else {
                out += static_cast<char16_t>(unit);
                field.remove_prefix(4);
            }
            break;
        }
        default:
            out += u'\\';
            AppendUnits(out, std::string_view(&code, 1));
            break;
        }
    }
    return out;
}

std::string FormatSettings(const std::vector<SettingEntry>& entries)
{
    std::string text;
    for (const SettingEntry& entry : entries) {
        text += EscapeField(entry.module);
        text += '\t';
        text += EscapeField(entry.item);
        text += '\t';
        text += EscapeField(entry.value);
        text += '\n';
    }
    return text;
}

std::vector<SettingEntry> ParseSettings(std::string_view text)
{
    std::vector<SettingEntry> entries;
    while (!text.empty()) {
        const size_t nEnd = text.find('\n');
        std::string_view line = text.substr(0, nEnd);
        text.remove_prefix(nEnd == std::string_view::npos ? text.size() : nEnd + 1);
        // A file edited by hand may have CR LF endings; a CR of a value is escaped.
        if (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        const size_t nFirst = line.find('\t');
        if (nFirst == std::string_view::npos) {
            continue;
        }
        const size_t nSecond = line.find('\t', nFirst + 1);
        if (nSecond == std::string_view::npos || line.find('\t', nSecond + 1) != std::string_view::npos) {
            continue;
        }
        SettingEntry entry;
        entry.module = UnescapeField(line.substr(0, nFirst));
        entry.item = UnescapeField(line.substr(nFirst + 1, nSecond - nFirst - 1));
        entry.value = UnescapeField(line.substr(nSecond + 1));
        entries.push_back(std::move(entry));
    }
    return entries;
}

}  // namespace common_settings
