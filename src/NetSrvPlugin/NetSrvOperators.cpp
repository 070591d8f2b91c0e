// Operator search and selection, home operator and the preferred-operator lists.
//
// Everything runs on "+COPS", "+CIMI", "+CRSM", "+CPLS" and "+CPOL". The
// operator search is the one long query of the service: it runs on its own
// thread, and its answer reaches clients as an event (the reply's lines come in
// through the report dispatcher), so that no caller waits minutes for a scan.

#include "GlobalFunction.h"
#include "isapuguard.h"
#include "MyGlobalFunc.h"
#include "NetSrvAtCommonds.h"
#include "NetSrvImpl.h"
#include "NetSrvOutputs.h"
#include "NetSrvTrace.h"

using namespace NETSRV_DATA;

namespace {

// A network scan takes from seconds to minutes; registering on a chosen
// network takes long too.
const unsigned long kSearchTimeoutMs = 240000;
const unsigned long kSelectTimeoutMs = 120000;

// The administrative data file of the SIM: its fourth byte's low digit (the
// eighth hexadecimal character) is the length of the MNC, which makes the home
// identity five or six digits of the IMSI. 0 when the file says neither.
size_t HomePlmnLength(const std::string& strAdHex)
{
    if (strAdHex.size() < 8) {
        return 0;
    }
    return strAdHex[7] == '2' ? 5 : strAdHex[7] == '3' ? 6 : 0;
}

// An operator name as the modem gave it, without quotes and cut to its field;
// a SIM field of nothing but "F" fillers is no name.
std::string OperatorName(const std::string& strText, size_t nField)
{
    std::string strName = TakeOutDoubleQuotationMarks(strText).substr(0, nField);
    if (strName.find_first_not_of('F') == std::string::npos) {
        strName.clear();
    }
    return strName;
}

template <size_t N>
void CopyName(unsigned char (&btField)[N], const std::string& strName)
{
    CGlobalFunction::chrcpy(reinterpret_cast<char*>(btField), OperatorName(strName, N).c_str(), N);
}

// The access technologies that a manual selection passes on: GSM, UTRAN and
// E-UTRAN. Any other leaves the choice to the modem.
bool IsSelectableRat(unsigned char btRat)
{
    return btRat == 0 || btRat == 2 || btRat == 7;
}

}  // namespace

bool CNetSrvImpl::SRVGetHomePLMN(PLMNType* pstPlmn, unsigned long* pdwStatus)
{
    if (!OutputsUsable(pstPlmn, pdwStatus)) {
        return false;
    }
    *pstPlmn = PLMNType();

    CrsmCmd readAd;
    readAd.cmdtype = uint64{CRSM_COMMAND_BINARY_READ};
    readAd.Fileid = uint64{CRSM_FILEID_EFAD};
    readAd.P1 = uint64{0};
    readAd.P2 = uint64{0};
    readAd.P3 = uint64{CRSM_P3_EFAD};
    CrsmCmdRsp adRsp;
    if (!ExecuteWithResponse(readAd, adRsp, OnFailure(pdwStatus).Trace("SRVGetHomePLMN() CrsmCmd error"))) {
        return false;
    }
    const size_t nLength = HomePlmnLength(adRsp.Response.ToString());
    if (nLength == 0) {
        NetSrvTrace(TL_ERRO, "SRVGetHomePLMN() get len = 0 error");
        return false;
    }

    ReadImsiCmd readImsi;
    ReadImsiRsp imsiRsp;
    if (!ExecuteWithResponse(readImsi, imsiRsp,
                             OnFailure(pdwStatus).Trace("SRVGetHomePLMN() ReadImsiRsp error"))) {
        return false;
    }
    CGlobalFunction::chrcpy(pstPlmn->szPlmn, imsiRsp.ImsiValue.GetRawData(), nLength + 1);
    return true;
}

// ---- the operator search ----------------------------------------------------

bool CNetSrvImpl::SRVGetPLMNList(unsigned long* pdwStatus)
{
    if (pdwStatus == nullptr) {
        return false;
    }
    // Refused while a search runs: one scan at a time.
    if (m_ThreadGetPlmnList.StartThread(this, &CNetSrvImpl::GetPlmnListProc, 0) != 0) {
        *pdwStatus = static_cast<unsigned long>(GetLastError());
        return false;
    }
    return true;
}

