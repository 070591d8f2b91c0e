// Names in the SIM's alpha-field codings and the CDMA name codings: the
// service provider name, and names the modem reads from the SIM for us.

#include "ByteText.h"
#include "HexText.h"
#include "SimAlphaField.h"
#include "XCodec.h"

using namespace xcodec;

namespace {

constexpr int kCodingUnpackedGsm7 = 0;
constexpr int kCodingSimAlphaField = 1;
constexpr int kCodingAscii7 = 3;

}  // namespace

int CXCodec::DecoderPB(int nCoding, const char* pData, int nLength, unsigned short* pOut,
                       int nOutLength)
{
    Utf16Writer out(pOut, nOutLength);
    const ByteRun data = ByteRun::Of(pData, nLength);
    switch (nCoding) {
    case kCodingUnpackedGsm7:
        DecodeUnpackedGsm7(data, out);
        break;
    case kCodingSimAlphaField: {
        // A modem answers with the hexadecimal text of the field. A field that
        // starts with one of the UCS2 markers 0x80-0x82 is never such text.
        const auto hexBytes = BytesOfHexText(data);
        DecodeSimAlphaField(hexBytes ? ByteRun::Of(*hexBytes) : data, out);
        break;
    }
    case kCodingAscii7:
        DecodeAscii7(data, out);
        break;
    default:
        DecodeLatin1(data, out);
        break;
    }
    return out.Finish();
}
