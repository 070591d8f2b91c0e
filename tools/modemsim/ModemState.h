// The simulated modem's state: everything that its answers are made of and
// that commands or the timeline may change. A profile supplies the initial
// value; the simulator owns one copy and changes it on its own thread only.
// Plain values, no invariants beyond the ranges the profile reader checks.
#ifndef MODEMSIM_MODEMSTATE_H
#define MODEMSIM_MODEMSTATE_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace modemsim {

// One ^GLASTERR answer: "^GLASTERR: <type>,<code>".
struct LastError {
    int32_t type = 0;
    int32_t code = 0;
};

// A "^SPN=<type>" answer for one storage: "^SPN: <display>,<coding>,<name>[,<cdma_coding>]".
// The name is kept as the modem sends it (plain text for coding 0, hexadecimal UCS2 for 1).
struct SpnEntry {
    int32_t display = 0;
    int32_t coding = 0;
    std::string name;
    std::optional<int32_t> cdmaCoding;
};

// The four storages that "^SPN=<type>" asks (0 GSM, 1 USIM, 2 UIM, 3 ROM).
struct SpnFiles {
    std::optional<SpnEntry> gsm;
    std::optional<SpnEntry> usim;
    std::optional<SpnEntry> uim;
    std::optional<SpnEntry> rom;
};

// One record of the PNN file (network names).
struct PnnRecord {
    std::string fullName;
    std::string shortName;
    std::string coding = "gsm7";  // "gsm7" or "ucs2": how the record stores the names
    bool addCountryInitials = false;
    std::string additionalInfo;
};

// One record of the OPL file (which PNN record names which network).
struct OplRecord {
    std::string plmn;
    std::string lacRange = "0000-FFFE";
    int32_t pnnIndex = 0;
};

struct SimState {
    int32_t state = 1;        // ^SYSINFO sim_state: 1 valid, 255 absent, ...
    int32_t lockState = 0;    // ^SYSINFOEX sim lock state
    std::string iccid;        // as printed on the card; the file holds it nibble-swapped
    std::string imsi;
    std::string homePlmn;     // the subscription's home network; empty: none named
    std::string efAd;         // EF_AD bytes as hexadecimal text; empty: built from homePlmn
    std::string msisdn;       // subscriber number; empty: the record is unused
    std::string efSpn;        // EF_SPN bytes as hexadecimal text; empty: no such file
    SpnFiles spn;
    std::vector<PnnRecord> pnn;
    std::vector<OplRecord> opl;
    int32_t refreshFileType = 0;   // the file type a ^SIMREFRESH report names
};

// System and sub-mode as both system-information commands report them.
struct ModeInfo {
    int32_t sysMode = 0;           // ^SYSINFOEX numbering (6 LTE, 3 WCDMA, ...)
    std::string sysModeName;
    int32_t subMode = 0;
    std::string subModeName;
    int32_t sysinfoSysMode = 0;    // ^SYSINFO numbering (17 LTE, 5 WCDMA, ...)
    std::optional<int32_t> sysinfoSubMode;  // absent: ^SYSINFO leaves the field out
};

// One registration domain as +CREG / +CGREG / +CEREG report it.
struct RegistrationInfo {
    int32_t reportMode = 0;   // <n> of the read answer and of AT+CREG=<n>
    int32_t stat = 0;
    std::string lac;          // LAC or TAC, hexadecimal text; empty: not reported
    std::string cellId;
    std::optional<int32_t> act;
    std::optional<int32_t> causeType;
    std::optional<int32_t> rejectCause;
};

// The access technologies of +COPS: 0 GSM, 2 UTRAN, 7 E-UTRAN, ... up to 13
// (E-UTRA-NR dual connectivity); a higher number names none.
constexpr int32_t kMaxAct = 13;

// One operator as a +COPS=? search lists it.
struct OperatorInfo {
    int32_t status = 1;       // 0 unknown, 1 available, 2 current, 3 forbidden
    std::string longName;
    std::string shortName;
    std::string plmn;
    std::optional<int32_t> act;
};

// The operator the modem is registered with (+COPS? answer): the entry of the
// operator list with this identity and access technology, which gives the names.
struct RegisteredOperator {
    std::string plmn;
    std::optional<int32_t> act;
};

// How an operator search (+COPS=?) ends when it does not list the operators.
enum class ScanFailure {
    Error,      // "ERROR", or "+CME ERROR: <n>" when a number is given
    NoAnswer    // the modem never ends the command
};

struct OperatorScan {
    std::optional<ScanFailure> failure;   // absent: the search lists the operators
    std::optional<int32_t> cmeError;
};

// One entry of a preferred-operator list (+CPOL).
struct PreferredOperator {
    int32_t index = 1;
    std::string plmn;
    int32_t gsm = 1;
    int32_t gsmCompact = 0;
    int32_t utran = 1;
};

// One preferred-operator file of the SIM: its entries and how many it holds.
struct PreferredList {
    int32_t capacity = 8;     // the smallest user-controlled file a SIM may have
    std::vector<PreferredOperator> entries;
};

// The three lists +CPLS chooses between: 0 user-controlled, 1 operator-controlled,
// 2 the home network's access technologies.
struct PreferredLists {
    PreferredList user;
    PreferredList operatorControlled;
    PreferredList hplmn;
};

