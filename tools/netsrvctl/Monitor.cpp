// netsrvctl monitor: prints the service's events as they arrive, one line
// each, the modem's registration reports (which the service turns into no
// event of its own), and with --raw also the modem's reports as the AT
// processor hands them to the service. The modem's port going away and coming back is told
// by the host's device manager and printed as it happens. Every line starts
// with the local time of its arrival.

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <deque>
#include <mutex>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "AtCodec/IAtCallBack.h"
#include "Commands.h"
#include "EventFormat.h"
#include "Interface/IDeviceMgrEvent.h"
#include "Interface/IUniCommEvent.h"
#include "LocalTime.h"
#include "OutputText.h"
#include "RegistrationReport.h"
#include "RegistrationView.h"

namespace netsrvctl {

namespace {

// The reports the service itself subscribes to; --raw shows them as they come.
const char* const kReportNames[] = {
    "^RSSI",  "^RSSILVL", "^HRSSILVL", "^ANLEVEL", "^SRVST",      "^SIMST",          "^MODE",
    "+CREG",  "+CGREG",   "^SYSINFO",  "+COPS",    "^SIMREFRESH", "^PNNFILEREFRESH",
};
const char* const kMonitorClientName = "netsrvctl-monitor";

std::atomic<bool> g_bInterrupted(false);

void OnSignal(int)
{
    g_bInterrupted = true;
}

// Collects lines from the service's and the processor's threads; the main
// thread prints them. Thread-safe.
class LineQueue {
public:
    void Push(std::string line)
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_lines.push_back(std::move(line));
        m_cv.notify_all();
    }

    // The next line, or false when the deadline passed or the wait was interrupted.
    bool Pop(std::chrono::steady_clock::time_point deadline, std::string* pLine)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        while (m_lines.empty()) {
            if (g_bInterrupted || std::chrono::steady_clock::now() >= deadline) {
                return false;
            }
            // Short waits so that an interrupt is seen promptly.
            m_cv.wait_for(lock, std::chrono::milliseconds(100));
        }
        *pLine = std::move(m_lines.front());
        m_lines.pop_front();
        return true;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_cv;
    std::deque<std::string> m_lines;
};

// Receives the service's events, the device manager's news of the port and
// the modem's reports (registration only, or with --raw all that the service
// takes); all arrive on other threads and are queued, stamped with their
// arrival, for the main thread.
class MonitorClients : public IUniCommEvent, public IAtCallBack, public IDeviceMgrEvent {
public:
    MonitorClients(bool bJson, bool bRaw) : m_bJson(bJson), m_bRaw(bRaw) {}
    virtual ~MonitorClients() {}

    LineQueue& Queue() { return m_queue; }

    bool OnUniCommEvent(DWORD dwEvent, void* pData) override
    {
        // The payload is only valid during the call: formatted here.
        const int iEvent = static_cast<int>(dwEvent);
        Push(m_bJson ? EventJson(iEvent, pData) : nlohmann::ordered_json(),
             m_bJson ? std::string() : EventText(iEvent, pData));
        return true;
    }

    // A registration report becomes its line; one that cannot be read is
    // shown as it came, as --raw shows every report.
    bool AtCallBackEvent(const Command& cmd) override
    {
        const std::optional<RegistrationReport> registration =
            ParseRegistrationReport(cmd.name, cmd.params);
        if (m_bRaw || !registration) {
            PushRaw(cmd);
        }
        if (registration) {
            Push(RegistrationEventJson(*registration), RegistrationEventText(*registration));
        }
        return true;
    }

