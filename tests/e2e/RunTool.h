// Runs a program with arguments, collects what it prints and its exit status.
// A program that outlives its time limit is killed and reported as such.
// Also the small helpers that the tool's tests share to judge its output.
#ifndef E2E_RUNTOOL_H
#define E2E_RUNTOOL_H

#include <chrono>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace e2e {

struct ToolResult {
    int exitStatus = -1;     // -1 when it did not exit normally
    bool timedOut = false;
    std::string out;
    std::string err;
    // From the last byte it printed (or its start) to its end: how long it
    // took to shut down after its last answer.
    std::chrono::milliseconds afterLastOutput{0};
};

ToolResult RunTool(const std::string& program, const std::vector<std::string>& args,
                   int timeoutSeconds = 60);

// The lines of a text, without their line ends.
std::vector<std::string> Lines(const std::string& text);

// A profile of tools/modemsim/profiles by its name ("lte").
nlohmann::json ShippedProfile(const std::string& name);

// `actual` has the fields of `expected` with their values; a null field is
// absent from it. (As a merge patch, `expected` changes nothing.)
bool HasFields(const nlohmann::json& actual, const nlohmann::json& expected);

}  // namespace e2e

#endif
