// The service on the real AT processor, with a modem on a pseudo-terminal that
// gives the system-information and signal answers that real modems gave: each
// answer must come out as the record the service hands to its clients.

#include <gtest/gtest.h>

#include <cstdio>
#include <map>
#include <memory>
#include <string>

#include "AtProcessor.h"
#include "EventRecorder.h"
#include "FakePluginHost.h"
#include "Interface/IDeviceMgrEvent.h"
#include "ModemAnswers.h"
#include "NetSrvImpl.h"
#include "NetSrvPlugin.h"
#include "ScriptedModem.h"
#include "TraceRecorder.h"

namespace {

using testkit::ModemAnswerById;
using testkit::ScriptedModem;

// The answer line as the modem framed it, then OK.
std::string Framed(const std::string& raw)
{
    std::string line = raw;
    while (!line.empty() && (line.back() == '\r' || line.back() == '\n')) {
        line.pop_back();
    }
    return "\r\n" + line + "\r\n\r\nOK\r\n";
}

class ServiceOnProcessor : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_FALSE(modem.Path().empty());
        processor = std::make_unique<host::CAtProcessor>(modem.Path());
        std::string error;
        ASSERT_TRUE(processor->Open(&error)) << error;
        container.Register(IPROCESSOR_INTERFACE_ID, IPROCESSOR_INTERFACE_NO,
                           static_cast<IProcessor*>(processor.get()));
        container.Register(IDEVICESERVICE_INTERFACE_ID, IDEVICESERVICE_INTERFACE_NO,
                           static_cast<IDeviceService*>(&deviceService));
        plugin.SetPluginContainer(&container);
        IBaseInterface* pInterface = nullptr;
        ASSERT_TRUE(plugin.QueryInterface(INETSRV_INTERFACE_NO, &pInterface));
        service = static_cast<CNetSrvImpl*>(static_cast<INetSrv*>(pInterface));
    }

    void TearDown() override
    {
        plugin.OnDestroy();
        processor->Close();
    }

    // The modem answers this command line with the fixture answer of this id.
    void AnswerWith(const std::string& line, const std::string& id)
    {
        modem.SetAnswer(testkit::AnswerTable({{line, Framed(ModemAnswerById(answers, id).raw)}}));
    }

    testkit::TraceRecorder traces;   // keeps the service's traces off the output
    const std::vector<testkit::ModemAnswer> answers = testkit::LoadModemAnswers();
    ScriptedModem modem;
    std::unique_ptr<host::CAtProcessor> processor;
    testkit::FakeDeviceService deviceService;
    testkit::FakeContainer container;
    CNetSrvPlugin plugin;
    CNetSrvImpl* service = nullptr;
};

TEST_F(ServiceOnProcessor, SysinfoAnswersBecomeExNumbers)
{
    struct Row {
        const char* id;
        int subMode;   // GSM/GPRS (3): GPRS unless the sub-mode field says otherwise
    };
    const Row rows[] = {{"sysinfo-1", 2}, {"sysinfo-2", 2}, {"sysinfo-3", 2}, {"sysinfo-4", 0}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.id);
        AnswerWith("AT^SYSINFO", row.id);
        NETSRV_DATA::SystemInfo info;
        ASSERT_TRUE(service->SRVGetSystemInfo(info));
        EXPECT_EQ(info.dwSrvStatus, 2);
        EXPECT_EQ(info.dwDomain, 4);
        EXPECT_EQ(info.dwRoam, 5);
        EXPECT_EQ(info.dwSimState, 1);
        EXPECT_EQ(info.dwSysMode, NETSRV_DATA::SYS_MODE_GSM_EX);
        EXPECT_EQ(info.dwSubMode, row.subMode);
        EXPECT_STREQ(info.szSysModeName, "");
    }
}

TEST_F(ServiceOnProcessor, SysinfoExAnswersWithAndWithoutQuotes)
{
    for (const char* id : {"sysinfoex-1", "sysinfoex-2"}) {
        SCOPED_TRACE(id);
        AnswerWith("AT^SYSINFOEX", id);
        // A lost device makes the read go to the modem again.
        service->OnDeviceMgrEvent(IDeviceMgrEvent::EVENT_DEVICE_REJECT, nullptr);
        NETSRV_DATA::SystemInfo info;
        ASSERT_TRUE(service->SRVGetSystemInfoEx(info));
        EXPECT_EQ(info.dwSrvStatus, 2);
        EXPECT_EQ(info.dwDomain, 4);
        EXPECT_EQ(info.dwRoam, 5);
        EXPECT_EQ(info.dwSimState, 1);
        EXPECT_EQ(info.dwLockState, 0);
        EXPECT_EQ(info.dwSysMode, NETSRV_DATA::SYS_MODE_WCDMA_EX);
        EXPECT_EQ(info.dwSubMode, NETSRV_DATA::SUB_MODE_WCDMA_EX);
        EXPECT_STREQ(info.szSysModeName, "WCDMA");
        EXPECT_STREQ(info.szSubModeName, "HSPA+");
    }
}

