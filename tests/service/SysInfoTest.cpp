// The system-information reads: the "^SYSINFOEX" cache, the "^SYSINFO"
// fall-back with its mode mapping, the change reports, and the getters.

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "EventRecorder.h"
#include "ServiceFixture.h"
#include "TraceSrv.h"

namespace {

using testkit::AtForm;
using namespace NETSRV_DATA;
using Fields = std::vector<std::string>;

// "^SYSINFOEX: 2,3,0,1,0,6,"LTE",101,"LTE"" as fields.
Fields SysInfoEx(int status, int domain, int sysMode = 6, const std::string& modeName = "LTE")
{
    return {std::to_string(status), std::to_string(domain), "0", "1", "0",
            std::to_string(sysMode), modeName, "101", modeName};
}

class SysInfo : public ServiceFixture {
protected:
    // Makes the next cached read go to the modem, as a lost device does.
    void ExpireCache() { service->OnDeviceMgrEvent(IDeviceMgrEvent::EVENT_DEVICE_REJECT, nullptr); }

    // The events the report thread delivered; each report takes a turn of 200 ms.
    std::vector<int> EventsAfter(std::size_t count)
    {
        events.WaitForCount(count, std::chrono::seconds(5));
        // Anything beyond the expected count would arrive within one more turn.
        std::this_thread::sleep_for(std::chrono::milliseconds(450));
        return events.Ids();
    }