void CNetSrvImpl::GetPlmnListProc()
{
    if (!HasAtProcessor()) {
        return;
    }
    // The answer is not read here: its line reaches the report dispatcher,
    // which sends the list to the clients.
    NetworkTestCmd search;
    if (ExecuteNoResponse(search, OnFailure(), kSearchTimeoutMs)) {
        return;
    }
    // A failed search still ends with its one event, an empty list.
    Command empty;
    empty.name = "COPS";
    empty.index = INDEX_NET_SEARCH;
    empty.type = AT_TYPE_NORMAL;
    ReportAtCallBackEvent(empty);
}

// ---- selection and the registered operator -----------------------------------

bool CNetSrvImpl::SRVSelectCurPlmn(unsigned long dwMode, const PLMNType& stPlmn,
                                   unsigned long* pdwStatus)
{
    if (pdwStatus == nullptr) {
        return false;
    }
    NetworkInfoQueryCmd select;
    if (dwMode == NET_SEARCH_AUTO) {
        select.NetMode = uint64{NET_SEARCH_AUTO};
    } else if (dwMode == NET_SEARCH_MANNUAL) {
        const std::string strPlmn = FieldText(stPlmn.szPlmn);
        select.NetMode = uint64{NET_SEARCH_MANNUAL};
        select.Format = uint64{NUMERIC_FORMAT};
        select.ProviderName =
            strPlmn.compare(0, 1, "\"") == 0 ? strPlmn : AddDoubleQuotationMarks(strPlmn.c_str());
        if (IsSelectableRat(stPlmn.btRat)) {
            select.rat = stPlmn.btRat;
        }
    } else {
        *pdwStatus = static_cast<unsigned long>(GetLastError());
        return false;
    }
    return ExecuteNoResponse(select, OnFailure(pdwStatus), kSelectTimeoutMs);
}

bool CNetSrvImpl::SetReadPlmnFormat(EnumPlmnFormat enFormat)
{
    NetworkInfoQueryCmd setFormat;
    setFormat.NetMode = uint64{NET_COPS_READ};
    setFormat.Format = enFormat;
    return ExecuteNoResponse(setFormat,
                             OnFailure().Trace("SetReadPlmnFormat() NetworkInfoQueryCmd error"));
}

bool CNetSrvImpl::GetCrntPlmn(PlmnInfo& stInfo)
{
    return QueryOne<NetworkReadCmd, NetworkInfoQueryRsp>(
        OnFailure().Trace("SRVGetCurPlmn() NetworkReadCmd error"),
        [&stInfo](NetworkInfoQueryRsp& rsp) {
            const std::string strName = rsp.ProviderName.ToString();
            switch (rsp.Format.GetNumValue()) {
            case LONG_ALPHANUMERIC:
                stInfo.strFullName = strName;
                break;
            case SHORT_ALPHANUMERIC:
                stInfo.strShortName = strName;
                break;
            default:
                stInfo.strPlmnId = strName;
                break;
            }
            stInfo.dwNetMode = static_cast<DWORD>(rsp.NetMode.GetNumValue());
            stInfo.nRat = static_cast<int>(rsp.rat.GetNumValue());
        });
}

bool CNetSrvImpl::SRVGetCurPlmn(unsigned long* pdwMode, PLMNType* pstPlmn, unsigned long* pdwStatus)
{
    if (!OutputsUsable(pdwMode, pdwStatus) || !OutputsUsable(pstPlmn, pdwStatus)) {
        return false;
    }
    NetSrvTrace(TL_INFO, "SRVGetCurPlmn before lock ");
    // Another caller's format switches must not come between ours and the reads.
    CISAPUGuard<JMutex> guard(m_lockerPlmnFun);
    NetSrvTrace(TL_INFO, "SRVGetCurPlmn after lock ");

    // The names are worth having but not required.
    PlmnInfo stShort;
    if (SetReadPlmnFormat(SHORT_ALPHANUMERIC) && GetCrntPlmn(stShort)) {
        CopyName(pstPlmn->btPlmnName, stShort.strShortName);
        *pdwMode = stShort.dwNetMode;
    }
    PlmnInfo stLong;
    if (SetReadPlmnFormat(LONG_ALPHANUMERIC) && GetCrntPlmn(stLong)) {
        CopyName(pstPlmn->btPlmnLongName, stLong.strFullName);
        *pdwMode = stLong.dwNetMode;
    }
    // The numeric identity decides; without it the modem is not registered.
    // The modem is left in numeric format.
    PlmnInfo stNumeric;
    if (SetReadPlmnFormat(NUMERIC_FORMAT) && GetCrntPlmn(stNumeric)) {
        *pdwMode = stNumeric.dwNetMode;
        if (!stNumeric.strPlmnId.empty()) {
            CGlobalFunction::chrcpy(pstPlmn->szPlmn, stNumeric.strPlmnId.c_str(),
                                    sizeof(pstPlmn->szPlmn));
            pstPlmn->btRat = static_cast<unsigned char>(stNumeric.nRat);
            NetSrvTrace(TL_INFO, "SRVGetCurPlmn success ");
            return true;
        }
    }
    return FailWithLastError(pdwStatus, "SRVGetCurPlmn() error");
}

