// What a failed command of the service leaves behind: where its code goes and
// what is traced. Every operation hands one to the service's Execute helpers
// (NetSrvImpl.h), which look the processor up, run the command with an error
// word of their own and settle a failure here. A plain value; no locking.
// Build it in the call that uses it: the setters return a reference to the
// object they change, and the texts must be string literals.
#ifndef NETSRVPLUGIN_NETSRVONFAILURE_H
#define NETSRVPLUGIN_NETSRVONFAILURE_H

#include <atomic>

#include "NetSrvTrace.h"

class OnFailure {
public:
    // The code becomes the service's last error (GetLastError()) only.
    OnFailure() = default;
    // The code becomes the service's last error and is copied to the caller's
    // word, as after "*pdwStatus = GetLastError()". Whichever of the two words
    // a command is said to use, this is its road when the caller hears the
    // code: never a code that another operation left in the shared word.
    explicit OnFailure(unsigned long* pdwStatus) : m_pdwStatus(pdwStatus) {}

    // The code goes to the caller's word alone; the service's last error keeps
    // the value it had.
    OnFailure& CallerWordOnly()
    {
        m_bServiceWord = false;
        return *this;
    }
    // Traced when the command fails.
    OnFailure& Trace(const char* pszMessage, int iLevel = TL_ERRO)
    {
        m_pszTrace = pszMessage;
        m_iTraceLevel = iLevel;
        return *this;
    }
    // Traced instead of Trace's message when the failure's code is dwCode.
    OnFailure& TraceForCode(unsigned long dwCode, const char* pszMessage, int iLevel)
    {
        m_dwSpecialCode = dwCode;
        m_pszSpecialTrace = pszMessage;
        m_iSpecialLevel = iLevel;
        return *this;
    }
    // Traced instead of the usual message when there is no AT processor.
    OnFailure& NoProcessorTrace(const char* pszMessage)
    {
        m_pszNoProcessor = pszMessage;
        return *this;
    }

    // A command failed with dwCode: the words are written and the trace is
    // made as set above.
    void Settle(unsigned long dwCode, std::atomic<unsigned long>& dwLastError) const;
    // There was no processor to ask: only the trace; no word is touched.
    void NoProcessor() const;

private:
    unsigned long* m_pdwStatus = nullptr;
    bool m_bServiceWord = true;
    const char* m_pszTrace = nullptr;
    int m_iTraceLevel = TL_ERRO;
    const char* m_pszSpecialTrace = nullptr;
    unsigned long m_dwSpecialCode = 0;
    int m_iSpecialLevel = TL_ERRO;
    const char* m_pszNoProcessor = NETSRV_MSG_NO_PROCESSOR;
};

#endif
