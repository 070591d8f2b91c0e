// Names that the modem answers as hexadecimal text ("+COPS" and "^EONS"
// network names among them). A modem that answers plain text although the
// name was asked in hexadecimal is common enough that such text is shown as it is.

#include <algorithm>

#include "ByteText.h"
#include "CodedBytes.h"
#include "HexText.h"
#include "XCodec.h"

using namespace xcodec;

int CXCodec::RawDataDecoderUnicode(int nCoding, const char* pszText, int nLength,
                                   unsigned short* pOut, int nOutLength)
{
    Utf16Writer out(pOut, nOutLength);
    ByteRun text = ByteRun::Of(pszText, nLength);
    // A text is a C string: it ends at a NUL within nLength, which a caller
    // passing the size of its buffer rather than the text's leaves there.
    text.nSize = static_cast<std::size_t>(std::find(text.begin(), text.end(), 0) - text.begin());
    const auto bytes = BytesOfHexText(text);
    if (bytes) {
        DecodeCodedBytes(nCoding, ByteRun::Of(*bytes), out);
    } else {
        DecodeLatin1(text, out);
    }
    return out.Finish();
}
