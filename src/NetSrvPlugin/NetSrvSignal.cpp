// Signal strength and the signal-bar percentages.
//
// "^HCSQ" is asked first: one line per radio in use, all values in one scale.
// Modems without it answer the older per-radio commands, so every query keeps
// its own fall-back ("+CSQ", "^CSQLVL", "^HDRCSQLVL", "^CSNR", "^LTERSRP",
// "^LTESCINFO"). Which percentage the bar shows depends on the kind of device
// and on the system mode it is camped on. Nothing is cached here.

#include <memory>
#include <new>

#include "NetSrvAtCommonds.h"
#include "NetSrvDevice.h"
#include "NetSrvHcsq.h"
#include "NetSrvImpl.h"
#include "NetSrvOutputs.h"
#include "NetSrvSignalMath.h"
#include "NetSrvTrace.h"

namespace {

// Frees the lines that the processor added to the list, whatever the outcome of
// the command: the list hands them out but does not own them.
class HcsqLinesOwner {
public:
    explicit HcsqLinesOwner(ReadHcsqRspList& list) : m_list(list) {}
    ~HcsqLinesOwner()
    {
        for (ReadHcsqRsp* pLine : m_list.m_vecReadHcsqRspList) {
            delete pLine;
        }
        m_list.m_vecReadHcsqRspList.clear();
    }
    HcsqLinesOwner(const HcsqLinesOwner&) = delete;
    HcsqLinesOwner& operator=(const HcsqLinesOwner&) = delete;

private:
    ReadHcsqRspList& m_list;
};

// One "^HCSQ" reading for the length of a query. Memory running out while the
// record is built counts as a failed reading.
class HcsqReading {
public:
    explicit HcsqReading(CNetSrvImpl& service)
    {
        try {
            m_pInfo.reset(new NETSRV_DATA::HCSQ_INFO());
        } catch (const std::bad_alloc&) {
            return;
        }
        m_bRead = service.SRVGetHCSQInfo(m_pInfo.get());
    }

    bool Read() const { return m_bRead; }
    // Valid only when Read() is true.
    const NETSRV_DATA::HCSQ_INFO& Info() const { return *m_pInfo; }

private:
    std::unique_ptr<NETSRV_DATA::HCSQ_INFO> m_pInfo;
    bool m_bRead = false;
};

// The last fall-back of every signal bar: the "+CSQ" rssi (TD-SCDMA's offset
// already taken off) through the bar's formula. pszFailure is traced when
// even that cannot be read.
template <typename ToPercent>
bool RowRssiPercent(CNetSrvImpl& service, const char* pszFailure, ToPercent toPercent, int& iPer)
{
    NETSRV_DATA::RowRSSI stRow;
    unsigned long dwStatus = 0;
    if (!service.SRVGetRowRSSI(&stRow, &dwStatus)) {
        NetSrvTrace(TL_ERRO, pszFailure);
        return false;
    }
    iPer = toPercent(stRow.nRSSI);
    return true;
}

}  // namespace

bool CNetSrvImpl::SRVGetHCSQInfo(NETSRV_DATA::HCSQ_INFO* pHCSQInfo)
{
    if (pHCSQInfo == nullptr) {
        NetSrvTrace(TL_ERRO, "CNetSrvImpl pHCSQInfo pointer is null");
        return false;
    }
    ReadHcsqCmd cmd;
    ReadHcsqRspList rspList;
    HcsqLinesOwner lines(rspList);
    // Modems without "^HCSQ" fail here, silently: every caller has a fall-back.
    if (!ExecuteWithLines(cmd, rspList, OnFailure())) {
        return false;
    }
    // In the order received: a "NOSERVICE" after a radio's line withdraws the
    // service again.
    for (ReadHcsqRsp* pLine : rspList.m_vecReadHcsqRspList) {
        if (pLine != nullptr) {
            ApplyHcsqRsp(*pLine, *pHCSQInfo);
        }
    }
    return true;
}