    // The port is reported open once after the start as well; only a return
    // after a loss is news.
    bool OnDeviceMgrEvent(DWORD dwEvent, void*) override
    {
        if (dwEvent == EVENT_DEVICE_REJECT && !m_bRemoved.exchange(true)) {
            Push({{"event", "device_removed"}}, "device removed");
        } else if (dwEvent == EVENT_DEVICE_INSERT && m_bRemoved.exchange(false)) {
            Push({{"event", "device_back"}}, "device back");
        }
        return true;
    }

private:
    // "report ^RSSI 18", {"report": "^RSSI", "fields": ["18"]}.
    void PushRaw(const Command& cmd)
    {
        std::string text = "report " + cmd.name;
        for (size_t i = 0; i < cmd.params.size(); ++i) {
            text += (i == 0 ? " " : ",") + cmd.params[i];
        }
        Push({{"report", cmd.name}, {"fields", cmd.params}}, text);
    }

    // JSON: {"time": ..., then the line's own keys}; text: "14:03:07 " + text.
    void Push(const nlohmann::ordered_json& json, const std::string& text)
    {
        const LocalTime now = LocalTimeOf(std::chrono::system_clock::now());
        if (!m_bJson) {
            m_queue.Push(now.clock + " " + text);
            return;
        }
        nlohmann::ordered_json line = {{"time", now.iso}};
        for (const auto& item : json.items()) {
            line[item.key()] = item.value();
        }
        m_queue.Push(JsonLine(line));
    }

    bool m_bJson;
    bool m_bRaw;
    std::atomic<bool> m_bRemoved{false};
    LineQueue m_queue;
};

}  // namespace

ExitStatus RunMonitor(ToolHost& host, const MonitorOptions& monitor, const OutputOptions& out,
                      std::ostream& os, std::ostream& err)
{
    MonitorClients clients(out.json, monitor.raw);
    g_bInterrupted = false;
    auto previousInt = std::signal(SIGINT, OnSignal);
    auto previousTerm = std::signal(SIGTERM, OnSignal);

    INetSrv* pNetSrv = host.NetSrv();
    pNetSrv->SRVRegisterCallback(static_cast<IUniCommEvent*>(&clients));
    host.DeviceManager().RegisterDeviceCallback(&clients);
    // Gone already while the tool was starting: said at once, like a loss later.
    if (!host.Processor()->IsOpen()) {
        clients.OnDeviceMgrEvent(IDeviceMgrEvent::EVENT_DEVICE_REJECT, nullptr);
    }

    // The registration reports always; with --raw every report the service takes.
    std::set<std::string> names;
    for (const RegDomainInfo& info : RegDomains()) {
        names.insert(info.report);
    }
    if (monitor.raw) {
        names.insert(std::begin(kReportNames), std::end(kReportNames));
    }
    std::vector<CmdSetItem> rows;
    for (const std::string& name : names) {
        rows.emplace_back(0, name, AT_TYPE_NORMAL);
    }
    const bool bSubscribed = host.Processor()->RegisterClient(kMonitorClientName, &clients, rows);

    // A time-out beyond a year is no limit (and would overflow the clock's range).
    const double kNoLimitSeconds = 365.0 * 24 * 3600;
    const auto deadline =
        monitor.timeoutS > 0 && monitor.timeoutS < kNoLimitSeconds
            ? std::chrono::steady_clock::now() +
                  std::chrono::milliseconds(static_cast<long long>(monitor.timeoutS * 1000))
            : std::chrono::steady_clock::time_point::max();
    int printed = 0;
    std::string line;
    while ((monitor.count <= 0 || printed < monitor.count) &&
           clients.Queue().Pop(deadline, &line)) {
        os << line << std::endl;
        ++printed;
    }

    host.Processor()->UnRegisterClient(kMonitorClientName);
    // Waits for a delivery on the processor's thread to end.
    host.DeviceManager().UnRegisterDeviceCallback(&clients);
    pNetSrv->SRVUnRegisterCallback(static_cast<IUniCommEvent*>(&clients));
    std::signal(SIGINT, previousInt);
    std::signal(SIGTERM, previousTerm);

    if (!bSubscribed || !host.Processor()->IsOpen()) {
        err << "netsrvctl: monitor: the modem's port is gone\n";
        return EXIT_NO_MODEM;
    }
    return EXIT_OK;
}

}  // namespace netsrvctl
