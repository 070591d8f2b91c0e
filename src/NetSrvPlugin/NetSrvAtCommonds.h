// The AT command table of the network service and the typed command, response
// and indication objects built on it. The table is immutable after load and may
// be read from any thread; each command object or collection belongs to one
// thread for the one exchange it is made for.
//
// Every class below derives from ICommand alone and holds nothing but a row of
// parameters declared one after another. All parameter types have the size of
// PARAMETER, so the row is an array: the AT processor and CommandCast reach
// parameter k at GetFirstElemAddr() + k and fill it from the k-th field of the
// modem's line. Member order is therefore field order; never insert anything
// between or after the parameters.
#ifndef NETSRVPLUGIN_NETSRVATCOMMONDS_H
#define NETSRVPLUGIN_NETSRVATCOMMONDS_H

#include <cstddef>
#include <vector>

#include "AtCodec/CmdDef.h"
#include "AtCodec/CmdInterface.h"
#include "CmdBase.h"

// One row per EnumCmdIndex value; row i has index i. Built by this library's
// static initialiser: do not read it from another file's static initialiser.
extern const CmdSetItem _AtCmdSetTable[INDEX_COUNT];

// Name and type of table row uIndex. The index is trusted (0 to INDEX_COUNT - 1).
const char* _GetCmdName(unsigned long uIndex);
unsigned long _GetCmdType(unsigned long uIndex);
// A report of table row uIndex carrying these field texts, as the processor
// would deliver it. The index is trusted.
Command MakeReport(unsigned long uIndex, const ParamList& params);

// Fills rsp from an unsolicited report when the report's name is rsp's name;
// otherwise leaves rsp alone. Returns true in every case, so a caller that
// needs to know whether rsp was filled compares the name itself.
bool CommandCast(Command rawCmd, ICommand* rsp);

// Hands params[k] to FromString of parameter k (begin + k) for as long as both
// runs last, stopping at the first field a parameter rejects. Surplus fields are
// ignored, parameters behind the last field or the rejected one keep their
// value. Returns true in every case.
bool _CmdCastHelper(const ParamList& params, PARAMETER* begin, unsigned int count);

// The row walk above is only sound while every parameter type is exactly a
// PARAMETER in size and alignment.
static_assert(sizeof(BINARY) == sizeof(PARAMETER) && alignof(BINARY) == alignof(PARAMETER),
              "BINARY must add no data");
static_assert(sizeof(STRING) == sizeof(PARAMETER) && alignof(STRING) == alignof(PARAMETER),
              "STRING must add no data");
static_assert(sizeof(NUMERIC) == sizeof(PARAMETER) && alignof(NUMERIC) == alignof(PARAMETER),
              "NUMERIC must add no data");
static_assert(sizeof(HEX) == sizeof(PARAMETER) && alignof(HEX) == alignof(PARAMETER),
              "HEX must add no data");
static_assert(sizeof(REAL) == sizeof(PARAMETER) && alignof(REAL) == alignof(PARAMETER),
              "REAL must add no data");
static_assert(sizeof(RANGE) == sizeof(PARAMETER) && alignof(RANGE) == alignof(PARAMETER),
              "RANGE must add no data");
static_assert(sizeof(OPERATOR<OPERATOR_READ_CMD>) == sizeof(PARAMETER) &&
                  sizeof(OPERATOR<OPERATOR_TEST_CMD>) == sizeof(PARAMETER),
              "OPERATOR<N> must add no data");

// Offset of the first parameter member: right behind ICommand's vtable pointer,
// rounded up to a parameter's alignment.
constexpr std::size_t NETSRV_AT_FIRST_PARAM_OFFSET =
    (sizeof(ICommand) + alignof(PARAMETER) - 1) / alignof(PARAMETER) * alignof(PARAMETER);

// The five ICommand operations of a class whose COUNT parameters start at member
// FIRST. The size check fails to compile when the class holds anything but
// COUNT parameters.
#define NETSRV_AT_PARAMS(INDEX, COUNT, FIRST)                                            \
public:                                                                                  \
    unsigned long GetElemCount() override                                                \
    {                                                                                    \
        static_assert(sizeof(*this) ==                                                   \
                          NETSRV_AT_FIRST_PARAM_OFFSET + (COUNT) * sizeof(PARAMETER),    \
                      "a command object holds its parameters and nothing else");         \
        return (COUNT);                                                                  \
    }                                                                                    \
    ParamPtr GetFirstElemAddr() override { return &(FIRST); }                            \
    unsigned long GetIndex() override { return (INDEX); }                                \
    const char* GetName() override { return _GetCmdName(INDEX); }                        \
    unsigned long GetType() override { return _GetCmdType(INDEX); }

