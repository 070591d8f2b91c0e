// The command set. To teach the simulator a command, write its handler in the
// file of its concern and add a row here.

#include "CommandTable.h"

#include <algorithm>

#include "CommandHandlers.h"

namespace modemsim {

namespace {

// The network service's AT command table, in its order, then the general
// commands the host sends on its own.
const char* const kKnownNames[] = {
    "+CRSM", "^SYSCFG", "+COPS", "^REGISTER", "^SYSINFO", "+CSQ", "^CSQLVL", "^CSNR",
    "^HDRCSQLVL", "^ANQUERY", "^PREFMODE", "+CLCK", "^SPN", "^HSDPA", "+CGATT", "^GLASTERR",
    "+CIMI", "^SRVST", "^HSUPA", "^CPNN", "^OPL", "^PNN", "^EVDOREV", "^SNAM", "^REG",
    "^PRLVER", "^KTFSIMTYPE", "+CREG", "+CGREG", "+CEREG", "^RSSI", "^RSSILVL", "^HRSSILVL",
    "^ANLEVEL", "^SIMST", "^MODE", "^SIMREFRESH", "^PNNFILEREFRESH", "^SYSCONFIG", "+CPLS",
    "+CPOL", "^SYSINFOEX", "^FPVERIFYIND", "^SYSCFGEX", "^LTERSRP", "^LTESCINFO", "^HCSQ",
    "^CURRSID",
    "+GCAP", "+CMEE",
};

}  // namespace

const std::vector<std::string>& KnownAtNames()
{
    static const std::vector<std::string> names(std::begin(kKnownNames), std::end(kKnownNames));
    return names;
}

bool IsKnownAtName(std::string_view name)
{
    const std::vector<std::string>& names = KnownAtNames();
    return std::find(names.begin(), names.end(), name) != names.end();
}

const std::vector<CommandRow>& CommandRows()
{
    static const std::vector<CommandRow> rows = {
        {"E", AtForm::Set, HandleEcho},
        {"+CMEE", AtForm::Set, HandleCmeeSet},
        {"+CMEE", AtForm::Read, HandleCmeeRead},
        {"+CMEE", AtForm::Test, HandleCmeeTest},
        {"+GCAP", AtForm::Bare, HandleGcap},
        {"^GLASTERR", AtForm::Set, HandleGlasterrSet},
        {"^SYSCFG", AtForm::Read, HandleSyscfgRead},
        {"^SYSCFG", AtForm::Test, HandleSyscfgTest},
        {"^SYSCFG", AtForm::Set, HandleSyscfgSet},
        {"^SYSCFGEX", AtForm::Read, HandleSyscfgexRead},
        {"^SYSCFGEX", AtForm::Test, HandleSyscfgexTest},
        {"^SYSCFGEX", AtForm::Set, HandleSyscfgexSet},
        {"^SYSCONFIG", AtForm::Read, HandleSysconfigRead},
        {"^SYSCONFIG", AtForm::Test, HandleSysconfigTest},
        {"^SYSCONFIG", AtForm::Set, HandleSysconfigSet},
        {"^SYSINFOEX", AtForm::Bare, HandleSysinfoexBare},
        {"^SYSINFO", AtForm::Bare, HandleSysinfoBare},
        {"^REGISTER", AtForm::Set, HandleRegisterSet},
        {"+CGATT", AtForm::Read, HandleCgattRead},
        {"+CGATT", AtForm::Set, HandleCgattSet},
        {"+CREG", AtForm::Read, HandleRegistrationRead},
        {"+CREG", AtForm::Set, HandleRegistrationSet},
        {"+CGREG", AtForm::Read, HandleRegistrationRead},
        {"+CGREG", AtForm::Set, HandleRegistrationSet},
        {"+CEREG", AtForm::Read, HandleRegistrationRead},
        {"+CEREG", AtForm::Set, HandleRegistrationSet},
        {"+COPS", AtForm::Test, HandleCopsTest},
        {"+COPS", AtForm::Read, HandleCopsRead},
        {"+COPS", AtForm::Set, HandleCopsSet},
        {"+CPLS", AtForm::Read, HandleCplsRead},
        {"+CPLS", AtForm::Set, HandleCplsSet},
        {"+CPOL", AtForm::Read, HandleCpolRead},
        {"+CPOL", AtForm::Set, HandleCpolSet},
        {"+CIMI", AtForm::Bare, HandleCimiBare},
        {"+CRSM", AtForm::Set, HandleCrsmSet},
        {"^HSDPA", AtForm::Read, HandleHspaRead},
        {"^HSDPA", AtForm::Set, HandleHspaSet},
        {"^HSUPA", AtForm::Read, HandleHspaRead},
        {"^HSUPA", AtForm::Set, HandleHspaSet},
        {"+CSQ", AtForm::Bare, HandleCsqBare},
        {"+CSQ", AtForm::Test, HandleCsqTest},
        {"^HCSQ", AtForm::Read, HandleHcsqRead},
        {"^CSNR", AtForm::Read, HandleCsnrRead},
        {"^ANQUERY", AtForm::Read, HandleAnqueryRead},
        {"^LTERSRP", AtForm::Read, HandleLteRsrpRead},
        {"^LTESCINFO", AtForm::Read, HandleLteScInfoRead},
        {"^CSQLVL", AtForm::Bare, HandleCsqlvlBare},
        {"^HDRCSQLVL", AtForm::Bare, HandleHdrcsqlvlBare},
        {"^PREFMODE", AtForm::Read, HandleCdmaSettingRead},
        {"^PREFMODE", AtForm::Test, HandlePrefmodeTest},
        {"^PREFMODE", AtForm::Set, HandleCdmaSettingSet},
        {"^EVDOREV", AtForm::Read, HandleCdmaSettingRead},
        {"^EVDOREV", AtForm::Set, HandleCdmaSettingSet},
        {"^SNAM", AtForm::Read, HandleCdmaSettingRead},
        {"^SNAM", AtForm::Set, HandleCdmaSettingSet},
        {"^KTFSIMTYPE", AtForm::Read, HandleCdmaSettingRead},
        {"^REG", AtForm::Set, HandleRegMinSet},
        {"^PRLVER", AtForm::Read, HandlePrlverRead},
        {"^CURRSID", AtForm::Read, HandleCurrsidRead},
    };
    return rows;
}

CommandHandler FindHandler(std::string_view name, AtForm form)
{
    for (const CommandRow& row : CommandRows()) {
        if (row.form == form && name == row.name) {
            return row.handler;
        }
    }
    return nullptr;
}

}  // namespace modemsim
