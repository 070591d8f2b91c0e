// The "^HCSQ" reading: lines in, values out.

#include "NetSrvHcsq.h"

#include <algorithm>

#include "NetSrvSignalMath.h"

namespace {

const int32_t kNotReported = NETSRV_DATA::HCSQ_NOT_REPORTED;

// The processor hands STRING fields over without their quotes; a line that
// reached us some other way may still carry them.
std::string_view WithoutQuotes(std::string_view strText)
{
    if (strText.size() >= 2 && strText.front() == '"' && strText.back() == '"') {
        return strText.substr(1, strText.size() - 2);
    }
    return strText;
}

int32_t ValueOf(NUMERIC& field)
{
    // NUMERIC reads an empty field as 0; here it must read as "not reported".
    if (field.IsEmpty()) {
        return kNotReported;
    }
    return ModemNumberToInt(field.GetNumValue());
}

}  // namespace

bool ApplyHcsqLine(std::string_view strSysMode, const HcsqValues& stValues,
                   NETSRV_DATA::HCSQ_INFO& stInfo)
{
    const std::string_view strName = WithoutQuotes(strSysMode);
    const int32_t* v = stValues.aiValue;
    if (strName == "NOSERVICE") {
        stInfo.bService = false;
        return true;
    }
    if (strName == "GSM") {
        stInfo.pstGSM->bUsed = true;
        stInfo.pstGSM->iRssi = v[0];
    } else if (strName == "WCDMA") {
        stInfo.pstWCDMA->bUsed = true;
        stInfo.pstWCDMA->iRssi = v[0];
        stInfo.pstWCDMA->iRscp = v[1];
        stInfo.pstWCDMA->iEcio = v[2];
    } else if (strName == "TD-SCDMA") {
        stInfo.pstTD_SCDMA->bUsed = true;
        stInfo.pstTD_SCDMA->iRssi = v[0];
        stInfo.pstTD_SCDMA->iRscp = v[1];
        stInfo.pstTD_SCDMA->iEcio = v[2];
    } else if (strName == "LTE") {
        stInfo.pstLTE->bUsed = true;
        stInfo.pstLTE->iRssi = v[0];
        stInfo.pstLTE->iRsrp = v[1];
        stInfo.pstLTE->iSinr = v[2];
        stInfo.pstLTE->iRsrq = v[3];
    } else if (strName == "CDMA") {
        stInfo.pstCDMA->bUsed = true;
        stInfo.pstCDMA->iRssi = v[0];
        stInfo.pstCDMA->iEcio = v[1];
    } else if (strName == "EVDO") {
        stInfo.pstEVDO->bUsed = true;
        stInfo.pstEVDO->iRssi = v[0];
        stInfo.pstEVDO->iEcio = v[1];
        stInfo.pstEVDO->iSinr = v[2];
    } else if (strName == "CDMA-EVDO") {
        stInfo.pstCDMA_EVDO->bUsed = true;
        stInfo.pstCDMA_EVDO->iCdma_Rssi = v[0];
        stInfo.pstCDMA_EVDO->iCdma_Ecio = v[1];
        stInfo.pstCDMA_EVDO->iEvdo_Rssi = v[2];
        stInfo.pstCDMA_EVDO->iEvdo_Ecio = v[3];
        stInfo.pstCDMA_EVDO->IEvdo_Sinr = v[4];
    } else {
        // A radio that this service does not know of: the reading stays as it was.
        return false;
    }
    stInfo.bService = true;
    return true;
}

bool ApplyHcsqRsp(ReadHcsqRsp& rsp, NETSRV_DATA::HCSQ_INFO& stInfo)
{
    const HcsqValues stValues = {{ValueOf(rsp.value1), ValueOf(rsp.value2), ValueOf(rsp.value3),
                                  ValueOf(rsp.value4), ValueOf(rsp.value5)}};
    const long nLength = rsp.sysmode.GetLength();
    const size_t nBytes = nLength < 0 ? 0 : std::min<size_t>(nLength, PARAM_MAX_SIZE);
    const std::string_view strSysMode(rsp.sysmode.GetRawData(), nBytes);
    return ApplyHcsqLine(strSysMode, stValues, stInfo);
}

int HcsqGwPercent(const NETSRV_DATA::HCSQ_INFO& stInfo)
{
    if (!stInfo.bService) {
        return 0;
    }
    // When a modem reports both radios, WCDMA's rssi is the one shown.
    if (stInfo.pstWCDMA->bUsed && stInfo.pstWCDMA->iRssi != kNotReported) {
        return CalcRssiPer(stInfo.pstWCDMA->iRssi);
    }
    if (!stInfo.pstGSM->bUsed || stInfo.pstGSM->iRssi == kNotReported) {
        return 0;
    }
    return CalcRssiPer(stInfo.pstGSM->iRssi);
}

