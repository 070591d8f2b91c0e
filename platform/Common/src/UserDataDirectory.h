// Where the host keeps per-user data, as a file-system path (bytes).
#ifndef COMMON_USERDATADIRECTORY_H
#define COMMON_USERDATADIRECTORY_H

#include <string>

namespace common_userdata {

// The folder of the host below the user's data home: $XDG_DATA_HOME/netsrv,
// else $HOME/.local/share/netsrv (the home from the password database when
// HOME is unset). XDG_DATA_HOME counts only when it is an absolute path, as
// the base-directory convention asks. False when no home can be found.
bool UserDataDirectoryPath(std::string& strPath);

// Creates the directory and its missing parents (mode 0700). True when it
// exists as a directory afterwards.
bool MakeDirectories(const std::string& strPath);

}  // namespace common_userdata

#endif
