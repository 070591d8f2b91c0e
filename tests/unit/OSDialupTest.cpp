// The dial-up library: addresses of a link from the interface list, name
// servers from the resolver files, and the buffer rules of its C functions.
#include <gtest/gtest.h>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstring>
#include <string>
#include <vector>

#include "LoopbackIPv6.h"
#include "OSDialup.h"
#include "OSDialupQuery.h"
#include "TempDir.h"

namespace {

using osdialup::LinkAddress;
using osdialup::ResolvFiles;

using testkit::LoopbackHasIPv6;

LinkAddress Entry(const char* name, bool up, int family, const char* address,
                  bool linkLocal = false)
{
    LinkAddress link;
    link.name = name;
    link.up = up;
    link.family = family;
    link.address = address;
    link.linkLocal = linkLocal;
    return link;
}

// A modem's links as getifaddrs lists them: the link-layer entry first, then
// the addresses.
std::vector<LinkAddress> ModemLinks()
{
    return {
        Entry("lo", true, 0, ""),
        Entry("wwan0", true, 0, ""),
        Entry("ppp0", true, 0, ""),
        Entry("usb0", false, 0, ""),
        Entry("lo", true, AF_INET, "127.0.0.1"),
        Entry("wwan0", true, AF_INET, "10.64.12.7"),
        Entry("wwan0", true, AF_INET, "10.64.12.8"),
        Entry("ppp0", true, AF_INET, "100.80.3.14"),
        Entry("usb0", false, AF_INET, "192.168.8.100"),
        Entry("lo", true, AF_INET6, "::1"),
        Entry("wwan0", true, AF_INET6, "fe80::8c2b:1ff:fe33:4e51", true),
        Entry("wwan0", true, AF_INET6, "2a02:8109:b6c0:1a00:8c2b:1ff:fe33:4e51"),
        Entry("ppp0", true, AF_INET6, "fe80::d1e5:7a2a:8a5b:10", true),
    };
}

// The resolver files of a scratch directory.
ResolvFiles FilesIn(const testkit::TempDir& dir)
{
    return {dir / "ppp-resolv.conf", dir / "resolv.conf"};
}

TEST(OSDialup, LoopbackAddressesFromTheSystem)
{
    char buffer[64];
    EXPECT_EQ(OS_DIALUP_GetDynamicIP("lo", "", buffer, sizeof(buffer)), OS_DIALUP_ERROR_SUCCED);
    EXPECT_STREQ(buffer, "127.0.0.1");

    // The param text means nothing to the address queries.
    EXPECT_EQ(OS_DIALUP_GetDynamicIP("lo", nullptr, buffer, sizeof(buffer)),
              OS_DIALUP_ERROR_SUCCED);
    EXPECT_STREQ(buffer, "127.0.0.1");

    const bool bIPv6 = LoopbackHasIPv6();
    EXPECT_EQ(OS_DIALUP_GetDynamicIP6("lo", "ipv4", buffer, sizeof(buffer)),
              bIPv6 ? OS_DIALUP_ERROR_SUCCED : OS_DIALUP_ERROR_FAILED);
    EXPECT_STREQ(buffer, bIPv6 ? "::1" : "");

    const std::vector<LinkAddress> links = osdialup::ReadLinkAddresses();
    bool bLoopbackUp = false;
    for (const LinkAddress& link : links) {
        bLoopbackUp = bLoopbackUp || (link.name == "lo" && link.up);
    }
    EXPECT_TRUE(bLoopbackUp);
}

TEST(OSDialup, ArgumentsAndRefusals)
{
    typedef int (*Function)(const char*, const char*, char*, int);
    const Function functions[] = {OS_DIALUP_GetDynamicIP, OS_DIALUP_GetDynamicIP6,
                                  OS_DIALUP_GetDynamicDNS};
    struct Case {
        const char* what;
        const char* pszInterface;
        bool nullBuffer;
        int size;
        int expected;
    };
    const Case cases[] = {
        {"null interface", nullptr, false, 32, OS_DIALUP_ERROR_BADPARAM},
        {"null buffer", "lo", true, 32, OS_DIALUP_ERROR_BADPARAM},
        {"size 0", "lo", false, 0, OS_DIALUP_ERROR_BADPARAM},
        {"negative size", "lo", false, -5, OS_DIALUP_ERROR_BADPARAM},
        {"nothing connected", "", false, 32, OS_DIALUP_ERROR_FAILED},
        {"no such link", "wwan-none9", false, 32, OS_DIALUP_ERROR_FAILED},
        {"longer than any link name", "lo-and-a-very-long-interface-name", false, 32,
         OS_DIALUP_ERROR_FAILED},
    };
    for (Function function : functions) {
        for (const Case& c : cases) {
            SCOPED_TRACE(c.what);
            char buffer[33];
            std::memset(buffer, 'Z', sizeof(buffer));
            EXPECT_EQ(function(c.pszInterface, "", c.nullBuffer ? nullptr : buffer, c.size),
                      c.expected);
            // A usable buffer always ends up terminated; an unusable one untouched.
            EXPECT_EQ(buffer[0], c.size > 0 && !c.nullBuffer ? '\0' : 'Z');
            EXPECT_EQ(buffer[1], 'Z');
        }
    }
}

TEST(OSDialup, AddressOfALink)
{
    const std::vector<LinkAddress> links = ModemLinks();
    struct Case {
        const char* link;
        int family;
        int expected;
        const char* text;
    };
    const Case cases[] = {
        {"wwan0", AF_INET, OS_DIALUP_ERROR_SUCCED, "10.64.12.7"},    // the first listed
        {"ppp0", AF_INET, OS_DIALUP_ERROR_SUCCED, "100.80.3.14"},
        {"wwan0", AF_INET6, OS_DIALUP_ERROR_SUCCED, "2a02:8109:b6c0:1a00:8c2b:1ff:fe33:4e51"},
        {"ppp0", AF_INET6, OS_DIALUP_ERROR_SUCCED, "fe80::d1e5:7a2a:8a5b:10"},   // nothing else
        {"usb0", AF_INET, OS_DIALUP_ERROR_FAILED, ""},     // down: its address carries nothing
        {"usb0", AF_INET6, OS_DIALUP_ERROR_FAILED, ""},
        {"ppp", AF_INET, OS_DIALUP_ERROR_FAILED, ""},      // names match whole
        {"ppp01", AF_INET, OS_DIALUP_ERROR_FAILED, ""},
        {"", AF_INET, OS_DIALUP_ERROR_FAILED, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.link) + (c.family == AF_INET ? " IPv4" : " IPv6"));
        char buffer[64];
        std::memset(buffer, 'Z', sizeof(buffer));
        const int result =
            c.family == AF_INET
                ? osdialup::QueryDynamicIP(c.link, "", buffer, sizeof(buffer), links)
                : osdialup::QueryDynamicIP6(c.link, "", buffer, sizeof(buffer), links);
        EXPECT_EQ(result, c.expected);
        EXPECT_STREQ(buffer, c.text);
    }
    char buffer[8];
    EXPECT_EQ(osdialup::QueryDynamicIP("wwan0", "", buffer, sizeof(buffer), {}),
              OS_DIALUP_ERROR_FAILED);
}

