// The building blocks of the dial-up library, with their sources of data as
// arguments: the exported functions of OSDialup.h are these over the system's
// interface list and resolver files; hosts and tests may call them over a list
// or files of their own. Reentrant; only ReadLinkAddresses and the resolver
// readers (ReadResolvText, NameServersFor, QueryDynamicDNS) touch the system.
#ifndef OSDIALUP_OSDIALUPQUERY_H
#define OSDIALUP_OSDIALUPQUERY_H

#include <string>
#include <string_view>
#include <vector>

namespace osdialup {

// One entry of the interface list: an interface with one of its addresses, or
// with none (family 0: the link-layer entry that every interface has).
struct LinkAddress {
    std::string name;         // "ppp0", "wwan0", "lo"
    bool up = false;          // administratively up and running
    int family = 0;           // AF_INET, AF_INET6, or 0 for an entry without an address
    std::string address;      // numeric text: "10.64.12.7", "fe80::1"; empty for family 0
    bool linkLocal = false;   // an IPv6 address in fe80::/10
};

// The system's interface list (getifaddrs); empty when it cannot be read.
std::vector<LinkAddress> ReadLinkAddresses();

// The resolver files the name servers come from.
struct ResolvFiles {
    std::string pppFile = "/etc/ppp/resolv.conf";
    std::string systemFile = "/etc/resolv.conf";
};

// The name servers of a resolver file's text, in order, each once:
//   "nameserver 10.11.12.13"  "nameserver fe80::1%wwan0"  "  nameserver 8.8.8.8 # isp"
// Comments (# or ;), other keywords and entries that are not numeric addresses
// are skipped.
std::vector<std::string> ParseNameServers(std::string_view text);

// Reads at most the first 64 KiB of a file; false when it cannot be opened.
bool ReadResolvText(const std::string& path, std::string* pText);

// The name servers that serve a link: for a ppp* link those of the dial-up
// file when it names any, otherwise those of the system file.
std::vector<std::string> NameServersFor(const std::string& strInterface, const ResolvFiles& files);

// The queries behind the exported functions (same arguments, results and
// buffer rules as OSDialup.h), over the given sources.
int QueryDynamicIP(const char* pszInterface, const char* pszParam, char* pszBuffer, int nSize,
                   const std::vector<LinkAddress>& links);
int QueryDynamicIP6(const char* pszInterface, const char* pszParam, char* pszBuffer, int nSize,
                    const std::vector<LinkAddress>& links);
int QueryDynamicDNS(const char* pszInterface, const char* pszParam, char* pszBuffer, int nSize,
                    const std::vector<LinkAddress>& links, const ResolvFiles& files);

}  // namespace osdialup

#endif
