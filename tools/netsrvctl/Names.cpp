#include "Names.h"

#include "Interface/NetSrvDef.h"

namespace netsrvctl {

namespace {
using namespace NETSRV_DATA;

struct NameRow {
    int64_t value;
    const char* name;
};

template <size_t N>
const char* Lookup(const NameRow (&table)[N], int64_t value)
{
    for (const NameRow& row : table) {
        if (row.value == value) {
            return row.name;
        }
    }
    return nullptr;
}

const NameRow kServiceStatus[] = {
    {SYS_SRV_STATUS_NO_SRV, "no service"},
    {SYS_SRV_STATUS_LIMITED, "limited service"},
    {SYS_SRV_STATUS_SRV, "normal service"},
    {SYS_SRV_STATUS_LIMITED_REGIONAL, "limited regional service"},
    {SYS_SRV_STATUS_PWR_SAVE, "power saving"},
};

const NameRow kSystemMode[] = {
    {SYS_MODE_NOSERVICE_EX, "no service"},
    {SYS_MODE_GSM_EX, "GSM"},
    {SYS_MODE_CDMA_EX, "CDMA"},
    {SYS_MODE_WCDMA_EX, "WCDMA"},
    {SYS_MODE_TD_SCDMA_EX, "TD-SCDMA"},
    {SYS_MODE_WIMAX_EX, "WiMAX"},
    {SYS_MODE_LTE_EX, "LTE"},
};

// A hybrid mode is a CDMA modem camped on 1X and EV-DO (or eHRPD) at once.
const NameRow kSubMode[] = {
    {SUB_MODE_NOSERVICE_EX, "no service"},
    {SUB_MODE_GSM_EX, "GSM"},
    {SUB_MODE_GPRS_EX, "GPRS"},
    {SUB_MODE_EDGE_EX, "EDGE"},
    {SUB_MODE_IS95A_EX, "IS-95A"},
    {SUB_MODE_IS95B_EX, "IS-95B"},
    {SUB_MODE_CDMA20001X_EX, "CDMA2000 1X"},
    {SUB_MODE_EVDORel0_EX, "EV-DO Rev. 0"},
    {SUB_MODE_EVDORelA_EX, "EV-DO Rev. A"},
    {SUB_MODE_EVDORelB_EX, "EV-DO Rev. B"},
    {SUB_MODE_HYBRID_CDMA20001X_EX, "hybrid CDMA2000 1X"},
    {SUB_MODE_HYBRID_EVDORel0_EX, "hybrid EV-DO Rev. 0"},
    {SUB_MODE_HYBRID_EVDORelA_EX, "hybrid EV-DO Rev. A"},
    {SUB_MODE_HYBRID_EVDORelB_EX, "hybrid EV-DO Rev. B"},
    {SUB_MODE_EHRPD_Rel0, "eHRPD Rev. 0"},
    {SUB_MODE_EHRPD_RelA, "eHRPD Rev. A"},
    {SUB_MODE_EHRPD_RelB, "eHRPD Rev. B"},
    {SUB_MODE_HYBRID_EHRPD_Rel0, "hybrid eHRPD Rev. 0"},
    {SUB_MODE_HYBRID_EHRPD_RelA, "hybrid eHRPD Rev. A"},
    {SUB_MODE_HYBRID_EHRPD_RelB, "hybrid eHRPD Rev. B"},
    {SUB_MODE_WCDMA_EX, "WCDMA"},
    {SUB_MODE_HSDPA_EX, "HSDPA (WCDMA)"},
    {SUB_MODE_HSUPA_EX, "HSUPA (WCDMA)"},
    {SUB_MODE_HSPA_EX, "HSPA (WCDMA)"},
    {SUB_MODE_HSPA_PLU_EX, "HSPA+ (WCDMA)"},
    {SUB_MODE_DCHSPA_PLU_EX, "DC-HSPA+ (WCDMA)"},
    {SUB_MODE_TDSCDMA_EX, "TD-SCDMA"},
    {SUB_MODE_TD_HSDPA_EX, "HSDPA (TD-SCDMA)"},
    {SUB_MODE_TD_HSUPA_EX, "HSUPA (TD-SCDMA)"},
    {SUB_MODE_TD_HSPA_EX, "HSPA (TD-SCDMA)"},
    {SUB_MODE_TD_HSPA_PLU_EX, "HSPA+ (TD-SCDMA)"},
    {SUB_MODE_UNDEFINE_EX, "undefined"},
};

// Values 2 and up are the roaming indicator that CDMA networks send.
const NameRow kRoaming[] = {
    {SYS_ROAM_STATUS_OFF, "not roaming"},
    {SYS_ROAM_STATUS_ON, "roaming"},
    {SYS_ROAM_STATUS_BLINK, "roaming indicator flashing"},
    {SYS_ROAM_STATUS_OUT_OF_NEIGHBORHOOD, "out of neighborhood"},
    {SYS_ROAM_STATUS_OUT_OF_BLDG, "out of building"},
    {SYS_ROAM_STATUS_PREF_SYS, "preferred system"},
    {SYS_ROAM_STATUS_AVAIL_SYS, "available system"},
    {SYS_ROAM_STATUS_ALLIANCE_PARTNER, "alliance partner"},
    {SYS_ROAM_STATUS_PREMIUM_PARTNER, "premium partner"},
    {SYS_ROAM_STATUS_FULL_SVC, "full service functionality"},
    {SYS_ROAM_STATUS_PARTIAL_SVC, "partial service functionality"},
    {SYS_ROAM_STATUS_BANNER_ON, "roaming banner on"},
    {SYS_ROAM_STATUS_BANNER_OFF, "roaming banner off"},
};

const NameRow kDomain[] = {
    {0, "no service"}, {1, "CS only"},   {2, "PS only"},
    {3, "CS and PS"},  {4, "searching"}, {255, "not applicable"},
};

// 240 is a modem without a card that runs on its built-in (ROM) SIM.
const NameRow kSimState[] = {
    {0, "invalid"},
    {1, "valid"},
    {2, "invalid for CS"},
    {3, "invalid for PS"},
    {4, "invalid for CS and PS"},
    {240, "ROM SIM"},
    {255, "absent"},
};

const NameRow kLockState[] = {
    {0, "not locked"},
    {1, "locked"},
};

const NameRow kOperatorStatus[] = {
    {0, "unknown"},
    {1, "available"},
    {2, "current"},
    {3, "forbidden"},
};

const NameRow kAccessTechnology[] = {
    {0, "GSM"},   {1, "GSM compact"}, {2, "WCDMA"}, {3, "EDGE"},
    {4, "HSDPA"}, {5, "HSUPA"},       {6, "HSPA"},  {7, "LTE"},
};

const NameRow kRegistrationState[] = {
    {0, "not registered"},      {1, "registered (home network)"}, {2, "searching"},
    {3, "registration denied"}, {4, "unknown"},                   {5, "registered (roaming)"},
};

const NameRow kPsAttach[] = {
    {PS_STAT_DETACHED, "detached"},
    {PS_STAT_ATTACH, "attached"},
    {PS_STAT_UNKNOW, "unknown"},
};

const NameRow kHspaSwitch[] = {
    {HSPA_STAT_DISABLE, "disabled"},
    {HSPA_STAT_ENABLE, "enabled"},
};

const NameRow kCdmaPrefMode[] = {
    {CDMA_PREF_MODE_UNKNOW, "unknown"},
    {CDMA_PREF_MODE_CDMA, "CDMA 1X only"},
    {CDMA_PREF_MODE_HDR, "EV-DO only"},
    {CDMA_PREF_MODE_CDMA_HDR_HYBRID, "hybrid CDMA 1X / EV-DO"},
};

const NameRow kEvdoRevision[] = {
    {EVDO_REVA, "Rev. A"},
    {EVDO_REV0, "Rev. 0"},
    {EVDO_REVB, "Rev. B"},
};

const NameRow kNam[] = {
    {NAM_MODE_FIRST, "NAM 1"},
    {NAM_MODE_SECOND, "NAM 2"},
};

// "No change" asks the modem to keep what it has.
const NameRow kRoamSetting[] = {
    {0, "roaming not allowed"},
    {1, "roaming allowed"},
    {2, "no change"},
};

const NameRow kDomainSetting[] = {
    {0, "CS only"}, {1, "PS only"}, {2, "CS and PS"}, {3, "any"}, {4, "no change"},
};

// The card of a dual-standard phone: which network's application it carries.
const NameRow kSimType[] = {
    {KTF_SIM_TYPE_UMTS, "UMTS"},         {KTF_SIM_TYPE_CDMA, "CDMA"},
    {KTF_SIM_TYPE_SKT, "SKT"},           {KTF_SIM_TYPE_OVERSEAS, "overseas"},
    {KTF_SIM_TYPE_UNKNOW, "unknown"},
};
}  // namespace

const char* ServiceStatusName(int64_t value)
{
    return Lookup(kServiceStatus, value);
}

const char* SystemModeName(int64_t value)
{
    return Lookup(kSystemMode, value);
}

const char* SubModeName(int64_t value)
{
    return Lookup(kSubMode, value);
}

const char* RoamingName(int64_t value)
{
    return Lookup(kRoaming, value);
}

const char* DomainName(int64_t value)
{
    return Lookup(kDomain, value);
}

const char* SimStateName(int64_t value)
{
    return Lookup(kSimState, value);
}

const char* LockStateName(int64_t value)
{
    return Lookup(kLockState, value);
}

const char* OperatorStatusName(int64_t value)
{
    return Lookup(kOperatorStatus, value);
}

const char* AccessTechnologyName(int64_t value)
{
    return Lookup(kAccessTechnology, value);
}

const char* RegistrationStateName(int64_t value)
{
    return Lookup(kRegistrationState, value);
}

const char* PsAttachName(int64_t value)
{
    return Lookup(kPsAttach, value);
}

const char* HspaSwitchName(int64_t value)
{
    return Lookup(kHspaSwitch, value);
}

const char* CdmaPrefModeName(int64_t value)
{
    return Lookup(kCdmaPrefMode, value);
}

const char* EvdoRevisionName(int64_t value)
{
    return Lookup(kEvdoRevision, value);
}

const char* NamName(int64_t value)
{
    return Lookup(kNam, value);
}

const char* RoamSettingName(int64_t value)
{
    return Lookup(kRoamSetting, value);
}

const char* DomainSettingName(int64_t value)
{
    return Lookup(kDomainSetting, value);
}

const char* SimTypeName(int64_t value)
{
    return Lookup(kSimType, value);
}

}  // namespace netsrvctl
