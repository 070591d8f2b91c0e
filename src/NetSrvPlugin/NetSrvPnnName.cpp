#include "NetSrvPnnName.h"

#include "NetSrvAtCommonds.h"
#include "NetSrvTrace.h"
#include "XCodec.h"

namespace {

// Codings of the codec library's byte decoder.
const int kCodingGsm7 = 0;
const int kCodingUcs2 = 8;
const int kNameUnits = 256;

}  // namespace

bool ParserPnnName(const unsigned char* pData, int nLength, QIRA_wstring& wstrName,
                   NETSRV_DATA::CIStat& enCI)
{
    if (pData == nullptr || nLength < 3) {
        return false;
    }
    if (pData[0] != PNN_FILE_TAG_FULL_NAME && pData[0] != PNN_FILE_TAG_SHORT_NAME) {
        NetSrvTrace(TL_ERRO, "ParserPnnName: failed");
        return false;
    }
    int nCoding = kCodingGsm7;
    int nTextStart = 2;
    if (pData[1] <= nLength - 2) {
        const unsigned char btCoding = pData[2];
        nCoding = (btCoding & PNN_CODING_UCS2) != 0 ? kCodingUcs2 : kCodingGsm7;
        enCI = (btCoding & PNN_CI_TAG_ADD) != 0 ? NETSRV_DATA::CI_STAT_Add
                                                : NETSRV_DATA::CI_STAT_NOT_Add;
        nTextStart = 3;
    }
    unsigned short wszBuffer[kNameUnits] = {};
    CXCodec codec;
    codec.BinaryDecoderUnicode(nCoding, pData + nTextStart, nLength - nTextStart, wszBuffer,
                               kNameUnits);
    wstrName = wszBuffer;
    NetSrvTrace(TL_INFO, "ParserPnnName: success");
    return true;
}
