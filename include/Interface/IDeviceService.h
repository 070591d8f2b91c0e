// The host's device service: what kind of modem is attached.
#ifndef INTERFACE_IDEVICESERVICE_H
#define INTERFACE_IDEVICESERVICE_H

#include "Interface/DevDataDef.h"
#include "Interface/IBaseInterface.h"

class IDeviceService : public IBaseInterface {
public:
    virtual int GetProductType() = 0;   // a DevDataDef::PRODUCT_TYPE value
};

#define IDEVICESERVICE_INTERFACE_ID "7ABB8FE8-F864-4c1b-9E21-D636795BD72B"
#define IDEVICESERVICE_INTERFACE_NO 0x5001

#endif
