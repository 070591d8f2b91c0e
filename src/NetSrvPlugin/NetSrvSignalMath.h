// The arithmetic of the signal bar: the modem's many signal scales turned into
// percentages and levels. Pure functions, integer arithmetic; every division
// truncates toward zero, as the host's signal bar has always shown it.
//
// The "^HCSQ" scale: 255 means not reported. A GSM or WCDMA rssi runs 0..96
// (-120 dBm upward, 1 dB steps); LTE's RSRP runs 0..97 (-140 dBm upward, 1 dB
// steps) and its SINR 0..251 (-20 dB upward, 0.2 dB steps).
#ifndef NETSRVPLUGIN_NETSRVSIGNALMATH_H
#define NETSRVPLUGIN_NETSRVSIGNALMATH_H

#include <cstdint>

// "+CSQ" rssi (0..31, 99 unknown) to a percentage. Deliberately unclamped: an
// out-of-range value wraps at 8 bits (40 gives 129), as clients have long seen it.
uint8_t RssiToPercent(int iRssiVal);

// A GSM, WCDMA or CDMA rssi of "^HCSQ" to a percentage: below 9 gives 0, above
// 70 gives 99 (the bar's "full"), 9..70 give 1..100.
int CalcRssiPer(int iRssi);

// A TD-SCDMA rssi of "^HCSQ" to a percentage: below 6 gives 0; no upper bound.
int CalcTdRssiPer(int iRssi);

// An EV-DO rssi of "^HCSQ" to a percentage in five steps of 20 (0, 20..80, 99).
int CalcEvdoPer(int iEvdoRssi);

// The percentage of a hybrid CDMA 1x / EV-DO modem: the stronger of the two
// radios by the EV-DO steps while EV-DO is reported, else CDMA 1x alone.
int CalcHybirdPer(int iCDMARssi, int iEvdoRssi);

// The LTE level 0..5 from RSRP and SINR, both in the "^HCSQ" scale: the weaker
// of the two decides; 0 when either is not reported. The bar shows 20 x level.
int GetLteSignalStrength(int irsrp, int idlsinr);

// The LTE signal bar: 20 x the level above (0, 20, .. 100).
int LteSignalPercent(int irsrp, int idlsinr);

// A TD-SCDMA modem answers "+CSQ" offset by 100 ("+CSQ: 150,99" for 50):
// 100..198 give 0..98; anything else (its unknown, 199, or a value without the
// offset) gives 0.
int CsqTdRssiWithoutOffset(int iRssi);

// The TD-SCDMA bar when only "+CSQ" answers: its rssi, the offset of 100 that
// such modems add already taken off (0..98), x 100 / 91. No test for 99: the
// offset removal has turned an unknown value into 0 before this.
int CsqTdRssiToPercent(int iRssi);

// "^HCSQ" values back to the units a user reads, truncating toward zero:
// RSCP v is v - 121 dBm, Ec/Io v is (v - 65) / 2 dB (0.5 dB steps), RSRP v is
// v - 141 dBm, RSRQ v is (v - 40) / 2 dB (0.5 dB steps).
int HcsqRscpToDbm(int iRscp);
int HcsqEcioToDb(int iEcio);
int HcsqRsrpToDbm(int iRsrp);
int HcsqRsrqToDb(int iRsrq);

// RSRP in dBm ("^LTERSRP: -95,-10") to the "^HCSQ" scale: -140 gives 1, -45
// gives 96, stronger gives 97, weaker than -140 gives 0.
int RsrpDbmToHcsq(int iRsrpDbm);

// SINR in dB ("^LTESCINFO: 310,12,2,5" gives 12) to the "^HCSQ" scale: -20 gives
// 1, 29 gives 246, 30 and above give 251, below -20 gives 0.
int SinrDbToHcsq(int iSinrDb);

// The modem's numbers reach the service as unsigned 64-bit values: the "-95"
// of "^LTERSRP: -95,-10" arrives as 2^64 - 95. This is the signed number the
// modem meant, kept to 32 bits (the low 32 bits, read as two's complement).
int32_t ModemNumberToInt(uint64_t uValue);

#endif
