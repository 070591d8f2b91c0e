// The pure layers of the host's AT processor: the line framer, the field
// splitter, the command formatter and the line classifier, on answers that
// real modems gave and on the untidy input that the line can carry.
#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <string>
#include <vector>

#include "AtFields.h"
#include "AtFormat.h"
#include "LineClassifier.h"
#include "LineFramer.h"
#include "ModemAnswers.h"
#include "NetSrvAtCommonds.h"
#include "ResponseFill.h"

namespace {

using Fields = std::vector<std::string>;
using host::LineKind;
using testkit::LoadModemAnswers;
using testkit::ModemAnswer;

// The AT name of what was sent: "+COPS=3,2;+COPS?" -> "+COPS", "^SYSCFG=?" -> "^SYSCFG".
std::string CommandName(std::string command)
{
    const std::size_t semicolon = command.rfind(';');
    if (semicolon != std::string::npos) {
        command = command.substr(semicolon + 1);
    }
    return command.substr(0, command.find_first_of("=?"));
}

std::vector<std::string> FeedWhole(const std::string& bytes)
{
    host::LineFramer framer;
    return framer.Feed(bytes);
}

// The fields a person reads in each answer of the fixture file. Stray and
// missing brackets of the malformed "+COPS" answers stay in the field where
// the modem put them; the service's group parser deals with them.
const std::map<std::string, Fields>& ExpectedFields()
{
    static const std::map<std::string, Fields> kExpected = {
        {"sysinfo-1", {"2", "4", "5", "3", "1"}},
        {"sysinfo-2", {"2", "4", "5", "3", "1", "", ""}},
        {"sysinfo-3", {"2", "4", "5", "3", "1", "6", ""}},
        {"sysinfo-4", {"2", "4", "5", "3", "1", "0", "6"}},
        {"sysinfoex-1", {"2", "4", "5", "1", "", "3", "WCDMA", "41", "HSPA+"}},
        {"sysinfoex-2", {"2", "4", "5", "1", "0", "3", "WCDMA", "41", "HSPA+"}},
        {"prefmode-1", {"(2,4,8)"}},
        {"prefmode-2", {"(2)"}},
        {"prefmode-3", {"2"}},
        {"prefmode-4", {"8"}},
        {"syscfg-1",
         {"(2,13,14,16)", "(0)",
          "((2000000400380,\"GSM900/GSM1800/WCDMA900/WCDMA2100\"),(280000,\"GSM850/GSM1900\"),"
          "(3fffffff,\"All bands\"))",
          "(0-2)", "(0-4)"}},
        {"syscfg-2", {"2", "0", "400000", "0", "3"}},
        {"syscfg-3", {"2", "2", "400000", "0", "3"}},
        {"syscfg-4", {"14", "0", "400000", "0", "3"}},
        {"syscfg-5", {"14", "2", "400000", "0", "3"}},
        {"syscfgex-1",
         {"(\"00\",\"03\",\"02\",\"01\",\"99\")",
          "((2000004e80380,\"GSM850/GSM900/GSM1800/GSM1900/WCDMA850/WCDMA900/WCDMA1900/"
          "WCDMA2100\"),(3fffffff,\"All Bands\"))",
          "(0-3)", "(0-4)",
          "((800c5,\"LTE2100/LTE1800/LTE2600/LTE900/LTE800\"),(7fffffffffffffff,\"All bands\"))"}},
        {"syscfgex-2",
         {"(\"03\")",
          "((2000004e80380,\"GSM850/GSM900/GSM1800/GSM1900/WCDMA850/WCDMA900/WCDMA1900/"
          "WCDMA2100\"),(3fffffff,\"All Bands\"))",
          "(0-3)", "(0-4)",
          "((800c5,\"LTE2100/LTE1800/LTE2600/LTE900/LTE800\"),(7fffffffffffffff,\"All bands\"))"}},
        {"syscfgex-3", {"00", "3FFFFFFF", "1", "2", "7FFFFFFFFFFFFFFF"}},
        {"syscfgex-4", {"02", "3FFFFFFF", "1", "2", "7FFFFFFFFFFFFFFF"}},
        {"syscfgex-5", {"00", "3fffffff", "1", "2", ""}},
        {"syscfgex-6", {"02", "3fffffff", "1", "2", ""}},
        {"syscfgex-7", {"0201", "3fffffff", "1", "2", ""}},
        {"hcsq-1", {"LTE", "30", "19", "66", "0"}},
        {"hcsq-2", {"GSM", "36", "255"}},
        {"hcsq-3", {"NOSERVICE"}},
        {"cops-1",
         {"(2,\"\",\"T-Mobile\",\"31026\",0)", "(2,\"T - Mobile\",\"T - Mobile\",\"310260\")", "2)",
          "(1,\"AT&T\",\"AT&T\",\"310410\")", "0)"}},
        {"cops-2",
         {"(1,\"T-Mobile\",\"TMO\",\"31026\",0)", "(1,\"AT&T\",\"AT&T\",\"310410\",2)",
          "(1,\"AT&T\",\"AT&T\",\"310410\",0)", "", "(0,1,2,3,4)", ")"}},
        {"cops-3",
         {"(2,\"T-Mobile\",\"TMO\",\"31026\",0)", "(1,\"Cingular\",\"Cinglr\",\"310410\",2)",
          "(1,\"Cingular\",\"Cinglr\",\"310410\",0)", "", ")"}},
        {"cops-4", {"(2,\"T-Mobile\",\"\",\"310260\")", "(0,\"Cingular Wireless\",\"\",\"310410\")"}},
        {"cops-5", {"(2,\"AT&Tp\",\"AT&T@\",\"310410\",0)", "(3,\"\",\"\",\"31026\",0)", ""}},
        {"cops-6",
         {"(2,\"\",\"\",\"310410\",2)", "(1,\"AT&T\",\"AT&T\",\"310410\",0)",
          "(1,\"T-Mobile\",\"TMO\",\"31026\",0)", "", "(0,1,2,3,4)", "(0,1,2)"}},
        {"cops-7",
         {"(2,\"T-Mobile US\",\"TMO US\",\"31026\",0)", "(1,\"AT&T\",\"AT&T\",\"310410\",0)", "",
          "(0, 1, 3)", "(0-2)"}},
        {"cops-8",
         {"(2,\"T - Mobile\",\"T - Mobile\",\"31026\",0)", "(1,\"AT&T\",\"AT&T\",\"310410\",0)",
          "(1,\"AT&T\",\"AT&T\",\"310410\",2)"}},
        {"cops-9",
         {"(2,\"T-Mobile\",\"T-Mobile\",\"31026\",0)", "(1,\"AT&T\",\"AT&T\",\"310410\",2)",
          "(1,\"AT&T\",\"AT&T\",\"310410\",0)", "", "(0,1,2,3,4)", "(0,1,2)"}},
        {"cops-10",
         {"(2,\"T-Mobile\",\"TMO\",\"31026\",0)", "(1,\"AT&T\",\"AT&T\",\"310410\",0)", "",
          "(0,1,2,3,4)", "(0,1,2)"}},
        {"cops-11",
         {"(1,\"\",\"\",\"31026\",0)", "(1,\"\",\"\",\"310410\",2)", "(1,\"\",\"\",\"310410\",0)", "",
          "(0,1,3,4)", "(0,1,2)"}},
        {"cops-12",
         {"(2,\"T-Mobile US\",\"TMO US\",\"31026\",0)", "(1,\"AT&T\",\"AT&T\",\"310410\",2)",
          "(1,\"AT&T\",\"AT&T\",\"310410\",0)", "", "(0,1,2,3,4)", "(0,1,2)"}},
        {"cops-13",
         {"(2,\"T-Mobile\",\"T-Mobile\",\"31026\",0)", "(1,\"AT&T\",\"AT&T\",\"310410\",2)",
          "(1,\"AT&T\",\"AT&T\",\"310410\",0)", "", "(0,1,2,3,4)", "(0,1,2)"}},
        // The comma inside the quoted name does not split the group.
        {"cops-14",
         {"(1,\"T-Mobile USA, In\",\"T-Mobile\",\"310260\",0)", "(1,\"AT&T\",\"AT&T\",\"310410\",0)",
          "", "(0,1,2,3,4)", "(0,1,2)"}},
        // No comma between the last operator and the list of modes: one field.
        {"cops-15",
         {"(1,\"Telekom.de\",\"TDG\",\"26201\",12)", "(1,\"Telekom.de\",\"Telekom.\",\"26201\",7)",
          "(1,\"o2 - de\",\"o2 - de\",\"26203\",7)",
          "(1,\"vodafone.de\",\"Vodafone\",\"26202\",7)(0,1,2,3,4)", "(0,1,2)"}},
        {"cops-16", {"(0,1,2,3,4)", "(1,2,3,4,5)"}},
        {"cops-17", {"1", "0", "CHINA MOBILE"}},
        {"cops-18", {"1", "2", "46000"}},
        {"creg-1", {"1", "3"}},
        {"creg-2", {"2", "1", "CE00", "01CEAD8F"}},
        {"creg-3", {"2", "1", "8BE3", "2BAF"}},
        {"creg-4", {"002", "001", "18d8", "ffff"}},
        {"creg-5", {"002", "001", "0001", "0010"}},
        // Blanks inside a field are the modem's; only the outer ones go.
        {"creg-6", {"2", "1", "0 5", "2715"}},
        {"creg-7", {"3"}},
        {"creg-8", {"1", "84CD", "00D30156"}},
        {"creg-9", {"1", "CE00", "00005449"}},
        {"creg-10", {"2", "", ""}},
        {"creg-11", {"001", "0001", "0010", "000"}},
        {"creg-12", {"0011", "0001", "0010", "000"}},
        {"creg-13", {"2", "5", "0502", "0404736D"}},
        {"creg-14", {"2", "1", "000B", "2816", "B", "C2816"}},
        {"cgreg-1", {"1", "3"}},
        {"cgreg-2", {"2", "10", "ebbd", "f025"}},
        {"cgreg-3", {"2", "1", "0426", "F00F"}},
        {"cgreg-4", {"3"}},
        {"cgreg-5", {"5", "0502", "0404736D", "2"}},
        {"cgreg-6", {"2", "1", "81ED", "1A9CEB"}},
        {"cgreg-7", {"11", "B092", "00000697", "3", "00"}},
        {"cereg-1", {"1", "3"}},
        {"cereg-2", {"2", "10", "8d83", "671f98a", "7"}},
        {"cereg-3", {"2", "1", "1F00", "20", "79D903", "7"}},
        {"cereg-4", {"3"}},
        {"cereg-5", {"11", "78FE", "20", "14419E", "7"}},
        {"cereg-6", {"2", "0001", "00000100", "7"}},
        {"crsm-spn-1", {"144", "0", "0054485552415941FFFFFFFFFFFFFFFFFF"}},
        {"crsm-spn-2", {"144", "0", "0054485552415941FFFFFFFFFFFFFFFFFF"}},
        {"crsm-iccid-1", {"984402003576012594F9"}},
        {"crsm-iccid-2", {"8944200053671052499F"}},
        {"crsm-iccid-3", {"89324102234690160476"}},
        {"crsm-iccid-4", {"898602C0123456789012"}},
        {"crsm-iccid-5", {"98231420326pl9614067"}},
        {"crsm-iccid-6", {"0044200053671052499"}},
        {"cpol-1", {"1", "2", "24412", "0", "0", "0", "0"}},
        {"cpol-2", {"1"}},
        {"cpol-3", {"1", "1", "Test"}},
        {"cpol-4", {"99", "2", "63423", "1", "0", "1", "0", "1"}},
        {"cpol-5", {"101", "2", "24491"}},
        {"cpol-6", {"1", "2", "12345", "1", "1", "1", "1", "1"}},
        {"csq-1", {"17", "99"}},
        {"cops-3-2-cops-1", {"0", "2", "21401", "2"}},
        {"cops-3-0-cops-1", {"0", "0", "vodafone ES"}},
        {"cimi-1", {"998899889988997"}},
    };
    return kExpected;
}

// ---- framer ----------------------------------------------------------------

// Transcripts whose lines are known, beside the fixture answers.
struct FramingRow {
    const char* where;
    std::string bytes;
    std::vector<std::string> lines;
};

std::vector<FramingRow> FramingRows()
{
    return {
        {"answer with the blank lines of verbose mode",
         "\r\n^SYSINFO:2,4,5,3,1,0,6\r\n\r\nOK\r\n", {"^SYSINFO:2,4,5,3,1,0,6", "OK"}},
        {"echo before ATE0 took effect", "ATE0\r\r\nOK\r\n", {"ATE0", "OK"}},
        {"simulator ending lines with LF only", "+CSQ: 17,99\n\nOK\n", {"+CSQ: 17,99", "OK"}},
        {"modem ending lines with CR only", "^RSSI:17\r^MODE:5,4\r", {"^RSSI:17", "^MODE:5,4"}},
        {"report between two lines of a multi-line answer",
         "\r\n+CPOL: 1,2,\"24412\",0,0,0,0\r\n\r\n^RSSI: 12\r\n\r\n+CPOL: 2,2,\"24491\"\r\n\r\nOK\r\n",
         {"+CPOL: 1,2,\"24412\",0,0,0,0", "^RSSI: 12", "+CPOL: 2,2,\"24491\"", "OK"}},
        {"binary garbage, NUL included", std::string("\xff\x00\xfe\r\n\x1b[0m\r\nOK\r\n", 15),
         {std::string("\xff\x00\xfe", 3), "\x1b[0m", "OK"}},
        {"unterminated quote", "+COPS: 0,0,\"CHINA\r\nOK\r\n", {"+COPS: 0,0,\"CHINA", "OK"}},
        {"nothing but line ends", "\r\n\r\n\n\r\r", {}},
    };
}

// Every transcript: the lines at once, split in two at every offset, and fed
// one byte at a time must be the same.
void ExpectSplitInvariant(const std::string& where, const std::string& bytes)
{
    const std::vector<std::string> whole = FeedWhole(bytes);
    for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
        host::LineFramer framer;
        std::vector<std::string> lines = framer.Feed(std::string_view(bytes).substr(0, cut));
        const std::vector<std::string> rest = framer.Feed(std::string_view(bytes).substr(cut));
        lines.insert(lines.end(), rest.begin(), rest.end());
        ASSERT_EQ(whole, lines) << where << ", cut at " << cut;
    }
    host::LineFramer framer;
    std::vector<std::string> lines;
    for (const char c : bytes) {
        const std::vector<std::string> got = framer.Feed(std::string_view(&c, 1));
        lines.insert(lines.end(), got.begin(), got.end());
    }
    EXPECT_EQ(whole, lines) << where << ", byte by byte";
}