bool CNetSrvImpl::SRVGetRowRSSI(NETSRV_DATA::RowRSSI* pstRssi, unsigned long* pdwStatus)
{
    if (!OutputsUsable(pstRssi, pdwStatus)) {
        return false;
    }
    ReadRssiCSQCmd cmd;
    ReadRssiCSQRsp rsp;
    if (!ExecuteWithResponse(cmd, rsp, OnFailure(pdwStatus))) {
        return false;
    }
    *pdwStatus = 0;
    pstRssi->nRSSI = static_cast<int16_t>(ModemNumberToInt(rsp.RssiValue.GetNumValue()));
    pstRssi->nBer = static_cast<int16_t>(ModemNumberToInt(rsp.Ber.GetNumValue()));

    NETSRV_DATA::SystemInfo stSysInfo;
    const int32_t iSysMode =
        SRVGetSystemInfoEx(stSysInfo) ? stSysInfo.dwSysMode : NETSRV_DATA::SYS_MODE_NOSERVICE_EX;
    if (iSysMode == NETSRV_DATA::SYS_MODE_TD_SCDMA_EX) {
        pstRssi->nRSSI = static_cast<int16_t>(CsqTdRssiWithoutOffset(pstRssi->nRSSI));
    }
    return true;
}

bool CNetSrvImpl::SRVGetCurRSSI(NETSRV_DATA::RSSIType* pstRssi, unsigned long* pdwStatus)
{
    if (!OutputsUsable(pstRssi, pdwStatus)) {
        return false;
    }

    // A helper that finds nothing to say leaves the bar at 0 %.
    int iPer = 0;
    bool bResult = false;
    const int iKind = DeviceKind();
    if (iKind == DevDataDef::PRODUCT_TYPE_WCDMA || iKind == DevDataDef::PRODUCT_TYPE_TD_SCDMA) {
        NETSRV_DATA::SystemInfo stSysInfo;
        const int32_t iSysMode = SRVGetSystemInfoEx(stSysInfo)
                                     ? stSysInfo.dwSysMode
                                     : NETSRV_DATA::SYS_MODE_NOSERVICE_EX;
        if (iSysMode == NETSRV_DATA::SYS_MODE_LTE_EX) {
            bResult = GetCurrentLteSignalPer(iPer);
            if (!bResult) {
                NetSrvTrace(TL_ERRO, "LTE signal strength return error");
            }
        } else if (iSysMode == NETSRV_DATA::SYS_MODE_TD_SCDMA_EX) {
            bResult = GetCurrentTDSignalPer(iPer);
            if (!bResult) {
                NetSrvTrace(TL_ERRO, "TD signal strength return error");
            }
        } else {
            // GSM, WCDMA, and no service at all.
            bResult = GetCurrentGWSignalPer(iPer);
            if (!bResult) {
                NetSrvTrace(TL_ERRO, "GSM or WCDMA signal strength return error");
            }
        }
    } else if (iKind == DevDataDef::PRODUCT_TYPE_CDMA) {
        bResult = GetCurrentCDMAMODESignalPer(iPer);
        if (!bResult) {
            NetSrvTrace(TL_ERRO, "CDMAMODE signal strength return error");
        }
    } else {
        NetSrvTrace(TL_ERRO, "SRVGetCurRSSI device not find error");
    }

    if (!bResult) {
        return FailWithLastError(pdwStatus, "SRVGetCurRSSI() error");
    }
    pstRssi->btRSSIPercent = static_cast<unsigned char>(iPer);
    pstRssi->nRSSI = 0;
    return true;
}

bool CNetSrvImpl::GetCurrentGWSignalPer(int& iPer)
{
    const HcsqReading hcsq(*this);
    if (hcsq.Read()) {
        iPer = HcsqGwPercent(hcsq.Info());
        return true;
    }
    NetSrvTrace(TL_ERRO, "HCSQ havn't get GW info");
    return RowRssiPercent(*this, "GetCurrentGWSignalPer get csq result error", RssiToPercent,
                          iPer);
}

