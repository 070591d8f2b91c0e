// For the simulator's unit tests: the shipped profiles, and answers framed as
// the simulated modem frames them.
#ifndef TESTKIT_MODEMSIMKIT_H
#define TESTKIT_MODEMSIMKIT_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ModemEngine.h"
#include "ModemSimulator.h"

namespace testkit {

// A built-in profile as shipped, its timeline included; one that does not
// load fails the test.
inline modemsim::Profile Shipped(const std::string& name)
{
    modemsim::Profile profile;
    std::string error;
    EXPECT_TRUE(modemsim::LoadProfile(name, &profile, &error)) << error;
    return profile;
}

// The answer's lines (information lines, then the final result) framed as
// the modem frames them.
inline std::string Framed(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines) {
        text += modemsim::FrameLine(line);
    }
    return text;
}

}  // namespace testkit

#endif
