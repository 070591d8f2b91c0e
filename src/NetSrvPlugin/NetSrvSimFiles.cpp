// SIM files and operator names: the ICCID and the subscriber number through
// "+CRSM", the name of the registered network ("^CPNN") and the SIM's operator
// names (the PNN records matched to the OPL rows that point at them).

#include <vector>

#include "GlobalFunction.h"
#include "MyGlobalFunc.h"
#include "NetSrvAtCommonds.h"
#include "NetSrvImpl.h"
#include "NetSrvOutputs.h"
#include "NetSrvPnnName.h"
#include "NetSrvTrace.h"
#include "XCodec.h"

using namespace NETSRV_DATA;

namespace {

// Ten bytes hold the twenty digits of an ICCID; fifteen bytes of an MSISDN
// record are read from its first record, addressed absolutely.
const uint64 kIccidBytes = 10;
const uint64 kMsisdnRecord = 1;
const uint64 kAbsoluteRecord = 4;
const uint64 kMsisdnBytes = 15;
// "^CPNN", "^OPL" and "^PNN" about the SIM's files.
const uint64 kFromSimFiles = 1;
// An OPL row that stands for every network.
const char* const kAnyNetwork = "FFFFFF";
const int kNameUnits = 256;

CrsmCmd ReadOfFile(CRSM_COMMAND enCommand, CRSM_FILEID enFile, uint64 uP1, uint64 uP2, uint64 uP3)
{
    CrsmCmd cmd;
    cmd.cmdtype = static_cast<uint64>(enCommand);
    cmd.Fileid = static_cast<uint64>(enFile);
    cmd.P1 = uP1;
    cmd.P2 = uP2;
    cmd.P3 = uP3;
    return cmd;
}

// A hexadecimal text of the modem's name answer: coding 0 is the GSM 7-bit
// alphabet, any other UCS2.
template <size_t N>
void DecodeNameText(QIRA_wchar_t (&wszField)[N], STRING& text, NUMERIC& coding)
{
    unsigned short wszBuffer[kNameUnits] = {};
    CXCodec codec;
    const std::string strText = text.ToString();
    codec.RawDataDecoderUnicode(coding.GetNumValue() != 0 ? 8 : 0, strText.c_str(),
                                static_cast<int>(strText.size()), wszBuffer, kNameUnits);
    CGlobalFunction::wchrcpy(wszField, wszBuffer, N);
}

template <size_t N>
void CopyName(QIRA_wchar_t (&wszField)[N], const QIRA_wstring& wstrName)
{
    CGlobalFunction::wchrcpy(wszField, wstrName.c_str(), N);
}

void CopyPnn(SPNNInfo& stEntry, const PmnInfo& stPnn)
{
    CopyName(stEntry.wszFullname, stPnn.wszFullname);
    CopyName(stEntry.wszShortname, stPnn.wszShortname);
    stEntry.enFullnameCI = stPnn.enFullnameCI;
    stEntry.enShortnameCI = stPnn.enShortnameCI;
}

}  // namespace

// ---- elementary files ---------------------------------------------------------

bool CNetSrvImpl::SRVGetEFFile(EFType enType, EFFile* pstFile, unsigned long* pdwStatus)
{
    if (!OutputsUsable(pstFile, pdwStatus)) {
        return false;
    }
    switch (enType) {
    case EF_MSISDN:
        return GetMsisdn(pstFile, pdwStatus);
    case EF_ICCID:
        return GetIccid(pstFile, pdwStatus);
    default:
        // The SPN file is read by SRVGetSpnData.
        return false;
    }
}

