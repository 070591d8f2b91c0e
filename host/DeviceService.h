// The host's device service: which kind of modem is attached
// (DevDataDef::PRODUCT_TYPE), from the user's word or from a probe of the
// modem. Thread-safe.
#ifndef HOST_DEVICESERVICE_H
#define HOST_DEVICESERVICE_H

#include <atomic>
#include <string>
#include <vector>

#include "Interface/DevDataDef.h"
#include "Interface/IDeviceService.h"

namespace host {

class CAtProcessor;

// True when an AT command got a final result from the modem (OK or an error
// such as "COMMAND NOT SUPPORT"), false when the modem said nothing: a
// time-out, a closed port, or a command the processor could not send.
bool ModemAnswered(bool bSucceeded, unsigned long dwError);

// True when the +GCAP answers name the IS-707 data service of a CDMA modem:
//   "+CIS707-A, +MS, +ES, +DS, +FCLASS"   (a CDMA/EV-DO data card)
// and not for a 3GPP modem ("+CGSM,+DS,+ES"). Capabilities are compared whole,
// in any letter case, a revision suffix ("-A") allowed.
bool GcapNamesCdma(const std::vector<std::string>& gcapLines);

// The kind of modem from the answers to the probe:
//   AT+GCAP naming +CIS707                          -> PRODUCT_TYPE_CDMA (1)
//   AT^SYSCONFIG? answered and AT^SYSCFG? not       -> PRODUCT_TYPE_TD_SCDMA (2)
//   any other modem that answered something         -> PRODUCT_TYPE_WCDMA (0)
//   no answer at all                                 -> PRODUCT_TYPE_UNKNOW (5)
// gcapAnswered: AT+GCAP got a final result (gcapLines its information texts);
// syscfgAnswered / sysconfigAnswered: the read command succeeded.
int ProductTypeFromProbe(bool gcapAnswered, const std::vector<std::string>& gcapLines,
                         bool syscfgAnswered, bool sysconfigAnswered);

class CDeviceService : public IDeviceService {
public:
    CDeviceService();

    // IBaseInterface: the service belongs to the host; Release does nothing.
    void Release() override {}
    int GetLastError() override { return 0; }

    // IDeviceService: PRODUCT_TYPE_UNKNOW until set or probed.
    int GetProductType() override;

    // The kind the user named (the tool's --device-kind). It stands: later
    // probes leave it alone.
    void SetProductType(int productType);

    // Asks the modem (AT+GCAP, then AT^SYSCFG? and AT^SYSCONFIG? as needed)
    // and keeps the kind that ProductTypeFromProbe gives, unless a kind was set.
    // Blocks for the commands' answers (a few seconds for a silent modem).
    void Probe(CAtProcessor& processor);

private:
    std::atomic<int> m_productType;
    std::atomic<bool> m_bSetByUser;
};

}  // namespace host

#endif