// The same for a command sent bare ("AT^SYSINFO"): no parameters, null address.
#define NETSRV_AT_NO_PARAMS(INDEX)                                                       \
public:                                                                                  \
    unsigned long GetElemCount() override                                                \
    {                                                                                    \
        static_assert(sizeof(*this) == sizeof(ICommand),                                 \
                      "a bare command holds no data");                                   \
        return 0;                                                                        \
    }                                                                                    \
    ParamPtr GetFirstElemAddr() override { return nullptr; }                             \
    unsigned long GetIndex() override { return (INDEX); }                                \
    const char* GetName() override { return _GetCmdName(INDEX); }                        \
    unsigned long GetType() override { return _GetCmdType(INDEX); }

// +CRSM -----------------------------------------------------------------
// "+CRSM: 144, 0, 0054485552415941FFFFFFFFFFFFFFFFFF": restricted SIM access;
// the SPN reading takes the data as BINARY, the other files as text.

// The restricted-access commands, the SIM files the service reads with them
// and the lengths it reads.
enum CRSM_COMMAND {
    CRSM_COMMAND_BINARY_READ = 176,
    CRSM_COMMAND_READ_RECORD = 178,
    CRSM_COMMAND_READ_RESPOND = 195,
    CRSM_COMMAND_BINARY_UPDATE = 214,
    CRSM_COMMAND_RECORD_UPDATE = 220,
    CRSM_COMMAND_GET_STATUS = 242
};

enum CRSM_FILEID {
    CRSM_FILEID_ICCID = 12258,
    CRSM_FILEID_SPN = 28486,
    CRSM_FILEID_MSISDN = 28480,
    CRSM_FILEID_EFAD = 28589,   // administrative data: the MNC's length
    CRSM_FILEID_SIM_BRAND = 28670
};

enum CRSM_P3 {
    CRSM_P3_MAX = 255,
    CRSM_P3_EFAD = 5,
    CRSM_P3_SPN = 17,
    CRSM_P3_SIM_BRAND = 66
};

// A network name element of the SIM's PNN file: its tag, and the bits of its
// coding octet.
enum EnumPnnFileTag {
    PNN_FILE_TAG_FULL_NAME = 0x43,
    PNN_FILE_TAG_SHORT_NAME = 0x45
};

enum EnumPnnCoding {
    PNN_CODING_GSM7 = 0,
    PNN_CODING_UCS2 = 0x10
};

enum EnumPnnCITag {
    PNN_CI_TAG_NOT_ADD = 0,
    PNN_CI_TAG_ADD = 8
};

// The storage that "^SPN" is asked about, and the codings of its CDMA answer.
enum EnumQuerySpnSimType : int {
    SPN_TYPE_GSM = 0,
    SPN_TYPE_USIM = 1,
    SPN_TYPE_UIM = 2,
    SPN_TYPE_ROM = 3
};

enum EnumCdmaCodingType {
    CDMA_CODING_OCTET = 0,
    CDMA_CODING_7BIT_ASSCII = 2,
    CDMA_CODING_UNICODE = 4,
    CDMA_CODING_GSM_7BIT_DEFAULT_ALPHABET = 9
};

class CrsmCmd : public ICommand {
public:
    NUMERIC cmdtype;
    NUMERIC Fileid;
    NUMERIC P1;
    NUMERIC P2;
    NUMERIC P3;
    NETSRV_AT_PARAMS(INDEX_CRSM, 5, cmdtype)
};

class CrsmCmdRsp : public ICommand {
public:
    STRING Sw1;
    STRING Sw2;
    STRING Response;
    NETSRV_AT_PARAMS(INDEX_CRSM, 3, Sw1)
};

class CrsmSPNRsp : public ICommand {
public:
    NUMERIC sw1;
    NUMERIC sw2;
    BINARY data;
    NETSRV_AT_PARAMS(INDEX_CRSM, 3, sw1)
};

// ^SYSCFG ---------------------------------------------------------------
// "^SYSCFG: 2,0,400000,0,3": mode preference, acquisition order, band mask
// (hexadecimal), roaming, domain.

class ReadNetworkCfgCmd : public ICommand {
public:
    OPERATOR<1> Reserved;
    NETSRV_AT_PARAMS(INDEX_SYS_CFG, 1, Reserved)
};

class SetNetworkCfgCmd : public ICommand {
public:
    NUMERIC SysModePref;
    NUMERIC AcqOrder;
    HEX Band;
    NUMERIC Roam;
    NUMERIC Domain;
    NETSRV_AT_PARAMS(INDEX_SYS_CFG, 5, SysModePref)
};

class TestNetworkCfgCmd : public ICommand {
public:
    OPERATOR<32> Reserved;
    NETSRV_AT_PARAMS(INDEX_SYS_CFG, 1, Reserved)
};

class ReadNetworkCfgRsp : public ICommand {
public:
    NUMERIC SysModePref;
    NUMERIC AcqOrder;
    HEX Band;
    NUMERIC Roam;
    NUMERIC Domain;
    NETSRV_AT_PARAMS(INDEX_SYS_CFG, 5, SysModePref)
};

