// A plugin object as the container manages it.
#ifndef INTERFACE_IBASEPLUGIN_H
#define INTERFACE_IBASEPLUGIN_H

#include "Interface/IBaseInterface.h"
#include "Interface/IDestroyEvent.h"
#include "Interface/IPluginContainer.h"

class IBasePlugin : public IBaseInterface, public IDestroyEvent {
public:
    enum E_PLUGIN_TYPE { UI = 0, OPERATION = 1 };

    virtual ~IBasePlugin() {}
    virtual void SetPluginContainer(IPluginContainer* pContainer) = 0;
    virtual bool Init() = 0;
    virtual bool QueryInterface(int iInterfaceId, IBaseInterface** ppInterface) = 0;
    virtual E_PLUGIN_TYPE GetPluginType() = 0;
    virtual const char* GetCLSID() = 0;
    virtual unsigned long GetVersion() = 0;
    virtual const char* GetPluginName() = 0;
    virtual bool IsAllowRelease() = 0;
};

// The two plain functions every plugin library exports.
typedef IBasePlugin* (*PFN_CREATE_PLUGIN)();
typedef void (*PFN_RELEASE_PLUGIN)();

#endif
