// The words that the setting commands take on the command line and the
// numbers they stand for, so that what a user types is checked against the
// same table that gives the number sent. Pure.
#ifndef NETSRVCTL_SETTINGWORDS_H
#define NETSRVCTL_SETTINGWORDS_H

#include <optional>
#include <string>
#include <vector>

namespace netsrvctl {

struct SettingWord {
    std::string word;
    int value;
};
typedef std::vector<SettingWord> WordTable;

// cs, ps, eps: a RegDomain.
const WordTable& DomainWords();
// 0 no reports, 1 the state, 2 the state and the location.
const WordTable& ReportModeWords();
// dpa, upa: an HSPA_MODE.
const WordTable& HspaSwitchWords();
// on, off: an HSPA_STAT.
const WordTable& OnOffWords();
// cdma, evdo, hybrid: a CdmaPrefMode.
const WordTable& PrefModeWords();
// 0, A, B: an EvdoRevision, whose numbers keep the modem's order (A is 0).
const WordTable& EvdoRevisionWords();
// 1, 2: a NAMMode (NAM 1 is 0).
const WordTable& NamWords();

std::optional<int> ValueOfWord(const WordTable& table, const std::string& word);
// "cs, ps, eps"
std::string WordList(const WordTable& table);

// A MIN is 10 digits, an IMSI_M 15; nothing else goes to the modem.
bool IsMinNumber(const std::string& text);

}  // namespace netsrvctl

#endif
