// Dynamic addresses: the service names the current link through the connect
// service and hands the question to the dial-up library. The library is the
// real one: it refuses an empty or unknown interface and answers for the
// loopback interface, which every Linux machine has, so an adapter entry named
// "lo" drives the success road without a modem or a network.

#include <cstring>
#include <string>
#include <vector>

#include "LoopbackIPv6.h"
#include "OSDialup.h"
#include "ServiceFixture.h"
#include "TraceSrv.h"

namespace {

using testkit::FakeConnection;
using NETCONNECT_DATA::CONNECTED;
using NETCONNECT_DATA::CONNECTED_NO_RRC;
using NETCONNECT_DATA::CONNECTTING;
using NETCONNECT_DATA::DISCONNECTED;
using NETCONNECT_DATA::TYPE_ADSL;
using NETCONNECT_DATA::TYPE_DIALUP;
using NETCONNECT_DATA::TYPE_NDIS;
using NETCONNECT_DATA::TYPE_WLAN;

typedef bool (CNetSrvImpl::*AddressOperation)(const char*, const char*, char*, int);
typedef int (*LibraryFunction)(const char*, const char*, char*, int);

struct OperationRow {
    const char* name;
    AddressOperation operation;
    LibraryFunction library;
};

const OperationRow kOperations[] = {
    {"SRVGetDynamicIP", &CNetSrvImpl::SRVGetDynamicIP, OS_DIALUP_GetDynamicIP},
    {"SRVGetDynamicDNS", &CNetSrvImpl::SRVGetDynamicDNS, OS_DIALUP_GetDynamicDNS},
    {"SRVGetDynamicIP6", &CNetSrvImpl::SRVGetDynamicIP6, OS_DIALUP_GetDynamicIP6},
};

std::string Message(const OperationRow& row, const char* outcome)
{
    return std::string(row.name) + " : " + outcome;
}

using testkit::LoopbackHasIPv6;

class DynamicAddress : public ServiceFixture {
protected:
    void SetUp() override
    {
        ServiceFixture::SetUp();
        container.Register(INETCONNECTSERVICE_INTERFACE_ID, INETCONNECTSERVICE_INTERFACE_NO,
                           static_cast<INetConnectService*>(&connect));
        Service();
        traces.Clear();
    }

    void TearDown() override
    {
        EXPECT_EQ(connect.ListsReleased(), connect.ListsHandedOut())
            << "every connection list goes back to the connect service";
        ServiceFixture::TearDown();
    }

    // How many traces of this operation there were, whatever their text.
    int TracesOf(const OperationRow& row) const
    {
        int count = 0;
        for (const testkit::TraceLine& line : traces.Lines()) {
            count += line.message.compare(0, std::strlen(row.name) + 1,
                                          std::string(row.name) + " ") == 0;
        }
        return count;
    }

    std::string CurrentName()
    {
        std::string name = "stale";
        service->GetCurrentConnectDeviceName(name);
        return name;
    }

