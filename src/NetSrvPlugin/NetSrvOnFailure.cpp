// How a failed command's code and trace are settled.

#include "NetSrvOnFailure.h"

void OnFailure::Settle(unsigned long dwCode, std::atomic<unsigned long>& dwLastError) const
{
    if (m_bServiceWord) {
        dwLastError = dwCode;
    }
    if (m_pdwStatus != nullptr) {
        *m_pdwStatus = dwCode;
    }
    if (m_pszSpecialTrace != nullptr && dwCode == m_dwSpecialCode) {
        NetSrvTrace(m_iSpecialLevel, m_pszSpecialTrace);
    } else if (m_pszTrace != nullptr) {
        NetSrvTrace(m_iTraceLevel, m_pszTrace);
    }
}

void OnFailure::NoProcessor() const
{
    NetSrvTrace(TL_ERRO, m_pszNoProcessor);
}
