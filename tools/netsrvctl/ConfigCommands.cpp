// netsrvctl config, config set and bands: the network configuration and the
// bands the modem offers, read and set through the service.

#include "CommandOutcome.h"
#include "Commands.h"
#include "ConfigView.h"

namespace netsrvctl {

using namespace NETSRV_DATA;

namespace {
// The modem's lists, copied; the service's arrays are handed back at once.
bool ReadOffer(INetSrv* pNetSrv, ModemOffer* pOffer, unsigned long* pdwError)
{
    BandList bands;
    BandList lteBands;
    AcqOrderList acqOrders;
    const bool bRead = pNetSrv->SRVGetBandListEx(&bands, &lteBands, &acqOrders, pdwError);
    if (bRead) {
        pOffer->bands = OfferedBandsOf(bands);
        pOffer->lteBands = OfferedBandsOf(lteBands);
        pOffer->acqOrders = AcqOrdersOf(acqOrders);
    }
    // Releases only the lists that hold something, so a failed read is safe.
    unsigned long dwReleaseError = 0;
    pNetSrv->SRVReleaseBandListEx(&bands, &lteBands, &acqOrders, &dwReleaseError);
    return bRead;
}

// The lists when they are wanted (pbRead: whether they were read). A modem
// without them (a TD-SCDMA modem has none) offers nothing to choose from;
// false when the modem stopped answering, which ends the command.
bool TryOffer(INetSrv* pNetSrv, bool bWanted, ModemOffer* pOffer, bool* pbRead,
              unsigned long* pdwError)
{
    *pbRead = bWanted && ReadOffer(pNetSrv, pOffer, pdwError);
    return *pbRead || !bWanted || StatusOfErrorWord(*pdwError) != EXIT_NO_MODEM;
}

// The configuration as the modem reports it, the text naming its masks from
// the offer (null: the masks alone).
Outcome ConfigOutcome(INetSrv* pNetSrv, const char* pszWhat, const ModemOffer* pOffer)
{
    Outcome outcome;
    NetConfigurationExType config;
    unsigned long dwError = 0;
    if (!pNetSrv->SRVGetNetConfigurationEx(&config, &dwError)) {
        SetFailure(&outcome, pszWhat, dwError);
        return outcome;
    }
    outcome.json = ConfigJson(config);
    outcome.text = ConfigText(config, pOffer);
    return outcome;
}
}  // namespace

ExitStatus RunConfig(ToolHost& host, const OutputOptions& out, std::ostream& os,
                     std::ostream& err)
{
    // Only the text names the masks; without the lists it shows them alone.
    ModemOffer offer;
    bool bNamed = false;
    unsigned long dwError = 0;
    if (!TryOffer(host.NetSrv(), !out.json, &offer, &bNamed, &dwError)) {
        return ReportFailure("config", dwError, out, os, err);
    }
    return Print(ConfigOutcome(host.NetSrv(), "config", bNamed ? &offer : nullptr), out, os,
                 err);
}

ExitStatus RunConfigSet(ToolHost& host, const ConfigChange& change, const OutputOptions& out,
                        std::ostream& os, std::ostream& err)
{
    INetSrv* pNetSrv = host.NetSrv();
    NetConfigurationExType config;
    unsigned long dwError = 0;
    if (!pNetSrv->SRVGetNetConfigurationEx(&config, &dwError)) {
        return ReportFailure("config set", dwError, out, os, err);
    }
    ModemOffer offer;
    bool bOffer = false;
    if (!TryOffer(pNetSrv, change.NeedsOffer() || !out.json, &offer, &bOffer, &dwError)) {
        return ReportFailure("config set", dwError, out, os, err);
    }
    std::string refusal;
    if (!ApplyConfigChange(&config, change, offer, &refusal)) {
        err << "netsrvctl: config set: " << refusal << "\n";
        return EXIT_USAGE;
    }
    if (!pNetSrv->SRVSetNetConfigurationEx(config, &dwError)) {
        return ReportFailure("config set", dwError, out, os, err);
    }
    return Print(ConfigOutcome(pNetSrv, "config set", bOffer ? &offer : nullptr), out, os, err);
}

ExitStatus RunBands(ToolHost& host, const OutputOptions& out, std::ostream& os,
                    std::ostream& err)
{
    ModemOffer offer;
    unsigned long dwError = 0;
    if (!ReadOffer(host.NetSrv(), &offer, &dwError)) {
        return ReportFailure("bands", dwError, out, os, err);
    }
    return Print(Outcome{EXIT_OK, BandsJson(offer), BandsText(offer), ""}, out, os, err);
}

}  // namespace netsrvctl
