// The lists of the network-configuration test form: the bands (and LTE bands)
// a modem offers, each a hexadecimal mask with the modem's name for it, and the
// acquisition orders it accepts. The modem prints each list as one
// parenthesised group, "((80000,\"GSM850\"),(3FFFFFFF,\"All bands\"))" and
// "(\"00\",\"01\",\"0201\")"; the codec library splits a group into items.
//
// A client gets a shallow copy of a list (its count and the service's array)
// and hands it back through the service's release method, which frees the
// array. No locking: callers serialise band queries and releases.
#ifndef NETSRVPLUGIN_NETSRVBANDLIST_H
#define NETSRVPLUGIN_NETSRVBANDLIST_H

#include <memory>
#include <string>
#include <vector>

#include "Interface/NetSrvDef.h"

// A new array of the group's (mask, name) pairs: the mask read as hexadecimal
// up to its first other character (a leading "(" dropped), the name without its
// quotes, cut to its field. An unpaired last item is not a band. False, and
// stFresh untouched, when the group has no item.
bool ParseBandGroup(const std::string& strGroup, NETSRV_DATA::BandList& stFresh);

// A new array of the group's acquisition orders, without "(" and quotes; the
// names stay empty. False, and stFresh untouched, when the group has no item.
bool ParseAcqOrderGroup(const std::string& strGroup, NETSRV_DATA::AcqOrderList& stFresh);

// The arrays of one of the service's lists that newer queries replaced. A
// client may still read a replaced array through the copy it was given, so it
// lives until the service ends.
template <typename List>
using RetiredArrays =
    std::vector<std::unique_ptr<typename std::remove_pointer<decltype(List::pstList)>::type[]>>;

// The service's list takes the fresh one; its previous array is retired.
template <typename List>
void InstallList(List& stMember, const List& stFresh, RetiredArrays<List>& vctRetired)
{
    if (stMember.pstList != nullptr) {
        vctRetired.emplace_back(stMember.pstList);
    }
    stMember = stFresh;
}

// The service's list becomes empty and its array is freed.
template <typename List>
void EmptyList(List& stMember)
{
    stMember.nSize = 0;
    delete[] stMember.pstList;
    stMember.pstList = nullptr;
}

#endif
