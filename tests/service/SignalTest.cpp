// The signal queries: "^HCSQ" first, each query's own fall-back after it, the
// signal-bar formula chosen by device kind and system mode, error words and
// traces.

#include <optional>
#include <string>
#include <vector>

#include "ServiceFixture.h"
#include "TraceSrv.h"

namespace {

using namespace NETSRV_DATA;
using testkit::AtForm;
typedef std::vector<std::string> Fields;
typedef std::vector<Fields> Lines;

const char* const kNoProcessor = "CNetSrvImpl IProcess pointer is null";

// One scripted exchange: the command and either its answer lines or a failure code.
struct Step {
    std::string name;
    AtForm form;
    Lines lines;
    unsigned long failCode;
};

Step Answer(const std::string& name, AtForm form, const Lines& lines)
{
    return {name, form, lines, 0};
}
Step Fails(const std::string& name, AtForm form, unsigned long code)
{
    return {name, form, {}, code};
}
// "AT^HCSQ?" answered with one line per radio.
Step Hcsq(const Lines& lines)
{
    return Answer("^HCSQ", AtForm::Read, lines);
}
Step HcsqFails(unsigned long code = AT_ERROR_NOT_SUPPORTED)
{
    return Fails("^HCSQ", AtForm::Read, code);
}
// "AT+CSQ" answered "+CSQ: <rssi>,99".
Step Csq(int rssi)
{
    return Answer("+CSQ", AtForm::Bare, {{std::to_string(rssi), "99"}});
}
// "^SYSINFOEX: 2,3,0,1,0,<mode>,...": in service, camped on this system mode.
Step Mode(int sysMode)
{
    return Answer("^SYSINFOEX", AtForm::Bare,
                  {{"2", "3", "0", "1", "0", std::to_string(sysMode), "X", "101", "X"}});
}

struct CurRssiRow {
    const char* what;
    int kind;
    std::vector<Step> steps;
    std::optional<int> percent;         // none: the query fails
    unsigned long errorWord;            // after a failure
    std::vector<std::string> traced;
};

class SignalQueries : public ServiceFixture {
protected:
    void SetUp() override
    {
        ServiceFixture::SetUp();
        Service();
    }

    // A fresh start for a table row: the next system-information read goes to
    // the modem, the traces so far are forgotten.
    void StartRow(const std::vector<Step>& steps)
    {
        service->OnDeviceMgrEvent(IDeviceMgrEvent::EVENT_DEVICE_REJECT, nullptr);
        traces.Clear();
        for (const Step& step : steps) {
            testkit::Expectation& e = processor.Expect(step.name, step.form);
            if (step.failCode != 0) {
                e.Fail(step.failCode);
            } else {
                e.AnswerLines(step.lines);
            }
        }
    }

    // Every expected trace came exactly once, at TL_ERRO.
    void ExpectTraced(const std::vector<std::string>& messages)
    {
        for (const std::string& message : messages) {
            EXPECT_EQ(traces.Count(message, TL_ERRO), 1) << message;
        }
    }

    // Errors traced so far (the service's own notes at lower levels aside).
    size_t ErrorTraceCount() const
    {
        size_t n = 0;
        for (const testkit::TraceLine& line : traces.Lines()) {
            n += line.level == TL_ERRO ? 1 : 0;
        }
        return n;
    }