TEST(OSDialup, BufferMustHoldTheWholeText)
{
    const std::vector<LinkAddress> links = ModemLinks();
    const std::string ipv6 = "2a02:8109:b6c0:1a00:8c2b:1ff:fe33:4e51";
    struct Case {
        bool ipv6;
        int size;
        int expected;
    };
    const Case cases[] = {
        {false, 1, OS_DIALUP_ERROR_FAILED},
        {false, 10, OS_DIALUP_ERROR_FAILED},   // "10.64.12.7" is 10 characters
        {false, 11, OS_DIALUP_ERROR_SUCCED},
        {true, static_cast<int>(ipv6.size()), OS_DIALUP_ERROR_FAILED},
        {true, static_cast<int>(ipv6.size()) + 1, OS_DIALUP_ERROR_SUCCED},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.size);
        std::vector<char> buffer(static_cast<std::size_t>(c.size) + 8, 'Z');
        const int result =
            c.ipv6 ? osdialup::QueryDynamicIP6("wwan0", "", buffer.data(), c.size, links)
                   : osdialup::QueryDynamicIP("wwan0", "", buffer.data(), c.size, links);
        EXPECT_EQ(result, c.expected);
        const std::string text(buffer.data());
        EXPECT_EQ(text, c.expected == OS_DIALUP_ERROR_SUCCED ? (c.ipv6 ? ipv6 : "10.64.12.7")
                                                             : "");
        for (std::size_t i = static_cast<std::size_t>(c.size); i < buffer.size(); ++i) {
            EXPECT_EQ(buffer[i], 'Z') << "written past the size at " << i;
        }
    }
}

