// The simulator's network configuration commands (^SYSCFG, ^SYSCFGEX,
// ^SYSCONFIG): test forms as real modems print them, sets that change what
// reads show, "no change" codes, refusals that change nothing, and the
// profile reader's refusal of a configuration that does not hang together.
#include <gtest/gtest.h>

#include <string>

#include <nlohmann/json.hpp>

#include "ModemAnswers.h"
#include "ModemEngine.h"
#include "ModemSimulator.h"
#include "StatePatch.h"

namespace {

using modemsim::Profile;
using nlohmann::json;

Profile BuiltIn(const std::string& name)
{
    Profile profile;
    std::string error;
    EXPECT_TRUE(modemsim::LoadProfile(name, &profile, &error)) << error;
    return profile;
}

// The framed answer to a line whose result is OK after one information line.
std::string Ok(const std::string& info)
{
    return "\r\n" + info + "\r\n\r\nOK\r\n";
}

// A fixture's answer line, framed as the simulator frames it.
std::string OkFixture(const char* id)
{
    std::string raw = testkit::ModemAnswerById(testkit::LoadModemAnswers(), id).raw;
    raw.erase(raw.find_last_not_of("\r\n") + 1);
    return Ok(raw);
}

const std::string kRefused = "\r\nERROR\r\n";
const std::string kNotSupported = "\r\nCOMMAND NOT SUPPORT\r\n";

TEST(ModemSimConfigTest, ReadsSetsAndTestFormsPerProfile)
{
    const struct {
        const char* profile;
        const char* line;
        std::string answer;
    } rows[] = {
        // Test forms, generated from the profile's offer.
        {"lte", "AT^SYSCFG=?", OkFixture("syscfg-1")},
        {"lte", "AT^SYSCFGEX=?", OkFixture("syscfgex-1")},
        {"wcdma", "AT^SYSCFG=?",
         Ok("^SYSCFG:(2,13,14,16),(0-3),((2000000400380,\"GSM900/GSM1800/WCDMA900/WCDMA2100\"),"
            "(280000,\"GSM850/GSM1900\"),(3fffffff,\"All bands\")),(0-2),(0-4)")},
        {"tdscdma", "AT^SYSCONFIG=?", Ok("^SYSCONFIG: (2,13,15),(0-2),(0-2),(0-3)")},
        {"wcdma", "AT^SYSCFGEX=?", kNotSupported},
        {"wcdma", "AT^SYSCFGEX=\"00\",3FFFFFFF,1,2,,,", kNotSupported},
        {"tdscdma", "AT^SYSCFG=2,0,3FFFFFFF,1,2", kNotSupported},
        {"lte", "AT^SYSCONFIG=2,0,1,2", kNotSupported},
        // Set then read; a mask within an offered one is taken as sent.
        {"lte", "AT^SYSCFG=14,0,380,0,1;^SYSCFG?", Ok("^SYSCFG: 14,0,380,0,1")},
        {"wcdma", "AT^SYSCFG=13,1,3fffffff,1,2;^SYSCFG?", Ok("^SYSCFG: 13,1,3fffffff,1,2")},
        {"lte", "AT^SYSCFGEX=\"0302\",3FFFFFFF,0,1,800C5,,;^SYSCFGEX?",
         Ok("^SYSCFGEX: \"0302\",3FFFFFFF,0,1,800C5")},
        {"lte", "AT^SYSCFGEX=\"01\",280000,1,3,,\"\",\"\";^SYSCFGEX?",
         Ok("^SYSCFGEX: \"01\",280000,1,3,7FFFFFFFFFFFFFFF")},
        {"lte", "AT^SYSCFGEX=\"00\",3FFFFFFF,1,2;^SYSCFGEX?",
         Ok("^SYSCFGEX: \"00\",3FFFFFFF,1,2,7FFFFFFFFFFFFFFF")},
        {"tdscdma", "AT^SYSCONFIG=15,2,0,3;^SYSCONFIG?", Ok("^SYSCONFIG: 15,2,0,3")},
        // "No change" codes leave each setting as it is.
        {"lte", "AT^SYSCFG=16,3,40000000,2,4;^SYSCFG?", Ok("^SYSCFG: 2,0,3FFFFFFF,1,2")},
        {"lte", "AT^SYSCFGEX=\"99\",40000000,2,4,40000000,,;^SYSCFGEX?",
         Ok("^SYSCFGEX: \"00\",3FFFFFFF,1,2,7FFFFFFFFFFFFFFF")},
        {"lte", "AT^SYSCFGEX=\"99\",40000000,3,4,,,;^SYSCFGEX?",
         Ok("^SYSCFGEX: \"00\",3FFFFFFF,1,2,7FFFFFFFFFFFFFFF")},
        {"tdscdma", "AT^SYSCONFIG=16,3,2,4;^SYSCONFIG?", Ok("^SYSCONFIG: 2,0,1,2")},
        // Refusals, in the form +CMEE asks for.
        {"lte", "AT+CMEE=1;^SYSCFG=14,0,80000000,1,2", "\r\n+CME ERROR: 50\r\n"},
        {"lte", "AT+CMEE=2;^SYSCFG=1,0,3FFFFFFF,1,2", "\r\n+CME ERROR: Incorrect parameters\r\n"},
        {"lte", "AT^SYSCFG=2,2,3FFFFFFF,1,2", kRefused},   // order not offered on this card
        {"lte", "AT^SYSCFG=2,0,0,1,2", kRefused},
        {"lte", "AT^SYSCFG=2,0,3FFFFFFF,1", kRefused},
        {"lte", "AT^SYSCFG=2,0,3FFFFFFF,1,2,0", kRefused},
        {"lte", "AT^SYSCFG=2,x,3FFFFFFF,1,2", kRefused},
        {"lte", "AT^SYSCFG=2,0,3FFFFFFFG,1,2", kRefused},
        {"lte", "AT^SYSCFG=2,0,,1,2", kRefused},
        {"lte", "AT^SYSCFGEX=00,3FFFFFFF,1,2,,,", kRefused},
        {"lte", "AT^SYSCFGEX=\"04\",3FFFFFFF,1,2,,,", kRefused},
        {"lte", "AT^SYSCFGEX=\"0303\",3FFFFFFF,1,2,,,", kRefused},
        {"lte", "AT^SYSCFGEX=\"0399\",3FFFFFFF,1,2,,,", kRefused},
        {"lte", "AT^SYSCFGEX=\"00\",3FFFFFFF,1,2,8000000000000000,,", kRefused},
        {"lte", "AT^SYSCFGEX=\"00\",3FFFFFFF,4,2,,,", kRefused},
        {"lte", "AT^SYSCFGEX=\"00\",3FFFFFFF,1,2,,\"x\",", kRefused},
        {"lte", "AT^SYSCFGEX=\"00\",3FFFFFFF,1", kRefused},
        {"lte", "AT^SYSCFGEX=\"00\",3FFFFFFF,1,2,,,,", kRefused},
        {"lte", "AT^SYSCFGEX=", kRefused},
        {"tdscdma", "AT^SYSCONFIG=14,0,1,2", kRefused},
        {"tdscdma", "AT^SYSCONFIG=2,0,1,-1", kRefused},
        {"tdscdma", "AT^SYSCONFIG=2,0,1", kRefused},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.profile) + " " + row.line);
        const Profile profile = BuiltIn(row.profile);
        modemsim::ModemState state = profile.initial;
        EXPECT_EQ(modemsim::AnswerCommandLine(profile, state, row.line).text, row.answer);
        // A set that fails changes nothing.
        if (row.answer.find("\r\nOK\r\n") == std::string::npos) {
            EXPECT_EQ(modemsim::StateToJson(state)["configuration"],
                      modemsim::StateToJson(profile.initial)["configuration"]);
        }
    }
}

