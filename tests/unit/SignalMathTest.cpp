// The signal-bar formulas and the "^HCSQ" reading, without a service object.
#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

#include "NetSrvHcsq.h"
#include "NetSrvSignalMath.h"

namespace {

struct IntRow {
    int iInput;
    int iExpected;
};

TEST(SignalMathTest, RssiToPercentWrapsAtEightBits)
{
    const IntRow rows[] = {
        {0, 0},    {1, 3},     {31, 100},  // the top of "+CSQ"
        {99, 0},   // unknown
        {40, 129}, {98, 60},   // 3161 / 31 = 316, shown as 60
        {-1, 253},  // -3
        {INT_MAX, 203}, {INT_MIN, 50},   // no overflow on the way
    };
    for (const IntRow& row : rows) {
        EXPECT_EQ(RssiToPercent(row.iInput), row.iExpected) << row.iInput;
    }
}

TEST(SignalMathTest, HcsqRssiPercentages)
{
    // 2G/3G/CDMA: 9..70 onto 1..100, 99 above.
    const IntRow rows62[] = {
        {INT_MIN, 0}, {-5, 0}, {0, 0}, {8, 0}, {9, 1}, {10, 3}, {36, 45}, {40, 51},
        {69, 98},     {70, 100}, {71, 99}, {96, 99}, {255, 99}, {INT_MAX, 99},
    };
    for (const IntRow& row : rows62) {
        EXPECT_EQ(CalcRssiPer(row.iInput), row.iExpected) << row.iInput;
    }
    // TD-SCDMA: 6 and up by (v * 100 - 500) / 91, with no upper bound.
    const IntRow rows91[] = {
        {INT_MIN, 0}, {0, 0}, {5, 0}, {6, 1}, {7, 2}, {50, 49}, {96, 100}, {97, 101}, {255, 274},
    };
    for (const IntRow& row : rows91) {
        EXPECT_EQ(CalcTdRssiPer(row.iInput), row.iExpected) << row.iInput;
    }
    // Far out of range the low byte is still what the plain formula gives.
    EXPECT_EQ(static_cast<uint8_t>(CalcTdRssiPer(INT_MAX)), 134);
}

TEST(SignalMathTest, EvdoSteps)
{
    const IntRow rows[] = {
        {255, 0}, {0, 0},  {1, 20},  {15, 20},  {16, 40},   {30, 40},     {31, 60},
        {45, 60}, {46, 80}, {60, 80}, {61, 99}, {254, 99}, {256, 99},
        {-1, 20}, {-20, 0},  // not readings; the formula runs through without a fault
    };
    for (const IntRow& row : rows) {
        EXPECT_EQ(CalcEvdoPer(row.iInput), row.iExpected) << row.iInput;
    }
    // No overflow at the far end; the low byte is the plain formula's.
    EXPECT_EQ(static_cast<uint8_t>(CalcEvdoPer(INT_MIN)), 116);
}

TEST(SignalMathTest, HybridTakesTheStrongerRadioWhileEvdoIsReported)
{
    struct Row {
        int iCdma;
        int iEvdo;
        int iExpected;
    } rows[] = {
        {40, 20, 60},    // CDMA stronger: its rssi on the EV-DO steps
        {61, 20, 99},
        {20, 40, 60},    // EV-DO stronger
        {255, 40, 60},   // CDMA unreported
        {40, 0, 51},     // EV-DO 0: CDMA alone by the 2G/3G formula
        {40, 255, 51},
        {255, 0, 0},
        {255, 255, 0},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(CalcHybirdPer(row.iCdma, row.iEvdo), row.iExpected)
            << row.iCdma << "," << row.iEvdo;
    }
}

TEST(SignalMathTest, LteLevelIsTheWeakerOfRsrpAndSinr)
{
    struct Row {
        int iRsrp;
        int iSinr;
        int iLevel;
    } rows[] = {
        {50, 130, 4}, {60, 80, 1}, {0, 0, 1},
        {255, 130, 0}, {50, 255, 0}, {255, 255, 0},
        // RSRP steps, SINR out of the way
        {25, 251, 1}, {26, 251, 2}, {35, 251, 2}, {36, 251, 3}, {45, 251, 3}, {46, 251, 4},
        {55, 251, 4}, {56, 251, 5}, {97, 251, 5},
        // SINR steps, RSRP out of the way
        {97, 85, 1}, {97, 86, 2}, {97, 105, 2}, {97, 106, 3}, {97, 122, 3}, {97, 123, 4},
        {97, 165, 4}, {97, 166, 5},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(GetLteSignalStrength(row.iRsrp, row.iSinr), row.iLevel)
            << row.iRsrp << "," << row.iSinr;
    }
}

TEST(SignalMathTest, DbmAndDbToTheHcsqScale)
{
    const IntRow rsrp[] = {
        {INT_MIN, 0}, {-141, 0}, {-140, 1}, {-139, 2}, {-95, 46},
        {-45, 96},    {-44, 97}, {0, 97},   {INT_MAX, 97},
    };
    for (const IntRow& row : rsrp) {
        EXPECT_EQ(RsrpDbmToHcsq(row.iInput), row.iExpected) << row.iInput;
    }
    const IntRow sinr[] = {
        {INT_MIN, 0}, {-21, 0},  {-20, 1},  {-3, 86},  {-1, 96},      {0, 101},
        {12, 161},    {29, 246}, {30, 251}, {31, 251}, {INT_MAX, 251},
    };
    for (const IntRow& row : sinr) {
        EXPECT_EQ(SinrDbToHcsq(row.iInput), row.iExpected) << row.iInput;
    }
}

TEST(SignalMathTest, BarsAndUnitsOfTheOtherRoads)
{
    // LTE: 20 per level of RSRP and SINR.
    const struct {
        int iRsrp;
        int iSinr;
        int iPercent;
    } lte[] = {{50, 130, 80}, {60, 80, 20}, {97, 251, 100}, {255, 130, 0}};
    for (const auto& row : lte) {
        EXPECT_EQ(LteSignalPercent(row.iRsrp, row.iSinr), row.iPercent) << row.iRsrp;
    }
    // TD-SCDMA "+CSQ": the offset of 100 comes off, then 100 / 91 per step.
    const IntRow offset[] = {{150, 50}, {100, 0}, {198, 98}, {199, 0}, {99, 0}, {31, 0}, {-1, 0}};
    for (const IntRow& row : offset) {
        EXPECT_EQ(CsqTdRssiWithoutOffset(row.iInput), row.iExpected) << row.iInput;
    }
    const IntRow td[] = {{0, 0}, {1, 1}, {50, 54}, {91, 100}, {98, 107}};
    for (const IntRow& row : td) {
        EXPECT_EQ(CsqTdRssiToPercent(row.iInput), row.iExpected) << row.iInput;
    }
    // "^HCSQ" values in dBm and dB; half-dB steps truncate toward zero.
    struct UnitRow {
        int (*convert)(int);
        int iInput;
        int iExpected;
    } units[] = {
        {HcsqRscpToDbm, 0, -121}, {HcsqRscpToDbm, 30, -91},  {HcsqEcioToDb, 50, -7},
        {HcsqEcioToDb, 64, 0},    {HcsqEcioToDb, 0, -32},    {HcsqEcioToDb, 96, 15},
        {HcsqRsrpToDbm, 19, -122}, {HcsqRsrpToDbm, 97, -44}, {HcsqRsrqToDb, 0, -20},
        {HcsqRsrqToDb, 39, 0},    {HcsqRsrqToDb, 34, -3},    {HcsqRsrqToDb, 43, 1},
        {HcsqRscpToDbm, INT_MIN, INT_MAX - 120},   // wraps at 32 bits, never traps
    };
    for (const UnitRow& row : units) {
        EXPECT_EQ(row.convert(row.iInput), row.iExpected) << row.iInput;
    }
}

TEST(SignalMathTest, ModemNumbersAreSigned32Bit)
{
    struct Row {
        uint64_t uInput;
        int32_t iExpected;
    } rows[] = {
        {0, 0},
        {95, 95},
        {static_cast<uint64_t>(-95), -95},   // "-95" as the field parser keeps it
        {0xFFFFFFFFull, -1},
        {0x80000000ull, INT32_MIN},
        {0x7FFFFFFFull, INT32_MAX},
        {0x100000005ull, 5},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ModemNumberToInt(row.uInput), row.iExpected) << row.uInput;
    }
}