bool HcsqTdPercent(const NETSRV_DATA::HCSQ_INFO& stInfo, int& iPer)
{
    if (!stInfo.bService || !stInfo.pstTD_SCDMA->bUsed) {
        return false;
    }
    const int32_t iRssi = stInfo.pstTD_SCDMA->iRssi;
    iPer = iRssi == kNotReported ? 0 : CalcTdRssiPer(iRssi);
    return true;
}

int HcsqCdmaPercent(const NETSRV_DATA::HCSQ_INFO& stInfo)
{
    if (!stInfo.bService || !stInfo.pstCDMA->bUsed || stInfo.pstCDMA->iRssi == kNotReported) {
        return 0;
    }
    return CalcRssiPer(stInfo.pstCDMA->iRssi);
}

bool HcsqEvdoPercent(const NETSRV_DATA::HCSQ_INFO& stInfo, int& iPer)
{
    if (!stInfo.bService) {
        return false;
    }
    if (stInfo.pstEVDO->bUsed) {
        iPer = CalcEvdoPer(stInfo.pstEVDO->iRssi);
        return true;
    }
    if (stInfo.pstCDMA_EVDO->bUsed) {
        // An unreported EV-DO rssi leaves CDMA 1x alone on the bar, as the
        // hybrid formula does for it.
        iPer = CalcHybirdPer(stInfo.pstCDMA_EVDO->iCdma_Rssi, stInfo.pstCDMA_EVDO->iEvdo_Rssi);
        return true;
    }
    return false;
}

bool HcsqRscpEcio(const NETSRV_DATA::HCSQ_INFO& stInfo, int& iRscp, int& iEcio)
{
    if (!stInfo.bService) {
        return false;
    }
    int32_t iRawRscp = kNotReported;
    int32_t iRawEcio = kNotReported;
    if (stInfo.pstWCDMA->bUsed && stInfo.pstWCDMA->iRscp != kNotReported &&
        stInfo.pstWCDMA->iEcio != kNotReported) {
        iRawRscp = stInfo.pstWCDMA->iRscp;
        iRawEcio = stInfo.pstWCDMA->iEcio;
    } else if (stInfo.pstTD_SCDMA->bUsed && stInfo.pstTD_SCDMA->iRscp != kNotReported &&
               stInfo.pstTD_SCDMA->iEcio != kNotReported) {
        iRawRscp = stInfo.pstTD_SCDMA->iRscp;
        iRawEcio = stInfo.pstTD_SCDMA->iEcio;
    } else {
        return false;
    }
    iRscp = HcsqRscpToDbm(iRawRscp);
    iEcio = HcsqEcioToDb(iRawEcio);
    return true;
}

bool HcsqRsrpRsrq(const NETSRV_DATA::HCSQ_INFO& stInfo, int& iRsrp, int& iRsrq)
{
    const NETSRV_DATA::HCSQ_LTE& stLte = *stInfo.pstLTE;
    if (!stInfo.bService || !stLte.bUsed || stLte.iRsrp == kNotReported ||
        stLte.iRsrq == kNotReported) {
        return false;
    }
    iRsrp = HcsqRsrpToDbm(stLte.iRsrp);
    iRsrq = HcsqRsrqToDb(stLte.iRsrq);
    return true;
}

bool HcsqFirstRssi(const NETSRV_DATA::HCSQ_INFO& stInfo, int& iRssi)
{
    if (!stInfo.bService) {
        return false;
    }
    const struct {
        bool bUsed;
        int32_t iRssi;
    } candidates[] = {
        {stInfo.pstGSM->bUsed, stInfo.pstGSM->iRssi},
        {stInfo.pstWCDMA->bUsed, stInfo.pstWCDMA->iRssi},
        {stInfo.pstLTE->bUsed, stInfo.pstLTE->iRssi},
        {stInfo.pstCDMA->bUsed, stInfo.pstCDMA->iRssi},
        {stInfo.pstEVDO->bUsed, stInfo.pstEVDO->iRssi},
    };
    for (const auto& candidate : candidates) {
        if (candidate.bUsed && candidate.iRssi != kNotReported) {
            iRssi = candidate.iRssi;
            return true;
        }
    }
    const NETSRV_DATA::HCSQ_CDMA_EVDO& stHybrid = *stInfo.pstCDMA_EVDO;
    if (!stHybrid.bUsed) {
        return false;
    }
    if (stHybrid.iEvdo_Rssi == kNotReported) {
        if (stHybrid.iCdma_Rssi == kNotReported) {
            return false;
        }
        iRssi = stHybrid.iCdma_Rssi;
        return true;
    }
    if (stHybrid.iCdma_Rssi != kNotReported && stHybrid.iCdma_Rssi > stHybrid.iEvdo_Rssi) {
        iRssi = stHybrid.iCdma_Rssi;
    } else {
        iRssi = stHybrid.iEvdo_Rssi;
    }
    return true;
}
