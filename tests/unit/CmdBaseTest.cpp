// AT field value types: how each reads a modem field, prints it back and hands
// it out, including the asymmetries that callers depend on.
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "CmdBase.h"

namespace {

// A destination with guard bytes behind the capacity handed to GetData.
struct GuardedBuffer {
    explicit GuardedBuffer(size_t nCapacity) : bytes(nCapacity + 4, '#') {}
    char* Data() { return bytes.data(); }
    std::string Text(size_t n) const { return std::string(bytes.data(), n); }
    std::vector<char> bytes;
};

TEST(CmdBaseTest, FreshParametersAreEmpty)
{
    BINARY bin;
    STRING str;
    NUMERIC num;
    HEX hex;
    REAL real;
    RANGE range;
    const std::pair<PARAMETER*, long> rows[] = {
        {&bin, PARAM_ID_BINARY}, {&str, PARAM_ID_STRING}, {&num, PARAM_ID_NUMERIC},
        {&hex, PARAM_ID_HEX},    {&real, PARAM_ID_REAL},  {&range, PARAM_ID_RANGE}};
    for (const auto& [param, typeId] : rows) {
        SCOPED_TRACE(typeId);
        EXPECT_EQ(param->TypeId(), typeId);
        EXPECT_TRUE(param->IsEmpty());
        EXPECT_EQ(param->GetLength(), 0);
        EXPECT_EQ(param->GetNumValue(), 0u);
        EXPECT_EQ(param->ToString(), "");
        EXPECT_EQ(param->GetRawData()[0], '\0');
        GuardedBuffer out(16);
        EXPECT_FALSE(param->GetData(out.Data(), 16));
        EXPECT_EQ(out.Text(4), "####");
    }
    // Empty fields never compare equal, not even with a zero value.
    EXPECT_FALSE(num == uint64{0});
    EXPECT_FALSE(hex == uint64{0});
    EXPECT_FALSE(real == 0.0);
    EXPECT_FALSE(str == "");
    EXPECT_FALSE(range == (RangeType{0, 0}));

    // The operator of a command is a number that is never empty.
    OPERATOR<1> read;
    OPERATOR<32> test;
    EXPECT_EQ(read.TypeId(), PARAM_ID_OPERATOR);
    EXPECT_EQ(test.TypeId(), PARAM_ID_OPERATOR);
    EXPECT_TRUE(read == uint64{1});
    EXPECT_EQ(test.GetLength(), 2);
    EXPECT_EQ(test.ToString(), "32");
}

TEST(CmdBaseTest, NumbersFromModemText)
{
    struct Row {
        bool hex;
        std::string text;
        uint64 value;
        long size;
        std::string printed;
    };
    const Row rows[] = {
        {false, "", 0, 0, ""},
        {false, "0", 0, 1, "0"},
        {false, " 42,", 42, 4, "42"},
        {false, "\"5\"", 0, 3, "0"},
        {false, "-1", std::numeric_limits<uint64>::max(), 2, "18446744073709551615"},
        {true, "1f", 31, 2, "1f"},
        {true, "1F", 31, 2, "1f"},
        {true, "0x10", 0, 4, "0"},
        {true, " 1F", 0, 3, "0"},
        {true, "10000000000000001", 1, 17, "1"},  // wraps modulo 2^64
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        NUMERIC num;
        HEX hex;
        PARAMETER& param = row.hex ? static_cast<PARAMETER&>(hex) : num;
        EXPECT_TRUE(param.FromString(row.text));
        EXPECT_EQ(param.IsEmpty(), row.size == 0);
        EXPECT_EQ(param.GetLength(), row.size);
        EXPECT_EQ(param.GetNumValue(), row.value);
        EXPECT_EQ(param.ToString(), row.printed);
    }
    // A letter counts as a digit whatever the radix.
    uint64 out = 1;
    EXPECT_EQ(dsatutil_atoll(&out, reinterpret_cast<const unsigned char*>("1A"), 10), 20u);
    EXPECT_EQ(out, 20u);
}

TEST(CmdBaseTest, NumbersFromValuesReadBack)
{
    for (uint64 value : {uint64{0}, uint64{0xABCD}, uint64{std::numeric_limits<int64_t>::max()}}) {
        NUMERIC num, numBack;
        HEX hex, hexBack;
        num = value;
        hex = value;
        EXPECT_EQ(num.GetLength(), static_cast<long>(num.ToString().size()));
        EXPECT_TRUE(numBack.FromString(num.ToString()) && numBack == value);
        EXPECT_TRUE(hexBack.FromString(hex.ToString()) && hexBack == value);
        EXPECT_EQ(hexBack.GetLength(), hex.GetLength());
    }
    NUMERIC num;
    EXPECT_TRUE(num.SetData("678", 0));  // the length is not looked at
    EXPECT_EQ(static_cast<uint64>(num), 678u);

    HEX hex;
    hex = 0xABCD;
    GuardedBuffer out(4);
    EXPECT_FALSE(hex.GetData(out.Data(), 3));
    EXPECT_TRUE(hex.GetData(out.Data(), 4));
    EXPECT_EQ(out.Text(5), "abcd#");  // no terminator
}

TEST(CmdBaseTest, BinaryDecodesHexText)
{
    BINARY bin;
    ASSERT_TRUE(bin.FromString("0A1b"));
    EXPECT_EQ(std::string(bin.GetRawData(), 3), std::string("\x0A\x1B\0", 3));
    EXPECT_EQ(bin.ToString(), "0A1B");

    // A rejected length keeps the old bytes; a bad digit leaves the field empty.
    EXPECT_FALSE(bin.FromString("ABC"));
    EXPECT_FALSE(bin.FromString(std::string(2050, 'F')));
    EXPECT_EQ(bin.ToString(), "0A1B");
    EXPECT_FALSE(bin.FromString("0AGG"));
    EXPECT_TRUE(bin.IsEmpty());
    EXPECT_EQ(bin.GetRawData()[0], '\x0A');

    ASSERT_TRUE(bin.FromString(std::string(2048, 'e')));
    EXPECT_EQ(bin.GetLength(), 1024);
    EXPECT_EQ(bin.ToString(), std::string(2048, 'E'));
}

TEST(CmdBaseTest, RawSetDataTakesOneByteLessThanText)
{
    const std::vector<char> bytes(1024, 'z');
    BINARY bin;
    STRING str;
    for (PARAMETER* param : {static_cast<PARAMETER*>(&bin), static_cast<PARAMETER*>(&str)}) {
        SCOPED_TRACE(param->TypeId());
        EXPECT_FALSE(param->SetData(bytes.data(), 1024));
        EXPECT_FALSE(param->SetData(nullptr, 1));
        EXPECT_TRUE(param->SetData(bytes.data(), 1023));
        EXPECT_EQ(param->GetLength(), 1023);
        GuardedBuffer out(1023);
        EXPECT_FALSE(param->GetData(out.Data(), 1022));
        EXPECT_TRUE(param->GetData(out.Data(), 1023));
        EXPECT_EQ(out.Text(1023), std::string(1023, 'z'));
        // Only a STRING terminates, one byte past the capacity.
        EXPECT_EQ(out.bytes[1023], param == &str ? '\0' : '#');
    }
}

TEST(CmdBaseTest, StringKeepsTextAsSent)
{
    STRING str;
    ASSERT_TRUE(str.FromString(std::string(1023, 'a')));
    EXPECT_FALSE(str.FromString(std::string(1024, 'b')));
    str = std::string(1024, 'c');  // ignored: too long
    EXPECT_EQ(str.ToString(), std::string(1023, 'a'));

    str = "\"46001\"";
    EXPECT_TRUE(str == "\"46001\"");
    EXPECT_FALSE(str == "46001");
    STRING copy(str);
    str = "\"CU\"";
    EXPECT_EQ(copy.ToString(), "\"46001\"");
    copy = str;
    EXPECT_EQ(copy.GetLength(), 4);
    EXPECT_TRUE(copy == "\"CU\"");
}

TEST(CmdBaseTest, RangeReadsBracketsUnseenAndPrintsWithoutClosing)
{
    struct Row {
        std::string text;
        long begin;
        long end;
    };
    const Row rows[] = {
        {"(0-5)", 0, 5}, {"0-5", 0, 0},    {"(15)", 0, 0},        {"", 0, 0},
        {"-", 0, 0},     {"(3-", 3, 0},    {"(-5-3)", 0, 5},
        {"(0-9999999999)", 0, std::numeric_limits<int32_t>::max()},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        RANGE range;
        EXPECT_TRUE(range.FromString(row.text));
        EXPECT_EQ(range.GetLength(), 8);
        EXPECT_EQ(range.GetRangeBegin(), row.begin);
        EXPECT_EQ(range.GetRangeEnd(), row.end);
    }

    RANGE range;
    ASSERT_TRUE(range.SetData("(1-8)", 0));
    EXPECT_TRUE(range == (RangeType{1, 8}));
    EXPECT_EQ(range.ToString(), "(1-8");
    GuardedBuffer out(8);
    EXPECT_FALSE(range.GetData(out.Data(), 7));
    ASSERT_TRUE(range.GetData(out.Data(), 8));
    EXPECT_EQ(out.Text(9), std::string("(1-8\0\0\0\0#", 9));
    // Without the closing bracket the printed text does not read back.
    range.FromString(range.ToString());
    EXPECT_EQ(range.GetRangeEnd(), 0);

    range = RangeType{-1, 2};
    EXPECT_EQ(range.ToString(), "(18446744073709551615-2");
    ASSERT_TRUE(range.GetData(out.Data(), 8));
    EXPECT_EQ(out.Text(9), "(1844674#");
}

TEST(CmdBaseTest, RealDigitsFollowTextLength)
{
    const std::pair<std::string, std::string> rows[] = {
        {"1.50", "1.5"}, {"12.5", "12.5"}, {"0.250", "0.25"}, {"2.71828", "2.71828"},
        {"0.1", "0.1"},  {"1e2", "100"},
    };
    for (const auto& [text, printed] : rows) {
        SCOPED_TRACE(text);
        REAL real;
        EXPECT_TRUE(real.FromString(text));
        EXPECT_EQ(real.GetLength(), static_cast<long>(text.size()));
        EXPECT_EQ(real.ToString(), printed);
    }

    const std::string exact = "0.1000000000000000055511151231257827021181583404541015625";
    REAL real;
    real = 0.1;
    EXPECT_EQ(real.GetLength(), 57);
    EXPECT_EQ(real.ToString(), exact);
    EXPECT_TRUE(real == 0.1);

    // Handing the value out widens later prints, even when the buffer is too small.
    GuardedBuffer out(57);
    ASSERT_TRUE(real.FromString("0.1"));
    EXPECT_FALSE(real.GetData(out.Data(), 10));
    EXPECT_EQ(real.ToString(), exact);
    ASSERT_TRUE(real.FromString("0.1"));
    ASSERT_TRUE(real.GetData(out.Data(), 57));
    EXPECT_EQ(out.Text(58), exact + "#");
    EXPECT_EQ(real.GetLength(), 57);

    real = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(real == real.GetFloatValue());
    // The longest expansion a double has (hundreds of digits) fits the scratch text.
    real = -std::numeric_limits<double>::denorm_min();
    const std::string tiny = real.ToString();
    EXPECT_EQ(tiny.substr(0, 8), "-4.94065");
    EXPECT_EQ(tiny.substr(tiny.size() - 5), "e-324");
}

}  // namespace
