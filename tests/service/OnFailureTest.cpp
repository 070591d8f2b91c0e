// Where a failed command's code goes and what is traced, for each form an
// operation may ask for; the service tests pin which operation asks for which.
#include <gtest/gtest.h>

#include <atomic>

#include "NetSrvOnFailure.h"
#include "TraceRecorder.h"

namespace {

const unsigned long kUntouched = 777;

TEST(OnFailureTest, CodeAndTraceGoWhereTheOperationSays)
{
    unsigned long status = kUntouched;
    const struct {
        OnFailure failure;
        unsigned long code;
        unsigned long lastError;   // the service's word afterwards
        unsigned long status;      // the caller's word afterwards
        int level;                 // of the one trace expected; 0: none
        const char* trace;
    } rows[] = {
        {OnFailure(), 4, 4, kUntouched, 0, ""},
        {OnFailure(&status).Trace("X error"), 4, 4, 4, TL_ERRO, "X error"},
        {OnFailure(&status).CallerWordOnly(), 4, kUntouched, 4, 0, ""},
        {OnFailure(&status).Trace("Y", TL_INFO), 4, 4, 4, TL_INFO, "Y"},
        {OnFailure().Trace("general").TraceForCode(4, "unsupported", TL_INFO), 4, 4, kUntouched,
         TL_INFO, "unsupported"},
        {OnFailure().Trace("general").TraceForCode(4, "unsupported", TL_INFO), 100, 100,
         kUntouched, TL_ERRO, "general"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.code);
        testkit::TraceRecorder traces;
        std::atomic<unsigned long> lastError(kUntouched);
        status = kUntouched;
        row.failure.Settle(row.code, lastError);
        EXPECT_EQ(lastError, row.lastError);
        EXPECT_EQ(status, row.status);
        ASSERT_EQ(traces.Lines().size(), row.level == 0 ? 0u : 1u);
        if (row.level != 0) {
            EXPECT_EQ(traces.Lines()[0].message, row.trace);
            EXPECT_EQ(traces.Lines()[0].level, row.level);
        }
    }
}

TEST(OnFailureTest, MissingProcessorTracesOnly)
{
    testkit::TraceRecorder traces;
    unsigned long status = kUntouched;
    OnFailure(&status).NoProcessor();
    OnFailure(&status).NoProcessorTrace("CNetSrvImpl IProcess pointer is NULL").NoProcessor();
    EXPECT_EQ(status, kUntouched);
    ASSERT_EQ(traces.Lines().size(), 2u);
    EXPECT_EQ(traces.Lines()[0].message, "CNetSrvImpl IProcess pointer is null");
    EXPECT_EQ(traces.Lines()[1].message, "CNetSrvImpl IProcess pointer is NULL");
}

}  // namespace