// ---- the "^HCSQ" reading --------------------------------------------------------

typedef std::vector<std::string> Fields;

// Builds a reading from lines of fields the way the processor fills a
// response: field k into parameter k, stopping at the first one refused.
void Read(const std::vector<Fields>& lines, NETSRV_DATA::HCSQ_INFO& stInfo)
{
    for (const Fields& fields : lines) {
        ReadHcsqRsp rsp;
        PARAMETER* pParam = rsp.GetFirstElemAddr();
        for (size_t i = 0; i < fields.size() && i < rsp.GetElemCount(); ++i) {
            if (!pParam[i].FromString(fields[i])) {
                break;
            }
        }
        ApplyHcsqRsp(rsp, stInfo);
    }
}

// " NAME(v1,v2,...)" for a radio in use, nothing for one that is not.
std::string Radio(const char* pszName, bool bUsed, std::initializer_list<int32_t> values)
{
    if (!bUsed) {
        return "";
    }
    std::string text = std::string(" ") + pszName + "(";
    for (int32_t value : values) {
        text += std::to_string(value) + ",";
    }
    text.back() = ')';
    return text;
}

// The reading in a compact form: service flag, then every radio in use with
// its values.
std::string Describe(const NETSRV_DATA::HCSQ_INFO& s)
{
    const NETSRV_DATA::HCSQ_CDMA_EVDO& h = *s.pstCDMA_EVDO;
    return (s.bService ? "svc" : "nosvc") + Radio("GSM", s.pstGSM->bUsed, {s.pstGSM->iRssi}) +
           Radio("WCDMA", s.pstWCDMA->bUsed,
                 {s.pstWCDMA->iRssi, s.pstWCDMA->iRscp, s.pstWCDMA->iEcio}) +
           Radio("TD", s.pstTD_SCDMA->bUsed,
                 {s.pstTD_SCDMA->iRssi, s.pstTD_SCDMA->iRscp, s.pstTD_SCDMA->iEcio}) +
           Radio("LTE", s.pstLTE->bUsed,
                 {s.pstLTE->iRssi, s.pstLTE->iRsrp, s.pstLTE->iSinr, s.pstLTE->iRsrq}) +
           Radio("CDMA", s.pstCDMA->bUsed, {s.pstCDMA->iRssi, s.pstCDMA->iEcio}) +
           Radio("EVDO", s.pstEVDO->bUsed, {s.pstEVDO->iRssi, s.pstEVDO->iEcio, s.pstEVDO->iSinr}) +
           Radio("HYBRID", h.bUsed,
                 {h.iCdma_Rssi, h.iCdma_Ecio, h.iEvdo_Rssi, h.iEvdo_Ecio, h.IEvdo_Sinr});
}

