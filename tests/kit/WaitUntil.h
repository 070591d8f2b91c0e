// Polls a condition until it holds or the time is up, for things that other
// threads bring about; true when it held.
#ifndef TESTKIT_WAITUNTIL_H
#define TESTKIT_WAITUNTIL_H

#include <chrono>
#include <thread>

namespace testkit {

template <class Condition>
bool WaitUntil(Condition condition, std::chrono::milliseconds limit)
{
    const auto until = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > until) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

}  // namespace testkit

#endif
