// What netsrvctl prints for the service's numbers: the name tables, the
// status view of a SystemInfo record, the signal view of the readings, and
// the registration, HSPA and CDMA views.

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>

#include "CdmaView.h"
#include "HspaView.h"
#include "Interface/NetSrvDef.h"
#include "Names.h"
#include "RegistrationView.h"
#include "SignalView.h"
#include "StatusView.h"

namespace {

using namespace netsrvctl;
using namespace NETSRV_DATA;

// Every value of the service's enumerations has a name of its own: two modes
// that print alike would hide which one the modem is in.
TEST(NetsrvctlNames, EveryEnumeratorHasADistinctName)
{
    // The values first..last, and any single ones.
    auto values = [](int64_t first, int64_t last, std::vector<int64_t> more = {}) {
        for (int64_t value = first; value <= last; ++value) {
            more.push_back(value);
        }
        return more;
    };
    struct Table {
        const char* what;
        const char* (*name)(int64_t);
        std::vector<int64_t> values;
    };
    const Table tables[] = {
        {"service status", ServiceStatusName,
         values(SYS_SRV_STATUS_NO_SRV, SYS_SRV_STATUS_PWR_SAVE)},
        {"system mode", SystemModeName, values(SYS_MODE_NOSERVICE_EX, SYS_MODE_LTE_EX)},
        // SubsysModeEx: 0..3, the CDMA family 21..36, WCDMA 41..46, TD-SCDMA 61..65, 120.
        {"sub-mode", SubModeName, values(SUB_MODE_IS95A_EX, SUB_MODE_HYBRID_EHRPD_RelB,
                                         {0, 1, 2, 3, 41, 42, 43, 44, 45, 46, 61, 62, 63, 64, 65,
                                          SUB_MODE_UNDEFINE_EX})},
        {"roaming", RoamingName, values(SYS_ROAM_STATUS_OFF, SYS_ROAM_STATUS_BANNER_OFF)},
        {"domain", DomainName, values(0, 4, {255})},
        {"SIM state", SimStateName, values(0, 4, {240, 255})},
        {"lock state", LockStateName, values(0, 1)},
        {"operator status", OperatorStatusName, values(0, 3)},
        {"access technology", AccessTechnologyName, values(0, 7)},
        {"registration state", RegistrationStateName, values(0, 5)},
        {"packet attach", PsAttachName, values(0, 1, {255})},
        {"HSPA switch", HspaSwitchName, values(0, 1)},
        {"CDMA preferred mode", CdmaPrefModeName, values(0, 0, {2, 4, 8})},
        {"EV-DO revision", EvdoRevisionName, values(0, 2)},
        {"NAM", NamName, values(0, 1)},
        {"SIM type", SimTypeName, values(0, 3, {255})},
        {"roaming setting", RoamSettingName, values(0, 2)},
        {"domain setting", DomainSettingName, values(0, 4)},
    };
    for (const Table& table : tables) {
        std::set<std::string> seen;
        for (int64_t value : table.values) {
            const char* pszName = table.name(value);
            ASSERT_NE(pszName, nullptr) << table.what << " " << value;
            EXPECT_NE(std::string(pszName), "") << table.what << " " << value;
            EXPECT_TRUE(seen.insert(pszName).second)
                << table.what << " " << value << " repeats " << pszName;
        }
    }
}

TEST(NetsrvctlNames, WordsForTheNumbersModemsReport)
{
    struct Row {
        const char* (*name)(int64_t);
        int64_t value;
        const char* expected;   // null: no name, the number is shown alone
    };
    const Row rows[] = {
        {ServiceStatusName, 2, "normal service"},
        {ServiceStatusName, 4, "power saving"},
        {ServiceStatusName, 5, nullptr},
        {ServiceStatusName, -1, nullptr},
        {SystemModeName, 6, "LTE"},
        {SystemModeName, 7, nullptr},
        // The high-speed modes say which radio they run on.
        {SubModeName, 45, "HSPA+ (WCDMA)"},
        {SubModeName, 65, "HSPA+ (TD-SCDMA)"},
        {SubModeName, 29, "hybrid EV-DO Rev. A"},
        // An LTE modem's sub-mode is outside the enumeration.
        {SubModeName, 101, nullptr},
        {SubModeName, 4, nullptr},
        {RoamingName, 0, "not roaming"},
        {RoamingName, 1, "roaming"},
        {RoamingName, 13, nullptr},
        {DomainName, 3, "CS and PS"},
        {DomainName, 255, "not applicable"},
        {DomainName, 5, nullptr},
        {SimStateName, 240, "ROM SIM"},
        {SimStateName, 255, "absent"},
        {SimStateName, 4, "invalid for CS and PS"},
        {SimStateName, 5, nullptr},
        {AccessTechnologyName, 7, "LTE"},
        {AccessTechnologyName, 9, nullptr},
        {RegistrationStateName, 1, "registered (home network)"},
        {RegistrationStateName, 5, "registered (roaming)"},
        {RegistrationStateName, 6, nullptr},
        {CdmaPrefModeName, 8, "hybrid CDMA 1X / EV-DO"},
        {CdmaPrefModeName, 3, nullptr},
        // The revision keeps the modem's order: A before 0.
        {EvdoRevisionName, 0, "Rev. A"},
        {EvdoRevisionName, 1, "Rev. 0"},
        {SimTypeName, 4, nullptr},
    };
    for (const Row& row : rows) {
        const char* pszName = row.name(row.value);
        if (row.expected == nullptr) {
            EXPECT_EQ(pszName, nullptr) << row.value << " named " << pszName;
        } else {
            ASSERT_NE(pszName, nullptr) << row.value;
            EXPECT_STREQ(pszName, row.expected);
        }
    }
}

SystemInfo Info(int32_t status, int32_t sysMode, int32_t domain, int32_t roam, int32_t sim,
                int32_t subMode, int32_t lock, const char* pszModeName, const char* pszSubName)
{
    SystemInfo info;
    info.dwSrvStatus = status;
    info.dwSysMode = sysMode;
    info.dwDomain = domain;
    info.dwRoam = roam;
    info.dwSimState = sim;
    info.dwSubMode = subMode;
    info.dwLockState = lock;
    std::strncpy(info.szSysModeName, pszModeName, sizeof(info.szSysModeName) - 1);
    std::strncpy(info.szSubModeName, pszSubName, sizeof(info.szSubModeName) - 1);
    return info;
}

TEST(NetsrvctlStatusView, RecordsAsJsonAndText)
{
    struct Row {
        const char* from;
        SystemInfo info;
        const char* json;
        const char* text;   // null: its lines add nothing to the rows above
    };
    const Row rows[] = {
        {"^SYSINFOEX: 2,3,0,1,0,6,\"LTE\",101,\"LTE\"",
         Info(2, 6, 3, 0, 1, 101, 0, "LTE", "LTE"),
         R"J({"service_status":2,"service_status_name":"normal service","system_mode":6,)J"
         R"J("system_mode_name":"LTE","sub_mode":101,"sub_mode_name":"LTE","roaming":0,)J"
         R"J("roaming_name":"not roaming","domain":3,"domain_name":"CS and PS","sim_state":1,)J"
         R"J("sim_state_name":"valid","lock_state":0,"lock_state_name":"not locked",)J"
         R"J("modem_mode_name":"LTE","modem_sub_mode_name":"LTE"})J",
         "service status:   2 - normal service\n"
         "system mode:      6 - LTE\n"
         "sub-mode:         101 - LTE (the modem's name)\n"
         "roaming:          0 - not roaming\n"
         "domain:           3 - CS and PS\n"
         "SIM state:        1 - valid\n"
         "lock state:       0 - not locked\n"
         "modem mode names: LTE / LTE\n"},
        // Mapped from "^SYSINFO: 2,3,0,5,1,,9": no names, and the lock state
        // is whatever the record held, so it is not shown.
        {"^SYSINFO fallback", Info(2, 3, 3, 0, 1, 45, 1, "", ""),
         R"J({"service_status":2,"service_status_name":"normal service","system_mode":3,)J"
         R"J("system_mode_name":"WCDMA","sub_mode":45,"sub_mode_name":"HSPA+ (WCDMA)",)J"
         R"J("roaming":0,"roaming_name":"not roaming","domain":3,"domain_name":"CS and PS",)J"
         R"J("sim_state":1,"sim_state_name":"valid"})J",
         "service status:   2 - normal service\n"
         "system mode:      3 - WCDMA\n"
         "sub-mode:         45 - HSPA+ (WCDMA)\n"
         "roaming:          0 - not roaming\n"
         "domain:           3 - CS and PS\n"
         "SIM state:        1 - valid\n"
         "lock state:       not reported\n"
         "modem mode names: none (the modem answers only ^SYSINFO, which carries no names)\n"},
        // Numbers no table knows, and no name from the modem for them.
        {"unknown numbers", Info(9, 7, 6, 20, 5, 77, 2, "", "NR5G"),
         R"J({"service_status":9,"system_mode":7,"sub_mode":77,"sub_mode_name":"NR5G",)J"
         R"J("roaming":20,"domain":6,"sim_state":5,"lock_state":2,"modem_sub_mode_name":"NR5G"})J",
         "service status:   9 - unknown\n"
         "system mode:      7 - unknown\n"
         "sub-mode:         77 - NR5G (the modem's name)\n"
         "roaming:          20 - unknown\n"
         "domain:           6 - unknown\n"
         "SIM state:        5 - unknown\n"
         "lock state:       2 - unknown\n"
         "modem mode names: (none) / NR5G\n"},
        // A CDMA modem: a hybrid sub-mode, domain not applicable, roaming
        // indicator, our name for a mode the table knows over the modem's.
        {"^SYSINFOEX: 2,255,2,240,1,2,\"CDMA\",29,\"HYBRID(EVDO RelA)\"",
         Info(2, 2, 255, 2, 240, 29, 1, "CDMA", "HYBRID(EVDO RelA)"),
         R"J({"service_status":2,"service_status_name":"normal service","system_mode":2,)J"
         R"J("system_mode_name":"CDMA","sub_mode":29,"sub_mode_name":"hybrid EV-DO Rev. A",)J"
         R"J("roaming":2,"roaming_name":"roaming indicator flashing","domain":255,)J"
         R"J("domain_name":"not applicable","sim_state":240,"sim_state_name":"ROM SIM",)J"
         R"J("lock_state":1,"lock_state_name":"locked","modem_mode_name":"CDMA",)J"
         R"J("modem_sub_mode_name":"HYBRID(EVDO RelA)"})J",
         nullptr},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.from);
        EXPECT_EQ(StatusJson(row.info).dump(), row.json);
        if (row.text != nullptr) {
            EXPECT_EQ(StatusText(row.info), row.text);
        }
    }
}

