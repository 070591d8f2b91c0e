// Simulator profiles: the shipped ones parse and say what their modems are;
// every kind of fault in a profile is rejected with one line that names the
// file, the field and the problem; junk never crashes the reader; the state
// survives its JSON round trip, which timeline patches depend on.
#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "ModemSimulator.h"
#include "StatePatch.h"
#include "TempDir.h"

namespace {

using nlohmann::json;
using modemsim::Profile;

std::string SourceDir()
{
    std::string file = __FILE__;
    return file.substr(0, file.rfind("/tests/unit/"));
}

Profile MustParse(const std::string& text, const std::string& source)
{
    Profile profile;
    std::string error;
    EXPECT_TRUE(modemsim::ParseProfile(text, source, &profile, &error)) << error;
    return profile;
}

// The smallest profile the reader accepts, with one of everything that the
// malformed rows below break.
json MinimalProfile()
{
    return json::parse(R"({
      "gcap": ["+CGSM", "+DS", "+ES"],
      "unsupported": ["^HCSQ", "^SYSINFOEX"],
      "delays": { "default_ms": 0, "commands": { "+COPS=?": 100 } },
      "sim": { "state": 1, "iccid": "89860012345678901230", "imsi": "460001357924680" },
      "network": {
        "service_status": 2, "service_domain": 3, "roaming": 0,
        "mode": { "sys_mode": 3, "sys_mode_name": "WCDMA", "sub_mode": 41,
                  "sub_mode_name": "WCDMA", "sysinfo_sys_mode": 5 },
        "operators": [
          { "status": 2, "long_name": "A", "plmn": "46000" },
          { "status": 1, "long_name": "B", "plmn": "46001" },
          { "status": 1, "long_name": "C", "plmn": "46002" }
        ]
      },
      "timeline": [ { "at_ms": 100, "send": "^RSSI:20" } ]
    })");
}

TEST(ModemSimProfileTest, ShippedProfilesParseAndDescribeTheirModems)
{
    ASSERT_EQ(modemsim::BuiltInProfileNames(),
              (std::vector<std::string>{"lte", "wcdma", "tdscdma", "cdma"}));
    std::string lteText;
    ASSERT_TRUE(modemsim::BuiltInProfileText("lte", &lteText));
    EXPECT_EQ(modemsim::DefaultProfileText(), lteText);
    EXPECT_FALSE(modemsim::BuiltInProfileText("gsm", &lteText));

    for (const std::string& name : modemsim::BuiltInProfileNames()) {
        SCOPED_TRACE(name);
        std::string text;
        ASSERT_TRUE(modemsim::BuiltInProfileText(name, &text));
        // The library carries the files exactly as shipped.
        std::ifstream file(SourceDir() + "/tools/modemsim/profiles/" + name + ".json");
        std::stringstream shipped;
        shipped << file.rdbuf();
        EXPECT_EQ(text, shipped.str());
        const Profile profile = MustParse(text, name + ".json");
        EXPECT_FALSE(profile.description.empty());
        EXPECT_FALSE(profile.timeline.empty());
    }

    const Profile lte = MustParse(lteText, "lte.json");
    EXPECT_EQ(lte.gcap, (std::vector<std::string>{"+CGSM", "+DS", "+ES"}));
    EXPECT_TRUE(lte.initial.configuration.syscfg && lte.initial.configuration.syscfgex);
    EXPECT_FALSE(lte.initial.configuration.sysconfig);
    EXPECT_EQ(lte.initial.network.mode.sysMode, 6);
    EXPECT_EQ(lte.delays.commands.at("+COPS=?"), 2500u);

    Profile wcdma;
    std::string error;
    ASSERT_TRUE(modemsim::LoadProfile("wcdma", &wcdma, &error)) << error;
    EXPECT_EQ(wcdma.source, "wcdma.json");
    EXPECT_EQ(wcdma.unsupported.count("^SYSINFOEX"), 1u);
    EXPECT_EQ(wcdma.unsupported.count("^HCSQ"), 1u);
    EXPECT_EQ(wcdma.initial.configuration.syscfg->band, "400000");

    Profile td;
    ASSERT_TRUE(modemsim::LoadProfile("tdscdma", &td, &error)) << error;
    EXPECT_TRUE(td.initial.configuration.sysconfig);
    EXPECT_FALSE(td.initial.configuration.syscfg || td.initial.configuration.syscfgex);

    Profile cdma;
    ASSERT_TRUE(modemsim::LoadProfile("cdma", &cdma, &error)) << error;
    EXPECT_EQ(cdma.gcap.front(), "+CIS707");
    ASSERT_TRUE(cdma.initial.cdma);
    EXPECT_EQ(cdma.initial.cdma->prefMode, 8);
}