bool CNetSrvImpl::GetCurrentTDSignalPer(int& iPer)
{
    const HcsqReading hcsq(*this);
    if (hcsq.Read()) {
        // No TD-SCDMA line: the caller's percentage stands.
        HcsqTdPercent(hcsq.Info(), iPer);
        return true;
    }
    NetSrvTrace(TL_ERRO, "HCSQ havn't get TD info");
    // SRVGetRowRSSI has already taken the TD-SCDMA offset of 100 off (and made
    // 99 a 0), so the value goes straight into the TD scale.
    return RowRssiPercent(*this, "GetCurrentTDSignalPer get csq result error",
                          CsqTdRssiToPercent, iPer);
}

bool CNetSrvImpl::GetCurrentCDMAMODESignalPer(int& iPer)
{
    {
        const HcsqReading hcsq(*this);
        if (hcsq.Read()) {
            iPer = HcsqCdmaPercent(hcsq.Info());
            return true;
        }
    }
    // Without a processor the "+CSQ" fall-back cannot be asked either.
    if (!HasAtProcessor()) {
        return false;
    }
    // "^CSQLVL" answers with a percentage already.
    ReadCDMARssiCmd cmd;
    ReadCDMARssiRsp rsp;
    if (ExecuteWithResponse(cmd, rsp, OnFailure().Trace("CSQLVL havn't get CDMA info"))) {
        iPer = ModemNumberToInt(rsp.RssiValue.GetNumValue());
        return true;
    }
    return RowRssiPercent(*this, "GetCurrentCDMAMODESignalPer get csq result error",
                          RssiToPercent, iPer);
}

bool CNetSrvImpl::GetCurrentLteSignalPer(int& iPer)
{
    if (!HasAtProcessor()) {
        return false;
    }

    int iRsrp = NETSRV_DATA::HCSQ_NOT_REPORTED;
    int iSinr = NETSRV_DATA::HCSQ_NOT_REPORTED;
    bool bHcsqRead = false;
    {
        const HcsqReading hcsq(*this);
        bHcsqRead = hcsq.Read();
        // Written whatever the outcome; tools that follow the traces know it so.
        NetSrvTrace(TL_ERRO, "SRVGetCurRSSI ReadHcsqCmd success");
        if (bHcsqRead && hcsq.Info().bService && hcsq.Info().pstLTE->bUsed) {
            iRsrp = hcsq.Info().pstLTE->iRsrp;
            iSinr = hcsq.Info().pstLTE->iSinr;
        }
    }

    if (!bHcsqRead) {
        // The older pair: RSRP in dBm, SINR in dB, both brought to the "^HCSQ"
        // scale so that one level table serves both roads.
        std::unique_ptr<ReadLteRsrpRsp> pRsrpRsp(new (std::nothrow) ReadLteRsrpRsp());
        if (!pRsrpRsp) {
            return false;
        }
        ReadLteRsrpCmd rsrpCmd;
        if (ExecuteWithResponse(rsrpCmd, *pRsrpRsp,
                                OnFailure().Trace("SRVGetCurRSSI ReadLteRsrpCmd error"))) {
            iRsrp = RsrpDbmToHcsq(ModemNumberToInt(pRsrpRsp->rsrp.GetNumValue()));
        }

        std::unique_ptr<ReadLteScInfoRsp> pScInfoRsp(new (std::nothrow) ReadLteScInfoRsp());
        if (!pScInfoRsp) {
            return false;
        }
        ReadLteScInfoCmd scInfoCmd;
        if (ExecuteWithResponse(scInfoCmd, *pScInfoRsp,
                                OnFailure().Trace("SRVGetCurRSSI ReadLteScInfoCmd error"))) {
            iSinr = SinrDbToHcsq(ModemNumberToInt(pScInfoRsp->dlsinr.GetNumValue()));
        }
    }

    if (iRsrp == NETSRV_DATA::HCSQ_NOT_REPORTED || iSinr == NETSRV_DATA::HCSQ_NOT_REPORTED) {
        NetSrvTrace(TL_ERRO, "LTERSRP or LTESCINFO havn't get LTE info");
        return RowRssiPercent(*this, "GetCurrentLteSignalPer get csq result error",
                              RssiToPercent, iPer);
    }
    iPer = LteSignalPercent(iRsrp, iSinr);
    return true;
}

