// The command catalogue against the command table: every class's name, type,
// index and parameter row, the layout that the AT processor walks, how reports
// are cast into the classes, and the multi-line collections.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "NetSrvAtCommonds.h"

namespace {

const char* const kEmpty = "<empty>";

// Member kinds of an expected parameter row, one letter per member:
// N NUMERIC, S STRING, B BINARY, H HEX, r OPERATOR<1> (read form),
// t OPERATOR<32> (test form).
long KindTypeId(char kind)
{
    switch (kind) {
    case 'N': return PARAM_ID_NUMERIC;
    case 'S': return PARAM_ID_STRING;
    case 'B': return PARAM_ID_BINARY;
    case 'H': return PARAM_ID_HEX;
    case 'r':
    case 't': return PARAM_ID_OPERATOR;
    }
    return -1;
}

// One parameter as the service reads it: numbers by value (so the check does
// not depend on how the host prints hexadecimal), texts and bytes as text.
std::string Show(PARAMETER& param)
{
    if (param.IsEmpty()) {
        return kEmpty;
    }
    switch (param.TypeId()) {
    case PARAM_ID_NUMERIC:
    case PARAM_ID_OPERATOR:
    case PARAM_ID_HEX:
        return std::to_string(param.GetNumValue());
    default:
        return param.ToString();
    }
}

// Every parameter of an object, walked the way the AT processor walks them.
std::vector<std::string> Dump(ICommand& cmd)
{
    std::vector<std::string> shown;
    PARAMETER* first = cmd.GetFirstElemAddr();
    for (unsigned long k = 0; first != nullptr && k < cmd.GetElemCount(); ++k) {
        shown.push_back(Show(first[k]));
    }
    return shown;
}

// What a freshly constructed object of one class looks like through ICommand.
struct ClassProbe {
    std::string cls;
    unsigned long expectedIndex;
    std::string expectedName;
    std::string kinds;                // expected row, see KindTypeId
    unsigned long index;
    unsigned long count;
    unsigned long type;
    std::string name;
    bool firstIsNull;
    std::vector<bool> memberInPlace;  // named member k sits at GetFirstElemAddr() + k
    std::vector<long> typeIds;        // TypeId of each walked parameter
    std::vector<std::string> fresh;   // Show of each walked parameter
};

template <class T, class MemberList>
ClassProbe Probe(const char* cls, unsigned long expectedIndex, const char* expectedName,
                 const char* kinds, MemberList members)
{
    T object;
    ICommand& cmd = object;
    ClassProbe probe{cls, expectedIndex, expectedName, kinds, cmd.GetIndex(),
                     cmd.GetElemCount(), cmd.GetType(), cmd.GetName(),
                     cmd.GetFirstElemAddr() == nullptr, {}, {}, {}};
    PARAMETER* first = cmd.GetFirstElemAddr();
    std::vector<PARAMETER*> named = members(object);
    for (std::size_t k = 0; k < named.size(); ++k) {
        probe.memberInPlace.push_back(first != nullptr && named[k] == first + k);
    }
    for (unsigned long k = 0; first != nullptr && k < probe.count; ++k) {
        probe.typeIds.push_back(first[k].TypeId());
        probe.fresh.push_back(Show(first[k]));
    }
    return probe;
}

#define CLASS_ROW(T, INDEX, NAME, KINDS, ...)                      \
    Probe<T>(#T, INDEX, NAME, KINDS,                               \
             [](T& c) { return std::vector<PARAMETER*>{__VA_ARGS__}; })
#define BARE_ROW(T, INDEX, NAME) \
    Probe<T>(#T, INDEX, NAME, "", [](T&) { return std::vector<PARAMETER*>{}; })

// The whole catalogue, member for member. SerivceChangedInd declares four
// parameters over the one named member SrvStatus.
std::vector<ClassProbe> AllClasses()
{
    return {
        CLASS_ROW(CrsmCmd, INDEX_CRSM, "+CRSM", "NNNNN",
                  &c.cmdtype, &c.Fileid, &c.P1, &c.P2, &c.P3),
        CLASS_ROW(CrsmCmdRsp, INDEX_CRSM, "+CRSM", "SSS", &c.Sw1, &c.Sw2, &c.Response),
        CLASS_ROW(CrsmSPNRsp, INDEX_CRSM, "+CRSM", "NNB", &c.sw1, &c.sw2, &c.data),
        CLASS_ROW(ReadNetworkCfgCmd, INDEX_SYS_CFG, "^SYSCFG", "r", &c.Reserved),
        CLASS_ROW(SetNetworkCfgCmd, INDEX_SYS_CFG, "^SYSCFG", "NNHNN",
                  &c.SysModePref, &c.AcqOrder, &c.Band, &c.Roam, &c.Domain),
        CLASS_ROW(TestNetworkCfgCmd, INDEX_SYS_CFG, "^SYSCFG", "t", &c.Reserved),
        CLASS_ROW(ReadNetworkCfgRsp, INDEX_SYS_CFG, "^SYSCFG", "NNHNN",
                  &c.SysModePref, &c.AcqOrder, &c.Band, &c.Roam, &c.Domain),
        CLASS_ROW(TestNetworkCfgRsp, INDEX_SYS_CFG, "^SYSCFG", "SSSSS",
                  &c.Modes, &c.AcqOrders, &c.Bands, &c.Roams, &c.Domains),
        CLASS_ROW(NetworkInfoQueryCmd, INDEX_NET_SEARCH, "+COPS", "NNSN",
                  &c.NetMode, &c.Format, &c.ProviderName, &c.rat),
        CLASS_ROW(NetworkReadCmd, INDEX_NET_SEARCH, "+COPS", "r", &c.Reserved),
        CLASS_ROW(NetworkTestCmd, INDEX_NET_SEARCH, "+COPS", "t", &c.Reserved),
        CLASS_ROW(NetworkInfoQueryRsp, INDEX_NET_SEARCH, "+COPS", "NNSN",
                  &c.NetMode, &c.Format, &c.ProviderName, &c.rat),
        CLASS_ROW(NetworkTestCmdRsp, INDEX_NET_SEARCH, "+COPS", "NSSSN",
                  &c.Stat, &c.FullName, &c.ShortName, &c.PlmnId, &c.AcT),
        CLASS_ROW(NetRegistControlCmd, INDEX_REGISTER_NET, "^REGISTER", "N", &c.ControlVal),
        BARE_ROW(SystemInfoCmd, INDEX_SYS_INFO, "^SYSINFO"),
        CLASS_ROW(SystemInfoRsp, INDEX_SYS_INFO, "^SYSINFO", "NNNSNNS",
                  &c.SrvStatus, &c.SrvDomain, &c.RoamStatus, &c.SysMode, &c.SimState,
                  &c.SimLockState, &c.SubSysmode),
        BARE_ROW(ReadRssiCSQCmd, INDEX_CSQ, "+CSQ"),
        CLASS_ROW(ReadRssiCSQRsp, INDEX_CSQ, "+CSQ", "NN", &c.RssiValue, &c.Ber),
        BARE_ROW(ReadCDMARssiCmd, INDEX_RSSI_CDMA, "^CSQLVL"),
        CLASS_ROW(ReadCDMARssiRsp, INDEX_RSSI_CDMA, "^CSQLVL", "NN", &c.RssiValue, &c.Ber),
        CLASS_ROW(ReadSignalExCmd, INDEX_SIGNAL_EX, "^CSNR", "r", &c.readflag),
        CLASS_ROW(ReadSignalExRsp, INDEX_SIGNAL_EX, "^CSNR", "NN", &c.rscp, &c.ec_io),
        BARE_ROW(ReadHdrRssiCmd, INDEX_RSSI_HDR, "^HDRCSQLVL"),
        CLASS_ROW(ReadHdrRssiRsp, INDEX_RSSI_HDR, "^HDRCSQLVL", "N", &c.RssiValue),
        CLASS_ROW(GetAntennaLevelCmdEx, INDEX_ANTENNA_QUERY, "^ANQUERY", "r", &c.Reserved),
        CLASS_ROW(GetAntennaLevelCmdRspEx, INDEX_ANTENNA_QUERY, "^ANQUERY", "NNNN",
                  &c.rscp, &c.ecio, &c.rssi, &c.level),
        CLASS_ROW(ReadCDMAPrefModCmd, INDEX_SYS_CDMA_PREFMODE, "^PREFMODE", "r", &c.Reserved),
        CLASS_ROW(SetCDMAPrefModCmd, INDEX_SYS_CDMA_PREFMODE, "^PREFMODE", "N", &c.PrefMod),
        CLASS_ROW(ReadCDMAPrefModRsp, INDEX_SYS_CDMA_PREFMODE, "^PREFMODE", "N", &c.PrefMod),
        CLASS_ROW(ReadSpnCmd, INDEX_SPN, "^SPN", "N", &c.SpnType),
        CLASS_ROW(ReadSpnRsp, INDEX_SPN, "^SPN", "NNSN",
                  &c.DispRplmn, &c.CodeType, &c.SpnName, &c.CdmaCodeType),
        CLASS_ROW(HSDPAReadCmd, INDEX_HSDPA, "^HSDPA", "r", &c.Reserved),
        CLASS_ROW(HSDPASetCmd, INDEX_HSDPA, "^HSDPA", "N", &c.state),
        CLASS_ROW(HSDPAReadRsp, INDEX_HSDPA, "^HSDPA", "N", &c.state),
        CLASS_ROW(GprsStateGetCmd, INDEX_GPRS_CGATT, "+CGATT", "r", &c.Reserved),
        CLASS_ROW(GprsStateSetCmd, INDEX_GPRS_CGATT, "+CGATT", "N", &c.state),
        CLASS_ROW(GprsStateGetCmdRsp, INDEX_GPRS_CGATT, "+CGATT", "N", &c.state),
        CLASS_ROW(ReadLastErrCmd, INDEX_SRV_GLASTERR, "^GLASTERR", "N", &c.type),
        CLASS_ROW(ReadLastErrRsp, INDEX_SRV_GLASTERR, "^GLASTERR", "NN", &c.type, &c.code),
        BARE_ROW(ReadImsiCmd, INDEX_IMSI, "+CIMI"),
        CLASS_ROW(ReadImsiRsp, INDEX_IMSI, "+CIMI", "S", &c.ImsiValue),
        CLASS_ROW(SerivceChangedInd, INDEX_SERV_IND, "^SRVST", "NNNN", &c.SrvStatus),
        CLASS_ROW(HSUPAReadCmd, INDEX_HSUPA, "^HSUPA", "r", &c.Reserved),
        CLASS_ROW(HSUPASetCmd, INDEX_HSUPA, "^HSUPA", "N", &c.state),
        CLASS_ROW(HSUPAReadRsp, INDEX_HSUPA, "^HSUPA", "N", &c.state),
        CLASS_ROW(DispPnnCmd, INDEX_DISP_PNN, "^CPNN", "N", &c.filetype),
        CLASS_ROW(DispPnnCmdRsp, INDEX_DISP_PNN, "^CPNN", "SNNSNN",
                  &c.fullname, &c.fcoding, &c.full_name_ci, &c.shortname, &c.scoding,
                  &c.short_name_ci),
        CLASS_ROW(OplListReadCmd, INDEX_OPL, "^OPL", "N", &c.opl_type),
        CLASS_ROW(OplListReadRsp, INDEX_OPL, "^OPL", "SSN", &c.plmn_id, &c.lac_range, &c.index_pnn),
        CLASS_ROW(PmnListReadCmd, INDEX_PNN, "^PNN", "N", &c.pnn_type),
        CLASS_ROW(PmnListReadRsp, INDEX_PNN, "^PNN", "BBS",
                  &c.full_name_seg, &c.short_name_seg, &c.additional_info),
        CLASS_ROW(EvdoGetRevisionCmd, INDEX_EVDOREV, "^EVDOREV", "r", &c.Reserved),
        CLASS_ROW(EvdoSetRevCmd, INDEX_EVDOREV, "^EVDOREV", "N", &c.EvdoRev),
        CLASS_ROW(EvdoGetRevisionRsp, INDEX_EVDOREV, "^EVDOREV", "N", &c.EvdoRev),
        CLASS_ROW(NAMGetModeCmd, INDEX_NAM_SWITCH, "^SNAM", "r", &c.Reserved),
        CLASS_ROW(NAMSetCmd, INDEX_NAM_SWITCH, "^SNAM", "N", &c.mode),
        CLASS_ROW(NAMGetModeRsp, INDEX_NAM_SWITCH, "^SNAM", "N", &c.NamRev),
        CLASS_ROW(RegMinCmd, INDEX_REG_MIN, "^REG", "S", &c.min),
        CLASS_ROW(PrlVerReadCmd, INDEX_PRL_VER, "^PRLVER", "r", &c.Reserved),
        CLASS_ROW(PrlVerReadRsp, INDEX_PRL_VER, "^PRLVER", "S", &c.ver),
        CLASS_ROW(KTFSimTypeCmd, INDEX_KTF_SIM_TYPE, "^KTFSIMTYPE", "r", &c.readflag),
        CLASS_ROW(KTFSimTypeRsp, INDEX_KTF_SIM_TYPE, "^KTFSIMTYPE", "N", &c.type),
        CLASS_ROW(QueryCSRegStateCmd, INDEX_NET_REGISTER, "+CREG", "r", &c.Reserved),
        CLASS_ROW(RegisterReportCmd, INDEX_NET_REGISTER, "+CREG", "N", &c.ReportMode),
        CLASS_ROW(QueryCSRegStateRsp, INDEX_NET_REGISTER, "+CREG", "NNSS",
                  &c.ReportMode, &c.ReportState, &c.LacCode, &c.CellID),
        CLASS_ROW(RegisterStatusInd, INDEX_NET_REGISTER, "+CREG", "NNN",
                  &c.Status, &c.Location, &c.ZoneInfo),
        CLASS_ROW(QueryPSRegStateCmd, INDEX_CGREG, "+CGREG", "r", &c.Reserved),
        CLASS_ROW(QueryPSRegStateRsp, INDEX_CGREG, "+CGREG", "NNSS",
                  &c.ReportMode, &c.ReportState, &c.LacCode, &c.CellID),
        CLASS_ROW(SetGprsReportCmd, INDEX_CGREG, "+CGREG", "N", &c.ReportMode),
        CLASS_ROW(QueryLTEPSRegStateCmd, INDEX_CEREG, "+CEREG", "r", &c.Reserved),
        CLASS_ROW(QueryLTEPSRegStateRsp, INDEX_CEREG, "+CEREG", "NNSSNNN",
                  &c.ReportMode, &c.ReportState, &c.LacCode, &c.CellID, &c.ActType, &c.CauseType,
                  &c.RejectCause),
        CLASS_ROW(SetLTEPSReportCmd, INDEX_CEREG, "+CEREG", "N", &c.ReportMode),
        CLASS_ROW(RssiChangedInd, INDEX_RSSI_IND, "^RSSI", "N", &c.rssi),
        CLASS_ROW(RssiChangedIndEC, INDEX_RSSI_IND_EC, "^RSSILVL", "N", &c.rssi),
        CLASS_ROW(HdrRssiChangedInd, INDEX_RSSI_HDR_IND, "^HRSSILVL", "N", &c.rssi),
        CLASS_ROW(AntennaChangedReport, INDEX_ANTENNA_REPORT, "^ANLEVEL", "NNNN",
                  &c.rscp, &c.ecio, &c.rssi, &c.level),
        CLASS_ROW(SysModeChangedInd, INDEX_SYS_MODE, "^MODE", "SS", &c.SysMode, &c.SysSubMode),
        CLASS_ROW(SimRefreshCmd, INDEX_SIM_REFRESH, "^SIMREFRESH", "N", &c.filetype),
        CLASS_ROW(ReadNetworkConfigCmd, INDEX_SYS_SYSCONFIG, "^SYSCONFIG", "r", &c.Reserved),
        CLASS_ROW(ReadNetworkConfigRsp, INDEX_SYS_SYSCONFIG, "^SYSCONFIG", "NNNN",
                  &c.SysModePref, &c.AcqOrder, &c.Roam, &c.Domain),
        CLASS_ROW(ReadCplsCmd, INDEX_CPLS, "+CPLS", "r", &c.Reserved),
        CLASS_ROW(SetCplsCmd, INDEX_CPLS, "+CPLS", "N", &c.list),
        CLASS_ROW(ReadCplsCmdRsp, INDEX_CPLS, "+CPLS", "N", &c.list),
        CLASS_ROW(ReadCpolCmd, INDEX_CPOL, "+CPOL", "r", &c.Reserved),
        CLASS_ROW(SetCpolCmd, INDEX_CPOL, "+CPOL", "SSSSSS",
                  &c.index, &c.format, &c.oper, &c.GSM_AcT, &c.GSM_Compact_AcT, &c.UTRAN_AcT),
        CLASS_ROW(ReadCpolRsp, INDEX_CPOL, "+CPOL", "SSSSSS",
                  &c.index, &c.format, &c.oper, &c.GSM_AcT, &c.GSM_Compact_AcT, &c.UTRAN_AcT),
        BARE_ROW(SystemInfoExCmd, INDEX_SYS_INFOEX, "^SYSINFOEX"),
        CLASS_ROW(SystemInfoExRsp, INDEX_SYS_INFOEX, "^SYSINFOEX", "NNNNNNSNS",
                  &c.SrvStatus, &c.SrvDomain, &c.RoamStatus, &c.SimState, &c.SimLockState,
                  &c.SysMode, &c.SysModeName, &c.SubMode, &c.SubModeName),
        CLASS_ROW(ReadNetworkCfgExCmd, INDEX_SYS_CFGEX, "^SYSCFGEX", "r", &c.Reserved),
        CLASS_ROW(SetNetworkCfgExCmd, INDEX_SYS_CFGEX, "^SYSCFGEX", "SHNNHSS",
                  &c.AcqOrder, &c.Band, &c.Roam, &c.Domain, &c.LteBand, &c.Reserved1,
                  &c.Reserved2),
        CLASS_ROW(TestNetworkCfgExCmd, INDEX_SYS_CFGEX, "^SYSCFGEX", "t", &c.Reserved),
        CLASS_ROW(ReadNetworkCfgExRsp, INDEX_SYS_CFGEX, "^SYSCFGEX", "SHNNHSS",
                  &c.AcqOrder, &c.Band, &c.Roam, &c.Domain, &c.LteBand, &c.Reserved1,
                  &c.Reserved2),
        CLASS_ROW(TestNetworkCfgExRsp, INDEX_SYS_CFGEX, "^SYSCFGEX", "SSSSS",
                  &c.AcqOrders, &c.Bands, &c.Roams, &c.Domains, &c.LteBand),
        CLASS_ROW(ReadLteRsrpCmd, INDEX_LTERSRP, "^LTERSRP", "r", &c.readflag),
        CLASS_ROW(ReadLteRsrpRsp, INDEX_LTERSRP, "^LTERSRP", "NN", &c.rsrp, &c.rsrq),
        CLASS_ROW(ReadLteScInfoCmd, INDEX_LTESCINFO, "^LTESCINFO", "r", &c.readflag),
        CLASS_ROW(ReadLteScInfoRsp, INDEX_LTESCINFO, "^LTESCINFO", "NNNN",
                  &c.pci, &c.dlsinr, &c.numant, &c.dlbw),
        CLASS_ROW(ReadHcsqCmd, INDEX_HCSQ, "^HCSQ", "r", &c.readflag),
        CLASS_ROW(ReadHcsqRsp, INDEX_HCSQ, "^HCSQ", "SNNNNN",
                  &c.sysmode, &c.value1, &c.value2, &c.value3, &c.value4, &c.value5),
        CLASS_ROW(ReadCurrNetworkIDCmd, INDEX_CURRSID, "^CURRSID", "r", &c.Reserved),
        CLASS_ROW(ReadCurrNetworkIDRsp, INDEX_CURRSID, "^CURRSID", "NNS",
                  &c.CurrSID, &c.CurrNID, &c.SubNetID),
    };
}

TEST(CommandCatalogue, EveryClassAgreesWithTheTableAndItsRow)
{
    const std::vector<ClassProbe> classes = AllClasses();
    ASSERT_EQ(classes.size(), 101u);

    std::set<std::string> names;
    std::set<unsigned long> indices;
    int bare = 0;
    for (const ClassProbe& p : classes) {
        SCOPED_TRACE(p.cls);
        names.insert(p.cls);
        indices.insert(p.index);

        EXPECT_EQ(p.index, p.expectedIndex);
        EXPECT_EQ(p.name, p.expectedName);
        EXPECT_STREQ(p.name.c_str(), _GetCmdName(p.expectedIndex));
        EXPECT_EQ(p.type, _GetCmdType(p.expectedIndex));

        EXPECT_EQ(p.count, p.kinds.size());
        EXPECT_EQ(p.firstIsNull, p.kinds.empty());
        bare += p.firstIsNull ? 1 : 0;
        if (p.cls != "SerivceChangedInd") {
            EXPECT_EQ(p.memberInPlace.size(), p.kinds.size());
        }
        for (std::size_t k = 0; k < p.memberInPlace.size(); ++k) {
            EXPECT_TRUE(p.memberInPlace[k]) << "member " << k << " out of place";
        }
        ASSERT_EQ(p.typeIds.size(), p.kinds.size());
        for (std::size_t k = 0; k < p.kinds.size(); ++k) {
            EXPECT_EQ(p.typeIds[k], KindTypeId(p.kinds[k])) << "parameter " << k;
            // Read and test forms carry their operator from construction on;
            // everything else starts empty.
            const char* fresh = p.kinds[k] == 'r' ? "1" : p.kinds[k] == 't' ? "32" : kEmpty;
            EXPECT_EQ(p.fresh[k], fresh) << "parameter " << k;
        }
    }
    EXPECT_EQ(names.size(), classes.size()) << "class listed twice";
    EXPECT_EQ(bare, 6);

    // Every row has at least one class except the placeholder and the four
    // commands the service never sends or casts.
    const std::set<unsigned long> withoutClass = {INDEX_INVALID, INDEX_PIN_ENABLE,
                                                  INDEX_SIM_STATUS, INDEX_PNN_FILE_REFRESH,
                                                  INDEX_FPVERIFYIND};
    for (unsigned long row = 0; row < INDEX_COUNT; ++row) {
        EXPECT_NE(indices.count(row), withoutClass.count(row)) << "row " << row;
    }
}

TEST(CommandTable, RowsAreNumberedNamedAndTyped)
{
    ASSERT_EQ(sizeof(_AtCmdSetTable) / sizeof(_AtCmdSetTable[0]), 49u);
    ASSERT_EQ(static_cast<int>(INDEX_COUNT), 49);

    // Rows whose type is not AT_TYPE_NORMAL; every other row is.
    const std::map<unsigned long, unsigned long> special = {
        {INDEX_INVALID, AT_TYPE_INVALID},         {INDEX_IMSI, AT_TYPE_RAWDATA},
        {INDEX_SERV_IND, AT_TYPE_UNSOLICITED},    {INDEX_SIM_STATUS, AT_TYPE_UNSOLICITED},
        {INDEX_SYS_MODE, AT_TYPE_UNSOLICITED},    {INDEX_SIM_REFRESH, AT_TYPE_UNSOLICITED},
        {INDEX_PNN_FILE_REFRESH, AT_TYPE_UNSOLICITED}};

    std::set<std::string> names;
    for (unsigned long row = 0; row < INDEX_COUNT; ++row) {
        SCOPED_TRACE("row " + std::to_string(row));
        const CmdSetItem& item = _AtCmdSetTable[row];
        EXPECT_EQ(item.index, row);
        EXPECT_EQ(_GetCmdName(row), item.name.c_str());
        EXPECT_EQ(_GetCmdType(row), item.type);
        const auto it = special.find(row);
        const unsigned long expectedType =
            it == special.end() ? static_cast<unsigned long>(AT_TYPE_NORMAL) : it->second;
        EXPECT_EQ(item.type, expectedType);
        if (row == INDEX_INVALID) {
            continue;
        }
        ASSERT_FALSE(item.name.empty());
        EXPECT_TRUE(item.name[0] == '+' || item.name[0] == '^') << item.name;
        EXPECT_TRUE(names.insert(item.name).second) << item.name << " twice";
    }

    EXPECT_STREQ(_GetCmdName(0), "");
    EXPECT_EQ(_GetCmdType(0), 0u);
    EXPECT_STREQ(_GetCmdName(48), "^CURRSID");
    // The rows no class speaks for.
    EXPECT_STREQ(_GetCmdName(INDEX_PIN_ENABLE), "+CLCK");
    EXPECT_STREQ(_GetCmdName(INDEX_SIM_STATUS), "^SIMST");
    EXPECT_STREQ(_GetCmdName(INDEX_PNN_FILE_REFRESH), "^PNNFILEREFRESH");
    EXPECT_STREQ(_GetCmdName(INDEX_FPVERIFYIND), "^FPVERIFYIND");
}

// Casts a report into a fresh object of class T and shows its parameters.
template <class T>
std::vector<std::string> CastFresh(const Command& report)
{
    T object;
    EXPECT_TRUE(CommandCast(report, &object));
    return Dump(object);
}

struct CastCase {
    const char* source;   // fixture id, or what the row is about
    std::vector<std::string> (*cast)(const Command&);
    const char* name;
    ParamList fields;     // as the processor split the line
    std::vector<std::string> expected;
};

TEST(CommandCast, FillsParametersByPosition)
{
    const std::string E = kEmpty;
    const std::string spn = "0054485552415941FFFFFFFFFFFFFFFFFF";
    const CastCase cases[] = {
        {"csq-1", CastFresh<ReadRssiCSQRsp>, "+CSQ", {"17", "99"}, {"17", "99"}},
        {"name differs in case", CastFresh<RssiChangedInd>, "^rssi", {"17"}, {E}},
        {"creg-14: surplus fields ignored", CastFresh<QueryCSRegStateRsp>, "+CREG",
         {"2", "1", "000B", "2816", "B", "C2816"}, {"2", "1", "000B", "2816"}},
        {"creg-1: too few fields", CastFresh<QueryCSRegStateRsp>, "+CREG", {"1", "3"},
         {"1", "3", E, E}},
        {"creg-2: quotes stay in STRING", CastFresh<QueryCSRegStateRsp>, "+CREG",
         {"2", "1", "\"CE00\"", "\"01CEAD8F\""}, {"2", "1", "\"CE00\"", "\"01CEAD8F\""}},
        {"creg-4: leading zeros", CastFresh<QueryCSRegStateRsp>, "+CREG",
         {"002", "001", "\"18d8\"", "\"ffff\""}, {"2", "1", "\"18d8\"", "\"ffff\""}},
        {"creg-9: quoted digits in NUMERIC read 0", CastFresh<RegisterStatusInd>, "+CREG",
         {"1", "\"CE00\"", "\"00005449\""}, {"1", "0", "0"}},
        {"cereg-2", CastFresh<QueryLTEPSRegStateRsp>, "+CEREG",
         {"2", "10", "\"8d83\"", "\"671f98a\"", "7"},
         {"2", "10", "\"8d83\"", "\"671f98a\"", "7", E, E}},
        {"sysinfo-4", CastFresh<SystemInfoRsp>, "^SYSINFO", {"2", "4", "5", "3", "1", "0", "6"},
         {"2", "4", "5", "3", "1", "0", "6"}},
        {"sysinfo-2: empty fields stay empty", CastFresh<SystemInfoRsp>, "^SYSINFO",
         {"2", "4", "5", "3", "1", "", ""}, {"2", "4", "5", "3", "1", E, E}},
        {"sysinfoex-2", CastFresh<SystemInfoExRsp>, "^SYSINFOEX",
         {"2", "4", "5", "1", "0", "3", "\"WCDMA\"", "41", "\"HSPA+\""},
         {"2", "4", "5", "1", "0", "3", "\"WCDMA\"", "41", "\"HSPA+\""}},
        {"syscfg-2: band is hexadecimal", CastFresh<ReadNetworkCfgRsp>, "^SYSCFG",
         {"2", "0", "400000", "0", "3"}, {"2", "0", "4194304", "0", "3"}},
        {"syscfgex-3", CastFresh<ReadNetworkCfgExRsp>, "^SYSCFGEX",
         {"\"00\"", "3FFFFFFF", "1", "2", "7FFFFFFFFFFFFFFF"},
         {"\"00\"", "1073741823", "1", "2", "9223372036854775807", E, E}},
        {"cops-17", CastFresh<NetworkInfoQueryRsp>, "+COPS", {"1", "0", "\"CHINA MOBILE\""},
         {"1", "0", "\"CHINA MOBILE\"", E}},
        {"cops-1: one search group", CastFresh<NetworkTestCmdRsp>, "+COPS",
         {"2", "\"\"", "\"T-Mobile\"", "\"31026\"", "0"},
         {"2", "\"\"", "\"T-Mobile\"", "\"31026\"", "0"}},
        {"cops-2: a sixth field is ignored", CastFresh<NetworkTestCmdRsp>, "+COPS",
         {"1", "\"AT&T\"", "\"AT&T\"", "\"310410\"", "2", "(0,1,2,3,4)"},
         {"1", "\"AT&T\"", "\"AT&T\"", "\"310410\"", "2"}},
        {"hcsq-1", CastFresh<ReadHcsqRsp>, "^HCSQ", {"\"LTE\"", "30", "19", "66", "0"},
         {"\"LTE\"", "30", "19", "66", "0", E}},
        {"hcsq-3", CastFresh<ReadHcsqRsp>, "^HCSQ", {"\"NOSERVICE\""},
         {"\"NOSERVICE\"", E, E, E, E, E}},
        {"cpol-6: eight fields onto six", CastFresh<ReadCpolRsp>, "+CPOL",
         {"1", "2", "12345", "1", "1", "1", "1", "1"}, {"1", "2", "12345", "1", "1", "1"}},
        {"crsm-spn-1", CastFresh<CrsmSPNRsp>, "+CRSM", {"144", "0", spn}, {"144", "0", spn}},
        {"crsm-spn-2: quoted octets are not hexadecimal", CastFresh<CrsmSPNRsp>, "+CRSM",
         {"144", "0", "\"" + spn + "\""}, {"144", "0", E}},
        {"crsm-iccid-6: odd number of digits", CastFresh<CrsmSPNRsp>, "+CRSM",
         {"144", "0", "0044200053671052499"}, {"144", "0", E}},
        {"crsm-iccid-5: stray letters", CastFresh<CrsmSPNRsp>, "+CRSM",
         {"144", "0", "98231420326pl9614067"}, {"144", "0", E}},
        {"odd BINARY stops the fill", CastFresh<PmnListReadRsp>, "^PNN",
         {"0054485", "0054", "\"\""}, {E, E, E}},
        {"odd second BINARY stops the fill", CastFresh<PmnListReadRsp>, "^PNN",
         {"00544855", "005", "\"x\""}, {"00544855", E, E}},
        {"^SRVST: 2", CastFresh<SerivceChangedInd>, "^SRVST", {"2"}, {"2", E, E, E}},
        {"^SRVST with four fields stays inside the object", CastFresh<SerivceChangedInd>,
         "^SRVST", {"2", "1", "0", "3", "9"}, {"2", "1", "0", "3"}},
        {"bare command has nothing to fill", CastFresh<SystemInfoCmd>, "^SYSINFO",
         {"2", "4"}, {}},
    };
    for (const CastCase& c : cases) {
        SCOPED_TRACE(c.source);
        Command report;
        report.name = c.name;
        report.params = c.fields;
        EXPECT_EQ(c.cast(report), c.expected);
    }
}

TEST(CommandCast, ReportForAnotherNameLeavesFilledObjectAlone)
{
    SysModeChangedInd mode;
    Command report;
    report.name = "^MODE";
    report.params = {"5", "4"};
    ASSERT_TRUE(CommandCast(report, &mode));
    ASSERT_EQ(Dump(mode), (std::vector<std::string>{"5", "4"}));

    report.name = "^RSSI";
    report.params = {"17", "99"};
    EXPECT_TRUE(CommandCast(report, &mode));
    EXPECT_EQ(Dump(mode), (std::vector<std::string>{"5", "4"}));
}

// A by-value collection as the processor drives it: AddRsp per line, fill the
// returned object, next line. Each line is checked against what it should hold.
template <class List, class Rsp>
void DriveByValue(List& list, std::vector<Rsp>& lines, unsigned long index,
                  const std::vector<ParamList>& answer,
                  const std::vector<std::vector<std::string>>& expected)
{
    for (const ParamList& fields : answer) {
        IResponse* rsp = list.AddRsp();
        ASSERT_NE(rsp, nullptr);
        EXPECT_EQ(rsp, static_cast<IResponse*>(&lines.back()));
        EXPECT_EQ(rsp->GetIndex(), index);
        for (const std::string& shown : Dump(*rsp)) {
            EXPECT_EQ(shown, kEmpty) << "AddRsp handed out a used object";
        }
        _CmdCastHelper(fields, rsp->GetFirstElemAddr(),
                       static_cast<unsigned int>(rsp->GetElemCount()));
    }
    EXPECT_EQ(list.GetRspCount(), 0u);
    EXPECT_EQ(list.GetFirstRsp(), nullptr);
    EXPECT_EQ(list.GetNextRsp(), nullptr);
    ASSERT_EQ(lines.size(), expected.size());
    for (std::size_t k = 0; k < lines.size(); ++k) {
        EXPECT_EQ(Dump(lines[k]), expected[k]) << "line " << k;
    }
}

TEST(CommandCollections, ByValueListsHandOutFreshLines)
{
    const std::string E = kEmpty;
    {
        SCOPED_TRACE("+CPOL lines cpol-1, cpol-2, cpol-3");
        VctReadCpolRsp list;
        DriveByValue(list, list.vctPLMNPreferList, INDEX_CPOL,
                     {{"1", "2", "\"24412\"", "0", "0", "0", "0"}, {"1"}, {"1", "1", "\"Test\""}},
                     {{"1", "2", "\"24412\"", "0", "0", "0"},
                      {"1", E, E, E, E, E},
                      {"1", "1", "\"Test\"", E, E, E}});
    }
    {
        SCOPED_TRACE("^OPL lines");
        VctOplLstRsp list;
        DriveByValue(list, list.vctOplLst, INDEX_OPL,
                     {{"\"46000\"", "\"0-65534\"", "1"}, {"\"310260\"", "\"0-65534\""}},
                     {{"\"46000\"", "\"0-65534\"", "1"}, {"\"310260\"", "\"0-65534\"", E}});
    }
    {
        SCOPED_TRACE("^PNN lines");
        VctPmnListRsp list;
        DriveByValue(list, list.vctPmnList, INDEX_PNN,
                     {{"8054004D004F", "8054", "\"\""}, {"ABC", "8054", ""}},
                     {{"8054004D004F", "8054", "\"\""}, {E, E, E}});
    }
}

TEST(CommandCollections, HcsqListLeavesItsLinesToTheReader)
{
    std::vector<ReadHcsqRsp*> kept;
    {
        ReadHcsqRspList list;
        IResponse* lte = list.AddRsp();
        IResponse* gsm = list.AddRsp();
        ASSERT_NE(lte, nullptr);
        ASSERT_NE(gsm, nullptr);
        EXPECT_NE(lte, gsm);
        ASSERT_EQ(list.m_vecReadHcsqRspList.size(), 2u);
        EXPECT_EQ(static_cast<IResponse*>(list.m_vecReadHcsqRspList[0]), lte);
        EXPECT_EQ(static_cast<IResponse*>(list.m_vecReadHcsqRspList[1]), gsm);
        EXPECT_EQ(lte->GetIndex(), static_cast<unsigned long>(INDEX_HCSQ));
        EXPECT_EQ(list.GetRspCount(), 0u);
        EXPECT_EQ(list.GetFirstRsp(), nullptr);
        EXPECT_EQ(list.GetNextRsp(), nullptr);
        // hcsq-1 and hcsq-2.
        _CmdCastHelper({"\"LTE\"", "30", "19", "66", "0"}, lte->GetFirstElemAddr(),
                       static_cast<unsigned int>(lte->GetElemCount()));
        _CmdCastHelper({"\"GSM\"", "36", "255"}, gsm->GetFirstElemAddr(),
                       static_cast<unsigned int>(gsm->GetElemCount()));
        kept = list.m_vecReadHcsqRspList;
    }
    // The list is gone; its lines must still be alive (ASan reports a use after
    // free here if the list deleted them) and are freed by their reader.
    const std::string E = kEmpty;
    ASSERT_EQ(kept.size(), 2u);
    EXPECT_EQ(Dump(*kept[0]), (std::vector<std::string>{"\"LTE\"", "30", "19", "66", "0", E}));
    EXPECT_EQ(Dump(*kept[1]), (std::vector<std::string>{"\"GSM\"", "36", "255", E, E, E}));
    for (ReadHcsqRsp* line : kept) {
        delete line;
    }
}

}  // namespace