struct NetworkState {
    int32_t serviceStatus = 0;
    int32_t serviceDomain = 0;
    int32_t roaming = 0;
    ModeInfo mode;
    bool psAttached = true;           // +CGATT
    int32_t hsdpa = 1;
    int32_t hsupa = 1;
    int32_t selectionMode = 0;        // +COPS <mode>
    int32_t nameFormat = 0;           // +COPS <format> of the read answer
    std::optional<RegisteredOperator> registered;
    std::vector<OperatorInfo> operators;
    OperatorScan scan;
    RegistrationInfo creg;
    RegistrationInfo cgreg;
    RegistrationInfo cereg;
    int32_t preferredList = 0;        // +CPLS
    PreferredLists preferred;
    int32_t preferredFormat = 2;      // +CPOL <format> of the read answer
};

struct CsqValues {
    int32_t rssi = 99;
    int32_t ber = 99;
};

// One ^HCSQ line: "^HCSQ: "LTE",30,19,66,0".
struct HcsqLine {
    std::string sysmode = "NOSERVICE";
    std::vector<int32_t> values;
};

struct CsnrValues {
    int32_t rscp = -125;
    int32_t ecio = -32;
};

struct AntennaValues {
    int32_t rscp = 0;
    int32_t ecio = 0;
    int32_t rssi = 0;
    int32_t level = 0;
};

struct LteRsrpValues {
    int32_t rsrp = -140;
    int32_t rsrq = -20;
};

struct LteScInfo {
    int32_t pci = 0;
    int32_t dlsinr = 0;
    int32_t numant = 0;
    int32_t dlbw = 0;
};

struct SignalState {
    CsqValues csq;                    // +CSQ as printed (TD-SCDMA: 100..191), ^RSSI
    std::vector<HcsqLine> hcsq = {HcsqLine{}};
    CsnrValues csnr;
    AntennaValues antenna;            // ^ANQUERY? and ^ANLEVEL
    LteRsrpValues lteRsrp;
    LteScInfo lteScInfo;
    CsqValues cdmaCsq;                // ^CSQLVL
    int32_t hdrRssi = 0;              // ^HDRCSQLVL
};

// A band or band group that a modem offers, as its test answers list it:
// (2000000400380,"GSM900/GSM1800/WCDMA900/WCDMA2100"). The mask is hexadecimal
// text, kept as written.
struct BandOffer {
    std::string mask;
    std::string name;
};

// What AT^SYSCFG=? lists and what a set may take (ConfigRules.h says how).
struct SyscfgOffer {
    std::vector<int32_t> modes;         // 2 automatic, 13 GSM only, 14 WCDMA only, ...
    std::vector<int32_t> acqOrders;     // 0 automatic, 1 GSM first, 2 WCDMA first
    std::vector<BandOffer> bands;
    std::vector<int32_t> roams;
    std::vector<int32_t> domains;
};

// ^SYSCFG: mode, acquisition order, band (hexadecimal text as the modem prints
// it), roaming, domain, and what the modem offers.
struct SyscfgValues {
    int32_t mode = 2;
    int32_t acqOrder = 0;
    std::string band;
    int32_t roam = 1;
    int32_t domain = 2;
    SyscfgOffer offered;
};

struct SyscfgexOffer {
    std::vector<std::string> acqOrders;  // "00", "03", "02", "01", "99", or runs such as "0201"
    std::vector<BandOffer> bands;
    std::vector<int32_t> roams;
    std::vector<int32_t> domains;
    std::vector<BandOffer> lteBands;     // empty on a modem without LTE
};

struct SyscfgexValues {
    std::string acqOrder;     // "00", "030201", ...
    std::string band;
    int32_t roam = 1;
    int32_t domain = 2;
    std::string lteBand;      // empty on modems that print an empty field
    SyscfgexOffer offered;
};

struct SysconfigOffer {
    std::vector<int32_t> modes;         // 2 automatic, 13 GSM only, 15 TD-SCDMA only
    std::vector<int32_t> acqOrders;     // 0 automatic, 1 GSM first, 2 TD-SCDMA first
    std::vector<int32_t> roams;
    std::vector<int32_t> domains;
};

struct SysconfigValues {
    int32_t mode = 2;
    int32_t acqOrder = 0;
    int32_t roam = 1;
    int32_t domain = 2;
    SysconfigOffer offered;
};

// An absent section means the modem lacks the command.
struct ConfigState {
    std::optional<SyscfgValues> syscfg;
    std::optional<SyscfgexValues> syscfgex;
    std::optional<SysconfigValues> sysconfig;
};

struct CdmaState {
    int32_t prefMode = 8;
    std::string prefModeTest = "(2,4,8)";
    int32_t evdoRevision = 0;
    int32_t nam = 0;
    std::string prlVersion;
    int32_t ktfSimType = 255;
    int32_t sid = 0;
    int32_t nid = 0;
    std::string subnetId;
    std::string registeredMin;        // last "^REG=<min>"
};

struct ModemState {
    bool echo = true;                 // modems power up echoing
    int32_t cmee = 0;
    std::vector<LastError> lastErrors;
    SimState sim;
    NetworkState network;
    SignalState signal;
    ConfigState configuration;
    std::optional<CdmaState> cdma;    // absent: not a CDMA modem
};

}  // namespace modemsim

#endif
