// The host's common library: settings store, user-data directory, code-page
// conversion and the small text helpers.
#include <gtest/gtest.h>

#include <iconv.h>

#include <climits>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "GlobalFunction.h"
#include "ScopedEnv.h"
#include "TempDir.h"

namespace {

namespace fs = std::filesystem;

using testkit::ScopedEnv;
using testkit::TempDir;

typedef std::vector<unsigned short> Units;

// Zero-terminated 16-bit text from a UTF-16 literal.
Units U(const std::u16string& strText)
{
    Units units(strText.begin(), strText.end());
    units.push_back(0);
    return units;
}

Units Fetch(const Units& module, const Units& item)
{
    const int nNeeded = CGlobalFunction::GetSetting(module.data(), item.data(), nullptr, 0);
    Units buffer(static_cast<size_t>(nNeeded) + 1, 0);
    const int nAgain = CGlobalFunction::GetSetting(module.data(), item.data(), buffer.data(), nNeeded);
    EXPECT_EQ(nNeeded, nAgain);
    return buffer;
}

class PlatformSettingsTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_FALSE(m_dir.Path().empty()); }

    TempDir m_dir;
    const fs::path m_store = fs::path(m_dir.Path()) / "nested" / "data";
    // Below a folder that does not exist yet: the store creates it.
    ScopedEnv m_env{"XDG_DATA_HOME", m_store.c_str()};
};

TEST_F(PlatformSettingsTest, AwkwardValuesSurviveTheRoundTrip)
{
    const std::u16string strLong(5000, u'x');
    struct Row {
        const char* pszWhat;
        std::u16string strItem;
        std::u16string strValue;
    } rows[] = {
        {"empty value", u"Empty", u""},
        {"plain", u"Plain", u"CHINA MOBILE"},
        {"separators of the file", u"Separators", u"a\tb\nc\rd\\e"},
        {"text that looks like escapes", u"LooksEscaped", u"\\t \\n \\u0041 \\"},
        {"trailing backslash", u"Backslash", u"C:\\"},
        {"Chinese", u"Chinese", u"\u4e2d\u56fd\u79fb\u52a8"},
        {"non-BMP pair", u"Emoji", u"ok \U0001F600!"},
        {"lone high surrogate", u"LoneHigh", std::u16string(1, char16_t(0xD800)) + u"x"},
        {"lone low surrogate at the end", u"LoneLow", std::u16string(u"x") + char16_t(0xDC00)},
        {"reversed pair", u"Reversed", std::u16string{char16_t(0xDE00), char16_t(0xD83D)}},
        {"blanks kept", u"Blanks", u"  both ends  "},
        {"item with a tab", u"Item\tWith\tTabs", u"v"},
        {"item with a line feed", u"Item\nTwo", u"w"},
        {"long", u"Long", strLong},
    };
    const Units module = U(u"Net\tSrv");
    for (const Row& row : rows) {
        ASSERT_TRUE(CGlobalFunction::SetSetting(module.data(), U(row.strItem).data(),
                                                U(row.strValue).data()))
            << row.pszWhat;
    }
    // Read back only after all were written: each rewrite keeps the others.
    for (const Row& row : rows) {
        EXPECT_EQ(Fetch(module, U(row.strItem)), U(row.strValue)) << row.pszWhat;
    }
    EXPECT_TRUE(fs::is_regular_file(m_store / "netsrv" / "settings.conf"));
}

TEST_F(PlatformSettingsTest, OverwriteMissingItemsAndModules)
{
    const Units module = U(u"NetSrv");
    ASSERT_TRUE(CGlobalFunction::SetSetting(module.data(), U(u"Band").data(), U(u"first").data()));
    ASSERT_TRUE(CGlobalFunction::SetSetting(module.data(), U(u"Band").data(), U(u"second").data()));
    EXPECT_EQ(Fetch(module, U(u"Band")), U(u"second"));

    // The same item name in another module, and a name that differs in case.
    EXPECT_EQ(CGlobalFunction::GetSetting(U(u"Other").data(), U(u"Band").data(), nullptr, 0), 0);
    EXPECT_EQ(CGlobalFunction::GetSetting(module.data(), U(u"band").data(), nullptr, 0), 0);

    unsigned short buffer[4] = {0x55, 0x55, 0x55, 0x55};
    EXPECT_EQ(CGlobalFunction::GetSetting(module.data(), U(u"Missing").data(), buffer, 4), 0);
    EXPECT_EQ(buffer[0], 0);

    EXPECT_FALSE(CGlobalFunction::SetSetting(nullptr, U(u"Band").data(), U(u"x").data()));
    EXPECT_FALSE(CGlobalFunction::SetSetting(module.data(), nullptr, U(u"x").data()));
    EXPECT_EQ(CGlobalFunction::GetSetting(nullptr, U(u"Band").data(), buffer, 4), 0);
}

