#include "LineClassifier.h"

#include <cctype>
#include <cstddef>

#include "AtFields.h"

namespace host {

namespace {

// Modem codes above this are taken for garbage: they would collide with the
// processor's own codes (20001 and up) and with the service's 10001.
const unsigned long kMaxModemCode = 9999;
const unsigned long kUnknownCode = 100;
const unsigned long kNotSupportedCode = 4;

char Lower(char c)
{
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

bool StartsWith(std::string_view text, std::string_view prefix)
{
    return text.size() >= prefix.size() && text.substr(0, prefix.size()) == prefix;
}

bool StartsWithNoCase(std::string_view text, std::string_view prefix)
{
    if (text.size() < prefix.size()) {
        return false;
    }
    for (std::size_t i = 0; i < prefix.size(); ++i) {
        if (Lower(text[i]) != Lower(prefix[i])) {
            return false;
        }
    }
    return true;
}

// Lower case, runs of blanks folded into one space: "SIM  not Inserted" and
// "SIM not inserted" compare equal.
std::string Normalise(std::string_view text)
{
    std::string out;
    bool bBlank = false;
    for (const char c : TrimBlanks(text)) {
        if (c == ' ' || c == '\t') {
            bBlank = true;
            continue;
        }
        if (bBlank) {
            out += ' ';
            bBlank = false;
        }
        out += Lower(c);
    }
    return out;
}

// The decimal number that is the whole text, if it is one.
bool ParseNumber(std::string_view text, unsigned long* pValue)
{
    if (text.empty() || text.size() > 9) {
        // Nine digits fit any unsigned long; a longer run is no error code.
        return false;
    }
    unsigned long value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') {
            return false;
        }
        value = value * 10 + static_cast<unsigned long>(c - '0');
    }
    *pValue = value;
    return true;
}

unsigned long NumberOrUnknown(std::string_view text)
{
    unsigned long value = 0;
    if (ParseNumber(TrimBlanks(text), &value) && value <= kMaxModemCode) {
        return value;
    }
    return kUnknownCode;
}

// "+CME ERROR: 10", "+CME ERROR:10", "+CME ERROR 10": the text after the tag.
bool AfterTag(std::string_view line, std::string_view tag, std::string_view* pRest)
{
    if (!StartsWith(line, tag)) {
        return false;
    }
    std::string_view rest = line.substr(tag.size());
    if (!rest.empty() && rest.front() == ':') {
        rest.remove_prefix(1);
    } else if (!rest.empty() && rest.front() != ' ') {
        return false;   // "+CME ERRORS..." is something else
    }
    *pRest = rest;
    return true;
}

bool ClassifyFinal(std::string_view line, LineClass* pOut)
{
    if (line == "OK") {
        pOut->kind = LineKind::FinalOk;
        return true;
    }
    std::string_view rest;
    unsigned long code = 0;
    if (line == "ERROR") {
        code = kUnknownCode;
    } else if (AfterTag(line, "+CME ERROR", &rest)) {
        code = CmeErrorCode(rest);
    } else if (AfterTag(line, "+CMS ERROR", &rest)) {
        code = NumberOrUnknown(rest);
    } else if (line == "COMMAND NOT SUPPORT" || line == "COMMAND NOT SUPPORTED" ||
               line == "TOO MANY PARAMETERS") {
        // Older data cards answer commands they lack this way instead of with
        // +CME ERROR: 4; the service relies on 4 meaning "unsupported".
        code = kNotSupportedCode;
    } else {
        return false;
    }
    pOut->kind = LineKind::FinalError;
    pOut->errorCode = code;
    return true;
}

// "^RSSI: 17" -> "^RSSI"; "RING" -> "RING".
std::string_view LineName(std::string_view line)
{
    const std::size_t colon = line.find(':');
    return TrimBlanks(colon == std::string_view::npos ? line : line.substr(0, colon));
}

std::string_view TextAfterColon(std::string_view line)
{
    const std::size_t colon = line.find(':');
    return colon == std::string_view::npos ? std::string_view() : TrimBlanks(line.substr(colon + 1));
}

// "+CREG: 1", "^MODE:5,4": the shape of a named report.
bool LooksNamed(std::string_view line)
{
    return !line.empty() && (line.front() == '+' || line.front() == '^') &&
           line.find(':') != std::string_view::npos;
}

}  // namespace