TEST(AtFramingTest, FramerGivesTheSameLinesHoweverTheBytesAreSplit)
{
    for (const FramingRow& row : FramingRows()) {
        EXPECT_EQ(row.lines, FeedWhole(row.bytes)) << row.where;
        ExpectSplitInvariant(row.where, row.bytes);
    }
    const std::vector<ModemAnswer> answers = LoadModemAnswers();
    ASSERT_FALSE(answers.empty());
    for (const ModemAnswer& answer : answers) {
        // The file keeps some answers without their final line end.
        ExpectSplitInvariant(answer.id, answer.raw + "\r\n");
    }
}

TEST(AtFramingTest, FramerKeepsThePartialLineAndCutsOverLongOnes)
{
    host::LineFramer framer;
    EXPECT_TRUE(framer.Feed("^SYSINFO:2,4").empty());
    EXPECT_EQ(std::vector<std::string>{"^SYSINFO:2,4,5"}, framer.Feed(",5\r"));

    // 2.5 maximum lines without an end: two are cut at the maximum, the rest
    // waits; the next line end delivers it.
    const std::size_t max = host::LineFramer::kMaxLineLength;
    const std::string flood(2 * max + max / 2, 'x');
    const std::vector<std::string> cut = framer.Feed(flood);
    ASSERT_EQ(2u, cut.size());
    EXPECT_EQ(max, cut[0].size());
    EXPECT_EQ(max, cut[1].size());
    EXPECT_EQ(max / 2, framer.PendingSize());
    const std::vector<std::string> tail = framer.Feed("\r\nOK\r\n");
    ASSERT_EQ(2u, tail.size());
    EXPECT_EQ(max / 2, tail[0].size());
    EXPECT_EQ("OK", tail[1]);

    // A megabyte of garbage without a line end never makes the partial line
    // hold more than the maximum.
    std::string garbage(1000, '\0');
    for (std::size_t i = 0; i < garbage.size(); ++i) {
        const char c = static_cast<char>((i * 37 + 11) % 256);
        garbage[i] = (c == '\r' || c == '\n') ? 'z' : c;
    }
    std::size_t delivered = 0;
    for (int round = 0; round < 1000; ++round) {
        for (const std::string& line : framer.Feed(garbage)) {
            EXPECT_EQ(max, line.size());
            delivered += line.size();
        }
        ASSERT_LT(framer.PendingSize(), max);
    }
    EXPECT_EQ(1000u * garbage.size(), delivered + framer.PendingSize());

    framer.Reset();
    EXPECT_EQ(0u, framer.PendingSize());
    EXPECT_EQ(std::vector<std::string>{"OK"}, framer.Feed("OK\r\n"));
}