TEST(ModemSimConfigTest, ProfileReaderRefusesAConfigurationThatDoesNotHangTogether)
{
    const struct {
        const char* profile;
        const char* pointer;   // under /configuration
        const char* value;
        const char* expected;  // after "t.json: configuration."
    } rows[] = {
        {"lte", "/syscfg/offered/bands/1/mask", "\"28000G\"",
         "syscfg.offered.bands[1].mask: invalid value \"28000G\": expected 1 to 16 hexadecimal "
         "digits"},
        {"lte", "/syscfg/mode", "14", nullptr},
        {"lte", "/syscfg/mode", "1", "syscfg.mode: not offered: 1 is not in offered.modes"},
        {"lte", "/syscfg/mode", "16", "syscfg.mode: not a setting: 16 is the no-change value"},
        {"lte", "/syscfg/band", "\"80000000\"",
         "syscfg.band: not offered: \"80000000\" has bits outside offered.bands"},
        {"lte", "/syscfgex/acq_order", "\"0302\"", nullptr},
        {"lte", "/syscfgex/acq_order", "\"0304\"",
         "syscfgex.acq_order: not offered: \"0304\" is not \"00\" or made of offered.acq_orders"},
        {"lte", "/syscfgex/lte_band", "\"\"", nullptr},
        {"lte", "/syscfgex/lte_band", "\"40000000\"",
         "syscfgex.lte_band: not a setting: \"40000000\" is the no-change value"},
        {"lte", "/syscfgex/offered/lte_bands", "[]",
         "syscfgex.lte_band: not offered: \"7FFFFFFFFFFFFFFF\" has bits outside "
         "offered.lte_bands"},
        {"lte", "/syscfgex/test", "\"(0)\"", "syscfgex.test: unknown field"},
        {"tdscdma", "/sysconfig/roam", "3", "sysconfig.roam: not offered: 3 is not in offered.roams"},
        {"tdscdma", "/sysconfig/offered/domains", "[0, 1]",
         "sysconfig.domain: not offered: 2 is not in offered.domains"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.profile) + " " + row.pointer);
        std::string text;
        ASSERT_TRUE(modemsim::BuiltInProfileText(row.profile, &text));
        json document = json::parse(text);
        document[json::json_pointer(std::string("/configuration") + row.pointer)] =
            json::parse(row.value);
        Profile profile;
        std::string error;
        EXPECT_EQ(modemsim::ParseProfile(document.dump(), "t.json", &profile, &error),
                  row.expected == nullptr);
        EXPECT_EQ(error, row.expected == nullptr ? "" : std::string("t.json: configuration.") +
                                                            row.expected);
    }

    // A timeline change is held to the same rule as the profile.
    modemsim::ModemState state = BuiltIn("lte").initial;
    std::string error;
    EXPECT_FALSE(modemsim::ApplyStatePatch(
        &state, R"({"configuration": {"syscfg": {"roam": 7}}})", "p", &error));
    EXPECT_EQ(error, "p.configuration.syscfg.roam: not offered: 7 is not in offered.roams");
}

}  // namespace
