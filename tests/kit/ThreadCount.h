// Counts the threads of this process, for tests that check that no thread is
// left behind.
#ifndef TESTKIT_THREADCOUNT_H
#define TESTKIT_THREADCOUNT_H

#include <dirent.h>

#include <thread>

namespace testkit {

// The number of entries in /proc/self/task, or -1 when it cannot be read.
// The first call starts and joins one thread: a sanitizer runtime starts a
// helper thread of its own at the process's first thread creation, which must
// not be taken for a thread the code under test left behind.
inline int CountThreads()
{
    static const bool bWarmedUp = [] {
        std::thread([] {}).join();
        return true;
    }();
    (void)bWarmedUp;

    DIR* pDir = opendir("/proc/self/task");
    if (pDir == nullptr) {
        return -1;
    }
    int nCount = 0;
    while (const dirent* pEntry = readdir(pDir)) {
        if (pEntry->d_name[0] != '.') {
            ++nCount;
        }
    }
    closedir(pDir);
    return nCount;
}

}  // namespace testkit

#endif
