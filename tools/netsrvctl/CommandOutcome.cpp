#include "CommandOutcome.h"

#include "AtCodec/IProcessor.h"
#include "ErrorText.h"
#include "OutputText.h"

namespace netsrvctl {

ExitStatus StatusOfErrorWord(unsigned long dwError)
{
    return dwError == AT_ERROR_TIMEOUT || dwError == AT_ERROR_PORT_CLOSED ? EXIT_NO_MODEM
                                                                         : EXIT_FAILED;
}

void SetFailure(Outcome* pOutcome, const char* pszWhat, unsigned long dwError)
{
    const std::string meaning = DescribeErrorWord(dwError);
    pOutcome->status = StatusOfErrorWord(dwError);
    pOutcome->json["error"] = dwError;
    pOutcome->json["meaning"] = meaning;
    pOutcome->errorLine = std::string("netsrvctl: ") + pszWhat + " failed: error " +
                          std::to_string(dwError) + " (" + meaning + ")";
}

ExitStatus Print(const Outcome& outcome, const OutputOptions& out, std::ostream& os,
                 std::ostream& err)
{
    if (out.json) {
        os << JsonLine(outcome.json) << "\n";
    } else {
        os << outcome.text;
    }
    if (!outcome.errorLine.empty()) {
        err << outcome.errorLine << "\n";
    }
    return outcome.status;
}

ExitStatus ReportFailure(const char* pszWhat, unsigned long dwError, const OutputOptions& out,
                         std::ostream& os, std::ostream& err)
{
    Outcome outcome;
    SetFailure(&outcome, pszWhat, dwError);
    return Print(outcome, out, os, err);
}

ExitStatus SettingDone(bool bDone, unsigned long dwError, const char* pszWhat,
                       const nlohmann::ordered_json& json, const std::string& text,
                       const OutputOptions& out, std::ostream& os, std::ostream& err)
{
    if (!bDone) {
        return ReportFailure(pszWhat, dwError, out, os, err);
    }
    Outcome outcome;
    outcome.json = json;
    outcome.text = text;
    return Print(outcome, out, os, err);
}

ExitStatus ReadingsDone(const ReadSeries& reads, bool bEnough, const char* pszWhat,
                        const nlohmann::ordered_json& json, const std::string& text,
                        const OutputOptions& out, std::ostream& os, std::ostream& err)
{
    Outcome outcome;
    outcome.json = json;
    outcome.text = text;
    if (!bEnough) {
        reads.SetFirstFailure(&outcome, pszWhat);
    }
    return Print(outcome, out, os, err);
}

void ReadSeries::SetFirstFailure(Outcome* pOutcome, const char* pszWhat) const
{
    if (m_firstError) {
        SetFailure(pOutcome, pszWhat, *m_firstError);
    }
}

}  // namespace netsrvctl
