#include "NetSrvModeMap.h"

using namespace NETSRV_DATA;

SystemModeEx MapOldSysModeToExSysMode(int iSysMode)
{
    switch (iSysMode) {
    case SYS_MODE_AMPS:
    case SYS_MODE_GSM_GPRS:
    case SYS_MODE_GPS:
        return SYS_MODE_GSM_EX;
    case SYS_MODE_CDMA:
    case SYS_MODE_HDR:
    case SYS_MODE_CDMA_HDR_HYBRID:
        return SYS_MODE_CDMA_EX;
    case SYS_MODE_WCDMA:
    case SYS_MODE_GSM_WCDMA:
        return SYS_MODE_WCDMA_EX;
    case SYS_MODE_TD_SCDMA:
        return SYS_MODE_TD_SCDMA_EX;
    default:
        return SYS_MODE_NOSERVICE_EX;
    }
}

SubsysModeEx MapOldSysModeToExSubMode(int iSysMode)
{
    switch (iSysMode) {
    case SYS_MODE_AMPS:
    case SYS_MODE_GPS:
        return SUB_MODE_GSM_EX;
    case SYS_MODE_CDMA:
        return SUB_MODE_CDMA20001X_EX;
    case SYS_MODE_GSM_GPRS:
        return SUB_MODE_GPRS_EX;
    case SYS_MODE_HDR:
        return SUB_MODE_EVDORelA_EX;
    case SYS_MODE_WCDMA:
    case SYS_MODE_GSM_WCDMA:
        return SUB_MODE_WCDMA_EX;
    case SYS_MODE_CDMA_HDR_HYBRID:
        return SUB_MODE_HYBRID_EVDORelA_EX;
    case SYS_MODE_TD_SCDMA:
        return SUB_MODE_TDSCDMA_EX;
    default:
        return SUB_MODE_NOSERVICE_EX;
    }
}

namespace {

// A packet sub-mode that exists on WCDMA and on TD-SCDMA; other systems have none.
SubsysModeEx ByUmtsFamily(int iSysMode, SubsysModeEx enWcdma, SubsysModeEx enTd)
{
    if (iSysMode == SYS_MODE_WCDMA) {
        return enWcdma;
    }
    if (iSysMode == SYS_MODE_TD_SCDMA) {
        return enTd;
    }
    return SUB_MODE_NOSERVICE_EX;
}

// An EV-DO revision, plain on HDR or hybrid beside CDMA 1x.
SubsysModeEx ByEvdoFamily(int iSysMode, SubsysModeEx enHdr, SubsysModeEx enHybrid)
{
    if (iSysMode == SYS_MODE_HDR) {
        return enHdr;
    }
    if (iSysMode == SYS_MODE_CDMA_HDR_HYBRID) {
        return enHybrid;
    }
    return SUB_MODE_NOSERVICE_EX;
}

}  // namespace

SubsysModeEx MapOldSubModeToExSubMode(int iSysMode, int iSubMode)
{
    switch (iSubMode) {
    case SUB_MODE_NOSERVICE:
        return SUB_MODE_NOSERVICE_EX;
    case SUB_MODE_GSM:
        return SUB_MODE_GSM_EX;
    case SUB_MODE_GPRS:
        return SUB_MODE_GPRS_EX;
    case SUB_MODE_EDGE:
        return SUB_MODE_EDGE_EX;
    case SUB_MODE_WCDMA:
        return SUB_MODE_WCDMA_EX;
    case SUB_MODE_HSDPA:
        return ByUmtsFamily(iSysMode, SUB_MODE_HSDPA_EX, SUB_MODE_TD_HSDPA_EX);
    case SUB_MODE_HSUPA:
        return ByUmtsFamily(iSysMode, SUB_MODE_HSUPA_EX, SUB_MODE_TD_HSUPA_EX);
    case SUB_MODE_HSPA:
        return ByUmtsFamily(iSysMode, SUB_MODE_HSPA_EX, SUB_MODE_TD_HSPA_EX);
    case SUB_MODE_TDSCDMA:
        return SUB_MODE_TDSCDMA_EX;
    case SUB_MODE_HSPA_PLUS:
    // HSPA with 64QAM or with MIMO is shown as HSPA+.
    case SUB_MODE_HSPA_QAM:
    case SUB_MODE_HSPA_MIMO:
        return ByUmtsFamily(iSysMode, SUB_MODE_HSPA_PLU_EX, SUB_MODE_TD_HSPA_PLU_EX);
    case SUB_MODE_EVDO_REV_0:
        return ByEvdoFamily(iSysMode, SUB_MODE_EVDORel0_EX, SUB_MODE_HYBRID_EVDORel0_EX);
    case SUB_MODE_EVDO_REV_A:
        return ByEvdoFamily(iSysMode, SUB_MODE_EVDORelA_EX, SUB_MODE_HYBRID_EVDORelA_EX);
    case SUB_MODE_EVDO_REV_B:
        return ByEvdoFamily(iSysMode, SUB_MODE_EVDORelB_EX, SUB_MODE_HYBRID_EVDORelB_EX);
    // The CDMA-family sub-modes without an Ex counterpart of their own take
    // the nearest one the host shows.
    case SUB_MODE_1xRTT:
        return SUB_MODE_IS95A_EX;
    case SUB_MODE_UMB:
        return SUB_MODE_EVDORelA_EX;
    case SUB_MODE_1xEVDV:
        return SUB_MODE_HYBRID_EVDORelA_EX;
    case SUB_MODE_3xRTT:
        return SUB_MODE_CDMA20001X_EX;
    default:
        return MapOldSysModeToExSubMode(iSysMode);
    }
}

int MapSysSubMode(int iSysSubMode)
{
    static const int kSystemModeOfSubMode[] = {
        SYS_MODE_NO_SRV,      SYS_MODE_GSM,        SYS_MODE_GPRS,       SYS_MODE_EDGE,
        SYS_MODE_WCDMA,       SYS_MODE_HSDPA,      SYS_MODE_HSUPA,      SYS_MODE_HSPA,
        SYS_MODE_TD_SCDMA,    SYS_MODE_HSPA_PLUS,  SYS_MODE_EVDO_REV_0, SYS_MODE_EVDO_REV_A,
        SYS_MODE_EVDO_REV_B,  SYS_MODE_1xRTT,      SYS_MODE_UMB,        SYS_MODE_1xEVDV,
        SYS_MODE_3xRTT,       SYS_MODE_HSDPA_ADD,  SYS_MODE_HSUPA_ADD,
    };
    const int count = static_cast<int>(sizeof(kSystemModeOfSubMode) / sizeof(kSystemModeOfSubMode[0]));
    if (iSysSubMode >= 0 && iSysSubMode < count) {
        return kSystemModeOfSubMode[iSysSubMode];
    }
    return iSysSubMode;
}

int MapSystemMode(int iSysMode)
{
    return iSysMode;
}
