// The host's plugin container: keeps the interfaces that the host offers to
// plugins, loads one plugin library with dlopen and unloads it again.
// QueryPluginInterface and RegisterInterface are thread-safe (the plugin looks
// up the AT processor on every query, from any thread); LoadPlugin, NetSrv,
// Plugin and UnloadPlugin are called from the host's one controlling thread.
// Registered interfaces must outlive the loaded plugin: the plugin uses them
// until it is unloaded (by UnloadPlugin or the destructor), so a host declares
// its services before the container.
#ifndef HOST_PLUGINCONTAINER_H
#define HOST_PLUGINCONTAINER_H

#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "Interface/IBasePlugin.h"
#include "Interface/INetSrv.h"
#include "Interface/IPluginContainer.h"

class IDeviceMgr;
class IDeviceService;
class INetConnectService;
class IProcessor;

namespace host {

// The name under which the network-service plugin is installed.
extern const char* const kDefaultPluginName;   // "libNetSrvPlugin.so.1"

// Where an empty plugin path looks, in order, for a tool installed in or
// built into exeDir: <exeDir>/../lib (installed), <exeDir>/../src and
// <exeDir>/../../src (the build tree, where tools/<tool> and tests sit one or
// two levels below the plugin's directory). The loader's own search path is
// tried after these.
std::vector<std::string> PluginCandidates(const std::string& exeDir);

// The directory of the running executable; empty when it cannot be told.
std::string ExecutableDirectory();

class CPluginContainer : public IPluginContainer {
public:
    CPluginContainer();
    // Unloads the plugin if one is loaded.
    ~CPluginContainer() override;
    CPluginContainer(const CPluginContainer&) = delete;
    CPluginContainer& operator=(const CPluginContainer&) = delete;

    // Offers p under (id, number); a null p withdraws the entry. p must be the
    // pointer of the very interface type that plugins ask for under that
    // identity (static_cast<IDeviceMgr*>(&manager), not &manager of a class
    // with several bases), since they cast the untyped pointer straight back.
    void RegisterInterface(const char* id, int number, void* p);
    // The four host services under the identities that plugins know; null
    // arguments withdraw theirs.
    void RegisterHostInterfaces(IProcessor* pProcessor, IDeviceMgr* pDeviceMgr,
                                IDeviceService* pDeviceService,
                                INetConnectService* pConnectService);

    // IPluginContainer: true and *ppInterface set when (id, number) is offered;
    // otherwise false and *ppInterface null.
    bool QueryPluginInterface(const char* pszInterfaceId, int nInterfaceNo,
                              void** ppInterface) override;

    // Loads a plugin library: path as given (a name without '/' goes through
    // the loader's search path), or for an empty path the network-service
    // plugin from PluginCandidates() and then the loader's search path. Calls
    // CreatePlugin, SetPluginContainer(this) and Init. False with a one-line
    // reason ("cannot load /opt/x/libNetSrvPlugin.so.1: ... No such file or
    // directory") when any step fails; nothing stays loaded then.
    bool LoadPlugin(const std::string& path, std::string* pError);
    // The path the loaded plugin came from; empty when none is loaded.
    std::string LoadedPath() const { return m_strLoadedPath; }

    // The plugin's network service (interface number 5), created on first
    // request; null when no plugin is loaded or it refuses.
    INetSrv* NetSrv();
    IBasePlugin* Plugin() { return m_pPlugin; }

    // OnDestroy (the service stops its threads), ReleasePlugin, dlclose. The
    // network service registers with the device manager and never unregisters;
    // so that no device event reaches code that is about to be unmapped, the
    // receivers of a host::CDeviceManager registered here are all removed first.
    void UnloadPlugin();

private:
    bool TryLoad(const std::string& path, std::string* pError);

    mutable std::mutex m_mutex;   // m_interfaces
    std::map<std::pair<std::string, int>, void*> m_interfaces;

    void* m_hLibrary;
    IBasePlugin* m_pPlugin;
    PFN_RELEASE_PLUGIN m_pfnRelease;
    std::string m_strLoadedPath;
};

}  // namespace host

#endif