class TestNetworkCfgRsp : public ICommand {
public:
    STRING Modes;
    STRING AcqOrders;
    STRING Bands;
    STRING Roams;
    STRING Domains;
    NETSRV_AT_PARAMS(INDEX_SYS_CFG, 5, Modes)
};

// +COPS -----------------------------------------------------------------
// "+COPS: 1,2,\"46000\"" answers the read form; each group of the search
// "+COPS: (2,\"T-Mobile\",\"TMO\",\"31026\",0),..." arrives as a report.

class NetworkInfoQueryCmd : public ICommand {
public:
    NUMERIC NetMode;
    NUMERIC Format;
    STRING ProviderName;
    NUMERIC rat;
    NETSRV_AT_PARAMS(INDEX_NET_SEARCH, 4, NetMode)
};

class NetworkReadCmd : public ICommand {
public:
    OPERATOR<1> Reserved;
    NETSRV_AT_PARAMS(INDEX_NET_SEARCH, 1, Reserved)
};

class NetworkTestCmd : public ICommand {
public:
    OPERATOR<32> Reserved;
    NETSRV_AT_PARAMS(INDEX_NET_SEARCH, 1, Reserved)
};

class NetworkInfoQueryRsp : public ICommand {
public:
    NUMERIC NetMode;
    NUMERIC Format;
    STRING ProviderName;
    NUMERIC rat;
    NETSRV_AT_PARAMS(INDEX_NET_SEARCH, 4, NetMode)
};

class NetworkTestCmdRsp : public ICommand {
public:
    NUMERIC Stat;
    STRING FullName;
    STRING ShortName;
    STRING PlmnId;
    NUMERIC AcT;
    NETSRV_AT_PARAMS(INDEX_NET_SEARCH, 5, Stat)
};

// ^REGISTER -------------------------------------------------------------
// "AT^REGISTER=<n>": switches network registration on or off.

class NetRegistControlCmd : public ICommand {
public:
    NUMERIC ControlVal;
    NETSRV_AT_PARAMS(INDEX_REGISTER_NET, 1, ControlVal)
};

// ^SYSINFO --------------------------------------------------------------
// "^SYSINFO:2,4,5,3,1,0,6": status, domain, roaming, mode, SIM, lock, sub-mode;
// older modems stop after the SIM state.

class SystemInfoCmd : public ICommand {
public:
    NETSRV_AT_NO_PARAMS(INDEX_SYS_INFO)
};

class SystemInfoRsp : public ICommand {
public:
    NUMERIC SrvStatus;
    NUMERIC SrvDomain;
    NUMERIC RoamStatus;
    STRING SysMode;
    NUMERIC SimState;
    NUMERIC SimLockState;
    STRING SubSysmode;
    NETSRV_AT_PARAMS(INDEX_SYS_INFO, 7, SrvStatus)
};

// +CSQ ------------------------------------------------------------------
// "+CSQ: 17,99": RSSI step and bit error rate.

class ReadRssiCSQCmd : public ICommand {
public:
    NETSRV_AT_NO_PARAMS(INDEX_CSQ)
};

class ReadRssiCSQRsp : public ICommand {
public:
    NUMERIC RssiValue;
    NUMERIC Ber;
    NETSRV_AT_PARAMS(INDEX_CSQ, 2, RssiValue)
};

// ^CSQLVL ---------------------------------------------------------------
// "^CSQLVL: <rssi>,<ber>": CDMA 1x signal.

class ReadCDMARssiCmd : public ICommand {
public:
    NETSRV_AT_NO_PARAMS(INDEX_RSSI_CDMA)
};

class ReadCDMARssiRsp : public ICommand {
public:
    NUMERIC RssiValue;
    NUMERIC Ber;
    NETSRV_AT_PARAMS(INDEX_RSSI_CDMA, 2, RssiValue)
};

// ^CSNR -----------------------------------------------------------------
// "^CSNR: <rscp>,<ecio>": WCDMA signal quality.

class ReadSignalExCmd : public ICommand {
public:
    OPERATOR<1> readflag;
    NETSRV_AT_PARAMS(INDEX_SIGNAL_EX, 1, readflag)
};

class ReadSignalExRsp : public ICommand {
public:
    NUMERIC rscp;
    NUMERIC ec_io;
    NETSRV_AT_PARAMS(INDEX_SIGNAL_EX, 2, rscp)
};

// ^HDRCSQLVL ------------------------------------------------------------
// "^HDRCSQLVL: <rssi>": EV-DO signal.

class ReadHdrRssiCmd : public ICommand {
public:
    NETSRV_AT_NO_PARAMS(INDEX_RSSI_HDR)
};

class ReadHdrRssiRsp : public ICommand {
public:
    NUMERIC RssiValue;
    NETSRV_AT_PARAMS(INDEX_RSSI_HDR, 1, RssiValue)
};

