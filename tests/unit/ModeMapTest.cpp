// The mode numbers of "^SYSINFO" in the Ex numbering, and the operator-group
// splitter of a search result.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "NetSrvModeMap.h"
#include "NetSrvPlmnList.h"

namespace {

using namespace NETSRV_DATA;

TEST(ModeMap, SystemModeAndItsDefaultSubMode)
{
    struct Row {
        int sysMode;
        int exSysMode;
        int exSubMode;
    };
    const Row rows[] = {
        {0, 0, 0},   {1, 1, 1},   {2, 2, 23},  {3, 1, 2},   {4, 2, 25}, {5, 3, 41},
        {6, 1, 1},   {7, 3, 41},  {8, 2, 29},  {15, 4, 61}, {9, 0, 0},  {17, 0, 0},
        {-1, 0, 0},  {255, 0, 0},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(MapOldSysModeToExSysMode(row.sysMode), row.exSysMode) << row.sysMode;
        EXPECT_EQ(MapOldSysModeToExSubMode(row.sysMode), row.exSubMode) << row.sysMode;
    }
}

TEST(ModeMap, SubModeDependsOnTheSystem)
{
    // Columns: WCDMA (5), TD-SCDMA (15), HDR (4), hybrid (8), GSM (3).
    struct Row {
        int subMode;
        int onWcdma, onTd, onHdr, onHybrid, onGsm;
    };
    const Row rows[] = {
        {0, 0, 0, 0, 0, 0},       {1, 1, 1, 1, 1, 1},       {2, 2, 2, 2, 2, 2},
        {3, 3, 3, 3, 3, 3},       {4, 41, 41, 41, 41, 41},  {5, 42, 62, 0, 0, 0},
        {6, 43, 63, 0, 0, 0},     {7, 44, 64, 0, 0, 0},     {8, 61, 61, 61, 61, 61},
        {9, 45, 65, 0, 0, 0},     {10, 0, 0, 24, 28, 0},    {11, 0, 0, 25, 29, 0},
        {12, 0, 0, 26, 30, 0},    {13, 21, 21, 21, 21, 21}, {14, 25, 25, 25, 25, 25},
        {15, 29, 29, 29, 29, 29}, {16, 23, 23, 23, 23, 23}, {17, 45, 65, 0, 0, 0},
        {18, 45, 65, 0, 0, 0},
        // Outside 0..18 the system mode alone decides.
        {19, 41, 61, 25, 29, 2},  {-1, 41, 61, 25, 29, 2},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.subMode);
        EXPECT_EQ(MapOldSubModeToExSubMode(5, row.subMode), row.onWcdma);
        EXPECT_EQ(MapOldSubModeToExSubMode(15, row.subMode), row.onTd);
        EXPECT_EQ(MapOldSubModeToExSubMode(4, row.subMode), row.onHdr);
        EXPECT_EQ(MapOldSubModeToExSubMode(8, row.subMode), row.onHybrid);
        EXPECT_EQ(MapOldSubModeToExSubMode(3, row.subMode), row.onGsm);
    }
}

TEST(ModeMap, SubModeToOlderSystemMode)
{
    const int expected[] = {0, 9, 10, 11, 5, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25};
    for (int sub = 0; sub <= 18; ++sub) {
        EXPECT_EQ(MapSysSubMode(sub), expected[sub]) << sub;
    }
    EXPECT_EQ(MapSysSubMode(19), 19);
    EXPECT_EQ(MapSysSubMode(-4), -4);
    EXPECT_EQ(MapSystemMode(15), 15);
    EXPECT_EQ(MapSystemMode(40), 40);
}

TEST(OperatorGroup, SplitsAtCommasOutsideQuotedNames)
{
    using Fields = std::vector<std::string>;
    struct Row {
        std::string group;
        Fields fields;
    };
    const Row rows[] = {
        {"(2,\"Op, Inc\",\"Op\",\"00101\",2)", {"2", "\"Op, Inc\"", "\"Op\"", "\"00101\"", "2"}},
        {"(1,\"\",\"T-Mobile\",\"31026\",0)", {"1", "\"\"", "\"T-Mobile\"", "\"31026\"", "0"}},
        // A group the modem left without its technology.
        {"(2,\"T - Mobile\",\"T - Mobile\",\"310260\")",
         {"2", "\"T - Mobile\"", "\"T - Mobile\"", "\"310260\""}},
        // Stray brackets of malformed replies.
        {"2)", {"2"}},
        {"(1,\"A\"", {"1", "\"A\""}},
        // An unterminated quote runs to the end.
        {"(1,\"A, B)", {"1", "\"A, B"}},
        {"()", {""}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(SplitOperatorGroup(row.group), row.fields) << row.group;
    }
}

}  // namespace