    // One signal-bar reading per row, each on its own script.
    void RunCurRssiRows(const std::vector<CurRssiRow>& rows)
    {
        for (const CurRssiRow& row : rows) {
            SCOPED_TRACE(row.what);
            deviceService.SetProductType(row.kind);
            StartRow(row.steps);
            RSSIType rssi;
            rssi.nRSSI = -5;
            rssi.btRSSIPercent = 7;
            unsigned long err = 777;
            const bool bResult = service->SRVGetCurRSSI(&rssi, &err);
            processor.VerifyAllUsed();
            if (row.percent) {
                EXPECT_TRUE(bResult);
                EXPECT_EQ(rssi.btRSSIPercent, *row.percent);
                EXPECT_EQ(rssi.nRSSI, 0);
                EXPECT_EQ(err, 777u) << "success leaves the error word alone";
                EXPECT_EQ(traces.Count("SRVGetCurRSSI() error"), 0);
            } else {
                EXPECT_FALSE(bResult);
                EXPECT_EQ(err, row.errorWord);
                EXPECT_EQ(rssi.btRSSIPercent, 7);
                EXPECT_EQ(rssi.nRSSI, -5);
            }
            ExpectTraced(row.traced);
        }
    }
};

// ---- the signal bar ------------------------------------------------------------

TEST_F(SignalQueries, CurRssiFormulaByDeviceKindAndMode)
{
    const std::vector<CurRssiRow> rows = {
        {"WCDMA", DevDataDef::PRODUCT_TYPE_WCDMA,
         {Mode(SYS_MODE_WCDMA_EX), Hcsq({{"WCDMA", "40", "30", "50"}})}, 51, 0, {}},
        {"GSM", DevDataDef::PRODUCT_TYPE_WCDMA,
         {Mode(SYS_MODE_GSM_EX), Hcsq({{"GSM", "36", "255"}})}, 45, 0, {}},
        {"no service", DevDataDef::PRODUCT_TYPE_WCDMA,
         {Mode(SYS_MODE_NOSERVICE_EX), Hcsq({{"NOSERVICE"}})}, 0, 0, {}},
        // The mode decides, not the radio the "^HCSQ" lines name.
        {"WCDMA mode, LTE line", DevDataDef::PRODUCT_TYPE_WCDMA,
         {Mode(SYS_MODE_WCDMA_EX), Hcsq({{"LTE", "30", "50", "130", "20"}})}, 0, 0, {}},
        {"TD-SCDMA", DevDataDef::PRODUCT_TYPE_TD_SCDMA,
         {Mode(SYS_MODE_TD_SCDMA_EX), Hcsq({{"TD-SCDMA", "50", "40", "60"}})}, 49, 0, {}},
        {"TD mode without a TD line", DevDataDef::PRODUCT_TYPE_WCDMA,
         {Mode(SYS_MODE_TD_SCDMA_EX), Hcsq({{"GSM", "36"}})}, 0, 0, {}},
        {"TD-SCDMA beyond a byte", DevDataDef::PRODUCT_TYPE_TD_SCDMA,
         {Mode(SYS_MODE_TD_SCDMA_EX), Hcsq({{"TD-SCDMA", "255000"}})}, 150, 0, {}},  // 280214
        {"LTE level 4", DevDataDef::PRODUCT_TYPE_WCDMA,
         {Mode(SYS_MODE_LTE_EX), Hcsq({{"LTE", "30", "50", "130", "20"}})}, 80, 0,
         {"SRVGetCurRSSI ReadHcsqCmd success"}},
        {"LTE level 1", DevDataDef::PRODUCT_TYPE_TD_SCDMA,
         {Mode(SYS_MODE_LTE_EX), Hcsq({{"LTE", "30", "60", "80", "20"}})}, 20, 0,
         {"SRVGetCurRSSI ReadHcsqCmd success"}},
        {"CDMA", DevDataDef::PRODUCT_TYPE_CDMA, {Hcsq({{"CDMA", "50", "20"}})}, 67, 0, {}},
        {"CDMA device on EV-DO only", DevDataDef::PRODUCT_TYPE_CDMA,
         {Hcsq({{"EVDO", "40", "30", "100"}})}, 0, 0, {}},
        // A modem that answers neither system-information read counts as out
        // of service: the GSM/WCDMA road.
        {"mode unknown", DevDataDef::PRODUCT_TYPE_WCDMA,
         {Fails("^SYSINFOEX", AtForm::Bare, 4), Fails("^SYSINFO", AtForm::Bare, 4),
          Hcsq({{"GSM", "36"}})},
         45, 0, {}},
    };
    RunCurRssiRows(rows);
}

// Without "^HCSQ" each road has its older commands.
TEST_F(SignalQueries, CurRssiFallBacks)
{
    const std::vector<CurRssiRow> rows = {
        // GSM/WCDMA: "+CSQ" on its own scale.
        {"GW by +CSQ", DevDataDef::PRODUCT_TYPE_WCDMA,
         {Mode(SYS_MODE_WCDMA_EX), HcsqFails(), Csq(17)}, 54, 0, {"HCSQ havn't get GW info"}},
        {"GW +CSQ top", DevDataDef::PRODUCT_TYPE_WCDMA,
         {Mode(SYS_MODE_GSM_EX), HcsqFails(), Csq(31)}, 100, 0, {"HCSQ havn't get GW info"}},
        {"GW +CSQ unknown", DevDataDef::PRODUCT_TYPE_WCDMA,
         {Mode(SYS_MODE_GSM_EX), HcsqFails(), Csq(99)}, 0, 0, {"HCSQ havn't get GW info"}},
        {"GW +CSQ out of range wraps", DevDataDef::PRODUCT_TYPE_WCDMA,
         {Mode(SYS_MODE_GSM_EX), HcsqFails(), Csq(40)}, 129, 0, {"HCSQ havn't get GW info"}},
        {"GW nothing", DevDataDef::PRODUCT_TYPE_WCDMA,
         {Mode(SYS_MODE_WCDMA_EX), HcsqFails(), Fails("+CSQ", AtForm::Bare, 30)},
         std::nullopt, 30,
         {"HCSQ havn't get GW info", "GetCurrentGWSignalPer get csq result error",
          "GSM or WCDMA signal strength return error", "SRVGetCurRSSI() error"}},
        // TD-SCDMA: "+CSQ" with its offset of 100 taken off, then the TD scale.
        {"TD by +CSQ", DevDataDef::PRODUCT_TYPE_TD_SCDMA,
         {Mode(SYS_MODE_TD_SCDMA_EX), HcsqFails(), Csq(150)}, 54, 0, {"HCSQ havn't get TD info"}},
        {"TD +CSQ unknown", DevDataDef::PRODUCT_TYPE_TD_SCDMA,
         {Mode(SYS_MODE_TD_SCDMA_EX), HcsqFails(), Csq(99)}, 0, 0, {"HCSQ havn't get TD info"}},
        {"TD nothing", DevDataDef::PRODUCT_TYPE_TD_SCDMA,
         {Mode(SYS_MODE_TD_SCDMA_EX), HcsqFails(), Fails("+CSQ", AtForm::Bare, 100)},
         std::nullopt, 100,
         {"HCSQ havn't get TD info", "GetCurrentTDSignalPer get csq result error",
          "TD signal strength return error", "SRVGetCurRSSI() error"}},
        // LTE: RSRP and SINR from the older pair, brought to the "^HCSQ" scale.
        {"LTE by RSRP and SINR", DevDataDef::PRODUCT_TYPE_WCDMA,
         {Mode(SYS_MODE_LTE_EX), HcsqFails(),
          Answer("^LTERSRP", AtForm::Read, {{"-95", "-10"}}),           // 46: level 4
          Answer("^LTESCINFO", AtForm::Read, {{"310", "12", "2", "5"}})},  // 161: level 4
         80, 0, {"SRVGetCurRSSI ReadHcsqCmd success"}},
        {"LTE negative SINR", DevDataDef::PRODUCT_TYPE_WCDMA,
         {Mode(SYS_MODE_LTE_EX), HcsqFails(),
          Answer("^LTERSRP", AtForm::Read, {{"-95", "-10"}}),
          Answer("^LTESCINFO", AtForm::Read, {{"310", "-3", "2", "5"}})},  // 86: level 2
         40, 0, {"SRVGetCurRSSI ReadHcsqCmd success"}},
        {"LTE without RSRP", DevDataDef::PRODUCT_TYPE_WCDMA,
         {Mode(SYS_MODE_LTE_EX), HcsqFails(), Fails("^LTERSRP", AtForm::Read, 4),
          Answer("^LTESCINFO", AtForm::Read, {{"310", "12", "2", "5"}}), Csq(20)},
         64, 0,
         {"SRVGetCurRSSI ReadHcsqCmd success", "SRVGetCurRSSI ReadLteRsrpCmd error",
          "LTERSRP or LTESCINFO havn't get LTE info"}},
        {"LTE nothing", DevDataDef::PRODUCT_TYPE_WCDMA,
         {Mode(SYS_MODE_LTE_EX), HcsqFails(), Answer("^LTERSRP", AtForm::Read, {{"-95", "-10"}}),
          Fails("^LTESCINFO", AtForm::Read, 4), Fails("+CSQ", AtForm::Bare, AT_ERROR_TIMEOUT)},
         std::nullopt, AT_ERROR_TIMEOUT,
         {"SRVGetCurRSSI ReadHcsqCmd success", "SRVGetCurRSSI ReadLteScInfoCmd error",
          "LTERSRP or LTESCINFO havn't get LTE info", "GetCurrentLteSignalPer get csq result error",
          "LTE signal strength return error", "SRVGetCurRSSI() error"}},
        // "^HCSQ" answered but without a usable LTE line: straight to "+CSQ",
        // the older pair is not asked.
        {"LTE mode, WCDMA line", DevDataDef::PRODUCT_TYPE_WCDMA,
         {Mode(SYS_MODE_LTE_EX), Hcsq({{"WCDMA", "40", "30", "50"}}), Csq(20)}, 64, 0,
         {"SRVGetCurRSSI ReadHcsqCmd success", "LTERSRP or LTESCINFO havn't get LTE info"}},
        {"LTE line without SINR", DevDataDef::PRODUCT_TYPE_WCDMA,
         {Mode(SYS_MODE_LTE_EX), Hcsq({{"LTE", "30", "50"}}), Csq(31)}, 100, 0,
         {"LTERSRP or LTESCINFO havn't get LTE info"}},
        {"LTE mode, no service", DevDataDef::PRODUCT_TYPE_WCDMA,
         {Mode(SYS_MODE_LTE_EX), Hcsq({{"NOSERVICE"}}), Csq(99)}, 0, 0,
         {"LTERSRP or LTESCINFO havn't get LTE info"}},
        // CDMA: "^CSQLVL" answers a percentage; "+CSQ" after it. The "+CSQ"
        // read asks for the system mode, which the CDMA road had not needed.
        {"CDMA by CSQLVL", DevDataDef::PRODUCT_TYPE_CDMA,
         {HcsqFails(), Answer("^CSQLVL", AtForm::Bare, {{"80", "99"}})}, 80, 0, {}},
        {"CDMA by +CSQ", DevDataDef::PRODUCT_TYPE_CDMA,
         {HcsqFails(), Fails("^CSQLVL", AtForm::Bare, 4), Csq(10), Mode(SYS_MODE_CDMA_EX)}, 32, 0,
         {"CSQLVL havn't get CDMA info"}},
        {"CDMA nothing", DevDataDef::PRODUCT_TYPE_CDMA,
         {HcsqFails(), Fails("^CSQLVL", AtForm::Bare, 4), Fails("+CSQ", AtForm::Bare, 30)},
         std::nullopt, 30,
         {"CSQLVL havn't get CDMA info", "GetCurrentCDMAMODESignalPer get csq result error",
          "CDMAMODE signal strength return error", "SRVGetCurRSSI() error"}},
    };
    RunCurRssiRows(rows);
}

TEST_F(SignalQueries, CurRssiOnAnUnknownDeviceAsksNothing)
{
    // The last error of an earlier query is what the caller hears.
    processor.Expect("^ANQUERY", AtForm::Read).Fail(30);
    AntennaLevel level;
    unsigned long err = 0;
    EXPECT_FALSE(service->SRVGetAntennaLevel(&level, &err));

    const int kinds[] = {DevDataDef::PRODUCT_TYPE_WIMAX, DevDataDef::PRODUCT_TYPE_WIFI,
                         DevDataDef::PRODUCT_TYPE_UNKNOW, -1};
    for (int kind : kinds) {
        SCOPED_TRACE(kind);
        deviceService.SetProductType(kind);
        traces.Clear();
        RSSIType rssi;
        err = 0;
        EXPECT_FALSE(service->SRVGetCurRSSI(&rssi, &err));
        EXPECT_EQ(err, 30u);
        ExpectTraced({"SRVGetCurRSSI device not find error", "SRVGetCurRSSI() error"});
    }

    // No device service at all counts as an unknown device.
    container.Register(IDEVICESERVICE_INTERFACE_ID, IDEVICESERVICE_INTERFACE_NO, nullptr);
    traces.Clear();
    RSSIType rssi;
    EXPECT_FALSE(service->SRVGetCurRSSI(&rssi, &err));
    ExpectTraced({"SRVGetCurRSSI device not find error"});
    EXPECT_EQ(processor.Calls().size(), 1u);
}

TEST_F(SignalQueries, ModeIsReadOnceWithinFiveSeconds)
{
    processor.Expect("^SYSINFOEX", AtForm::Bare)
        .Answer({"2", "3", "0", "1", "0", "6", "LTE", "101", "LTE"});
    processor.Expect("^HCSQ", AtForm::Read).AnswerLines({{"LTE", "30", "50", "130", "20"}});
    processor.Expect("^HCSQ", AtForm::Read).AnswerLines({{"LTE", "30", "60", "130", "20"}});
    RSSIType rssi;
    unsigned long err = 0;
    ASSERT_TRUE(service->SRVGetCurRSSI(&rssi, &err));
    EXPECT_EQ(rssi.btRSSIPercent, 80);
    ASSERT_TRUE(service->SRVGetCurRSSI(&rssi, &err));
    EXPECT_EQ(rssi.btRSSIPercent, 80);   // level 5 by RSRP, 4 by SINR

    const std::vector<testkit::ExecutedCall> calls = processor.Calls();
    ASSERT_EQ(calls.size(), 3u);
    for (const testkit::ExecutedCall& call : calls) {
        EXPECT_EQ(call.timeoutMs, 30000u) << call.request.name;
    }
    EXPECT_EQ(calls[1].kind, testkit::ExecutedCall::Kind::WithMultiResponse);
}

// ---- the "^HCSQ" reading itself -------------------------------------------------

TEST_F(SignalQueries, HcsqReadingCollectsEveryLine)
{
    processor.Expect("^HCSQ", AtForm::Read)
        .AnswerLines({{"GSM", "36"}, {"LTE", "30", "19", "66", "0"}, {"WIMAX", "1"}});
    HCSQ_INFO info;
    ASSERT_TRUE(service->SRVGetHCSQInfo(&info));
    EXPECT_TRUE(info.bService);
    EXPECT_TRUE(info.pstGSM->bUsed);
    EXPECT_EQ(info.pstGSM->iRssi, 36);
    EXPECT_TRUE(info.pstLTE->bUsed);
    EXPECT_EQ(info.pstLTE->iRsrp, 19);
    EXPECT_EQ(info.pstLTE->iRsrq, 0);
    EXPECT_FALSE(info.pstWCDMA->bUsed);

    // A failure is the service's last error; no trace.
    traces.Clear();
    processor.Expect("^HCSQ", AtForm::Read).Fail(AT_ERROR_TIMEOUT);
    HCSQ_INFO failed;
    EXPECT_FALSE(service->SRVGetHCSQInfo(&failed));
    EXPECT_EQ(service->GetLastError(), static_cast<int>(AT_ERROR_TIMEOUT));
    EXPECT_TRUE(traces.Lines().empty());

    EXPECT_FALSE(service->SRVGetHCSQInfo(nullptr));
    ExpectTraced({"CNetSrvImpl pHCSQInfo pointer is null"});
}

// A processor that delivers a line and then gives up on the command (the
// modem went quiet half-way): the line must not be lost.
class PartialHcsqProcessor : public testkit::FakeProcessor {
public:
    bool ExecuteCmdWaitMultiResponse(ICommand* pCmd, IMultiResponse* pRsp,
                                     unsigned long* pdwError, unsigned long ulTimeoutMs) override
    {
        (void)pCmd;
        (void)ulTimeoutMs;
        testkit::FillResponse(pRsp->AddRsp(), {"GSM", "36"});
        *pdwError = AT_ERROR_TIMEOUT;
        return false;
    }
};

TEST_F(SignalQueries, HcsqLinesOfAFailedCommandAreFreed)
{
    PartialHcsqProcessor partial;
    container.Register(IPROCESSOR_INTERFACE_ID, IPROCESSOR_INTERFACE_NO,
                       static_cast<IProcessor*>(&partial));
    HCSQ_INFO info;
    EXPECT_FALSE(service->SRVGetHCSQInfo(&info));
    EXPECT_FALSE(info.pstGSM->bUsed) << "a failed reading is not taken in";
    EXPECT_EQ(service->GetLastError(), static_cast<int>(AT_ERROR_TIMEOUT));
    // The leak check of the sanitizer build sees any line left behind.
    container.Register(IPROCESSOR_INTERFACE_ID, IPROCESSOR_INTERFACE_NO,
                       static_cast<IProcessor*>(&processor));
}

TEST_F(SignalQueries, HcsqRssi)
{
    struct Row {
        const char* what;
        Step step;
        std::optional<int> rssi;
        std::vector<std::string> traced;
    } rows[] = {
        {"LTE", Hcsq({{"LTE", "30", "19", "66", "0"}}), 30, {}},
        {"nothing reported", Hcsq({{"GSM", "255"}}), std::nullopt, {}},
        {"no service", Hcsq({{"NOSERVICE"}}), std::nullopt,
         {"HSCQ command not support or no service"}},
        {"unknown radio only", Hcsq({{"WIMAX", "40"}}), std::nullopt,
         {"HSCQ command not support or no service"}},
        {"no ^HCSQ", HcsqFails(), std::nullopt, {"HSCQ command not support or no service"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        StartRow({row.step});
        int rssi = -7;
        EXPECT_EQ(service->SRVGetHCSQRssi(&rssi), row.rssi.has_value());
        EXPECT_EQ(rssi, row.rssi.value_or(-7));
        ExpectTraced(row.traced);
        EXPECT_EQ(ErrorTraceCount(), row.traced.size());
    }
    traces.Clear();
    EXPECT_FALSE(service->SRVGetHCSQRssi(nullptr));
    ExpectTraced({"CNetSrvImpl pszRssi pointer is null"});
}

// ---- raw values ------------------------------------------------------------------

TEST_F(SignalQueries, RowRssiTakesTheTdOffsetOff)
{
    processor.Expect("+CSQ", AtForm::Bare).Answer({"17", "99"});
    processor.Expect("^SYSINFOEX", AtForm::Bare)
        .Answer({"2", "3", "0", "1", "0", "3", "WCDMA", "41", "WCDMA"});
    RowRSSI row;
    unsigned long err = 777;
    ASSERT_TRUE(service->SRVGetRowRSSI(&row, &err));
    EXPECT_EQ(row.nRSSI, 17);
    EXPECT_EQ(row.nBer, 99);
    EXPECT_EQ(err, 0u) << "success writes 0";

    // Camped on TD-SCDMA: 100..198 lose the offset, anything else reads 0.
    struct Case {
        int csq;
        int expected;
    } cases[] = {{150, 50}, {100, 0}, {198, 98}, {199, 0}, {99, 0}, {31, 0}, {0, 0}};
    StartRow({});
    bool bFirst = true;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.csq);
        processor.Expect("+CSQ", AtForm::Bare).Answer({std::to_string(c.csq), "3"});
        if (bFirst) {
            // Asked once; the later rows are served from the cache.
            processor.Expect("^SYSINFOEX", AtForm::Bare)
                .Answer({"2", "3", "0", "1", "0", "4", "TD-SCDMA", "61", "TD-SCDMA"});
            bFirst = false;
        }
        RowRSSI value;
        ASSERT_TRUE(service->SRVGetRowRSSI(&value, &err));
        EXPECT_EQ(value.nRSSI, c.expected);
        EXPECT_EQ(value.nBer, 3);
    }
}

TEST_F(SignalQueries, RowRssiFailure)
{
    processor.Expect("+CSQ", AtForm::Bare).Fail(AT_ERROR_PORT_CLOSED);
    RowRSSI row;
    row.nRSSI = 5;
    unsigned long err = 0;
    EXPECT_FALSE(service->SRVGetRowRSSI(&row, &err));
    EXPECT_EQ(err, static_cast<unsigned long>(AT_ERROR_PORT_CLOSED));
    EXPECT_EQ(row.nRSSI, 5);
    EXPECT_EQ(processor.Calls().size(), 1u) << "no mode read after a failure";
}

TEST_F(SignalQueries, SignalQuality)
{
    struct Row {
        const char* what;
        std::vector<Step> steps;
        std::optional<std::pair<int, int>> rscpEcio;
        unsigned long errorWord;   // 777: untouched
        std::vector<std::string> traced;
    } rows[] = {
        {"WCDMA", {Hcsq({{"WCDMA", "40", "30", "50"}})}, std::make_pair(-91, -7), 777,
         {"SRVGetSignalQuality() success"}},
        {"TD-SCDMA", {Hcsq({{"TD-SCDMA", "50", "40", "60"}})}, std::make_pair(-81, -2), 777,
         {"SRVGetSignalQuality() success"}},
        // Camped on a radio without RSCP: no answer, and no error either.
        {"GSM", {Hcsq({{"GSM", "36"}})}, std::nullopt, 777, {}},
        {"no service", {Hcsq({{"NOSERVICE"}})}, std::nullopt, 777, {}},
        {"CSNR", {HcsqFails(), Answer("^CSNR", AtForm::Read, {{"-95", "-7"}})},
         std::make_pair(-95, -7), 777,
         {"CNetSrvImpl SRVGetSignalQuality HCSQ command not supported ",
          "SRVGetSignalQuality() success"}},
        {"nothing", {HcsqFails(), Fails("^CSNR", AtForm::Read, 4)}, std::nullopt, 4,
         {"CNetSrvImpl SRVGetSignalQuality HCSQ command not supported ",
          "SRVGetSignalQuality() error"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        StartRow(row.steps);
        NETSRV_DATA::Signal signal;
        signal.nRSCP = 1;
        signal.nECIO = 2;
        unsigned long err = 777;
        EXPECT_EQ(service->SRVGetSignalQuality(&signal, &err), row.rscpEcio.has_value());
        processor.VerifyAllUsed();
        EXPECT_EQ(std::make_pair(static_cast<int>(signal.nRSCP), static_cast<int>(signal.nECIO)),
                  row.rscpEcio.value_or(std::make_pair(1, 2)));
        EXPECT_EQ(err, row.errorWord);
        ExpectTraced(row.traced);
        EXPECT_EQ(ErrorTraceCount(), row.traced.size());
    }
}

TEST_F(SignalQueries, HdrRssi)
{
    struct Row {
        const char* what;
        std::vector<Step> steps;
        std::optional<int> percent;
        int nRssi;                 // after the call; 33 is the caller's
        unsigned long errorWord;   // 777: untouched
        std::vector<std::string> traced;
    } rows[] = {
        {"EVDO", {Hcsq({{"EVDO", "40", "30", "100"}})}, 60, 33, 777, {}},
        {"hybrid", {Hcsq({{"CDMA-EVDO", "40", "10", "20", "10", "100"}})}, 60, 33, 777, {}},
        {"CDMA only", {Hcsq({{"CDMA", "50", "20"}})}, std::nullopt, 33, 777, {}},
        {"HDRCSQLVL", {HcsqFails(), Answer("^HDRCSQLVL", AtForm::Bare, {{"80"}})}, 80, 0, 777,
         {"SRVGetHdrRssiInfo() HCSQ command error ", "SRVGetHdrRssiInfo() success"}},
        {"HDRCSQLVL without a line", {HcsqFails(), Answer("^HDRCSQLVL", AtForm::Bare, {})}, 64,
         0, 777, {"SRVGetHdrRssiInfo() HCSQ command error ", "SRVGetHdrRssiInfo() success"}},
        {"HDRCSQLVL empty field", {HcsqFails(), Answer("^HDRCSQLVL", AtForm::Bare, {{""}})}, 64,
         0, 777, {"SRVGetHdrRssiInfo() HCSQ command error ", "SRVGetHdrRssiInfo() success"}},
        {"nothing", {HcsqFails(), Fails("^HDRCSQLVL", AtForm::Bare, 100)}, std::nullopt, 33, 100,
         {"SRVGetHdrRssiInfo() HCSQ command error ", "SRVGetHdrRssiInfo() error"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        StartRow(row.steps);
        RSSIType rssi;
        rssi.nRSSI = 33;
        rssi.btRSSIPercent = 7;
        unsigned long err = 777;
        EXPECT_EQ(service->SRVGetHdrRssiInfo(&rssi, &err), row.percent.has_value());
        processor.VerifyAllUsed();
        EXPECT_EQ(rssi.btRSSIPercent, row.percent.value_or(7));
        EXPECT_EQ(rssi.nRSSI, row.nRssi);
        EXPECT_EQ(err, row.errorWord);
        ExpectTraced(row.traced);
        EXPECT_EQ(ErrorTraceCount(), row.traced.size());
    }
}

TEST_F(SignalQueries, LteSignalQuality)
{
    struct Row {
        const char* what;
        std::vector<Step> steps;
        std::optional<std::pair<int, int>> rsrpRsrq;
        unsigned long errorWord;   // 777: untouched
        std::vector<std::string> traced;
    } rows[] = {
        {"HCSQ", {Hcsq({{"LTE", "30", "50", "130", "20"}})}, std::make_pair(-91, -10), 777,
         {"SRVGetCurRSSI ReadHcsqCmd success"}},
        {"HCSQ without RSRQ", {Hcsq({{"LTE", "30", "50", "130"}})}, std::nullopt, 777,
         {"SRVGetCurRSSI ReadHcsqCmd success"}},
        {"not on LTE", {Hcsq({{"WCDMA", "40", "30", "50"}})}, std::nullopt, 777,
         {"SRVGetCurRSSI ReadHcsqCmd success"}},
        {"LTERSRP", {HcsqFails(), Answer("^LTERSRP", AtForm::Read, {{"-95", "-10"}})},
         std::make_pair(-95, -10), 777, {"SRVGetLteSignalQuality() success"}},
        {"nothing", {HcsqFails(), Fails("^LTERSRP", AtForm::Read, AT_ERROR_TIMEOUT)},
         std::nullopt, AT_ERROR_TIMEOUT, {"SRVGetLteSignalQuality() error"}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        StartRow(row.steps);
        LteSignal signal;
        signal.nRSRP = 1;
        signal.nRSRQ = 2;
        unsigned long err = 777;
        EXPECT_EQ(service->SRVGetLteSignalQuality(&signal, &err), row.rsrpRsrq.has_value());
        processor.VerifyAllUsed();
        EXPECT_EQ(std::make_pair(static_cast<int>(signal.nRSRP), static_cast<int>(signal.nRSRQ)),
                  row.rsrpRsrq.value_or(std::make_pair(1, 2)));
        EXPECT_EQ(err, row.errorWord);
        ExpectTraced(row.traced);
        EXPECT_EQ(ErrorTraceCount(), row.traced.size());
    }
}

TEST_F(SignalQueries, LteScInfoAndAntennaLevel)
{
    processor.Expect("^LTESCINFO", AtForm::Read).Answer({"310", "-3", "2", "5"});
    LteScInfo info;
    unsigned long err = 777;
    ASSERT_TRUE(service->SRVGetLteScInfo(&info, &err));
    EXPECT_EQ(info.pci, 310);
    EXPECT_EQ(info.dlsinr, -3);
    EXPECT_EQ(info.numant, 2);
    EXPECT_EQ(err, 777u);
    ExpectTraced({"SRVGetLteScInfo() success"});

    traces.Clear();
    processor.Expect("^LTESCINFO", AtForm::Read).Fail(4);
    LteScInfo untouched;
    EXPECT_FALSE(service->SRVGetLteScInfo(&untouched, &err));
    EXPECT_EQ(err, 4u);
    EXPECT_EQ(untouched.pci, 0);
    EXPECT_TRUE(traces.Lines().empty()) << "a failure is not traced";

    processor.Expect("^ANQUERY", AtForm::Read).Answer({"-95", "-7", "17", "3"});
    AntennaLevel level;
    err = 777;
    ASSERT_TRUE(service->SRVGetAntennaLevel(&level, &err));
    EXPECT_EQ(level.wLevel, 3);
    EXPECT_EQ(err, 777u);
    ExpectTraced({"SRVGetAntennaLevel sucess"});

    processor.Expect("^ANQUERY", AtForm::Read).Fail(AT_ERROR_PORT_CLOSED);
    EXPECT_FALSE(service->SRVGetAntennaLevel(&level, &err));
    EXPECT_EQ(err, static_cast<unsigned long>(AT_ERROR_PORT_CLOSED));
    EXPECT_EQ(level.wLevel, 3);
    ExpectTraced({"SRVGetAntennaLevel error"});
}

// ---- arguments and a missing processor ---------------------------------------------

// Each query with an error word, called through one signature.
struct ErrorWordQuery {
    const char* name;
    bool (*call)(CNetSrvImpl& service, bool bRecord, unsigned long* pdwStatus);
};

template <typename Record, bool (CNetSrvImpl::*Method)(Record*, unsigned long*)>
bool CallQuery(CNetSrvImpl& service, bool bRecord, unsigned long* pdwStatus)
{
    Record record;
    return (service.*Method)(bRecord ? &record : nullptr, pdwStatus);
}

const ErrorWordQuery kQueries[] = {
    {"SRVGetCurRSSI", CallQuery<RSSIType, &CNetSrvImpl::SRVGetCurRSSI>},
    {"SRVGetSignalQuality", CallQuery<NETSRV_DATA::Signal, &CNetSrvImpl::SRVGetSignalQuality>},
    {"SRVGetHdrRssiInfo", CallQuery<RSSIType, &CNetSrvImpl::SRVGetHdrRssiInfo>},
    {"SRVGetAntennaLevel", CallQuery<AntennaLevel, &CNetSrvImpl::SRVGetAntennaLevel>},
    {"SRVGetRowRSSI", CallQuery<RowRSSI, &CNetSrvImpl::SRVGetRowRSSI>},
    {"SRVGetLteSignalQuality", CallQuery<LteSignal, &CNetSrvImpl::SRVGetLteSignalQuality>},
    {"SRVGetLteScInfo", CallQuery<LteScInfo, &CNetSrvImpl::SRVGetLteScInfo>},
};

TEST_F(SignalQueries, BadArgumentsSendNothing)
{
    traces.Clear();
    for (const ErrorWordQuery& query : kQueries) {
        SCOPED_TRACE(query.name);
        EXPECT_FALSE(query.call(*service, true, nullptr));
        unsigned long err = 0;
        EXPECT_FALSE(query.call(*service, false, &err));
        EXPECT_EQ(err, 10001u);
    }
    EXPECT_TRUE(processor.Calls().empty());
    EXPECT_TRUE(traces.Lines().empty());
}

TEST_F(SignalQueries, NoProcessor)
{
    container.Register(IPROCESSOR_INTERFACE_ID, IPROCESSOR_INTERFACE_NO, nullptr);
    for (const ErrorWordQuery& query : kQueries) {
        SCOPED_TRACE(query.name);
        traces.Clear();
        unsigned long err = 777;
        EXPECT_FALSE(query.call(*service, true, &err));
        EXPECT_GE(traces.Count(kNoProcessor, TL_ERRO), 1);
        // The signal bar reports the last error on every failure; the others
        // leave the word alone when there is no processor to ask.
        if (std::string(query.name) == "SRVGetCurRSSI") {
            EXPECT_EQ(err, static_cast<unsigned long>(service->GetLastError()));
            EXPECT_TRUE(traces.Contains("SRVGetCurRSSI() error", TL_ERRO));
        } else {
            EXPECT_EQ(err, 777u);
        }
    }
    traces.Clear();
    int rssi = 0;
    EXPECT_FALSE(service->SRVGetHCSQRssi(&rssi));
    ExpectTraced({kNoProcessor, "HSCQ command not support or no service"});
}

}  // namespace
