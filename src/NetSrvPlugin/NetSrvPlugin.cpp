#include "NetSrvPlugin.h"

#include <new>

#include "Interface/INetSrv.h"
#include "NetSrvImpl.h"

namespace {
const char* const kPluginClsid = "385BDF98-9AA3-4121-9FBB-CACB1CD9608C";
const char* const kPluginName = "NetSrvPlugin";
const unsigned long kPluginVersion = 0x101;
}  // namespace

std::atomic<IPluginContainer*> CNetSrvPlugin::m_pIPluginContainer(nullptr);

CNetSrvPlugin::CNetSrvPlugin() : m_pCNetSrvImpl(nullptr), m_iError(0) {}

CNetSrvPlugin::~CNetSrvPlugin()
{
    // The service object is OnDestroy's to delete; only the container goes here.
    m_pIPluginContainer = nullptr;
}

void CNetSrvPlugin::Release()
{
    // The factory owns the plugin object's lifetime.
}

int CNetSrvPlugin::GetLastError()
{
    return m_iError;
}

void CNetSrvPlugin::OnDestroy()
{
    if (m_pCNetSrvImpl != nullptr) {
        CNetSrvImpl* pImpl = m_pCNetSrvImpl;
        m_pCNetSrvImpl = nullptr;
        delete pImpl;
    }
}

void CNetSrvPlugin::SetPluginContainer(IPluginContainer* pContainer)
{
    if (pContainer != nullptr) {
        m_pIPluginContainer = pContainer;
    }
}

IPluginContainer* CNetSrvPlugin::GetPluginContainer()
{
    return m_pIPluginContainer;
}

bool CNetSrvPlugin::Init()
{
    m_iError = 0;
    return true;
}

bool CNetSrvPlugin::QueryInterface(int iInterfaceId, IBaseInterface** ppInterface)
{
    if (iInterfaceId != INETSRV_INTERFACE_NO) {
        if (ppInterface != nullptr) {
            *ppInterface = nullptr;
        }
        return false;
    }
    if (m_pCNetSrvImpl == nullptr) {
        try {
            m_pCNetSrvImpl = new CNetSrvImpl();
        } catch (...) {
            // new frees the memory itself when the constructor throws.
            m_pCNetSrvImpl = nullptr;
            return false;
        }
    }
    if (ppInterface != nullptr) {
        *ppInterface = static_cast<INetSrv*>(m_pCNetSrvImpl);
    }
    m_iError = 0;
    return true;
}

IBasePlugin::E_PLUGIN_TYPE CNetSrvPlugin::GetPluginType()
{
    m_iError = 0;
    return OPERATION;
}

const char* CNetSrvPlugin::GetCLSID()
{
    m_iError = 0;
    return kPluginClsid;
}

unsigned long CNetSrvPlugin::GetVersion()
{
    m_iError = 0;
    return kPluginVersion;
}

const char* CNetSrvPlugin::GetPluginName()
{
    m_iError = 0;
    return kPluginName;
}

bool CNetSrvPlugin::IsAllowRelease()
{
    return true;
}