bool CNetSrvImpl::SRVGetSignalQuality(NETSRV_DATA::Signal* pstSignal, unsigned long* pdwStatus)
{
    if (!OutputsUsable(pstSignal, pdwStatus)) {
        return false;
    }

    {
        const HcsqReading hcsq(*this);
        if (hcsq.Read()) {
            int iRscp = 0;
            int iEcio = 0;
            if (!HcsqRscpEcio(hcsq.Info(), iRscp, iEcio)) {
                // Camped on no 3G radio: nothing to say, and no error either.
                return false;
            }
            pstSignal->nRSCP = static_cast<int16_t>(iRscp);
            pstSignal->nECIO = static_cast<int16_t>(iEcio);
            NetSrvTrace(TL_ERRO, "SRVGetSignalQuality() success");
            return true;
        }
    }

    NetSrvTrace(TL_ERRO, "CNetSrvImpl SRVGetSignalQuality HCSQ command not supported ");
    // "^CSNR: -95,-7" carries dBm and dB as they are.
    ReadSignalExCmd cmd;
    ReadSignalExRsp rsp;
    if (!ExecuteWithResponse(cmd, rsp, OnFailure(pdwStatus).Trace("SRVGetSignalQuality() error"))) {
        return false;
    }
    pstSignal->nRSCP = static_cast<int16_t>(ModemNumberToInt(rsp.rscp.GetNumValue()));
    pstSignal->nECIO = static_cast<int16_t>(ModemNumberToInt(rsp.ec_io.GetNumValue()));
    NetSrvTrace(TL_ERRO, "SRVGetSignalQuality() success");
    return true;
}

bool CNetSrvImpl::SRVGetHdrRssiInfo(NETSRV_DATA::RSSIType* pstRssi, unsigned long* pdwStatus)
{
    if (!OutputsUsable(pstRssi, pdwStatus)) {
        return false;
    }

    {
        const HcsqReading hcsq(*this);
        if (hcsq.Read()) {
            int iPer = 0;
            if (!HcsqEvdoPercent(hcsq.Info(), iPer)) {
                // No EV-DO radio in use: nothing to say, and no error either.
                return false;
            }
            pstRssi->btRSSIPercent = static_cast<unsigned char>(iPer);
            return true;
        }
    }

    NetSrvTrace(TL_ERRO, "SRVGetHdrRssiInfo() HCSQ command error ");
    // "^HDRCSQLVL" answers with a percentage. A modem that answers without a
    // value is taken to have a fair signal: 64 %.
    const uint64 kPercentWithoutValue = 64;
    ReadHdrRssiCmd cmd;
    ReadHdrRssiRsp rsp;
    rsp.RssiValue = kPercentWithoutValue;
    if (!ExecuteWithResponse(cmd, rsp, OnFailure(pdwStatus).Trace("SRVGetHdrRssiInfo() error"))) {
        return false;
    }
    const uint64 uPercent =
        rsp.RssiValue.IsEmpty() ? kPercentWithoutValue : rsp.RssiValue.GetNumValue();
    pstRssi->btRSSIPercent = static_cast<unsigned char>(uPercent);
    pstRssi->nRSSI = 0;
    NetSrvTrace(TL_ERRO, "SRVGetHdrRssiInfo() success");
    return true;
}