TEST(HcsqLineTest, LinesFillTheirRadio)
{
    struct Row {
        const char* pszWhat;
        std::vector<Fields> lines;
        const char* pszExpected;
    } rows[] = {
        // Real modem answers, as the processor splits them (quotes removed).
        {"LTE modem", {{"LTE", "30", "19", "66", "0"}}, "svc LTE(30,19,66,0)"},
        {"GSM modem", {{"GSM", "36", "255"}}, "svc GSM(36)"},
        {"out of coverage", {{"NOSERVICE"}}, "nosvc"},
        {"every radio",
         {{"WCDMA", "40", "30", "50"}, {"TD-SCDMA", "41", "31", "51"}, {"CDMA", "50", "20"},
          {"EVDO", "40", "30", "100"}, {"CDMA-EVDO", "1", "2", "3", "4", "5"}},
         "svc WCDMA(40,30,50) TD(41,31,51) CDMA(50,20) EVDO(40,30,100) HYBRID(1,2,3,4,5)"},
        // Short lines: what the modem leaves out is "not reported", never 0.
        {"name alone", {{"LTE"}}, "svc LTE(255,255,255,255)"},
        {"two of four", {{"LTE", "30", "19"}}, "svc LTE(30,19,255,255)"},
        {"empty field inside", {{"WCDMA", "", "30", ""}}, "svc WCDMA(255,30,255)"},
        {"explicit zero", {{"GSM", "0"}}, "svc GSM(0)"},
        // Names: exact, one pair of quotes tolerated.
        {"quoted name", {{"\"LTE\"", "30"}}, "svc LTE(30,255,255,255)"},
        {"lower case", {{"lte", "30"}}, "nosvc"},
        {"unknown radio", {{"WIMAX", "40"}}, "nosvc"},
        {"no fields at all", {{}}, "nosvc"},
        {"name with blank", {{"GSM ", "36"}}, "nosvc"},
        {"unknown beside known", {{"GSM", "36"}, {"WIMAX", "1"}}, "svc GSM(36)"},
        // Order counts: a "NOSERVICE" after a radio withdraws the service, and
        // a radio after it brings it back.
        {"radio then no service", {{"GSM", "36"}, {"NOSERVICE"}}, "nosvc GSM(36)"},
        {"no service then radio", {{"NOSERVICE"}, {"GSM", "36"}}, "svc GSM(36)"},
        {"same radio twice", {{"GSM", "36"}, {"GSM", "20"}}, "svc GSM(20)"},
        // Numbers the field parser reads its own way.
        {"negative", {{"LTE", "-5"}}, "svc LTE(-5,255,255,255)"},
        {"beyond 32 bits", {{"GSM", "4294967297"}}, "svc GSM(1)"},
    };
    for (const Row& row : rows) {
        NETSRV_DATA::HCSQ_INFO stInfo;
        Read(row.lines, stInfo);
        EXPECT_EQ(Describe(stInfo), row.pszExpected) << row.pszWhat;
    }
}

