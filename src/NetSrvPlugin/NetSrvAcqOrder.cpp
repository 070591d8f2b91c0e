#include "NetSrvAcqOrder.h"

#include <cstring>

namespace {

struct AcqOrderRow {
    const char* pszText;
    DWORD dwSystemMode;
    DWORD dwAcqOrder;
};

// A TD-SCDMA-only modem is given acquisition order 2: the older command has
// no order of its own for TD-SCDMA, and the modems take 2 there.
const AcqOrderRow kRows[] = {
    {"01", NETSRV_DATA::GSM_ONLY, 1},
    {"02", NETSRV_DATA::WCDMA_ONLY, 2},
    {"0201", NETSRV_DATA::AUTO, 2},
    {"0102", NETSRV_DATA::AUTO, 1},
    {"05", NETSRV_DATA::TD_SCDMA_ONLY, 2},
};

}  // namespace

bool ModeAndOrderOfAcqText(const char* pszAcqOrder, DWORD& dwSystemMode, DWORD& dwAcqOrder)
{
    for (const AcqOrderRow& row : kRows) {
        if (std::strcmp(pszAcqOrder, row.pszText) == 0) {
            dwSystemMode = row.dwSystemMode;
            dwAcqOrder = row.dwAcqOrder;
            return true;
        }
    }
    return false;
}

const char* AcqTextOfModeAndOrder(DWORD dwSystemMode, DWORD dwAcqOrder)
{
    switch (dwSystemMode) {
    case NETSRV_DATA::AUTO:
        return dwAcqOrder == 2 ? "0201" : dwAcqOrder == 1 ? "0102" : nullptr;
    case NETSRV_DATA::GSM_ONLY:
        return "01";
    case NETSRV_DATA::WCDMA_ONLY:
        return "02";
    case NETSRV_DATA::TD_SCDMA_ONLY:
        return "05";
    default:
        return nullptr;
    }
}
