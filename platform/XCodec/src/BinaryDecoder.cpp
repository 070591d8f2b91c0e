// Names read from SIM files (the PNN record's network name), coded as network
// names are, in records that the SIM pads with 0xFF.

#include "CodedBytes.h"
#include "XCodec.h"

using namespace xcodec;

namespace {

constexpr std::uint8_t kUnusedByte = 0xFF;

// The coded bytes without the record's unused space at the end.
ByteRun WithoutUnusedSpace(int nCoding, ByteRun bytes)
{
    const auto unusedAt = [&bytes](std::size_t nFromEnd) {
        return bytes[bytes.nSize - nFromEnd] == kUnusedByte;
    };
    if (nCoding == kCodingPackedGsm7) {
        while (bytes.nSize > 0 && unusedAt(1)) {
            --bytes.nSize;
        }
    } else if (nCoding == kCodingUcs2) {
        // An odd last byte is half a unit: a lone 0xFF of unused space or
        // nothing that could be decoded.
        bytes.nSize -= bytes.nSize % 2;
        while (bytes.nSize >= 2 && unusedAt(1) && unusedAt(2)) {
            bytes.nSize -= 2;
        }
    }
    return bytes;
}

}  // namespace

int CXCodec::BinaryDecoderUnicode(int nCoding, const unsigned char* pData, int nLength,
                                  unsigned short* pOut, int nOutLength)
{
    Utf16Writer out(pOut, nOutLength);
    DecodeCodedBytes(nCoding, WithoutUnusedSpace(nCoding, ByteRun::Of(pData, nLength)), out);
    return out.Finish();
}
