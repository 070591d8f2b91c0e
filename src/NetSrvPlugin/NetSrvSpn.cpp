// The service provider name: what the SIM (or on a CDMA device the R-UIM or
// the device's own memory) holds for display, with its display condition.
//
// The modem's "^SPN" is asked first, for two kinds of storage in turn; a modem
// without "^SPN" has the name read straight from the SIM's SPN file.

#include <algorithm>
#include <cctype>
#include <vector>

#include "GlobalFunction.h"
#include "MyGlobalFunc.h"
#include "NetSrvAtCommonds.h"
#include "NetSrvDevice.h"
#include "NetSrvImpl.h"
#include "NetSrvOutputs.h"
#include "NetSrvTrace.h"
#include "XCodec.h"

using namespace NETSRV_DATA;

namespace {

// An erased 16-byte SPN field, as "^SPN" prints it: no name.
const char* const kNoNameMarker = "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF";
// The code of a command the modem does not support, and of a bare ERROR.
const unsigned long kUnsupported = 4;
const unsigned long kUnknownError = 100;
// The codec library's codings of a name.
const int kPhoneBookGsm7 = 0;
const int kPhoneBookAlphaField = 1;
const int kPhoneBookCdmaAscii = 3;
const int kRawUcs2 = 8;
const int kNameUnits = 256;

bool IsNoName(const std::string& strName)
{
    return strName.empty() || strName == kNoNameMarker;
}

// CDMA modems print the marker in either case.
bool IsNoNameAnyCase(const std::string& strName)
{
    std::string strUpper = strName;
    std::transform(strUpper.begin(), strUpper.end(), strUpper.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return IsNoName(strUpper);
}

// The name through the codec's phone-book decoder: its size first, then the
// text into a buffer of that size, cut to the record's field.
void DecodePhoneBookName(SSpnDataType* pstSpn, int nCoding, const char* pData, int nLength)
{
    CXCodec codec;
    const int nUnits = codec.DecoderPB(nCoding, pData, nLength, nullptr, 0);
    std::vector<unsigned short> vctName(static_cast<size_t>(std::max(nUnits, 0)) + 1, 0);
    codec.DecoderPB(nCoding, pData, nLength, vctName.data(), static_cast<int>(vctName.size()));
    CGlobalFunction::wchrcpy(pstSpn->SpnData, vctName.data(), sizeof(pstSpn->SpnData) / 2);
}

void DecodePhoneBookName(SSpnDataType* pstSpn, int nCoding, const std::string& strName)
{
    DecodePhoneBookName(pstSpn, nCoding, strName.c_str(), static_cast<int>(strName.size()));
}

}  // namespace

bool CNetSrvImpl::SRVGetSpnData(SSpnDataType* pstSpn, unsigned long* pdwStatus)
{
    if (!OutputsUsable(pstSpn, pdwStatus)) {
        return false;
    }
    // Without a device service the device is taken for a 3GPP one.
    const int iKind = DeviceKind();
    if (!HasAtProcessor()) {
        return false;
    }
    return iKind == DevDataDef::PRODUCT_TYPE_CDMA ? GetCdmaSpn(pstSpn)
                                                  : Get3gppSpn(pstSpn, pdwStatus);
}

bool CNetSrvImpl::Get3gppSpn(SSpnDataType* pstSpn, unsigned long* pdwStatus)
{
    // A failure other than "not supported" counts as no name; the GSM storage
    // is asked next.
    ReadSpnRsp usim;
    unsigned long dwCode = 0;
    const bool bUsim = ReadSpn(SPN_TYPE_USIM, usim, dwCode);
    if (!bUsim && dwCode == kUnsupported) {
        return GetSpnByStdAT(pstSpn);
    }
    if (bUsim && !IsNoName(usim.SpnName.ToString())) {
        return TakeSpn(pstSpn, usim);
    }
    ReadSpnRsp gsm;
    if (!ReadSpn(SPN_TYPE_GSM, gsm, dwCode)) {
        if (dwCode == kUnsupported || dwCode == kUnknownError) {
            return GetSpnByStdAT(pstSpn);
        }
        *pdwStatus = static_cast<unsigned long>(GetLastError());
        return false;
    }
    if (IsNoName(gsm.SpnName.ToString())) {
        pstSpn->btDisplay = 0;
        return true;
    }
    return TakeSpn(pstSpn, gsm);
}

bool CNetSrvImpl::TakeSpn(SSpnDataType* pstSpn, ReadSpnRsp& rsp)
{
    pstSpn->btDisplay = static_cast<unsigned char>(rsp.DispRplmn.GetNumValue());
    DecodePhoneBookName(pstSpn, rsp.CodeType.GetNumValue() == 1 ? kPhoneBookAlphaField : kPhoneBookGsm7,
                        rsp.SpnName.ToString());
    return true;
}

bool CNetSrvImpl::GetCdmaSpn(SSpnDataType* pstSpn)
{
    ReadSpnRsp uim;
    unsigned long dwCode = 0;
    const bool bUim = ReadSpn(SPN_TYPE_UIM, uim, dwCode);
    if (!bUim && dwCode == kUnsupported) {
        return GetSpnByStdAT(pstSpn);
    }
    if (bUim && !IsNoNameAnyCase(uim.SpnName.ToString())) {
        return TakeCdmaSpn(pstSpn, uim);
    }
    ReadSpnRsp rom;
    if (!ReadSpn(SPN_TYPE_ROM, rom, dwCode)) {
        // Unlike the 3GPP path, the caller's word is left alone here.
        return dwCode == kUnsupported ? GetSpnByStdAT(pstSpn) : false;
    }
    if (IsNoNameAnyCase(rom.SpnName.ToString())) {
        pstSpn->btDisplay = 0;
        return true;
    }
    return TakeCdmaSpn(pstSpn, rom);
}

bool CNetSrvImpl::TakeCdmaSpn(SSpnDataType* pstSpn, ReadSpnRsp& rsp)
{
    pstSpn->btDisplay = static_cast<unsigned char>(rsp.DispRplmn.GetNumValue());
    const std::string strName = rsp.SpnName.ToString();
    switch (rsp.CdmaCodeType.GetNumValue()) {
    case CDMA_CODING_7BIT_ASSCII:
        DecodePhoneBookName(pstSpn, kPhoneBookCdmaAscii, strName);
        break;
    case CDMA_CODING_UNICODE: {
        unsigned short wszBuffer[kNameUnits] = {};
        CXCodec codec;
        codec.RawDataDecoderUnicode(kRawUcs2, strName.c_str(), static_cast<int>(strName.size()),
                                    wszBuffer, kNameUnits);
        CGlobalFunction::wchrcpy(pstSpn->SpnData, wszBuffer, sizeof(pstSpn->SpnData) / 2);
        break;
    }
    case CDMA_CODING_GSM_7BIT_DEFAULT_ALPHABET:
        DecodePhoneBookName(pstSpn, kPhoneBookGsm7, strName);
        break;
    case CDMA_CODING_OCTET:
        DecodePhoneBookName(pstSpn, kPhoneBookAlphaField, strName);
        break;
    default:
        pstSpn->SpnData[0] = 0;
        break;
    }
    return true;
}

bool CNetSrvImpl::ReadSpn(EnumQuerySpnSimType enStorage, ReadSpnRsp& rsp, unsigned long& dwCode)
{
    ReadSpnCmd cmd;
    cmd.SpnType = static_cast<uint64>(enStorage);
    dwCode = 0;
    return ExecuteWithResponse(cmd, rsp, OnFailure(&dwCode));
}

bool CNetSrvImpl::GetSpnByStdAT(SSpnDataType* pstSpn)
{
    CrsmCmd cmd;
    cmd.cmdtype = uint64{CRSM_COMMAND_BINARY_READ};
    cmd.Fileid = uint64{CRSM_FILEID_SPN};
    cmd.P1 = uint64{0};
    cmd.P2 = uint64{0};
    cmd.P3 = uint64{CRSM_P3_SPN};
    CrsmSPNRsp rsp;
    if (!ExecuteWithResponse(cmd, rsp, OnFailure())) {
        return false;
    }
    // The file: the display condition, then the name as a SIM alpha field
    // (its first byte 0x80 or above marks a UCS2 form).
    const unsigned char* pData = reinterpret_cast<const unsigned char*>(rsp.data.GetRawData());
    const int nLength = static_cast<int>(rsp.data.GetLength());
    pstSpn->btDisplay = nLength > 0 ? pData[0] : 0;
    const int nNameLength = nLength > 1 ? nLength - 1 : 0;
    const int nCoding = nNameLength > 0 && pData[1] >= 0x80 ? kPhoneBookAlphaField : kPhoneBookGsm7;
    DecodePhoneBookName(pstSpn, nCoding, rsp.data.GetRawData() + 1, nNameLength);
    return true;
}
