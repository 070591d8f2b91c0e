// The host's trace service. Every message goes to one sink at a time under a
// process-wide lock, so lines from different threads never mix and a sink
// that is being replaced has finished its last message when SetSink returns.
// The lock is recursive: a sink may trace or replace itself.
#include "TraceSrv.h"

#include <cxxabi.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <mutex>
#include <string>

namespace {

const int kDefaultLevel = TL_ERRO;

struct TraceState {
    std::recursive_mutex mutex;
    PFN_TRACE_SINK pfnSink = nullptr;
    void* pContext = nullptr;
    int nStderrLevel = kDefaultLevel;
};

// Read at start-up and again whenever the default sink is put back, so a
// tool can change the filter without restarting.
int LevelFromEnvironment()
{
    const char* pszLevel = getenv("NETSRV_TRACE_LEVEL");
    if (pszLevel == nullptr || *pszLevel == '\0') {
        return kDefaultLevel;
    }
    char* pszEnd = nullptr;
    errno = 0;
    const long nLevel = strtol(pszLevel, &pszEnd, 10);
    if (errno != 0 || *pszEnd != '\0' || nLevel < 0 || nLevel > 1000) {
        return kDefaultLevel;
    }
    return static_cast<int>(nLevel);
}

TraceState& State()
{
    static TraceState* pState = [] {
        // Never destroyed: threads may still trace while the process exits.
        TraceState* p = new TraceState;
        p->nStderrLevel = LevelFromEnvironment();
        return p;
    }();
    return *pState;
}

const char* LevelName(int nLevel)
{
    switch (nLevel) {
    case TL_CRIT: return "CRIT";
    case TL_ERRO: return "ERRO";
    case TL_WARN: return "WARN";
    case TL_INFO: return "INFO";
    default: return nullptr;
    }
}

// "2024-05-01 12:00:00.123 ERRO [CNetSrvImpl] SRVGetCurRSSI() error"
std::string FormatLine(int nLevel, const char* pszModule, const char* pszMessage)
{
    struct timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    struct tm local;
    const time_t seconds = now.tv_sec;
    localtime_r(&seconds, &local);
    char stamp[64];
    const size_t nStamp = strftime(stamp, sizeof(stamp), "%Y-%m-%d %H:%M:%S", &local);
    char millis[8];
    snprintf(millis, sizeof(millis), ".%03d", static_cast<int>(now.tv_nsec / 1000000));

    std::string strLine(stamp, nStamp);
    strLine += millis;
    strLine += ' ';
    const char* pszLevel = LevelName(nLevel);
    strLine += pszLevel != nullptr ? std::string(pszLevel) : "L" + std::to_string(nLevel);
    strLine += " [";
    strLine += pszModule;
    strLine += "] ";
    strLine += pszMessage;
    strLine += '\n';
    return strLine;
}

void WriteToStderr(const std::string& strLine)
{
    size_t nDone = 0;
    while (nDone < strLine.size()) {
        const ssize_t nWritten = write(STDERR_FILENO, strLine.data() + nDone, strLine.size() - nDone);
        if (nWritten < 0 && errno == EINTR) {
            continue;
        }
        if (nWritten <= 0) {
            return;
        }
        nDone += static_cast<size_t>(nWritten);
    }
}

}  // namespace

extern "C" void TraceSrv_Trace(int level, const char* module, const char* message)
{
    const char* pszModule = module != nullptr ? module : "";
    const char* pszMessage = message != nullptr ? message : "";
    try {
        TraceState& state = State();
        std::lock_guard<std::recursive_mutex> lock(state.mutex);
        if (state.pfnSink != nullptr) {
            state.pfnSink(level, pszModule, pszMessage, state.pContext);
        } else if (level <= state.nStderrLevel) {
            WriteToStderr(FormatLine(level, pszModule, pszMessage));
        }
    } catch (...) {
        // A thread cancelled inside a sink unwinds with an exception of no
        // C++ type, which must go on; anything else a trace swallows.
        if (abi::__cxa_current_exception_type() == nullptr) {
            throw;
        }
    }
}

extern "C" void TraceSrv_SetSink(PFN_TRACE_SINK pfn, void* ctx)
{
    TraceState& state = State();
    std::lock_guard<std::recursive_mutex> lock(state.mutex);
    state.pfnSink = pfn;
    state.pContext = pfn != nullptr ? ctx : nullptr;
    if (pfn == nullptr) {
        state.nStderrLevel = LevelFromEnvironment();
    }
}
