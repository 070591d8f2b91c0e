// The operator names that the SIM stores: the PLMN network names of its PNN
// file and the operator rows of its OPL file that point into it (by record
// number, from 1). The modem hands the PNN records' name elements over as
// bytes; ParserPnnName turns one element into text.
#ifndef NETSRVPLUGIN_NETSRVPNNNAME_H
#define NETSRVPLUGIN_NETSRVPNNNAME_H

#include <string>

#include "Interface/NetSrvDef.h"
#include "MyGlobalFunc.h"

// One row of the OPL file.
struct OplInfo {
    int nIndex = 0;          // PNN record number; 0 points at none
    std::string strPmnId;    // the operator identity the row is for
};

// One record of the PNN file, decoded.
struct PmnInfo {
    QIRA_wstring wszFullname;
    QIRA_wstring wszShortname;
    NETSRV_DATA::CIStat enFullnameCI = NETSRV_DATA::CI_STAT_NOT_Add;
    NETSRV_DATA::CIStat enShortnameCI = NETSRV_DATA::CI_STAT_NOT_Add;
};

// One network name element (TS 24.008: a tag 0x43 for the full name or 0x45
// for the short name, a length byte, a coding octet, the text): false for
// fewer than 3 bytes or another tag (traced). The coding octet says UCS2
// (bit 0x10) or GSM 7-bit, and whether the country's initials are to be added
// (bit 0x08, into enCI). When the length byte promises more than follows, the
// octet is taken for text: GSM 7-bit from the third byte, enCI untouched.
// The text runs to the end of the data.
bool ParserPnnName(const unsigned char* pData, int nLength, QIRA_wstring& wstrName,
                   NETSRV_DATA::CIStat& enCI);

#endif
