#include "SettingWords.h"

#include "Interface/NetSrvDef.h"
#include "RegistrationReport.h"

namespace netsrvctl {

using namespace NETSRV_DATA;

const WordTable& DomainWords()
{
    static const WordTable table = [] {
        WordTable words;
        for (const RegDomainInfo& info : RegDomains()) {
            words.push_back({info.key, static_cast<int>(info.domain)});
        }
        return words;
    }();
    return table;
}

const WordTable& ReportModeWords()
{
    static const WordTable table = {{"0", 0}, {"1", 1}, {"2", 2}};
    return table;
}

const WordTable& HspaSwitchWords()
{
    static const WordTable table = {{"dpa", HSPA_MODE_DPA}, {"upa", HSPA_MODE_UPA}};
    return table;
}

const WordTable& OnOffWords()
{
    static const WordTable table = {{"on", HSPA_STAT_ENABLE}, {"off", HSPA_STAT_DISABLE}};
    return table;
}

const WordTable& PrefModeWords()
{
    static const WordTable table = {{"cdma", CDMA_PREF_MODE_CDMA},
                                    {"evdo", CDMA_PREF_MODE_HDR},
                                    {"hybrid", CDMA_PREF_MODE_CDMA_HDR_HYBRID}};
    return table;
}

const WordTable& EvdoRevisionWords()
{
    static const WordTable table = {{"0", EVDO_REV0}, {"A", EVDO_REVA}, {"B", EVDO_REVB}};
    return table;
}

const WordTable& NamWords()
{
    static const WordTable table = {{"1", NAM_MODE_FIRST}, {"2", NAM_MODE_SECOND}};
    return table;
}

std::optional<int> ValueOfWord(const WordTable& table, const std::string& word)
{
    for (const SettingWord& entry : table) {
        if (entry.word == word) {
            return entry.value;
        }
    }
    return std::nullopt;
}

std::string WordList(const WordTable& table)
{
    std::string list;
    for (const SettingWord& entry : table) {
        list += (list.empty() ? "" : ", ") + entry.word;
    }
    return list;
}

bool IsMinNumber(const std::string& text)
{
    if (text.size() != 10 && text.size() != 15) {
        return false;
    }
    for (const char c : text) {
        if (c < '0' || c > '9') {
            return false;
        }
    }
    return true;
}

}  // namespace netsrvctl
