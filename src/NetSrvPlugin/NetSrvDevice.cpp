#include "NetSrvDevice.h"

#include "GlobalFunction.h"
#include "NetSrvPlugin.h"

IDeviceService* FindDeviceService()
{
    return CGlobalFunction::GetPluginInterface<IDeviceService*>(
        IDEVICESERVICE_INTERFACE_ID, IDEVICESERVICE_INTERFACE_NO,
        CNetSrvPlugin::GetPluginContainer());
}

int DeviceKind()
{
    IDeviceService* pDeviceService = FindDeviceService();
    return pDeviceService == nullptr ? DevDataDef::PRODUCT_TYPE_UNKNOW
                                     : pDeviceService->GetProductType();
}