    testkit::FakeConnectService connect;
};

TEST_F(DynamicAddress, BadArgumentsAreRefusedBeforeTheLinkIsLookedUp)
{
    connect.SetConnections({{CONNECTED, TYPE_NDIS, u"lo"}});
    struct Case {
        const char* what;
        bool nullReserved;
        bool nullParam;
        bool nullBuffer;
        int size;
    };
    const Case cases[] = {
        {"null reserved", true, false, false, 64},
        {"null param", false, true, false, 64},
        {"null buffer", false, false, true, 64},
        {"size 0", false, false, false, 0},
        {"negative size", false, false, false, -1},
        {"very negative size", false, false, false, -2147483647 - 1},
    };
    for (const OperationRow& row : kOperations) {
        for (const Case& c : cases) {
            SCOPED_TRACE(std::string(row.name) + ", " + c.what);
            traces.Clear();
            char buffer[64];
            std::memset(buffer, 'Z', sizeof(buffer));
            EXPECT_FALSE((service->*row.operation)(c.nullReserved ? nullptr : "",
                                                   c.nullParam ? nullptr : "",
                                                   c.nullBuffer ? nullptr : buffer, c.size));
            EXPECT_EQ(traces.Count(Message(row, "bad param"), TL_ERRO), 1);
            EXPECT_EQ(TracesOf(row), 1);
            EXPECT_EQ(buffer[0], 'Z') << "the library was not asked";
        }
    }
    EXPECT_EQ(container.LookupCount(INETCONNECTSERVICE_INTERFACE_ID,
                                    INETCONNECTSERVICE_INTERFACE_NO),
              0);
    EXPECT_EQ(connect.ListsRequested(), 0);
}

TEST_F(DynamicAddress, NameOfTheCurrentConnection)
{
    struct Case {
        const char* what;
        std::vector<FakeConnection> list;
        std::string expected;
    };
    const Case cases[] = {
        {"dial-up before adapter", {{CONNECTED, TYPE_DIALUP, u"Mobile"}, {CONNECTED, TYPE_NDIS, u"lo"}},
         "ppp0"},
        {"dial-up after adapter", {{CONNECTED, TYPE_NDIS, u"wwan0"}, {CONNECTED, TYPE_DIALUP, u"x"}},
         "wwan0"},
        {"dial-up keeps ppp0 whatever its entry says", {{CONNECTED, TYPE_DIALUP, u"ppp3"}}, "ppp0"},
        {"adapter uses its own name", {{CONNECTED, TYPE_NDIS, u"wwan1"}}, "wwan1"},
        {"adapter name in UTF-8", {{CONNECTED, TYPE_NDIS, u"wlan\u00e4\u4e2d"}},
         "wlan\xc3\xa4\xe4\xb8\xad"},
        {"disconnected entries skipped",
         {{DISCONNECTED, TYPE_DIALUP, u"ppp0"}, {DISCONNECTED, TYPE_NDIS, u"usb0"},
          {CONNECTED, TYPE_NDIS, u"usb1"}},
         "usb1"},
        {"only disconnected entries",
         {{DISCONNECTED, TYPE_DIALUP, u"ppp0"}, {DISCONNECTED, TYPE_NDIS, u"wwan0"}}, ""},
        {"states other than connected do not count",
         {{CONNECTTING, TYPE_DIALUP, u"ppp0"}, {CONNECTED_NO_RRC, TYPE_NDIS, u"wwan0"},
          {8, TYPE_NDIS, u"wwan1"}},
         ""},
        {"other kinds of link do not count",
         {{CONNECTED, TYPE_WLAN, u"wlan0"}, {CONNECTED, TYPE_ADSL, u"dsl0"},
          {CONNECTED, 5, u"x0"}},
         ""},
        {"empty list", {}, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        connect.SetConnections(c.list);
        EXPECT_EQ(CurrentName(), c.expected);
    }
    EXPECT_EQ(connect.ListsRequested(), static_cast<int>(sizeof(cases) / sizeof(cases[0])));
}

TEST_F(DynamicAddress, NoConnectServiceOrNoListGivesAnEmptyName)
{
    connect.SetConnections({{CONNECTED, TYPE_NDIS, u"lo"}});
    connect.SetListAvailable(false);
    EXPECT_EQ(CurrentName(), "");
    EXPECT_EQ(connect.ListsRequested(), 1);
    EXPECT_EQ(connect.ListsHandedOut(), 0);

    container.Register(INETCONNECTSERVICE_INTERFACE_ID, INETCONNECTSERVICE_INTERFACE_NO, nullptr);
    connect.SetListAvailable(true);
    EXPECT_EQ(CurrentName(), "");
    EXPECT_EQ(connect.ListsRequested(), 1) << "nothing to ask without the service";
    EXPECT_EQ(container.LookupCount(INETCONNECTSERVICE_INTERFACE_ID,
                                    INETCONNECTSERVICE_INTERFACE_NO),
              2);
}

TEST_F(DynamicAddress, LoopbackAdapterAnswersLikeTheLibrary)
{
    // The service adds nothing to the library's answer: same result, same text.
    connect.SetConnections({{DISCONNECTED, TYPE_DIALUP, u"ppp0"}, {CONNECTED, TYPE_NDIS, u"lo"}});
    const bool bIPv6 = LoopbackHasIPv6();
    for (const OperationRow& row : kOperations) {
        SCOPED_TRACE(row.name);
        traces.Clear();
        char expected[256];
        const int result = row.library("lo", "", expected, sizeof(expected));
        char buffer[256];
        std::memset(buffer, 'Z', sizeof(buffer));
        const bool bOk = (service->*row.operation)("", "", buffer, sizeof(buffer));
        EXPECT_EQ(bOk, result == OS_DIALUP_ERROR_SUCCED);
        EXPECT_STREQ(buffer, expected);
        if (bOk) {
            EXPECT_EQ(traces.Count(Message(row, "success"), TL_INFO), 1);
        } else {
            EXPECT_EQ(traces.Count(Message(row, "failed"), TL_ERRO), 1);
        }
        EXPECT_EQ(TracesOf(row), 1);
        if (row.library == OS_DIALUP_GetDynamicIP) {
            EXPECT_TRUE(bOk);
            EXPECT_STREQ(buffer, "127.0.0.1");
        } else if (row.library == OS_DIALUP_GetDynamicIP6) {
            EXPECT_EQ(bOk, bIPv6);
            EXPECT_STREQ(buffer, bIPv6 ? "::1" : "");
        }
    }
}

TEST_F(DynamicAddress, LibraryRefusalIsReportedAsFailed)
{
    struct Case {
        const char* what;
        std::vector<FakeConnection> list;
        int size;
    };
    // The dial-up entry is named ppp0, a link this machine does not have.
    const Case cases[] = {
        {"nothing connected", {{DISCONNECTED, TYPE_NDIS, u"lo"}}, 64},
        {"unknown adapter", {{CONNECTED, TYPE_NDIS, u"wwan-none9"}}, 64},
        {"buffer too small for 127.0.0.1", {{CONNECTED, TYPE_NDIS, u"lo"}}, 4},
    };
    for (const Case& c : cases) {
        connect.SetConnections(c.list);
        for (const OperationRow& row : kOperations) {
            SCOPED_TRACE(std::string(c.what) + ", " + row.name);
            if (c.size < 16 && row.library != OS_DIALUP_GetDynamicIP) {
                continue;   // only the IPv4 text's length is known beforehand
            }
            traces.Clear();
            char buffer[65];
            std::memset(buffer, 'Z', sizeof(buffer));
            EXPECT_FALSE((service->*row.operation)("", "", buffer, c.size));
            EXPECT_EQ(buffer[0], '\0') << "the library was asked and emptied the buffer";
            EXPECT_EQ(buffer[c.size], 'Z') << "nothing written past the size";
            EXPECT_EQ(traces.Count(Message(row, "failed"), TL_ERRO), 1);
            EXPECT_EQ(TracesOf(row), 1);
        }
    }
}

TEST_F(DynamicAddress, WithoutConnectServiceTheLibraryIsStillAsked)
{
    container.Register(INETCONNECTSERVICE_INTERFACE_ID, INETCONNECTSERVICE_INTERFACE_NO, nullptr);
    for (const OperationRow& row : kOperations) {
        SCOPED_TRACE(row.name);
        traces.Clear();
        char buffer[32];
        std::memset(buffer, 'Z', sizeof(buffer));
        EXPECT_FALSE((service->*row.operation)("reserved", "ipv4", buffer, sizeof(buffer)));
        EXPECT_EQ(buffer[0], '\0');
        EXPECT_EQ(traces.Count(Message(row, "failed"), TL_ERRO), 1);
    }
}

}  // namespace
