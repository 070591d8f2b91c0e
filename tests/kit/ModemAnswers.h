// The real modem answers of tests/fixtures/modem-answers.json, as table rows for tests.
// The including test target defines NETSRV_FIXTURES_DIR.
#ifndef TESTKIT_MODEMANSWERS_H
#define TESTKIT_MODEMANSWERS_H

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <fstream>
#include <string>
#include <vector>

namespace testkit {

struct ModemAnswer {
    std::string id;
    std::string command;   // as sent: "+CRSM=176,28486,0,0,17", "+COPS=3,2;+COPS?"
    std::string kind;      // response, test-response, urc, field
    std::string raw;       // exactly as the modem sent it
};

inline std::vector<ModemAnswer> LoadModemAnswers()
{
    const std::string path = std::string(NETSRV_FIXTURES_DIR) + "/modem-answers.json";
    std::ifstream in(path);
    if (!in) {
        ADD_FAILURE() << "cannot read " << path;
        return {};
    }
    const nlohmann::json doc = nlohmann::json::parse(in);
    std::vector<ModemAnswer> answers;
    for (const auto& entry : doc) {
        answers.push_back({entry.at("id").get<std::string>(), entry.at("command").get<std::string>(),
                           entry.at("kind").get<std::string>(), entry.at("raw").get<std::string>()});
    }
    return answers;
}

// The answer of this id, or an empty raw text (and a failure) when there is none.
inline ModemAnswer ModemAnswerById(const std::vector<ModemAnswer>& answers, const std::string& id)
{
    for (const ModemAnswer& answer : answers) {
        if (answer.id == id) {
            return answer;
        }
    }
    ADD_FAILURE() << "no fixture answer " << id;
    return {};
}

}  // namespace testkit

#endif
