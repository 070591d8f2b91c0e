// netsrvctl: the command-line host of the network-service plugin. It loads the
// plugin as the desktop application does, on a real modem or on the built-in
// simulator, and answers the service's queries.

#include <CLI/CLI.hpp>

#include <climits>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "AcquisitionOrder.h"
#include "Commands.h"
#include "OptionChecks.h"
#include "SerialPort.h"
#include "SimulateArgument.h"
#include "ToolHost.h"
#include "TraceSrv.h"

using namespace netsrvctl;

namespace {

// The trace service's default sink shows messages up to this level (0: none).
void SetTraceLevel(int level)
{
    setenv("NETSRV_TRACE_LEVEL", std::to_string(level).c_str(), 1);
    TraceSrv_SetSink(nullptr, nullptr);
}

}  // namespace

int main(int argc, char** argv)
{
    CLI::App app{"netsrvctl: query the network service of a mobile-broadband modem, or of the "
                 "built-in modem simulator. Without a command: status, then signal."};
    app.require_subcommand(0, 1);
    // The tool's options also work after the command: "netsrvctl --simulate signal --json".
    app.fallthrough();

    HostOptions host;
    OutputOptions output;
    int traceLevel = 0;
    auto* pDevice = app.add_option("--device", host.devicePath,
                                   "the modem's AT port, e.g. /dev/ttyUSB2");
    auto* pSimulate =
        app.add_option("--simulate", host.profile,
                       "run against the built-in simulator; PROFILE is lte (the default), wcdma, "
                       "tdscdma, cdma or a profile file")
            ->expected(0, 1);
    pDevice->excludes(pSimulate);
    app.add_option("--device-kind", host.deviceKind, "the modem's kind instead of probing it")
        ->check(CLI::IsMember({"gsm", "cdma", "td-scdma"}));
    app.add_option("--baud", host.baud, "line speed of the AT port (default 115200)")
        ->check(CLI::Validator(
            [](std::string& value) -> std::string {
                int baud = 0;
                try {
                    baud = std::stoi(value);
                } catch (...) {
                    return "not a number: " + value;
                }
                return host::BaudConstant(baud) != 0 ? "" : "unsupported line speed " + value;
            },
            "BAUD"));
    app.add_flag("--json", output.json, "print JSON, one object a line");
    app.add_option("--trace", traceLevel,
                   "show the plugin's traces up to LEVEL (1 alarms, 2 failures, 3 warnings, "
                   "4 everything)")
        ->check(CLI::Range(0, 4));
    app.add_option("--plugin", host.pluginPath, "the plugin library to load");

    auto* pInfo = app.add_subcommand("plugin-info", "the identity of the plugin object");
    unsigned long lastErrType = 0;
    auto* pLastErr = app.add_subcommand("lasterr", "the modem's last error of a kind");
    pLastErr->add_option("TYPE", lastErrType, "which kind of last error, 0 to 255 (default 0)")
        ->check(WholeNumberIn(0, 255, "must be a whole number from 0 to 255"));
    auto* pAddress =
        app.add_subcommand("address", "IPv4, DNS and IPv6 addresses of the current data link");
    auto* pStatus = app.add_subcommand(
        "status", "service status, domain, roaming, system mode and sub-mode, SIM state");
    auto* pSignal = app.add_subcommand(
        "signal", "signal bar, +CSQ rssi/ber, RSCP/Ec-Io, LTE RSRP/RSRQ/SINR, antenna level, "
                  "EV-DO signal");
    MonitorOptions monitor;
    auto* pMonitor = app.add_subcommand(
        "monitor", "print the service's events as they arrive");
    pMonitor->add_option("--count", monitor.count, "stop after N lines; 0 (the default): no limit")
        ->type_name("N")
        ->check(WholeNumberIn(0, INT_MAX, "must be a whole number, 0 or more"));
    pMonitor
        ->add_option("--timeout", monitor.timeoutS,
                     "stop after S seconds; 0 (the default): no limit")
        ->type_name("S")
        ->check(Seconds("must be a number of seconds, 0 or more"));
    pMonitor->add_flag("--raw", monitor.raw,
                       "also print the modem's reports as the service receives them");

    auto* pRegistration = app.add_subcommand(
        "registration", "registration state of the CS, PS and EPS domains (report mode, state, "
                        "area and cell) and the packet attach state");
    pRegistration->require_subcommand(0, 1);
    std::string regDomain;
    std::string regMode;
    auto* pRegReport = pRegistration->add_subcommand(
        "report", "switch a domain's registration reports: 0 none, 1 the state, 2 the state and "
                  "the location");
    pRegReport->add_option("DOMAIN", regDomain, "cs, ps or eps")
        ->required()
        ->check(OneOfWords(DomainWords()));
    pRegReport->add_option("MODE", regMode, "0, 1 or 2")
        ->required()
        ->check(OneOfWords(ReportModeWords()));
    auto* pAttach = app.add_subcommand("attach", "attach to the packet domain");
    auto* pDetach = app.add_subcommand("detach", "detach from the packet domain");
    std::string hspaSwitch;
    std::string hspaState;
    auto* pHspa = app.add_subcommand(
        "hspa", "the HSDPA and HSUPA switches; \"hspa dpa|upa on|off\" turns one on or off");
    auto* pHspaSwitch = pHspa->add_option("SWITCH", hspaSwitch, "dpa or upa, to set one")
                            ->check(OneOfWords(HspaSwitchWords()));
    auto* pHspaState =
        pHspa->add_option("STATE", hspaState, "on or off")->check(OneOfWords(OnOffWords()));
    pHspaSwitch->needs(pHspaState);
    auto* pCdma = app.add_subcommand(
        "cdma", "CDMA settings: preferred mode, EV-DO revision, NAM, PRL version, SID/NID/subnet, "
                "card type");
    pCdma->require_subcommand(0, 1);
    auto* pCdmaSet = pCdma->add_subcommand("set", "change a CDMA setting");
    // Checked after parsing, so that the message can name the settings.
    pCdmaSet->require_subcommand(0, 1);
    std::string cdmaValue;
    auto* pSetPrefMode = pCdmaSet->add_subcommand("pref-mode", "the preferred mode");
    pSetPrefMode->add_option("MODE", cdmaValue, "cdma (1X only), evdo (EV-DO only) or hybrid")
        ->required()
        ->check(OneOfWords(PrefModeWords()));
    auto* pSetEvdoRev = pCdmaSet->add_subcommand("evdo-rev", "the EV-DO revision");
    pSetEvdoRev->add_option("REV", cdmaValue, "0, A or B")
        ->required()
        ->check(OneOfWords(EvdoRevisionWords()));
    auto* pSetNam = pCdmaSet->add_subcommand("nam", "the NAM in use");
    pSetNam->add_option("NAM", cdmaValue, "1 or 2")->required()->check(OneOfWords(NamWords()));
    std::string min;
    auto* pRegisterMin = pCdma->add_subcommand("register-min", "register a MIN with the modem");
    pRegisterMin->add_option("MIN", min, "the MIN, 10 digits, or the IMSI_M, 15 digits")
        ->required()
        ->check(MinNumber());

    auto* pConfig = app.add_subcommand(
        "config", "network configuration: acquisition order, band mask, roaming, service "
                  "domain, LTE band mask; \"config set\" changes it");
    pConfig->require_subcommand(0, 1);
    auto* pConfigSet = pConfig->add_subcommand(
        "set", "change the network configuration; what is not given stays as it is, and a "
               "mode or band the modem does not offer is refused before anything is sent");
    std::string configMode;
    std::string configBand;
    std::string configLteBand;
    uint32_t configRoam = 0;
    uint32_t configDomain = 0;
    auto* pSetMode =
        pConfigSet
            ->add_option("--mode", configMode,
                         "the systems in order of preference: " + ModeArgumentForms())
            ->type_name("M")
            ->check(ModeArgument());
    auto* pSetBand = pConfigSet
                         ->add_option("--band", configBand,
                                      "band mask in hexadecimal (0x optional) within the "
                                      "masks that \"bands\" lists, or all")
                         ->type_name("HEX|all")
                         ->check(BandArgument());
    auto* pSetLteBand = pConfigSet
                            ->add_option("--lte-band", configLteBand,
                                         "LTE band mask (bit 0 is band 1), as --band")
                            ->type_name("HEX|all")
                            ->check(BandArgument());
    auto* pSetRoam = pConfigSet
                         ->add_option("--roam", configRoam,
                                      "0 roaming not allowed, 1 roaming allowed, 2 no change")
                         ->type_name("0|1|2")
                         ->check(WholeNumberIn(0, 2, "must be 0, 1 or 2"));
    auto* pSetDomain =
        pConfigSet
            ->add_option("--domain", configDomain,
                         "0 CS only, 1 PS only, 2 CS and PS, 3 any, 4 no change")
            ->type_name("0..4")
            ->check(WholeNumberIn(0, 4, "must be a whole number from 0 to 4"));
    auto* pBands = app.add_subcommand(
        "bands", "the bands, LTE bands and acquisition orders that the modem offers");

    std::vector<std::string> args(argc > 0 ? argv + 1 : argv, argv + argc);
    std::vector<std::string> commands;
    for (const CLI::App* pCommand : app.get_subcommands({})) {
        commands.push_back(pCommand->get_name());
    }
    std::string simulateError;
    if (!SettleSimulateProfile(&args, commands, &simulateError)) {
        std::cerr << "netsrvctl: " << simulateError << "\n";
        return EXIT_USAGE;
    }
    char programName[] = "netsrvctl";
    std::vector<char*> settledArgv = {argc > 0 ? argv[0] : programName};
    for (std::string& arg : args) {
        settledArgv.push_back(&arg[0]);
    }

    try {
        app.parse(static_cast<int>(settledArgv.size()), settledArgv.data());
    } catch (const CLI::ParseError& e) {
        if (e.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) {
            return app.exit(e);   // --help
        }
        // One line, as every error of the tool.
        std::cerr << "netsrvctl: " << e.what() << " (see --help)\n";
        return EXIT_USAGE;
    }

    if (*pCdmaSet && pCdmaSet->get_subcommands().empty()) {
        std::cerr << "netsrvctl: cdma set: name the setting: pref-mode, evdo-rev or nam "
                     "(see --help)\n";
        return EXIT_USAGE;
    }

    ConfigChange configChange;
    if (*pSetMode) {
        configChange.acqOrder = AcqOrderOfModeArgument(configMode);
    }
    if (*pSetBand) {
        configChange.band = ParseBandChoice(configBand);
    }
    if (*pSetLteBand) {
        configChange.lteBand = ParseBandChoice(configLteBand);
    }
    if (*pSetRoam) {
        configChange.roam = configRoam;
    }
    if (*pSetDomain) {
        configChange.domain = configDomain;
    }
    if (*pConfigSet && configChange.Empty()) {
        std::cerr << "netsrvctl: config set: give what to change: --mode, --band, --lte-band, "
                     "--roam or --domain (see --help)\n";
        return EXIT_USAGE;
    }

    host.simulate = pSimulate->count() > 0;
    if (!host.simulate && host.devicePath.empty()) {
        std::cerr << "netsrvctl: give --device PATH or --simulate [PROFILE]\n";
        return EXIT_USAGE;
    }
    // The plugin traces its failures; a user sees them when asking with --trace
    // (or NETSRV_TRACE_LEVEL), and otherwise only the tool's own one-line message.
    if (traceLevel > 0) {
        SetTraceLevel(traceLevel);
    } else if (getenv("NETSRV_TRACE_LEVEL") == nullptr) {
        SetTraceLevel(0);
    }

    ToolHost toolHost;
    std::string error;
    const ExitStatus started = toolHost.Start(host, &error);
    if (started != EXIT_OK) {
        std::cerr << "netsrvctl: " << error << "\n";
        return started;
    }

    ExitStatus status = EXIT_OK;
    if (*pInfo) {
        status = RunPluginInfo(toolHost, output, std::cout);
    } else if (*pLastErr) {
        status = RunLastErr(toolHost, lastErrType, output, std::cout, std::cerr);
    } else if (*pAddress) {
        status = RunAddress(toolHost, output, std::cout, std::cerr);
    } else if (*pStatus) {
        status = RunStatus(toolHost, output, std::cout, std::cerr);
    } else if (*pSignal) {
        status = RunSignal(toolHost, output, std::cout, std::cerr);
    } else if (*pMonitor) {
        status = RunMonitor(toolHost, monitor, output, std::cout, std::cerr);
    } else if (*pRegReport) {
        const auto domain = static_cast<RegDomain>(*ValueOfWord(DomainWords(), regDomain));
        status = RunRegistrationReport(toolHost, domain, *ValueOfWord(ReportModeWords(), regMode),
                                       output, std::cout, std::cerr);
    } else if (*pRegistration) {
        status = RunRegistration(toolHost, output, std::cout, std::cerr);
    } else if (*pAttach || *pDetach) {
        status = RunPsAttach(toolHost, static_cast<bool>(*pAttach), output, std::cout, std::cerr);
    } else if (*pHspa && !hspaSwitch.empty()) {
        status = RunHspaSet(
            toolHost,
            static_cast<NETSRV_DATA::HSPA_MODE>(*ValueOfWord(HspaSwitchWords(), hspaSwitch)),
            static_cast<NETSRV_DATA::HSPA_STAT>(*ValueOfWord(OnOffWords(), hspaState)), output,
            std::cout, std::cerr);
    } else if (*pHspa) {
        status = RunHspa(toolHost, output, std::cout, std::cerr);
    } else if (*pCdmaSet) {
        const CdmaSetting setting = *pSetPrefMode  ? CdmaSetting::PrefMode
                                    : *pSetEvdoRev ? CdmaSetting::EvdoRevision
                                                   : CdmaSetting::Nam;
        const WordTable& words = *pSetPrefMode  ? PrefModeWords()
                                 : *pSetEvdoRev ? EvdoRevisionWords()
                                                : NamWords();
        status = RunCdmaSet(toolHost, setting, *ValueOfWord(words, cdmaValue), output, std::cout,
                            std::cerr);
    } else if (*pRegisterMin) {
        status = RunRegisterMin(toolHost, min, output, std::cout, std::cerr);
    } else if (*pCdma) {
        status = RunCdma(toolHost, output, std::cout, std::cerr);
    } else if (*pConfigSet) {
        status = RunConfigSet(toolHost, configChange, output, std::cout, std::cerr);
    } else if (*pConfig) {
        status = RunConfig(toolHost, output, std::cout, std::cerr);
    } else if (*pBands) {
        status = RunBands(toolHost, output, std::cout, std::cerr);
    } else {
        status = RunOverview(toolHost, output, std::cout, std::cerr);
    }
    toolHost.Stop();
    return status;
}
