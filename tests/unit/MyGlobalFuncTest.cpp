// The service's text helpers: quotes, letter case, 16-bit comparisons,
// bounded copies, surrogates, and the round trips through the host.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "MyGlobalFunc.h"
#include "ScopedEnv.h"
#include "TempDir.h"

namespace {

QIRA_wstring W(const std::u16string& strText)
{
    return QIRA_wstring(strText.begin(), strText.end());
}

TEST(MyGlobalFuncQuotesTest, TakeOutDoubleQuotationMarks)
{
    struct Row {
        std::string strInput;
        std::string strExpected;
    } rows[] = {
        {"\"CHINA MOBILE\"", "CHINA MOBILE"},
        {"\"46000\"", "46000"},
        {"\"LTE", "\"LTE"},               // quoted at the front only
        {"LTE\"", "LTE\""},               // at the end only
        {"\"\"", ""},
        {"\"", ""},                       // one quote is both ends: nothing left
        {"\"a\"b\"", "a\"b"},             // one pair only, inner quote kept
        {"\"\"x\"\"", "\"x\""},
        {"bare", "bare"},
        {"", ""},
        {"'single'", "'single'"},
        {" \"x\" ", " \"x\" "},           // blanks are not trimmed
    };
    for (const Row& row : rows) {
        EXPECT_EQ(TakeOutDoubleQuotationMarks(row.strInput), row.strExpected) << row.strInput;
    }
}

TEST(MyGlobalFuncQuotesTest, AddDoubleQuotationMarks)
{
    EXPECT_EQ(AddDoubleQuotationMarks(""), "\"\"");
    EXPECT_EQ(AddDoubleQuotationMarks("46001"), "\"46001\"");
    EXPECT_EQ(AddDoubleQuotationMarks("\"x\""), "\"\"x\"\"");
    EXPECT_EQ(TakeOutDoubleQuotationMarks(AddDoubleQuotationMarks("CMCC")), "CMCC");
}

TEST(MyGlobalFuncCaseTest, OnlyAsciiLettersChange)
{
    struct Row {
        std::string strInput;
        std::string strUpper;
        std::string strLower;
    } rows[] = {
        {"China Mobile 4G", "CHINA MOBILE 4G", "china mobile 4g"},
        {"", "", ""},
        {"@[`{", "@[`{", "@[`{"},  // the neighbours of the letter ranges stay
        // UTF-8 e-acute and a GBK name: bytes of 128 and above untouched.
        {"caf\xC3\xA9", "CAF\xC3\xA9", "caf\xC3\xA9"},
        {"\xD6\xD0\xB9\xFA x", "\xD6\xD0\xB9\xFA X", "\xD6\xD0\xB9\xFA x"},
        {std::string("a\0B", 3), std::string("A\0B", 3), std::string("a\0b", 3)},
    };
    for (const Row& row : rows) {
        std::string strUpper = row.strInput;
        EXPECT_TRUE(ToUpperString(strUpper));
        EXPECT_EQ(strUpper, row.strUpper);
        std::string strLower = row.strInput;
        EXPECT_TRUE(ToLowerString(strLower));
        EXPECT_EQ(strLower, row.strLower);
    }
}

TEST(MyGlobalFuncCompareTest, WcscmpAndWcsncmp)
{
    EXPECT_TRUE(QIRA_wcscmp(W(u"CMCC"), W(u"CMCC")));
    EXPECT_FALSE(QIRA_wcscmp(W(u"CMCC"), W(u"cmcc")));
    EXPECT_FALSE(QIRA_wcscmp(W(u"CMCC"), W(u"CMCC ")));
    EXPECT_TRUE(QIRA_wcscmp(W(u""), W(u"")));

    struct Row {
        std::u16string s1;
        std::u16string s2;
        unsigned int n;
        bool bExpected;
    } rows[] = {
        {u"abc", u"abc", 10, true},    // n beyond both: whole strings
        {u"abc", u"abd", 10, false},
        {u"ab", u"abc", 10, false},    // whole strings differ in length
        {u"ab", u"abcdef", 4, false},  // n between the lengths
        {u"abcdef", u"ab", 4, false},
        {u"abcx", u"abcy", 3, true},   // first n equal
        {u"abcx", u"abdx", 3, false},
        {u"abc", u"abc", 3, true},     // n equal to both lengths
        {u"abc", u"abcd", 3, true},    // n equal to the shorter
        {u"abc", u"xyz", 0, true},
        {u"", u"", 0, true},
        {u"", u"a", 1, false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(QIRA_wcsncmp(W(row.s1), W(row.s2), row.n), row.bExpected)
            << std::string(row.s1.begin(), row.s1.end()) << " / "
            << std::string(row.s2.begin(), row.s2.end()) << " n=" << row.n;
    }
}

TEST(MyGlobalFuncCompareTest, WcscmpNosMatchesAnything)
{
    EXPECT_TRUE(QIRA_wcscmp_nos(W(u"CMCC"), W(u"UNICOM")));
    EXPECT_TRUE(QIRA_wcscmp_nos(W(u""), W(u"x")));
}

TEST(MyGlobalFuncCopyTest, StrcpyAlwaysTerminatesAndZeroFills)
{
    struct Row {
        const char* pszSource;
        unsigned int nLength;
        std::string strExpected;  // the whole 8-byte destination afterwards
    } rows[] = {
        {"46000", 8, std::string("46000\0\0\0", 8)},
        {"46000", 6, std::string("46000\0##", 8)},
        {"46000", 5, std::string("4600\0###", 8)},
        {"46000", 1, std::string("\0#######", 8)},
        {"46000", 0, "########"},
        {"", 4, std::string("\0\0\0\0####", 8)},
        {nullptr, 4, "########"},
    };
    for (const Row& row : rows) {
        char buffer[8];
        memset(buffer, '#', sizeof(buffer));
        QIRA_strcpy(buffer, row.pszSource, row.nLength);
        EXPECT_EQ(std::string(buffer, 8), row.strExpected) << row.nLength;
    }
    QIRA_strcpy(nullptr, "x", 4);  // nothing to write to: nothing happens
}

TEST(MyGlobalFuncWideTest, ToQiraWcharMakesSurrogatePairs)
{
    struct Row {
        std::wstring strInput;
        QIRA_wstring expected;
    } rows[] = {
        {L"CMCC", W(u"CMCC")},
        {L"\u4e2d\u56fd", W(u"\u4e2d\u56fd")},
        {L"\U0001F600", QIRA_wstring{0xD83D, 0xDE00}},
        {L"a\U00010000b", QIRA_wstring{'a', 0xD800, 0xDC00, 'b'}},
        {L"\U0010FFFF", QIRA_wstring{0xDBFF, 0xDFFF}},
        {L"\uFFFF", QIRA_wstring{0xFFFF}},
        {L"", QIRA_wstring()},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ToQira_wchar(row.strInput.c_str()), row.expected);
    }
    EXPECT_EQ(ToQira_wchar(nullptr), QIRA_wstring());
    // Beyond U+10FFFF nothing is checked; the formula still gives two units.
    const wchar_t big[] = {static_cast<wchar_t>(0x110000), 0};
    EXPECT_EQ(ToQira_wchar(big), (QIRA_wstring{0xDC00, 0xDC00}));
}

TEST(MyGlobalFuncWideTest, CodePageRoundTripsThroughTheHost)
{
    const QIRA_wstring wide = W(u"\u4e2d\u56fd\u79fb\u52a8 4G \U0001F600");
    const std::string strUtf8 = "\xE4\xB8\xAD\xE5\x9B\xBD\xE7\xA7\xBB\xE5\x8A\xA8 4G \xF0\x9F\x98\x80";
    EXPECT_EQ(MyMultiByteToWideChar(strUtf8.c_str(), 65001), wide);
    EXPECT_EQ(MyWideCharToMultiByte(wide.c_str(), 65001), strUtf8);
    // The last unit must survive the size-then-fetch protocol.
    EXPECT_EQ(MyMultiByteToWideChar("x", 65001), W(u"x"));
    EXPECT_EQ(MyWideCharToMultiByte(W(u"x").c_str(), 65001), "x");
    EXPECT_EQ(MyMultiByteToWideChar("", 65001), QIRA_wstring());
    EXPECT_EQ(MyMultiByteToWideChar(nullptr, 65001), QIRA_wstring());
    EXPECT_EQ(MyWideCharToMultiByte(nullptr, 65001), "");
    EXPECT_EQ(MyMultiByteToWideChar("abc", 12345), QIRA_wstring());  // unknown code page
}

// Points the host's user-data directory at a fresh folder for one test.
class MyGlobalFuncHostTest : public ::testing::Test {
protected:
    testkit::TempDir m_dir;
    testkit::ScopedEnv m_env{"XDG_DATA_HOME", m_dir.Path().c_str()};
};

TEST_F(MyGlobalFuncHostTest, SettingRoundTripKeepsEveryUnit)
{
    const QIRA_wstring module = W(u"NetSrv");
    const QIRA_wstring values[] = {W(u"x"), W(u"LTE-FDD B3"), W(u"\u4e2d\U0001F600"), W(u"")};
    for (const QIRA_wstring& value : values) {
        ASSERT_TRUE(SetSetting(module, W(u"Item"), value));
        EXPECT_EQ(MyGetSetting(module, W(u"Item")), value);
    }
    EXPECT_EQ(MyGetSetting(module, W(u"Missing")), QIRA_wstring());
}

TEST_F(MyGlobalFuncHostTest, UserDataPathComesFromTheHostCutTo259Units)
{
    const std::string strExpected = m_dir / "netsrv";
    EXPECT_EQ(MyGetUserDataPath(), QIRA_wstring(strExpected.begin(), strExpected.end()));

    const std::string strLong = "/" + std::string(300, 'd');
    m_env.Set(strLong.c_str());
    const QIRA_wstring path = MyGetUserDataPath();
    EXPECT_EQ(path.size(), 259u);
    EXPECT_EQ(path, QIRA_wstring(strLong.begin(), strLong.begin() + 259));
}

}  // namespace
