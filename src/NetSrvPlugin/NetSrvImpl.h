// The network service: the one object behind INetSrv. Its operations may be
// called from any number of host threads at once; the AT processor serialises
// the modem line, and the five locks below guard the service's own state (the
// only nesting is m_lockerATCBFun before m_lockerCallBackFun).
#ifndef NETSRVPLUGIN_NETSRVIMPL_H
#define NETSRVPLUGIN_NETSRVIMPL_H

#include <atomic>
#include <ctime>
#include <list>
#include <string>
#include <vector>

#include "AtCodec/CmdDef.h"
#include "AtCodec/IAtCallBack.h"
#include "AtCodec/IProcessor.h"
#include "Interface/IDeviceMgrEvent.h"
#include "Interface/INetSrv.h"
#include "Interface/IPluginContainer.h"
#include "Interface/IUniCommEvent.h"
#include "jmutex.h"
#include "jthreadt.h"
#include "NetSrvBandList.h"
#include "NetSrvOnFailure.h"
#include "NetSrvPnnName.h"

// One "+COPS" reading of the registered operator: the name field that
// matches the format in force is the one filled.
struct PlmnInfo {
    DWORD dwNetMode = 0;
    int nRat = 0;
    std::string strPlmnId;
    std::string strShortName;
    std::string strFullName;
};

class ReadSpnRsp;
enum EnumQuerySpnSimType : int;

