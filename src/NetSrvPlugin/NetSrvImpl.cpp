// Construction and destruction of the service, the AT processor lookup, the
// road that every command takes to the modem, and the modem's last error.

#include "NetSrvImpl.h"
#include "NetSrvOutputs.h"

#include <cstdlib>
#include <cstring>

#include "GlobalFunction.h"
#include "Interface/IDeviceMgr.h"
#include "NetSrvAtCommonds.h"
#include "NetSrvPlugin.h"
#include "NetSrvTrace.h"

namespace {
// A system-information reading younger than this is served from the cache.
const time_t kSysInfoRefreshSeconds = 5;
// How long the destructor waits for a running operator search (it may take
// minutes on a real network) and for the report thread.
const int kSearchThreadWaitSeconds = 240;
const int kWorkerThreadWaitSeconds = 5;
}  // namespace

CNetSrvImpl::CNetSrvImpl()
    : m_dwLastError(0),
      m_bRegATSuccess(false),
      m_bInitAtCGREG(false),
      m_iPrvATIndex(0),
      m_bStopThread(false),
      m_pContainer(nullptr),
      m_BaseTime(0),
      m_formatTime(nullptr)
{
    m_stBandList.nSize = 0;
    m_stBandList.pstList = nullptr;
    m_stLteBandList.nSize = 0;
    m_stLteBandList.pstList = nullptr;
    m_stAcqOrderList.nSize = 0;
    m_stAcqOrderList.pstList = nullptr;
    m_stPnnList.size = 0;
    m_stPnnList.pstPnn = nullptr;
    std::memset(static_cast<void*>(&m_Sysinfo), 0, sizeof(m_Sysinfo));

    // The locks are ready before the subscription: the processor may deliver a
    // report as soon as RegisterClient has returned.
    m_lockerCallBackFun.Init();
    m_lockerATCBFun.Init();
    m_lockerPlmnFun.Init();
    m_LockCmd.Init();
    if (!m_LockSysInfo.IsInitialized()) {
        m_LockSysInfo.Init();
    }

    // A failed subscription leaves the service usable for queries.
    RegATCallBack();

    // The registration-report memory (m_bInitAtCGREG, m_iPrvATIndex) was set in
    // the initialiser list: from here on the processor's thread may use it.
    try {
        // Start 5 seconds in the past so that the first reading goes to the modem.
        m_BaseTime = time(nullptr) - kSysInfoRefreshSeconds;

        IDeviceMgr* pDeviceMgr = CGlobalFunction::GetPluginInterface<IDeviceMgr*>(
            IDEVICEMGR_INTERFACE_ID, IDEVICEMGR_INTERFACE_NO,
            CNetSrvPlugin::GetPluginContainer());
        if (pDeviceMgr != nullptr) {
            pDeviceMgr->RegisterDeviceCallback(this);
            NetSrvTrace(TL_INFO, "CNetSrvImpl::CNetSrvImpl(): "
                                 "pDeviceMgr->RegisterDeviceCallback(this) succed!");
        }

        m_ATCallbackThread.StartThread(this, &CNetSrvImpl::ATCallbackThread, 0);
    } catch (...) {
        // The object is about to be freed: the processor must not call it again.
        UnRegATCallBack();
        throw;
    }
}

CNetSrvImpl::~CNetSrvImpl()
{
    try {
        UnRegATCallBack();
    } catch (...) {
    }
    try {
        m_ThreadGetPlmnList.EndThread(kSearchThreadWaitSeconds);
    } catch (...) {
    }
    m_bRegATSuccess = false;
    m_bStopThread = true;
    try {
        m_ATCallbackThread.EndThread(kWorkerThreadWaitSeconds);
    } catch (...) {
    }
    // The domain check reads the system-information lock, which is destroyed
    // before this thread member would end itself: end it while all is alive.
    try {
        m_CheckDomainChangedThread.EndThread(kWorkerThreadWaitSeconds);
    } catch (...) {
    }
    m_pContainer = nullptr;
    // Lists a client never handed back.
    EmptyList(m_stBandList);
    EmptyList(m_stLteBandList);
    EmptyList(m_stAcqOrderList);
    delete[] m_stPnnList.pstPnn;
}

void CNetSrvImpl::Release()
{
    // The plugin object owns the service's lifetime.
}

int CNetSrvImpl::GetLastError()
{
    return static_cast<int>(m_dwLastError);
}

bool CNetSrvImpl::IsGetSystemInfo()
{
    const time_t now = time(nullptr);
    const time_t base = m_BaseTime;
    const time_t elapsed = now > base ? now - base : base - now;
    if (elapsed < kSysInfoRefreshSeconds) {
        return false;
    }
    m_BaseTime = now;
    return true;
}