TEST_F(ServiceOnProcessor, HcsqAnswersFillTheirRadio)
{
    {
        AnswerWith("AT^HCSQ?", "hcsq-1");
        NETSRV_DATA::HCSQ_INFO info;
        ASSERT_TRUE(service->SRVGetHCSQInfo(&info));
        EXPECT_TRUE(info.bService);
        EXPECT_TRUE(info.pstLTE->bUsed);
        EXPECT_EQ(info.pstLTE->iRssi, 30);
        EXPECT_EQ(info.pstLTE->iRsrp, 19);
        EXPECT_EQ(info.pstLTE->iSinr, 66);
        EXPECT_EQ(info.pstLTE->iRsrq, 0);
        EXPECT_FALSE(info.pstGSM->bUsed);
    }
    {
        AnswerWith("AT^HCSQ?", "hcsq-2");
        NETSRV_DATA::HCSQ_INFO info;
        ASSERT_TRUE(service->SRVGetHCSQInfo(&info));
        EXPECT_TRUE(info.bService);
        EXPECT_TRUE(info.pstGSM->bUsed);
        EXPECT_EQ(info.pstGSM->iRssi, 36);
        EXPECT_FALSE(info.pstLTE->bUsed);
    }
    {
        AnswerWith("AT^HCSQ?", "hcsq-3");
        NETSRV_DATA::HCSQ_INFO info;
        ASSERT_TRUE(service->SRVGetHCSQInfo(&info));
        EXPECT_FALSE(info.bService);
        EXPECT_FALSE(info.pstGSM->bUsed);
        EXPECT_FALSE(info.pstLTE->bUsed);
    }
}

}  // namespace

