// The field catalogue of a profile: every JSON field, its name, its kind and
// its limits, written once per struct. The visitors of SchemaVisitors.h read,
// check and write profiles and state patches from this one list, so a field
// added here is read, validated and patchable at once. README.md documents
// each field; keep the two in step.
#ifndef MODEMSIM_PROFILESCHEMA_H
#define MODEMSIM_PROFILESCHEMA_H

#include <cstdint>

#include "ConfigRules.h"
#include "ModemProfile.h"
#include "OperatorRules.h"
#include "ProfileRules.h"
#include "SchemaVisitors.h"
#include "UnsolicitedReports.h"

namespace modemsim {

// Upper bounds that keep a profile from asking for absurd amounts of memory.
constexpr std::size_t kMaxRecords = 256;
constexpr std::size_t kMaxTimeline = 4096;
constexpr int64_t kMaxDelayMs = 600000;        // ten minutes
constexpr int64_t kMaxTimelineMs = 604800000;  // a week
// Entries of one list of offered configuration values (modes, bands, ...).
constexpr std::size_t kMaxOffered = 64;

template <typename V>
void Describe(V& v, LastError& x)
{
    v.Number("type", x.type, 0, 255);
    v.Number("code", x.code, 0, 65535);
}

template <typename V>
void Describe(V& v, SpnEntry& x)
{
    v.Number("display", x.display, 0, 255);
    v.Number("coding", x.coding, 0, 255);
    v.Text("name", x.name, kNameRule);
    v.OptNumber("cdma_coding", x.cdmaCoding, 0, 255);
}

template <typename V>
void Describe(V& v, SpnFiles& x)
{
    v.OptObject("gsm", x.gsm);
    v.OptObject("usim", x.usim);
    v.OptObject("uim", x.uim);
    v.OptObject("rom", x.rom);
}

template <typename V>
void Describe(V& v, PnnRecord& x)
{
    v.Text("full_name", x.fullName, kNameRule);
    v.Text("short_name", x.shortName, kNameRule, Need::Optional);
    v.Text("coding", x.coding, kCodingRule, Need::Optional);
    v.Bool("add_country_initials", x.addCountryInitials, Need::Optional);
    v.Text("additional_info", x.additionalInfo, kHexBytesRule, Need::Optional);
}

template <typename V>
void Describe(V& v, OplRecord& x)
{
    v.Text("plmn", x.plmn, kPlmnRule);
    v.Text("lac_range", x.lacRange, kNameRule, Need::Optional);
    v.Number("pnn_index", x.pnnIndex, 0, 255);
}

template <typename V>
void Describe(V& v, SimState& x)
{
    v.Number("state", x.state, 0, 255);
    v.Number("lock_state", x.lockState, 0, 255, Need::Optional);
    v.Text("iccid", x.iccid, kIccidRule);
    v.Text("imsi", x.imsi, kImsiRule);
    v.Text("home_plmn", x.homePlmn, kOptionalPlmnRule, Need::Optional);
    v.Text("ef_ad", x.efAd, kHexBytesRule, Need::Optional);
    v.Text("msisdn", x.msisdn, kPhoneRule, Need::Optional);
    v.Text("ef_spn", x.efSpn, kHexBytesRule, Need::Optional);
    v.Object("spn", x.spn, Need::Optional);
    v.List("pnn", x.pnn, kMaxRecords, Need::Optional);
    v.List("opl", x.opl, kMaxRecords, Need::Optional);
    v.Number("refresh_file_type", x.refreshFileType, 0, 255, Need::Optional);
    v.Check(CheckHomeNetwork, x);
}

template <typename V>
void Describe(V& v, ModeInfo& x)
{
    v.Number("sys_mode", x.sysMode, 0, 255);
    v.Text("sys_mode_name", x.sysModeName, kNameRule);
    v.Number("sub_mode", x.subMode, 0, 255);
    v.Text("sub_mode_name", x.subModeName, kNameRule);
    v.Number("sysinfo_sys_mode", x.sysinfoSysMode, 0, 255);
    v.OptNumber("sysinfo_sub_mode", x.sysinfoSubMode, 0, 255);
}

template <typename V>
void Describe(V& v, RegistrationInfo& x)
{
    v.Number("report_mode", x.reportMode, 0, 3, Need::Optional);
    v.Number("stat", x.stat, 0, 11);
    v.Text("lac", x.lac, kHexIdRule, Need::Optional);
    v.Text("ci", x.cellId, kHexIdRule, Need::Optional);
    v.OptNumber("act", x.act, 0, 15);
    v.OptNumber("cause_type", x.causeType, 0, 255);
    v.OptNumber("reject_cause", x.rejectCause, 0, 255);
}

template <typename V>
void Describe(V& v, OperatorInfo& x)
{
    v.Number("status", x.status, 0, 3);
    v.Text("long_name", x.longName, kNameRule);
    v.Text("short_name", x.shortName, kNameRule, Need::Optional);
    v.Text("plmn", x.plmn, kPlmnRule);
    v.OptNumber("act", x.act, 0, kMaxAct);
}

template <typename V>
void Describe(V& v, RegisteredOperator& x)
{
    v.Text("plmn", x.plmn, kPlmnRule);
    v.OptNumber("act", x.act, 0, kMaxAct);
}

template <typename V>
void Describe(V& v, OperatorScan& x)
{
    v.Choice("failure", x.failure,
             std::vector<std::pair<const char*, ScanFailure>>{
                 {"error", ScanFailure::Error}, {"no_answer", ScanFailure::NoAnswer}});
    v.OptNumber("cme_error", x.cmeError, 0, 65535);
    v.Check(CheckOperatorScan, x);
}

template <typename V>
void Describe(V& v, PreferredOperator& x)
{
    v.Number("index", x.index, 1, 999);
    v.Text("plmn", x.plmn, kPlmnRule);
    v.Number("gsm", x.gsm, 0, 1, Need::Optional);
    v.Number("gsm_compact", x.gsmCompact, 0, 1, Need::Optional);
    v.Number("utran", x.utran, 0, 1, Need::Optional);
}

template <typename V>
void Describe(V& v, PreferredList& x)
{
    v.Number("capacity", x.capacity, 1, kMaxRecords, Need::Optional);
    v.List("entries", x.entries, kMaxRecords, Need::Optional);
    v.Check(CheckPreferredList, x);
}

template <typename V>
void Describe(V& v, PreferredLists& x)
{
    v.Object("user", x.user, Need::Optional);
    v.Object("operator", x.operatorControlled, Need::Optional);
    v.Object("hplmn", x.hplmn, Need::Optional);
}

template <typename V>
void Describe(V& v, NetworkState& x)
{
    v.Number("service_status", x.serviceStatus, 0, 4);
    v.Number("service_domain", x.serviceDomain, 0, 255);
    v.Number("roaming", x.roaming, 0, 12);
    v.Object("mode", x.mode);
    v.Bool("ps_attached", x.psAttached, Need::Optional);
    v.Number("hsdpa", x.hsdpa, 0, 1, Need::Optional);
    v.Number("hsupa", x.hsupa, 0, 1, Need::Optional);
    v.Number("selection_mode", x.selectionMode, 0, 4, Need::Optional);
    v.Number("name_format", x.nameFormat, 0, 2, Need::Optional);
    v.OptObject("registered", x.registered);
    v.List("operators", x.operators, kMaxRecords, Need::Optional);
    v.Object("scan", x.scan, Need::Optional);
    v.Object("creg", x.creg, Need::Optional);
    v.Object("cgreg", x.cgreg, Need::Optional);
    v.Object("cereg", x.cereg, Need::Optional);
    v.Number("preferred_list", x.preferredList, 0, 2, Need::Optional);
    v.Object("preferred", x.preferred, Need::Optional);
    v.Number("preferred_format", x.preferredFormat, 0, 2, Need::Optional);
    v.Check(CheckRegisteredOperator, x);
}

template <typename V>
void Describe(V& v, CsqValues& x)
{
    v.Number("rssi", x.rssi, 0, 255);
    v.Number("ber", x.ber, 0, 255);
}

template <typename V>
void Describe(V& v, HcsqLine& x)
{
    v.Text("sysmode", x.sysmode, kNameRule);
    v.NumberList("values", x.values, 0, 255, 5, Need::Optional);
}

template <typename V>
void Describe(V& v, CsnrValues& x)
{
    v.Number("rscp", x.rscp, -255, 255);
    v.Number("ecio", x.ecio, -255, 255);
}

template <typename V>
void Describe(V& v, AntennaValues& x)
{
    v.Number("rscp", x.rscp, -255, 255);
    v.Number("ecio", x.ecio, -255, 255);
    v.Number("rssi", x.rssi, -255, 255);
    v.Number("level", x.level, 0, 255);
}

template <typename V>
void Describe(V& v, LteRsrpValues& x)
{
    v.Number("rsrp", x.rsrp, -255, 255);
    v.Number("rsrq", x.rsrq, -255, 255);
}

template <typename V>
void Describe(V& v, LteScInfo& x)
{
    v.Number("pci", x.pci, 0, 1023);
    v.Number("dlsinr", x.dlsinr, -255, 255);
    v.Number("numant", x.numant, 0, 255);
    v.Number("dlbw", x.dlbw, 0, 255);
}

template <typename V>
void Describe(V& v, SignalState& x)
{
    v.Object("csq", x.csq, Need::Optional);
    v.List("hcsq", x.hcsq, 8, Need::Optional);
    v.Object("csnr", x.csnr, Need::Optional);
    v.Object("antenna", x.antenna, Need::Optional);
    v.Object("lte_rsrp", x.lteRsrp, Need::Optional);
    v.Object("lte_scinfo", x.lteScInfo, Need::Optional);
    v.Object("cdma_csq", x.cdmaCsq, Need::Optional);
    v.Number("hdr_rssi", x.hdrRssi, 0, 255, Need::Optional);
}

template <typename V>
void Describe(V& v, BandOffer& x)
{
    v.Text("mask", x.mask, kBandRule);
    v.Text("name", x.name, kBandNameRule);
}

template <typename V>
void Describe(V& v, SyscfgOffer& x)
{
    v.NumberList("modes", x.modes, 0, 255, kMaxOffered);
    v.NumberList("acq_orders", x.acqOrders, 0, 255, kMaxOffered);
    v.List("bands", x.bands, kMaxOffered);
    v.NumberList("roams", x.roams, 0, 255, kMaxOffered);
    v.NumberList("domains", x.domains, 0, 255, kMaxOffered);
}

template <typename V>
void Describe(V& v, SyscfgValues& x)
{
    v.Number("mode", x.mode, 0, 255);
    v.Number("acq_order", x.acqOrder, 0, 255);
    v.Text("band", x.band, kBandRule);
    v.Number("roam", x.roam, 0, 255);
    v.Number("domain", x.domain, 0, 255);
    v.Object("offered", x.offered);
    v.Check(CheckSyscfg, x);
}

template <typename V>
void Describe(V& v, SyscfgexOffer& x)
{
    v.TextList("acq_orders", x.acqOrders, kAcqOrderRule, kMaxOffered);
    v.List("bands", x.bands, kMaxOffered);
    v.NumberList("roams", x.roams, 0, 255, kMaxOffered);
    v.NumberList("domains", x.domains, 0, 255, kMaxOffered);
    v.List("lte_bands", x.lteBands, kMaxOffered, Need::Optional);
}

template <typename V>
void Describe(V& v, SyscfgexValues& x)
{
    v.Text("acq_order", x.acqOrder, kAcqOrderRule);
    v.Text("band", x.band, kBandRule);
    v.Number("roam", x.roam, 0, 255);
    v.Number("domain", x.domain, 0, 255);
    v.Text("lte_band", x.lteBand, kOptionalBandRule);
    v.Object("offered", x.offered);
    v.Check(CheckSyscfgex, x);
}

template <typename V>
void Describe(V& v, SysconfigOffer& x)
{
    v.NumberList("modes", x.modes, 0, 255, kMaxOffered);
    v.NumberList("acq_orders", x.acqOrders, 0, 255, kMaxOffered);
    v.NumberList("roams", x.roams, 0, 255, kMaxOffered);
    v.NumberList("domains", x.domains, 0, 255, kMaxOffered);
}

template <typename V>
void Describe(V& v, SysconfigValues& x)
{
    v.Number("mode", x.mode, 0, 255);
    v.Number("acq_order", x.acqOrder, 0, 255);
    v.Number("roam", x.roam, 0, 255);
    v.Number("domain", x.domain, 0, 255);
    v.Object("offered", x.offered);
    v.Check(CheckSysconfig, x);
}

template <typename V>
void Describe(V& v, ConfigState& x)
{
    v.OptObject("syscfg", x.syscfg);
    v.OptObject("syscfgex", x.syscfgex);
    v.OptObject("sysconfig", x.sysconfig);
}

template <typename V>
void Describe(V& v, CdmaState& x)
{
    v.Number("prefmode", x.prefMode, 0, 255);
    v.Text("prefmode_test", x.prefModeTest, kLineRule, Need::Optional);
    v.Number("evdo_revision", x.evdoRevision, 0, 2);
    v.Number("nam", x.nam, 0, 1);
    v.Text("prl_version", x.prlVersion, kNameRule);
    v.Number("ktf_sim_type", x.ktfSimType, 0, 255, Need::Optional);
    v.Number("sid", x.sid, 0, 65535);
    v.Number("nid", x.nid, 0, 65535);
    v.Text("subnet_id", x.subnetId, kNameRule, Need::Optional);
    v.Text("registered_min", x.registeredMin, kMinRule, Need::Optional);
}

// The state fields sit at the top level of a profile, beside the fields that
// describe the modem itself; a timeline "set" patch may name only these.
template <typename V>
void DescribeStateFields(V& v, ModemState& x)
{
    v.Bool("echo", x.echo, Need::Optional);
    v.Number("cmee", x.cmee, 0, 2, Need::Optional);
    v.List("last_errors", x.lastErrors, kMaxRecords, Need::Optional);
    v.Object("sim", x.sim);
    v.Object("network", x.network);
    v.Object("signal", x.signal, Need::Optional);
    v.Object("configuration", x.configuration, Need::Optional);
    v.OptObject("cdma", x.cdma);
}

template <typename V>
void Describe(V& v, ModemState& x)
{
    DescribeStateFields(v, x);
}

template <typename V>
void Describe(V& v, AnswerDelays& x)
{
    v.Number("default_ms", x.defaultMs, 0, kMaxDelayMs, Need::Optional);
    v.DelayMap("commands", x.commands, kDelayKeyRule, kMaxDelayMs, Need::Optional);
}

template <typename V>
void Describe(V& v, TimelineEvent& x)
{
    v.Number("at_ms", x.atMs, 0, kMaxTimelineMs);
    v.Number("repeat_ms", x.repeatMs, 0, kMaxTimelineMs, Need::Optional);
    v.Text("send", x.send, kLineRule, Need::Optional);
    v.RawObject("set", x.setPatch);
    v.Choice("report", x.report, ReportChoices());
    v.Choice("fault", x.fault,
             std::vector<std::pair<const char*, FaultAction>>{
                 {"silent_on", FaultAction::SilentOn},
                 {"silent_off", FaultAction::SilentOff},
                 {"garbage", FaultAction::Garbage},
                 {"vanish", FaultAction::Vanish},
                 {"restore", FaultAction::Restore}});
}

template <typename V>
void Describe(V& v, Profile& x)
{
    v.Text("description", x.description, kDescriptionRule, Need::Optional);
    v.TextList("gcap", x.gcap, kCapabilityRule, 16);
    v.TextSet("unsupported", x.unsupported, kAtNameRule, kMaxRecords, Need::Optional);
    v.Object("delays", x.delays, Need::Optional);
    DescribeStateFields(v, x.initial);
    v.List("timeline", x.timeline, kMaxTimeline, Need::Optional);
}

}  // namespace modemsim

#endif
