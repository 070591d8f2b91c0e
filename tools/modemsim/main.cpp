// netsrv-modemsim: serves a virtual modem on a pseudo-terminal until SIGINT or
// SIGTERM. Prints the slave path on standard output (one line) so that a
// script can pick it up; with --link the path is also reachable by a stable
// name, removed again at the end.

#include <signal.h>

#include <cstdio>
#include <iostream>
#include <string>

#include <CLI/CLI.hpp>

#include "ModemSimulator.h"

namespace {

std::string JoinNames(const std::vector<std::string>& names)
{
    std::string joined;
    for (const std::string& name : names) {
        joined += (joined.empty() ? "" : ", ") + name;
    }
    return joined;
}

}  // namespace

int main(int argc, char** argv)
{
    const std::string builtIns = JoinNames(modemsim::BuiltInProfileNames());
    CLI::App app{"A virtual mobile-broadband modem on a pseudo-terminal.", "netsrv-modemsim"};
    std::string profileName = "lte";
    std::string linkPath;
    std::string printName;
    bool bList = false;
    bool bCheck = false;
    bool bVerbose = false;
    app.add_option("--profile", profileName,
                   "profile: a JSON file, or a built-in name (" + builtIns + ")")
        ->capture_default_str();
    app.add_option("--link", linkPath, "make PATH a symbolic link to the pseudo-terminal")
        ->type_name("PATH");
    app.add_flag("--check", bCheck, "check the profile, print the verdict and exit");
    app.add_flag("--list-profiles", bList, "list the built-in profiles and exit");
    app.add_option("--print-profile", printName, "print a built-in profile's JSON and exit")
        ->type_name("NAME");
    app.add_flag("-v,--verbose", bVerbose, "log every exchange on standard error");
    CLI11_PARSE(app, argc, argv);

    if (bList) {
        for (const std::string& name : modemsim::BuiltInProfileNames()) {
            std::cout << name << "\n";
        }
        return 0;
    }
    if (!printName.empty()) {
        std::string text;
        if (!modemsim::BuiltInProfileText(printName, &text)) {
            std::cerr << "netsrv-modemsim: no built-in profile \"" << printName
                      << "\" (there are " << builtIns << ")\n";
            return 2;
        }
        std::cout << text;
        return 0;
    }

    modemsim::Profile profile;
    std::string error;
    if (!modemsim::LoadProfile(profileName, &profile, &error)) {
        std::cerr << "netsrv-modemsim: " << error << "\n";
        return 2;
    }
    if (bCheck) {
        std::cout << profile.source << ": ok\n";
        return 0;
    }

    // Block the stop signals in every thread (the simulator's inherits the
    // mask) and take them here with sigwait.
    sigset_t stopSignals;
    sigemptyset(&stopSignals);
    sigaddset(&stopSignals, SIGINT);
    sigaddset(&stopSignals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &stopSignals, nullptr);
    signal(SIGPIPE, SIG_IGN);

    modemsim::Simulator simulator(profile);
    if (bVerbose) {
        simulator.SetTrace([](const std::string& line) { std::cerr << line << std::endl; });
    }
    if (!simulator.Start(&error, linkPath)) {
        std::cerr << "netsrv-modemsim: " << error << "\n";
        return 1;
    }
    std::cout << simulator.SlavePath() << std::endl;
    std::cerr << "netsrv-modemsim: " << profile.source << " on " << simulator.SlavePath()
              << (linkPath.empty() ? "" : " (link " + linkPath + ")")
              << "; stop with Ctrl-C or SIGTERM\n";

    int received = 0;
    sigwait(&stopSignals, &received);
    simulator.Stop();
    return 0;
}