bool CNetSrvImpl::GetIccid(EFFile* pstFile, unsigned long* pdwStatus)
{
    CrsmCmd cmd = ReadOfFile(CRSM_COMMAND_BINARY_READ, CRSM_FILEID_ICCID, 0, 0, kIccidBytes);
    CrsmCmdRsp rsp;
    if (!ExecuteWithResponse(cmd, rsp,
                             OnFailure(pdwStatus).CallerWordOnly().Trace(
                                 "GetIccid::GetIccid CrsmCmdRsp error"))) {
        return false;
    }
    // Each byte holds two digits, the first in its low nibble: swap every
    // pair. A filler "F" of a nineteen-digit ICCID stays in the text. The
    // caller's record is zeroed, so the text ends where the answer does.
    const std::string strResponse = rsp.Response.ToString();
    for (size_t i = 0; i < strResponse.size() && i + 1 < sizeof(pstFile->szFile); i += 2) {
        pstFile->szFile[i] = i + 1 < strResponse.size() ? strResponse[i + 1] : '\0';
        pstFile->szFile[i + 1] = strResponse[i];
    }
    NetSrvTrace(TL_INFO, "GetIccid: success");
    return true;
}

bool CNetSrvImpl::GetMsisdn(EFFile* pstFile, unsigned long* pdwStatus)
{
    CrsmCmd cmd = ReadOfFile(CRSM_COMMAND_READ_RECORD, CRSM_FILEID_MSISDN, kMsisdnRecord,
                             kAbsoluteRecord, kMsisdnBytes);
    CrsmCmdRsp rsp;
    // The failure's message names the ICCID reading, as it always has.
    if (!ExecuteWithResponse(cmd, rsp,
                             OnFailure(pdwStatus).CallerWordOnly().Trace(
                                 "GetIccid: CrsmCmdRsp failed"))) {
        return false;
    }
    // An erased record reads as all "F" (or all "0" on some SIMs). The record
    // goes to the client as its hexadecimal text.
    const std::string strResponse = rsp.Response.ToString();
    const bool bUnused = strResponse.find_first_not_of('F') == std::string::npos ||
                         strResponse.find_first_not_of('0') == std::string::npos;
    pstFile->enStat = bUnused ? EF_STAT_UNUSED : EF_STAT_USED;
    CGlobalFunction::chrcpy(pstFile->szFile, strResponse.c_str(), sizeof(pstFile->szFile));
    NetSrvTrace(TL_INFO, "GetIccid: success");
    return true;
}

// ---- operator names ------------------------------------------------------------

bool CNetSrvImpl::SRVGetPNN(SPNNInfo* pstPnn, unsigned long* pdwStatus)
{
    if (!OutputsUsable(pstPnn, pdwStatus)) {
        return false;
    }
    pstPnn->szPlmnID[0] = '\0';
    pstPnn->wszFullname[0] = 0;
    pstPnn->wszShortname[0] = 0;
    pstPnn->enFullnameCI = CI_STAT_NOT_Add;
    pstPnn->enShortnameCI = CI_STAT_NOT_Add;
    DispPnnCmd cmd;
    cmd.filetype = kFromSimFiles;
    DispPnnCmdRsp rsp;
    if (!ExecuteWithResponse(cmd, rsp, OnFailure(pdwStatus))) {
        return false;
    }
    if (!rsp.fullname.ToString().empty() || !rsp.shortname.ToString().empty()) {
        DecodeNameText(pstPnn->wszFullname, rsp.fullname, rsp.fcoding);
        pstPnn->enFullnameCI = static_cast<CIStat>(rsp.full_name_ci.GetNumValue());
        DecodeNameText(pstPnn->wszShortname, rsp.shortname, rsp.scoding);
        pstPnn->enShortnameCI = static_cast<CIStat>(rsp.short_name_ci.GetNumValue());
    }
    return true;
}

bool CNetSrvImpl::GetOPLList(std::vector<OplInfo>& vctOpl)
{
    OplListReadCmd cmd;
    cmd.opl_type = kFromSimFiles;
    VctOplLstRsp rows;
    if (!ExecuteWithLines(cmd, rows, OnFailure().Trace("GetOPLList: OplListReadCmd failed"))) {
        return false;
    }
    for (OplListReadRsp& row : rows.vctOplLst) {
        OplInfo stInfo;
        stInfo.nIndex = static_cast<int>(row.index_pnn.GetNumValue());
        stInfo.strPmnId = row.plmn_id.ToString();
        vctOpl.push_back(stInfo);
    }
    NetSrvTrace(TL_INFO, "GetOPLList: success");
    return true;
}

