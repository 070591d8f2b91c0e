// One "^HCSQ" reading: its lines collected into an HCSQ_INFO, and the values the
// signal queries take out of it. Pure functions of their arguments.
//
// The modem answers "AT^HCSQ?" with one line per radio in use, for example
//   ^HCSQ: "LTE",30,19,66,0          rssi, rsrp, sinr, rsrq
//   ^HCSQ: "GSM",36                  rssi only
//   ^HCSQ: "NOSERVICE"
// A value that a line does not carry reads as 255, "not reported", like the
// modem's own 255.
#ifndef NETSRVPLUGIN_NETSRVHCSQ_H
#define NETSRVPLUGIN_NETSRVHCSQ_H

#include <cstdint>
#include <string_view>

#include "Interface/NetSrvDef.h"
#include "NetSrvAtCommonds.h"

// The five values that may follow the system name of a line, in order.
struct HcsqValues {
    int32_t aiValue[5];
};

// Applies one line to the reading. The system name is compared exactly (after
// one pair of enclosing double quotes, if any, is dropped): "NOSERVICE" clears
// bService; a known radio marks its record used, fills it from the values and
// sets bService; any other name leaves the reading alone. Returns whether the
// name was known.
bool ApplyHcsqLine(std::string_view strSysMode, const HcsqValues& stValues,
                   NETSRV_DATA::HCSQ_INFO& stInfo);

// The same for a line as the AT processor delivered it: an empty or absent
// value field counts as 255.
bool ApplyHcsqRsp(ReadHcsqRsp& rsp, NETSRV_DATA::HCSQ_INFO& stInfo);

// Signal-bar percentage of a 3GPP modem outside LTE and TD-SCDMA: WCDMA's rssi
// when reported, else GSM's; 0 without service or without either rssi.
int HcsqGwPercent(const NETSRV_DATA::HCSQ_INFO& stInfo);

// TD-SCDMA percentage (0 for an unreported rssi). False when the reading has
// no service or no TD-SCDMA line: the caller's value then stands.
bool HcsqTdPercent(const NETSRV_DATA::HCSQ_INFO& stInfo, int& iPer);

// CDMA 1x percentage; 0 without service or without a CDMA rssi.
int HcsqCdmaPercent(const NETSRV_DATA::HCSQ_INFO& stInfo);

// EV-DO percentage from the "EVDO" line, else from the "CDMA-EVDO" line; false
// when the reading has no service or neither line.
bool HcsqEvdoPercent(const NETSRV_DATA::HCSQ_INFO& stInfo, int& iPer);

// RSCP (dBm) and Ec/Io (dB) of WCDMA, else of TD-SCDMA: the first radio in use
// with both values reported. False when neither qualifies.
bool HcsqRscpEcio(const NETSRV_DATA::HCSQ_INFO& stInfo, int& iRscp, int& iEcio);

// RSRP (dBm) and RSRQ (dB) of the LTE line; false without service, without an
// LTE line or with either value unreported.
bool HcsqRsrpRsrq(const NETSRV_DATA::HCSQ_INFO& stInfo, int& iRsrp, int& iRsrq);

// The first reported rssi, in the "^HCSQ" scale, of GSM, WCDMA, LTE, CDMA, EVDO
// in that order (TD-SCDMA is not consulted), else of the CDMA-EVDO line (the
// larger of its two). False without service or when nothing is reported.
bool HcsqFirstRssi(const NETSRV_DATA::HCSQ_INFO& stInfo, int& iRssi);

#endif
