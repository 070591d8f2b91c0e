// The handlers of the command table, one group per file: general commands
// (GeneralCommands.cpp), network configuration (ConfigCommands.cpp), system
// information and attachment (NetworkStateCommands.cpp), registration reports
// (RegistrationCommands.cpp), signal readings (SignalCommands.cpp), CDMA
// (CdmaCommands.cpp), operators and preferred lists (OperatorCommands.cpp,
// PreferredOperatorCommands.cpp), the SIM (SimFileCommands.cpp). A handler
// that serves several names ("+CREG", "+CGREG") tells them apart by the
// request's name.
#ifndef MODEMSIM_COMMANDHANDLERS_H
#define MODEMSIM_COMMANDHANDLERS_H

#include "CommandTable.h"

namespace modemsim {

// General
Reply HandleEcho(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleCmeeSet(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleCmeeRead(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleCmeeTest(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleGcap(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleGlasterrSet(const Profile& profile, ModemState& state, const AtRequest& request);

// Network configuration
Reply HandleSyscfgRead(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleSyscfgTest(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleSyscfgSet(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleSyscfgexRead(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleSyscfgexTest(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleSyscfgexSet(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleSysconfigRead(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleSysconfigTest(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleSysconfigSet(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleHspaRead(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleHspaSet(const Profile& profile, ModemState& state, const AtRequest& request);

// System information and attachment
Reply HandleSysinfoexBare(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleSysinfoBare(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleRegisterSet(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleCgattRead(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleCgattSet(const Profile& profile, ModemState& state, const AtRequest& request);

// Registration (+CREG, +CGREG, +CEREG)
Reply HandleRegistrationRead(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleRegistrationSet(const Profile& profile, ModemState& state, const AtRequest& request);

// Operators (+COPS) and the preferred-operator lists (+CPLS, +CPOL)
Reply HandleCopsTest(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleCopsRead(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleCopsSet(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleCplsRead(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleCplsSet(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleCpolRead(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleCpolSet(const Profile& profile, ModemState& state, const AtRequest& request);

// The SIM's identity and files
Reply HandleCimiBare(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleCrsmSet(const Profile& profile, ModemState& state, const AtRequest& request);

// Signal readings
Reply HandleCsqBare(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleCsqTest(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleHcsqRead(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleCsnrRead(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleAnqueryRead(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleLteRsrpRead(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleLteScInfoRead(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleCsqlvlBare(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleHdrcsqlvlBare(const Profile& profile, ModemState& state, const AtRequest& request);

// CDMA
Reply HandleCdmaSettingRead(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleCdmaSettingSet(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandlePrefmodeTest(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleRegMinSet(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandlePrlverRead(const Profile& profile, ModemState& state, const AtRequest& request);
Reply HandleCurrsidRead(const Profile& profile, ModemState& state, const AtRequest& request);

}  // namespace modemsim

#endif