bool CNetSrvImpl::GetPlmnNetworkNamenList(std::vector<PmnInfo>& vctPnn)
{
    PmnListReadCmd cmd;
    cmd.pnn_type = kFromSimFiles;
    VctPmnListRsp records;
    if (!ExecuteWithLines(cmd, records,
                          OnFailure().Trace("GetPlmnNetworkNamenList: PmnListReadCmd failed"))) {
        return false;
    }
    for (PmnListReadRsp& record : records.vctPmnList) {
        // A name element that does not parse leaves that name empty.
        PmnInfo stInfo;
        ParserPnnName(reinterpret_cast<const unsigned char*>(record.full_name_seg.GetRawData()),
                      static_cast<int>(record.full_name_seg.GetLength()), stInfo.wszFullname,
                      stInfo.enFullnameCI);
        ParserPnnName(reinterpret_cast<const unsigned char*>(record.short_name_seg.GetRawData()),
                      static_cast<int>(record.short_name_seg.GetLength()), stInfo.wszShortname,
                      stInfo.enShortnameCI);
        vctPnn.push_back(stInfo);
    }
    NetSrvTrace(TL_INFO, "GetPlmnNetworkNamenList: success");
    return true;
}

bool CNetSrvImpl::SRVGetPnnList(SPNNList* pstPnnList, unsigned long* pdwStatus)
{
    if (!OutputsUsable(pstPnnList, pdwStatus)) {
        return false;
    }
    // Without OPL rows the first name stands for every network; the failed
    // OPL read's code stays in the caller's word even when the list succeeds.
    std::vector<OplInfo> vctOpl;
    const bool bHaveOpl = GetOPLList(vctOpl);
    if (!bHaveOpl) {
        *pdwStatus = static_cast<unsigned long>(GetLastError());
    }
    std::vector<PmnInfo> vctPnn;
    if (!GetPlmnNetworkNamenList(vctPnn) || vctPnn.empty()) {
        return FailWithLastError(pdwStatus);
    }

    const size_t nCount = bHaveOpl ? vctOpl.size() : 1;
    delete[] m_stPnnList.pstPnn;
    m_stPnnList.pstPnn = new SPNNInfo[nCount];
    m_stPnnList.size = static_cast<int>(nCount);
    if (bHaveOpl) {
        for (size_t i = 0; i < vctOpl.size(); ++i) {
            const int nRecord = vctOpl[i].nIndex;
            // A row pointing at no record keeps an empty entry.
            if (nRecord >= 1 && static_cast<size_t>(nRecord) <= vctPnn.size()) {
                CGlobalFunction::chrcpy(m_stPnnList.pstPnn[i].szPlmnID, vctOpl[i].strPmnId.c_str(),
                                        sizeof(m_stPnnList.pstPnn[i].szPlmnID));
                CopyPnn(m_stPnnList.pstPnn[i], vctPnn[static_cast<size_t>(nRecord) - 1]);
            }
        }
    } else {
        CGlobalFunction::chrcpy(m_stPnnList.pstPnn[0].szPlmnID, kAnyNetwork,
                                sizeof(m_stPnnList.pstPnn[0].szPlmnID));
        CopyPnn(m_stPnnList.pstPnn[0], vctPnn[0]);
    }
    *pstPnnList = m_stPnnList;
    return true;
}

bool CNetSrvImpl::SRVReleasePnnList(SPNNList* pstPnnList, unsigned long* pdwStatus)
{
    if (!OutputsUsable(pstPnnList, pdwStatus)) {
        return false;
    }
    // The service's own array is freed, whatever array the caller holds.
    m_stPnnList.size = 0;
    delete[] m_stPnnList.pstPnn;
    m_stPnnList.pstPnn = nullptr;
    *pstPnnList = m_stPnnList;
    return true;
}
