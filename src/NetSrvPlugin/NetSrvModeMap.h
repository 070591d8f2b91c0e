// System and sub-mode numbers between the two system-information answers.
// "^SYSINFO" reports the older numbering (SystemMode, SubsysMode); everything
// the service hands out is in the numbering of "^SYSINFOEX" (SystemModeEx,
// SubsysModeEx). Pure functions. The modem's numbers come in as plain ints:
// a reply may carry any number, and only the known ones are enumerators.
#ifndef NETSRVPLUGIN_NETSRVMODEMAP_H
#define NETSRVPLUGIN_NETSRVMODEMAP_H

#include "Interface/NetSrvDef.h"

// "^SYSINFO" sys_mode to SystemModeEx. AMPS and GPS count as GSM: the modems
// that report them are GSM modems.
NETSRV_DATA::SystemModeEx MapOldSysModeToExSysMode(int iSysMode);

// The sub-mode to assume when "^SYSINFO" gave none: the mode's typical radio.
NETSRV_DATA::SubsysModeEx MapOldSysModeToExSubMode(int iSysMode);

// "^SYSINFO" sys_submode to SubsysModeEx; the packet sub-modes depend on the
// system mode (HSDPA on WCDMA or on TD-SCDMA). A sub-mode outside 0..18 falls
// back to the system mode alone.
NETSRV_DATA::SubsysModeEx MapOldSubModeToExSubMode(int iSysMode,
                                                    int iSubMode);

// "^SYSINFO" sys_submode to the older SystemMode numbering; unknown values
// pass through.
int MapSysSubMode(int iSysSubMode);
// "^SYSINFO" sys_mode to SystemMode: the numbers coincide, so an identity.
int MapSystemMode(int iSysMode);

#endif
