#include "jmutex.h"

JMutex::JMutex() : mutex(), initialized(false) {}

JMutex::~JMutex()
{
    if (initialized) {
        pthread_mutex_destroy(&mutex);
    }
}

int JMutex::Init()
{
    if (initialized) {
        return ERR_JMUTEX_ALREADYINIT;
    }
    pthread_mutexattr_t attr;
    if (pthread_mutexattr_init(&attr) != 0) {
        return ERR_JMUTEX_CANTCREATEMUTEX;
    }
    const bool bOk = pthread_mutexattr_settype(&attr, PTHREAD_MUTEX_RECURSIVE) == 0 &&
                     pthread_mutex_init(&mutex, &attr) == 0;
    pthread_mutexattr_destroy(&attr);
    if (!bOk) {
        return ERR_JMUTEX_CANTCREATEMUTEX;
    }
    initialized = true;
    return 0;
}

int JMutex::Lock()
{
    if (!initialized) {
        return ERR_JMUTEX_NOTINIT;
    }
    return pthread_mutex_lock(&mutex);
}

// A recursive mutex checks its owner: unlocking one that this thread does not
// hold answers EPERM instead of releasing another thread's lock.
int JMutex::Unlock()
{
    if (!initialized) {
        return ERR_JMUTEX_NOTINIT;
    }
    return pthread_mutex_unlock(&mutex);
}