bool CNetSrvImpl::SRVGetAntennaLevel(NETSRV_DATA::AntennaLevel* pstLevel, unsigned long* pdwStatus)
{
    if (!OutputsUsable(pstLevel, pdwStatus)) {
        return false;
    }
    GetAntennaLevelCmdEx cmd;
    GetAntennaLevelCmdRspEx rsp;
    if (!ExecuteWithResponse(cmd, rsp, OnFailure(pdwStatus).Trace("SRVGetAntennaLevel error"))) {
        return false;
    }
    pstLevel->wLevel = static_cast<uint16_t>(rsp.level.GetNumValue());
    NetSrvTrace(TL_ERRO, "SRVGetAntennaLevel sucess");
    return true;
}

bool CNetSrvImpl::SRVGetHCSQRssi(int* piRssi)
{
    if (piRssi == nullptr) {
        NetSrvTrace(TL_ERRO, "CNetSrvImpl pszRssi pointer is null");
        return false;
    }
    const HcsqReading hcsq(*this);
    if (!hcsq.Read() || !hcsq.Info().bService) {
        NetSrvTrace(TL_ERRO, "HSCQ command not support or no service");
        return false;
    }
    int iRssi = 0;
    if (!HcsqFirstRssi(hcsq.Info(), iRssi)) {
        return false;
    }
    *piRssi = iRssi;
    return true;
}

bool CNetSrvImpl::SRVGetLteSignalQuality(LteSignal* pstSignal, unsigned long* pdwStatus)
{
    if (!OutputsUsable(pstSignal, pdwStatus)) {
        return false;
    }

    {
        const HcsqReading hcsq(*this);
        if (hcsq.Read()) {
            NetSrvTrace(TL_ERRO, "SRVGetCurRSSI ReadHcsqCmd success");
            int iRsrp = 0;
            int iRsrq = 0;
            if (!HcsqRsrpRsrq(hcsq.Info(), iRsrp, iRsrq)) {
                // Not on LTE: nothing to say, and no error either.
                return false;
            }
            pstSignal->nRSRP = static_cast<int16_t>(iRsrp);
            pstSignal->nRSRQ = static_cast<int16_t>(iRsrq);
            return true;
        }
    }

    // "^LTERSRP: -95,-10": dBm and dB as they are.
    ReadLteRsrpCmd cmd;
    ReadLteRsrpRsp rsp;
    if (!ExecuteWithResponse(cmd, rsp,
                             OnFailure(pdwStatus).Trace("SRVGetLteSignalQuality() error"))) {
        return false;
    }
    pstSignal->nRSRP = static_cast<int16_t>(ModemNumberToInt(rsp.rsrp.GetNumValue()));
    pstSignal->nRSRQ = static_cast<int16_t>(ModemNumberToInt(rsp.rsrq.GetNumValue()));
    NetSrvTrace(TL_ERRO, "SRVGetLteSignalQuality() success");
    return true;
}

bool CNetSrvImpl::SRVGetLteScInfo(LteScInfo* pstInfo, unsigned long* pdwStatus)
{
    if (!OutputsUsable(pstInfo, pdwStatus)) {
        return false;
    }
    ReadLteScInfoCmd cmd;
    ReadLteScInfoRsp rsp;
    if (!ExecuteWithResponse(cmd, rsp, OnFailure(pdwStatus))) {
        return false;
    }
    // The downlink bandwidth (the fourth field) is not handed out.
    pstInfo->pci = ModemNumberToInt(rsp.pci.GetNumValue());
    pstInfo->dlsinr = ModemNumberToInt(rsp.dlsinr.GetNumValue());
    pstInfo->numant = ModemNumberToInt(rsp.numant.GetNumValue());
    NetSrvTrace(TL_ERRO, "SRVGetLteScInfo() success");
    return true;
}
