// The codec's text decoders on the names that networks, SIMs and modems send:
// packed and unpacked GSM 7-bit (3GPP TS 23.038), UCS2, the SIM's alpha fields
// (TS 102 221 Annex A, its own examples), their hexadecimal text, CDMA 7-bit
// ASCII and ISO 8859-1; and the bounds of the output and of the input.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "XCodec.h"

namespace {

using namespace std::string_literals;

enum class Decoder { kRawData, kBinary, kPhoneBook };

int Decode(Decoder decoder, int nCoding, const char* pData, int nLength, unsigned short* pOut,
           int nOutLength)
{
    CXCodec codec;
    switch (decoder) {
    case Decoder::kRawData:
        return codec.RawDataDecoderUnicode(nCoding, pData, nLength, pOut, nOutLength);
    case Decoder::kBinary:
        return codec.BinaryDecoderUnicode(nCoding, reinterpret_cast<const unsigned char*>(pData),
                                          nLength, pOut, nOutLength);
    case Decoder::kPhoneBook:
        return codec.DecoderPB(nCoding, pData, nLength, pOut, nOutLength);
    }
    return -1;
}

// Decodes into a roomy buffer; the result must be what the size query said
// and must be terminated there.
std::u16string DecodeText(Decoder decoder, int nCoding, const char* pData, int nLength)
{
    std::vector<unsigned short> buffer(64, 0xAAAA);
    const int nNeeded = Decode(decoder, nCoding, pData, nLength, nullptr, 0);
    const int nUnits = Decode(decoder, nCoding, pData, nLength, buffer.data(), 64);
    EXPECT_EQ(nUnits, nNeeded);
    if (nUnits < 0 || nUnits >= 64) {
        return u"(out of range)";
    }
    EXPECT_EQ(buffer[nUnits], 0);
    return std::u16string(buffer.begin(), buffer.begin() + nUnits);
}

TEST(XCodecTextTest, DecodesNamesAsNetworksSimsAndModemsCodeThem)
{
    const struct {
        const char* source;
        Decoder decoder;
        int coding;
        std::string input;
        std::u16string text;
    } rows[] = {
        {"packed GSM", Decoder::kRawData, 0, "E8329BFD4697D9EC37", u"hellohello"},
        {"8n multiple of 7: fill", Decoder::kRawData, 0, "31D98C56B3DD00", u"1234567"},
        {"8n multiple of 7: no fill", Decoder::kRawData, 0, "31D98C56B3DD70", u"12345678"},
        {"@ is septet 0", Decoder::kRawData, 0, "00F4BB5D06", u"@home"},
        {"packed euro, lower case", Decoder::kRawData, 0, "c3f79c0eda946b", u"Cost \u20AC5"},
        {"packed brackets", Decoder::kRawData, 0, "1B5E50B8F101", u"[AB]"},
        {"UCS2 Chinese", Decoder::kRawData, 8, "4E2D56FD79FB52A8", u"\u4E2D\u56FD\u79FB\u52A8"},
        {"UCS2 surrogate pair", Decoder::kRawData, 8, "0041D83DDE00", u"A\U0001F600"},
        {"UCS2 lone surrogate", Decoder::kRawData, 8, "D8000041", u"\uFFFDA"},
        {"odd hex is plain text", Decoder::kRawData, 8, "ABC", u"ABC"},
        {"plain Latin-1 text", Decoder::kRawData, 0, "Caf\xE9 4G", u"Caf\u00E9 4G"},
        {"text ends at NUL", Decoder::kRawData, 8, "0041\0" "0042"s, u"A"},
        {"UCS2 bytes, SIM padding", Decoder::kBinary, 8,
         "\x03\x9A\x03\x9F\x03\xA3\x03\x9C\x03\x9F\x03\xA4\x03\x95\xFF\xFF\xFF",
         u"\u039A\u039F\u03A3\u039C\u039F\u03A4\u0395"},
        {"UCS2 bytes, cut pair", Decoder::kBinary, 8, "\x00\x41\xD8\x3D"s, u"A\uFFFD"},
        {"UCS2 bytes, FFFF inside", Decoder::kBinary, 8, "\x00\x41\xFF\xFF\x00\x42"s, u"A\uFFFFB"},
        {"packed bytes, SIM padding", Decoder::kBinary, 0,
         "\xE8\x32\x9B\xFD\x46\x97\xD9\xEC\x37\xFF\xFF", u"hellohello"},
        {"unpacked GSM, escapes", Decoder::kPhoneBook, 0,
         "\x00\x41\x1B\x65\x1B\x3C\x1B\x41\x1B\x1B\xC2\xFF\x43"s, u"@A\u20AC[A B"},
        {"unpacked GSM, cut escape", Decoder::kPhoneBook, 0, "\x41\x1B", u"A"},
        {"alpha field 0x80", Decoder::kPhoneBook, 1,
         "\x80\x03\x9A\x03\x9F\x03\xA3\x03\x9C\x03\x9F\x03\xA4\x03\x95\xFF\xFF\x00\x41"s,
         u"\u039A\u039F\u03A3\u039C\u039F\u03A4\u0395"},
        {"alpha field 0x81", Decoder::kPhoneBook, 1, "\x81\x05\x13\x53\x95\xA6\xE0\xFF\xFF",
         u"S\u0995\u09A6\u09E0\u09FF"},
        {"alpha field 0x82", Decoder::kPhoneBook, 1, "\x82\x05\x05\x30\x2D\x82\xD3\x2D\x31",
         u"-\u0532\u0583-1"},
        {"0x82 count past the end", Decoder::kPhoneBook, 1, "\x82\x09\x05\x30\x2D\x82",
         u"-\u0532"},
        {"0x81 escape, then UCS2", Decoder::kPhoneBook, 1, "\x81\x03\x13\x1B\x95\x1B",
         u"\u0995"},
        {"hex text of 0x81", Decoder::kPhoneBook, 1, "8105135395A6E0FFFF",
         u"S\u0995\u09A6\u09E0\u09FF"},
        {"hex text of 0x80", Decoder::kPhoneBook, 1, "804E2D56FD79FB52A8FFFF",
         u"\u4E2D\u56FD\u79FB\u52A8"},
        {"hex text of GSM", Decoder::kPhoneBook, 1, "4F32FF", u"O2"},
        {"plain GSM", Decoder::kPhoneBook, 1, "Orange", u"Orange"},
        {"CDMA 7-bit", Decoder::kPhoneBook, 3, "\xC1\x42\x43\x00\x44"s, u"ABC"},
        {"Latin-1", Decoder::kPhoneBook, 2, "Caf\xE9", u"Caf\u00E9"},
    };
    // Bytes after the input that would change every text above if read.
    const std::string tail = "\xDC\x00" "4141" "\x00" "AA"s;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.source);
        const int nLength = static_cast<int>(row.input.size());
        // Exactly nLength bytes, so that a sanitizer sees a read past them.
        const std::unique_ptr<char[]> exact(new char[row.input.size()]);
        row.input.copy(exact.get(), row.input.size());
        EXPECT_EQ(DecodeText(row.decoder, row.coding, exact.get(), nLength), row.text);
        const std::string longer = row.input + tail;
        EXPECT_EQ(DecodeText(row.decoder, row.coding, longer.data(), nLength), row.text);
    }
}

