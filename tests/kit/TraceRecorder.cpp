#include "TraceRecorder.h"

#include "TraceSrv.h"

namespace testkit {

TraceRecorder::TraceRecorder()
{
    TraceSrv_SetSink(&TraceRecorder::Sink, this);
}

TraceRecorder::~TraceRecorder()
{
    TraceSrv_SetSink(nullptr, nullptr);
}

void TraceRecorder::Sink(int level, const char* module, const char* message, void* ctx)
{
    TraceRecorder* self = static_cast<TraceRecorder*>(ctx);
    std::lock_guard<std::mutex> lock(self->m_mutex);
    self->m_lines.push_back({level, module ? module : "", message ? message : ""});
}

std::vector<TraceLine> TraceRecorder::Lines() const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_lines;
}

int TraceRecorder::Count(const std::string& message, int level) const
{
    std::lock_guard<std::mutex> lock(m_mutex);
    int n = 0;
    for (const TraceLine& line : m_lines) {
        if (line.message == message && (level < 0 || line.level == level)) {
            ++n;
        }
    }
    return n;
}

void TraceRecorder::Clear()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_lines.clear();
}

}  // namespace testkit
