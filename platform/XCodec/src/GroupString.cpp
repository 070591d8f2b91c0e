// The group splitter. A test answer nests its groups one level deep at most
// in practice, but nothing here assumes it: parentheses are counted, quotes
// hide commas and parentheses, and an unbalanced text still splits without
// reading past its end.

#include "XCodec.h"

#include <cstddef>

namespace {

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// Where the "(" at nOpen is closed, outside quotes; npos when it is not.
std::size_t MatchingClose(const std::string& strText, std::size_t nOpen)
{
    int iDepth = 0;
    bool bQuoted = false;
    for (std::size_t i = nOpen; i < strText.size(); ++i) {
        const char c = strText[i];
        if (c == '"') {
            bQuoted = !bQuoted;
        } else if (!bQuoted && c == '(') {
            ++iDepth;
        } else if (!bQuoted && c == ')' && --iDepth == 0) {
            return i;
        }
    }
    return std::string::npos;
}

// The text without the outer pair when the first "(" is closed by the last ")".
std::string WithoutOuterPair(const std::string& strText)
{
    const std::size_t nOpen = strText.find('(');
    const std::size_t nLastClose = strText.rfind(')');
    if (nOpen == std::string::npos || nLastClose == std::string::npos ||
        MatchingClose(strText, nOpen) != nLastClose) {
        return strText;
    }
    return strText.substr(0, nOpen) + strText.substr(nOpen + 1, nLastClose - nOpen - 1) +
           strText.substr(nLastClose + 1);
}

// One item as it was cut: blanks around it dropped, then every ")" at its end
// that closes a "(" of an earlier item, with the blanks before it.
std::string Finished(const std::string& strItem)
{
    // Walk the item once: the positions of the closes that belong to earlier items.
    std::vector<bool> vctForeign(strItem.size(), false);
    int iOwnOpen = 0;
    bool bQuoted = false;
    for (std::size_t i = 0; i < strItem.size(); ++i) {
        const char c = strItem[i];
        if (c == '"') {
            bQuoted = !bQuoted;
        } else if (!bQuoted && c == '(') {
            ++iOwnOpen;
        } else if (!bQuoted && c == ')') {
            if (iOwnOpen > 0) {
                --iOwnOpen;
            } else {
                vctForeign[i] = true;
            }
        }
    }
    std::size_t nBegin = 0;
    std::size_t nEnd = strItem.size();
    while (nBegin < nEnd && IsBlank(strItem[nBegin])) {
        ++nBegin;
    }
    for (;;) {
        while (nEnd > nBegin && IsBlank(strItem[nEnd - 1])) {
            --nEnd;
        }
        if (nEnd > nBegin && vctForeign[nEnd - 1]) {
            --nEnd;
            continue;
        }
        break;
    }
    return strItem.substr(nBegin, nEnd - nBegin);
}

}  // namespace

int CXCodec::DecoderGroupString(const std::string& strText, std::vector<std::string>& vctItems)
{
    vctItems.clear();
    const std::string strInner = WithoutOuterPair(strText);
    bool bBlankOnly = true;
    for (char c : strInner) {
        bBlankOnly = bBlankOnly && IsBlank(c);
    }
    if (bBlankOnly) {
        return 0;
    }
    std::string strItem;
    bool bQuoted = false;
    for (char c : strInner) {
        if (c == '"') {
            bQuoted = !bQuoted;
        }
        if (c == ',' && !bQuoted) {
            vctItems.push_back(Finished(strItem));
            strItem.clear();
        } else {
            strItem += c;
        }
    }
    vctItems.push_back(Finished(strItem));
    return static_cast<int>(vctItems.size());
}
