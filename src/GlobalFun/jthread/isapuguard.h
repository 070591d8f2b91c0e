// A scoped lock over a JMutex (or any class with Lock and Unlock).
#ifndef GLOBALFUN_ISAPUGUARD_H
#define GLOBALFUN_ISAPUGUARD_H

#include "jmutex.h"

template <class M = JMutex>
class CISAPUGuard {
public:
    explicit CISAPUGuard(M& locker) : m_pLocker(&locker), m_bLock(false)
    {
        m_pLocker->Lock();
        m_bLock = true;
    }
    ~CISAPUGuard() { Unlock(); }
    CISAPUGuard(const CISAPUGuard&) = delete;
    CISAPUGuard& operator=(const CISAPUGuard&) = delete;

    // Releases early; a second call does nothing.
    void Unlock()
    {
        if (m_pLocker != nullptr && m_bLock) {
            m_pLocker->Unlock();
            m_bLock = false;
            m_pLocker = nullptr;
        }
    }

private:
    M* m_pLocker;
    bool m_bLock;
};

#endif