// ^ANQUERY --------------------------------------------------------------
// "^ANQUERY: <rscp>,<ecio>,<rssi>,<level>".

class GetAntennaLevelCmdEx : public ICommand {
public:
    OPERATOR<1> Reserved;
    NETSRV_AT_PARAMS(INDEX_ANTENNA_QUERY, 1, Reserved)
};

class GetAntennaLevelCmdRspEx : public ICommand {
public:
    NUMERIC rscp;
    NUMERIC ecio;
    NUMERIC rssi;
    NUMERIC level;
    NETSRV_AT_PARAMS(INDEX_ANTENNA_QUERY, 4, rscp)
};

// ^PREFMODE -------------------------------------------------------------
// "^PREFMODE:8": CDMA preferred mode.

class ReadCDMAPrefModCmd : public ICommand {
public:
    OPERATOR<1> Reserved;
    NETSRV_AT_PARAMS(INDEX_SYS_CDMA_PREFMODE, 1, Reserved)
};

class SetCDMAPrefModCmd : public ICommand {
public:
    NUMERIC PrefMod;
    NETSRV_AT_PARAMS(INDEX_SYS_CDMA_PREFMODE, 1, PrefMod)
};

class ReadCDMAPrefModRsp : public ICommand {
public:
    NUMERIC PrefMod;
    NETSRV_AT_PARAMS(INDEX_SYS_CDMA_PREFMODE, 1, PrefMod)
};

// ^SPN ------------------------------------------------------------------
// "^SPN: <disp>,<coding>,<name>,<cdma coding>": service provider name.

class ReadSpnCmd : public ICommand {
public:
    NUMERIC SpnType;
    NETSRV_AT_PARAMS(INDEX_SPN, 1, SpnType)
};

class ReadSpnRsp : public ICommand {
public:
    NUMERIC DispRplmn;
    NUMERIC CodeType;
    STRING SpnName;
    NUMERIC CdmaCodeType;
    NETSRV_AT_PARAMS(INDEX_SPN, 4, DispRplmn)
};

// ^HSDPA ----------------------------------------------------------------
// "^HSDPA: <state>".

class HSDPAReadCmd : public ICommand {
public:
    OPERATOR<1> Reserved;
    NETSRV_AT_PARAMS(INDEX_HSDPA, 1, Reserved)
};

class HSDPASetCmd : public ICommand {
public:
    NUMERIC state;
    NETSRV_AT_PARAMS(INDEX_HSDPA, 1, state)
};

class HSDPAReadRsp : public ICommand {
public:
    NUMERIC state;
    NETSRV_AT_PARAMS(INDEX_HSDPA, 1, state)
};

// +CGATT ----------------------------------------------------------------
// "+CGATT: <state>": packet-domain attach.

class GprsStateGetCmd : public ICommand {
public:
    OPERATOR<1> Reserved;
    NETSRV_AT_PARAMS(INDEX_GPRS_CGATT, 1, Reserved)
};

class GprsStateSetCmd : public ICommand {
public:
    NUMERIC state;
    NETSRV_AT_PARAMS(INDEX_GPRS_CGATT, 1, state)
};

class GprsStateGetCmdRsp : public ICommand {
public:
    NUMERIC state;
    NETSRV_AT_PARAMS(INDEX_GPRS_CGATT, 1, state)
};

// ^GLASTERR -------------------------------------------------------------
// "^GLASTERR: <type>,<code>": the last network error of a kind.

class ReadLastErrCmd : public ICommand {
public:
    NUMERIC type;
    NETSRV_AT_PARAMS(INDEX_SRV_GLASTERR, 1, type)
};

class ReadLastErrRsp : public ICommand {
public:
    NUMERIC type;
    NUMERIC code;
    NETSRV_AT_PARAMS(INDEX_SRV_GLASTERR, 2, type)
};

// +CIMI -----------------------------------------------------------------
// "998899889988997": the answer is a bare line without a name, hence the
// raw-data type of this row.

class ReadImsiCmd : public ICommand {
public:
    NETSRV_AT_NO_PARAMS(INDEX_IMSI)
};

class ReadImsiRsp : public ICommand {
public:
    STRING ImsiValue;
    NETSRV_AT_PARAMS(INDEX_IMSI, 1, ImsiValue)
};

// ^SRVST ----------------------------------------------------------------
// "^SRVST: 2": service status report.

// The report carries one field, but the processor and CommandCast are told
// of four parameters and walk that many from SrvStatus. Spare1..Spare3 give
// that walk real parameters to land on; nothing reads them.
class SerivceChangedInd : public ICommand {
public:
    NUMERIC SrvStatus;
    NUMERIC Spare1;
    NUMERIC Spare2;
    NUMERIC Spare3;
    NETSRV_AT_PARAMS(INDEX_SERV_IND, 4, SrvStatus)
};

// ^HSUPA ----------------------------------------------------------------
// "^HSUPA: <state>".

