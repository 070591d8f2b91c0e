#include "PluginContainer.h"

#include <dlfcn.h>
#include <unistd.h>

#include <vector>

#include "AtCodec/IProcessor.h"
#include "DeviceManager.h"
#include "Interface/IDeviceMgr.h"
#include "Interface/IDeviceService.h"
#include "Interface/INetConnectService.h"

namespace host {

const char* const kDefaultPluginName = "libNetSrvPlugin.so.1";

std::vector<std::string> PluginCandidates(const std::string& exeDir)
{
    std::vector<std::string> candidates;
    if (exeDir.empty()) {
        return candidates;
    }
    for (const char* pszRelative : {"/../lib/", "/../src/", "/../../src/"}) {
        candidates.push_back(exeDir + pszRelative + kDefaultPluginName);
    }
    return candidates;
}

std::string ExecutableDirectory()
{
    std::vector<char> buffer(256);
    for (;;) {
        const ssize_t n = readlink("/proc/self/exe", buffer.data(), buffer.size());
        if (n < 0) {
            return std::string();
        }
        if (static_cast<std::size_t>(n) < buffer.size()) {
            const std::string path(buffer.data(), static_cast<std::size_t>(n));
            const std::string::size_type slash = path.rfind('/');
            return slash == std::string::npos ? std::string() : path.substr(0, slash);
        }
        if (buffer.size() >= 65536) {
            return std::string();
        }
        buffer.resize(buffer.size() * 2);
    }
}

CPluginContainer::CPluginContainer()
    : m_hLibrary(nullptr), m_pPlugin(nullptr), m_pfnRelease(nullptr)
{
}

CPluginContainer::~CPluginContainer()
{
    UnloadPlugin();
}

void CPluginContainer::RegisterInterface(const char* id, int number, void* p)
{
    if (id == nullptr) {
        return;
    }
    std::lock_guard<std::mutex> lock(m_mutex);
    if (p == nullptr) {
        m_interfaces.erase({id, number});
    } else {
        m_interfaces[{id, number}] = p;
    }
}

void CPluginContainer::RegisterHostInterfaces(IProcessor* pProcessor, IDeviceMgr* pDeviceMgr,
                                              IDeviceService* pDeviceService,
                                              INetConnectService* pConnectService)
{
    RegisterInterface(IPROCESSOR_INTERFACE_ID, IPROCESSOR_INTERFACE_NO, pProcessor);
    RegisterInterface(IDEVICEMGR_INTERFACE_ID, IDEVICEMGR_INTERFACE_NO, pDeviceMgr);
    RegisterInterface(IDEVICESERVICE_INTERFACE_ID, IDEVICESERVICE_INTERFACE_NO, pDeviceService);
    RegisterInterface(INETCONNECTSERVICE_INTERFACE_ID, INETCONNECTSERVICE_INTERFACE_NO,
                      pConnectService);
}

bool CPluginContainer::QueryPluginInterface(const char* pszInterfaceId, int nInterfaceNo,
                                            void** ppInterface)
{
    if (ppInterface == nullptr) {
        return false;
    }
    *ppInterface = nullptr;
    if (pszInterfaceId == nullptr) {
        return false;
    }
    std::lock_guard<std::mutex> lock(m_mutex);
    auto it = m_interfaces.find({pszInterfaceId, nInterfaceNo});
    if (it == m_interfaces.end()) {
        return false;
    }
    *ppInterface = it->second;
    return true;
}

bool CPluginContainer::LoadPlugin(const std::string& path, std::string* pError)
{
    std::string strIgnored;
    if (pError == nullptr) {
        pError = &strIgnored;
    }
    if (m_hLibrary != nullptr) {
        *pError = "a plugin is already loaded from " + m_strLoadedPath;
        return false;
    }
    if (!path.empty()) {
        return TryLoad(path, pError);
    }
    std::string strLooked;
    for (const std::string& candidate : PluginCandidates(ExecutableDirectory())) {
        if (access(candidate.c_str(), F_OK) != 0) {
            strLooked += (strLooked.empty() ? "" : ", ") + candidate;
            continue;
        }
        // A plugin that is there but does not load (a missing dependency, the
        // wrong architecture) is the one the user meant: tell its reason rather
        // than fall back to another copy.
        return TryLoad(candidate, pError);
    }
    if (TryLoad(kDefaultPluginName, pError)) {
        return true;
    }
    if (!strLooked.empty()) {
        *pError += " (not found in " + strLooked + " either)";
    }
    return false;
}

bool CPluginContainer::TryLoad(const std::string& path, std::string* pError)
{
    dlerror();
    void* hLibrary = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (hLibrary == nullptr) {
        const char* pszReason = dlerror();
        *pError = "cannot load the plugin: " + std::string(pszReason != nullptr ? pszReason : path);
        return false;
    }
    PFN_CREATE_PLUGIN pfnCreate =
        reinterpret_cast<PFN_CREATE_PLUGIN>(dlsym(hLibrary, "CreatePlugin"));
    PFN_RELEASE_PLUGIN pfnRelease =
        reinterpret_cast<PFN_RELEASE_PLUGIN>(dlsym(hLibrary, "ReleasePlugin"));
    if (pfnCreate == nullptr || pfnRelease == nullptr) {
        *pError = path + " is not a plugin: it does not export CreatePlugin and ReleasePlugin";
        dlclose(hLibrary);
        return false;
    }
    IBasePlugin* pPlugin = nullptr;
    try {
        pPlugin = pfnCreate();
    } catch (...) {
        pPlugin = nullptr;
    }
    if (pPlugin == nullptr) {
        *pError = "CreatePlugin of " + path + " gave no plugin object";
        dlclose(hLibrary);
        return false;
    }
    pPlugin->SetPluginContainer(this);
    if (!pPlugin->Init()) {
        *pError = "the plugin " + path + " failed to initialise";
        pPlugin->OnDestroy();
        pfnRelease();
        dlclose(hLibrary);
        return false;
    }
    m_hLibrary = hLibrary;
    m_pPlugin = pPlugin;
    m_pfnRelease = pfnRelease;
    m_strLoadedPath = path;
    return true;
}

INetSrv* CPluginContainer::NetSrv()
{
    if (m_pPlugin == nullptr) {
        return nullptr;
    }
    IBaseInterface* pInterface = nullptr;
    if (!m_pPlugin->QueryInterface(INETSRV_INTERFACE_NO, &pInterface) || pInterface == nullptr) {
        return nullptr;
    }
    // Interface number 5 hands out the service as its IBaseInterface view,
    // which is the INetSrv view (single inheritance).
    return static_cast<INetSrv*>(pInterface);
}

void CPluginContainer::UnloadPlugin()
{
    if (m_hLibrary == nullptr) {
        return;
    }
    void* pManager = nullptr;
    QueryPluginInterface(IDEVICEMGR_INTERFACE_ID, IDEVICEMGR_INTERFACE_NO, &pManager);
    if (CDeviceManager* pHostManager =
            dynamic_cast<CDeviceManager*>(static_cast<IDeviceMgr*>(pManager))) {
        pHostManager->UnRegisterAll();
    }
    m_pPlugin->OnDestroy();
    m_pfnRelease();
    dlclose(m_hLibrary);
    m_hLibrary = nullptr;
    m_pPlugin = nullptr;
    m_pfnRelease = nullptr;
    m_strLoadedPath.clear();
}

}  // namespace host
