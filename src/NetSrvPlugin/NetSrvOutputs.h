// The rule every INetSrv query applies to its pointers before it asks the modem.
#ifndef NETSRVPLUGIN_NETSRVOUTPUTS_H
#define NETSRVPLUGIN_NETSRVOUTPUTS_H

#include "Interface/INetSrv.h"

// Without an error word nothing can be said: false. Without an output the
// caller hears "bad parameter" (10001): false. True when both are there.
inline bool OutputsUsable(const void* pOutput, unsigned long* pdwStatus)
{
    if (pdwStatus == nullptr) {
        return false;
    }
    if (pOutput == nullptr) {
        *pdwStatus = NETSRV_ERROR_BAD_PARAM;
        return false;
    }
    return true;
}

#endif