class HSUPAReadCmd : public ICommand {
public:
    OPERATOR<1> Reserved;
    NETSRV_AT_PARAMS(INDEX_HSUPA, 1, Reserved)
};

class HSUPASetCmd : public ICommand {
public:
    NUMERIC state;
    NETSRV_AT_PARAMS(INDEX_HSUPA, 1, state)
};

class HSUPAReadRsp : public ICommand {
public:
    NUMERIC state;
    NETSRV_AT_PARAMS(INDEX_HSUPA, 1, state)
};

// ^CPNN -----------------------------------------------------------------
// "^CPNN: <full>,<coding>,<ci>,<short>,<coding>,<ci>": name of the current
// network from the PNN file.

class DispPnnCmd : public ICommand {
public:
    NUMERIC filetype;
    NETSRV_AT_PARAMS(INDEX_DISP_PNN, 1, filetype)
};

class DispPnnCmdRsp : public ICommand {
public:
    STRING fullname;
    NUMERIC fcoding;
    NUMERIC full_name_ci;
    STRING shortname;
    NUMERIC scoding;
    NUMERIC short_name_ci;
    NETSRV_AT_PARAMS(INDEX_DISP_PNN, 6, fullname)
};

// ^OPL ------------------------------------------------------------------
// "^OPL: <plmn>,<lac range>,<pnn record>": one line per OPL record.

class OplListReadCmd : public ICommand {
public:
    NUMERIC opl_type;
    NETSRV_AT_PARAMS(INDEX_OPL, 1, opl_type)
};

class OplListReadRsp : public ICommand {
public:
    STRING plmn_id;
    STRING lac_range;
    NUMERIC index_pnn;
    NETSRV_AT_PARAMS(INDEX_OPL, 3, plmn_id)
};

// ^PNN ------------------------------------------------------------------
// "^PNN: <full name>,<short name>,<info>": one line per PNN record; the names
// come as hexadecimal octets.

class PmnListReadCmd : public ICommand {
public:
    NUMERIC pnn_type;
    NETSRV_AT_PARAMS(INDEX_PNN, 1, pnn_type)
};

class PmnListReadRsp : public ICommand {
public:
    BINARY full_name_seg;
    BINARY short_name_seg;
    STRING additional_info;
    NETSRV_AT_PARAMS(INDEX_PNN, 3, full_name_seg)
};

// ^EVDOREV --------------------------------------------------------------
// "^EVDOREV: <rev>".

class EvdoGetRevisionCmd : public ICommand {
public:
    OPERATOR<1> Reserved;
    NETSRV_AT_PARAMS(INDEX_EVDOREV, 1, Reserved)
};

class EvdoSetRevCmd : public ICommand {
public:
    NUMERIC EvdoRev;
    NETSRV_AT_PARAMS(INDEX_EVDOREV, 1, EvdoRev)
};

class EvdoGetRevisionRsp : public ICommand {
public:
    NUMERIC EvdoRev;
    NETSRV_AT_PARAMS(INDEX_EVDOREV, 1, EvdoRev)
};

// ^SNAM -----------------------------------------------------------------
// "^SNAM: <nam>".

class NAMGetModeCmd : public ICommand {
public:
    OPERATOR<1> Reserved;
    NETSRV_AT_PARAMS(INDEX_NAM_SWITCH, 1, Reserved)
};

class NAMSetCmd : public ICommand {
public:
    NUMERIC mode;
    NETSRV_AT_PARAMS(INDEX_NAM_SWITCH, 1, mode)
};

class NAMGetModeRsp : public ICommand {
public:
    NUMERIC NamRev;
    NETSRV_AT_PARAMS(INDEX_NAM_SWITCH, 1, NamRev)
};

// ^REG ------------------------------------------------------------------
// "AT^REG=<min>": registers a mobile identification number.

class RegMinCmd : public ICommand {
public:
    STRING min;
    NETSRV_AT_PARAMS(INDEX_REG_MIN, 1, min)
};

// ^PRLVER ---------------------------------------------------------------
// "^PRLVER: <version>".

class PrlVerReadCmd : public ICommand {
public:
    OPERATOR<1> Reserved;
    NETSRV_AT_PARAMS(INDEX_PRL_VER, 1, Reserved)
};

class PrlVerReadRsp : public ICommand {
public:
    STRING ver;
    NETSRV_AT_PARAMS(INDEX_PRL_VER, 1, ver)
};

// ^KTFSIMTYPE -----------------------------------------------------------
// "^KTFSIMTYPE: <type>".

class KTFSimTypeCmd : public ICommand {
public:
    OPERATOR<1> readflag;
    NETSRV_AT_PARAMS(INDEX_KTF_SIM_TYPE, 1, readflag)
};

class KTFSimTypeRsp : public ICommand {
public:
    NUMERIC type;
    NETSRV_AT_PARAMS(INDEX_KTF_SIM_TYPE, 1, type)
};