TEST(HcsqLineTest, TellsWhetherTheNameWasKnown)
{
    const HcsqValues stValues = {{1, 2, 3, 4, 5}};
    NETSRV_DATA::HCSQ_INFO stInfo;
    EXPECT_TRUE(ApplyHcsqLine("CDMA", stValues, stInfo));
    EXPECT_TRUE(ApplyHcsqLine("NOSERVICE", stValues, stInfo));
    EXPECT_FALSE(ApplyHcsqLine("UMTS", stValues, stInfo));
    EXPECT_FALSE(ApplyHcsqLine("\"", stValues, stInfo));
    EXPECT_EQ(Describe(stInfo), "nosvc CDMA(1,2)");
}

const int kUntouched = -999;

// "v" or "a/b" for what a query found, "-" when it found nothing and left its
// outputs alone.
std::string Found(bool bFound, int iA, int iB = kUntouched)
{
    if (!bFound) {
        return iA == kUntouched && iB == kUntouched ? "-" : "written without a result";
    }
    return std::to_string(iA) + (iB == kUntouched ? "" : "/" + std::to_string(iB));
}

// What each signal query takes out of one reading, in this order: GW
// percentage, TD-SCDMA percentage, CDMA percentage, EV-DO percentage,
// RSCP/Ec-Io, RSRP/RSRQ, the first rssi.
std::string Taken(const NETSRV_DATA::HCSQ_INFO& stInfo)
{
    int iTd = kUntouched, iEvdo = kUntouched, iFirst = kUntouched;
    int iRscp = kUntouched, iEcio = kUntouched, iRsrp = kUntouched, iRsrq = kUntouched;
    const bool bTd = HcsqTdPercent(stInfo, iTd);
    const bool bEvdo = HcsqEvdoPercent(stInfo, iEvdo);
    const bool bRscp = HcsqRscpEcio(stInfo, iRscp, iEcio);
    const bool bRsrp = HcsqRsrpRsrq(stInfo, iRsrp, iRsrq);
    const bool bFirst = HcsqFirstRssi(stInfo, iFirst);
    return std::to_string(HcsqGwPercent(stInfo)) + " " + Found(bTd, iTd) + " " +
           std::to_string(HcsqCdmaPercent(stInfo)) + " " + Found(bEvdo, iEvdo) + " " +
           Found(bRscp, iRscp, iEcio) + " " + Found(bRsrp, iRsrp, iRsrq) + " " +
           Found(bFirst, iFirst);
}

