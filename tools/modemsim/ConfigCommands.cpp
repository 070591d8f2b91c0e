// Network mode and band configuration: ^SYSCFG (3GPP modems), ^SYSCFGEX (LTE
// modems), ^SYSCONFIG (TD-SCDMA modems), kept as state: reads print it, sets
// change it (ConfigRules.h says which values they take), test forms list what
// the profile offers. A modem without the command has no section for it in its
// configuration and answers "COMMAND NOT SUPPORT".
// Also the HSPA switches ^HSDPA and ^HSUPA of WCDMA and TD-SCDMA modems.

#include "CommandHandlers.h"
#include "ConfigRules.h"

namespace modemsim {

namespace {

// The largest number a configuration field takes.
constexpr int32_t kMaxConfigCode = 255;
// AT^SYSCFGEX=<acq_order>,<band>,<roam>,<domain>[,<lte_band>[,<reserved1>[,<reserved2>]]]
constexpr std::size_t kSyscfgexLeastFields = 4;
constexpr std::size_t kSyscfgexFields = 7;

std::string Num(int32_t value)
{
    return std::to_string(value);
}

// The command table sends ^HSDPA and ^HSUPA here; the name picks the switch.
int32_t& HspaSwitchOf(NetworkState& network, const std::string& name)
{
    return name == "^HSUPA" ? network.hsupa : network.hsdpa;
}

// "(a,b,c)" of each item as print gives it.
template <typename T, typename Print>
std::string Group(const std::vector<T>& items, Print print)
{
    std::string text = "(";
    for (std::size_t i = 0; i < items.size(); ++i) {
        text += (i == 0 ? "" : ",") + print(items[i]);
    }
    return text + ")";
}

// A run of consecutive values as a range, "(0-4)", as modems print one;
// other lists value by value, "(2,13,14,16)", "(0)".
std::string NumberGroup(const std::vector<int32_t>& values)
{
    bool bRun = values.size() > 1;
    for (std::size_t i = 1; i < values.size() && bRun; ++i) {
        bRun = values[i] == values[i - 1] + 1;
    }
    if (bRun) {
        return "(" + Num(values.front()) + "-" + Num(values.back()) + ")";
    }
    return Group(values, Num);
}

// ((2000000400380,"GSM900/GSM1800/WCDMA900/WCDMA2100"),(3fffffff,"All bands"))
std::string BandGroup(const std::vector<BandOffer>& bands)
{
    return Group(bands, [](const BandOffer& band) {
        return "(" + band.mask + ",\"" + band.name + "\")";
    });
}

// ("00","03","02","01","99")
std::string QuotedGroup(const std::vector<std::string>& texts)
{
    return Group(texts, [](const std::string& text) { return "\"" + text + "\""; });
}

// A numeric field of a set, or -1 (which no list offers) when it is not a number.
int32_t NumberField(const std::string& field)
{
    return ParseNumberArg(field, 0, kMaxConfigCode).value_or(-1);
}

// A set's value becomes the setting when its verdict takes it.
template <typename T>
void Store(Verdict verdict, const T& sent, T& setting)
{
    if (verdict == Verdict::Take) {
        setting = sent;
    }
}

}  // namespace

// "^SYSCFG: 2,0,3FFFFFFF,1,2": mode, acquisition order, band, roaming, domain.
Reply HandleSyscfgRead(const Profile&, ModemState& state, const AtRequest&)
{
    if (!state.configuration.syscfg) {
        return NotSupportedReply();
    }
    const SyscfgValues& cfg = *state.configuration.syscfg;
    return OkReply({"^SYSCFG: " + Num(cfg.mode) + "," + Num(cfg.acqOrder) + "," + cfg.band +
                    "," + Num(cfg.roam) + "," + Num(cfg.domain)});
}

// "^SYSCFG:(2,13,14,16),(0),((2000000400380,"GSM900/GSM1800/WCDMA900/WCDMA2100"),
// (3fffffff,"All bands")),(0-2),(0-4)": modes, orders, bands, roaming, domains,
// without a blank after the colon, as these cards print this answer.
Reply HandleSyscfgTest(const Profile&, ModemState& state, const AtRequest&)
{
    if (!state.configuration.syscfg) {
        return NotSupportedReply();
    }
    const SyscfgOffer& offer = state.configuration.syscfg->offered;
    return OkReply({"^SYSCFG:" + NumberGroup(offer.modes) + "," + NumberGroup(offer.acqOrders) +
                    "," + BandGroup(offer.bands) + "," + NumberGroup(offer.roams) + "," +
                    NumberGroup(offer.domains)});
}

// AT^SYSCFG=<mode>,<acq_order>,<band>,<roam>,<domain>: "AT^SYSCFG=14,2,400000,1,2".
Reply HandleSyscfgSet(const Profile&, ModemState& state, const AtRequest& request)
{
    if (!state.configuration.syscfg) {
        return NotSupportedReply();
    }
    SyscfgValues& cfg = *state.configuration.syscfg;
    const std::vector<std::string> args = SplitArgs(request.args);
    if (args.size() != 5) {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    SyscfgValues sent = cfg;
    sent.mode = NumberField(args[0]);
    sent.acqOrder = NumberField(args[1]);
    sent.band = args[2];
    sent.roam = NumberField(args[3]);
    sent.domain = NumberField(args[4]);
    const SyscfgVerdicts v = JudgeSyscfg(sent);
    if (AnyRefused({v.mode, v.acqOrder, v.band, v.roam, v.domain})) {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    Store(v.mode, sent.mode, cfg.mode);
    Store(v.acqOrder, sent.acqOrder, cfg.acqOrder);
    Store(v.band, sent.band, cfg.band);
    Store(v.roam, sent.roam, cfg.roam);
    Store(v.domain, sent.domain, cfg.domain);
    return OkReply();
}

// "^SYSCFGEX: "00",3FFFFFFF,1,2,7FFFFFFFFFFFFFFF": acquisition order (quoted),
// band, roaming, domain, LTE band (an empty field on some firmware).
Reply HandleSyscfgexRead(const Profile&, ModemState& state, const AtRequest&)
{
    if (!state.configuration.syscfgex) {
        return NotSupportedReply();
    }
    const SyscfgexValues& cfg = *state.configuration.syscfgex;
    return OkReply({"^SYSCFGEX: \"" + cfg.acqOrder + "\"," + cfg.band + "," + Num(cfg.roam) +
                    "," + Num(cfg.domain) + "," + cfg.lteBand});
}

// "^SYSCFGEX: ("00","03","02","01","99"),((2000004e80380,"GSM850/..."),(3fffffff,
// "All Bands")),(0-3),(0-4),((800c5,"LTE2100/..."),(7fffffffffffffff,"All bands"))":
// orders, bands, roaming, domains, LTE bands.
Reply HandleSyscfgexTest(const Profile&, ModemState& state, const AtRequest&)
{
    if (!state.configuration.syscfgex) {
        return NotSupportedReply();
    }
    const SyscfgexOffer& offer = state.configuration.syscfgex->offered;
    return OkReply({"^SYSCFGEX: " + QuotedGroup(offer.acqOrders) + "," + BandGroup(offer.bands) +
                    "," + NumberGroup(offer.roams) + "," + NumberGroup(offer.domains) + "," +
                    BandGroup(offer.lteBands)});
}

// AT^SYSCFGEX="0302",3FFFFFFF,1,2,800C5,, : the acquisition order in quotes,
// band, roaming, domain, LTE band, and two reserved fields, empty or "". An
// empty LTE band keeps the LTE bands. Trailing fields may be left out (a host
// drops empty ones), and a field left out is empty.
Reply HandleSyscfgexSet(const Profile&, ModemState& state, const AtRequest& request)
{
    if (!state.configuration.syscfgex) {
        return NotSupportedReply();
    }
    SyscfgexValues& cfg = *state.configuration.syscfgex;
    std::vector<std::string> args = SplitArgs(request.args);
    if (args.size() < kSyscfgexLeastFields || args.size() > kSyscfgexFields ||
        request.args.front() != '"') {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    args.resize(kSyscfgexFields);
    if (!args[5].empty() || !args[6].empty()) {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    SyscfgexValues sent = cfg;
    sent.acqOrder = args[0];
    sent.band = args[1];
    sent.roam = NumberField(args[2]);
    sent.domain = NumberField(args[3]);
    sent.lteBand = args[4];
    const SyscfgexVerdicts v = JudgeSyscfgex(sent);
    if (AnyRefused({v.acqOrder, v.band, v.roam, v.domain, v.lteBand})) {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    Store(v.acqOrder, sent.acqOrder, cfg.acqOrder);
    Store(v.band, sent.band, cfg.band);
    Store(v.roam, sent.roam, cfg.roam);
    Store(v.domain, sent.domain, cfg.domain);
    Store(v.lteBand, sent.lteBand, cfg.lteBand);
    return OkReply();
}

// "^SYSCONFIG: 2,0,1,2": mode, acquisition order, roaming, domain.
Reply HandleSysconfigRead(const Profile&, ModemState& state, const AtRequest&)
{
    if (!state.configuration.sysconfig) {
        return NotSupportedReply();
    }
    const SysconfigValues& cfg = *state.configuration.sysconfig;
    return OkReply({"^SYSCONFIG: " + Num(cfg.mode) + "," + Num(cfg.acqOrder) + "," +
                    Num(cfg.roam) + "," + Num(cfg.domain)});
}

// "^SYSCONFIG: (2,13,15),(0-2),(0-2),(0-3)": modes, orders, roaming, domains.
Reply HandleSysconfigTest(const Profile&, ModemState& state, const AtRequest&)
{
    if (!state.configuration.sysconfig) {
        return NotSupportedReply();
    }
    const SysconfigOffer& offer = state.configuration.sysconfig->offered;
    return OkReply({"^SYSCONFIG: " + NumberGroup(offer.modes) + "," +
                    NumberGroup(offer.acqOrders) + "," + NumberGroup(offer.roams) + "," +
                    NumberGroup(offer.domains)});
}

// AT^SYSCONFIG=<mode>,<acq_order>,<roam>,<domain>: "AT^SYSCONFIG=15,2,1,2".
Reply HandleSysconfigSet(const Profile&, ModemState& state, const AtRequest& request)
{
    if (!state.configuration.sysconfig) {
        return NotSupportedReply();
    }
    SysconfigValues& cfg = *state.configuration.sysconfig;
    const std::vector<std::string> args = SplitArgs(request.args);
    if (args.size() != 4) {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    SysconfigValues sent = cfg;
    sent.mode = NumberField(args[0]);
    sent.acqOrder = NumberField(args[1]);
    sent.roam = NumberField(args[2]);
    sent.domain = NumberField(args[3]);
    const SysconfigVerdicts v = JudgeSysconfig(sent);
    if (AnyRefused({v.mode, v.acqOrder, v.roam, v.domain})) {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    Store(v.mode, sent.mode, cfg.mode);
    Store(v.acqOrder, sent.acqOrder, cfg.acqOrder);
    Store(v.roam, sent.roam, cfg.roam);
    Store(v.domain, sent.domain, cfg.domain);
    return OkReply();
}

// "^HSDPA: 1": 1 on, 0 off (^HSUPA alike).
Reply HandleHspaRead(const Profile&, ModemState& state, const AtRequest& request)
{
    return OkReply({request.name + ": " + Num(HspaSwitchOf(state.network, request.name))});
}

Reply HandleHspaSet(const Profile&, ModemState& state, const AtRequest& request)
{
    const std::optional<int32_t> on = ParseSingleNumberArg(request.args, 0, 1);
    if (!on) {
        return CmeErrorReply(state, kCmeIncorrectParameters);
    }
    HspaSwitchOf(state.network, request.name) = *on;
    return OkReply();
}

}  // namespace modemsim