// +CREG -----------------------------------------------------------------
// "+CREG: 2,1,\"CE00\",\"01CEAD8F\"" answers the read form (mode first);
// the report "+CREG: 1,\"CE00\",\"00005449\"" starts with the status.

class QueryCSRegStateCmd : public ICommand {
public:
    OPERATOR<1> Reserved;
    NETSRV_AT_PARAMS(INDEX_NET_REGISTER, 1, Reserved)
};

class RegisterReportCmd : public ICommand {
public:
    NUMERIC ReportMode;
    NETSRV_AT_PARAMS(INDEX_NET_REGISTER, 1, ReportMode)
};

class QueryCSRegStateRsp : public ICommand {
public:
    NUMERIC ReportMode;
    NUMERIC ReportState;
    STRING LacCode;
    STRING CellID;
    NETSRV_AT_PARAMS(INDEX_NET_REGISTER, 4, ReportMode)
};

class RegisterStatusInd : public ICommand {
public:
    NUMERIC Status;
    NUMERIC Location;
    NUMERIC ZoneInfo;
    NETSRV_AT_PARAMS(INDEX_NET_REGISTER, 3, Status)
};

// +CGREG ----------------------------------------------------------------
// "+CGREG: 2, 1, \"0426\", \"F00F\"". SetGprsReportCmd sets the report mode.

class QueryPSRegStateCmd : public ICommand {
public:
    OPERATOR<1> Reserved;
    NETSRV_AT_PARAMS(INDEX_CGREG, 1, Reserved)
};

class QueryPSRegStateRsp : public ICommand {
public:
    NUMERIC ReportMode;
    NUMERIC ReportState;
    STRING LacCode;
    STRING CellID;
    NETSRV_AT_PARAMS(INDEX_CGREG, 4, ReportMode)
};

class SetGprsReportCmd : public ICommand {
public:
    NUMERIC ReportMode;
    NETSRV_AT_PARAMS(INDEX_CGREG, 1, ReportMode)
};

// +CEREG ----------------------------------------------------------------
// "+CEREG: 2,10,\"8d83\",\"671f98a\",7". SetLTEPSReportCmd sets the report mode.

class QueryLTEPSRegStateCmd : public ICommand {
public:
    OPERATOR<1> Reserved;
    NETSRV_AT_PARAMS(INDEX_CEREG, 1, Reserved)
};

class QueryLTEPSRegStateRsp : public ICommand {
public:
    NUMERIC ReportMode;
    NUMERIC ReportState;
    STRING LacCode;
    STRING CellID;
    NUMERIC ActType;
    NUMERIC CauseType;
    NUMERIC RejectCause;
    NETSRV_AT_PARAMS(INDEX_CEREG, 7, ReportMode)
};

class SetLTEPSReportCmd : public ICommand {
public:
    NUMERIC ReportMode;
    NETSRV_AT_PARAMS(INDEX_CEREG, 1, ReportMode)
};

// ^RSSI -----------------------------------------------------------------
// "^RSSI: 17": signal report.

class RssiChangedInd : public ICommand {
public:
    NUMERIC rssi;
    NETSRV_AT_PARAMS(INDEX_RSSI_IND, 1, rssi)
};

// ^RSSILVL --------------------------------------------------------------
// "^RSSILVL: <level>".

class RssiChangedIndEC : public ICommand {
public:
    NUMERIC rssi;
    NETSRV_AT_PARAMS(INDEX_RSSI_IND_EC, 1, rssi)
};

// ^HRSSILVL -------------------------------------------------------------
// "^HRSSILVL: <level>".

class HdrRssiChangedInd : public ICommand {
public:
    NUMERIC rssi;
    NETSRV_AT_PARAMS(INDEX_RSSI_HDR_IND, 1, rssi)
};

// ^ANLEVEL --------------------------------------------------------------
// "^ANLEVEL: <rscp>,<ecio>,<rssi>,<level>".

class AntennaChangedReport : public ICommand {
public:
    NUMERIC rscp;
    NUMERIC ecio;
    NUMERIC rssi;
    NUMERIC level;
    NETSRV_AT_PARAMS(INDEX_ANTENNA_REPORT, 4, rscp)
};

// ^MODE -----------------------------------------------------------------
// "^MODE: <mode>,<sub-mode>": system mode report.

class SysModeChangedInd : public ICommand {
public:
    STRING SysMode;
    STRING SysSubMode;
    NETSRV_AT_PARAMS(INDEX_SYS_MODE, 2, SysMode)
};

// ^SIMREFRESH -----------------------------------------------------------
// "^SIMREFRESH: <file>": the SIM changed a file.

class SimRefreshCmd : public ICommand {
public:
    NUMERIC filetype;
    NETSRV_AT_PARAMS(INDEX_SIM_REFRESH, 1, filetype)
};

// ^SYSCONFIG ------------------------------------------------------------
// "^SYSCONFIG: <mode>,<order>,<roam>,<domain>": TD-SCDMA modems.

