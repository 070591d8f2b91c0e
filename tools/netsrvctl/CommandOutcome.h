// How every command ends: its result kept until it is printed (text, or one
// JSON object with --json), a failure told by its error word and meaning,
// and the exit status that the failure stands for.
#ifndef NETSRVCTL_COMMANDOUTCOME_H
#define NETSRVCTL_COMMANDOUTCOME_H

#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <string>

#include "Commands.h"

namespace netsrvctl {

// A query's result before it is printed, so that the command without a name
// can put two of them together.
struct Outcome {
    ExitStatus status = EXIT_OK;
    nlohmann::ordered_json json = nlohmann::ordered_json::object();
    std::string text;
    std::string errorLine;   // for standard error; empty on success
};

// A modem that stopped answering or whose port went away is the modem's
// failure, not the operation's.
ExitStatus StatusOfErrorWord(unsigned long dwError);

// The service failed: say which error word it gave and what it means. The
// JSON gets "error" and "meaning" after what it holds already.
void SetFailure(Outcome* pOutcome, const char* pszWhat, unsigned long dwError);

ExitStatus Print(const Outcome& outcome, const OutputOptions& out, std::ostream& os,
                 std::ostream& err);

ExitStatus ReportFailure(const char* pszWhat, unsigned long dwError, const OutputOptions& out,
                         std::ostream& os, std::ostream& err);

// How a setting command ends: when it was done, the value it set as its view
// shows it (json, text); otherwise its failure, as any query's.
ExitStatus SettingDone(bool bDone, unsigned long dwError, const char* pszWhat,
                       const nlohmann::ordered_json& json, const std::string& text,
                       const OutputOptions& out, std::ostream& os, std::ostream& err);

class ReadSeries;

// How a reading command ends: what it read and, when that is not enough
// (bEnough false), the first failure among its reads.
ExitStatus ReadingsDone(const ReadSeries& reads, bool bEnough, const char* pszWhat,
                        const nlohmann::ordered_json& json, const std::string& text,
                        const OutputOptions& out, std::ostream& os, std::ostream& err);

// The reads of a command that shows whatever it could read. Each read is
// tried in turn until one finds the modem silent or gone: every later one
// would only wait out its own time-out. The first failure's word is kept.
class ReadSeries {
public:
    // read(unsigned long* pdwError) -> bool, as the service's queries.
    template <typename Read>
    bool Try(Read read)
    {
        if (m_bModemGone) {
            return false;
        }
        unsigned long dwError = 0;
        if (read(&dwError)) {
            m_bAnyRead = true;
            return true;
        }
        if (!m_firstError) {
            m_firstError = dwError;
        }
        m_bModemGone = StatusOfErrorWord(dwError) == EXIT_NO_MODEM;
        return false;
    }

    bool AnyRead() const { return m_bAnyRead; }
    // Sets the first failure on the outcome; without one, nothing.
    void SetFirstFailure(Outcome* pOutcome, const char* pszWhat) const;

private:
    bool m_bAnyRead = false;
    bool m_bModemGone = false;
    std::optional<unsigned long> m_firstError;
};

}  // namespace netsrvctl

#endif
