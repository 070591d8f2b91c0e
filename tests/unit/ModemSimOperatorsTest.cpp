// The simulated modem's operators and SIM: +COPS search, read and selection,
// +CIMI and +CRSM, +CPLS and +CPOL, as the shipped profiles answer them; a
// search that fails; and the profile reader's refusal of operator fields that
// do not fit together.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "ModemEngine.h"
#include "ModemSimKit.h"
#include "ModemSimulator.h"
#include "StatePatch.h"

namespace {

using modemsim::Profile;

using testkit::Framed;
using testkit::Shipped;

struct ExchangeRow {
    const char* profile;
    const char* before;                  // a line run first on the fresh state, or ""
    const char* line;
    std::vector<std::string> answer;     // its lines, final result included
};

TEST(ModemSimOperatorsTest, AnswersAndChangesOfState)
{
    const ExchangeRow rows[] = {
        // The search: the registered operator is the current one; a name
        // with a comma stays whole inside its quotes.
        {"lte", "", "AT+COPS=?",
         {"+COPS: (2,\"CHINA MOBILE\",\"CMCC\",\"46000\",7),(1,\"CHINA UNICOM, BEIJING\","
          "\"UNICOM\",\"46001\",2),(3,\"CHINA TELECOM\",\"CTCC\",\"46011\",7),,(0,1,2,3,4),(0,1,2)",
          "OK"}},
        {"lte", "", "AT+COPS?", {"+COPS: 0,0,\"CHINA MOBILE\",7", "OK"}},
        {"lte", "", "AT+COPS=3,1;+COPS?", {"+COPS: 0,1,\"CMCC\",7", "OK"}},
        {"lte", "", "AT+COPS=3,2;+COPS?", {"+COPS: 0,2,\"46000\",7", "OK"}},
        // Manual selection by name: the operator, roaming, the UTRAN mode and
        // the domains follow; the search shows the new current operator.
        {"lte", "AT+COPS=1,0,\"CHINA UNICOM, BEIJING\"",
         "AT+COPS?;+CREG?;+CEREG?;^SYSINFOEX;^SYSINFO",
         {"+COPS: 1,0,\"CHINA UNICOM, BEIJING\",2", "+CREG: 2,5,\"CE00\",\"01CEAD8F\"",
          "+CEREG: 2,0", "^SYSINFOEX: 2,3,1,1,0,3,\"WCDMA\",41,\"WCDMA\"", "^SYSINFO:2,3,1,5,1",
          "OK"}},
        {"lte", "AT+COPS=1,2,\"46001\",2", "AT+COPS=?",
         {"+COPS: (1,\"CHINA MOBILE\",\"CMCC\",\"46000\",7),(2,\"CHINA UNICOM, BEIJING\","
          "\"UNICOM\",\"46001\",2),(3,\"CHINA TELECOM\",\"CTCC\",\"46011\",7),,(0,1,2,3,4),(0,1,2)",
          "OK"}},
        // Back to automatic: the home network and its LTE mode again (in the
        // format the manual selection named its operator in).
        {"lte", "AT+COPS=1,2,\"46001\"", "AT+COPS=0;+COPS?;^SYSINFOEX;+CEREG?",
         {"+COPS: 0,2,\"46000\",7", "^SYSINFOEX: 2,3,0,1,0,6,\"LTE\",101,\"LTE\"",
          "+CEREG: 2,1,\"CE00\",\"01CEAD8F\",7", "OK"}},
        {"wcdma", "AT+COPS=1,2,\"310410\",0", "AT+COPS?;^SYSINFO;+CGREG?",
         {"+COPS: 1,2,\"310410\",0", "^SYSINFO:2,3,1,3,1,,1", "+CGREG: 2,5,\"84CD\",\"00D30156\"",
          "OK"}},
        {"lte", "", "AT+COPS=2;+COPS?;+CREG?", {"+COPS: 2", "+CREG: 2,0", "OK"}},
        // Refusals, in each +CMEE mode, leave the registration as it was.
        {"lte", "", "AT+CMEE=1;+COPS=1,2,\"46011\"", {"+CME ERROR: 32"}},
        {"lte", "", "AT+CMEE=2;+COPS=1,2,\"46011\"",
         {"+CME ERROR: network not allowed - emergency calls only"}},
        {"lte", "", "AT+COPS=1,2,\"46011\"", {"ERROR"}},
        {"lte", "", "AT+CMEE=1;+COPS=1,2,\"46099\"", {"+CME ERROR: 30"}},
        {"lte", "", "AT+CMEE=1;+COPS=1,2,\"46001\",7", {"+CME ERROR: 30"}},
        {"lte", "AT+COPS=1,2,\"46011\"", "AT+COPS?", {"+COPS: 0,0,\"CHINA MOBILE\",7", "OK"}},
        {"lte", "AT+COPS=1,2,\"46099\"", "AT+COPS=3,2;+COPS?", {"+COPS: 0,2,\"46000\",7", "OK"}},
        {"lte", "", "AT+CMEE=1;+COPS=1,2,\"4600A\"", {"+CME ERROR: 50"}},
        {"lte", "", "AT+CMEE=2;+COPS=1,2", {"+CME ERROR: Incorrect parameters"}},
        {"lte", "", "AT+COPS=1,2,\"46001\",2,0", {"ERROR"}},
        {"lte", "", "AT+CMEE=1;+COPS=3", {"+CME ERROR: 50"}},
        // The SIM: the IMSI bare; EF_AD's MNC length from the home network's.
        {"lte", "", "AT+CIMI", {"460001357924680", "OK"}},
        {"lte", "", "AT+CRSM=176,28589,0,0,5", {"+CRSM: 144,0,\"00000002\"", "OK"}},
        {"wcdma", "", "AT+CRSM=176,28589,0,0,5", {"+CRSM: 144,0,\"00000003\"", "OK"}},
        {"lte", "", "AT+CRSM=176,28589,0,3,2", {"+CRSM: 144,0,\"02\"", "OK"}},
        {"lte", "", "AT+CRSM=176,28589,0,4,1", {"+CRSM: 107,0,\"\"", "OK"}},
        {"lte", "", "AT+CRSM=176,1,0,0,1", {"+CRSM: 106,130,\"\"", "OK"}},
        {"cdma", "", "AT+CRSM=176,28589,0,0,5", {"+CRSM: 106,130,\"\"", "OK"}},
        {"lte", "", "AT+CRSM=178,28480,1,4,15", {"+CRSM: 109,0,\"\"", "OK"}},
        {"lte", "", "AT+CMEE=1;+CRSM=176,28589", {"+CME ERROR: 50"}},
        // The preferred lists: written, deleted, read in the chosen format.
        {"lte", "AT+CPOL=3,2,\"46001\",0,0,1;+CPOL=1", "AT+CPOL?",
         {"+CPOL: 2,2,\"46002\",1,0,1", "+CPOL: 3,2,\"46001\",0,0,1", "OK"}},
        {"lte", "AT+CPOL=,1,\"UNICOM\"", "AT+CPOL?",
         {"+CPOL: 1,1,\"CMCC\",1,0,1", "+CPOL: 2,2,\"46002\",1,0,1",
          "+CPOL: 3,1,\"UNICOM\",1,0,1", "OK"}},
        {"lte", "AT+CPLS=1", "AT+CPLS?;+CPOL?", {"+CPLS: 1", "+CPOL: 1,2,\"46007\",1,0,1", "OK"}},
        {"tdscdma", "", "AT+CPLS=2;+CPOL?", {"OK"}},
        {"lte", "", "AT+CMEE=1;+CPLS=3", {"+CME ERROR: 50"}},
        {"lte", "", "AT+CMEE=1;+CPLS=1;+CPOL=2,2,\"46001\"", {"+CME ERROR: 3"}},
        {"lte", "", "AT+CMEE=1;+CPOL=9,2,\"46001\"", {"+CME ERROR: 21"}},
        {"lte", "", "AT+CMEE=1;+CPOL=1,2,\"46001\",1", {"+CME ERROR: 50"}},
        {"lte",
         "AT+CPOL=,2,\"46003\";+CPOL=,2,\"46003\";+CPOL=,2,\"46003\";+CPOL=,2,\"46003\";"
         "+CPOL=,2,\"46003\";+CPOL=,2,\"46003\"",
         "AT+CMEE=1;+CPOL=,2,\"46003\"", {"+CME ERROR: 20"}},
        // A CDMA modem has no 3GPP operator commands; its R-UIM has an IMSI.
        {"cdma", "", "AT+COPS?", {"COMMAND NOT SUPPORT"}},
        {"cdma", "", "AT+CIMI", {"460030912121001", "OK"}},
    };
    for (const ExchangeRow& row : rows) {
        SCOPED_TRACE(std::string(row.profile) + ": " + row.before + " | " + row.line);
        const Profile profile = Shipped(row.profile);
        modemsim::ModemState state = profile.initial;
        if (*row.before != '\0') {
            modemsim::AnswerCommandLine(profile, state, row.before);
        }
        EXPECT_EQ(modemsim::AnswerCommandLine(profile, state, row.line).text, Framed(row.answer));
    }
}

TEST(ModemSimOperatorsTest, FailingSearchesAnswerAfterTheSearchDelay)
{
    const Profile profile = Shipped("lte");
    modemsim::ModemState state = profile.initial;
    std::string error;
    // Set in two patches: the second is read back from the state the first left.
    ASSERT_TRUE(modemsim::ApplyStatePatch(
        &state, R"({"cmee": 1, "network": {"scan": {"failure": "error"}}})", "p", &error))
        << error;
    EXPECT_EQ(modemsim::AnswerCommandLine(profile, state, "AT+COPS=?").text, Framed({"ERROR"}));
    ASSERT_TRUE(modemsim::ApplyStatePatch(&state, R"({"network": {"scan": {"cme_error": 30}}})",
                                          "p", &error))
        << error;
    modemsim::Answer answer = modemsim::AnswerCommandLine(profile, state, "AT+COPS=?");
    EXPECT_EQ(answer.text, Framed({"+CME ERROR: 30"}));
    EXPECT_EQ(answer.delayMs, 2500u);

    // A search that never ends: the lines before it answer, then nothing.
    state.network.scan.failure = modemsim::ScanFailure::NoAnswer;
    state.network.scan.cmeError.reset();
    answer = modemsim::AnswerCommandLine(profile, state, "AT+CSQ;+COPS=?");
    EXPECT_EQ(answer.text, Framed({"+CSQ: 22,99"}));
    EXPECT_EQ(answer.delayMs, 2500u);

    // Without a card the SIM's commands say so.
    state.sim.state = 255;
    EXPECT_EQ(modemsim::AnswerCommandLine(profile, state, "AT+CIMI").text,
              Framed({"+CME ERROR: 10"}));
}

TEST(ModemSimOperatorsTest, OperatorFieldsThatDoNotFitAreRefused)
{
    const struct {
        const char* pointer;
        const char* value;
        const char* expected;
    } rows[] = {
        {"/network/operators/1/plmn", "\"4600\"",
         "network.operators[1].plmn: invalid value \"4600\": expected 5 or 6 digits"},
        {"/network/operators/1/act", "14",
         "network.operators[1].act: out of range: 14 is not within 0..13"},
        {"/network/registered", "{\"plmn\": \"46001\", \"act\": 7}",
         "network.registered: 46001 (act 7) is not an entry of operators"},
        {"/network/registered", "{\"plmn\": \"46011\", \"act\": 7}",
         "network.registered: 46011 (act 7) is forbidden (status 3) in operators"},
        {"/sim/home_plmn", "\"46001\"",
         "sim.home_plmn: \"46001\" does not begin imsi \"460001357924680\""},
        {"/sim/ef_ad", "\"00000003\"",
         "sim.ef_ad: \"00000003\" does not say an MNC length of 2 (the low digit of its fourth "
         "byte), as home_plmn has"},
        {"/network/preferred/user/entries/1/index", "1",
         "network.preferred.user.entries[1].index: 1 does not come after 1 (entries go in "
         "rising index order)"},
        {"/network/preferred/hplmn/capacity", "0",
         "network.preferred.hplmn.capacity: out of range: 0 is not within 1..256"},
        {"/network/preferred/operator/entries/0/index", "5",
         "network.preferred.operator.entries[0].index: 5 is beyond the capacity 4"},
        {"/network/scan", "{\"cme_error\": 30}",
         "network.scan.cme_error: only with the failure \"error\""},
        {"/network/scan", "{\"failure\": \"timeout\"}",
         "network.scan.failure: invalid value \"timeout\": expected one of error, no_answer"},
        {"/timeline/0",
         "{\"at_ms\": 5, \"set\": {\"network\": {\"registered\": {\"plmn\": \"46099\"}}}}",
         "timeline[0].set.network.registered: 46099 (act 7) is not an entry of operators"},
    };
    std::string text;
    ASSERT_TRUE(modemsim::BuiltInProfileText("lte", &text));
    for (const auto& row : rows) {
        SCOPED_TRACE(row.pointer);
        nlohmann::json document = nlohmann::json::parse(text);
        document[nlohmann::json::json_pointer(row.pointer)] = nlohmann::json::parse(row.value);
        Profile profile;
        std::string error;
        EXPECT_FALSE(modemsim::ParseProfile(document.dump(), "lte.json", &profile, &error));
        EXPECT_EQ(error, std::string("lte.json: ") + row.expected);
    }
}

}  // namespace