    testkit::EventRecorder events;
};

TEST_F(SysInfo, ExReadFillsTheRecordAndIsCachedForFiveSeconds)
{
    Service();
    processor.Expect("^SYSINFOEX", AtForm::Bare)
        .Answer({"2", "4", "5", "1", "3", "3", "WCDMA", "44", "HSPA"});
    SystemInfo info;
    ASSERT_TRUE(service->SRVGetSystemInfoEx(info));
    EXPECT_EQ(info.dwSrvStatus, 2);
    EXPECT_EQ(info.dwDomain, 4);
    EXPECT_EQ(info.dwRoam, 5);
    EXPECT_EQ(info.dwSimState, 1);
    EXPECT_EQ(info.dwLockState, 3);
    EXPECT_EQ(info.dwSysMode, 3);
    EXPECT_EQ(info.dwSubMode, 44);
    EXPECT_STREQ(info.szSysModeName, "WCDMA");
    EXPECT_STREQ(info.szSubModeName, "HSPA");
    EXPECT_EQ(processor.Calls().at(0).timeoutMs, 30000u);
    for (const char* trace : {"GetSystemInfoEx: Enter!",
                              "SRVGetSystemMode , support SYSINFOEX command and success",
                              "GetSystemInfoEx: Begin GetNumValue",
                              "GetSystemInfoEx: Finish memcpy and return true"}) {
        EXPECT_EQ(traces.Count(trace, TL_INFO), 1) << trace;
    }

    // Within five seconds the cache answers the small getters.
    traces.Clear();
    unsigned long err = 0;
    unsigned long roam = 9;
    unsigned long domain = 9;
    SysSrvStatus status = SYS_SRV_STATUS_NO_SRV;
    SystemMode mode = SYS_MODE_NO_SRV;
    ASSERT_TRUE(service->SRVGetSrvStatus(&status, &err));
    ASSERT_TRUE(service->SRVGetRoamStatus(&roam, &err));
    ASSERT_TRUE(service->SRVGetSrvDomain(&domain, &err));
    ASSERT_TRUE(service->SRVGetSystemMode(&mode, &err));
    EXPECT_EQ(status, SYS_SRV_STATUS_SRV);
    EXPECT_EQ(roam, 5u);
    EXPECT_EQ(domain, 4u);
    EXPECT_EQ(static_cast<int>(mode), SYS_MODE_WCDMA_EX) << "the Ex number, through a SystemMode";
    EXPECT_EQ(processor.Calls().size(), 1u);
    EXPECT_EQ(traces.Count("GetSystemInfoEx: Return m_Sysinfo Directely", TL_INFO), 4);
    EXPECT_EQ(traces.Count("SRVGetRoamStatus success", TL_ERRO), 1);

    // SRVGetSysInfo always reads "^SYSINFO", never the cache.
    processor.Expect("^SYSINFO", AtForm::Bare).Answer({"1", "3", "0", "15", "1", "0", "9"});
    RoamStatus roamStatus = SYS_ROAM_STATUS_ON;
    ASSERT_TRUE(service->SRVGetSysInfo(&status, &mode, &roamStatus, &err));
    EXPECT_EQ(status, SYS_SRV_STATUS_LIMITED);
    EXPECT_EQ(static_cast<int>(mode), SYS_MODE_TD_SCDMA_EX);
    EXPECT_EQ(roamStatus, SYS_ROAM_STATUS_OFF);

    // A lost device makes the next read go to the modem.
    ExpireCache();
    processor.Expect("^SYSINFOEX", AtForm::Bare).Answer(SysInfoEx(4, 2));
    ASSERT_TRUE(service->SRVGetSrvStatus(&status, &err));
    EXPECT_EQ(status, SYS_SRV_STATUS_PWR_SAVE);
}

TEST_F(SysInfo, AllZeroCacheIsNeverServedAndNamesAreCut)
{
    Service();
    // A modem with nothing to say leaves an all-zero record: asked again at once.
    processor.Expect("^SYSINFOEX", AtForm::Bare)
        .Answer({"0", "0", "0", "0", "0", "0", "", "0", ""});
    const std::string longName(70, 'M');
    processor.Expect("^SYSINFOEX", AtForm::Bare).Answer(SysInfoEx(2, 3, 6, longName));
    SystemInfo info;
    ASSERT_TRUE(service->SRVGetSystemInfoEx(info));
    ASSERT_TRUE(service->SRVGetSystemInfoEx(info));
    EXPECT_EQ(info.dwDomain, 3);
    EXPECT_FALSE(traces.Contains("GetSystemInfoEx: Return m_Sysinfo Directely"));
    // A 64-byte field: at most 63 characters and a NUL.
    EXPECT_EQ(std::string(info.szSysModeName), longName.substr(0, 63));
}

// A modem without "^SYSINFOEX" is read with "^SYSINFO" on every refresh: the
// modes come out in the Ex numbering (the mappings are pinned by their unit
// test; here the choice between the sub-mode's and the system mode's), the
// names empty, and the lock state of the last "^SYSINFOEX" read stays.
TEST_F(SysInfo, FallBackToSysinfoMapsTheModes)
{
    Service();
    processor.Expect("^SYSINFOEX", AtForm::Bare)
        .Answer({"2", "3", "0", "1", "7", "3", "WCDMA", "41", "WCDMA"});
    SystemInfo info;
    ASSERT_TRUE(service->SRVGetSystemInfoEx(info));
    const struct {
        unsigned long exCode;   // how "^SYSINFOEX" fails: 4 is "not supported"
        Fields sysinfo;
        int sysModeEx;
        int subModeEx;
    } rows[] = {
        {4, {"2", "3", "0", "5", "1", "0", "5"}, 3, 42},   // WCDMA, HSDPA
        {4, {"2", "3", "0", "8", "1"}, 2, 29},             // hybrid, no sub-mode field
        // HDR with an empty sub-mode (not sub-mode 0); any other failure falls back too.
        {AT_ERROR_TIMEOUT, {"2", "3", "0", "4", "1", "0", ""}, 2, 25},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.sysinfo[3]);
        ExpireCache();
        traces.Clear();
        processor.Expect("^SYSINFOEX", AtForm::Bare).Fail(row.exCode);
        processor.Expect("^SYSINFO", AtForm::Bare).Answer(row.sysinfo);
        ASSERT_TRUE(service->SRVGetSystemInfoEx(info));
        EXPECT_EQ(info.dwSysMode, row.sysModeEx);
        EXPECT_EQ(info.dwSubMode, row.subModeEx);
        EXPECT_EQ(info.dwLockState, 7);
        EXPECT_EQ(info.szSysModeName[0], '\0');
        EXPECT_EQ(info.szSubModeName[0], '\0');
        const bool bUnsupported = row.exCode == 4;
        EXPECT_EQ(traces.Count("GetSystemInfoEx , don't support SYSINFOEX command", TL_INFO),
                  bUnsupported ? 1 : 0);
        EXPECT_EQ(traces.Count("GetSystemInfoEx: Excues command SYSINFOEX ERROR", TL_ERRO),
                  bUnsupported ? 0 : 1);
        EXPECT_TRUE(traces.Contains("GetSystemInfo: Begin GetNumValue", TL_INFO));
        EXPECT_TRUE(traces.Contains("GetSystemInfo: end", TL_INFO));
    }
}