TEST(HcsqLineTest, ValuesTakenOutOfAReading)
{
    struct Row {
        const char* pszWhat;
        std::vector<Fields> lines;
        const char* pszTaken;   // gw td cdma evdo rscp/ecio rsrp/rsrq first
    } rows[] = {
        {"WCDMA", {{"WCDMA", "40", "30", "50"}}, "51 - 0 - -91/-7 - 40"},
        {"GSM and WCDMA", {{"GSM", "36"}, {"WCDMA", "40", "30", "50"}}, "51 - 0 - -91/-7 - 36"},
        {"GSM", {{"GSM", "36"}}, "45 - 0 - - - 36"},
        {"GSM unreported", {{"GSM", "255"}}, "0 - 0 - - - -"},
        {"WCDMA rssi unreported", {{"WCDMA", "255", "30", "50"}, {"GSM", "36"}},
         "45 - 0 - -91/-7 - 36"},
        {"no service", {{"NOSERVICE"}}, "0 - 0 - - - -"},
        {"service withdrawn", {{"GSM", "36"}, {"WCDMA", "40", "30", "50"}, {"NOSERVICE"}},
         "0 - 0 - - - -"},
        // TD-SCDMA is never the first rssi.
        {"TD-SCDMA", {{"TD-SCDMA", "50", "40", "60"}}, "0 49 0 - -81/-2 - -"},
        {"TD-SCDMA unreported", {{"TD-SCDMA", "255"}}, "0 0 0 - - - -"},
        {"WCDMA without RSCP, TD with",
         {{"WCDMA", "40", "255", "50"}, {"TD-SCDMA", "50", "40", "60"}}, "51 49 0 - -81/-2 - 40"},
        {"WCDMA without Ec/Io", {{"WCDMA", "40", "30"}}, "51 - 0 - - - 40"},
        {"Ec/Io rounding", {{"WCDMA", "40", "0", "0"}}, "51 - 0 - -121/-32 - 40"},
        {"LTE", {{"LTE", "30", "50", "130", "20"}}, "0 - 0 - - -91/-10 30"},
        {"LTE RSRQ odd", {{"LTE", "30", "50", "130", "21"}}, "0 - 0 - - -91/-9 30"},
        {"LTE without RSRQ", {{"LTE", "255", "50", "130"}}, "0 - 0 - - - -"},
        {"CDMA", {{"CDMA", "50", "20"}}, "0 - 67 - - - 50"},
        {"CDMA unreported", {{"CDMA", "255", "20"}}, "0 - 0 - - - -"},
        {"EVDO", {{"EVDO", "40", "30", "100"}}, "0 - 0 60 - - 40"},
        {"hybrid", {{"CDMA-EVDO", "40", "10", "20", "10", "100"}}, "0 - 0 60 - - 40"},
        {"hybrid, EV-DO stronger", {{"CDMA-EVDO", "10", "10", "30"}}, "0 - 0 40 - - 30"},
        {"hybrid, EV-DO unreported", {{"CDMA-EVDO", "40", "10", "255"}}, "0 - 0 51 - - 40"},
        {"hybrid, CDMA unreported", {{"CDMA-EVDO", "255", "10", "20"}}, "0 - 0 40 - - 20"},
        {"hybrid, nothing reported", {{"CDMA-EVDO", "255", "10", "255"}}, "0 - 0 0 - - -"},
        {"EVDO before hybrid", {{"CDMA-EVDO", "70", "1", "70"}, {"EVDO", "40"}}, "0 - 0 60 - - 40"},
        {"LTE before CDMA", {{"CDMA", "50"}, {"LTE", "30"}}, "0 - 67 - - - 30"},
    };
    for (const Row& row : rows) {
        NETSRV_DATA::HCSQ_INFO stInfo;
        Read(row.lines, stInfo);
        EXPECT_EQ(Taken(stInfo), row.pszTaken) << row.pszWhat;
    }
}

}  // namespace
