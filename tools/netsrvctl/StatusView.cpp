#include "StatusView.h"

#include <vector>

#include "NamedNumber.h"
#include "Names.h"
#include "OutputText.h"
#include "TextColumns.h"

namespace netsrvctl {

namespace {
using NETSRV_DATA::SystemInfo;

// One number of the record as both views show it.
struct StatusField {
    const char* key;     // JSON key; the name goes under key + "_name"
    const char* label;   // text label
    int64_t value;
    std::string name;    // empty: the number has no name
    bool nameFromModem;  // the name is the modem's, not ours
};

struct StatusModel {
    std::vector<StatusField> fields;
    bool lockReported = false;
    int64_t lockState = 0;
    std::string modemModeName;
    std::string modemSubModeName;
};

// The table's name, else the modem's own name for a number our table lacks
// (an LTE modem reports sub-mode 101, "LTE"), else none.
struct ModeNaming {
    std::string name;
    bool fromModem;
};

ModeNaming ModeName(const char* pszTableName, const std::string& modemName)
{
    return pszTableName != nullptr ? ModeNaming{pszTableName, false}
                                   : ModeNaming{modemName, !modemName.empty()};
}

std::string NameOf(const char* pszName)
{
    return NameOr(pszName, "");
}

StatusField Named(const char* pszKey, const char* pszLabel, int64_t value, const char* pszName)
{
    return {pszKey, pszLabel, value, NameOf(pszName), false};
}

StatusField ModeField(const char* pszKey, const char* pszLabel, int64_t value,
                      const ModeNaming& naming)
{
    return {pszKey, pszLabel, value, naming.name, naming.fromModem};
}

StatusModel BuildModel(const SystemInfo& info)
{
    StatusModel model;
    model.modemModeName = FieldText(info.szSysModeName, sizeof(info.szSysModeName));
    model.modemSubModeName = FieldText(info.szSubModeName, sizeof(info.szSubModeName));
    model.fields = {
        Named("service_status", "service status", info.dwSrvStatus,
              ServiceStatusName(info.dwSrvStatus)),
        ModeField("system_mode", "system mode", info.dwSysMode,
                  ModeName(SystemModeName(info.dwSysMode), model.modemModeName)),
        ModeField("sub_mode", "sub-mode", info.dwSubMode,
                  ModeName(SubModeName(info.dwSubMode), model.modemSubModeName)),
        Named("roaming", "roaming", info.dwRoam, RoamingName(info.dwRoam)),
        Named("domain", "domain", info.dwDomain, DomainName(info.dwDomain)),
        Named("sim_state", "SIM state", info.dwSimState, SimStateName(info.dwSimState)),
    };
    // Only ^SYSINFOEX carries the lock state and the names; the service
    // leaves the names empty after a ^SYSINFO read, and the record has no
    // other mark of which read filled it.
    model.lockReported = !model.modemModeName.empty() || !model.modemSubModeName.empty();
    model.lockState = info.dwLockState;
    return model;
}

}  // namespace

nlohmann::ordered_json StatusJson(const SystemInfo& info)
{
    const StatusModel model = BuildModel(info);
    nlohmann::ordered_json json = nlohmann::ordered_json::object();
    for (const StatusField& field : model.fields) {
        json[field.key] = field.value;
        if (!field.name.empty()) {
            json[std::string(field.key) + "_name"] = field.name;
        }
    }
    if (model.lockReported) {
        json["lock_state"] = model.lockState;
        if (const char* pszName = LockStateName(model.lockState)) {
            json["lock_state_name"] = pszName;
        }
    }
    if (!model.modemModeName.empty()) {
        json["modem_mode_name"] = model.modemModeName;
    }
    if (!model.modemSubModeName.empty()) {
        json["modem_sub_mode_name"] = model.modemSubModeName;
    }
    return json;
}

std::string StatusText(const SystemInfo& info)
{
    const StatusModel model = BuildModel(info);
    std::string text;
    for (const StatusField& field : model.fields) {
        text += LabelledLine(field.label,
                             NumberAndName(field.value, field.name, field.nameFromModem));
    }
    text += LabelledLine("lock state", model.lockReported
                                           ? NumberAndName(model.lockState,
                                                           NameOf(LockStateName(model.lockState)))
                                           : "not reported");
    if (model.modemModeName.empty() && model.modemSubModeName.empty()) {
        text += LabelledLine("modem mode names",
                             "none (the modem answers only ^SYSINFO, which carries no names)");
    } else {
        text += LabelledLine(
            "modem mode names",
            (model.modemModeName.empty() ? "(none)" : model.modemModeName) + " / " +
                (model.modemSubModeName.empty() ? "(none)" : model.modemSubModeName));
    }
    return text;
}

}  // namespace netsrvctl