class CNetSrvImpl : public INetSrv, public IAtCallBack, public IUniCommEvent,
                    public IDeviceMgrEvent {
public:
    CNetSrvImpl();
    CNetSrvImpl(const CNetSrvImpl&) = delete;
    CNetSrvImpl& operator=(const CNetSrvImpl&) = delete;

    // IBaseInterface
    void Release() override;
    int GetLastError() override;

    // INetSrv, in slot order
    void SRVRegisterCallback(pfnNetSrvCallBack pfnCallBack) override;
    void SRVUnRegisterCallback(pfnNetSrvCallBack pfnCallBack) override;
    void SRVRegisterCallback(IUniCommEvent* pHandler) override;
    void SRVUnRegisterCallback(IUniCommEvent* pHandler) override;
    bool SRVGetLastErr(NETSRV_DATA::SRV_LAST_ERROR* pLastErr, unsigned long* pdwStatus) override;
    bool SRVGetHomePLMN(NETSRV_DATA::PLMNType* pstPlmn, unsigned long* pdwStatus) override;
    bool SRVGetPLMNList(unsigned long* pdwStatus) override;
    bool SRVGetNetConfiguration(NETSRV_DATA::NetConfigurationType* pstConfig,
                                unsigned long* pdwStatus) override;
    bool SRVGetBandList(NETSRV_DATA::BandList* pstBandList, unsigned long* pdwStatus) override;
    bool SRVReleaseBandList(NETSRV_DATA::BandList* pstBandList, unsigned long* pdwStatus) override;
    bool SRVSetNetConfiguration(const NETSRV_DATA::NetConfigurationType& stConfig,
                                unsigned long* pdwStatus) override;
    bool SRVSelectCurPlmn(unsigned long dwMode, const NETSRV_DATA::PLMNType& stPlmn,
                          unsigned long* pdwStatus) override;
    bool SRVGetCurPlmn(unsigned long* pdwMode, NETSRV_DATA::PLMNType* pstPlmn,
                       unsigned long* pdwStatus) override;
    bool SRVGetSrvStatus(NETSRV_DATA::SysSrvStatus* penSrvStatus,
                         unsigned long* pdwStatus) override;
    bool SRVSetSrvStatus(NETSRV_DATA::SysSrvStatus enSrvStatus, unsigned long* pdwStatus) override;
    bool SRVGetSystemMode(NETSRV_DATA::SystemMode* penSysMode, unsigned long* pdwStatus) override;
    bool SRVGetCurRSSI(NETSRV_DATA::RSSIType* pstRssi, unsigned long* pdwStatus) override;
    bool SRVGetSignalQuality(NETSRV_DATA::Signal* pstSignal, unsigned long* pdwStatus) override;
    bool SRVGetHdrRssiInfo(NETSRV_DATA::RSSIType* pstRssi, unsigned long* pdwStatus) override;
    bool SRVGetAntennaLevel(NETSRV_DATA::AntennaLevel* pstLevel, unsigned long* pdwStatus) override;
    bool SRVSetCDMAPrefMod(NETSRV_DATA::CdmaPrefMode enMode, unsigned long* pdwStatus) override;
    bool SRVGetCDMAPrefMod(NETSRV_DATA::CdmaPrefMode* penMode, unsigned long* pdwStatus) override;
    bool SRVGetRoamStatus(unsigned long* pdwRoam, unsigned long* pdwStatus) override;
    bool SRVGetSpnData(NETSRV_DATA::SSpnDataType* pstSpn, unsigned long* pdwStatus) override;
    bool SRVGetSrvDomain(unsigned long* pdwDomain, unsigned long* pdwStatus) override;
    bool SRVGetHSPAState(NETSRV_DATA::HSPA_MODE enMode, NETSRV_DATA::HSPA_STAT* penStat,
                         unsigned long* pdwStatus) override;
    bool SRVSetHSPAState(NETSRV_DATA::HSPA_MODE enMode, NETSRV_DATA::HSPA_STAT enStat,
                         unsigned long* pdwStatus) override;
    bool SRVGetSysInfo(NETSRV_DATA::SysSrvStatus* penSrvStatus, NETSRV_DATA::SystemMode* penSysMode,
                       NETSRV_DATA::RoamStatus* penRoam, unsigned long* pdwStatus) override;
    bool SRVGetPSState(NETSRV_DATA::PSState* penState, unsigned long* pdwStatus) override;
    bool SRVSetPSState(NETSRV_DATA::PSState enState, unsigned long* pdwStatus) override;
    bool SRVGetPNN(NETSRV_DATA::SPNNInfo* pstPnn, unsigned long* pdwStatus) override;
    bool SRVGetPnnList(NETSRV_DATA::SPNNList* pstPnnList, unsigned long* pdwStatus) override;
    bool SRVReleasePnnList(NETSRV_DATA::SPNNList* pstPnnList, unsigned long* pdwStatus) override;
    bool SRVGetEvdoRevision(NETSRV_DATA::EvdoRevision* penRev, unsigned long* pdwStatus) override;
    bool SRVSetEvdoRevision(NETSRV_DATA::EvdoRevision enRev, unsigned long* pdwStatus) override;
    bool SRVSetNAM(NETSRV_DATA::NAMMode enMode, unsigned long* pdwStatus) override;
    bool SRVGetNAM(NETSRV_DATA::NAMMode& enMode, unsigned long* pdwStatus) override;
    bool SRVRegMin(const char* pszMin, unsigned long* pdwStatus) override;
    bool SRVGetPrlVer(NETSRV_DATA::SPrlVer* pstPrlVer, unsigned long* pdwStatus) override;
    bool SRVGetEFFile(NETSRV_DATA::EFType enType, NETSRV_DATA::EFFile* pstFile,
                      unsigned long* pdwStatus) override;
    bool SRVGetKTFSimType(NETSRV_DATA::KTFSimType* penType, unsigned long* pdwStatus) override;
    bool SRVGetRowRSSI(NETSRV_DATA::RowRSSI* pstRssi, unsigned long* pdwStatus) override;
    bool SRVSetCSRegReport(int iReportMode) override;
    bool SRVGetCSRegState(NETSRV_DATA::RegStateReport* pstReport, unsigned long* pdwStatus) override;
    bool SRVSetPSRegReport(int iReportMode) override;
    bool SRVGetPSRegState(NETSRV_DATA::RegStateReport* pstReport, unsigned long* pdwStatus) override;
    bool SRVSetLTEPSRegReport(int iReportMode) override;
    bool SRVGetLTEPSRegState(NETSRV_DATA::RegStateReport* pstReport,
                             unsigned long* pdwStatus) override;
    bool SRVGetHCSQRssi(int* piRssi) override;
    bool SRVGetGprsState(NETSRV_DATA::PSState& enState) override;
    bool SRVGetSystemInfo(NETSRV_DATA::SystemInfo& rSysInfo) override;
    bool SRVGetSystemInfoEx(NETSRV_DATA::SystemInfo& rSysInfo) override;
    bool SRVGetPLMNControlMode(NETSRV_DATA::UPLMN_MODE* penMode) override;
    bool SRVSetPLMNControlMode(NETSRV_DATA::UPLMN_MODE enMode) override;
    bool SRVGetPLMNPreferList(NETSRV_DATA::UPLMNList* pstList) override;
    bool SRVReleasePLMNPreferList(NETSRV_DATA::UPLMNList* pstList) override;
    bool SRVSetPLMNPreferInfo(NETSRV_DATA::UPLMNInfo& stInfo) override;
    bool SRVGetDynamicIP(const char* pszReserved, const char* pszParam, char* pszBuffer,
                         int iSize) override;
    bool SRVGetDynamicDNS(const char* pszReserved, const char* pszParam, char* pszBuffer,
                          int iSize) override;
    bool SRVGetNetConfigurationEx(NETSRV_DATA::NetConfigurationExType* pstConfig,
                                  unsigned long* pdwStatus) override;
    bool SRVSetNetConfigurationEx(const NETSRV_DATA::NetConfigurationExType& stConfig,
                                  unsigned long* pdwStatus) override;
    bool SRVGetBandListEx(NETSRV_DATA::BandList* pstBandList, NETSRV_DATA::BandList* pstLteBandList,
                          NETSRV_DATA::AcqOrderList* pstAcqOrderList,
                          unsigned long* pdwStatus) override;
    bool SRVReleaseBandListEx(NETSRV_DATA::BandList* pstBandList,
                              NETSRV_DATA::BandList* pstLteBandList,
                              NETSRV_DATA::AcqOrderList* pstAcqOrderList,
                              unsigned long* pdwStatus) override;
    bool SRVGetLteSignalQuality(LteSignal* pstSignal, unsigned long* pdwStatus) override;
    bool SRVGetLteScInfo(LteScInfo* pstInfo, unsigned long* pdwStatus) override;
    bool SRVGetDynamicIP6(const char* pszReserved, const char* pszParam, char* pszBuffer,
                          int iSize) override;
    bool SRVGetCurrNetworkID(CURRNETWORKIDINFO* pstInfo, unsigned long* pdwStatus) override;

    // Unsubscribes, waits for a running operator search (up to 240 s) and for
    // the report thread (up to 5 s); a thread that outlives its wait is killed.
    ~CNetSrvImpl() override;

    // IAtCallBack: the report dispatcher; serialised by m_lockerATCBFun.
    bool AtCallBackEvent(const Command& cmd) override;
    // IUniCommEvent: delivers one event to the registered client objects.
    bool OnUniCommEvent(DWORD dwEvent, void* pData) override;
    // IDeviceMgrEvent: a lost device makes the next system-information read go
    // to the modem.
    bool OnDeviceMgrEvent(DWORD dwEvent, void* pData) override;

    // The refresh throttle of the system-information readers: true (and the
    // clock restarted) when the last refresh is 5 seconds old or more.
    bool IsGetSystemInfo();
    void GetCurrentConnectDeviceName(std::string& name);

    // The host's AT processor, looked up anew on every call; null if none.
    IProcessor* GetAtProcessor();

    // Delivers one event to every client function, then every client object.
    // An event without a payload is never delivered.
    bool SendCallBackFuns(DWORD dwEvent, void* pData);

    // Subscription of the service's reports with the AT processor.
    bool RegATCallBack();
    bool UnRegATCallBack();

    // Queues a report that the service made itself for the report thread.
    void ReportAtCallBackEvent(Command& cmd);

    // One "^HCSQ" reading: every line the modem gave, by its system. Not part
    // of INetSrv; the signal queries share it.
    bool SRVGetHCSQInfo(NETSRV_DATA::HCSQ_INFO* pHCSQInfo);

    // True while the service is subscribed with the AT processor.
    bool IsRegisteredWithProcessor() const { return m_bRegATSuccess; }

private:
    // Body of the report thread: one queued report every 200 ms until stopped.
    void ATCallbackThread();
    // Body of the domain-check thread: one fresh system-information reading,
    // whose change reports reach the clients through the report queue.
    void DomainChangedCallback();

    // The two system-information reads; both hold m_LockSysInfo throughout and
    // queue a synthetic report when the domain or the service status changed.
    // "^SYSINFOEX", served from m_Sysinfo while it is younger than 5 seconds.
    bool GetSystemInfoEx(NETSRV_DATA::SystemInfo& rSysInfo);
    // "^SYSINFO", always from the modem; its modes are mapped to the Ex numbering.
    bool GetSystemInfo(NETSRV_DATA::SystemInfo& rSysInfo);
    // What both readings do with a fresh answer: a "^SYSINFO" report of these
    // fields is queued when the domain changed and a "^SRVST" report when the
    // service status did, then status, domain, roaming and SIM state are
    // stored. The traces ("<reader>: AtCallBackEvent INDEX_SYS_INFO", "...
    // INDEX_SERV_IND", "<reader>: Begin GetNumValue") name the reading.
    // Under m_LockSysInfo.
    void TakeInReading(const char* pszReader, int32_t iSrvStatus, int32_t iDomain, int32_t iRoam,
                       int32_t iSimState, const ParamList& vctSysInfoFields);

    // The two HSPA switches, one command each; a failure's code is the
    // service's last error.
    bool GetHSDPAState(NETSRV_DATA::HSPA_STAT* penState);
    bool GetHSUPAState(NETSRV_DATA::HSPA_STAT* penState);
    bool SetHSDPAState(NETSRV_DATA::HSPA_STAT enState);
    bool SetHSUPAState(NETSRV_DATA::HSPA_STAT enState);

    // The signal-bar percentage by radio; each falls back to older commands
    // when "^HCSQ" fails.
    bool GetCurrentLteSignalPer(int& iPer);
    bool GetCurrentTDSignalPer(int& iPer);
    bool GetCurrentGWSignalPer(int& iPer);
    bool GetCurrentCDMAMODESignalPer(int& iPer);

    // Body of the operator-search thread: "+COPS=?" without a response (its
    // lines reach the report dispatcher); a failed search reports an empty list.
    void GetPlmnListProc();
    // "+COPS=3,<format>": the name format of later "+COPS?" readings.
    bool SetReadPlmnFormat(NETSRV_DATA::EnumPlmnFormat enFormat);
    // One "+COPS?" reading.
    bool GetCrntPlmn(PlmnInfo& stInfo);

    // The ICCID (digit pairs swapped into text) and the subscriber number
    // (the record's hexadecimal text, and whether it is used); the caller's
    // word gets a failure's code.
    bool GetIccid(NETSRV_DATA::EFFile* pstFile, unsigned long* pdwStatus);
    bool GetMsisdn(NETSRV_DATA::EFFile* pstFile, unsigned long* pdwStatus);
    // The SIM's OPL rows and decoded PNN records ("^OPL", "^PNN").
    bool GetOPLList(std::vector<OplInfo>& vctOpl);
    bool GetPlmnNetworkNamenList(std::vector<PmnInfo>& vctPnn);
    // The service provider name: "^SPN" for a 3GPP or a CDMA device (two
    // kinds of storage each), the SIM's SPN file when "^SPN" is missing.
    bool Get3gppSpn(NETSRV_DATA::SSpnDataType* pstSpn, unsigned long* pdwStatus);
    bool GetCdmaSpn(NETSRV_DATA::SSpnDataType* pstSpn);
    bool ReadSpn(EnumQuerySpnSimType enStorage, ReadSpnRsp& rsp, unsigned long& dwCode);
    bool TakeSpn(NETSRV_DATA::SSpnDataType* pstSpn, ReadSpnRsp& rsp);
    bool TakeCdmaSpn(NETSRV_DATA::SSpnDataType* pstSpn, ReadSpnRsp& rsp);
    bool GetSpnByStdAT(NETSRV_DATA::SSpnDataType* pstSpn);

    // The network configuration's extended reading and setting ("^SYSCFGEX")
    // and its test form, alone; the public operations fall back to the older
    // command when these fail. A TD-SCDMA device fails the first two at once,
    // without a code.
    bool GetNetConfigurationEx(NETSRV_DATA::NetConfigurationExType* pstConfig,
                               unsigned long* pdwStatus);
    bool SetNetConfigurationEx(const NETSRV_DATA::NetConfigurationExType& stConfig,
                               unsigned long* pdwStatus);
    bool GetBandListEx(NETSRV_DATA::BandList* pstBandList, NETSRV_DATA::BandList* pstLteBandList,
                       NETSRV_DATA::AcqOrderList* pstAcqOrderList, unsigned long* pdwStatus);
    // Between the extended record and the older one: acquisition text to mode
    // and order, and back. Only those fields are touched, and only when the
    // text (or the pair) is one the older command can express.
    void SRVTransformSyscfgexStruct(const NETSRV_DATA::NetConfigurationExType& stConfigEx,
                                    NETSRV_DATA::NetConfigurationType& stConfig);
    void SRVTransformSyscfgStruct(const NETSRV_DATA::NetConfigurationType& stConfig,
                                  NETSRV_DATA::NetConfigurationExType& stConfigEx);
    // The checks before a configuration reading or setting: false (traced, no
    // word written) without an AT processor or a device service; otherwise
    // the device's kind.
    bool DeviceKindForConfiguration(int& iKind);
    // A band group of the test form into one of the service's band lists and
    // the caller's copy of it; nothing changes when the group has no item.
    bool TakeBandGroup(const std::string& strGroup, NETSRV_DATA::BandList& stMember,
                       NETSRV_DATA::BandList& stCallers);

    // ---- The road of every command to the modem ----------------------------
    //
    // The rule for an operation, new ones included:
    //  1. OutputsUsable (NetSrvOutputs.h) checks the error word and the outputs
    //     (a setting with only an error word checks that for null itself);
    //  2. the command object and its response are built (on the stack, unless
    //     the operation's contract says otherwise) and the parameters set;
    //  3. one of the Execute helpers below runs it with the operation's time-out
    //     (kCommandTimeoutMs unless the contract names another); its OnFailure
    //     says where a failure's code goes and what is traced;
    //  4. the answer is copied out.
    // For example:
    //     GetAntennaLevelCmdEx cmd;
    //     GetAntennaLevelCmdRspEx rsp;
    //     if (!ExecuteWithResponse(cmd, rsp, OnFailure(pdwStatus).Trace("... error"))) {
    //         return false;
    //     }
    //     pstLevel->wLevel = static_cast<uint16_t>(rsp.level.GetNumValue());
    // How an operation's contract reads, and its OnFailure:
    //     service word, caller gets GetLastError()   OnFailure(pdwStatus)
    //     caller's word, then GetLastError()          OnFailure(pdwStatus)
    //     caller's word, nothing copied               OnFailure(pdwStatus).CallerWordOnly()
    //     service word only, or no error word at all  OnFailure()
    //     own text for a missing processor            .NoProcessorTrace("...")
    //     acts on the code of the failure             OnFailure(&dwCode), a word of its own
    // A getter of one command and a setter of one parameter are a line each
    // through QueryOne and SetOne.
    // An operation that derives its answer from another reading ends that
    // reading's failure with FailWithLastError; one that must know whether a
    // processor is there before it picks a fall-back asks HasAtProcessor.
    // Only the Execute helpers run commands (the subscription of the reports
    // in NetSrvCallbacks.cpp is the one other user of the processor).

    // Every command waits this long for the modem unless its operation says otherwise.
    static constexpr unsigned long kCommandTimeoutMs = 30000;

    // Execute with a response object, with the lines of a multi-line answer,
    // or without a response (settings, and the operator search whose lines
    // arrive as reports). False when the processor is missing (its trace is
    // written, no word is touched) or the command failed (as OnFailure says).
    bool ExecuteWithResponse(ICommand& cmd, ICommand& rsp, const OnFailure& failure,
                             unsigned long ulTimeoutMs = kCommandTimeoutMs);
    bool ExecuteWithLines(ICommand& cmd, IMultiResponse& lines, const OnFailure& failure,
                          unsigned long ulTimeoutMs = kCommandTimeoutMs);
    bool ExecuteNoResponse(ICommand& cmd, const OnFailure& failure,
                           unsigned long ulTimeoutMs = kCommandTimeoutMs);
    // The single-command reading of the small getters: Cmd goes out, copy
    // takes Rsp's answer, and pszSuccess (if any) is traced at iSuccessLevel.
    template <typename Cmd, typename Rsp, typename Copy>
    bool QueryOne(const OnFailure& failure, Copy copy, const char* pszSuccess = nullptr,
                  int iSuccessLevel = TL_ERRO)
    {
        Cmd cmd;
        Rsp rsp;
        if (!ExecuteWithResponse(cmd, rsp, failure)) {
            return false;
        }
        copy(rsp);
        if (pszSuccess != nullptr) {
            NetSrvTrace(iSuccessLevel, pszSuccess);
        }
        return true;
    }
    // The single-command setting of the small setters: Cmd's one parameter
    // set to uValue and sent without a response.
    template <typename Cmd, typename Param>
    bool SetOne(Param Cmd::*pParam, uint64 uValue, const OnFailure& failure)
    {
        Cmd cmd;
        cmd.*pParam = uValue;
        return ExecuteNoResponse(cmd, failure);
    }
    // The common part of the three: finds the processor, runs the call with a
    // fresh error word and settles a failure.
    template <typename Call>
    bool Execute(const OnFailure& failure, Call call);
    // True when the container has an AT processor; traces its absence. For
    // operations that must know before they choose between fall-backs. The
    // processor is looked up again for each command (the host may replace it),
    // so one that vanishes in between fails that command as missing.
    bool HasAtProcessor();
    // The getters of one field of the system information (cached up to 5 s):
    // the field into *pOut, or FailWithLastError with pszFailure. Defined
    // beside them in NetSrvSysInfo.cpp, their only users.
    template <typename Out>
    bool CopySystemInfoField(Out* pOut, int32_t NETSRV_DATA::SystemInfo::*pField,
                             unsigned long* pdwStatus, const char* pszFailure);
    // The end of an operation whose reading failed: GetLastError() into the
    // caller's word, the message (if any) traced at TL_ERRO; always false.
    bool FailWithLastError(unsigned long* pdwStatus, const char* pszMessage = nullptr);

    // Written by whichever query failed last, on any host thread.
    std::atomic<unsigned long> m_dwLastError;
    NETSRV_DATA::BandList m_stBandList;
    NETSRV_DATA::BandList m_stLteBandList;
    NETSRV_DATA::AcqOrderList m_stAcqOrderList;
    // Arrays of the lists above that a newer query replaced while a client
    // could still hold them; freed with the service.
    RetiredArrays<NETSRV_DATA::BandList> m_vctRetiredBandArrays;
    RetiredArrays<NETSRV_DATA::AcqOrderList> m_vctRetiredAcqOrderArrays;
    NETSRV_DATA::SystemInfo m_Sysinfo;
    NETSRV_DATA::SPNNList m_stPnnList;
    // Flags read and written without a lock; atomic so that the threads that
    // share them see each other's writes.
    std::atomic<bool> m_bRegATSuccess;
    bool m_bInitAtCGREG;
    unsigned long m_iPrvATIndex;
    std::atomic<bool> m_bStopThread;
    std::vector<pfnNetSrvCallBack> m_pVctfnCallback;
    JMutex m_lockerCallBackFun;
    JThreadT<CNetSrvImpl, void> m_ThreadGetPlmnList;
    JThreadT<CNetSrvImpl, void> m_CheckDomainChangedThread;
    std::list<IUniCommEvent*> m_listNetSrvEventHandle;
    std::atomic<IPluginContainer*> m_pContainer;
    JMutex m_lockerATCBFun;
    JMutex m_lockerPlmnFun;
    JMutex m_LockCmd;
    std::list<Command> m_lstCmdBuffer;
    JThreadT<CNetSrvImpl, void> m_ATCallbackThread;
    std::atomic<time_t> m_BaseTime;
    struct tm* m_formatTime;
    JMutex m_LockSysInfo;
};

#endif
