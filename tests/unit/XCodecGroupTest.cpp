// The codec's group splitter on the groups of real "^SYSCFG=?" and
// "^SYSCFGEX=?" answers (as the processor hands them over: one field a group)
// and on malformed ones.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "XCodec.h"

namespace {

typedef std::vector<std::string> Items;

TEST(XCodecGroupTest, SplitsOneGroupIntoItsItems)
{
    const struct {
        const char* source;
        std::string text;
        Items items;
    } rows[] = {
        {"band pairs", R"(((80000,"GSM850"),(3FFFFFFF,"All bands")))",
         {"(80000", R"("GSM850")", "(3FFFFFFF", R"("All bands")"}},
        {"acquisition orders", R"(("00","01","0201"))", {R"("00")", R"("01")", R"("0201")"}},
        {"a range", "(0-3)", {"0-3"}},
        {"empty", "", {}},
        {"empty group", "()", {}},
        {"syscfg-1 modes", "(2,13,14,16)", {"2", "13", "14", "16"}},
        {"syscfg-1 bands",
         R"(((2000000400380,"GSM900/GSM1800/WCDMA900/WCDMA2100"),(280000,"GSM850/GSM1900"),)"
         R"((3fffffff,"All bands")))",
         {"(2000000400380", R"("GSM900/GSM1800/WCDMA900/WCDMA2100")", "(280000",
          R"("GSM850/GSM1900")", "(3fffffff", R"("All bands")"}},
        {"syscfgex-1 LTE bands",
         R"(((800c5,"LTE2100/LTE1800/LTE2600/LTE900/LTE800"),(7fffffffffffffff,"All bands")))",
         {"(800c5", R"("LTE2100/LTE1800/LTE2600/LTE900/LTE800")", "(7fffffffffffffff",
          R"("All bands")"}},
        // Quotes hide commas and parentheses; blanks around items go, empty items stay.
        {"quoted", R"G(("a,b", "c)" ,,d))G", {R"("a,b")", R"G("c)")G", "", "d"}},
        // An item's own parentheses stay; closes of earlier items go, all of them.
        {"own parentheses", "(a(b),c)", {"a(b)", "c"}},
        {"two levels closed at once", "((a,(b,c)))", {"(a", "(b", "c"}},
        // Malformed: never more than the text, never a fault.
        {"unclosed outer", R"(((1,"x"))", {"((1", R"("x")"}},
        {"unterminated quote", R"G(("abc,def))G", {R"G(("abc,def))G"}},
        {"stray close", "a),b", {"a", "b"}},
    };
    CXCodec codec;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.source);
        Items items = {"left over"};
        EXPECT_EQ(codec.DecoderGroupString(row.text, items), static_cast<int>(row.items.size()));
        EXPECT_EQ(items, row.items);
    }
}

}  // namespace
