// The library's entry points and the factory that keeps its one plugin object.
// Called by the host from one thread during load and unload.
#ifndef NETSRVPLUGIN_NETSRVAPP_H
#define NETSRVPLUGIN_NETSRVAPP_H

#include "Interface/IBasePlugin.h"

class CNetSrvPluginFactory {
public:
    // The one plugin object, created on first call; null if it cannot be made.
    static IBasePlugin* Create();
    // Deletes the plugin object, if any.
    static void Release();

private:
    static IBasePlugin* m_pPlugin;
};

#define NETSRV_EXPORT extern "C" __attribute__((visibility("default")))

NETSRV_EXPORT IBasePlugin* CreatePlugin();
NETSRV_EXPORT void ReleasePlugin();

#endif
