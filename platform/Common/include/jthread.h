// A thread of the host's common library: Start() runs the virtual Thread() on a
// new OS thread and returns once Thread() has called ThreadStarted().
// Start, IsRunning and Kill may be called from any thread; one thread at a time
// starts or kills a given JThread.
#ifndef COMMON_JTHREAD_H
#define COMMON_JTHREAD_H

#include <pthread.h>

#include <atomic>
#include <condition_variable>
#include <mutex>

#define ERR_JTHREAD_CANTINITMUTEX (-1)
#define ERR_JTHREAD_CANTSTARTTHREAD (-2)
#define ERR_JTHREAD_THREADFUNCNOTSET (-3)
#define ERR_JTHREAD_NOTRUNNING (-4)
#define ERR_JTHREAD_ALREADYRUNNING (-5)

class JThread {
public:
    JThread();
    // Does not stop a running thread; the owner ends it first. A thread that has
    // finished is reaped here.
    virtual ~JThread();
    JThread(const JThread&) = delete;
    JThread& operator=(const JThread&) = delete;

    // 0 once the new thread has called ThreadStarted(); ERR_JTHREAD_ALREADYRUNNING
    // while a previous run lasts.
    int Start();
    // Stops the thread by force: it is cancelled at its next cancellation point
    // (a sleep, a wait, a read) and its stack is unwound. Returns once it is gone:
    // 0 when it was running, ERR_JTHREAD_NOTRUNNING when there was nothing to
    // stop. Called on the thread itself it stops nothing and answers
    // ERR_JTHREAD_ALREADYRUNNING (a thread cannot wait for its own end).
    int Kill();
    bool IsRunning() const { return m_bRunning.load(); }

    virtual void* Thread() = 0;

    // Inside a catch (...) handler: true when what is being caught is a thread's
    // cancellation (Kill), which must be rethrown or the process aborts.
    static bool IsCancellationInFlight();

protected:
    void ThreadStarted();

private:
    static void* TheThread(void* pParam);
    void Reap();

    pthread_t m_threadId;
    bool m_bJoinable;                 // a pthread exists that nobody joined yet
    std::atomic<bool> m_bRunning;
    std::mutex m_startMutex;
    std::condition_variable m_startCond;
    bool m_bStarted;
};

#endif
