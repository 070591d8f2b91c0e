// The thread and lock wrappers: JMutex, CISAPUGuard and JThreadT on JThread.
#include <gtest/gtest.h>

#include <unistd.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <thread>

#include "ThreadCount.h"
#include "WaitUntil.h"
#include "isapuguard.h"
#include "jmutex.h"
#include "jthreadt.h"

namespace {

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

using testkit::CountThreads;
using testkit::WaitUntil;
using namespace std::chrono_literals;

TEST(ThreadJMutexTest, InitIsRequiredOnceAndLocksAreRecursive)
{
    JMutex mutex;
    EXPECT_FALSE(mutex.IsInitialized());
    EXPECT_EQ(mutex.Lock(), ERR_JMUTEX_NOTINIT);
    EXPECT_EQ(mutex.Unlock(), ERR_JMUTEX_NOTINIT);
    ASSERT_EQ(mutex.Init(), 0);
    EXPECT_TRUE(mutex.IsInitialized());
    EXPECT_EQ(mutex.Init(), ERR_JMUTEX_ALREADYINIT);

    // A client that registers another client from inside its event callback
    // takes the same lock twice on one thread.
    ASSERT_EQ(mutex.Lock(), 0);
    ASSERT_EQ(mutex.Lock(), 0);
    EXPECT_EQ(mutex.Unlock(), 0);

    // Still held once: another thread must wait until the second unlock.
    std::atomic<bool> bOtherGotIt{false};
    std::thread other([&] {
        mutex.Lock();
        bOtherGotIt = true;
        mutex.Unlock();
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    EXPECT_FALSE(bOtherGotIt);
    EXPECT_EQ(mutex.Unlock(), 0);
    EXPECT_TRUE(WaitUntil([&] { return bOtherGotIt.load(); }, 10s));
    other.join();
}

struct CountingLock {
    int nLocks = 0;
    int nUnlocks = 0;
    int Lock() { return ++nLocks, 0; }
    int Unlock() { return ++nUnlocks, 0; }
};

TEST(ThreadGuardTest, EarlyUnlockIsNotRepeated)
{
    CountingLock lock;
    {
        CISAPUGuard<CountingLock> guard(lock);
        EXPECT_EQ(lock.nLocks, 1);
        EXPECT_EQ(lock.nUnlocks, 0);
        guard.Unlock();
        EXPECT_EQ(lock.nUnlocks, 1);
        guard.Unlock();
        EXPECT_EQ(lock.nUnlocks, 1);
    }
    EXPECT_EQ(lock.nUnlocks, 1);
    {
        CISAPUGuard<CountingLock> guard(lock);
    }
    EXPECT_EQ(lock.nLocks, 2);
    EXPECT_EQ(lock.nUnlocks, 2);
}

// Stands in for the service object whose member functions the threads run.
class Worker {
public:
    std::atomic<int> nQuickRuns{0};
    std::atomic<int> nOtherRuns{0};
    std::atomic<int> nBlockedRuns{0};
    std::atomic<bool> bRelease{false};
    std::atomic<bool> bUnwound{false};
    std::atomic<bool> bInside{false};

    void Quick() { ++nQuickRuns; }
    void Other() { ++nOtherRuns; }
    void BlockUntilReleased()
    {
        ++nBlockedRuns;
        while (!bRelease) {
            usleep(5000);
        }
    }
    // Never looks at a stop flag: only Kill ends it.
    void Stubborn()
    {
        struct Marker {
            std::atomic<bool>* pFlag;
            ~Marker() { *pFlag = true; }
        } marker{&bUnwound};
        bInside = true;
        for (;;) {
            usleep(20000);
        }
    }
    void Throws() { throw std::runtime_error("body failed"); }
};

TEST(ThreadJThreadTTest, EndThreadOnANeverStartedThreadReturnsAtOnce)
{
    JThreadT<Worker, void> thread;
    const Clock::time_point start = Clock::now();
    thread.EndThread(30);
    EXPECT_LT(SecondsSince(start), 5.0);  // nowhere near the 30 s it would wait
    EXPECT_FALSE(thread.IsRunning());
    EXPECT_EQ(thread.Kill(), ERR_JTHREAD_NOTRUNNING);
}

TEST(ThreadJThreadTTest, StartWhileRunningIsRefusedAndKeepsTheFunction)
{
    Worker worker;
    JThreadT<Worker, void> thread;
    ASSERT_EQ(thread.StartThread(&worker, &Worker::BlockUntilReleased, 1), 0);
    EXPECT_TRUE(thread.IsRunning());
    EXPECT_NE(thread.StartThread(&worker, &Worker::Other, 2), 0);

    worker.bRelease = true;
    ASSERT_TRUE(WaitUntil([&] { return !thread.IsRunning(); }, 10s));
    EXPECT_EQ(worker.nBlockedRuns, 1);
    EXPECT_EQ(worker.nOtherRuns, 0);

    // The refused request did not replace the stored function either.
    ASSERT_EQ(thread.Start(), 0);
    thread.EndThread(10);
    EXPECT_EQ(worker.nBlockedRuns, 2);
    EXPECT_EQ(worker.nOtherRuns, 0);
}

TEST(ThreadJThreadTTest, RestartsAfterFinishingWithTheNewFunction)
{
    Worker worker;
    const int nBefore = CountThreads();
    {
        JThreadT<Worker, void> thread;
        for (int i = 0; i < 3; ++i) {
            ASSERT_EQ(thread.StartThread(&worker, &Worker::Quick, 0), 0);
            ASSERT_TRUE(WaitUntil([&] { return !thread.IsRunning(); }, 10s));
        }
        ASSERT_EQ(thread.StartThread(&worker, &Worker::Other, 0), 0);
        thread.EndThread(10);
    }
    EXPECT_EQ(worker.nQuickRuns, 3);
    EXPECT_EQ(worker.nOtherRuns, 1);
    EXPECT_TRUE(WaitUntil([&] { return CountThreads() == nBefore; }, 2s)) << CountThreads();
}

TEST(ThreadJThreadTTest, AFunctionThatOutlivesItsWaitIsKilledAndCanRunAgain)
{
    Worker worker;
    const int nBefore = CountThreads();
    ASSERT_GT(nBefore, 0);
    {
        JThreadT<Worker, void> thread;
        ASSERT_EQ(thread.StartThread(&worker, &Worker::Stubborn, 0), 0);
        ASSERT_TRUE(WaitUntil([&] { return worker.bInside.load(); }, 10s));
        EXPECT_EQ(CountThreads(), nBefore + 1);

        const int kWait = 2;
        const Clock::time_point start = Clock::now();
        thread.EndThread(kWait);
        const double dElapsed = SecondsSince(start);
        // The wait counts whole seconds of the wall clock, so it may end up
        // to a second early; the kill itself adds little.
        EXPECT_GE(dElapsed, kWait - 1 - 0.1);
        EXPECT_LE(dElapsed, kWait + 2.0);
        EXPECT_FALSE(thread.IsRunning());
        // Its stack was unwound: the locals' destructors ran.
        EXPECT_TRUE(worker.bUnwound);
        // A killed thread starts again.
        ASSERT_EQ(thread.StartThread(&worker, &Worker::Quick, 0), 0);
        thread.EndThread(10);
        EXPECT_EQ(worker.nQuickRuns, 1);
    }
    EXPECT_TRUE(WaitUntil([&] { return CountThreads() == nBefore; }, 2s))
        << CountThreads() << " threads, " << nBefore << " before";
}

TEST(ThreadJThreadTTest, AnExceptionEndsTheThreadNotTheProcess)
{
    Worker worker;
    JThreadT<Worker, void> thread;
    ASSERT_EQ(thread.StartThread(&worker, &Worker::Throws, 0), 0);
    EXPECT_TRUE(WaitUntil([&] { return !thread.IsRunning(); }, 10s));
    ASSERT_EQ(thread.StartThread(&worker, &Worker::Quick, 0), 0);
    thread.EndThread(10);
    EXPECT_EQ(worker.nQuickRuns, 1);
}

}  // namespace
