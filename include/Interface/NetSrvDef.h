// Records and enumerations that INetSrv hands to its clients. Every record's
// constructor zeroes it (the HCSQ readings start at 255, "not reported").
#ifndef INTERFACE_NETSRVDEF_H
#define INTERFACE_NETSRVDEF_H

#include <cstdint>
#include <cstring>

#include "Interface/IBaseInterface.h"

typedef unsigned short QIRA_wchar_t;

namespace NETSRV_DATA {

// ---- events ---------------------------------------------------------------

enum _QIRA_EN_NETSRV_EVENTID {
    EVENT_NETSRV_PLMN_ALL = 0,
    EVENT_SRV_RSSI = 1,
    EVENT_SRV_PLMN_ID = 2,
    EVENT_SRV_ROAM_STATUS = 3,
    EVENT_NET_SERVER_STATUS = 4,
    EVENT_SRV_DOMAIN = 5,
    EVENT_SRV_SIM_STATE = 6,
    EVENT_SRV_SYSTEM_MODE = 7,
    EVENT_SRV_MS_AVAILABLE = 8,
    EVENT_SRV_MS_UNAVAILABLE = 9,
    EVENT_SIM_NOT_INSERTED = 10,
    EVENT_SRV_ANTENNA_LEVEL = 11,
    EVENT_PNN_FILEREFRESH = 12,
    EVENT_SIM_REFRESH = 13
};

// ---- last error -----------------------------------------------------------

struct SRV_LAST_ERROR {
    unsigned long type;
    unsigned long code;
    SRV_LAST_ERROR() : type(0), code(0) {}
};

// ---- system information ---------------------------------------------------

enum SysSrvStatus {
    SYS_SRV_STATUS_NO_SRV = 0,
    SYS_SRV_STATUS_LIMITED = 1,
    SYS_SRV_STATUS_SRV = 2,
    SYS_SRV_STATUS_LIMITED_REGIONAL = 3,
    SYS_SRV_STATUS_PWR_SAVE = 4
};

enum SystemMode {
    SYS_MODE_NO_SRV = 0,
    SYS_MODE_AMPS = 1,
    SYS_MODE_CDMA = 2,
    SYS_MODE_GSM_GPRS = 3,
    SYS_MODE_HDR = 4,
    SYS_MODE_WCDMA = 5,
    SYS_MODE_GPS = 6,
    SYS_MODE_GSM_WCDMA = 7,
    SYS_MODE_CDMA_HDR_HYBRID = 8,
    SYS_MODE_GSM = 9,
    SYS_MODE_GPRS = 10,
    SYS_MODE_EDGE = 11,
    SYS_MODE_HSDPA = 12,
    SYS_MODE_HSUPA = 13,
    SYS_MODE_HSPA = 14,
    SYS_MODE_TD_SCDMA = 15,
    SYS_MODE_HSPA_PLUS = 16,
    SYS_MODE_EVDO_REV_0 = 17,
    SYS_MODE_EVDO_REV_A = 18,
    SYS_MODE_EVDO_REV_B = 19,
    SYS_MODE_1xRTT = 20,
    SYS_MODE_UMB = 21,
    SYS_MODE_1xEVDV = 22,
    SYS_MODE_3xRTT = 23,
    SYS_MODE_HSDPA_ADD = 24,
    SYS_MODE_HSUPA_ADD = 25
};

enum SubsysMode {
    SUB_MODE_NOSERVICE = 0,
    SUB_MODE_GSM = 1,
    SUB_MODE_GPRS = 2,
    SUB_MODE_EDGE = 3,
    SUB_MODE_WCDMA = 4,
    SUB_MODE_HSDPA = 5,
    SUB_MODE_HSUPA = 6,
    SUB_MODE_HSPA = 7,
    SUB_MODE_TDSCDMA = 8,
    SUB_MODE_HSPA_PLUS = 9,
    SUB_MODE_EVDO_REV_0 = 10,
    SUB_MODE_EVDO_REV_A = 11,
    SUB_MODE_EVDO_REV_B = 12,
    SUB_MODE_1xRTT = 13,
    SUB_MODE_UMB = 14,
    SUB_MODE_1xEVDV = 15,
    SUB_MODE_3xRTT = 16,
    SUB_MODE_HSPA_QAM = 17,
    SUB_MODE_HSPA_MIMO = 18
};

enum SystemModeEx {
    SYS_MODE_NOSERVICE_EX = 0,
    SYS_MODE_GSM_EX = 1,
    SYS_MODE_CDMA_EX = 2,
    SYS_MODE_WCDMA_EX = 3,
    SYS_MODE_TD_SCDMA_EX = 4,
    SYS_MODE_WIMAX_EX = 5,
    SYS_MODE_LTE_EX = 6
};

enum SubsysModeEx {
    SUB_MODE_NOSERVICE_EX = 0,
    SUB_MODE_GSM_EX = 1,
    SUB_MODE_GPRS_EX = 2,
    SUB_MODE_EDGE_EX = 3,
    SUB_MODE_IS95A_EX = 21,
    SUB_MODE_IS95B_EX = 22,
    SUB_MODE_CDMA20001X_EX = 23,
    SUB_MODE_EVDORel0_EX = 24,
    SUB_MODE_EVDORelA_EX = 25,
    SUB_MODE_EVDORelB_EX = 26,
    SUB_MODE_HYBRID_CDMA20001X_EX = 27,
    SUB_MODE_HYBRID_EVDORel0_EX = 28,
    SUB_MODE_HYBRID_EVDORelA_EX = 29,
    SUB_MODE_HYBRID_EVDORelB_EX = 30,
    SUB_MODE_EHRPD_Rel0 = 31,
    SUB_MODE_EHRPD_RelA = 32,
    SUB_MODE_EHRPD_RelB = 33,
    SUB_MODE_HYBRID_EHRPD_Rel0 = 34,
    SUB_MODE_HYBRID_EHRPD_RelA = 35,
    SUB_MODE_HYBRID_EHRPD_RelB = 36,
    SUB_MODE_WCDMA_EX = 41,
    SUB_MODE_HSDPA_EX = 42,
    SUB_MODE_HSUPA_EX = 43,
    SUB_MODE_HSPA_EX = 44,
    SUB_MODE_HSPA_PLU_EX = 45,
    SUB_MODE_DCHSPA_PLU_EX = 46,
    SUB_MODE_TDSCDMA_EX = 61,
    SUB_MODE_TD_HSDPA_EX = 62,
    SUB_MODE_TD_HSUPA_EX = 63,
    SUB_MODE_TD_HSPA_EX = 64,
    SUB_MODE_TD_HSPA_PLU_EX = 65,
    SUB_MODE_UNDEFINE_EX = 120
};

enum RoamStatus {
    SYS_ROAM_STATUS_OFF = 0,
    SYS_ROAM_STATUS_ON = 1,
    SYS_ROAM_STATUS_BLINK = 2,
    SYS_ROAM_STATUS_OUT_OF_NEIGHBORHOOD = 3,
    SYS_ROAM_STATUS_OUT_OF_BLDG = 4,
    SYS_ROAM_STATUS_PREF_SYS = 5,
    SYS_ROAM_STATUS_AVAIL_SYS = 6,
    SYS_ROAM_STATUS_ALLIANCE_PARTNER = 7,
    SYS_ROAM_STATUS_PREMIUM_PARTNER = 8,
    SYS_ROAM_STATUS_FULL_SVC = 9,
    SYS_ROAM_STATUS_PARTIAL_SVC = 10,
    SYS_ROAM_STATUS_BANNER_ON = 11,
    SYS_ROAM_STATUS_BANNER_OFF = 12
};

struct SystemInfo {
    int32_t dwSrvStatus;
    int32_t dwSysMode;      // always a SystemModeEx value
    int32_t dwDomain;
    int32_t dwRoam;
    int32_t dwSimState;
    int32_t dwSubMode;      // always a SubsysModeEx value
    int32_t dwLockState;
    char szSysModeName[64];
    char szSubModeName[64];
    SystemInfo() { std::memset(this, 0, sizeof(*this)); }
};

// ---- signal ---------------------------------------------------------------

struct RSSIType {
    int16_t nRSSI;
    unsigned char btRSSIPercent;
    RSSIType() : nRSSI(0), btRSSIPercent(0) {}
};

struct Signal {
    int16_t nRSCP;
    int16_t nECIO;
    Signal() : nRSCP(0), nECIO(0) {}
};

struct AntennaLevel {
    uint16_t wLevel;
    AntennaLevel() : wLevel(0) {}
};

struct RowRSSI {
    int16_t nRSSI;
    int16_t nBer;
    RowRSSI() : nRSSI(0), nBer(0) {}
};

// "^HCSQ" readings; 255 marks a value that the modem did not report.
enum { HCSQ_NOT_REPORTED = 255 };

struct HCSQ_GSM {
    bool bUsed;
    int32_t iRssi;
    HCSQ_GSM() : bUsed(false), iRssi(HCSQ_NOT_REPORTED) {}
};

struct HCSQ_WCDMA {
    bool bUsed;
    int32_t iRssi;
    int32_t iRscp;
    int32_t iEcio;
    HCSQ_WCDMA()
        : bUsed(false), iRssi(HCSQ_NOT_REPORTED), iRscp(HCSQ_NOT_REPORTED),
          iEcio(HCSQ_NOT_REPORTED) {}
};

struct HCSQ_TD_SCDMA {
    bool bUsed;
    int32_t iRssi;
    int32_t iRscp;
    int32_t iEcio;
    HCSQ_TD_SCDMA()
        : bUsed(false), iRssi(HCSQ_NOT_REPORTED), iRscp(HCSQ_NOT_REPORTED),
          iEcio(HCSQ_NOT_REPORTED) {}
};

struct HCSQ_LTE {
    bool bUsed;
    int32_t iRssi;
    int32_t iRsrp;
    int32_t iSinr;
    int32_t iRsrq;
    HCSQ_LTE()
        : bUsed(false), iRssi(HCSQ_NOT_REPORTED), iRsrp(HCSQ_NOT_REPORTED),
          iSinr(HCSQ_NOT_REPORTED), iRsrq(HCSQ_NOT_REPORTED) {}
};

struct HCSQ_CDMA {
    bool bUsed;
    int32_t iRssi;
    int32_t iEcio;
    HCSQ_CDMA() : bUsed(false), iRssi(HCSQ_NOT_REPORTED), iEcio(HCSQ_NOT_REPORTED) {}
};

struct HCSQ_EVDO {
    bool bUsed;
    int32_t iRssi;
    int32_t iEcio;
    int32_t iSinr;
    HCSQ_EVDO()
        : bUsed(false), iRssi(HCSQ_NOT_REPORTED), iEcio(HCSQ_NOT_REPORTED),
          iSinr(HCSQ_NOT_REPORTED) {}
};

struct HCSQ_CDMA_EVDO {
    bool bUsed;
    int32_t iCdma_Rssi;
    int32_t iCdma_Ecio;
    int32_t iEvdo_Rssi;
    int32_t iEvdo_Ecio;
    int32_t IEvdo_Sinr;
    HCSQ_CDMA_EVDO()
        : bUsed(false), iCdma_Rssi(HCSQ_NOT_REPORTED), iCdma_Ecio(HCSQ_NOT_REPORTED),
          iEvdo_Rssi(HCSQ_NOT_REPORTED), iEvdo_Ecio(HCSQ_NOT_REPORTED),
          IEvdo_Sinr(HCSQ_NOT_REPORTED) {}
};

// One parsed "^HCSQ" reading; owns its seven sub-records. A local value, never copied.
struct HCSQ_INFO {
    bool bService;
    HCSQ_GSM* pstGSM;
    HCSQ_WCDMA* pstWCDMA;
    HCSQ_TD_SCDMA* pstTD_SCDMA;
    HCSQ_LTE* pstLTE;
    HCSQ_CDMA* pstCDMA;
    HCSQ_EVDO* pstEVDO;
    HCSQ_CDMA_EVDO* pstCDMA_EVDO;