bool CNetSrvImpl::OnDeviceMgrEvent(DWORD dwEvent, void* pData)
{
    (void)pData;
    NetSrvTrace(TL_INFO, "CNetSrvImpl::OnDeviceMgrEvent() begin!");
    switch (dwEvent) {
    case EVENT_DEVICE_REJECT:
        NetSrvTrace(TL_CRIT,
                    "===***===***CNetSrvImpl:OnDeviceMgrEvent(): EVENT_DEVICE_REJECT!===***===***");
        // The modem is gone: whatever the cache holds is stale.
        m_BaseTime -= kSysInfoRefreshSeconds;
        break;
    case EVENT_PORT_STATE_CHANGED:
        break;
    case NETSRV_DATA::EVENT_SRV_MS_AVAILABLE:
        NetSrvTrace(TL_CRIT, "===***===***CNetSrvImpl::OnDeviceMgrEvent() "
                             ":EVENT_SRV_MS_AVAILABLE!===***===***");
        break;
    default:
        break;
    }
    NetSrvTrace(TL_INFO, "CNetSrvImpl::OnDeviceMgrEvent() end!");
    return true;
}

IProcessor* CNetSrvImpl::GetAtProcessor()
{
    IPluginContainer* pContainer = m_pContainer;
    if (pContainer == nullptr) {
        pContainer = CNetSrvPlugin::GetPluginContainer();
        if (pContainer == nullptr) {
            NetSrvTrace(TL_INFO, "GetAtProcessor : get m_pContainer is null");
            return nullptr;
        }
        m_pContainer = pContainer;
    }
    // Never cached: the host may replace its processor when the modem changes.
    void* pProcessor = nullptr;
    pContainer->QueryPluginInterface(IPROCESSOR_INTERFACE_ID, IPROCESSOR_INTERFACE_NO,
                                     &pProcessor);
    return static_cast<IProcessor*>(pProcessor);
}

template <typename Call>
bool CNetSrvImpl::Execute(const OnFailure& failure, Call call)
{
    IProcessor* pProcessor = GetAtProcessor();
    if (pProcessor == nullptr) {
        failure.NoProcessor();
        return false;
    }
    unsigned long dwCode = 0;
    if (call(*pProcessor, &dwCode)) {
        return true;
    }
    failure.Settle(dwCode, m_dwLastError);
    return false;
}

bool CNetSrvImpl::ExecuteWithResponse(ICommand& cmd, ICommand& rsp, const OnFailure& failure,
                                      unsigned long ulTimeoutMs)
{
    return Execute(failure, [&](IProcessor& processor, unsigned long* pdwCode) {
        return processor.ExecuteCmdWaitResponse(&cmd, &rsp, pdwCode, ulTimeoutMs);
    });
}

bool CNetSrvImpl::ExecuteWithLines(ICommand& cmd, IMultiResponse& lines, const OnFailure& failure,
                                   unsigned long ulTimeoutMs)
{
    return Execute(failure, [&](IProcessor& processor, unsigned long* pdwCode) {
        return processor.ExecuteCmdWaitMultiResponse(&cmd, &lines, pdwCode, ulTimeoutMs);
    });
}

bool CNetSrvImpl::ExecuteNoResponse(ICommand& cmd, const OnFailure& failure,
                                    unsigned long ulTimeoutMs)
{
    return Execute(failure, [&](IProcessor& processor, unsigned long* pdwCode) {
        return processor.ExecuteCmdNoResponse(&cmd, pdwCode, ulTimeoutMs);
    });
}

bool CNetSrvImpl::HasAtProcessor()
{
    if (GetAtProcessor() != nullptr) {
        return true;
    }
    NetSrvTrace(TL_ERRO, NETSRV_MSG_NO_PROCESSOR);
    return false;
}

bool CNetSrvImpl::FailWithLastError(unsigned long* pdwStatus, const char* pszMessage)
{
    *pdwStatus = static_cast<unsigned long>(GetLastError());
    if (pszMessage != nullptr) {
        NetSrvTrace(TL_ERRO, pszMessage);
    }
    return false;
}

bool CNetSrvImpl::SRVGetLastErr(NETSRV_DATA::SRV_LAST_ERROR* pLastErr, unsigned long* pdwStatus)
{
    if (!OutputsUsable(pLastErr, pdwStatus)) {
        return false;
    }

    ReadLastErrCmd cmd;
    ReadLastErrRsp rsp;
    // The caller chooses which kind of last error it asks for.
    cmd.type = static_cast<uint64>(pLastErr->type);
    if (!ExecuteWithResponse(cmd, rsp,
                             OnFailure(pdwStatus).Trace("CNetSrvImpl::SRVGetLastErr error"))) {
        return false;
    }
    pLastErr->type = static_cast<unsigned long>(rsp.type.GetNumValue());
    pLastErr->code = static_cast<unsigned long>(rsp.code.GetNumValue());
    return true;
}
