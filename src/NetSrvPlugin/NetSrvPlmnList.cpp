#include "NetSrvPlmnList.h"

#include "GlobalFunction.h"
#include "MyGlobalFunc.h"
#include "NetSrvAtCommonds.h"

using namespace NETSRV_DATA;

namespace {

// MCC and MNC: five or six digits.
bool IsOperatorIdentity(const std::string& strPlmnId)
{
    return (strPlmnId.size() == 5 || strPlmnId.size() == 6) &&
           strPlmnId.find_first_not_of("0123456789") == std::string::npos;
}

}  // namespace

std::vector<std::string> SplitOperatorGroup(const std::string& strGroup)
{
    const std::size_t nOpen = strGroup.find('(');
    const std::size_t nBegin = nOpen == std::string::npos ? 0 : nOpen + 1;
    std::size_t nEnd = strGroup.rfind(')');
    if (nEnd == std::string::npos || nEnd < nBegin) {
        nEnd = strGroup.size();
    }
    const std::string strText = strGroup.substr(nBegin, nEnd - nBegin);

    std::vector<std::string> fields;
    std::size_t nStart = 0;
    for (;;) {
        std::size_t nComma = std::string::npos;
        if (nStart < strText.size() && strText[nStart] == '"') {
            const std::size_t nClose = strText.find("\",", nStart + 1);
            nComma = nClose == std::string::npos ? std::string::npos : nClose + 1;
        } else {
            nComma = strText.find(',', nStart);
        }
        if (nComma == std::string::npos) {
            fields.push_back(strText.substr(nStart));
            return fields;
        }
        fields.push_back(strText.substr(nStart, nComma - nStart));
        nStart = nComma + 1;
    }
}

void ParsePlmnList(const Command& report, SPlmnList& rList)
{
    Command group;
    group.index = INDEX_NET_SEARCH;
    group.name = report.name;
    group.type = report.type;

    for (const std::string& strParam : report.params) {
        if (strParam.empty()) {
            break;
        }
        if (rList.btPlmnNumber >= PLMN_LIST_MAX) {
            break;
        }
        group.params = SplitOperatorGroup(strParam);
        NetworkTestCmdRsp rsp;
        // Fills nothing unless the report really is a "+COPS" answer.
        CommandCast(group, &rsp);
        const std::string strPlmnId = TakeOutDoubleQuotationMarks(rsp.PlmnId.ToString());
        if (!IsOperatorIdentity(strPlmnId)) {
            // A stray fragment of a malformed reply, or the group of supported
            // modes of a modem that found no operator: not an operator.
            continue;
        }

        SPlmnInfo& entry = rList.stPlmn[rList.btPlmnNumber];
        const unsigned char btStat = static_cast<unsigned char>(rsp.Stat.GetNumValue());
        entry.btPlmnForbidden = btStat;
        entry.btListCategory = btStat;
        entry.btRat = static_cast<unsigned char>(rsp.AcT.GetNumValue());
        CGlobalFunction::chrcpy(entry.szPlmnID, strPlmnId.c_str(), sizeof(entry.szPlmnID));
        CGlobalFunction::chrcpy(entry.szShortName,
                                TakeOutDoubleQuotationMarks(rsp.ShortName.ToString()).c_str(),
                                sizeof(entry.szShortName));
        CGlobalFunction::chrcpy(entry.szLongName,
                                TakeOutDoubleQuotationMarks(rsp.FullName.ToString()).c_str(),
                                sizeof(entry.szLongName));
        ++rList.btPlmnNumber;
    }
}