    HCSQ_INFO()
        : bService(false), pstGSM(new HCSQ_GSM), pstWCDMA(new HCSQ_WCDMA),
          pstTD_SCDMA(new HCSQ_TD_SCDMA), pstLTE(new HCSQ_LTE), pstCDMA(new HCSQ_CDMA),
          pstEVDO(new HCSQ_EVDO), pstCDMA_EVDO(new HCSQ_CDMA_EVDO) {}
    ~HCSQ_INFO()
    {
        delete pstGSM;
        delete pstWCDMA;
        delete pstTD_SCDMA;
        delete pstLTE;
        delete pstCDMA;
        delete pstEVDO;
        delete pstCDMA_EVDO;
        pstGSM = nullptr;
        pstWCDMA = nullptr;
        pstTD_SCDMA = nullptr;
        pstLTE = nullptr;
        pstCDMA = nullptr;
        pstEVDO = nullptr;
        pstCDMA_EVDO = nullptr;
    }
    HCSQ_INFO(const HCSQ_INFO&) = delete;
    HCSQ_INFO& operator=(const HCSQ_INFO&) = delete;
};

// ---- registration and packet domain ---------------------------------------

struct RegStateReport {
    int32_t ReportMode;
    int32_t ReportState;
    char LacCode[16];
    char CellID[16];
    RegStateReport() { std::memset(this, 0, sizeof(*this)); }
};

enum PSState {
    PS_STAT_DETACHED = 0,
    PS_STAT_ATTACH = 1,
    PS_STAT_UNKNOW = 255
};

enum HSPA_MODE {
    HSPA_MODE_DPA = 0,
    HSPA_MODE_UPA = 1
};

enum HSPA_STAT {
    HSPA_STAT_DISABLE = 0,
    HSPA_STAT_ENABLE = 1
};

// ---- CDMA -----------------------------------------------------------------

enum CdmaPrefMode {
    CDMA_PREF_MODE_UNKNOW = 0,
    CDMA_PREF_MODE_CDMA = 2,
    CDMA_PREF_MODE_HDR = 4,
    CDMA_PREF_MODE_CDMA_HDR_HYBRID = 8
};

enum EvdoRevision {
    EVDO_REVA = 0,
    EVDO_REV0 = 1,
    EVDO_REVB = 2
};

enum NAMMode {
    NAM_MODE_FIRST = 0,
    NAM_MODE_SECOND = 1
};

enum KTFSimType {
    KTF_SIM_TYPE_UMTS = 0,
    KTF_SIM_TYPE_CDMA = 1,
    KTF_SIM_TYPE_SKT = 2,
    KTF_SIM_TYPE_OVERSEAS = 3,
    KTF_SIM_TYPE_UNKNOW = 255
};

struct SPrlVer {
    char szPrlVer[64];
    SPrlVer() { std::memset(this, 0, sizeof(*this)); }
};

// ---- network configuration and bands --------------------------------------

enum tagSYSCFGMODE {
    GSM_PREFER = 1,
    AUTO = 2,
    GSM_ONLY = 13,
    WCDMA_ONLY = 14,
    TD_SCDMA_ONLY = 15
};

struct NetConfigurationType {
    DWORD dwSystemMode;
    uint64_t dwBand;
    DWORD dwAcqOrder;
    DWORD dwHybr;
    DWORD dwRoam;
    DWORD dwDomain;
    NetConfigurationType()
        : dwSystemMode(0), dwBand(0), dwAcqOrder(0), dwHybr(0), dwRoam(0), dwDomain(0) {}
};

struct NetConfigurationExType {
    char szAcqorder[256];
    uint64_t dwBand;
    DWORD dwRoam;
    DWORD dwDomain;
    uint64_t dwLteBand;
    char szReserved1[256];
    char szReserved2[256];
    NetConfigurationExType() { std::memset(this, 0, sizeof(*this)); }
};

struct BandInfo {
    uint64_t dwBand;
    char szBandName[256];
    BandInfo() { std::memset(this, 0, sizeof(*this)); }
};

struct BandList {
    int16_t nSize;
    BandInfo* pstList;
    BandList() : nSize(0), pstList(nullptr) {}
};

struct AcqOrderInfo {
    char szAcqOrder[256];
    char szAcqOrderName[256];
    AcqOrderInfo() { std::memset(this, 0, sizeof(*this)); }
};

struct AcqOrderList {
    int16_t nSize;
    AcqOrderInfo* pstList;
    AcqOrderList() : nSize(0), pstList(nullptr) {}
};

// ---- operators ------------------------------------------------------------

struct PLMNType {
    char szPlmn[8];
    unsigned char btPlmnName[64];
    unsigned char btPlmnLongName[64];
    unsigned char btRat;
    PLMNType() { std::memset(this, 0, sizeof(*this)); }
};

struct SPlmnInfo {
    unsigned int dwSigStrength;
    char szPlmnID[8];
    unsigned char btRat;
    unsigned char btPlmnSrvCapability;
    unsigned char btPlmnForbidden;
    unsigned char btListCategory;
    unsigned char btSigQuality;
    char szShortName[64];
    char szLongName[64];
    SPlmnInfo() { std::memset(this, 0, sizeof(*this)); }
};

enum { PLMN_LIST_MAX = 20 };

struct SPlmnList {
    unsigned char btPlmnNumber;
    SPlmnInfo stPlmn[PLMN_LIST_MAX];
    SPlmnList() : btPlmnNumber(0) {}
};

enum UPLMN_MODE {
    UPLMN_USER_CONTROL = 0,
    UPLMN_OPERATOR_CONTROL = 1,
    UPLMN_UNKNOWN_CONTROL = 2
};

struct UPLMNInfo {
    char index[4];
    char format[4];
    char szUPLMN[16];
    unsigned char btUPLMNName[80];
    char szGSMAct[2];
    char szGSMCompactAct[2];
    char szUTRANAct[2];
    UPLMNInfo() { std::memset(this, 0, sizeof(*this)); }
};

struct UPLMNList {
    int size;
    UPLMNInfo* pstUPLMN;
    UPLMNList() : size(0), pstUPLMN(nullptr) {}
};

enum EnumNetSearchMode {
    NET_SEARCH_AUTO = 0,
    NET_SEARCH_MANNUAL = 1,
    NET_RIGISTER_OFF = 2,
    NET_COPS_READ = 3,
    NET_AUTO_MANNUAL = 4
};

enum EnumPlmnFormat {
    LONG_ALPHANUMERIC = 0,
    SHORT_ALPHANUMERIC = 1,
    NUMERIC_FORMAT = 2
};

// ---- SIM files and operator names -----------------------------------------

enum EFType {
    EF_MSISDN = 0,
    EF_ICCID = 1,
    EF_SPN = 2
};

enum EFStat {
    EF_STAT_UNUSED = 0,
    EF_STAT_USED = 1
};

enum CIStat {
    CI_STAT_NOT_Add = 0,
    CI_STAT_Add = 1
};

struct EFFile {
    char szFile[256];
    EFStat enStat;
    EFFile() : enStat(EF_STAT_UNUSED) { std::memset(szFile, 0, sizeof(szFile)); }
};

struct SPNNInfo {
    QIRA_wchar_t wszFullname[256];
    QIRA_wchar_t wszShortname[128];
    CIStat enFullnameCI;
    CIStat enShortnameCI;
    char szPlmnID[8];
    SPNNInfo() { std::memset(this, 0, sizeof(*this)); }
};

struct SPNNList {
    int size;
    SPNNInfo* pstPnn;
    SPNNList() : size(0), pstPnn(nullptr) {}
};

// ---- service provider name ------------------------------------------------

struct SSpnDataType {
    QIRA_wchar_t SpnData[24];
    unsigned char btDisplay;
    SSpnDataType() { std::memset(this, 0, sizeof(*this)); }
};

}  // namespace NETSRV_DATA

// LTE readings, outside the namespace as the interface has them.
struct LteSignal {
    int16_t nRSRP;   // dBm
    int16_t nRSRQ;   // dB
    LteSignal() : nRSRP(0), nRSRQ(0) {}
};

struct LteScInfo {
    int32_t pci;
    int32_t dlsinr;
    int32_t numant;
    LteScInfo() : pci(0), dlsinr(0), numant(0) {}
};

struct CURRNETWORKIDINFO {
    uint16_t unCurrSID;
    uint16_t unCurrNID;
    char szSubNetID[33];
    CURRNETWORKIDINFO() { std::memset(this, 0, sizeof(*this)); }
};

#endif
