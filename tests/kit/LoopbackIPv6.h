// Whether this machine's loopback interface carries IPv6 (machines with IPv6
// switched off have none), for tests that read the loopback's addresses.
#ifndef TESTKIT_LOOPBACKIPV6_H
#define TESTKIT_LOOPBACKIPV6_H

#include <fstream>
#include <string>

namespace testkit {

inline bool LoopbackHasIPv6()
{
    std::ifstream file("/proc/net/if_inet6");
    std::string line;
    while (std::getline(file, line)) {
        if (line.size() > 3 && line.compare(line.size() - 3, 3, " lo") == 0) {
            return true;
        }
    }
    return false;
}

}  // namespace testkit

#endif