struct MalformedRow {
    const char* what;
    const char* pointer;   // JSON pointer of the field to change
    const char* value;     // its new value as JSON; nullptr removes the field
    const char* expected;
};

TEST(ModemSimProfileTest, MalformedProfilesAreRejectedWithOneLineNamingFileFieldAndProblem)
{
    const MalformedRow rows[] = {
        {"missing", "/sim/imsi", nullptr, "t.json: sim.imsi: missing required field"},
        {"missing section", "/network", nullptr, "t.json: network: missing required field"},
        {"typo", "/network/servce_status", "2", "t.json: network.servce_status: unknown field"},
        {"unknown top-level", "/simcard", "{}", "t.json: simcard: unknown field"},
        {"string for number", "/network/roaming", "\"0\"",
         "t.json: network.roaming: wrong type: expected an integer, got a string"},
        {"fraction", "/sim/state", "1.5",
         "t.json: sim.state: wrong type: expected an integer, got a fractional number"},
        {"null", "/network/service_domain", "null",
         "t.json: network.service_domain: wrong type: expected an integer, got null"},
        {"above range", "/network/service_status", "5",
         "t.json: network.service_status: out of range: 5 is not within 0..4"},
        {"below range", "/network/mode/sys_mode", "-1",
         "t.json: network.mode.sys_mode: out of range: -1 is not within 0..255"},
        {"beyond 64 bits signed", "/network/roaming", "18446744073709551615",
         "t.json: network.roaming: out of range: 18446744073709551615 is not within 0..12"},
        {"array element", "/network/operators/2/plmn", "\"4600\"",
         "t.json: network.operators[2].plmn: invalid value \"4600\": expected 5 or 6 digits"},
        {"element not an object", "/network/operators/1", "7",
         "t.json: network.operators[1]: wrong type: expected an object, got an integer"},
        {"unknown field in element", "/network/operators/0/mcc", "\"460\"",
         "t.json: network.operators[0].mcc: unknown field"},
        {"object for list", "/gcap", "{}",
         "t.json: gcap: wrong type: expected an array, got an object"},
        {"too many", "/gcap",
         "[\"+A\",\"+B\",\"+C\",\"+D\",\"+E\",\"+F\",\"+G\",\"+H\",\"+I\",\"+J\",\"+K\",\"+L\","
         "\"+M\",\"+N\",\"+O\",\"+P\",\"+Q\"]",
         "t.json: gcap: too many entries: 17 (at most 16)"},
        {"capability", "/gcap/0", "\"CGSM\"",
         "t.json: gcap[0]: invalid value \"CGSM\": expected a capability name such as +CGSM"},
        {"unknown command", "/unsupported/1", "\"^SYSINFOX\"",
         "t.json: unsupported[1]: invalid value \"^SYSINFOX\": expected an AT command name "
         "the simulator knows, such as ^SYSCFG"},
        {"delay key", "/delays/commands/+COPS=!", "5",
         "t.json: delays.commands[\"+COPS=!\"]: invalid command key: expected a known AT command "
         "name, alone or followed by ?, =? or =, such as +COPS=?"},
        {"delay value", "/delays/default_ms", "600001",
         "t.json: delays.default_ms: out of range: 600001 is not within 0..600000"},
        {"hex text", "/configuration", "{\"syscfg\": {\"mode\": 2, \"acq_order\": 0, "
                                       "\"band\": \"3FFG\", \"roam\": 1, \"domain\": 2}}",
         "t.json: configuration.syscfg.band: invalid value \"3FFG\": expected 1 to 16 "
         "hexadecimal digits"},
        {"MIN neither 10 nor 15 digits", "/cdma",
         "{\"prefmode\": 8, \"evdo_revision\": 0, \"nam\": 0, \"prl_version\": \"1\", "
         "\"sid\": 1, \"nid\": 1, \"registered_min\": \"12345678901\"}",
         "t.json: cdma.registered_min: invalid value \"12345678901\": expected 10 or 15 digits, "
         "or empty"},
        {"section of wrong type", "/configuration", "{\"sysconfig\": []}",
         "t.json: configuration.sysconfig: wrong type: expected an object, got an array"},
        {"control byte in a line", "/timeline/0/send", "\"^RSSI:2\\r\"",
         "t.json: timeline[0].send: invalid value \"^RSSI:2\\x0d\": expected 1 to 2048 "
         "printable bytes (no line breaks)"},
        {"two actions", "/timeline/0/fault", "\"garbage\"",
         "t.json: timeline[0]: expected exactly one of send, set, report, fault (found 2)"},
        {"no action", "/timeline/0", "{\"at_ms\": 5}",
         "t.json: timeline[0]: expected exactly one of send, set, report, fault (found 0)"},
        {"missing time", "/timeline/0", "{\"send\": \"OK\"}",
         "t.json: timeline[0].at_ms: missing required field"},
        {"fault name", "/timeline/0", "{\"at_ms\": 5, \"fault\": \"loud\"}",
         "t.json: timeline[0].fault: invalid value \"loud\": expected one of silent_on, "
         "silent_off, garbage, vanish, restore"},
        {"flooding repeat", "/timeline/0/repeat_ms", "5",
         "t.json: timeline[0].repeat_ms: out of range: 5 is not 0 (once) or at least 10"},
        {"patch out of range", "/timeline/0",
         "{\"at_ms\": 5, \"set\": {\"network\": {\"service_status\": 9}}}",
         "t.json: timeline[0].set.network.service_status: out of range: 9 is not within 0..4"},
        {"patch of a fixed field", "/timeline/0", "{\"at_ms\": 5, \"set\": {\"gcap\": []}}",
         "t.json: timeline[0].set.gcap: unknown field"},
        {"patch removes a required field", "/timeline/0",
         "{\"at_ms\": 5, \"set\": {\"sim\": {\"imsi\": null}}}",
         "t.json: timeline[0].set.sim.imsi: missing required field"},
        {"patch not an object", "/timeline/0", "{\"at_ms\": 5, \"set\": 3}",
         "t.json: timeline[0].set: wrong type: expected an object, got an integer"},
    };
    for (const MalformedRow& row : rows) {
        SCOPED_TRACE(row.what);
        json document = MinimalProfile();
        const json::json_pointer pointer(row.pointer);
        if (row.value == nullptr) {
            document.at(pointer.parent_pointer()).erase(pointer.back());
        } else {
            document[pointer] = json::parse(row.value);
        }
        Profile profile;
        profile.description = "untouched";
        std::string error;
        EXPECT_FALSE(modemsim::ParseProfile(document.dump(), "t.json", &profile, &error));
        EXPECT_EQ(error, row.expected);
        EXPECT_EQ(profile.description, "untouched");
    }
    // The base of the table is itself good, so each row fails for its own reason.
    MustParse(MinimalProfile().dump(), "t.json");
}

