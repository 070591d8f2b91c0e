// Decides what one line from the modem is: the final result of the running
// command, one of its information lines, a subscribed unsolicited report, or
// nothing of interest (an echo, garbage, a report nobody asked for). Pure
// functions of their inputs; safe from any thread.
#ifndef HOST_LINECLASSIFIER_H
#define HOST_LINECLASSIFIER_H

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace host {

enum class LineKind {
    FinalOk,       // "OK"
    FinalError,    // "ERROR", "+CME ERROR: n", "+CMS ERROR: n", "COMMAND NOT SUPPORT" ...
    Information,   // an answer line of the running command
    Report,        // an unsolicited report of a subscribed name
    Other          // anything else
};

struct LineClass {
    LineKind kind = LineKind::Other;
    unsigned long errorCode = 0;   // FinalError: the modem's code (100 when it gave none)
    std::string name;              // Information, Report: "+COPS"
    std::string text;              // Information, Report: what follows "NAME:", trimmed;
                                   // the whole line for a raw-data answer
};

// The command waiting for its answer.
struct RunningCommand {
    std::string name;        // "+COPS"; empty when the command's answer lines are not wanted
    bool bRawData = false;   // answers with a bare line ("+CIMI": "998899889988997")
};

using NameSet = std::set<std::string, std::less<>>;

// pRunning is null when no command is running. subscribed holds the names
// that clients registered for.
//
// A line is the running command's information line when it starts with the
// command's name and ':' ("^SYSCFG: 2,0,400000,0,3", "^HCSQ:\"LTE\",30,19,66,0"),
// or, for a raw-data command, when it is any other line that is neither final,
// nor the echo of the command, nor shaped like a named report ("+X: ..." or
// "^X: ..."): a "^RSSI: 17" that arrives while "+CIMI" runs is not an IMSI.
// Otherwise a line whose name (the text before ':', or the whole line when it
// has no ':') is subscribed is a report.
LineClass ClassifyLine(std::string_view line, const RunningCommand* pRunning,
                       const NameSet& subscribed);

// The code of a "+CME ERROR:" text: its number, or the number of a known
// verbose text ("SIM not inserted" -> 10, compared without regard to case and
// surrounding quotes), else 100. Numbers above 9999 also give 100: modem codes
// stay below the processor's own codes.
unsigned long CmeErrorCode(std::string_view text);

struct CmeErrorText {
    unsigned long code;
    const char* text;
};

// The verbose "+CME ERROR" texts that CmeErrorCode knows, as modems print them.
const std::vector<CmeErrorText>& KnownCmeErrorTexts();

}  // namespace host

#endif
