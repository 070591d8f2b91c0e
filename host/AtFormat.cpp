#include "AtFormat.h"

#include <vector>

#include "AtCodec/CmdDef.h"

namespace host {

namespace {
// More parameters than any command object holds: a count this large means
// the object is not what it claims to be, and walking it would leave it.
const unsigned long kMaxParams = 64;

// Control characters end, abort or garble a command line: CR runs it, ESC and
// Ctrl-Z end a text prompt, NUL ends C strings on the modem side. Tabs are
// harmless and some modems' texts carry them.
bool IsSendable(const std::string& text)
{
    for (const char c : text) {
        const unsigned char u = static_cast<unsigned char>(c);
        if ((u < 0x20 && c != '\t') || u == 0x7F) {
            return false;
        }
    }
    return true;
}
}  // namespace

std::string FormatCommandLine(ICommand& cmd)
{
    const char* pszName = cmd.GetName();
    if (pszName == nullptr || *pszName == '\0') {
        return std::string();
    }
    const std::string name(pszName);
    if (!IsSendable(name)) {
        return std::string();
    }
    const std::string head = "AT" + name;

    PARAMETER* pFirst = cmd.GetFirstElemAddr();
    const unsigned long count = pFirst == nullptr ? 0 : cmd.GetElemCount();
    if (count == 0) {
        return head;
    }
    if (count > kMaxParams) {
        return std::string();
    }
    if (pFirst->TypeId() == PARAM_ID_OPERATOR) {
        const uint64 op = pFirst->GetNumValue();
        if (op == OPERATOR_READ_CMD) {
            return head + "?";
        }
        if (op == OPERATOR_TEST_CMD) {
            return head + "=?";
        }
        // Another operator value carries no form of its own: it goes out as a
        // plain field like any number.
    }

    std::vector<std::string> fields;
    fields.reserve(count);
    for (unsigned long i = 0; i < count; ++i) {
        fields.push_back(pFirst[i].ToString());
        if (!IsSendable(fields.back())) {
            return std::string();
        }
    }
    while (!fields.empty() && fields.back().empty()) {
        fields.pop_back();
    }
    std::string line = head + "=";
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i != 0) {
            line += ',';
        }
        line += fields[i];
    }
    return line;
}

}  // namespace host
