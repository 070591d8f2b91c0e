#include "OptionChecks.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>

#include "AcquisitionOrder.h"
#include "ConfigChange.h"

namespace netsrvctl {

namespace {
// Long enough to show what was typed, short enough for one line.
std::string Shown(const std::string& value)
{
    const size_t kMaxShown = 24;
    return value.size() <= kMaxShown ? value : value.substr(0, kMaxShown) + "...";
}

// A value that accepts(value) takes; otherwise "<wanted>, not <value>".
template <typename Accepts>
CLI::Validator Accepting(Accepts accepts, const std::string& wanted)
{
    return CLI::Validator(
        [accepts, wanted](std::string& value) -> std::string {
            return accepts(value) ? std::string() : wanted + ", not " + Shown(value);
        },
        "", "");
}
}  // namespace

CLI::Validator WholeNumberIn(long long min, long long max, const char* pszWanted)
{
    const std::string wanted = pszWanted;
    return CLI::Validator(
        [min, max, wanted](std::string& value) -> std::string {
            errno = 0;
            char* pEnd = nullptr;
            const long long number = std::strtoll(value.c_str(), &pEnd, 10);
            const bool bWhole = !value.empty() && *pEnd == '\0' && errno != ERANGE;
            if (!bWhole || number < min || number > max) {
                return wanted + ", not " + Shown(value);
            }
            return std::string();
        },
        "", "");
}

CLI::Validator Seconds(const char* pszWanted)
{
    const std::string wanted = pszWanted;
    return CLI::Validator(
        [wanted](std::string& value) -> std::string {
            char* pEnd = nullptr;
            const double seconds = std::strtod(value.c_str(), &pEnd);
            if (value.empty() || *pEnd != '\0' || !std::isfinite(seconds) || seconds < 0) {
                return wanted + ", not " + Shown(value);
            }
            return std::string();
        },
        "", "");
}

CLI::Validator OneOfWords(const WordTable& table)
{
    return Accepting([&table](const std::string& value) { return ValueOfWord(table, value); },
                     "must be one of " + WordList(table));
}

CLI::Validator MinNumber()
{
    return Accepting(IsMinNumber, "must be 10 or 15 digits");
}

CLI::Validator ModeArgument()
{
    return Accepting(AcqOrderOfModeArgument, "must be " + ModeArgumentForms());
}

CLI::Validator BandArgument()
{
    return Accepting(ParseBandChoice,
                     "must be a hexadecimal mask of up to 64 bits (0x optional) or all");
}

}  // namespace netsrvctl
