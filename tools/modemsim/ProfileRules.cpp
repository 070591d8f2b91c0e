// Text checks of profile fields. Lengths are in bytes; names may be UTF-8.

#include "ProfileRules.h"

#include "CommandTable.h"

namespace modemsim {

namespace {

bool IsDigit(char ch)
{
    return ch >= '0' && ch <= '9';
}

bool IsHexDigit(char ch)
{
    return IsDigit(ch) || (ch >= 'a' && ch <= 'f') || (ch >= 'A' && ch <= 'F');
}

bool AllOf(std::string_view text, bool (*pred)(char))
{
    for (char ch : text) {
        if (!pred(ch)) {
            return false;
        }
    }
    return true;
}

bool IsPrintable(char ch)
{
    const unsigned char byte = static_cast<unsigned char>(ch);
    return byte >= 0x20 && byte != 0x7f;
}

bool IsNameChar(char ch)
{
    return IsPrintable(ch) && ch != '"';
}

bool LengthWithin(std::string_view text, std::size_t lo, std::size_t hi)
{
    return text.size() >= lo && text.size() <= hi;
}

bool Plmn(std::string_view t) { return LengthWithin(t, 5, 6) && AllOf(t, IsDigit); }
bool OptionalPlmn(std::string_view t) { return t.empty() || Plmn(t); }
bool Imsi(std::string_view t) { return LengthWithin(t, 6, 15) && AllOf(t, IsDigit); }
bool Iccid(std::string_view t) { return LengthWithin(t, 10, 20) && AllOf(t, IsHexDigit); }
bool HexBytes(std::string_view t)
{
    return t.size() <= 512 && t.size() % 2 == 0 && AllOf(t, IsHexDigit);
}
bool Band(std::string_view t) { return ParseBandMask(t).has_value(); }
bool OptionalBand(std::string_view t) { return t.empty() || Band(t); }
bool HexId(std::string_view t) { return t.size() <= 8 && AllOf(t, IsHexDigit); }
bool Phone(std::string_view t)
{
    if (!t.empty() && t.front() == '+') {
        t.remove_prefix(1);
        return LengthWithin(t, 1, 20) && AllOf(t, IsDigit);
    }
    return t.size() <= 20 && AllOf(t, IsDigit);
}
bool AcqOrder(std::string_view t)
{
    return LengthWithin(t, 2, 12) && t.size() % 2 == 0 && AllOf(t, IsDigit);
}
bool Capability(std::string_view t)
{
    if (!LengthWithin(t, 2, 16) || t.front() != '+') {
        return false;
    }
    t.remove_prefix(1);
    return AllOf(t, [](char ch) { return IsDigit(ch) || (ch >= 'A' && ch <= 'Z') || ch == '-'; });
}
bool AtName(std::string_view t) { return IsKnownAtName(t); }
bool DelayKey(std::string_view t)
{
    std::string name;
    std::string form;
    return SplitDelayKey(t, &name, &form);
}
bool Coding(std::string_view t) { return t == "gsm7" || t == "ucs2"; }
bool Name(std::string_view t) { return t.size() <= 64 && AllOf(t, IsNameChar); }
// Band lists name several bands at once ("GSM850/GSM900/.../WCDMA2100").
bool BandName(std::string_view t) { return t.size() <= 255 && AllOf(t, IsNameChar); }
bool Line(std::string_view t) { return LengthWithin(t, 1, 2048) && AllOf(t, IsPrintable); }
bool Min(std::string_view t)
{
    return (t.empty() || t.size() == 10 || t.size() == 15) && AllOf(t, IsDigit);
}
bool Description(std::string_view t) { return t.size() <= 1024 && AllOf(t, IsPrintable); }

}  // namespace

const TextRule kPlmnRule{"5 or 6 digits", Plmn};
const TextRule kOptionalPlmnRule{"5 or 6 digits, or empty", OptionalPlmn};
const TextRule kImsiRule{"6 to 15 digits", Imsi};
const TextRule kIccidRule{"10 to 20 hexadecimal digits", Iccid};
const TextRule kHexBytesRule{"an even number of hexadecimal digits (at most 512)", HexBytes};
const TextRule kBandRule{"1 to 16 hexadecimal digits", Band};
const TextRule kOptionalBandRule{"at most 16 hexadecimal digits", OptionalBand};
const TextRule kHexIdRule{"at most 8 hexadecimal digits", HexId};
const TextRule kPhoneRule{"at most 20 digits, optionally after a +", Phone};
const TextRule kAcqOrderRule{"2 to 12 digits, an even number", AcqOrder};
const TextRule kCapabilityRule{"a capability name such as +CGSM", Capability};
const TextRule kAtNameRule{"an AT command name the simulator knows, such as ^SYSCFG", AtName};
const TextRule kDelayKeyRule{
    "a known AT command name, alone or followed by ?, =? or =, such as +COPS=?", DelayKey};
const TextRule kCodingRule{"gsm7 or ucs2", Coding};
const TextRule kNameRule{"at most 64 printable bytes without double quotes", Name};
const TextRule kBandNameRule{"at most 255 printable bytes without double quotes", BandName};
const TextRule kLineRule{"1 to 2048 printable bytes (no line breaks)", Line};
const TextRule kMinRule{"10 or 15 digits, or empty", Min};
const TextRule kDescriptionRule{"at most 1024 printable bytes", Description};

std::optional<uint64_t> ParseBandMask(std::string_view text)
{
    if (!LengthWithin(text, 1, 16)) {
        return std::nullopt;
    }
    uint64_t mask = 0;
    for (char ch : text) {
        if (!IsHexDigit(ch)) {
            return std::nullopt;
        }
        const char lower = static_cast<char>(ch | 0x20);
        mask = (mask << 4) | static_cast<uint64_t>(IsDigit(ch) ? ch - '0' : lower - 'a' + 10);
    }
    return mask;
}

bool SplitDelayKey(std::string_view key, std::string* pName, std::string* pForm)
{
    for (std::string_view form : {"=?", "?", "="}) {
        if (key.size() > form.size() && key.substr(key.size() - form.size()) == form) {
            std::string_view name = key.substr(0, key.size() - form.size());
            if (!IsKnownAtName(name)) {
                return false;
            }
            *pName = std::string(name);
            *pForm = std::string(form);
            return true;
        }
    }
    if (!IsKnownAtName(key)) {
        return false;
    }
    *pName = std::string(key);
    pForm->clear();
    return true;
}

}  // namespace modemsim