class ReadNetworkConfigCmd : public ICommand {
public:
    OPERATOR<1> Reserved;
    NETSRV_AT_PARAMS(INDEX_SYS_SYSCONFIG, 1, Reserved)
};

class ReadNetworkConfigRsp : public ICommand {
public:
    NUMERIC SysModePref;
    NUMERIC AcqOrder;
    NUMERIC Roam;
    NUMERIC Domain;
    NETSRV_AT_PARAMS(INDEX_SYS_SYSCONFIG, 4, SysModePref)
};

// +CPLS -----------------------------------------------------------------
// "+CPLS: <list>": which preferred-operator list +CPOL works on.

class ReadCplsCmd : public ICommand {
public:
    OPERATOR<1> Reserved;
    NETSRV_AT_PARAMS(INDEX_CPLS, 1, Reserved)
};

class SetCplsCmd : public ICommand {
public:
    NUMERIC list;
    NETSRV_AT_PARAMS(INDEX_CPLS, 1, list)
};

class ReadCplsCmdRsp : public ICommand {
public:
    NUMERIC list;
    NETSRV_AT_PARAMS(INDEX_CPLS, 1, list)
};

// +CPOL -----------------------------------------------------------------
// "+CPOL: 1,2,\"24412\",0,0,0,0": one line per preferred operator. All
// fields are text so that a short line ("+CPOL: 1") leaves the rest empty.

class ReadCpolCmd : public ICommand {
public:
    OPERATOR<1> Reserved;
    NETSRV_AT_PARAMS(INDEX_CPOL, 1, Reserved)
};

class SetCpolCmd : public ICommand {
public:
    STRING index;
    STRING format;
    STRING oper;
    STRING GSM_AcT;
    STRING GSM_Compact_AcT;
    STRING UTRAN_AcT;
    NETSRV_AT_PARAMS(INDEX_CPOL, 6, index)
};

class ReadCpolRsp : public ICommand {
public:
    STRING index;
    STRING format;
    STRING oper;
    STRING GSM_AcT;
    STRING GSM_Compact_AcT;
    STRING UTRAN_AcT;
    NETSRV_AT_PARAMS(INDEX_CPOL, 6, index)
};

// ^SYSINFOEX ------------------------------------------------------------
// "^SYSINFOEX: 2,4,5,1,0,3,\"WCDMA\",41,\"HSPA+\"".

class SystemInfoExCmd : public ICommand {
public:
    NETSRV_AT_NO_PARAMS(INDEX_SYS_INFOEX)
};

class SystemInfoExRsp : public ICommand {
public:
    NUMERIC SrvStatus;
    NUMERIC SrvDomain;
    NUMERIC RoamStatus;
    NUMERIC SimState;
    NUMERIC SimLockState;
    NUMERIC SysMode;
    STRING SysModeName;
    NUMERIC SubMode;
    STRING SubModeName;
    NETSRV_AT_PARAMS(INDEX_SYS_INFOEX, 9, SrvStatus)
};

// ^SYSCFGEX -------------------------------------------------------------
// "^SYSCFGEX: \"00\",3FFFFFFF,1,2,7FFFFFFFFFFFFFFF"; the test form answers with
// five parenthesised groups, kept as text for the band-list parser.

class ReadNetworkCfgExCmd : public ICommand {
public:
    OPERATOR<1> Reserved;
    NETSRV_AT_PARAMS(INDEX_SYS_CFGEX, 1, Reserved)
};

class SetNetworkCfgExCmd : public ICommand {
public:
    STRING AcqOrder;
    HEX Band;
    NUMERIC Roam;
    NUMERIC Domain;
    HEX LteBand;
    STRING Reserved1;
    STRING Reserved2;
    NETSRV_AT_PARAMS(INDEX_SYS_CFGEX, 7, AcqOrder)
};

class TestNetworkCfgExCmd : public ICommand {
public:
    OPERATOR<32> Reserved;
    NETSRV_AT_PARAMS(INDEX_SYS_CFGEX, 1, Reserved)
};

class ReadNetworkCfgExRsp : public ICommand {
public:
    STRING AcqOrder;
    HEX Band;
    NUMERIC Roam;
    NUMERIC Domain;
    HEX LteBand;
    STRING Reserved1;
    STRING Reserved2;
    NETSRV_AT_PARAMS(INDEX_SYS_CFGEX, 7, AcqOrder)
};

class TestNetworkCfgExRsp : public ICommand {
public:
    STRING AcqOrders;
    STRING Bands;
    STRING Roams;
    STRING Domains;
    STRING LteBand;
    NETSRV_AT_PARAMS(INDEX_SYS_CFGEX, 5, AcqOrders)
};

// ^LTERSRP --------------------------------------------------------------
// "^LTERSRP: <rsrp>,<rsrq>".

