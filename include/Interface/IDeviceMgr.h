// The host's device manager: tells registered receivers when the modem comes and goes.
#ifndef INTERFACE_IDEVICEMGR_H
#define INTERFACE_IDEVICEMGR_H

#include "Interface/IBaseInterface.h"
#include "Interface/IDeviceMgrEvent.h"

class IDeviceMgr : public IBaseInterface {
public:
    virtual bool RegisterDeviceCallback(IDeviceMgrEvent* pEvent) = 0;
    virtual bool UnRegisterDeviceCallback(IDeviceMgrEvent* pEvent) = 0;
};

#define IDEVICEMGR_INTERFACE_ID "5D31EE0B-DA93-4641-BD21-7DCE3DB15D15"
#define IDEVICEMGR_INTERFACE_NO 1

#endif
