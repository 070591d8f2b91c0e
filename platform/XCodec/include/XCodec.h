// The host's codec for modem text: the splitter of an AT answer's
// parenthesised groups ("^SYSCFGEX=?" lists its modes, bands and acquisition
// orders in them) and the decoders of the names that SIMs, networks and
// modems code (3GPP TS 23.038 for the GSM 7-bit default alphabet and its
// extension table, TS 102 221 Annex A for the SIM's alpha fields).
// Stateless: one object may be used from any number of threads.
//
// Every decoder writes 16-bit units (UTF-16; a character outside the basic
// plane is a surrogate pair, never cut in half). With a null out nothing is
// written and the result is the number of units the whole text needs.
// Otherwise at most outLength - 1 units are written, then a terminating 0, and
// the result is the number of units written; outLength 0 writes nothing and
// gives 0. A null, empty or negative-length input is the empty text. Nothing
// is read past the length; bad input decodes as far as it can: half a UCS2
// unit at the end gives nothing, a surrogate without its partner (or a 0x82
// alpha field's character past U+FFFF) gives U+FFFD. A NUL character ends a
// text, so the result always matches the terminated text.
#ifndef XCODEC_XCODEC_H
#define XCODEC_XCODEC_H

#include <string>
#include <vector>

class CXCodec {
public:
    // Items of one parenthesised group of an AT answer. The list is cleared
    // first. When the text's first "(" is closed by its last ")", that outer
    // pair is removed. The rest is split at commas outside double quotes
    // (empty items are kept); a ")" at the end of an item that closes a "("
    // opened in an earlier item is removed, one that closes a "(" of the same
    // item stays; blanks around an item are dropped. Returns the number of items.
    //   ((80000,"GSM850"),(3FFFFFFF,"All bands"))  ->  (80000 | "GSM850" | (3FFFFFFF | "All bands"
    //   ("00","01","0201")                         ->  "00" | "01" | "0201"
    //   (0-3)                                      ->  0-3
    //   "" and "()"                                ->  no items
    int DecoderGroupString(const std::string& strText, std::vector<std::string>& vctItems);

    // GSM 7-bit, wherever it appears: 0x1B escapes to the extension table
    // ("€" is 1B 65); a code the extension table lacks gives the default
    // alphabet's character, 1B 1B a space, an escape cut off at the end nothing.

    // Hexadecimal text (either case) of coded bytes. coding 8: UCS2 big-endian,
    // four digits a unit; coding 0: GSM 7-bit default alphabet, septets packed
    // as in network names (n bytes hold floor(8n / 7) septets, least
    // significant bit first; when 8n is a multiple of 7 and the last septet is
    // 0 it is fill and dropped); any other coding: ISO 8859-1 bytes. Text that
    // is not an even-length run of hexadecimal digits is plain text: each byte
    // one character, ISO 8859-1, whatever the coding. The text ends at a NUL
    // within nLength.
    int RawDataDecoderUnicode(int nCoding, const char* pszText, int nLength,
                              unsigned short* pOut, int nOutLength);
    // The same codings on bytes. Unused SIM space at the end is ignored: for
    // coding 8 trailing 0xFFFF units and a lone trailing 0xFF byte (as any odd
    // last byte), for coding 0 trailing 0xFF bytes.
    int BinaryDecoderUnicode(int nCoding, const unsigned char* pData, int nLength,
                             unsigned short* pOut, int nOutLength);
    // SIM alpha fields and the modem's name texts ("phone book" coding):
    //  0  GSM 7-bit default alphabet, one septet a byte (unpacked; the eighth
    //     bit is ignored); a 0xFF byte ends the text.
    //  1  a TS 102 221 Annex A alpha field: first byte 0x80 (UCS2 big-endian
    //     pairs; 0xFFFF ends), 0x81 (count, base byte B, then bytes: < 0x80 a
    //     GSM character, else the character B * 128 + low seven bits) or 0x82
    //     (count, 16-bit base, then bytes: < 0x80 a GSM character, else base +
    //     low seven bits); the count counts bytes after the header; any other
    //     first byte: as coding 0. When the data does not start with 0x80-0x82
    //     and is an even-length run of hexadecimal digits, it is the
    //     hexadecimal text of such a field, decoded from that.
    //  3  7-bit ASCII (CDMA): each byte's low seven bits; a 0 there ends the text.
    //  any other: each byte one character (ISO 8859-1).
    int DecoderPB(int nCoding, const char* pData, int nLength, unsigned short* pOut,
                  int nOutLength);
};

#endif
