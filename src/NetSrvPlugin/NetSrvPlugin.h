// The plugin object that the host's container manages. Called by the host from
// one thread during load and unload; takes no lock.
#ifndef NETSRVPLUGIN_NETSRVPLUGIN_H
#define NETSRVPLUGIN_NETSRVPLUGIN_H

#include <atomic>

#include "Interface/IBasePlugin.h"
#include "Interface/IPluginContainer.h"

class CNetSrvImpl;

class CNetSrvPlugin : public IBasePlugin {
public:
    CNetSrvPlugin();
    ~CNetSrvPlugin() override;

    // IBaseInterface
    void Release() override;
    int GetLastError() override;

    // IDestroyEvent: deletes the service object, which stops its threads.
    void OnDestroy() override;

    // IBasePlugin
    void SetPluginContainer(IPluginContainer* pContainer) override;
    bool Init() override;
    bool QueryInterface(int iInterfaceId, IBaseInterface** ppInterface) override;
    E_PLUGIN_TYPE GetPluginType() override;
    const char* GetCLSID() override;
    unsigned long GetVersion() override;
    const char* GetPluginName() override;
    bool IsAllowRelease() override;

    // The container of the whole library; null before SetPluginContainer and
    // after the plugin object is gone.
    static IPluginContainer* GetPluginContainer();

private:
    CNetSrvImpl* m_pCNetSrvImpl;
    int m_iError;

    // Read by the service's worker threads, hence atomic.
    static std::atomic<IPluginContainer*> m_pIPluginContainer;
};

#endif
