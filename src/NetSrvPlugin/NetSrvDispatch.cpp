// The report dispatcher: turns the modem's unsolicited reports into client events.
//
// Not dispatched yet by this build: a report is traced and dropped.

#include <string>

#include "NetSrvImpl.h"
#include "NetSrvTrace.h"
#include "isapuguard.h"

bool CNetSrvImpl::AtCallBackEvent(const Command& cmd)
{
    CISAPUGuard<JMutex> guard(m_lockerATCBFun);
    const std::string strMessage =
        "AtCallBackEvent: report " + cmd.name + " not dispatched in this build";
    NetSrvTrace(TL_INFO, strMessage.c_str());
    return false;
}