const std::vector<CmeErrorText>& KnownCmeErrorTexts()
{
    // The mobile-termination error texts of 3GPP TS 27.007 that modems print
    // in verbose mode (+CMEE=2), or when they ignore +CMEE=1.
    static const std::vector<CmeErrorText> kTexts = {
        {0, "phone failure"},
        {1, "no connection to phone"},
        {2, "phone-adaptor link reserved"},
        {3, "operation not allowed"},
        {4, "operation not supported"},
        {5, "PH-SIM PIN required"},
        {6, "PH-FSIM PIN required"},
        {7, "PH-FSIM PUK required"},
        {10, "SIM not inserted"},
        {11, "SIM PIN required"},
        {12, "SIM PUK required"},
        {13, "SIM failure"},
        {14, "SIM busy"},
        {15, "SIM wrong"},
        {16, "incorrect password"},
        {17, "SIM PIN2 required"},
        {18, "SIM PUK2 required"},
        {20, "memory full"},
        {21, "invalid index"},
        {22, "not found"},
        {23, "memory failure"},
        {24, "text string too long"},
        {25, "invalid characters in text string"},
        {26, "dial string too long"},
        {27, "invalid characters in dial string"},
        {30, "no network service"},
        {31, "network timeout"},
        {32, "network not allowed - emergency calls only"},
        {40, "network personalization PIN required"},
        {41, "network personalization PUK required"},
        {42, "network subset personalization PIN required"},
        {43, "network subset personalization PUK required"},
        {44, "service provider personalization PIN required"},
        {45, "service provider personalization PUK required"},
        {46, "corporate personalization PIN required"},
        {47, "corporate personalization PUK required"},
        {50, "incorrect parameters"},
        {100, "unknown"},
        {103, "illegal MS"},
        {106, "illegal ME"},
        {107, "GPRS services not allowed"},
        {111, "PLMN not allowed"},
        {112, "location area not allowed"},
        {113, "roaming not allowed in this location area"},
        {132, "service option not supported"},
        {133, "requested service option not subscribed"},
        {134, "service option temporarily out of order"},
        {148, "unspecified GPRS error"},
        {149, "PDP authentication failure"},
        {150, "invalid mobile class"},
    };
    return kTexts;
}

unsigned long CmeErrorCode(std::string_view text)
{
    text = UnquoteField(TrimBlanks(text));
    unsigned long value = 0;
    if (ParseNumber(text, &value)) {
        return value <= kMaxModemCode ? value : kUnknownCode;
    }
    const std::string wanted = Normalise(text);
    if (wanted.empty()) {
        return kUnknownCode;
    }
    for (const CmeErrorText& row : KnownCmeErrorTexts()) {
        if (Normalise(row.text) == wanted) {
            return row.code;
        }
    }
    return kUnknownCode;
}

LineClass ClassifyLine(std::string_view rawLine, const RunningCommand* pRunning,
                       const NameSet& subscribed)
{
    LineClass result;
    const std::string_view line = TrimBlanks(rawLine);
    if (line.empty() || ClassifyFinal(line, &result)) {
        return result;
    }

    if (pRunning != nullptr && !pRunning->name.empty()) {
        const std::string& name = pRunning->name;
        if (StartsWith(line, name) && line.size() > name.size() && line[name.size()] == ':') {
            result.kind = LineKind::Information;
            result.name = name;
            result.text = std::string(TrimBlanks(line.substr(name.size() + 1)));
            return result;
        }
        if (pRunning->bRawData) {
            // With echo still on (ATE0 not yet taken), "AT+CIMI" comes back first.
            const bool bEcho = StartsWithNoCase(line, "AT") &&
                               StartsWithNoCase(line.substr(2), name);
            if (!bEcho && !LooksNamed(line)) {
                result.kind = LineKind::Information;
                result.name = name;
                result.text = std::string(line);
                return result;
            }
        }
    }

    const std::string_view name = LineName(line);
    if (!name.empty() && subscribed.find(name) != subscribed.end()) {
        result.kind = LineKind::Report;
        result.name = std::string(name);
        result.text = std::string(TextAfterColon(line));
    }
    return result;
}

}  // namespace host