namespace {

std::string RegText(const NETSRV_DATA::RegStateReport& r)
{
    return std::to_string(r.ReportMode) + "," + std::to_string(r.ReportState) + "," +
           r.LacCode + "," + r.CellID;
}

TEST_F(ServiceOnProcessor, RegistrationAndPreferredModeAnswers)
{
    typedef bool (CNetSrvImpl::*RegRead)(NETSRV_DATA::RegStateReport*, unsigned long*);
    const struct {
        const char* line;
        const char* id;
        RegRead read;
        const char* expected;   // mode,state,area,cell
    } rows[] = {
        {"AT+CREG?", "creg-1", &CNetSrvImpl::SRVGetCSRegState, "1,3,,"},
        {"AT+CREG?", "creg-2", &CNetSrvImpl::SRVGetCSRegState, "2,1,CE00,01CEAD8F"},
        {"AT+CREG?", "creg-3", &CNetSrvImpl::SRVGetCSRegState, "2,1,8BE3,2BAF"},
        {"AT+CREG?", "creg-4", &CNetSrvImpl::SRVGetCSRegState, "2,1,18d8,ffff"},
        {"AT+CREG?", "creg-6", &CNetSrvImpl::SRVGetCSRegState, "2,1,0 5,2715"},
        {"AT+CGREG?", "cgreg-2", &CNetSrvImpl::SRVGetPSRegState, "2,10,ebbd,f025"},
        {"AT+CGREG?", "cgreg-3", &CNetSrvImpl::SRVGetPSRegState, "2,1,0426,F00F"},
        {"AT+CEREG?", "cereg-1", &CNetSrvImpl::SRVGetLTEPSRegState, "1,3,,"},
        {"AT+CEREG?", "cereg-2", &CNetSrvImpl::SRVGetLTEPSRegState, "2,10,8d83,671f98a"},
        // A stray field before the access technology does not shift area and cell.
        {"AT+CEREG?", "cereg-3", &CNetSrvImpl::SRVGetLTEPSRegState, "2,1,1F00,20"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.id);
        AnswerWith(row.line, row.id);
        NETSRV_DATA::RegStateReport report;
        unsigned long err = 0;
        ASSERT_TRUE((service->*row.read)(&report, &err));
        EXPECT_EQ(RegText(report), row.expected);
    }
    for (const auto& pref : {std::make_pair("prefmode-3", 2), std::make_pair("prefmode-4", 8)}) {
        SCOPED_TRACE(pref.first);
        AnswerWith("AT^PREFMODE?", pref.first);
        NETSRV_DATA::CdmaPrefMode mode = NETSRV_DATA::CDMA_PREF_MODE_UNKNOW;
        unsigned long err = 0;
        ASSERT_TRUE(service->SRVGetCDMAPrefMod(&mode, &err));
        EXPECT_EQ(mode, pref.second);
    }
}

// Every configuration answer of the fixtures: the extended and the older
// reading (the modems without "^SYSCFGEX" answer ERROR to it), then the lists.
TEST_F(ServiceOnProcessor, ConfigurationAnswers)
{
    const struct {
        const char* line;
        const char* id;
        const char* expected;   // acquisition text, band, roam, domain, LTE band
    } reads[] = {
        {"AT^SYSCFGEX?", "syscfgex-3", "00,3fffffff,1,2,7fffffffffffffff"},
        {"AT^SYSCFGEX?", "syscfgex-4", "02,3fffffff,1,2,7fffffffffffffff"},
        {"AT^SYSCFGEX?", "syscfgex-5", "00,3fffffff,1,2,0"},
        {"AT^SYSCFGEX?", "syscfgex-6", "02,3fffffff,1,2,0"},
        {"AT^SYSCFGEX?", "syscfgex-7", "0201,3fffffff,1,2,0"},
        // Mode 2 order 0 has no acquisition text; 14 is WCDMA only.
        {"AT^SYSCFG?", "syscfg-2", ",400000,0,3,0"},
        {"AT^SYSCFG?", "syscfg-3", "0201,400000,0,3,0"},
        {"AT^SYSCFG?", "syscfg-4", "02,400000,0,3,0"},
        {"AT^SYSCFG?", "syscfg-5", "02,400000,0,3,0"},
    };
    for (const auto& row : reads) {
        SCOPED_TRACE(row.id);
        AnswerWith(row.line, row.id);
        NETSRV_DATA::NetConfigurationExType config;
        unsigned long err = 0;
        ASSERT_TRUE(service->SRVGetNetConfigurationEx(&config, &err));
        char hex[2][17];
        std::snprintf(hex[0], sizeof(hex[0]), "%llx", static_cast<unsigned long long>(config.dwBand));
        std::snprintf(hex[1], sizeof(hex[1]), "%llx",
                      static_cast<unsigned long long>(config.dwLteBand));
        EXPECT_EQ(std::string(config.szAcqorder) + "," + hex[0] + "," +
                      std::to_string(config.dwRoam) + "," + std::to_string(config.dwDomain) +
                      "," + hex[1],
                  row.expected);
    }

    const struct {
        const char* line;
        const char* id;
        int orders;
        const char* lastBand;
        int lteBands;
    } lists[] = {
        {"AT^SYSCFGEX=?", "syscfgex-1", 5, "All Bands", 2},
        {"AT^SYSCFGEX=?", "syscfgex-2", 1, "All Bands", 2},
        {"AT^SYSCFG=?", "syscfg-1", 0, "All bands", 0},
    };
    for (const auto& row : lists) {
        SCOPED_TRACE(row.id);
        AnswerWith(row.line, row.id);
        NETSRV_DATA::BandList bands, lte;
        NETSRV_DATA::AcqOrderList orders;
        unsigned long err = 0;
        ASSERT_TRUE(service->SRVGetBandListEx(&bands, &lte, &orders, &err));
        EXPECT_EQ(orders.nSize, row.orders);
        EXPECT_EQ(lte.nSize, row.lteBands);
        ASSERT_GT(bands.nSize, 1);
        EXPECT_STREQ(bands.pstList[bands.nSize - 1].szBandName, row.lastBand);
        EXPECT_EQ(bands.pstList[bands.nSize - 1].dwBand, 0x3FFFFFFFu);
        ASSERT_TRUE(service->SRVReleaseBandListEx(&bands, &lte, &orders, &err));
    }
}

// Every search answer of the fixtures, malformed ones included, reaches the
// client as one list event with the operators that can be read.
TEST_F(ServiceOnProcessor, SearchAnswersBecomeOneListEvent)
{
    const struct {
        const char* id;
        int count;
        const char* first;   // numeric identity of the first operator
    } rows[] = {
        {"cops-1", 3, "31026"},  {"cops-2", 3, "31026"},  {"cops-3", 3, "31026"},
        {"cops-4", 2, "310260"}, {"cops-5", 2, "310410"}, {"cops-6", 3, "310410"},
        {"cops-7", 2, "31026"},  {"cops-8", 3, "31026"},  {"cops-11", 3, "31026"},
        {"cops-14", 2, "310260"}, {"cops-15", 4, "26201"}, {"cops-16", 0, ""},
    };
    testkit::EventRecorder events;
    service->SRVRegisterCallback(&events);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.id);
        events.Clear();
        AnswerWith("AT+COPS=?", row.id);
        unsigned long err = 0;
        // A start is refused while the last search's thread is still ending.
        ASSERT_TRUE(testkit::WaitUntil([&] { return service->SRVGetPLMNList(&err); },
                                       std::chrono::seconds(5)));
        ASSERT_TRUE(events.WaitForCount(1, std::chrono::seconds(5)));
        const NETSRV_DATA::SPlmnList list = events.Events()[0].plmnList;
        EXPECT_EQ(list.btPlmnNumber, row.count);
        EXPECT_STREQ(list.stPlmn[0].szPlmnID, row.first);
    }
    service->SRVUnRegisterCallback(&events);
}

