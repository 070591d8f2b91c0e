// netsrvctl cdma: a CDMA modem's settings, read and set through the service.

#include <nlohmann/json.hpp>

#include "CdmaView.h"
#include "CommandOutcome.h"
#include "Commands.h"
#include "OutputText.h"
#include "TextColumns.h"

namespace netsrvctl {

using namespace NETSRV_DATA;

ExitStatus RunCdma(ToolHost& host, const OutputOptions& out, std::ostream& os, std::ostream& err)
{
    INetSrv* pNetSrv = host.NetSrv();
    ReadSeries reads;
    CdmaReadings readings;
    CdmaPrefMode enPrefMode = CDMA_PREF_MODE_UNKNOW;
    if (reads.Try([&](unsigned long* e) { return pNetSrv->SRVGetCDMAPrefMod(&enPrefMode, e); })) {
        readings.prefMode = enPrefMode;
    }
    EvdoRevision enRevision = EVDO_REVA;
    if (reads.Try([&](unsigned long* e) { return pNetSrv->SRVGetEvdoRevision(&enRevision, e); })) {
        readings.evdoRevision = enRevision;
    }
    NAMMode enNam = NAM_MODE_FIRST;
    if (reads.Try([&](unsigned long* e) { return pNetSrv->SRVGetNAM(enNam, e); })) {
        readings.nam = enNam;
    }
    SPrlVer prl;
    if (reads.Try([&](unsigned long* e) { return pNetSrv->SRVGetPrlVer(&prl, e); })) {
        readings.prlVersion = FieldText(prl.szPrlVer, sizeof(prl.szPrlVer));
    }
    CURRNETWORKIDINFO network;
    if (reads.Try([&](unsigned long* e) { return pNetSrv->SRVGetCurrNetworkID(&network, e); })) {
        readings.network = network;
    }
    KTFSimType enSimType = KTF_SIM_TYPE_UNKNOW;
    if (reads.Try([&](unsigned long* e) { return pNetSrv->SRVGetKTFSimType(&enSimType, e); })) {
        readings.simType = enSimType;
    }

    return ReadingsDone(reads, reads.AnyRead(), "cdma", CdmaJson(readings), CdmaText(readings),
                        out, os, err);
}

ExitStatus RunCdmaSet(ToolHost& host, CdmaSetting setting, int value, const OutputOptions& out,
                      std::ostream& os, std::ostream& err)
{
    INetSrv* pNetSrv = host.NetSrv();
    unsigned long dwError = 0;
    bool bSet = false;
    CdmaReadings readings;
    switch (setting) {
    case CdmaSetting::PrefMode:
        bSet = pNetSrv->SRVSetCDMAPrefMod(static_cast<CdmaPrefMode>(value), &dwError);
        readings.prefMode = value;
        break;
    case CdmaSetting::EvdoRevision:
        bSet = pNetSrv->SRVSetEvdoRevision(static_cast<EvdoRevision>(value), &dwError);
        readings.evdoRevision = value;
        break;
    case CdmaSetting::Nam:
        bSet = pNetSrv->SRVSetNAM(static_cast<NAMMode>(value), &dwError);
        readings.nam = value;
        break;
    }
    return SettingDone(bSet, dwError, "cdma set", CdmaJson(readings), CdmaText(readings, false),
                       out, os, err);
}

ExitStatus RunRegisterMin(ToolHost& host, const std::string& min, const OutputOptions& out,
                          std::ostream& os, std::ostream& err)
{
    unsigned long dwError = 0;
    const bool bSet = host.NetSrv()->SRVRegMin(min.c_str(), &dwError);
    return SettingDone(bSet, dwError, "cdma register-min", {{"registered_min", min}},
                       LabelledLine("registered MIN", min), out, os, err);
}

}  // namespace netsrvctl