TEST_F(PlatformSettingsTest, SmallBufferGetsAPrefixAndNoWriteBeyondIt)
{
    const Units module = U(u"NetSrv");
    ASSERT_TRUE(CGlobalFunction::SetSetting(module.data(), U(u"Name").data(), U(u"abcdef").data()));
    unsigned short buffer[6] = {0x55, 0x55, 0x55, 0x55, 0x55, 0x55};
    EXPECT_EQ(CGlobalFunction::GetSetting(module.data(), U(u"Name").data(), buffer, 3), 6);
    EXPECT_EQ(Units(buffer, buffer + 6), (Units{'a', 'b', 'c', 0x55, 0x55, 0x55}));
    EXPECT_EQ(CGlobalFunction::GetSetting(module.data(), U(u"Name").data(), buffer, 0), 6);
    EXPECT_EQ(buffer[0], 'a');  // size 0 writes nothing
}

TEST_F(PlatformSettingsTest, EditedFileWithForeignLinesStaysUsable)
{
    const fs::path folder = m_store / "netsrv";
    fs::create_directories(folder);
    {
        std::ofstream file(folder / "settings.conf", std::ios::binary);
        file << "garbage without tabs\n"
             << "NetSrv\tKept\tvalue one\r\n"
             << "too\tmany\ttabs\there\n"
             << "\n"
             << "NetSrv\tBroken\tbad \xFF byte and \\q unknown escape\n";
    }
    const Units module = U(u"NetSrv");
    EXPECT_EQ(Fetch(module, U(u"Kept")), U(u"value one"));
    EXPECT_EQ(Fetch(module, U(u"Broken")), U(u"bad \uFFFD byte and \\q unknown escape"));
    EXPECT_EQ(CGlobalFunction::GetSetting(U(u"too").data(), U(u"many").data(), nullptr, 0), 0);

    ASSERT_TRUE(CGlobalFunction::SetSetting(module.data(), U(u"New").data(), U(u"n").data()));
    EXPECT_EQ(Fetch(module, U(u"Kept")), U(u"value one"));
    EXPECT_EQ(Fetch(module, U(u"New")), U(u"n"));
}