TEST(ModemSimProfileTest, SyntaxErrorsNameTheLineAndColumn)
{
    const struct {
        const char* text;
        const char* expected;
    } rows[] = {
        {"", "t.json: line 1, column 1: not valid JSON"},
        {"{\n  \"gcap\": [\"+CGSM\",]\n}", "t.json: line 2, column 20: not valid JSON"},
        {"{\"sim\": {\"imsi\": \"4600\n\"}}", "t.json: line 1, column 23: not valid JSON"},
        {"[]", "t.json: (top level): wrong type: expected an object, got an array"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        Profile profile;
        std::string error;
        EXPECT_FALSE(modemsim::ParseProfile(row.text, "t.json", &profile, &error));
        EXPECT_EQ(error, row.expected);
    }
}

TEST(ModemSimProfileTest, JunkNeverCrashesTheReader)
{
    std::vector<std::string> junk = {
        std::string(100000, '['),
        std::string(100000, '{'),
        "{\"gcap\": [\"+CGSM\"], \"sim\": \"\xff\xfe\"}",
        std::string("{\"a\"\0: 1}", 9),
        "{\"gcap\": 1e999}",
        "\"unterminated",
        std::string(5 * 1024 * 1024, ' '),
    };
    // Byte flips of a good profile: whatever they break, the reader answers.
    const std::string good = MinimalProfile().dump(1);
    std::mt19937 random(7);
    for (int i = 0; i < 2000; ++i) {
        std::string text = good;
        for (int flips = 1 + static_cast<int>(random() % 4); flips > 0; --flips) {
            text[random() % text.size()] = static_cast<char>(random() & 0xff);
        }
        junk.push_back(text);
    }
    for (const std::string& text : junk) {
        Profile profile;
        std::string error;
        if (!modemsim::ParseProfile(text, "junk.json", &profile, &error)) {
            ASSERT_EQ(error.rfind("junk.json: ", 0), 0u) << error;
            ASSERT_EQ(error.find('\n'), std::string::npos) << error;
            ASSERT_EQ(error.find('\r'), std::string::npos) << error;
        }
    }
}

TEST(ModemSimProfileTest, LoadingFilesNamesThePath)
{
    testkit::TempDir temp;
    const std::string dir = temp.Path();
    Profile profile;
    std::string error;

    EXPECT_FALSE(modemsim::LoadProfileFile(dir + "/none.json", &profile, &error));
    EXPECT_EQ(error, dir + "/none.json: cannot read: No such file or directory");
    EXPECT_FALSE(modemsim::LoadProfileFile(dir, &profile, &error));
    EXPECT_EQ(error, dir + ": cannot read: not a regular file");

    json document = MinimalProfile();
    document["network"]["roaming"] = 13;
    const std::string path = temp.Write("bad.json", document.dump(2));
    EXPECT_FALSE(modemsim::LoadProfile(path, &profile, &error));
    EXPECT_EQ(error, path + ": network.roaming: out of range: 13 is not within 0..12");

    document["network"]["roaming"] = 1;
    temp.Write("bad.json", document.dump(2));
    ASSERT_TRUE(modemsim::LoadProfile(path, &profile, &error)) << error;
    EXPECT_EQ(profile.source, path);
    EXPECT_EQ(profile.initial.network.roaming, 1);
}

TEST(ModemSimProfileTest, StateSurvivesItsJsonRoundTripAndPatches)
{
    for (const std::string& name : modemsim::BuiltInProfileNames()) {
        SCOPED_TRACE(name);
        Profile profile;
        std::string error;
        ASSERT_TRUE(modemsim::LoadProfile(name, &profile, &error)) << error;
        // Written out and read back, the state is the same: every field the
        // writer names is one the reader knows, with the same meaning.
        const json written = modemsim::StateToJson(profile.initial);
        modemsim::ModemState reread;
        ASSERT_TRUE(modemsim::StateFromJson(written, "", &reread, &error)) << error;
        EXPECT_EQ(modemsim::StateToJson(reread), written);
    }

    Profile lte;
    std::string error;
    ASSERT_TRUE(modemsim::LoadProfile("lte", &lte, &error));
    modemsim::ModemState state = lte.initial;
    ASSERT_TRUE(modemsim::ApplyStatePatch(
        &state, R"({"network": {"service_status": 0}, "configuration": {"syscfg": null}})", "p",
        &error))
        << error;
    EXPECT_EQ(state.network.serviceStatus, 0);
    EXPECT_EQ(state.network.serviceDomain, lte.initial.network.serviceDomain);
    EXPECT_FALSE(state.configuration.syscfg);
    EXPECT_TRUE(state.configuration.syscfgex);

    const modemsim::ModemState before = state;
    EXPECT_FALSE(modemsim::ApplyStatePatch(&state, R"({"network": {"roaming": 99}})", "p", &error));
    EXPECT_EQ(error, "p.network.roaming: out of range: 99 is not within 0..12");
    EXPECT_EQ(modemsim::StateToJson(state), modemsim::StateToJson(before));
}

}  // namespace
