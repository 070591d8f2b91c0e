// The execute-and-wait road, through the modem's last-error query.

#include "ServiceFixture.h"
#include "TraceSrv.h"

namespace {

using LastError = ServiceFixture;
using testkit::AtForm;

TEST_F(LastError, AsksForTheCallersKindAndFillsTheRecord)
{
    Service();
    processor.Expect("^GLASTERR", AtForm::Set).With({"1"}).Answer({"1", "30"});
    NETSRV_DATA::SRV_LAST_ERROR lastErr;
    lastErr.type = 1;
    unsigned long err = 777;
    ASSERT_TRUE(service->SRVGetLastErr(&lastErr, &err));
    EXPECT_EQ(lastErr.type, 1u);
    EXPECT_EQ(lastErr.code, 30u);
    EXPECT_EQ(err, 777u) << "success leaves the error word alone";

    const auto calls = processor.Calls();
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].timeoutMs, 30000u);
    EXPECT_EQ(calls[0].kind, testkit::ExecutedCall::Kind::WithResponse);

    // An answer for another kind than asked is passed on as the modem gave it.
    processor.Expect("^GLASTERR", AtForm::Set).With({"0"}).Answer({"2", "4"});
    lastErr.type = 0;
    ASSERT_TRUE(service->SRVGetLastErr(&lastErr, &err));
    EXPECT_EQ(lastErr.type, 2u);
    EXPECT_EQ(lastErr.code, 4u);
}

TEST_F(LastError, FailureWritesTheProcessorsCode)
{
    const unsigned long codes[] = {4, 30, 100, AT_ERROR_TIMEOUT, AT_ERROR_PORT_CLOSED};
    Service();
    for (unsigned long code : codes) {
        traces.Clear();
        processor.Expect("^GLASTERR", AtForm::Set).Fail(code);
        NETSRV_DATA::SRV_LAST_ERROR lastErr;
        lastErr.code = 55;
        unsigned long err = 0;
        EXPECT_FALSE(service->SRVGetLastErr(&lastErr, &err));
        EXPECT_EQ(err, code);
        EXPECT_EQ(static_cast<unsigned long>(service->GetLastError()), code);
        EXPECT_EQ(lastErr.code, 55u) << "the record is written only on success";
        EXPECT_EQ(traces.Count("CNetSrvImpl::SRVGetLastErr error", TL_ERRO), 1);
    }
}

TEST_F(LastError, BadArguments)
{
    Service();
    traces.Clear();
    NETSRV_DATA::SRV_LAST_ERROR lastErr;
    EXPECT_FALSE(service->SRVGetLastErr(&lastErr, nullptr));

    unsigned long err = 0;
    EXPECT_FALSE(service->SRVGetLastErr(nullptr, &err));
    EXPECT_EQ(err, 10001u);

    EXPECT_TRUE(processor.Calls().empty());
    EXPECT_TRUE(traces.Lines().empty());
}

TEST_F(LastError, NoProcessorIsTracedAndLeavesTheErrorWord)
{
    Service();
    container.Register(IPROCESSOR_INTERFACE_ID, IPROCESSOR_INTERFACE_NO, nullptr);
    traces.Clear();
    NETSRV_DATA::SRV_LAST_ERROR lastErr;
    unsigned long err = 42;
    EXPECT_FALSE(service->SRVGetLastErr(&lastErr, &err));
    EXPECT_EQ(err, 42u);
    EXPECT_EQ(traces.Count("CNetSrvImpl IProcess pointer is null", TL_ERRO), 1);
}

}  // namespace