TEST(NetsrvctlStatusView, ModemNamesAreBoundedAndPrintable)
{
    SystemInfo info = Info(2, 6, 3, 0, 1, 101, 0, "", "");
    // A name that fills its field without a terminator ends at the field.
    std::memset(info.szSysModeName, 'L', sizeof(info.szSysModeName));
    // A stray CR and an escape from the modem do not reach the terminal.
    std::strcpy(info.szSubModeName, "LTE\r\x1b[2J");
    const auto json = StatusJson(info);
    EXPECT_EQ(json["modem_mode_name"], std::string(64, 'L'));
    EXPECT_EQ(json["modem_sub_mode_name"], "LTE??[2J");
    EXPECT_EQ(json["sub_mode_name"], "LTE??[2J");
    const std::string text = StatusText(info);
    EXPECT_EQ(text.find('\r'), std::string::npos) << text;
    EXPECT_EQ(text.find('\x1b'), std::string::npos) << text;
    EXPECT_NE(text.find("modem mode names: " + std::string(64, 'L') + " / LTE??[2J\n"),
              std::string::npos)
        << text;
}

TEST(NetsrvctlSignalView, TheBarRoundsToTheNearestCell)
{
    const struct {
        int percent;
        const char* bar;
    } rows[] = {
        {0, "[----------] 0%"},     {4, "[----------] 4%"},     {5, "[#---------] 5%"},
        {64, "[######----] 64%"},   {65, "[#######---] 65%"},   {99, "[##########] 99%"},
        {100, "[##########] 100%"}, {129, "[##########] 129%"}, {-3, "[----------] -3%"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(SignalBar(row.percent), row.bar);
    }
}

SignalReadings LteReadings()
{
    SignalReadings r;
    r.percent = 20;
    r.csq = netsrvctl::CsqStep{22, 99};
    LteSignal lte;
    lte.nRSRP = -122;
    lte.nRSRQ = -20;
    r.lte = lte;
    LteScInfo cell;
    cell.pci = 301;
    cell.dlsinr = -3;
    cell.numant = 1;
    r.lteCell = cell;
    r.antennaLevel = 4;
    return r;
}

TEST(NetsrvctlSignalView, OnlyTheReadingsTheModemGave)
{
    SignalReadings wcdma;
    wcdma.percent = 51;
    NETSRV_DATA::Signal quality;
    quality.nRSCP = -91;
    quality.nECIO = -7;
    wcdma.quality = quality;
    wcdma.csq = netsrvctl::CsqStep{99, 3};

    SignalReadings evdoOnly;
    evdoOnly.evdoPercent = 60;

    struct Row {
        const char* what;
        SignalReadings readings;
        const char* json;
        const char* text;
    };
    const Row rows[] = {
        {"LTE", LteReadings(),
         R"J({"signal_percent":20,"rssi":22,"rssi_dbm":-69,"rsrp":-122,"rsrq":-20,"sinr":-3,)J"
         R"J("pci":301,"antennas":1,"antenna_level":4})J",
         "signal:           [##--------] 20%\n"
         "rssi:             22 (-69 dBm)\n"
         "ber:              99 (not known)\n"
         "RSCP:             not reported\n"
         "Ec/Io:            not reported\n"
         "RSRP:             -122 dBm\n"
         "RSRQ:             -20 dB\n"
         "SINR:             -3 dB\n"
         "LTE cell:         PCI 301, 1 antenna\n"
         "antenna level:    4\n"
         "EV-DO signal:     not reported\n"},
        {"WCDMA", wcdma,
         R"J({"signal_percent":51,"rssi":99,"ber":3,"rscp":-91,"ecio":-7})J",
         "signal:           [#####-----] 51%\n"
         "rssi:             99 (not known)\n"
         "ber:              3\n"
         "RSCP:             -91 dBm\n"
         "Ec/Io:            -7 dB\n"
         "RSRP:             not reported\n"
         "RSRQ:             not reported\n"
         "SINR:             not reported\n"
         "LTE cell:         not reported\n"
         "antenna level:    not reported\n"
         "EV-DO signal:     not reported\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(SignalJson(row.readings).dump(), row.json);
        EXPECT_EQ(SignalText(row.readings), row.text);
    }

    // Nothing but the EV-DO reading: every other line says so.
    EXPECT_EQ(SignalJson(evdoOnly).dump(), R"J({"evdo_percent":60})J");
    std::string text = SignalText(evdoOnly);
    const std::string evdoLine = "EV-DO signal:     [######----] 60%\n";
    ASSERT_GE(text.size(), evdoLine.size());
    EXPECT_EQ(text.substr(text.size() - evdoLine.size()), evdoLine);
    text.resize(text.size() - evdoLine.size());
    size_t notReported = 0;
    for (size_t at = text.find("not reported\n"); at != std::string::npos;
         at = text.find("not reported\n", at + 1)) {
        ++notReported;
    }
    EXPECT_EQ(notReported, 10u) << text;
    EXPECT_EQ(SignalJson(SignalReadings()).dump(), "{}");
}

RegStateReport Registration(int32_t mode, int32_t state, const char* pszArea,
                            const char* pszCell)
{
    RegStateReport report;
    report.ReportMode = mode;
    report.ReportState = state;
    std::strncpy(report.LacCode, pszArea, sizeof(report.LacCode) - 1);
    std::strncpy(report.CellID, pszCell, sizeof(report.CellID) - 1);
    return report;
}

TEST(NetsrvctlRegistrationView, DomainsAsJsonAndText)
{
    RegistrationReadings lte;
    lte.domains[0] = Registration(2, 1, "2A3B", "01A2B3C4");
    lte.domains[1] = Registration(2, 5, "2A3B", "01A2B3C4");
    lte.domains[2] = Registration(2, 1, "CE00", "01CEAD8F");
    lte.psAttach = 1;
    // A 3G modem in report mode 0: no EPS, no location; a state and an
    // attach state outside the tables.
    RegistrationReadings old;
    old.domains[0] = Registration(0, 8, "", "");
    old.domains[1] = Registration(1, 2, "", "");
    old.psAttach = 7;

    struct Row {
        const char* what;
        RegistrationReadings readings;
        const char* json;
        const char* text;
    };
    const Row rows[] = {
        {"LTE", lte,
         R"J({"cs":{"report_mode":2,"state":1,"state_name":"registered (home network)",)J"
         R"J("lac":"2A3B","cell_id":"01A2B3C4"},"ps":{"report_mode":2,"state":5,)J"
         R"J("state_name":"registered (roaming)","lac":"2A3B","cell_id":"01A2B3C4"},)J"
         R"J("eps":{"report_mode":2,"state":1,"state_name":"registered (home network)",)J"
         R"J("tac":"CE00","cell_id":"01CEAD8F"},"ps_attach":1,"ps_attach_name":"attached"})J",
         "CS report mode:   2\n"
         "CS state:         1 - registered (home network)\n"
         "CS LAC:           2A3B\n"
         "CS cell id:       01A2B3C4\n"
         "PS report mode:   2\n"
         "PS state:         5 - registered (roaming)\n"
         "PS LAC:           2A3B\n"
         "PS cell id:       01A2B3C4\n"
         "EPS report mode:  2\n"
         "EPS state:        1 - registered (home network)\n"
         "EPS TAC:          CE00\n"
         "EPS cell id:      01CEAD8F\n"
         "PS attach:        1 - attached\n"},
        {"3G, report mode 0", old,
         R"J({"cs":{"report_mode":0,"state":8,"state_name":"state 8"},)J"
         R"J("ps":{"report_mode":1,"state":2,"state_name":"searching"},)J"
         R"J("ps_attach":7,"ps_attach_name":"unknown"})J",
         "CS report mode:   0\n"
         "CS state:         8 - state 8\n"
         "CS LAC:           not reported\n"
         "CS cell id:       not reported\n"
         "PS report mode:   1\n"
         "PS state:         2 - searching\n"
         "PS LAC:           not reported\n"
         "PS cell id:       not reported\n"
         "EPS state:        not reported\n"
         "PS attach:        7 - unknown\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(RegistrationJson(row.readings).dump(), row.json);
        EXPECT_EQ(RegistrationText(row.readings), row.text);
    }
    // A command that set the attach state shows that line alone.
    RegistrationReadings detached;
    detached.psAttach = 0;
    EXPECT_EQ(RegistrationText(detached, false), "PS attach:        0 - detached\n");
}

TEST(NetsrvctlSettingsView, HspaAndCdmaShowWhatWasRead)
{
    HspaReadings hspa;
    hspa.hsdpa = 1;
    hspa.hsupa = 0;
    EXPECT_EQ(HspaJson(hspa).dump(),
              R"J({"hsdpa":1,"hsdpa_name":"enabled","hsupa":0,"hsupa_name":"disabled"})J");
    HspaReadings upaOnly;
    upaOnly.hsupa = 3;   // no such switch state: no name
    EXPECT_EQ(HspaJson(upaOnly).dump(), R"J({"hsupa":3})J");
    EXPECT_EQ(HspaText(upaOnly, false), "HSUPA:            3 - unknown\n");

    CdmaReadings cdma;
    cdma.prefMode = 8;
    cdma.evdoRevision = 0;
    cdma.nam = 1;
    cdma.prlVersion = "10012";
    CURRNETWORKIDINFO network;
    network.unCurrSID = 13824;
    network.unCurrNID = 65535;
    std::strncpy(network.szSubNetID, "0A1B2C3D", sizeof(network.szSubNetID) - 1);
    cdma.network = network;
    cdma.simType = 255;
    EXPECT_EQ(CdmaJson(cdma).dump(),
              R"J({"pref_mode":8,"pref_mode_name":"hybrid CDMA 1X / EV-DO","evdo_revision":0,)J"
              R"J("evdo_revision_name":"Rev. A","nam":1,"nam_name":"NAM 2",)J"
              R"J("prl_version":"10012","sid":13824,"nid":65535,"subnet_id":"0A1B2C3D",)J"
              R"J("sim_type":255,"sim_type_name":"unknown"})J");

    // A mode outside the three is still named; a revision outside its table
    // is not; a network without a subnet leaves it out; nothing else was read.
    CdmaReadings odd;
    odd.prefMode = 3;
    odd.evdoRevision = 5;
    network.szSubNetID[0] = '\0';
    odd.network = network;
    EXPECT_EQ(CdmaJson(odd).dump(),
              R"J({"pref_mode":3,"pref_mode_name":"unknown","evdo_revision":5,)J"
              R"J("sid":13824,"nid":65535})J");
    EXPECT_EQ(CdmaText(odd, false), "preferred mode:   3 - unknown\n"
                                    "EV-DO revision:   5 - unknown\n"
                                    "SID:              13824\n"
                                    "NID:              65535\n");
    EXPECT_EQ(CdmaJson(CdmaReadings()).dump(), "{}");
}

}  // namespace