// ---- the SIM's preferred-operator list ---------------------------------------

bool CNetSrvImpl::SRVGetPLMNControlMode(UPLMN_MODE* penMode)
{
    if (penMode == nullptr) {
        return false;
    }
    *penMode = UPLMN_UNKNOWN_CONTROL;
    return QueryOne<ReadCplsCmd, ReadCplsCmdRsp>(OnFailure(), [penMode](ReadCplsCmdRsp& rsp) {
        *penMode = static_cast<UPLMN_MODE>(rsp.list.GetNumValue());
    });
}

bool CNetSrvImpl::SRVSetPLMNControlMode(UPLMN_MODE enMode)
{
    return SetOne(&SetCplsCmd::list, static_cast<uint64>(enMode), OnFailure());
}

bool CNetSrvImpl::SRVGetPLMNPreferList(UPLMNList* pstList)
{
    if (pstList == nullptr) {
        return false;
    }
    ReadCpolCmd read;
    VctReadCpolRsp lines;
    if (!ExecuteWithLines(read, lines, OnFailure())) {
        return false;
    }
    // One row more than the modem gave: its empty index ends the list (the
    // list's size is not written; see INetSrv.h).
    const std::vector<ReadCpolRsp>& vctRows = lines.vctPLMNPreferList;
    pstList->pstUPLMN = new UPLMNInfo[vctRows.size() + 1];
    for (size_t i = 0; i < vctRows.size(); ++i) {
        const ReadCpolRsp& row = vctRows[i];
        UPLMNInfo& stInfo = pstList->pstUPLMN[i];
        QIRA_strcpy(stInfo.index, row.index.GetRawData(), sizeof(stInfo.index));
        QIRA_strcpy(stInfo.format, row.format.GetRawData(), sizeof(stInfo.format));
        QIRA_strcpy(stInfo.szUPLMN, row.oper.GetRawData(), sizeof(stInfo.szUPLMN));
        QIRA_strcpy(stInfo.szGSMAct, row.GSM_AcT.GetRawData(), sizeof(stInfo.szGSMAct));
        QIRA_strcpy(stInfo.szGSMCompactAct, row.GSM_Compact_AcT.GetRawData(),
                    sizeof(stInfo.szGSMCompactAct));
        QIRA_strcpy(stInfo.szUTRANAct, row.UTRAN_AcT.GetRawData(), sizeof(stInfo.szUTRANAct));
    }
    return true;
}

bool CNetSrvImpl::SRVReleasePLMNPreferList(UPLMNList* pstList)
{
    if (pstList != nullptr) {
        delete[] pstList->pstUPLMN;
        pstList->pstUPLMN = nullptr;
    }
    return true;
}

bool CNetSrvImpl::SRVSetPLMNPreferInfo(UPLMNInfo& stInfo)
{
    // The texts go out as the caller gave them, quotes included.
    SetCpolCmd set;
    set.index = FieldText(stInfo.index);
    set.format = FieldText(stInfo.format);
    set.oper = FieldText(stInfo.szUPLMN);
    set.GSM_AcT = FieldText(stInfo.szGSMAct);
    set.GSM_Compact_AcT = FieldText(stInfo.szGSMCompactAct);
    set.UTRAN_AcT = FieldText(stInfo.szUTRANAct);
    return ExecuteNoResponse(set, OnFailure());
}
