// The operator list of a "+COPS=?" search, as the service hands it to clients.
// Pure functions.
#ifndef NETSRVPLUGIN_NETSRVPLMNLIST_H
#define NETSRVPLUGIN_NETSRVPLMNLIST_H

#include <string>
#include <vector>

#include "AtCodec/CmdDef.h"
#include "Interface/NetSrvDef.h"

// The fields of one operator group, the text between its first "(" and its
// last ")": `2,"Op, Inc","Op","00101",2` gives 2 / "Op, Inc" / "Op" / "00101" / 2.
// A quoted field ends only at a `",`, so commas inside a name stay in it.
std::vector<std::string> SplitOperatorGroup(const std::string& strGroup);

// Fills rList from the fields of a search result. The operator groups come
// first and an empty field ends them (the supported modes and formats follow
// it). A group without an operator identifier is skipped; at most
// PLMN_LIST_MAX operators are kept.
void ParsePlmnList(const Command& report, NETSRV_DATA::SPlmnList& rList);

#endif
