#include "SharedModem.h"

#include <gtest/gtest.h>

namespace e2e {

namespace {
const std::string kTool = NETSRVCTL_PATH;
// The simulator's trace line of a command it received: "<- AT+CSQ".
const std::string kReceived = "<- ";
}  // namespace

SharedModem::SharedModem(const std::string& profile)
{
    modemsim::Profile loaded;
    std::string error;
    EXPECT_TRUE(modemsim::LoadProfile(profile, &loaded, &error)) << error;
    m_pSimulator.reset(new modemsim::Simulator(loaded));
    m_pSimulator->SetTrace([this](const std::string& line) {
        if (line.compare(0, kReceived.size(), kReceived) == 0) {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_received.push_back(line.substr(kReceived.size()));
        }
    });
    EXPECT_TRUE(m_pSimulator->Start(&error)) << error;
}

SharedModem::~SharedModem()
{
    m_pSimulator->Stop();
}

ToolResult SharedModem::Run(std::vector<std::string> args) const
{
    args.insert(args.begin(), {"--device", m_pSimulator->SlavePath(), "--json"});
    return RunTool(kTool, args);
}

std::vector<std::string> SharedModem::TakeReceived() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<std::string> received;
    received.swap(m_received);
    return received;
}

}  // namespace e2e
