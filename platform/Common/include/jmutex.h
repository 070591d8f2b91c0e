// A mutex of the host's common library. Recursive: the thread that holds it may
// lock it again (a client that registers another client from inside its event
// callback re-enters the service's client lock). Init() must run before Lock().
#ifndef COMMON_JMUTEX_H
#define COMMON_JMUTEX_H

#include <pthread.h>

#define ERR_JMUTEX_ALREADYINIT (-1)
#define ERR_JMUTEX_NOTINIT (-2)
#define ERR_JMUTEX_CANTCREATEMUTEX (-3)

class JMutex {
public:
    JMutex();
    ~JMutex();
    JMutex(const JMutex&) = delete;
    JMutex& operator=(const JMutex&) = delete;

    int Init();
    int Lock();
    int Unlock();
    bool IsInitialized() { return initialized; }

private:
    pthread_mutex_t mutex;
    bool initialized;
};

#endif
