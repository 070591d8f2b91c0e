// The network service as the host and its other plugins see it. Operations may
// be called from any number of host threads at once. Query operations return
// false on failure and then write the reason into their trailing error word
// (10001 for a bad argument, otherwise the AT processor's code).
#ifndef INTERFACE_INETSRV_H
#define INTERFACE_INETSRV_H

#include "Interface/IBaseInterface.h"
#include "Interface/IUniCommEvent.h"
#include "Interface/NetSrvDef.h"

// A client function: event identifier (_QIRA_EN_NETSRV_EVENTID) and payload,
// valid only during the call.
typedef bool (*pfnNetSrvCallBack)(int iEvent, void* pData);

// Interface number under which the plugin object hands out INetSrv.
#define INETSRV_INTERFACE_NO 5

// The error word value for a null required pointer.
#define NETSRV_ERROR_BAD_PARAM 10001

class INetSrv : public IBaseInterface {
public:
    virtual void SRVRegisterCallback(pfnNetSrvCallBack pfnCallBack) = 0;
    virtual void SRVUnRegisterCallback(pfnNetSrvCallBack pfnCallBack) = 0;
    virtual void SRVRegisterCallback(IUniCommEvent* pHandler) = 0;
    virtual void SRVUnRegisterCallback(IUniCommEvent* pHandler) = 0;
    virtual bool SRVGetLastErr(NETSRV_DATA::SRV_LAST_ERROR* pLastErr, unsigned long* pdwStatus) = 0;
    virtual bool SRVGetHomePLMN(NETSRV_DATA::PLMNType* pstPlmn, unsigned long* pdwStatus) = 0;
    virtual bool SRVGetPLMNList(unsigned long* pdwStatus) = 0;
    virtual bool SRVGetNetConfiguration(NETSRV_DATA::NetConfigurationType* pstConfig,
                                        unsigned long* pdwStatus) = 0;
    virtual bool SRVGetBandList(NETSRV_DATA::BandList* pstBandList, unsigned long* pdwStatus) = 0;
    virtual bool SRVReleaseBandList(NETSRV_DATA::BandList* pstBandList,
                                    unsigned long* pdwStatus) = 0;
    virtual bool SRVSetNetConfiguration(const NETSRV_DATA::NetConfigurationType& stConfig,
                                        unsigned long* pdwStatus) = 0;
    virtual bool SRVSelectCurPlmn(unsigned long dwMode, const NETSRV_DATA::PLMNType& stPlmn,
                                  unsigned long* pdwStatus) = 0;
    virtual bool SRVGetCurPlmn(unsigned long* pdwMode, NETSRV_DATA::PLMNType* pstPlmn,
                               unsigned long* pdwStatus) = 0;
    virtual bool SRVGetSrvStatus(NETSRV_DATA::SysSrvStatus* penSrvStatus,
                                 unsigned long* pdwStatus) = 0;
    virtual bool SRVSetSrvStatus(NETSRV_DATA::SysSrvStatus enSrvStatus,
                                 unsigned long* pdwStatus) = 0;
    virtual bool SRVGetSystemMode(NETSRV_DATA::SystemMode* penSysMode,
                                  unsigned long* pdwStatus) = 0;
    virtual bool SRVGetCurRSSI(NETSRV_DATA::RSSIType* pstRssi, unsigned long* pdwStatus) = 0;
    virtual bool SRVGetSignalQuality(NETSRV_DATA::Signal* pstSignal, unsigned long* pdwStatus) = 0;
    virtual bool SRVGetHdrRssiInfo(NETSRV_DATA::RSSIType* pstRssi, unsigned long* pdwStatus) = 0;
    virtual bool SRVGetAntennaLevel(NETSRV_DATA::AntennaLevel* pstLevel,
                                    unsigned long* pdwStatus) = 0;
    virtual bool SRVSetCDMAPrefMod(NETSRV_DATA::CdmaPrefMode enMode, unsigned long* pdwStatus) = 0;
    virtual bool SRVGetCDMAPrefMod(NETSRV_DATA::CdmaPrefMode* penMode,
                                   unsigned long* pdwStatus) = 0;
    virtual bool SRVGetRoamStatus(unsigned long* pdwRoam, unsigned long* pdwStatus) = 0;
    virtual bool SRVGetSpnData(NETSRV_DATA::SSpnDataType* pstSpn, unsigned long* pdwStatus) = 0;
    virtual bool SRVGetSrvDomain(unsigned long* pdwDomain, unsigned long* pdwStatus) = 0;
    virtual bool SRVGetHSPAState(NETSRV_DATA::HSPA_MODE enMode, NETSRV_DATA::HSPA_STAT* penStat,
                                 unsigned long* pdwStatus) = 0;
    virtual bool SRVSetHSPAState(NETSRV_DATA::HSPA_MODE enMode, NETSRV_DATA::HSPA_STAT enStat,
                                 unsigned long* pdwStatus) = 0;
    virtual bool SRVGetSysInfo(NETSRV_DATA::SysSrvStatus* penSrvStatus,
                               NETSRV_DATA::SystemMode* penSysMode,
                               NETSRV_DATA::RoamStatus* penRoam, unsigned long* pdwStatus) = 0;
    virtual bool SRVGetPSState(NETSRV_DATA::PSState* penState, unsigned long* pdwStatus) = 0;
    virtual bool SRVSetPSState(NETSRV_DATA::PSState enState, unsigned long* pdwStatus) = 0;
    virtual bool SRVGetPNN(NETSRV_DATA::SPNNInfo* pstPnn, unsigned long* pdwStatus) = 0;
    virtual bool SRVGetPnnList(NETSRV_DATA::SPNNList* pstPnnList, unsigned long* pdwStatus) = 0;
    virtual bool SRVReleasePnnList(NETSRV_DATA::SPNNList* pstPnnList, unsigned long* pdwStatus) = 0;
    virtual bool SRVGetEvdoRevision(NETSRV_DATA::EvdoRevision* penRev, unsigned long* pdwStatus) = 0;
    virtual bool SRVSetEvdoRevision(NETSRV_DATA::EvdoRevision enRev, unsigned long* pdwStatus) = 0;
    virtual bool SRVSetNAM(NETSRV_DATA::NAMMode enMode, unsigned long* pdwStatus) = 0;
    virtual bool SRVGetNAM(NETSRV_DATA::NAMMode& enMode, unsigned long* pdwStatus) = 0;
    virtual bool SRVRegMin(const char* pszMin, unsigned long* pdwStatus) = 0;
    virtual bool SRVGetPrlVer(NETSRV_DATA::SPrlVer* pstPrlVer, unsigned long* pdwStatus) = 0;
    virtual bool SRVGetEFFile(NETSRV_DATA::EFType enType, NETSRV_DATA::EFFile* pstFile,
                              unsigned long* pdwStatus) = 0;
    virtual bool SRVGetKTFSimType(NETSRV_DATA::KTFSimType* penType, unsigned long* pdwStatus) = 0;
    virtual bool SRVGetRowRSSI(NETSRV_DATA::RowRSSI* pstRssi, unsigned long* pdwStatus) = 0;
    virtual bool SRVSetCSRegReport(int iReportMode) = 0;
    virtual bool SRVGetCSRegState(NETSRV_DATA::RegStateReport* pstReport,
                                  unsigned long* pdwStatus) = 0;
    virtual bool SRVSetPSRegReport(int iReportMode) = 0;
    virtual bool SRVGetPSRegState(NETSRV_DATA::RegStateReport* pstReport,
                                  unsigned long* pdwStatus) = 0;
    virtual bool SRVSetLTEPSRegReport(int iReportMode) = 0;
    virtual bool SRVGetLTEPSRegState(NETSRV_DATA::RegStateReport* pstReport,
                                     unsigned long* pdwStatus) = 0;
    virtual bool SRVGetHCSQRssi(int* piRssi) = 0;
    virtual bool SRVGetGprsState(NETSRV_DATA::PSState& enState) = 0;
    virtual bool SRVGetSystemInfo(NETSRV_DATA::SystemInfo& rSysInfo) = 0;
    virtual bool SRVGetSystemInfoEx(NETSRV_DATA::SystemInfo& rSysInfo) = 0;
    virtual bool SRVGetPLMNControlMode(NETSRV_DATA::UPLMN_MODE* penMode) = 0;
    virtual bool SRVSetPLMNControlMode(NETSRV_DATA::UPLMN_MODE enMode) = 0;
    // The SIM's preferred operators ("+CPOL?"), one row per line the modem
    // gave, in an array the service allocates into pstUPLMN; size is not
    // written. The rows end at the first row whose index is empty: the array
    // always holds one such row after the last operator. Hand the list back
    // through SRVReleasePLMNPreferList.
    virtual bool SRVGetPLMNPreferList(NETSRV_DATA::UPLMNList* pstList) = 0;
    virtual bool SRVReleasePLMNPreferList(NETSRV_DATA::UPLMNList* pstList) = 0;
    virtual bool SRVSetPLMNPreferInfo(NETSRV_DATA::UPLMNInfo& stInfo) = 0;
    virtual bool SRVGetDynamicIP(const char* pszReserved, const char* pszParam, char* pszBuffer,
                                 int iSize) = 0;
    virtual bool SRVGetDynamicDNS(const char* pszReserved, const char* pszParam, char* pszBuffer,
                                  int iSize) = 0;
    virtual bool SRVGetNetConfigurationEx(NETSRV_DATA::NetConfigurationExType* pstConfig,
                                          unsigned long* pdwStatus) = 0;
    virtual bool SRVSetNetConfigurationEx(const NETSRV_DATA::NetConfigurationExType& stConfig,
                                          unsigned long* pdwStatus) = 0;
    virtual bool SRVGetBandListEx(NETSRV_DATA::BandList* pstBandList,
                                  NETSRV_DATA::BandList* pstLteBandList,
                                  NETSRV_DATA::AcqOrderList* pstAcqOrderList,
                                  unsigned long* pdwStatus) = 0;
    virtual bool SRVReleaseBandListEx(NETSRV_DATA::BandList* pstBandList,
                                      NETSRV_DATA::BandList* pstLteBandList,
                                      NETSRV_DATA::AcqOrderList* pstAcqOrderList,
                                      unsigned long* pdwStatus) = 0;
    virtual bool SRVGetLteSignalQuality(LteSignal* pstSignal, unsigned long* pdwStatus) = 0;
    virtual bool SRVGetLteScInfo(LteScInfo* pstInfo, unsigned long* pdwStatus) = 0;
    virtual bool SRVGetDynamicIP6(const char* pszReserved, const char* pszParam, char* pszBuffer,
                                  int iSize) = 0;
    virtual bool SRVGetCurrNetworkID(CURRNETWORKIDINFO* pstInfo, unsigned long* pdwStatus) = 0;
};

#endif
