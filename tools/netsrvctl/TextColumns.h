// The "label: value" lines of every text view (status, signal, plugin-info,
// lasterr, address, registration, hspa, cdma). The values stand in one column, wide enough for the
// longest label of any view, so that views printed one after the other
// (status, then signal) line up as one table. Pure.
#ifndef NETSRVCTL_TEXTCOLUMNS_H
#define NETSRVCTL_TEXTCOLUMNS_H

#include <optional>
#include <string>

namespace netsrvctl {

// "sub-mode:         45 - HSPA+ (WCDMA)\n". A label longer than the column
// is followed by one blank.
std::string LabelledLine(const std::string& label, const std::string& value);

// The line of a value that may not have been read: "label: not reported"
// for none, or nothing at all when bShowMissing is false (a command that
// changed one setting prints that one alone).
std::string ReadingLine(const std::string& label, const std::optional<std::string>& value,
                        bool bShowMissing = true);

}  // namespace netsrvctl

#endif
