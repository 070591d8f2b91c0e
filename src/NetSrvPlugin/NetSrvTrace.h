// Traces of the service: every message goes to the host's trace service under
// the module name "CNetSrvImpl".
#ifndef NETSRVPLUGIN_NETSRVTRACE_H
#define NETSRVPLUGIN_NETSRVTRACE_H

#include "TraceSrv.h"

inline void NetSrvTrace(int iLevel, const char* pszMessage)
{
    TraceSrv_Trace(iLevel, "CNetSrvImpl", pszMessage);
}

// The message of every operation that finds no AT processor in the container.
#define NETSRV_MSG_NO_PROCESSOR "CNetSrvImpl IProcess pointer is null"

#endif
