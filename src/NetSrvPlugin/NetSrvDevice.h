// The host's device service, as the service asks it which kind of device is
// attached. The kind decides the signal bar's formula and which generation of
// the network-configuration command the modem speaks.
#ifndef NETSRVPLUGIN_NETSRVDEVICE_H
#define NETSRVPLUGIN_NETSRVDEVICE_H

#include "Interface/DevDataDef.h"
#include "Interface/IDeviceService.h"

// The device service in the plugin's container, looked up on every call (the
// host may replace it); null when there is none.
IDeviceService* FindDeviceService();

// The kind of the attached device (a DevDataDef::PRODUCT_TYPE value); unknown
// when the host has no device service.
int DeviceKind();

#endif
