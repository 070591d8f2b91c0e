#include "NetSrvBandList.h"

#include <cstdint>

#include "GlobalFunction.h"
#include "MyGlobalFunc.h"
#include "XCodec.h"

namespace {

// The items of one group; one codec object per call, as the codec is used.
std::vector<std::string> GroupItems(const std::string& strGroup)
{
    std::vector<std::string> vctItems;
    CXCodec codec;
    codec.DecoderGroupString(strGroup, vctItems);
    return vctItems;
}

// Items keep the "(" that opened their pair or list.
std::string WithoutLeadingParenthesis(const std::string& strItem)
{
    return !strItem.empty() && strItem[0] == '(' ? strItem.substr(1) : strItem;
}

// A list's count is 16 bits wide; a longer group is cut there.
int16_t ListCount(size_t nEntries)
{
    return static_cast<int16_t>(nEntries > INT16_MAX ? INT16_MAX : nEntries);
}

}  // namespace

bool ParseBandGroup(const std::string& strGroup, NETSRV_DATA::BandList& stFresh)
{
    const std::vector<std::string> vctItems = GroupItems(strGroup);
    if (vctItems.empty()) {
        return false;
    }
    const int16_t nCount = ListCount(vctItems.size() / 2);
    NETSRV_DATA::BandInfo* pstList = new NETSRV_DATA::BandInfo[nCount];
    for (int16_t i = 0; i < nCount; ++i) {
        const std::string& strMask = vctItems[2 * static_cast<size_t>(i)];
        const std::string& strName = vctItems[2 * static_cast<size_t>(i) + 1];
        pstList[i].dwBand = CGlobalFunction::atox(WithoutLeadingParenthesis(strMask).c_str());
        CGlobalFunction::chrcpy(pstList[i].szBandName, TakeOutDoubleQuotationMarks(strName).c_str(),
                                sizeof(pstList[i].szBandName));
    }
    stFresh.nSize = nCount;
    stFresh.pstList = pstList;
    return true;
}

bool ParseAcqOrderGroup(const std::string& strGroup, NETSRV_DATA::AcqOrderList& stFresh)
{
    const std::vector<std::string> vctItems = GroupItems(strGroup);
    if (vctItems.empty()) {
        return false;
    }
    const int16_t nCount = ListCount(vctItems.size());
    NETSRV_DATA::AcqOrderInfo* pstList = new NETSRV_DATA::AcqOrderInfo[nCount];
    for (int16_t i = 0; i < nCount; ++i) {
        const std::string strOrder =
            TakeOutDoubleQuotationMarks(WithoutLeadingParenthesis(vctItems[static_cast<size_t>(i)]));
        CGlobalFunction::chrcpy(pstList[i].szAcqOrder, strOrder.c_str(),
                                sizeof(pstList[i].szAcqOrder));
    }
    stFresh.nSize = nCount;
    stFresh.pstList = pstList;
    return true;
}
