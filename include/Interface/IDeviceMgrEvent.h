// Receiver of the device manager's notifications.
#ifndef INTERFACE_IDEVICEMGREVENT_H
#define INTERFACE_IDEVICEMGREVENT_H

#include "Interface/IBaseInterface.h"

class IDeviceMgrEvent {
public:
    enum NOTIFY_TYPE {
        EVENT_DEVICE_INSERT = 6600,
        EVENT_DEVICE_REJECT = 6601,
        EVENT_DEVICE_SWITCH = 6604,
        EVENT_DEVICE_REBOOT = 6605,
        EVENT_DEVICE_DETECTED = 6606,
        EVENT_DEVICE_SIM_NOT_INSERTED = 6614,
        EVENT_DEVICE_RF_SWITCH = 6615,
        EVENT_DEVICE_POWER_MANAGEMENT = 6616,
        EVENT_DEVICE_OTAMSG = 6617,
        EVENT_DEVICE_OTACALLEND = 6618,
        EVENT_PORT_STATE_CHANGED = 6619,
        EVENT_FP_VERIFYIND = 6620,
        EVENT_DEVICE_BEFORE_SWITCH = 6621,
        EVENT_DEVICE_SEND_AT_FAILURE = 6622,
        EVENT_DEVICE_SYSMODE_CHANGED = 6650
    };

    virtual bool OnDeviceMgrEvent(DWORD dwEvent, void* pData) = 0;

protected:
    virtual ~IDeviceMgrEvent() {}
};

#endif
