// The signal-bar formulas. Intermediate products are taken in 64 bits so that a
// wild value from the modem cannot overflow; where a result must still come
// back as an int it keeps its low 32 bits, which leaves the low 8 bits (all
// that the bar's percentage byte holds) exactly as the plain formula gives them.

#include "NetSrvSignalMath.h"

namespace {

// "+CSQ" and "^RSSI" use 99 for "not known or not detectable".
const int kCsqUnknown = 99;
// The "^HCSQ" mark of a value that the modem did not report.
const int kHcsqNotReported = 255;

int WrapToInt(int64_t iValue)
{
    return ModemNumberToInt(static_cast<uint64_t>(iValue));
}

// The RSRP part of the LTE level: <= 25 (-116 dBm and weaker) is 1, then one
// step per 10 dB up to 5 above 55 (-86 dBm).
int LteRsrpLevel(int iRsrp)
{
    if (iRsrp <= 25) {
        return 1;
    }
    if (iRsrp <= 35) {
        return 2;
    }
    if (iRsrp <= 45) {
        return 3;
    }
    if (iRsrp <= 55) {
        return 4;
    }
    return 5;
}

// The SINR part: <= 85 (-3 dB) is 1, 86..105 is 2, 106..122 is 3, 123..165 is 4,
// above 165 (13 dB) is 5.
int LteSinrLevel(int iSinr)
{
    if (iSinr <= 85) {
        return 1;
    }
    if (iSinr <= 105) {
        return 2;
    }
    if (iSinr <= 122) {
        return 3;
    }
    if (iSinr <= 165) {
        return 4;
    }
    return 5;
}

}  // namespace

int32_t ModemNumberToInt(uint64_t uValue)
{
    const uint32_t uLow = static_cast<uint32_t>(uValue);
    if (uLow <= static_cast<uint32_t>(INT32_MAX)) {
        return static_cast<int32_t>(uLow);
    }
    // Two's complement by hand: converting an out-of-range unsigned value to a
    // signed type is not portable before C++20.
    return static_cast<int32_t>(static_cast<int64_t>(uLow) - (INT64_C(1) << 32));
}

uint8_t RssiToPercent(int iRssiVal)
{
    if (iRssiVal == kCsqUnknown) {
        return 0;
    }
    // Unsigned conversion keeps the low 8 bits: 40 gives 4000 / 31 = 129,
    // 98 gives 316, shown as 60.
    return static_cast<uint8_t>(static_cast<int64_t>(iRssiVal) * 100 / 31);
}

int CalcRssiPer(int iRssi)
{
    if (iRssi > 70) {
        return 99;
    }
    if (iRssi < 9) {
        return 0;
    }
    return (iRssi * 100 - 800) / 62;
}

int CalcTdRssiPer(int iRssi)
{
    if (iRssi < 6) {
        return 0;
    }
    return WrapToInt((static_cast<int64_t>(iRssi) * 100 - 500) / 91);
}

int CalcEvdoPer(int iEvdoRssi)
{
    if (iEvdoRssi == kHcsqNotReported) {
        return 0;
    }
    if (iEvdoRssi > 60) {
        return 99;
    }
    if (iEvdoRssi == 0) {
        return 0;
    }
    // 1..15 give 20, 16..30 give 40, 31..45 give 60, 46..60 give 80. A negative
    // value is not a reading of the modem; it goes through the formula as well.
    return WrapToInt(((static_cast<int64_t>(iEvdoRssi) - 1) / 15 + 1) * 20);
}

int CalcHybirdPer(int iCDMARssi, int iEvdoRssi)
{
    if (iEvdoRssi != 0 && iEvdoRssi != kHcsqNotReported) {
        // Both radios by the EV-DO steps, the stronger one counting.
        if (iCDMARssi != kHcsqNotReported && iCDMARssi > iEvdoRssi) {
            return CalcEvdoPer(iCDMARssi);
        }
        return CalcEvdoPer(iEvdoRssi);
    }
    if (iCDMARssi == kHcsqNotReported) {
        return 0;
    }
    return CalcRssiPer(iCDMARssi);
}

int GetLteSignalStrength(int irsrp, int idlsinr)
{
    if (irsrp == kHcsqNotReported || idlsinr == kHcsqNotReported) {
        return 0;
    }
    const int iRsrpLevel = LteRsrpLevel(irsrp);
    const int iSinrLevel = LteSinrLevel(idlsinr);
    return iRsrpLevel < iSinrLevel ? iRsrpLevel : iSinrLevel;
}

int LteSignalPercent(int irsrp, int idlsinr)
{
    return 20 * GetLteSignalStrength(irsrp, idlsinr);
}

int CsqTdRssiWithoutOffset(int iRssi)
{
    if (iRssi >= 100 && iRssi <= 198) {
        return iRssi - 100;
    }
    return 0;
}

int CsqTdRssiToPercent(int iRssi)
{
    return WrapToInt(static_cast<int64_t>(iRssi) * 100 / 91);
}

int HcsqRscpToDbm(int iRscp)
{
    return WrapToInt(static_cast<int64_t>(iRscp) - 121);
}

int HcsqEcioToDb(int iEcio)
{
    return WrapToInt((static_cast<int64_t>(iEcio) - 65) / 2);
}

int HcsqRsrpToDbm(int iRsrp)
{
    return WrapToInt(static_cast<int64_t>(iRsrp) - 141);
}

int HcsqRsrqToDb(int iRsrq)
{
    return WrapToInt((static_cast<int64_t>(iRsrq) - 40) / 2);
}

int RsrpDbmToHcsq(int iRsrpDbm)
{
    if (iRsrpDbm < -140) {
        return 0;
    }
    if (iRsrpDbm <= -45) {
        return 141 + iRsrpDbm;   // 141 - |rsrp|
    }
    return 97;
}

int SinrDbToHcsq(int iSinrDb)
{
    if (iSinrDb < -20) {
        return 0;
    }
    if (iSinrDb <= 29) {
        return (iSinrDb * 10 + 200) / 2 + 1;
    }
    return 251;
}