TEST(XCodecTextTest, NoInputIsTheEmptyText)
{
    for (Decoder decoder : {Decoder::kRawData, Decoder::kBinary, Decoder::kPhoneBook}) {
        for (int nCoding : {0, 1, 3, 8}) {
            EXPECT_EQ(DecodeText(decoder, nCoding, nullptr, 4), u"");
            EXPECT_EQ(DecodeText(decoder, nCoding, "0041", 0), u"");
            EXPECT_EQ(DecodeText(decoder, nCoding, "0041", -1), u"");
        }
    }
}

TEST(XCodecTextTest, TruncatesWholeCharactersAndTerminates)
{
    const struct {
        const char* input;  // UCS2 hexadecimal text
        int outLength;
        int written;
        std::vector<unsigned short> buffer;  // after the call, from 4 units of 0xAAAA
    } rows[] = {
        {"004100420043", 3, 2, {0x41, 0x42, 0, 0xAAAA}},
        {"004100420043", 1, 0, {0, 0xAAAA, 0xAAAA, 0xAAAA}},
        {"004100420043", 0, 0, {0xAAAA, 0xAAAA, 0xAAAA, 0xAAAA}},
        {"004100420043", -2, 0, {0xAAAA, 0xAAAA, 0xAAAA, 0xAAAA}},
        {"0041D83DDE00", 3, 1, {0x41, 0, 0xAAAA, 0xAAAA}},  // no half surrogate pair
        {"0041D83DDE00", 4, 3, {0x41, 0xD83D, 0xDE00, 0}},
    };
    CXCodec codec;
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.input) + " into " + std::to_string(row.outLength));
        std::vector<unsigned short> buffer(4, 0xAAAA);
        EXPECT_EQ(codec.RawDataDecoderUnicode(8, row.input, 12, buffer.data(), row.outLength),
                  row.written);
        EXPECT_EQ(buffer, row.buffer);
    }
}

}  // namespace
