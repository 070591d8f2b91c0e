#include "OperatorList.h"

#include "CommandLine.h"

namespace modemsim {

const std::string& NameOf(const OperatorInfo& entry, int32_t format)
{
    if (format == kFormatLong) {
        return entry.longName;
    }
    return format == kFormatShort ? entry.shortName : entry.plmn;
}

bool ReadFormatAndOperator(const std::vector<std::string>& fields,
                           std::optional<int32_t>* pFormat, std::string* pOper)
{
    if (fields.size() > 1 && !fields[1].empty()) {
        *pFormat = ParseNumberArg(fields[1], kFormatLong, kFormatNumeric);
        if (!*pFormat) {
            return false;
        }
    }
    if (fields.size() > 2) {
        *pOper = fields[2];
    }
    return true;
}

bool IsRegisteredEntry(const NetworkState& net, const OperatorInfo& entry)
{
    return net.registered && net.registered->plmn == entry.plmn &&
           net.registered->act == entry.act;
}

const OperatorInfo* RegisteredEntry(const NetworkState& net)
{
    for (const OperatorInfo& entry : net.operators) {
        if (IsRegisteredEntry(net, entry)) {
            return &entry;
        }
    }
    return nullptr;
}

int32_t SearchStatus(const NetworkState& net, const OperatorInfo& entry)
{
    if (IsRegisteredEntry(net, entry)) {
        return kOperatorCurrent;
    }
    return entry.status == kOperatorCurrent ? kOperatorAvailable : entry.status;
}

}  // namespace modemsim
