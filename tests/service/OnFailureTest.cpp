// Where a failed command's code goes and what is traced, for every form an
// operation may ask for; the service tests pin which operation asks for which.
#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <string>

#include "NetSrvOnFailure.h"
#include "TraceRecorder.h"

namespace {

const unsigned long kUntouched = 777;
const unsigned long kCode = 4;

struct Row {
    const char* name;
    std::function<OnFailure(unsigned long*)> make;
    unsigned long code;
    unsigned long lastError;   // the service's word afterwards
    unsigned long status;      // the caller's word afterwards
    int level;                 // of the one trace expected; 0: none
    const char* trace;
};

TEST(OnFailureTest, CodeAndTraceGoWhereTheOperationSays)
{
    const Row rows[] = {
        {"service word only", [](unsigned long*) { return OnFailure(); }, kCode, kCode,
         kUntouched, 0, nullptr},
        {"both words", [](unsigned long* p) { return OnFailure(p).Trace("X error"); }, kCode,
         kCode, kCode, TL_ERRO, "X error"},
        {"caller word only",
         [](unsigned long* p) { return OnFailure(p).CallerWordOnly(); }, kCode, kUntouched,
         kCode, 0, nullptr},
        {"trace at its own level", [](unsigned long*) { return OnFailure().Trace("Y", TL_INFO); },
         kCode, kCode, kUntouched, TL_INFO, "Y"},
        {"the code's own trace",
         [](unsigned long*) {
             return OnFailure().Trace("general").TraceForCode(kCode, "unsupported", TL_INFO);
         },
         kCode, kCode, kUntouched, TL_INFO, "unsupported"},
        {"another code keeps the general trace",
         [](unsigned long*) {
             return OnFailure().Trace("general").TraceForCode(kCode, "unsupported", TL_INFO);
         },
         100, 100, kUntouched, TL_ERRO, "general"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        testkit::TraceRecorder traces;
        std::atomic<unsigned long> lastError(kUntouched);
        unsigned long status = kUntouched;
        row.make(&status).Settle(row.code, lastError);
        EXPECT_EQ(lastError, row.lastError);
        EXPECT_EQ(status, row.status);
        if (row.trace == nullptr) {
            EXPECT_TRUE(traces.Lines().empty());
        } else {
            ASSERT_EQ(traces.Lines().size(), 1u);
            EXPECT_EQ(traces.Lines()[0].message, row.trace);
            EXPECT_EQ(traces.Lines()[0].level, row.level);
            EXPECT_EQ(traces.Lines()[0].module, "CNetSrvImpl");
        }
    }
}

TEST(OnFailureTest, MissingProcessorTracesOnlyAndMayBeWordedByTheOperation)
{
    testkit::TraceRecorder traces;
    unsigned long status = kUntouched;
    OnFailure(&status).NoProcessor();
    OnFailure(&status).NoProcessorTrace("CNetSrvImpl IProcess pointer is NULL").NoProcessor();
    EXPECT_EQ(status, kUntouched);
    ASSERT_EQ(traces.Lines().size(), 2u);
    EXPECT_EQ(traces.Lines()[0].message, "CNetSrvImpl IProcess pointer is null");
    EXPECT_EQ(traces.Lines()[1].message, "CNetSrvImpl IProcess pointer is NULL");
    EXPECT_EQ(traces.Lines()[1].level, TL_ERRO);
}

}  // namespace
