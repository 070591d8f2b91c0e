// The three address queries over given sources, and the buffer rules they
// share: the answer whole or the empty text, never more than nSize bytes.
#include <sys/socket.h>

#include <cstring>
#include <strings.h>

#include "OSDialup.h"
#include "OSDialupQuery.h"

namespace osdialup {

namespace {

bool BadArguments(const char* pszInterface, const char* pszBuffer, int nSize)
{
    return pszInterface == nullptr || pszBuffer == nullptr || nSize <= 0;
}

// Puts the empty text into a usable buffer; answers result.
int Fail(char* pszBuffer, int nSize, int result)
{
    if (pszBuffer != nullptr && nSize > 0) {
        pszBuffer[0] = '\0';
    }
    return result;
}

// The whole text with its terminator, or FAILED and the empty text: a cut
// address would look valid and be wrong.
int CopyOut(const std::string& text, char* pszBuffer, int nSize)
{
    if (text.size() >= static_cast<std::size_t>(nSize)) {
        return Fail(pszBuffer, nSize, OS_DIALUP_ERROR_FAILED);
    }
    std::memcpy(pszBuffer, text.c_str(), text.size() + 1);
    return OS_DIALUP_ERROR_SUCCED;
}

// True when the list names the interface and shows it up.
bool IsLinkUp(const std::vector<LinkAddress>& links, const std::string& name)
{
    for (const LinkAddress& link : links) {
        if (link.name == name && link.up) {
            return true;
        }
    }
    return false;
}

// The first address of the family on an up link; for IPv6 a link-local
// address only when the link has no other (a ppp link often has only its
// fe80:: address until the router advertisement arrives).
const LinkAddress* PickAddress(const std::vector<LinkAddress>& links, const std::string& name,
                               int family)
{
    const LinkAddress* pLinkLocal = nullptr;
    for (const LinkAddress& link : links) {
        if (link.name != name || !link.up || link.family != family || link.address.empty()) {
            continue;
        }
        if (!link.linkLocal) {
            return &link;
        }
        if (pLinkLocal == nullptr) {
            pLinkLocal = &link;
        }
    }
    return pLinkLocal;
}

int QueryAddress(const char* pszInterface, char* pszBuffer, int nSize,
                 const std::vector<LinkAddress>& links, int family)
{
    if (BadArguments(pszInterface, pszBuffer, nSize)) {
        return Fail(pszBuffer, nSize, OS_DIALUP_ERROR_BADPARAM);
    }
    const LinkAddress* pLink = PickAddress(links, pszInterface, family);
    if (pszInterface[0] == '\0' || pLink == nullptr) {
        return Fail(pszBuffer, nSize, OS_DIALUP_ERROR_FAILED);
    }
    return CopyOut(pLink->address, pszBuffer, nSize);
}

enum class Family { Any, IPv4, IPv6 };

Family FamilyFromParam(const char* pszParam)
{
    if (pszParam != nullptr && strcasecmp(pszParam, "ipv4") == 0) {
        return Family::IPv4;
    }
    if (pszParam != nullptr && strcasecmp(pszParam, "ipv6") == 0) {
        return Family::IPv6;
    }
    return Family::Any;
}

bool Wanted(const std::string& server, Family family)
{
    const bool isIPv6 = server.find(':') != std::string::npos;
    switch (family) {
    case Family::Any:
        return true;
    case Family::IPv4:
        return !isIPv6;
    case Family::IPv6:
        return isIPv6;
    }
    return false;
}

}  // namespace

int QueryDynamicIP(const char* pszInterface, const char* pszParam, char* pszBuffer, int nSize,
                   const std::vector<LinkAddress>& links)
{
    (void)pszParam;
    return QueryAddress(pszInterface, pszBuffer, nSize, links, AF_INET);
}

int QueryDynamicIP6(const char* pszInterface, const char* pszParam, char* pszBuffer, int nSize,
                    const std::vector<LinkAddress>& links)
{
    (void)pszParam;
    return QueryAddress(pszInterface, pszBuffer, nSize, links, AF_INET6);
}

int QueryDynamicDNS(const char* pszInterface, const char* pszParam, char* pszBuffer, int nSize,
                    const std::vector<LinkAddress>& links, const ResolvFiles& files)
{
    if (BadArguments(pszInterface, pszBuffer, nSize)) {
        return Fail(pszBuffer, nSize, OS_DIALUP_ERROR_BADPARAM);
    }
    const std::string name(pszInterface);
    if (name.empty() || !IsLinkUp(links, name)) {
        return Fail(pszBuffer, nSize, OS_DIALUP_ERROR_FAILED);
    }
    const Family family = FamilyFromParam(pszParam);
    std::string text;
    for (const std::string& server : NameServersFor(name, files)) {
        if (Wanted(server, family)) {
            text += text.empty() ? "" : ",";
            text += server;
        }
    }
    if (text.empty()) {
        return Fail(pszBuffer, nSize, OS_DIALUP_ERROR_FAILED);
    }
    return CopyOut(text, pszBuffer, nSize);
}

}  // namespace osdialup