// Each refresh compares the reading with the cache: a changed domain queues a
// "^SYSINFO" report (EVENT_SRV_DOMAIN), a changed status a "^SRVST" report
// (EVENT_NET_SERVER_STATUS), the domain's first.
TEST_F(SysInfo, ChangesAreReportedThroughTheQueue)
{
    Service()->SRVRegisterCallback(&events);

    processor.Expect("^SYSINFOEX", AtForm::Bare).Answer(SysInfoEx(2, 3));
    SystemInfo info;
    ASSERT_TRUE(service->SRVGetSystemInfoEx(info));
    EXPECT_EQ(EventsAfter(2), (std::vector<int>{EVENT_SRV_DOMAIN, EVENT_NET_SERVER_STATUS}));
    EXPECT_EQ(events.Events()[0].number, 3u);
    EXPECT_EQ(events.Events()[1].number, 2u);
    EXPECT_TRUE(traces.Contains("GetSystemInfoEx: AtCallBackEvent INDEX_SYS_INFO", TL_INFO));
    EXPECT_TRUE(traces.Contains("GetSystemInfoEx: AtCallBackEvent INDEX_SERV_IND", TL_INFO));

    events.Clear();
    ExpireCache();
    processor.Expect("^SYSINFOEX", AtForm::Bare).Answer(SysInfoEx(2, 2));
    ASSERT_TRUE(service->SRVGetSystemInfoEx(info));
    EXPECT_EQ(EventsAfter(1), std::vector<int>{EVENT_SRV_DOMAIN});
    EXPECT_EQ(events.Events()[0].number, 2u);

    events.Clear();
    ExpireCache();
    processor.Expect("^SYSINFOEX", AtForm::Bare).Answer(SysInfoEx(1, 2));
    ASSERT_TRUE(service->SRVGetSystemInfoEx(info));
    EXPECT_EQ(EventsAfter(1), std::vector<int>{EVENT_NET_SERVER_STATUS});
    EXPECT_EQ(events.Events()[0].number, 1u);

    // Nothing changed: nothing reported.
    events.Clear();
    ExpireCache();
    processor.Expect("^SYSINFOEX", AtForm::Bare).Answer(SysInfoEx(1, 2));
    ASSERT_TRUE(service->SRVGetSystemInfoEx(info));
    EXPECT_TRUE(EventsAfter(0).empty());

    // The "^SYSINFO" read reports the same way, with its own traces.
    traces.Clear();
    processor.Expect("^SYSINFO", AtForm::Bare).Answer({"2", "3", "0", "5", "1"});
    ASSERT_TRUE(service->SRVGetSystemInfo(info));
    EXPECT_EQ(EventsAfter(2), (std::vector<int>{EVENT_SRV_DOMAIN, EVENT_NET_SERVER_STATUS}));
    EXPECT_TRUE(traces.Contains("GetSystemInfo: AtCallBackEvent INDEX_SYS_INFO", TL_INFO));
    EXPECT_TRUE(traces.Contains("GetSystemInfo: AtCallBackEvent INDEX_SERV_IND", TL_INFO));
}

TEST_F(SysInfo, GettersOnAModemThatFailsEveryRead)
{
    Service();
    unsigned long err = 0;

    processor.Expect("^SYSINFOEX", AtForm::Bare).Fail(4);
    processor.Expect("^SYSINFO", AtForm::Bare).Fail(100);
    SysSrvStatus status = SYS_SRV_STATUS_SRV;
    EXPECT_FALSE(service->SRVGetSrvStatus(&status, &err));
    EXPECT_EQ(err, 100u);
    EXPECT_EQ(status, SYS_SRV_STATUS_SRV);
    EXPECT_TRUE(traces.Contains("GetSystemInfo: Execute AT command error", TL_ERRO));
    EXPECT_TRUE(traces.Contains("SRVGetSrvStatus: get srvice status error", TL_ERRO));

    processor.Expect("^SYSINFOEX", AtForm::Bare).Fail(4);
    processor.Expect("^SYSINFO", AtForm::Bare).Fail(30);
    unsigned long roam = 5;
    EXPECT_FALSE(service->SRVGetRoamStatus(&roam, &err));
    EXPECT_EQ(err, 30u);
    EXPECT_TRUE(traces.Contains("SRVGetRoamStatus error", TL_ERRO));

    processor.Expect("^SYSINFOEX", AtForm::Bare).Fail(4);
    processor.Expect("^SYSINFO", AtForm::Bare).Fail(AT_ERROR_TIMEOUT);
    unsigned long domain = 5;
    EXPECT_FALSE(service->SRVGetSrvDomain(&domain, &err));
    EXPECT_EQ(err, static_cast<unsigned long>(AT_ERROR_TIMEOUT));

    // The system mode never fails: a modem that cannot be read is "no service".
    processor.Expect("^SYSINFOEX", AtForm::Bare).Fail(4);
    processor.Expect("^SYSINFO", AtForm::Bare).Fail(100);
    SystemMode mode = SYS_MODE_WCDMA;
    err = 0;
    EXPECT_TRUE(service->SRVGetSystemMode(&mode, &err));
    EXPECT_EQ(mode, SYS_MODE_NO_SRV);

    processor.Expect("^SYSINFO", AtForm::Bare).Fail(50);
    RoamStatus roamStatus = SYS_ROAM_STATUS_OFF;
    EXPECT_FALSE(service->SRVGetSysInfo(&status, &mode, &roamStatus, &err));
    EXPECT_EQ(err, 50u);
}

