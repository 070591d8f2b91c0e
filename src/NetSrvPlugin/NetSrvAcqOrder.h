// "^SYSCFGEX" names the systems a modem may use as an acquisition text, a run
// of two-digit system codes in order of preference; the older "^SYSCFG" and
// "^SYSCONFIG" as a mode preference and an acquisition order. For modems that
// lack "^SYSCFGEX" the service converts between the two for the five settings
// that both can express. Pure functions.
#ifndef NETSRVPLUGIN_NETSRVACQORDER_H
#define NETSRVPLUGIN_NETSRVACQORDER_H

#include "Interface/NetSrvDef.h"

// The older command's mode and order for an acquisition text, compared whole
// and case-sensitively: "01" GSM only, "02" WCDMA only, "0201" and "0102"
// automatic with WCDMA or GSM first, "05" TD-SCDMA only. False for any other
// text ("00", automatic, included): the caller keeps what it had.
bool ModeAndOrderOfAcqText(const char* pszAcqOrder, DWORD& dwSystemMode, DWORD& dwAcqOrder);

// The acquisition text of the older command's mode and order, or null when the
// pair has none (GSM preferred, an automatic mode without a first system, any
// mode the table does not know).
const char* AcqTextOfModeAndOrder(DWORD dwSystemMode, DWORD dwAcqOrder);

#endif
