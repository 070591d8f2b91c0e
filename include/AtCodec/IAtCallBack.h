// A client of the AT processor: receives the reports it subscribed to, on the
// processor's dispatch thread.
#ifndef ATCODEC_IATCALLBACK_H
#define ATCODEC_IATCALLBACK_H

#include "AtCodec/CmdDef.h"

class IAtCallBack {
public:
    virtual bool AtCallBackEvent(const Command& cmd) = 0;

protected:
    ~IAtCallBack() {}
};

#endif
