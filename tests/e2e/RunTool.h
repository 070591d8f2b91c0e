// Runs a program with arguments, collects what it prints and its exit status.
// A program that outlives its time limit is killed and reported as such.
#ifndef E2E_RUNTOOL_H
#define E2E_RUNTOOL_H

#include <string>
#include <vector>

namespace e2e {

struct ToolResult {
    int exitStatus = -1;     // -1 when it did not exit normally
    bool timedOut = false;
    std::string out;
    std::string err;
};

ToolResult RunTool(const std::string& program, const std::vector<std::string>& args,
                   int timeoutSeconds = 60);

// The lines of a text, without their line ends.
std::vector<std::string> Lines(const std::string& text);

}  // namespace e2e

#endif
