// JThread on POSIX threads.
//
// Kill() uses deferred cancellation: the thread stops at its next
// cancellation point (usleep, a condition wait, a read), and glibc unwinds its
// stack with a forced-unwind exception, so the destructors of its locals run
// (a held CISAPUGuard releases its mutex). The running flag is cleared by a
// guard object on the thread's own stack, which that unwinding runs as well.
#include "jthread.h"

#include <cxxabi.h>

JThread::JThread() : m_threadId(), m_bJoinable(false), m_bRunning(false), m_bStarted(false) {}

JThread::~JThread()
{
    Reap();
}

int JThread::Start()
{
    if (m_bRunning.load()) {
        return ERR_JTHREAD_ALREADYRUNNING;
    }
    Reap();  // the previous run has returned; collect its OS thread
    {
        std::lock_guard<std::mutex> lock(m_startMutex);
        m_bStarted = false;
    }
    // Set before the thread exists: a body that returns at once clears it
    // again, and must not be overtaken by this store.
    m_bRunning.store(true);
    if (pthread_create(&m_threadId, nullptr, &JThread::TheThread, this) != 0) {
        m_bRunning.store(false);
        return ERR_JTHREAD_CANTSTARTTHREAD;
    }
    m_bJoinable = true;
    std::unique_lock<std::mutex> lock(m_startMutex);
    m_startCond.wait(lock, [this] { return m_bStarted; });
    return 0;
}

int JThread::Kill()
{
    if (!m_bJoinable) {
        return ERR_JTHREAD_NOTRUNNING;
    }
    if (pthread_equal(m_threadId, pthread_self())) {
        // A thread cannot wait for its own end; it has to return instead.
        return ERR_JTHREAD_ALREADYRUNNING;
    }
    const bool bWasRunning = m_bRunning.load();
    if (bWasRunning) {
        pthread_cancel(m_threadId);
    }
    pthread_join(m_threadId, nullptr);
    m_bJoinable = false;
    m_bRunning.store(false);
    return bWasRunning ? 0 : ERR_JTHREAD_NOTRUNNING;
}

void JThread::ThreadStarted()
{
    std::lock_guard<std::mutex> lock(m_startMutex);
    m_bStarted = true;
    m_startCond.notify_all();
}

void JThread::Reap()
{
    if (!m_bJoinable) {
        return;
    }
    if (pthread_equal(m_threadId, pthread_self())) {
        pthread_detach(m_threadId);  // destroyed from its own thread: let it go alone
    } else {
        pthread_join(m_threadId, nullptr);
    }
    m_bJoinable = false;
}

void* JThread::TheThread(void* pParam)
{
    JThread* pThread = static_cast<JThread*>(pParam);

    // Runs when Thread() returns, throws or is cancelled. It also releases
    // Start() for a body that never called ThreadStarted(); m_bStarted may be
    // read here without the lock because after pthread_create only this
    // thread writes it. A cancelled thread thus only clears an atomic flag:
    // ThreadSanitizer loses track of a thread's locking once glibc unwinds it
    // out of an intercepted call, and would report phantom races on anything
    // more. Nothing touches the object after the flag is cleared: the owner
    // may reuse it then.
    struct RunGuard {
        JThread* pOwner;
        ~RunGuard()
        {
            if (!pOwner->m_bStarted) {
                pOwner->ThreadStarted();
            }
            pOwner->m_bRunning.store(false);
        }
    } guard{pThread};

    try {
        pThread->Thread();
    } catch (...) {
        // Cancellation by Kill() (and pthread_exit) unwinds with an exception
        // of no C++ type; it must reach the thread's start, or glibc aborts.
        // (Catching abi::__forced_unwind by reference instead would bind a
        // reference to no object.)
        if (IsCancellationInFlight()) {
            throw;
        }
        // A C++ exception that leaves the body ends the thread, not the process.
    }
    return nullptr;
}

bool JThread::IsCancellationInFlight()
{
    // Cancellation unwinds with an exception of no C++ type. (Catching
    // abi::__forced_unwind by reference instead would bind a reference to no
    // object.)
    return abi::__cxa_current_exception_type() == nullptr;
}
