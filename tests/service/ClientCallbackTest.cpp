// Client registration, event delivery and the report queue.

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "ServiceFixture.h"

namespace {

// What the function clients saw; plain functions cannot carry a context.
struct Delivery {
    std::string client;
    int event;
    void* payload;
};
std::mutex g_deliveryMutex;
std::vector<Delivery> g_deliveries;

void Record(const char* client, int event, void* payload)
{
    std::lock_guard<std::mutex> lock(g_deliveryMutex);
    g_deliveries.push_back({client, event, payload});
}

std::vector<Delivery> TakeDeliveries()
{
    std::lock_guard<std::mutex> lock(g_deliveryMutex);
    std::vector<Delivery> out;
    out.swap(g_deliveries);
    return out;
}

bool FunctionA(int event, void* payload)
{
    Record("A", event, payload);
    return true;
}

bool FunctionB(int event, void* payload)
{
    Record("B", event, payload);
    return false;   // a refusal does not stop delivery to the others
}

class ObjectClient : public IUniCommEvent {
public:
    explicit ObjectClient(const char* name) : m_name(name) {}
    bool OnUniCommEvent(DWORD dwEvent, void* pData) override
    {
        Record(m_name, static_cast<int>(dwEvent), pData);
        return true;
    }

private:
    const char* m_name;
};

std::vector<std::string> Clients(const std::vector<Delivery>& deliveries)
{
    std::vector<std::string> names;
    for (const Delivery& d : deliveries) {
        names.push_back(d.client);
    }
    return names;
}

class ClientCallbacks : public ServiceFixture {
protected:
    void SetUp() override
    {
        ServiceFixture::SetUp();
        TakeDeliveries();
    }
};

// A client registered both as a function and as an object hears each event
// twice, the function first.
TEST_F(ClientCallbacks, FunctionsFirstThenObjectsEachInRegistrationOrder)
{
    ObjectClient objX("X"), objY("Y");
    Service()->SRVRegisterCallback(&objY);
    service->SRVRegisterCallback(FunctionB);
    service->SRVRegisterCallback(&objX);
    service->SRVRegisterCallback(FunctionA);

    unsigned long payload = 2;
    EXPECT_TRUE(service->SendCallBackFuns(NETSRV_DATA::EVENT_NET_SERVER_STATUS, &payload));
    const auto deliveries = TakeDeliveries();
    EXPECT_EQ(Clients(deliveries), (std::vector<std::string>{"B", "A", "Y", "X"}));
    for (const Delivery& d : deliveries) {
        EXPECT_EQ(d.event, NETSRV_DATA::EVENT_NET_SERVER_STATUS);
        EXPECT_EQ(d.payload, &payload);
    }
}

TEST_F(ClientCallbacks, DuplicatesNullsAndUnknownRemovals)
{
    ObjectClient obj("O");
    Service()->SRVRegisterCallback(FunctionA);
    service->SRVRegisterCallback(FunctionA);
    service->SRVRegisterCallback(static_cast<pfnNetSrvCallBack>(nullptr));
    service->SRVRegisterCallback(&obj);
    service->SRVRegisterCallback(&obj);
    service->SRVRegisterCallback(static_cast<IUniCommEvent*>(nullptr));
    service->SRVUnRegisterCallback(FunctionB);
    service->SRVUnRegisterCallback(static_cast<pfnNetSrvCallBack>(nullptr));
    service->SRVUnRegisterCallback(static_cast<IUniCommEvent*>(nullptr));

    int payload = 0;
    service->SendCallBackFuns(NETSRV_DATA::EVENT_SRV_DOMAIN, &payload);
    EXPECT_EQ(Clients(TakeDeliveries()), (std::vector<std::string>{"A", "O"}));

    service->SRVUnRegisterCallback(FunctionA);
    service->SRVUnRegisterCallback(&obj);
    service->SendCallBackFuns(NETSRV_DATA::EVENT_SRV_DOMAIN, &payload);
    EXPECT_TRUE(TakeDeliveries().empty());
}

bool ThrowingFunction(int event, void* payload)
{
    Record("T", event, payload);
    throw std::runtime_error("client failure");
}

TEST_F(ClientCallbacks, ClientThatThrowsDoesNotStopTheOthers)
{
    ObjectClient obj("O");
    Service()->SRVRegisterCallback(ThrowingFunction);
    service->SRVRegisterCallback(FunctionA);
    service->SRVRegisterCallback(&obj);
    int payload = 0;
    EXPECT_TRUE(service->SendCallBackFuns(NETSRV_DATA::EVENT_SRV_RSSI, &payload));
    EXPECT_EQ(Clients(TakeDeliveries()), (std::vector<std::string>{"T", "A", "O"}));
}

TEST_F(ClientCallbacks, NoEventWithoutPayload)
{
    ObjectClient obj("O");
    Service()->SRVRegisterCallback(FunctionA);
    service->SRVRegisterCallback(&obj);
    EXPECT_FALSE(service->SendCallBackFuns(NETSRV_DATA::EVENT_SRV_RSSI, nullptr));
    EXPECT_TRUE(TakeDeliveries().empty());
}

// A client that changes the registrations from inside its own callback: the
// client lock is re-entered by the thread that holds it.
CNetSrvImpl* g_reentrantService = nullptr;
bool ReentrantFunction(int event, void* payload)
{
    Record("R", event, payload);
    g_reentrantService->SRVRegisterCallback(FunctionA);
    g_reentrantService->SRVUnRegisterCallback(ReentrantFunction);
    return true;
}

TEST_F(ClientCallbacks, ClientMayChangeRegistrationsFromItsCallback)
{
    g_reentrantService = Service();
    service->SRVRegisterCallback(ReentrantFunction);
    int payload = 0;
    // Runs on another thread so that a deadlock fails the test instead of hanging it.
    std::mutex m;
    std::condition_variable cv;
    bool done = false;
    std::thread sender([&] {
        service->SendCallBackFuns(NETSRV_DATA::EVENT_SRV_RSSI, &payload);
        std::lock_guard<std::mutex> lock(m);
        done = true;
        cv.notify_all();
    });
    bool finished = false;
    {
        std::unique_lock<std::mutex> lock(m);
        finished = cv.wait_for(lock, std::chrono::seconds(10), [&] { return done; });
    }
    if (!finished) {
        sender.detach();   // stuck for good; the process ends with the test run
        FAIL() << "delivery deadlocked";
    }
    sender.join();
    TakeDeliveries();
    service->SendCallBackFuns(NETSRV_DATA::EVENT_SRV_RSSI, &payload);
    EXPECT_EQ(Clients(TakeDeliveries()), std::vector<std::string>{"A"});
    g_reentrantService = nullptr;
}

// A service whose dispatcher records what the report thread hands it. The
// queue is empty before it is destroyed, so the report thread makes no call
// into the half-destroyed object.
class RecordingService : public CNetSrvImpl {
public:
    bool AtCallBackEvent(const Command& cmd) override
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_seen.push_back(cmd);
        m_cv.notify_all();
        return true;
    }

