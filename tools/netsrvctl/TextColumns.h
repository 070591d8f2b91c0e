// The "label: value" lines of every text view (status, signal, plugin-info,
// lasterr, address). The values stand in one column, wide enough for the
// longest label of any view, so that views printed one after the other
// (status, then signal) line up as one table. Pure.
#ifndef NETSRVCTL_TEXTCOLUMNS_H
#define NETSRVCTL_TEXTCOLUMNS_H

#include <string>

namespace netsrvctl {

// "sub-mode:         45 - HSPA+ (WCDMA)\n". A label longer than the column
// is followed by one blank.
std::string LabelledLine(const std::string& label, const std::string& value);

}  // namespace netsrvctl

#endif
