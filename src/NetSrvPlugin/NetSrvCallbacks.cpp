// Client registration, delivery of events to clients, the subscription with the
// AT processor and the report queue with its thread.

#include <algorithm>
#include <cassert>
#include <unistd.h>

#include "NetSrvAtCommonds.h"
#include "NetSrvImpl.h"
#include "NetSrvTrace.h"
#include "isapuguard.h"

namespace {
const char* const kProcessorClientName = "NetSrv";
// The report thread handles at most one queued report per pause.
const useconds_t kReportPauseUs = 200 * 1000;

// The reports the service subscribes to, in the order the processor is told.
const EnumCmdIndex kSubscribedReports[] = {
    INDEX_RSSI_IND,      INDEX_RSSI_IND_EC, INDEX_RSSI_HDR_IND, INDEX_ANTENNA_REPORT,
    INDEX_SERV_IND,      INDEX_SIM_STATUS,  INDEX_SYS_MODE,     INDEX_NET_REGISTER,
    INDEX_CGREG,         INDEX_SYS_INFO,    INDEX_NET_SEARCH,   INDEX_SIM_REFRESH,
    INDEX_PNN_FILE_REFRESH,
};
}  // namespace

void CNetSrvImpl::SRVRegisterCallback(pfnNetSrvCallBack pfnCallBack)
{
    if (pfnCallBack == nullptr) {
        return;
    }
    CISAPUGuard<JMutex> guard(m_lockerCallBackFun);
    if (std::find(m_pVctfnCallback.begin(), m_pVctfnCallback.end(), pfnCallBack) ==
        m_pVctfnCallback.end()) {
        m_pVctfnCallback.push_back(pfnCallBack);
    }
}

void CNetSrvImpl::SRVUnRegisterCallback(pfnNetSrvCallBack pfnCallBack)
{
    if (pfnCallBack == nullptr) {
        return;
    }
    CISAPUGuard<JMutex> guard(m_lockerCallBackFun);
    auto it = std::find(m_pVctfnCallback.begin(), m_pVctfnCallback.end(), pfnCallBack);
    if (it != m_pVctfnCallback.end()) {
        m_pVctfnCallback.erase(it);
    }
}

void CNetSrvImpl::SRVRegisterCallback(IUniCommEvent* pHandler)
{
    if (pHandler == nullptr) {
        return;
    }
    try {
        CISAPUGuard<JMutex> guard(m_lockerCallBackFun);
        for (IUniCommEvent* pKnown : m_listNetSrvEventHandle) {
            if (pKnown == pHandler) {
                return;
            }
        }
        m_listNetSrvEventHandle.push_back(pHandler);
    } catch (...) {
        // Only running out of memory gets here: a program error, not a state.
        NetSrvTrace(TL_CRIT, "CNetSrvImpl::SRVRegisterCallback exception");
        assert(false && "CNetSrvImpl::SRVRegisterCallback exception");
    }
}

void CNetSrvImpl::SRVUnRegisterCallback(IUniCommEvent* pHandler)
{
    if (pHandler == nullptr) {
        return;
    }
    try {
        CISAPUGuard<JMutex> guard(m_lockerCallBackFun);
        auto it = std::find(m_listNetSrvEventHandle.begin(), m_listNetSrvEventHandle.end(),
                            pHandler);
        if (it != m_listNetSrvEventHandle.end()) {
            m_listNetSrvEventHandle.erase(it);
        }
    } catch (...) {
        NetSrvTrace(TL_CRIT, "CNetSrvImpl::SRVUnRegisterCallback exception");
        assert(false && "CNetSrvImpl::SRVUnRegisterCallback exception");
    }
}

bool CNetSrvImpl::SendCallBackFuns(DWORD dwEvent, void* pData)
{
    if (pData == nullptr) {
        return false;
    }
    {
        CISAPUGuard<JMutex> guard(m_lockerCallBackFun);
        for (pfnNetSrvCallBack pfn : m_pVctfnCallback) {
            // One client that throws must not keep the event from the others.
            try {
                pfn(static_cast<int>(dwEvent), pData);
            } catch (...) {
                if (JThread::IsCancellationInFlight()) {
                    throw;
                }
            }
        }
    }
    OnUniCommEvent(dwEvent, pData);
    return true;
}

bool CNetSrvImpl::OnUniCommEvent(DWORD dwEvent, void* pData)
{
    try {
        CISAPUGuard<JMutex> guard(m_lockerCallBackFun);
        for (IUniCommEvent* pHandler : m_listNetSrvEventHandle) {
            pHandler->OnUniCommEvent(dwEvent, pData);
        }
    } catch (...) {
        // A thread being killed unwinds through here; let it.
        if (JThread::IsCancellationInFlight()) {
            throw;
        }
        return false;
    }
    return true;
}

bool CNetSrvImpl::RegATCallBack()
{
    std::vector<CmdSetItem> vctCmds;
    for (EnumCmdIndex index : kSubscribedReports) {
        vctCmds.push_back(_AtCmdSetTable[index]);
    }

    IProcessor* pProcessor = GetAtProcessor();
    if (pProcessor == nullptr) {
        NetSrvTrace(TL_ERRO, NETSRV_MSG_NO_PROCESSOR);
        return false;
    }
    m_bRegATSuccess = pProcessor->RegisterClient(kProcessorClientName, this, vctCmds);
    return m_bRegATSuccess;
}

bool CNetSrvImpl::UnRegATCallBack()
{
    m_bRegATSuccess = false;
    IProcessor* pProcessor = GetAtProcessor();
    if (pProcessor == nullptr) {
        NetSrvTrace(TL_ERRO, NETSRV_MSG_NO_PROCESSOR);
        return false;
    }
    return pProcessor->UnRegisterClient(kProcessorClientName);
}

void CNetSrvImpl::ReportAtCallBackEvent(Command& cmd)
{
    CISAPUGuard<JMutex> guard(m_LockCmd);
    m_lstCmdBuffer.push_back(cmd);
}

void CNetSrvImpl::ATCallbackThread()
{
    while (!m_bStopThread) {
        CISAPUGuard<JMutex> guard(m_LockCmd);
        if (m_lstCmdBuffer.empty()) {
            guard.Unlock();
            usleep(kReportPauseUs);
            continue;
        }
        Command cmd = m_lstCmdBuffer.front();
        m_lstCmdBuffer.pop_front();
        guard.Unlock();
        // A report that cannot be dispatched must not end the report thread.
        try {
            AtCallBackEvent(cmd);
        } catch (...) {
            if (JThread::IsCancellationInFlight()) {
                throw;
            }
            NetSrvTrace(TL_CRIT, "ATCallbackThread: dispatching a report failed");
        }
        usleep(kReportPauseUs);
    }
}