TEST_F(SysInfo, NullOutputsAndNoProcessor)
{
    Service();
    SysSrvStatus status;
    SystemMode mode;
    RoamStatus roam;
    unsigned long value = 0;
    EXPECT_FALSE(service->SRVGetSrvStatus(&status, nullptr));
    EXPECT_FALSE(service->SRVGetSystemMode(&mode, nullptr));
    EXPECT_FALSE(service->SRVGetRoamStatus(&value, nullptr));
    EXPECT_FALSE(service->SRVGetSrvDomain(&value, nullptr));
    EXPECT_FALSE(service->SRVGetSysInfo(&status, &mode, &roam, nullptr));
    EXPECT_FALSE(service->SRVSetSrvStatus(SYS_SRV_STATUS_SRV, nullptr));

    // A null output is a bad parameter, each of the three of SRVGetSysInfo too.
    unsigned long err = 0;
    auto badParam = [&err](bool bResult) {
        EXPECT_FALSE(bResult);
        EXPECT_EQ(err, 10001u);
        err = 0;
    };
    badParam(service->SRVGetSrvStatus(nullptr, &err));
    badParam(service->SRVGetSystemMode(nullptr, &err));
    badParam(service->SRVGetRoamStatus(nullptr, &err));
    badParam(service->SRVGetSrvDomain(nullptr, &err));
    badParam(service->SRVGetSysInfo(nullptr, &mode, &roam, &err));
    badParam(service->SRVGetSysInfo(&status, nullptr, &roam, &err));
    badParam(service->SRVGetSysInfo(&status, &mode, nullptr, &err));
    EXPECT_TRUE(processor.Calls().empty());

    container.Register(IPROCESSOR_INTERFACE_ID, IPROCESSOR_INTERFACE_NO, nullptr);
    traces.Clear();
    SystemInfo info;
    EXPECT_FALSE(service->SRVGetSystemInfoEx(info));
    EXPECT_FALSE(service->SRVSetSrvStatus(SYS_SRV_STATUS_SRV, &err));
    // The Ex read, its "^SYSINFO" fall-back and the registration each found none.
    EXPECT_EQ(traces.Count("CNetSrvImpl IProcess pointer is null", TL_ERRO), 3);
}

TEST_F(SysInfo, SetSrvStatusRegistersOrLeaves)
{
    Service();
    processor.Expect("^REGISTER", AtForm::Set).With({"0"}).Ok();
    processor.Expect("^REGISTER", AtForm::Set).With({"1"}).Ok();
    processor.Expect("^REGISTER", AtForm::Set).With({"1"}).Ok();
    processor.Expect("^REGISTER", AtForm::Set).With({"1"}).Fail(3);
    unsigned long err = 0;
    EXPECT_TRUE(service->SRVSetSrvStatus(SYS_SRV_STATUS_NO_SRV, &err));
    EXPECT_TRUE(service->SRVSetSrvStatus(SYS_SRV_STATUS_SRV, &err));
    EXPECT_TRUE(service->SRVSetSrvStatus(SYS_SRV_STATUS_PWR_SAVE, &err));
    EXPECT_FALSE(service->SRVSetSrvStatus(SYS_SRV_STATUS_LIMITED, &err));
    EXPECT_EQ(err, 3u);
    EXPECT_EQ(service->GetLastError(), 3);
    for (const testkit::ExecutedCall& call : processor.Calls()) {
        EXPECT_EQ(call.kind, testkit::ExecutedCall::Kind::NoResponse);
        EXPECT_EQ(call.timeoutMs, 30000u);
    }
}

}  // namespace