TEST_F(PlatformSettingsTest, ParallelWritersLoseNothing)
{
    const Units module = U(u"NetSrv");
    const int kThreads = 4;
    const int kItems = 8;
    const auto item = [](int t, int i) {
        const std::string strName = "T" + std::to_string(t) + "I" + std::to_string(i);
        return std::u16string(strName.begin(), strName.end());
    };
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([t, &module, &item] {
            for (int i = 0; i < kItems; ++i) {
                CGlobalFunction::SetSetting(module.data(), U(item(t, i)).data(),
                                            U(item(t, i) + u"=v").data());
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (int t = 0; t < kThreads; ++t) {
        for (int i = 0; i < kItems; ++i) {
            EXPECT_EQ(Fetch(module, U(item(t, i))), U(item(t, i) + u"=v")) << t << "/" << i;
        }
    }
    // Only the store itself is left behind: no temporary files.
    size_t nFiles = 0;
    for (const auto& entry : fs::directory_iterator(m_store / "netsrv")) {
        (void)entry;
        ++nFiles;
    }
    EXPECT_EQ(nFiles, 1u);
}

TEST(PlatformSettingsFailureTest, UnwritableDirectoryFailsCleanly)
{
    TempDir dir;
    ASSERT_FALSE(dir.Path().empty());
    const std::string blocker = dir.Write("file", "not a directory");
    ScopedEnv env("XDG_DATA_HOME", blocker.c_str());  // the store would be below a file
    const Units module = U(u"NetSrv");
    EXPECT_FALSE(CGlobalFunction::SetSetting(module.data(), U(u"A").data(), U(u"b").data()));
    unsigned short buffer[2] = {0x55, 0x55};
    EXPECT_EQ(CGlobalFunction::GetSetting(module.data(), U(u"A").data(), buffer, 2), 0);
    EXPECT_EQ(buffer[0], 0);
}

std::u16string UserDataDirectory(int nSize = 512)
{
    Units buffer(static_cast<size_t>(nSize) + 1, 0x55);
    if (!CGlobalFunction::GetUserDataDirectory(buffer.data(), nSize)) {
        return u"<false>";
    }
    std::u16string strResult;
    for (size_t i = 0; i < buffer.size() && buffer[i] != 0; ++i) {
        strResult += static_cast<char16_t>(buffer[i]);
    }
    return strResult;
}

TEST(PlatformUserDataTest, FromXdgDataHomeElseHome)
{
    struct Row {
        const char* pszXdg;
        const char* pszHome;
        std::u16string strExpected;
    } rows[] = {
        {"/var/lib/xdg", "/home/u", u"/var/lib/xdg/netsrv"},
        {"/var/lib/xdg/", "/home/u", u"/var/lib/xdg/netsrv"},
        {nullptr, "/home/u", u"/home/u/.local/share/netsrv"},
        {"", "/home/u/", u"/home/u/.local/share/netsrv"},
        // A relative XDG_DATA_HOME is not valid and is ignored.
        {"relative/xdg", "/home/u", u"/home/u/.local/share/netsrv"},
        {nullptr, "/", u"/.local/share/netsrv"},
        {"/home/\xE5\xBC\xA0/data", "/home/u", u"/home/\u5f20/data/netsrv"},
    };
    for (const Row& row : rows) {
        ScopedEnv xdg("XDG_DATA_HOME", row.pszXdg);
        ScopedEnv home("HOME", row.pszHome);
        EXPECT_EQ(UserDataDirectory(), row.strExpected)
            << (row.pszXdg ? row.pszXdg : "(unset)") << " / " << row.pszHome;
    }
}

TEST(PlatformUserDataTest, BufferLimits)
{
    ScopedEnv xdg("XDG_DATA_HOME", "/data");
    EXPECT_EQ(UserDataDirectory(8), u"/data/n");  // cut to fit, terminated
    EXPECT_EQ(UserDataDirectory(1), u"");
    unsigned short unit = 0x55;
    EXPECT_FALSE(CGlobalFunction::GetUserDataDirectory(&unit, 0));
    EXPECT_EQ(unit, 0x55);
    EXPECT_FALSE(CGlobalFunction::GetUserDataDirectory(nullptr, 10));
}

Units ToWide(const char* pszText, int nCodePage)
{
    const int nNeeded = CGlobalFunction::MultiByteToWideChar(pszText, nullptr, 0, nCodePage);
    Units buffer(static_cast<size_t>(nNeeded), 0);
    const int nWritten = CGlobalFunction::MultiByteToWideChar(pszText, buffer.data(), nNeeded, nCodePage);
    EXPECT_EQ(nWritten, nNeeded);
    return buffer;
}

std::string ToNarrow(const Units& text, int nCodePage)
{
    const int nNeeded = CGlobalFunction::WideCharToMultiByte(text.data(), nullptr, 0, nCodePage);
    std::string strBuffer(static_cast<size_t>(nNeeded), '\0');
    const int nWritten = CGlobalFunction::WideCharToMultiByte(text.data(), &strBuffer[0], nNeeded, nCodePage);
    EXPECT_EQ(nWritten, nNeeded);
    return strBuffer;
}

bool IconvKnows(const char* pszName)
{
    iconv_t cd = iconv_open("UTF-8", pszName);
    if (cd == reinterpret_cast<iconv_t>(-1)) {
        return false;
    }
    iconv_close(cd);
    return true;
}

struct CodePageRow {
    const char* pszWhat;
    int nCodePage;
    std::string strNarrow;
    Units wide;  // without terminator
};

void CheckBothWays(const std::vector<CodePageRow>& rows)
{
    for (const CodePageRow& row : rows) {
        EXPECT_EQ(ToWide(row.strNarrow.c_str(), row.nCodePage), row.wide) << row.pszWhat;
        Units terminated = row.wide;
        terminated.push_back(0);
        EXPECT_EQ(ToNarrow(terminated, row.nCodePage), row.strNarrow) << row.pszWhat;
    }
}

TEST(PlatformCodePageTest, Utf8BothWays)
{
    CheckBothWays({
        {"empty", CP_UTF8, "", {}},
        {"ASCII", CP_UTF8, "CMCC", {'C', 'M', 'C', 'C'}},
        {"Latin-1 and CJK", CP_UTF8, "\xC3\xA9\xE4\xB8\xAD", {0xE9, 0x4E2D}},
        {"non-BMP becomes a pair", CP_UTF8, "a\xF0\x9F\x98\x80z", {'a', 0xD83D, 0xDE00, 'z'}},
        {"highest scalar", CP_UTF8, "\xF4\x8F\xBF\xBF", {0xDBFF, 0xDFFF}},
        {"code page 0 is UTF-8 too", CP_ACP, "\xE7\xA7\xBB", {0x79FB}},
    });
}

TEST(PlatformCodePageTest, WindowsCodePagesWhereIconvHasThem)
{
    if (!IconvKnows("CP1252") || !IconvKnows("CP936")) {
        GTEST_SKIP() << "iconv of this system has no CP1252/CP936";
    }
    CheckBothWays({
        {"CP1252 euro and e-acute", 1252, "\x80\xE9", {0x20AC, 0xE9}},
        {"CP936 operator name", 936, "\xD6\xD0\xB9\xFA\xD2\xC6\xB6\xAF", {0x4E2D, 0x56FD, 0x79FB, 0x52A8}},
    });
    // A character that CP1252 lacks becomes '?', one per UTF-16 unit.
    EXPECT_EQ(ToNarrow({'a', 0x4E2D, 'b', 0}, 1252), "a?b");
    EXPECT_EQ(ToNarrow({0xD83D, 0xDE00, 0}, 1252), "??");
}

TEST(PlatformCodePageTest, InvalidInputIsReplacedNotFatal)
{
    const Units kFFFD = {0xFFFD};
    struct Row {
        const char* pszWhat;
        std::string strInput;
        Units expected;
    } rows[] = {
        {"stray continuation byte", "a\x80z", {'a', 0xFFFD, 'z'}},
        {"byte FF", "\xFF", kFFFD},
        {"overlong slash", "\xC0\xAF", {0xFFFD, 0xFFFD}},
        {"encoded surrogate", "\xED\xA0\x80", {0xFFFD, 0xFFFD, 0xFFFD}},
        {"sequence cut at the end", "ok\xE2\x82", {'o', 'k', 0xFFFD, 0xFFFD}},
        {"lead byte then ASCII", "\xE4" "A", {0xFFFD, 'A'}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ToWide(row.strInput.c_str(), CP_UTF8), row.expected) << row.pszWhat;
    }
    EXPECT_EQ(ToNarrow({'x', 0xD800, 'y', 0}, CP_UTF8), "x?y");
    EXPECT_EQ(ToNarrow({0xDC00, 0}, CP_UTF8), "?");
    EXPECT_EQ(ToNarrow({'x', 0xD83D, 0}, CP_UTF8), "x?");  // pair cut by the end
}

TEST(PlatformCodePageTest, SizeQueryPartialBufferAndUnknownCodePage)
{
    const char* pszText = "\xE4\xB8\xAD\xF0\x9F\x98\x80";  // one BMP character, one pair
    EXPECT_EQ(CGlobalFunction::MultiByteToWideChar(pszText, nullptr, 0, CP_UTF8), 3);
    EXPECT_EQ(CGlobalFunction::MultiByteToWideChar(pszText, nullptr, 10, CP_UTF8), 3);
    unsigned short wide[4] = {0x55, 0x55, 0x55, 0x55};
    EXPECT_EQ(CGlobalFunction::MultiByteToWideChar(pszText, wide, 2, CP_UTF8), 2);
    EXPECT_EQ(Units(wide, wide + 4), (Units{0x4E2D, 0xD83D, 0x55, 0x55}));

    const unsigned short source[] = {0x4E2D, 'a', 0};
    EXPECT_EQ(CGlobalFunction::WideCharToMultiByte(source, nullptr, 0, CP_UTF8), 4);
    char narrow[4] = {'#', '#', '#', '#'};
    EXPECT_EQ(CGlobalFunction::WideCharToMultiByte(source, narrow, 2, CP_UTF8), 2);
    EXPECT_EQ(std::string(narrow, 4), "\xE4\xB8##");

    for (int nCodePage : {12345, -1, INT_MAX}) {
        EXPECT_EQ(CGlobalFunction::MultiByteToWideChar("abc", wide, 4, nCodePage), 0) << nCodePage;
        EXPECT_EQ(CGlobalFunction::WideCharToMultiByte(source, narrow, 4, nCodePage), 0) << nCodePage;
    }
    EXPECT_EQ(CGlobalFunction::MultiByteToWideChar(nullptr, wide, 4, CP_UTF8), 0);
    EXPECT_EQ(CGlobalFunction::WideCharToMultiByte(nullptr, narrow, 4, CP_UTF8), 0);
}

TEST(PlatformCodePageTest, LongTextCrossesTheConversionChunks)
{
    std::string strText;
    Units expected;
    for (int i = 0; i < 3000; ++i) {
        strText += "\xE4\xB8\xAD";
        strText += static_cast<char>('a' + i % 26);
        expected.push_back(0x4E2D);
        expected.push_back(static_cast<unsigned short>('a' + i % 26));
    }
    EXPECT_EQ(ToWide(strText.c_str(), CP_UTF8), expected);
    expected.push_back(0);
    EXPECT_EQ(ToNarrow(expected, CP_UTF8), strText);
}

TEST(PlatformTextTest, AtoxReadsHexadecimal)
{
    struct Row {
        const char* pszText;
        uint64_t expected;
    } rows[] = {
        {"1F", 31},
        {"1f", 31},
        {"0x1f", 31},
        {"0X1F", 31},
        {"3FFFFFFF", 0x3FFFFFFF},
        {"ffffffffffffffff", UINT64_MAX},
        {"10000000000000000", 0},  // a seventeenth digit shifts the first out
        {"12g4", 0x12},
        {"", 0},
        {"0x", 0},
        {"xyz", 0},
        {" 1", 0},
        {nullptr, 0},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(CGlobalFunction::atox(row.pszText), row.expected)
            << (row.pszText ? row.pszText : "(null)");
    }
}

TEST(PlatformTextTest, BoundedCopiesNeverOverrun)
{
    struct Row {
        const char* pszSource;
        size_t nSize;
        std::string strExpected;  // the whole 6-byte destination afterwards
    } rows[] = {
        {"abc", 6, std::string("abc\0##", 6)},
        {"abcdefgh", 4, std::string("abc\0##", 6)},
        {"abc", 4, std::string("abc\0##", 6)},
        {"abc", 1, std::string("\0#####", 6)},
        {"abc", 0, "######"},
        {"", 3, std::string("\0#####", 6)},
    };
    for (const Row& row : rows) {
        char narrow[6] = {'#', '#', '#', '#', '#', '#'};
        CGlobalFunction::chrcpy(narrow, row.pszSource, row.nSize);
        EXPECT_EQ(std::string(narrow, 6), row.strExpected) << row.pszSource << " " << row.nSize;

        const std::string strSource(row.pszSource);
        Units source(strSource.begin(), strSource.end());
        source.push_back(0);
        Units wide(6, '#');
        CGlobalFunction::wchrcpy(wide.data(), source.data(), row.nSize);
        EXPECT_EQ(wide, Units(row.strExpected.begin(), row.strExpected.end()))
            << row.pszSource << " " << row.nSize;
    }
    char narrow[2] = {'#', '#'};
    CGlobalFunction::chrcpy(narrow, nullptr, 2);
    CGlobalFunction::chrcpy(nullptr, "a", 2);
    EXPECT_EQ(narrow[0], '#');
    unsigned short wide[2] = {'#', '#'};
    CGlobalFunction::wchrcpy(wide, nullptr, 2);
    CGlobalFunction::wchrcpy(nullptr, wide, 2);
    EXPECT_EQ(wide[0], '#');
}

TEST(PlatformTextTest, Ui64toaLikeTheRuntime)
{
    struct Row {
        uint64_t value;
        int nRadix;
        const char* pszExpected;
    } rows[] = {
        {0, 10, "0"},
        {0, 16, "0"},
        {0, 2, "0"},
        {255, 16, "ff"},
        {0x3FFFFFFF, 16, "3fffffff"},
        {0xABCDEF0123456789ull, 16, "abcdef0123456789"},
        {1234567890, 10, "1234567890"},
        {5, 2, "101"},
        {35, 36, "z"},
        {36, 36, "10"},
        {UINT64_MAX, 10, "18446744073709551615"},
        {UINT64_MAX, 16, "ffffffffffffffff"},
        {UINT64_MAX, 2, "1111111111111111111111111111111111111111111111111111111111111111"},
        {UINT64_MAX, 36, "3w5e11264sgsf"},
        {42, 1, ""},
        {42, 37, ""},
        {42, 0, ""},
    };
    for (const Row& row : rows) {
        char buffer[65];
        memset(buffer, '#', sizeof(buffer));
        EXPECT_EQ(_ui64toa(row.value, buffer, row.nRadix), buffer);
        EXPECT_STREQ(buffer, row.pszExpected) << row.value << " radix " << row.nRadix;
    }
    EXPECT_EQ(_ui64toa(1, nullptr, 10), nullptr);
}

}  // namespace
