// Counts the threads of this process, for tests that check that no thread is
// left behind.
#ifndef TESTKIT_THREADCOUNT_H
#define TESTKIT_THREADCOUNT_H

#include <dirent.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <thread>

namespace testkit {

// The number of entries in /proc/self/task, or -1 when it cannot be read.
// The first call starts and joins one thread: a sanitizer runtime starts a
// helper thread of its own at the process's first thread creation, which must
// not be taken for a thread the code under test left behind. The kernel lists
// a joined thread a little longer than join waits for, so the warm-up waits
// until its own entry is gone before anything is counted.
inline int CountThreads()
{
    static const bool bWarmedUp = [] {
        long nTid = 0;
        std::thread([&nTid] { nTid = syscall(SYS_gettid); }).join();
        const std::string strEntry = "/proc/self/task/" + std::to_string(nTid);
        for (int i = 0; i < 1000 && access(strEntry.c_str(), F_OK) == 0; ++i) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
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
