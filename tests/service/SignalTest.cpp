// The signal queries: "^HCSQ" first, each query's own fall-back after it, the
// signal-bar formula chosen by device kind and system mode, error words and
// traces. The formulas themselves are pinned by the unit tests; here each
// branch shows which one it takes.

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
const int kG = DevDataDef::PRODUCT_TYPE_WCDMA;
const int kT = DevDataDef::PRODUCT_TYPE_TD_SCDMA;
const int kC = DevDataDef::PRODUCT_TYPE_CDMA;
const unsigned long kTimeout = AT_ERROR_TIMEOUT;

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
Step HcsqFails()
{
    return Fails("^HCSQ", AtForm::Read, AT_ERROR_NOT_SUPPORTED);
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

// A query on records preset to values no reading gives, and what it left in
// them, as text.
struct Outcome {
    bool ok;
    std::string out;
};
typedef Outcome (*Query)(CNetSrvImpl& service, unsigned long* pdwStatus);

std::string Text(int a, int b)
{
    return std::to_string(a) + "," + std::to_string(b);
}

// "percent,nRSSI"
Outcome CurRssi(CNetSrvImpl& s, unsigned long* e)
{
    RSSIType v;
    v.nRSSI = -5;
    v.btRSSIPercent = 7;
    const bool ok = s.SRVGetCurRSSI(&v, e);
    return {ok, Text(v.btRSSIPercent, v.nRSSI)};
}
Outcome HdrRssi(CNetSrvImpl& s, unsigned long* e)
{
    RSSIType v;
    v.nRSSI = -5;
    v.btRSSIPercent = 7;
    const bool ok = s.SRVGetHdrRssiInfo(&v, e);
    return {ok, Text(v.btRSSIPercent, v.nRSSI)};
}
// "rscp,ecio"
Outcome Quality(CNetSrvImpl& s, unsigned long* e)
{
    NETSRV_DATA::Signal v;
    v.nRSCP = 1;
    v.nECIO = 2;
    const bool ok = s.SRVGetSignalQuality(&v, e);
    return {ok, Text(v.nRSCP, v.nECIO)};
}
// "rsrp,rsrq"
Outcome LteQuality(CNetSrvImpl& s, unsigned long* e)
{
    LteSignal v;
    v.nRSRP = 1;
    v.nRSRQ = 2;
    const bool ok = s.SRVGetLteSignalQuality(&v, e);
    return {ok, Text(v.nRSRP, v.nRSRQ)};
}
// "pci,dlsinr,numant"
Outcome ScInfo(CNetSrvImpl& s, unsigned long* e)
{
    LteScInfo v;
    const bool ok = s.SRVGetLteScInfo(&v, e);
    return {ok, Text(v.pci, v.dlsinr) + "," + std::to_string(v.numant)};
}
Outcome Antenna(CNetSrvImpl& s, unsigned long* e)
{
    AntennaLevel v;
    const bool ok = s.SRVGetAntennaLevel(&v, e);
    return {ok, std::to_string(v.wLevel)};
}
// "rssi,ber"
Outcome RowRssi(CNetSrvImpl& s, unsigned long* e)
{
    RowRSSI v;
    v.nRSSI = 5;
    v.nBer = 6;
    const bool ok = s.SRVGetRowRSSI(&v, e);
    return {ok, Text(v.nRSSI, v.nBer)};
}
// No error word: the caller's stays as it was.
Outcome HcsqRssi(CNetSrvImpl& s, unsigned long*)
{
    int v = -7;
    const bool ok = s.SRVGetHCSQRssi(&v);
    return {ok, std::to_string(v)};
}

struct Row {
    const char* what;
    Query query;
    int kind;   // the device kind the host reports
    std::vector<Step> steps;
    bool ok;
    std::string out;
    unsigned long err;                 // the error word afterwards; 777 is the caller's
    std::vector<std::string> traced;   // every TL_ERRO trace of the call
};

class SignalQueries : public ServiceFixture {
protected:
    void SetUp() override
    {
        ServiceFixture::SetUp();
        Service();
    }

    // Each row on a fresh script: the next system-information read goes to
    // the modem, and only the row's own traces count.
    void RunRows(const std::vector<Row>& rows)
    {
        for (const Row& row : rows) {
            SCOPED_TRACE(row.what);
            deviceService.SetProductType(row.kind);
            service->OnDeviceMgrEvent(IDeviceMgrEvent::EVENT_DEVICE_REJECT, nullptr);
            traces.Clear();
            for (const Step& step : row.steps) {
                testkit::Expectation& e = processor.Expect(step.name, step.form);
                if (step.failCode != 0) {
                    e.Fail(step.failCode);
                } else {
                    e.AnswerLines(step.lines);
                }
            }
            unsigned long err = 777;
            const Outcome outcome = row.query(*service, &err);
            processor.VerifyAllUsed();
            EXPECT_EQ(outcome.ok, row.ok);
            EXPECT_EQ(outcome.out, row.out);
            EXPECT_EQ(err, row.err);
            ExpectErrorTraces(row.traced);
        }
        for (const testkit::ExecutedCall& call : processor.Calls()) {
            EXPECT_EQ(call.timeoutMs, 30000u) << call.request.name;
            EXPECT_EQ(call.kind == testkit::ExecutedCall::Kind::WithMultiResponse,
                      call.request.name == "^HCSQ");
        }
    }

    // Exactly these errors were traced, each once.
    void ExpectErrorTraces(const std::vector<std::string>& messages)
    {
        size_t n = 0;
        for (const testkit::TraceLine& line : traces.Lines()) {
            n += line.level == TL_ERRO ? 1 : 0;
        }
        EXPECT_EQ(n, messages.size());
        for (const std::string& message : messages) {
            EXPECT_EQ(traces.Count(message, TL_ERRO), 1) << message;
        }
    }
};

TEST_F(SignalQueries, SignalBarChoosesItsFormulaAndFallBack)
{
    const char* const kLteHcsq = "SRVGetCurRSSI ReadHcsqCmd success";
    const char* const kLteNone = "LTERSRP or LTESCINFO havn't get LTE info";
    const Step lteLine = Hcsq({{"LTE", "30", "50", "130", "20"}});
    const Step wcdmaLine = Hcsq({{"WCDMA", "40", "30", "50"}});
    const Step onWcdma = Mode(SYS_MODE_WCDMA_EX);
    const Step onTd = Mode(SYS_MODE_TD_SCDMA_EX);
    const Step onLte = Mode(SYS_MODE_LTE_EX);
    const std::vector<Row> rows = {
        // "^HCSQ" answered: the system mode picks the formula, whatever radio
        // the lines name.
        {"WCDMA", CurRssi, kG, {onWcdma, wcdmaLine}, true, "51,0", 777, {}},
        {"WCDMA mode, LTE line", CurRssi, kG, {onWcdma, lteLine}, true, "0,0", 777, {}},
        {"TD-SCDMA", CurRssi, kT, {onTd, Hcsq({{"TD-SCDMA", "50", "40", "60"}})}, true, "49,0",
         777, {}},
        {"TD mode without a TD line", CurRssi, kG, {onTd, Hcsq({{"GSM", "36"}})}, true, "0,0",
         777, {}},
        {"LTE", CurRssi, kG, {onLte, lteLine}, true, "80,0", 777, {kLteHcsq}},
        {"CDMA device", CurRssi, kC, {Hcsq({{"CDMA", "50", "20"}})}, true, "67,0", 777, {}},
        // Neither system-information read answers: out of service, the GSM/WCDMA road.
        {"mode unknown", CurRssi, kG,
         {Fails("^SYSINFOEX", AtForm::Bare, 4), Fails("^SYSINFO", AtForm::Bare, 4),
          Hcsq({{"GSM", "36"}})},
         true, "45,0", 777, {"GetSystemInfo: Execute AT command error"}},

        // GSM/WCDMA without "^HCSQ": "+CSQ" on its own scale.
        {"GW by +CSQ", CurRssi, kG, {onWcdma, HcsqFails(), Csq(17)}, true, "54,0", 777,
         {"HCSQ havn't get GW info"}},
        {"GW nothing", CurRssi, kG, {onWcdma, HcsqFails(), Fails("+CSQ", AtForm::Bare, 30)},
         false, "7,-5", 30,
         {"HCSQ havn't get GW info", "GetCurrentGWSignalPer get csq result error",
          "GSM or WCDMA signal strength return error", "SRVGetCurRSSI() error"}},
        // TD-SCDMA: "+CSQ" 150 loses its offset of 100, then 50 * 100 / 91.
        {"TD by +CSQ", CurRssi, kT, {onTd, HcsqFails(), Csq(150)}, true, "54,0", 777,
         {"HCSQ havn't get TD info"}},
        {"TD nothing", CurRssi, kT, {onTd, HcsqFails(), Fails("+CSQ", AtForm::Bare, 100)}, false,
         "7,-5", 100,
         {"HCSQ havn't get TD info", "GetCurrentTDSignalPer get csq result error",
          "TD signal strength return error", "SRVGetCurRSSI() error"}},
        // LTE: RSRP -95 dBm and SINR 12 dB from the older pair, both level 4.
        {"LTE by RSRP and SINR", CurRssi, kG,
         {onLte, HcsqFails(), Answer("^LTERSRP", AtForm::Read, {{"-95", "-10"}}),
          Answer("^LTESCINFO", AtForm::Read, {{"310", "12", "2", "5"}})},
         true, "80,0", 777, {kLteHcsq}},
        {"LTE without RSRP", CurRssi, kG,
         {onLte, HcsqFails(), Fails("^LTERSRP", AtForm::Read, 4),
          Answer("^LTESCINFO", AtForm::Read, {{"310", "12", "2", "5"}}), Csq(20)},
         true, "64,0", 777, {kLteHcsq, "SRVGetCurRSSI ReadLteRsrpCmd error", kLteNone}},
        {"LTE nothing", CurRssi, kG,
         {onLte, HcsqFails(), Answer("^LTERSRP", AtForm::Read, {{"-95", "-10"}}),
          Fails("^LTESCINFO", AtForm::Read, 4), Fails("+CSQ", AtForm::Bare, kTimeout)},
         false, "7,-5", kTimeout,
         {kLteHcsq, "SRVGetCurRSSI ReadLteScInfoCmd error", kLteNone,
          "GetCurrentLteSignalPer get csq result error", "LTE signal strength return error",
          "SRVGetCurRSSI() error"}},
        // "^HCSQ" answered without an LTE line: straight to "+CSQ".
        {"LTE mode, WCDMA line", CurRssi, kG, {onLte, wcdmaLine, Csq(20)}, true, "64,0", 777,
         {kLteHcsq, kLteNone}},
        // CDMA: "^CSQLVL" answers a percentage; "+CSQ" after it asks for the mode.
        {"CDMA by ^CSQLVL", CurRssi, kC,
         {HcsqFails(), Answer("^CSQLVL", AtForm::Bare, {{"80", "99"}})}, true, "80,0", 777, {}},
        {"CDMA by +CSQ", CurRssi, kC,
         {HcsqFails(), Fails("^CSQLVL", AtForm::Bare, 4), Csq(10), Mode(SYS_MODE_CDMA_EX)}, true,
         "32,0", 777, {"CSQLVL havn't get CDMA info"}},
        {"CDMA nothing", CurRssi, kC,
         {HcsqFails(), Fails("^CSQLVL", AtForm::Bare, 4), Fails("+CSQ", AtForm::Bare, 30)}, false,
         "7,-5", 30,
         {"CSQLVL havn't get CDMA info", "GetCurrentCDMAMODESignalPer get csq result error",
          "CDMAMODE signal strength return error", "SRVGetCurRSSI() error"}},
    };
    RunRows(rows);
}

TEST_F(SignalQueries, EachQueryPrefersHcsqThenFallsBack)
{
    const char* const kCsnr = "CNetSrvImpl SRVGetSignalQuality HCSQ command not supported ";
    const char* const kQualityOk = "SRVGetSignalQuality() success";
    const char* const kHdr = "SRVGetHdrRssiInfo() HCSQ command error ";
    const char* const kHdrOk = "SRVGetHdrRssiInfo() success";
    const char* const kNoHcsq = "HSCQ command not support or no service";
    const Step wcdmaLine = Hcsq({{"WCDMA", "40", "30", "50"}});
    const std::vector<Row> rows = {
        // Each query: "^HCSQ"; a reading without the radio asked about (false,
        // and no error either); the fall-back; the fall-back failing.
        {"quality", Quality, kG, {wcdmaLine}, true, "-91,-7", 777, {kQualityOk}},
        {"quality, GSM only", Quality, kG, {Hcsq({{"GSM", "36"}})}, false, "1,2", 777, {}},
        {"quality by ^CSNR", Quality, kG,
         {HcsqFails(), Answer("^CSNR", AtForm::Read, {{"-95", "-7"}})}, true, "-95,-7", 777,
         {kCsnr, kQualityOk}},
        {"quality, nothing", Quality, kG, {HcsqFails(), Fails("^CSNR", AtForm::Read, 4)}, false,
         "1,2", 4, {kCsnr, "SRVGetSignalQuality() error"}},
        // "^HCSQ" leaves the raw value alone; "^HDRCSQLVL" sets it to 0.
        {"EV-DO", HdrRssi, kC, {Hcsq({{"EVDO", "40", "30", "100"}})}, true, "60,-5", 777, {}},
        {"EV-DO, CDMA only", HdrRssi, kC, {Hcsq({{"CDMA", "50", "20"}})}, false, "7,-5", 777, {}},
        {"^HDRCSQLVL", HdrRssi, kC, {HcsqFails(), Answer("^HDRCSQLVL", AtForm::Bare, {{"80"}})},
         true, "80,0", 777, {kHdr, kHdrOk}},
        {"^HDRCSQLVL without a line", HdrRssi, kC,
         {HcsqFails(), Answer("^HDRCSQLVL", AtForm::Bare, {})}, true, "64,0", 777, {kHdr, kHdrOk}},
        {"^HDRCSQLVL empty field", HdrRssi, kC,
         {HcsqFails(), Answer("^HDRCSQLVL", AtForm::Bare, {{""}})}, true, "64,0", 777,
         {kHdr, kHdrOk}},
        {"EV-DO, nothing", HdrRssi, kC, {HcsqFails(), Fails("^HDRCSQLVL", AtForm::Bare, 100)},
         false, "7,-5", 100, {kHdr, "SRVGetHdrRssiInfo() error"}},
        {"LTE quality", LteQuality, kG, {Hcsq({{"LTE", "30", "50", "130", "20"}})}, true, "-91,-10",
         777, {"SRVGetCurRSSI ReadHcsqCmd success"}},
        {"LTE quality, not on LTE", LteQuality, kG, {wcdmaLine}, false, "1,2", 777,
         {"SRVGetCurRSSI ReadHcsqCmd success"}},
        {"LTE quality by ^LTERSRP", LteQuality, kG,
         {HcsqFails(), Answer("^LTERSRP", AtForm::Read, {{"-95", "-10"}})}, true, "-95,-10", 777,
         {"SRVGetLteSignalQuality() success"}},
        {"LTE quality, nothing", LteQuality, kG,
         {HcsqFails(), Fails("^LTERSRP", AtForm::Read, kTimeout)}, false, "1,2", kTimeout,
         {"SRVGetLteSignalQuality() error"}},
        // Commands without a "^HCSQ" road.
        {"LTE cell", ScInfo, kG, {Answer("^LTESCINFO", AtForm::Read, {{"310", "-3", "2", "5"}})},
         true, "310,-3,2", 777, {"SRVGetLteScInfo() success"}},
        {"LTE cell fails untraced", ScInfo, kG, {Fails("^LTESCINFO", AtForm::Read, 4)}, false,
         "0,0,0", 4, {}},
        {"antenna", Antenna, kG, {Answer("^ANQUERY", AtForm::Read, {{"-95", "-7", "17", "3"}})},
         true, "3", 777, {"SRVGetAntennaLevel sucess"}},
        {"antenna fails", Antenna, kG, {Fails("^ANQUERY", AtForm::Read, AT_ERROR_PORT_CLOSED)},
         false, "0", AT_ERROR_PORT_CLOSED, {"SRVGetAntennaLevel error"}},
        // "+CSQ" as it comes, success writing 0; a failure asks for no mode.
        {"+CSQ", RowRssi, kG, {Csq(17), Mode(SYS_MODE_WCDMA_EX)}, true, "17,99", 0, {}},
        {"+CSQ fails", RowRssi, kG, {Fails("+CSQ", AtForm::Bare, AT_ERROR_PORT_CLOSED)}, false,
         "5,6", AT_ERROR_PORT_CLOSED, {}},
        // Camped on TD-SCDMA: 100..198 lose the offset, anything else reads 0.
        {"+CSQ TD 150", RowRssi, kT, {Csq(150), Mode(SYS_MODE_TD_SCDMA_EX)}, true, "50,99", 0, {}},
        {"+CSQ TD 198", RowRssi, kT, {Csq(198), Mode(SYS_MODE_TD_SCDMA_EX)}, true, "98,99", 0, {}},
        {"+CSQ TD 199", RowRssi, kT, {Csq(199), Mode(SYS_MODE_TD_SCDMA_EX)}, true, "0,99", 0, {}},
        {"+CSQ TD 99", RowRssi, kT, {Csq(99), Mode(SYS_MODE_TD_SCDMA_EX)}, true, "0,99", 0, {}},
        // The first reported rssi of the reading.
        {"HCSQ rssi", HcsqRssi, kG, {Hcsq({{"LTE", "30", "19", "66", "0"}})}, true, "30", 777, {}},
        {"HCSQ rssi unreported", HcsqRssi, kG, {Hcsq({{"GSM", "255"}})}, false, "-7", 777, {}},
        {"HCSQ rssi, no service", HcsqRssi, kG, {Hcsq({{"NOSERVICE"}})}, false, "-7", 777,
         {kNoHcsq}},
        {"HCSQ rssi, no ^HCSQ", HcsqRssi, kG, {HcsqFails()}, false, "-7", 777, {kNoHcsq}},
    };
    RunRows(rows);
}

TEST_F(SignalQueries, CurRssiOnAnUnknownDeviceAsksNothing)
{
    // The last error of an earlier query is what the caller hears.
    processor.Expect("^ANQUERY", AtForm::Read).Fail(30);
    AntennaLevel level;
    unsigned long err = 0;
    EXPECT_FALSE(service->SRVGetAntennaLevel(&level, &err));

    deviceService.SetProductType(DevDataDef::PRODUCT_TYPE_WIMAX);
    for (bool bDeviceService : {true, false}) {
        SCOPED_TRACE(bDeviceService);
        if (!bDeviceService) {
            container.Register(IDEVICESERVICE_INTERFACE_ID, IDEVICESERVICE_INTERFACE_NO, nullptr);
        }
        traces.Clear();
        err = 0;
        EXPECT_FALSE(CurRssi(*service, &err).ok);
        EXPECT_EQ(err, 30u);
        ExpectErrorTraces({"SRVGetCurRSSI device not find error", "SRVGetCurRSSI() error"});
    }
    EXPECT_EQ(processor.Calls().size(), 1u);
}

// ---- the "^HCSQ" reading itself -------------------------------------------------

TEST_F(SignalQueries, HcsqReadingCollectsEveryLine)
{
    processor.Expect("^HCSQ", AtForm::Read)
        .AnswerLines({{"GSM", "36"}, {"LTE", "30", "19", "66", "0"}, {"WIMAX", "1"}});
    HCSQ_INFO info;
    ASSERT_TRUE(service->SRVGetHCSQInfo(&info));
    EXPECT_TRUE(info.bService);
    EXPECT_EQ(info.pstGSM->iRssi, 36);
    EXPECT_EQ(info.pstLTE->iRsrp, 19);

    // A failure is the service's last error; no trace.
    traces.Clear();
    processor.Expect("^HCSQ", AtForm::Read).Fail(kTimeout);
    HCSQ_INFO failed;
    EXPECT_FALSE(service->SRVGetHCSQInfo(&failed));
    EXPECT_EQ(service->GetLastError(), static_cast<int>(kTimeout));
    EXPECT_FALSE(service->SRVGetHCSQInfo(nullptr));
    ExpectErrorTraces({"CNetSrvImpl pHCSQInfo pointer is null"});
}

// A processor that delivers a line and then gives up on the command (the
// modem went quiet half-way): the line must not be lost.
class PartialHcsqProcessor : public testkit::FakeProcessor {
public:
    bool ExecuteCmdWaitMultiResponse(ICommand*, IMultiResponse* pRsp, unsigned long* pdwError,
                                     unsigned long) override
    {
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
    // The leak check of the sanitizer build sees any line left behind.
    container.Register(IPROCESSOR_INTERFACE_ID, IPROCESSOR_INTERFACE_NO,
                       static_cast<IProcessor*>(&processor));
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
    EXPECT_FALSE(HcsqRssi(*service, nullptr).ok);
    ExpectErrorTraces({kNoProcessor, "HSCQ command not support or no service"});
    EXPECT_FALSE(service->SRVGetHCSQRssi(nullptr));
    EXPECT_TRUE(traces.Contains("CNetSrvImpl pszRssi pointer is null", TL_ERRO));
}

}  // namespace
