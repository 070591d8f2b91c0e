#include "NetSrvApp.h"

#include "NetSrvPlugin.h"

IBasePlugin* CNetSrvPluginFactory::m_pPlugin = nullptr;

IBasePlugin* CNetSrvPluginFactory::Create()
{
    if (m_pPlugin != nullptr) {
        return m_pPlugin;
    }
    try {
        m_pPlugin = new CNetSrvPlugin();
    } catch (...) {
        return nullptr;
    }
    return m_pPlugin;
}

void CNetSrvPluginFactory::Release()
{
    if (m_pPlugin == nullptr) {
        return;
    }
    try {
        delete m_pPlugin;
    } catch (...) {
        return;
    }
    m_pPlugin = nullptr;
}

IBasePlugin* CreatePlugin()
{
    return CNetSrvPluginFactory::Create();
}

void ReleasePlugin()
{
    CNetSrvPluginFactory::Release();
}