class ReadLteRsrpCmd : public ICommand {
public:
    OPERATOR<1> readflag;
    NETSRV_AT_PARAMS(INDEX_LTERSRP, 1, readflag)
};

class ReadLteRsrpRsp : public ICommand {
public:
    NUMERIC rsrp;
    NUMERIC rsrq;
    NETSRV_AT_PARAMS(INDEX_LTERSRP, 2, rsrp)
};

// ^LTESCINFO ------------------------------------------------------------
// "^LTESCINFO: <pci>,<dlsinr>,<numant>,<dlbw>".

class ReadLteScInfoCmd : public ICommand {
public:
    OPERATOR<1> readflag;
    NETSRV_AT_PARAMS(INDEX_LTESCINFO, 1, readflag)
};

class ReadLteScInfoRsp : public ICommand {
public:
    NUMERIC pci;
    NUMERIC dlsinr;
    NUMERIC numant;
    NUMERIC dlbw;
    NETSRV_AT_PARAMS(INDEX_LTESCINFO, 4, pci)
};

// ^HCSQ -----------------------------------------------------------------
// "^HCSQ:\"LTE\",30,19,66,0": the number of values depends on the system;
// missing ones stay empty.

class ReadHcsqCmd : public ICommand {
public:
    OPERATOR<1> readflag;
    NETSRV_AT_PARAMS(INDEX_HCSQ, 1, readflag)
};

// final: ReadHcsqRspList hands these out from the heap and the reader deletes
// them as ReadHcsqRsp*, which is then known to be the complete object.
class ReadHcsqRsp final : public ICommand {
public:
    STRING sysmode;
    NUMERIC value1;
    NUMERIC value2;
    NUMERIC value3;
    NUMERIC value4;
    NUMERIC value5;
    NETSRV_AT_PARAMS(INDEX_HCSQ, 6, sysmode)
};

// ^CURRSID --------------------------------------------------------------
// "^CURRSID: <sid>,<nid>,<subnet>": CDMA network identity.

class ReadCurrNetworkIDCmd : public ICommand {
public:
    OPERATOR<1> Reserved;
    NETSRV_AT_PARAMS(INDEX_CURRSID, 1, Reserved)
};

class ReadCurrNetworkIDRsp : public ICommand {
public:
    NUMERIC CurrSID;
    NUMERIC CurrNID;
    STRING SubNetID;
    NETSRV_AT_PARAMS(INDEX_CURRSID, 3, CurrSID)
};

// Multi-line answers -------------------------------------------------------
// The processor calls AddRsp once per information line and fills the object it
// gets back before asking for the next; the service then reads the vector
// member directly. GetRspCount, GetFirstRsp and GetNextRsp are not used by
// anyone and stay stubs (0 and null). AddRsp returns null only when memory
// runs out, so that no exception leaves through the interface.

// "^OPL: <plmn>,<lac range>,<pnn record>" lines, stored by value. A returned
// address is valid until the next AddRsp.
class VctOplLstRsp : public IMultiResponse {
public:
    IResponse* AddRsp() override;
    unsigned long GetRspCount() override { return 0; }
    IResponse* GetFirstRsp() override { return nullptr; }
    IResponse* GetNextRsp() override { return nullptr; }
    virtual ~VctOplLstRsp() {}

    std::vector<OplListReadRsp> vctOplLst;
};

// "^PNN: ..." lines, stored by value. A returned address is valid until the
// next AddRsp.
class VctPmnListRsp : public IMultiResponse {
public:
    IResponse* AddRsp() override;
    unsigned long GetRspCount() override { return 0; }
    IResponse* GetFirstRsp() override { return nullptr; }
    IResponse* GetNextRsp() override { return nullptr; }
    virtual ~VctPmnListRsp() {}

    std::vector<PmnListReadRsp> vctPmnList;
};

// "+CPOL: ..." lines, stored by value. A returned address is valid until the
// next AddRsp.
class VctReadCpolRsp : public IMultiResponse {
public:
    IResponse* AddRsp() override;
    unsigned long GetRspCount() override { return 0; }
    IResponse* GetFirstRsp() override { return nullptr; }
    IResponse* GetNextRsp() override { return nullptr; }
    virtual ~VctReadCpolRsp() {}

    std::vector<ReadCpolRsp> vctPLMNPreferList;
};

// "^HCSQ: ..." lines, each one a ReadHcsqRsp allocated with new by AddRsp. The
// list does not own them: whoever reads the list deletes every element (as a
// ReadHcsqRsp*) when done with it. The destructor only empties the vector.
class ReadHcsqRspList : public IMultiResponse {
public:
    IResponse* AddRsp() override;
    unsigned long GetRspCount() override { return 0; }
    IResponse* GetFirstRsp() override { return nullptr; }
    IResponse* GetNextRsp() override { return nullptr; }
    virtual ~ReadHcsqRspList();

    std::vector<ReadHcsqRsp*> m_vecReadHcsqRspList;
};

#endif
