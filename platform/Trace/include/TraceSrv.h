// The host's trace service. Thread-safe: every call delivers one whole message.
#ifndef TRACE_TRACESRV_H
#define TRACE_TRACESRV_H

enum TRACE_LEVEL {
    TL_CRIT = 1,   // alarms and caught exceptions
    TL_ERRO = 2,   // failures (and many success notes, which keep this level)
    TL_WARN = 3,
    TL_INFO = 4
};

typedef void (*PFN_TRACE_SINK)(int level, const char* module, const char* message, void* ctx);

extern "C" {
// Sends one message to the current sink.
void TraceSrv_Trace(int level, const char* module, const char* message);
// Installs a sink that receives every message, whatever its level; null restores
// the default sink: standard error, filtered by the level in NETSRV_TRACE_LEVEL
// (default 2). Returns after any message that is being delivered has been.
void TraceSrv_SetSink(PFN_TRACE_SINK pfn, void* ctx);
}

#endif