// ---- fields ----------------------------------------------------------------

TEST(AtFramingTest, FieldsOfUntidyText)
{
    struct Row {
        const char* where;
        std::string text;
        Fields fields;
    } rows[] = {
        {"nothing after the colon", "", {}},
        {"only blanks after the colon", " \t ", {}},
        {"one empty field each side of a comma", ",", {"", ""}},
        {"blanks around quotes go, the quotes too", " \"a\" , b ", {"a", "b"}},
        {"blanks inside quotes stay", "\" a \"", {" a "}},
        {"comma inside quotes", "\"a,b\",c", {"a,b", "c"}},
        {"empty quoted text", "\"\",1", {"", "1"}},
        {"two quoted texts in one field keep their quotes", "\"a\" \"b\",1", {"\"a\" \"b\"", "1"}},
        {"a lone quote", "\"", {"\""}},
        {"unterminated quote runs to the end", "1,\"CHINA,MOBILE", {"1", "\"CHINA,MOBILE"}},
        {"unterminated group runs to the end", "(1,\"x\",2", {"(1,\"x\",2"}},
        {"stray closing bracket is a character", "a),b", {"a)", "b"}},
        {"bracket inside quotes inside a group", "(\"a)b\",1),2", {"(\"a)b\",1)", "2"}},
        {"nested groups stay whole", "((1,2),(3,4)),5", {"((1,2),(3,4))", "5"}},
        {"quoted text inside a group keeps its quotes", "(\"46000\")", {"(\"46000\")"}},
        {"tab as a blank", "\t1\t,\t2", {"1", "2"}},
        {"binary bytes pass through", std::string("\xff\x00,\x01", 4),
         {std::string("\xff\x00", 2), "\x01"}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(row.fields, host::SplitAtFields(row.text)) << row.where;
    }
}

// Every real answer: framed, classified as the answer (or report) of its
// command, and split into the fields a person reads.
TEST(AtFramingTest, RealModemAnswersSplitIntoTheirFields)
{
    const std::vector<ModemAnswer> answers = LoadModemAnswers();
    ASSERT_FALSE(answers.empty());
    const std::map<std::string, Fields>& expected = ExpectedFields();
    for (const ModemAnswer& answer : answers) {
        SCOPED_TRACE(answer.id + ": " + answer.raw);
        const auto want = expected.find(answer.id);
        ASSERT_NE(expected.end(), want) << "no expected fields for this answer";

        if (answer.kind == "field") {
            // Only the data field of a "+CRSM" answer was kept.
            EXPECT_EQ(want->second, host::SplitAtFields(answer.raw));
            continue;
        }
        const std::string name = CommandName(answer.command);
        host::RunningCommand running;
        running.name = name;
        running.bRawData = name == "+CIMI";
        const host::NameSet subscribed = {name};
        const bool bReport = answer.kind == "urc";

        int answerLines = 0;
        for (const std::string& line : FeedWhole(answer.raw + "\r\n")) {
            const host::LineClass cls =
                host::ClassifyLine(line, bReport ? nullptr : &running, subscribed);
            if (cls.kind == LineKind::FinalOk) {
                continue;
            }
            ++answerLines;
            EXPECT_EQ(bReport ? LineKind::Report : LineKind::Information, cls.kind) << line;
            EXPECT_EQ(name, cls.name);
            EXPECT_EQ(want->second, host::InfoFields(cls.text, running.bRawData));
        }
        EXPECT_EQ(1, answerLines);
    }
    EXPECT_EQ(expected.size(), answers.size()) << "an expected row names no answer of the file";
}

// ---- formatting ------------------------------------------------------------

TEST(AtFramingTest, CommandLinesOfEachForm)
{
    ReadNetworkCfgCmd readCfg;
    EXPECT_EQ("AT^SYSCFG?", host::FormatCommandLine(readCfg));
    NetworkTestCmd search;
    EXPECT_EQ("AT+COPS=?", host::FormatCommandLine(search));
    SystemInfoCmd sysinfo;
    EXPECT_EQ("AT^SYSINFO", host::FormatCommandLine(sysinfo));
    ReadImsiCmd imsi;
    EXPECT_EQ("AT+CIMI", host::FormatCommandLine(imsi));

    ReadLastErrCmd lastErr;
    lastErr.type = 1;
    EXPECT_EQ("AT^GLASTERR=1", host::FormatCommandLine(lastErr));

    NetworkInfoQueryCmd select;
    select.NetMode = 1;
    select.Format = 2;
    select.ProviderName = "\"46000\"";
    EXPECT_EQ("AT+COPS=1,2,\"46000\"", host::FormatCommandLine(select));

    // An empty parameter in the middle is an empty field.
    NetworkInfoQueryCmd gap;
    gap.NetMode = 1;
    gap.ProviderName = "\"46000\"";
    gap.rat = 7;
    EXPECT_EQ("AT+COPS=1,,\"46000\",7", host::FormatCommandLine(gap));

    // Trailing empty parameters are dropped.
    NetworkInfoQueryCmd automatic;
    automatic.NetMode = 0;
    EXPECT_EQ("AT+COPS=0", host::FormatCommandLine(automatic));

    SetNetworkCfgCmd cfg;
    cfg.SysModePref = 2;
    cfg.AcqOrder = 0;
    cfg.Band = 0x3FFFFFFFull;
    cfg.Roam = 1;
    cfg.Domain = 2;
    EXPECT_EQ("AT^SYSCFG=2,0,3fffffff,1,2", host::FormatCommandLine(cfg));

    SetCpolCmd cpol;
    cpol.index = "1";
    cpol.oper = "\"24412\"";
    EXPECT_EQ("AT+CPOL=1,,\"24412\"", host::FormatCommandLine(cpol));
}

TEST(AtFramingTest, CommandsThatCannotBeSentGiveNoLine)
{
    // A CR inside a field would end the command there and run the rest as a
    // second command; ESC and Ctrl-Z end text prompts.
    for (const char* bad : {"\"46\r000\"", "\"46\n000\"", "\"46\x1a\"", "\"46\x1b\""}) {
        NetworkInfoQueryCmd select;
        select.NetMode = 1;
        select.Format = 2;
        select.ProviderName = bad;
        EXPECT_EQ("", host::FormatCommandLine(select)) << bad;
    }
    // All parameters empty: the set form without fields.
    SetCpolCmd empty;
    EXPECT_EQ("AT+CPOL=", host::FormatCommandLine(empty));
}

// ---- classifier ------------------------------------------------------------

TEST(AtFramingTest, LinesAreClassifiedAgainstTheRunningCommand)
{
    host::RunningCommand sysinfo;
    sysinfo.name = "^SYSINFO";
    host::RunningCommand imsi;
    imsi.name = "+CIMI";
    imsi.bRawData = true;
    host::RunningCommand creg;
    creg.name = "+CREG";
    const host::NameSet none;
    const host::NameSet reports = {"^RSSI", "+CREG", "^SIMREFRESH", "^MODE"};

    struct Row {
        const char* where;
        std::string line;
        const host::RunningCommand* pRunning;
        const host::NameSet* pSubscribed;
        LineKind kind;
        unsigned long code;
        const char* name;
        const char* text;
    } rows[] = {
        {"OK", "OK", &sysinfo, &none, LineKind::FinalOk, 0, "", ""},
        {"OK with blanks", " OK ", &sysinfo, &none, LineKind::FinalOk, 0, "", ""},
        {"OK with nothing running", "OK", nullptr, &none, LineKind::FinalOk, 0, "", ""},
        {"not OK", "OKAY", &sysinfo, &none, LineKind::Other, 0, "", ""},
        {"bare ERROR is unknown", "ERROR", &sysinfo, &none, LineKind::FinalError, 100, "", ""},
        {"numeric CME", "+CME ERROR: 30", &sysinfo, &none, LineKind::FinalError, 30, "", ""},
        {"numeric CME, no blank", "+CME ERROR:10", &sysinfo, &none, LineKind::FinalError, 10, "", ""},
        {"CME zero", "+CME ERROR: 0", &sysinfo, &none, LineKind::FinalError, 0, "", ""},
        {"verbose CME", "+CME ERROR: SIM not inserted", &sysinfo, &none, LineKind::FinalError, 10,
         "", ""},
        {"verbose CME, other case", "+CME ERROR: sim PIN REQUIRED", &sysinfo, &none,
         LineKind::FinalError, 11, "", ""},
        {"verbose CME, quoted", "+CME ERROR: \"SIM failure\"", &sysinfo, &none,
         LineKind::FinalError, 13, "", ""},
        {"verbose CME, unknown text", "+CME ERROR: the moon is full", &sysinfo, &none,
         LineKind::FinalError, 100, "", ""},
        {"CME without a code", "+CME ERROR:", &sysinfo, &none, LineKind::FinalError, 100, "", ""},
        {"CME number in the processor's range", "+CME ERROR: 20001", &sysinfo, &none,
         LineKind::FinalError, 100, "", ""},
        {"CME number too long", "+CME ERROR: 123456789012345678901", &sysinfo, &none,
         LineKind::FinalError, 100, "", ""},
        {"numeric CMS", "+CMS ERROR: 500", &sysinfo, &none, LineKind::FinalError, 500, "", ""},
        {"older cards lacking a command", "COMMAND NOT SUPPORT", &sysinfo, &none,
         LineKind::FinalError, 4, "", ""},
        {"too many parameters", "TOO MANY PARAMETERS", &sysinfo, &none, LineKind::FinalError, 4,
         "", ""},
        {"answer line", "^SYSINFO:2,4,5,3,1", &sysinfo, &none, LineKind::Information, 0,
         "^SYSINFO", "2,4,5,3,1"},
        {"answer line with blanks", "^SYSINFO:  2,4 ", &sysinfo, &none, LineKind::Information, 0,
         "^SYSINFO", "2,4"},
        {"longer name is another command", "^SYSINFOEX:2,4", &sysinfo, &none, LineKind::Other, 0,
         "", ""},
        {"report while a command runs", "^RSSI: 17", &sysinfo, &reports, LineKind::Report, 0,
         "^RSSI", "17"},
        {"report nobody subscribed", "^RSSI: 17", &sysinfo, &none, LineKind::Other, 0, "", ""},
        {"running command's line wins over a subscription", "+CREG: 1,\"CE00\"", &creg, &reports,
         LineKind::Information, 0, "+CREG", "1,\"CE00\""},
        {"report without a colon", "^SIMREFRESH", nullptr, &reports, LineKind::Report, 0,
         "^SIMREFRESH", ""},
        {"raw answer", "998899889988997", &imsi, &none, LineKind::Information, 0, "+CIMI",
         "998899889988997"},
        {"raw answer's echo", "AT+CIMI", &imsi, &none, LineKind::Other, 0, "", ""},
        {"report during a raw answer", "^RSSI: 17", &imsi, &reports, LineKind::Report, 0, "^RSSI",
         "17"},
        {"unsubscribed report during a raw answer", "+CGREG: 1", &imsi, &reports, LineKind::Other,
         0, "", ""},
        {"raw-looking line with nothing running", "998899889988997", nullptr, &reports,
         LineKind::Other, 0, "", ""},
        {"garbage", std::string("\x01\xff\x00:\x7f", 5), &sysinfo, &reports, LineKind::Other, 0,
         "", ""},
    };
    for (const Row& row : rows) {
        const host::LineClass cls = host::ClassifyLine(row.line, row.pRunning, *row.pSubscribed);
        EXPECT_EQ(row.kind, cls.kind) << row.where;
        EXPECT_EQ(row.code, cls.errorCode) << row.where;
        EXPECT_EQ(row.name, cls.name) << row.where;
        EXPECT_EQ(row.text, cls.text) << row.where;
    }
}

TEST(AtFramingTest, EveryKnownVerboseErrorMapsToItsNumber)
{
    const std::vector<host::CmeErrorText>& texts = host::KnownCmeErrorTexts();
    ASSERT_FALSE(texts.empty());
    const std::map<std::string, unsigned long> spotChecks = {
        {"phone failure", 0},    {"operation not supported", 4}, {"SIM not inserted", 10},
        {"SIM PIN required", 11}, {"SIM failure", 13},            {"no network service", 30},
        {"network timeout", 31}, {"incorrect parameters", 50},   {"unknown", 100},
    };
    std::size_t spotted = 0;
    for (const host::CmeErrorText& row : texts) {
        EXPECT_EQ(row.code, host::CmeErrorCode(row.text)) << row.text;
        std::string upper(row.text);
        for (char& c : upper) {
            c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        }
        const host::LineClass cls =
            host::ClassifyLine("+CME ERROR: " + upper, nullptr, host::NameSet());
        EXPECT_EQ(LineKind::FinalError, cls.kind) << upper;
        EXPECT_EQ(row.code, cls.errorCode) << upper;
        const auto spot = spotChecks.find(row.text);
        if (spot != spotChecks.end()) {
            EXPECT_EQ(spot->second, row.code) << row.text;
            ++spotted;
        }
    }
    EXPECT_EQ(spotChecks.size(), spotted);
    // Every number a modem may print comes through as it is.
    for (unsigned long n = 0; n <= 9999; ++n) {
        ASSERT_EQ(n, host::CmeErrorCode(std::to_string(n)));
    }
}

// ---- filling ---------------------------------------------------------------

TEST(AtFramingTest, AnswerFieldsFillTheResponseByPosition)
{
    // The "LTE" of ^HCSQ arrives quoted and is compared as bare text.
    ReadHcsqRsp hcsq;
    host::FillResponse(hcsq, host::InfoFields("\"LTE\",30,19,66,0", false));
    EXPECT_EQ("LTE", hcsq.sysmode.ToString());
    EXPECT_EQ(30u, hcsq.value1.GetNumValue());
    EXPECT_EQ(0u, hcsq.value4.GetNumValue());
    EXPECT_FALSE(hcsq.value4.IsEmpty());
    EXPECT_TRUE(hcsq.value5.IsEmpty());

    // An odd-length BINARY field stops the filling there.
    CrsmSPNRsp spn;
    host::FillResponse(spn, host::InfoFields("144, 0, 0054485", false));
    EXPECT_EQ(144u, spn.sw1.GetNumValue());
    EXPECT_TRUE(spn.data.IsEmpty());

    // A raw answer is one field, even with a comma in it.
    EXPECT_EQ(Fields{"998899889988997"}, host::InfoFields(" \"998899889988997\" ", true));
    EXPECT_EQ(Fields{"1,2"}, host::InfoFields("1,2", true));
    EXPECT_EQ(Fields{}, host::InfoFields("  ", true));

    // Surplus fields are ignored.
    ReadRssiCSQRsp csq;
    host::FillResponse(csq, Fields{"17", "99", "5"});
    EXPECT_EQ(17u, csq.RssiValue.GetNumValue());
    EXPECT_EQ(99u, csq.Ber.GetNumValue());
}

}  // namespace