TEST(OSDialup, NameServersOfAResolverFile)
{
    static const char kGarbage[] = "nameserver \x01\xff\0 1.2.3.4\n";
    struct Case {
        const char* what;
        std::string text;
        std::vector<std::string> expected;
    };
    const Case cases[] = {
        {"what pppd writes", "nameserver 10.11.12.13\nnameserver 10.11.12.14\n",
         {"10.11.12.13", "10.11.12.14"}},
        {"a managed file",
         "# Generated by NetworkManager\nsearch lan\nnameserver 192.168.8.1\n"
         "nameserver 2001:db8::53\noptions edns0 trust-ad\n",
         {"192.168.8.1", "2001:db8::53"}},
        {"zone of a link-local server kept", "nameserver fe80::1%wwan0\n", {"fe80::1%wwan0"}},
        {"duplicates once, order kept", "nameserver 8.8.8.8\nnameserver 1.1.1.1\nnameserver 8.8.8.8",
         {"8.8.8.8", "1.1.1.1"}},
        {"blanks, tabs, CR and trailing comments",
         "  nameserver\t9.9.9.9   # quad nine\r\nnameserver 149.112.112.112;x\r\n",
         {"9.9.9.9", "149.112.112.112"}},
        {"comments and look-alikes skipped",
         "#nameserver 1.2.3.4\n; nameserver 1.2.3.5\nnameserver8.8.8.8\nnameservers 1.2.3.6\n"
         "NAMESERVER 1.2.3.7\ndomain example.net\n",
         {}},
        {"entries that are not numeric addresses skipped",
         "nameserver\nnameserver \nnameserver dns.example.net\nnameserver 1.2.3\n"
         "nameserver 256.1.1.1\nnameserver fe80::1%\nnameserver 1.2.3.4\n",
         {"1.2.3.4"}},
        {"no final line end", "nameserver 10.0.0.1", {"10.0.0.1"}},
        {"empty", "", {}},
        {"binary garbage", std::string(kGarbage, sizeof(kGarbage) - 1), {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(osdialup::ParseNameServers(c.text), c.expected);
    }
}

TEST(OSDialup, WhichResolverFileServesALink)
{
    testkit::TempDir dir;
    const ResolvFiles files = FilesIn(dir);
    dir.Write("resolv.conf", "nameserver 192.168.8.1\n");

    // Without the dial-up file every link reads the system file.
    EXPECT_EQ(osdialup::NameServersFor("ppp0", files),
              std::vector<std::string>{"192.168.8.1"});

    dir.Write("ppp-resolv.conf", "nameserver 10.11.12.13\nnameserver 10.11.12.14\n");
    EXPECT_EQ(osdialup::NameServersFor("ppp0", files),
              (std::vector<std::string>{"10.11.12.13", "10.11.12.14"}));
    EXPECT_EQ(osdialup::NameServersFor("ppp1", files).size(), 2u);
    EXPECT_EQ(osdialup::NameServersFor("wwan0", files),
              std::vector<std::string>{"192.168.8.1"});

    // A dial-up file that names nobody does not hide the system's servers.
    dir.Write("ppp-resolv.conf", "# empty\n");
    EXPECT_EQ(osdialup::NameServersFor("ppp0", files),
              std::vector<std::string>{"192.168.8.1"});

    unlink(files.systemFile.c_str());
    EXPECT_TRUE(osdialup::NameServersFor("wwan0", files).empty());

    // Only the head of an absurdly long file is read.
    dir.Write("resolv.conf", std::string(70000, '#') + "\nnameserver 1.2.3.4\n");
    EXPECT_TRUE(osdialup::NameServersFor("wwan0", files).empty());
}

TEST(OSDialup, NameServersOfALink)
{
    testkit::TempDir dir;
    const ResolvFiles files = FilesIn(dir);
    dir.Write("resolv.conf",
              "nameserver 192.168.8.1\nnameserver 2001:db8::53\nnameserver 192.168.8.2\n");
    dir.Write("ppp-resolv.conf", "nameserver 10.11.12.13\n");
    const std::vector<LinkAddress> links = ModemLinks();
    struct Case {
        const char* link;
        const char* param;
        int size;
        int expected;
        const char* text;
    };
    const Case cases[] = {
        {"wwan0", "", 64, OS_DIALUP_ERROR_SUCCED, "192.168.8.1,2001:db8::53,192.168.8.2"},
        {"wwan0", nullptr, 64, OS_DIALUP_ERROR_SUCCED, "192.168.8.1,2001:db8::53,192.168.8.2"},
        {"wwan0", "ipv4", 64, OS_DIALUP_ERROR_SUCCED, "192.168.8.1,192.168.8.2"},
        {"wwan0", "IPv6", 64, OS_DIALUP_ERROR_SUCCED, "2001:db8::53"},
        {"wwan0", "dns", 64, OS_DIALUP_ERROR_SUCCED, "192.168.8.1,2001:db8::53,192.168.8.2"},
        {"ppp0", "", 64, OS_DIALUP_ERROR_SUCCED, "10.11.12.13"},
        {"ppp0", "ipv6", 64, OS_DIALUP_ERROR_FAILED, ""},    // the peer gave none
        {"usb0", "", 64, OS_DIALUP_ERROR_FAILED, ""},        // down
        {"wwan9", "", 64, OS_DIALUP_ERROR_FAILED, ""},       // no such link
        {"", "", 64, OS_DIALUP_ERROR_FAILED, ""},
        {"wwan0", "ipv4", 23, OS_DIALUP_ERROR_FAILED, ""},   // 23 characters need 24 bytes
        {"wwan0", "ipv4", 24, OS_DIALUP_ERROR_SUCCED, "192.168.8.1,192.168.8.2"},
        {"wwan0", "ipv4", 0, OS_DIALUP_ERROR_BADPARAM, "unchanged"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.link) + " " + (c.param ? c.param : "(null)") + " " +
                     std::to_string(c.size));
        char buffer[72];
        std::strcpy(buffer, "unchanged");
        std::memset(buffer + 10, 'Z', sizeof(buffer) - 10);
        EXPECT_EQ(osdialup::QueryDynamicDNS(c.link, c.param, buffer, c.size, links, files),
                  c.expected);
        EXPECT_STREQ(buffer, c.text);
        EXPECT_EQ(buffer[sizeof(buffer) - 1], 'Z');
    }
}

}  // namespace
