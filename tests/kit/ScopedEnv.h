// Sets (or, given null, clears) an environment variable while it lives and
// puts the value it had back at the end.
#ifndef TESTKIT_SCOPEDENV_H
#define TESTKIT_SCOPEDENV_H

#include <stdlib.h>

#include <string>

namespace testkit {

class ScopedEnv {
public:
    ScopedEnv(const char* pszName, const char* pszValue) : m_name(pszName)
    {
        const char* pszOld = getenv(pszName);
        m_bHadOld = pszOld != nullptr;
        m_old = m_bHadOld ? pszOld : "";
        Set(pszValue);
    }
    ~ScopedEnv() { Restore(); }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;

    void Set(const char* pszValue)
    {
        if (pszValue != nullptr) {
            setenv(m_name.c_str(), pszValue, 1);
        } else {
            unsetenv(m_name.c_str());
        }
    }
    void Restore() { Set(m_bHadOld ? m_old.c_str() : nullptr); }

private:
    std::string m_name;
    std::string m_old;
    bool m_bHadOld = false;
};

}  // namespace testkit

#endif
