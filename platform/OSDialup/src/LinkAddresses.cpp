// The system's interface list as the dial-up queries need it.
#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include "OSDialupQuery.h"

namespace osdialup {

std::vector<LinkAddress> ReadLinkAddresses()
{
    std::vector<LinkAddress> links;
    ifaddrs* pList = nullptr;
    if (getifaddrs(&pList) != 0) {
        return links;
    }
    try {
        for (const ifaddrs* p = pList; p != nullptr; p = p->ifa_next) {
            if (p->ifa_name == nullptr) {
                continue;
            }
            LinkAddress link;
            link.name = p->ifa_name;
            // A link that is up but has lost its carrier (a wwan interface
            // after the bearer dropped) carries no traffic: not up for us.
            link.up = (p->ifa_flags & IFF_UP) != 0 && (p->ifa_flags & IFF_RUNNING) != 0;
            char text[INET6_ADDRSTRLEN] = {0};
            if (p->ifa_addr != nullptr && p->ifa_addr->sa_family == AF_INET) {
                const sockaddr_in* pIn = reinterpret_cast<const sockaddr_in*>(p->ifa_addr);
                if (inet_ntop(AF_INET, &pIn->sin_addr, text, sizeof(text)) != nullptr) {
                    link.family = AF_INET;
                    link.address = text;
                }
            } else if (p->ifa_addr != nullptr && p->ifa_addr->sa_family == AF_INET6) {
                const sockaddr_in6* pIn6 = reinterpret_cast<const sockaddr_in6*>(p->ifa_addr);
                if (inet_ntop(AF_INET6, &pIn6->sin6_addr, text, sizeof(text)) != nullptr) {
                    link.family = AF_INET6;
                    link.address = text;
                    link.linkLocal = IN6_IS_ADDR_LINKLOCAL(&pIn6->sin6_addr);
                }
            }
            links.push_back(link);
        }
    } catch (...) {
        freeifaddrs(pList);
        throw;
    }
    freeifaddrs(pList);
    return links;
}

}  // namespace osdialup
