// The host's dial-up library: the addresses that the network gave a data link,
// as the operating system shows them. Thread-safe: every call reads the system
// afresh and keeps no state.
//
// Each function takes the link's interface name ("ppp0", "wwan0"), a parameter
// text, and a buffer of nSize bytes that receives a terminated text:
//
//   OS_DIALUP_GetDynamicIP    the link's IPv4 address, e.g. "10.64.12.7"
//                             (the first one the system lists for the link).
//   OS_DIALUP_GetDynamicIP6   the link's IPv6 address, e.g. "2a02:8109:b6c0::1";
//                             a global (or unique-local) address is preferred,
//                             a link-local one ("fe80::...") is given only when
//                             the link has nothing else. No "%scope" suffix.
//   OS_DIALUP_GetDynamicDNS   the name servers, comma-separated without blanks,
//                             in the order of the resolver file, duplicates
//                             dropped: "10.11.12.13,10.11.12.14" or
//                             "10.11.12.13,2001:db8::53". For a ppp* link they
//                             come from /etc/ppp/resolv.conf (what the peer
//                             gave the dial-up daemon) when that file names at
//                             least one; otherwise from /etc/resolv.conf.
//
// The parameter text: OS_DIALUP_GetDynamicIP and OS_DIALUP_GetDynamicIP6 ignore
// it. OS_DIALUP_GetDynamicDNS reads it as an address-family filter: "ipv4" asks
// only for IPv4 servers, "ipv6" only for IPv6 servers (either in any letter
// case); any other text, the empty text and a null pointer ask for all servers.
//
// Results:
//   OS_DIALUP_ERROR_BADPARAM  null interface name, null buffer, or nSize <= 0.
//   OS_DIALUP_ERROR_FAILED    empty interface name (nothing is connected), a link
//                             that does not exist or is not up, a link without
//                             an address of the family, no name server, or a
//                             buffer too small for the whole text.
//   OS_DIALUP_ERROR_SUCCED    the text is in the buffer.
// Whenever the buffer is usable (non-null, nSize > 0) it holds a terminated
// text afterwards: the answer on success, the empty text otherwise. Nothing is
// ever written beyond nSize bytes, and a text is never cut short.
#ifndef OSDIALUP_OSDIALUP_H
#define OSDIALUP_OSDIALUP_H

enum _OS_DIALUP_ERROR {
    OS_DIALUP_ERROR_SUCCED = 0,
    OS_DIALUP_ERROR_FAILED = 1,
    OS_DIALUP_ERROR_BADPARAM = 2
};

#ifdef __cplusplus
extern "C" {
#endif

int OS_DIALUP_GetDynamicIP(const char* pszInterface, const char* pszParam, char* pszBuffer,
                           int nSize);
int OS_DIALUP_GetDynamicDNS(const char* pszInterface, const char* pszParam, char* pszBuffer,
                            int nSize);
int OS_DIALUP_GetDynamicIP6(const char* pszInterface, const char* pszParam, char* pszBuffer,
                            int nSize);

#ifdef __cplusplus
}
#endif

#endif