// The registered operator from the read answers of the fixtures, one format at
// a time; a modem that refuses the short format still gives the rest.
TEST_F(ServiceOnProcessor, CurrentOperatorAnswers)
{
    const struct {
        const char* longId;
        const char* numericId;
        unsigned long mode;
        const char* longName;
        const char* plmn;
        int rat;
    } rows[] = {
        {"cops-3-0-cops-1", "cops-3-2-cops-1", 0, "vodafone ES", "21401", 2},
        {"cops-17", "cops-18", 1, "CHINA MOBILE", "46000", 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.numericId);
        std::string format;
        const std::map<std::string, std::string> reads = {
            {"0", Framed(ModemAnswerById(answers, row.longId).raw)},
            {"2", Framed(ModemAnswerById(answers, row.numericId).raw)}};
        modem.SetAnswer([&format, reads](const std::string& line) -> std::string {
            if (line == "AT+COPS=3,0" || line == "AT+COPS=3,2") {
                format = line.substr(line.size() - 1);
                return "\r\nOK\r\n";
            }
            if (line == "AT+COPS?" && reads.count(format) != 0) {
                return reads.at(format);
            }
            return testkit::ModemFallback(line);
        });
        unsigned long mode = 9, err = 0;
        NETSRV_DATA::PLMNType plmn;
        ASSERT_TRUE(service->SRVGetCurPlmn(&mode, &plmn, &err));
        EXPECT_EQ(mode, row.mode);
        EXPECT_STREQ(reinterpret_cast<const char*>(plmn.btPlmnName), "");
        EXPECT_STREQ(reinterpret_cast<const char*>(plmn.btPlmnLongName), row.longName);
        EXPECT_STREQ(plmn.szPlmn, row.plmn);
        EXPECT_EQ(plmn.btRat, row.rat);
    }
}

// The SIM files of real SIMs: ICCIDs (garbled and short ones too) and the
// SPN file, read because the modem answers ERROR to "^SPN".
TEST_F(ServiceOnProcessor, SimFileAnswers)
{
    const struct {
        const char* id;
        const char* iccid;
    } rows[] = {
        {"crsm-iccid-1", "8944200053671052499F"}, {"crsm-iccid-2", "984402003576012594F9"},
        {"crsm-iccid-3", "98231420326409614067"}, {"crsm-iccid-4", "9868200C214365870921"},
        {"crsm-iccid-5", "8932410223p69l160476"}, {"crsm-iccid-6", "004402003576012594"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.id);
        modem.SetAnswer(testkit::AnswerTable(
            {{"AT+CRSM=176,12258,0,0,10",
              Framed("+CRSM: 144,0," + ModemAnswerById(answers, row.id).raw)}}));
        NETSRV_DATA::EFFile file;
        unsigned long err = 0;
        ASSERT_TRUE(service->SRVGetEFFile(NETSRV_DATA::EF_ICCID, &file, &err));
        EXPECT_STREQ(file.szFile, row.iccid);
    }
    for (const char* id : {"crsm-spn-1", "crsm-spn-2"}) {
        SCOPED_TRACE(id);
        AnswerWith("AT+CRSM=176,28486,0,0,17", id);
        NETSRV_DATA::SSpnDataType spn;
        unsigned long err = 0;
        ASSERT_TRUE(service->SRVGetSpnData(&spn, &err));
        EXPECT_EQ(spn.btDisplay, 0);
        EXPECT_EQ(std::u16string(spn.SpnData, spn.SpnData + 7), u"THURAYA");
        EXPECT_EQ(spn.SpnData[7], 0);
    }
}

}  // namespace
