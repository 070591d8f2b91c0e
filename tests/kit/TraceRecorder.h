// Records every trace while it lives, through the trace service's sink.
// Thread-safe: traces may arrive from the service's own threads.
#ifndef TESTKIT_TRACERECORDER_H
#define TESTKIT_TRACERECORDER_H

#include <mutex>
#include <string>
#include <vector>

namespace testkit {

struct TraceLine {
    int level;
    std::string module;
    std::string message;
};

class TraceRecorder {
public:
    TraceRecorder();    // installs itself as the sink
    ~TraceRecorder();   // restores the default sink
    TraceRecorder(const TraceRecorder&) = delete;
    TraceRecorder& operator=(const TraceRecorder&) = delete;

    std::vector<TraceLine> Lines() const;
    // How many traces carried exactly this message (at this level, when given).
    int Count(const std::string& message, int level = -1) const;
    bool Contains(const std::string& message, int level = -1) const
    {
        return Count(message, level) > 0;
    }
    void Clear();

private:
    static void Sink(int level, const char* module, const char* message, void* ctx);

    mutable std::mutex m_mutex;
    std::vector<TraceLine> m_lines;
};

}  // namespace testkit

#endif