    std::vector<Command> WaitFor(size_t count)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_cv.wait_for(lock, std::chrono::seconds(10), [&] { return m_seen.size() >= count; });
        return m_seen;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_cv;
    std::vector<Command> m_seen;
};

TEST_F(ClientCallbacks, ReportThreadDispatchesQueuedReportsInOrder)
{
    RecordingService recording;
    Command first;
    first.name = "^SYSINFO";
    first.index = INDEX_SYS_INFO;
    first.type = AT_TYPE_NORMAL;
    first.params = {"2", "3", "0", "5", "1", "4"};
    Command second;
    second.name = "^SRVST";
    second.index = INDEX_SERV_IND;
    second.type = AT_TYPE_UNSOLICITED;
    second.params = {"0"};
    recording.ReportAtCallBackEvent(first);
    recording.ReportAtCallBackEvent(second);
    // The queue holds copies: the caller's records may change afterwards.
    first.params.clear();

    const auto seen = recording.WaitFor(2);
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_EQ(seen[0].name, "^SYSINFO");
    EXPECT_EQ(seen[0].params, (ParamList{"2", "3", "0", "5", "1", "4"}));
    EXPECT_EQ(seen[1].name, "^SRVST");
    EXPECT_EQ(seen[1].index, static_cast<CmdIndex>(INDEX_SERV_IND));
}

}  // namespace
