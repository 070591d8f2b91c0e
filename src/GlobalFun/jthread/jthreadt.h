// Runs a member function of an object on a JThread and ends it with a bounded
// wait. One thread at a time starts or ends a given JThreadT.
#ifndef GLOBALFUN_JTHREADT_H
#define GLOBALFUN_JTHREADT_H

#include <unistd.h>

#include <ctime>

#include "jthread.h"

template <class T, class R = void>
class JThreadT;

template <class T>
class JThreadT<T, void> : public JThread {
public:
    typedef void (T::*ThreadFunc)();

    JThreadT() : m_Para(0), m_Func(nullptr), m_pTClass(nullptr) {}
    ~JThreadT() override { EndThread(5); }

    // 0 when the thread started. While a run lasts the request is refused
    // (non-zero) and the stored function is kept.
    int StartThread(T* pObj, ThreadFunc pfn, char para)
    {
        if (!IsRunning()) {
            m_Para = para;
            m_pTClass = pObj;
            m_Func = pfn;
        }
        return Start();
    }

    // Waits for the function to return, at most about nSeconds (whole seconds
    // of the wall clock, polled every 80 ms), then kills the thread.
    void EndThread(int nSeconds)
    {
        if (!IsRunning()) {
            return;
        }
        const time_t tBegin = time(nullptr);
        while (IsRunning() && time(nullptr) - tBegin < nSeconds) {
            usleep(80 * 1000);
        }
        if (IsRunning()) {
            Kill();
        }
    }

    int Kill() { return JThread::Kill(); }

    void* Thread() override
    {
        ThreadStarted();
        CallFunc(m_Para);
        return nullptr;
    }

private:
    void CallFunc(char)
    {
        if (m_pTClass != nullptr && m_Func != nullptr) {
            (m_pTClass->*m_Func)();
        }
    }

    char m_Para;
    ThreadFunc m_Func;
    T* m_pTClass;
};

#endif
