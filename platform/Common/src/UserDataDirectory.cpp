#include "UserDataDirectory.h"

#include <errno.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "GlobalFunction.h"
#include "Utf8Text.h"

namespace common_userdata {

namespace {

const char kFolderName[] = "netsrv";

bool IsAbsolute(const char* pszPath)
{
    return pszPath != nullptr && pszPath[0] == '/';
}

bool HomeFromPasswordDatabase(std::string& strHome)
{
    long nBufferSize = sysconf(_SC_GETPW_R_SIZE_MAX);
    if (nBufferSize <= 0) {
        nBufferSize = 16384;
    }
    std::vector<char> buffer(static_cast<size_t>(nBufferSize));
    struct passwd entry;
    struct passwd* pResult = nullptr;
    if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &pResult) != 0 ||
        pResult == nullptr || !IsAbsolute(pResult->pw_dir)) {
        return false;
    }
    strHome = pResult->pw_dir;
    return true;
}

}  // namespace

bool UserDataDirectoryPath(std::string& strPath)
{
    std::string strBase;
    const char* pszDataHome = getenv("XDG_DATA_HOME");
    if (IsAbsolute(pszDataHome)) {
        strBase = pszDataHome;
    } else {
        const char* pszHome = getenv("HOME");
        std::string strHome;
        if (IsAbsolute(pszHome)) {
            strHome = pszHome;
        } else if (!HomeFromPasswordDatabase(strHome)) {
            return false;
        }
        while (strHome.size() > 1 && strHome.back() == '/') {
            strHome.pop_back();
        }
        strBase = (strHome == "/" ? std::string() : strHome) + "/.local/share";
    }
    while (strBase.size() > 1 && strBase.back() == '/') {
        strBase.pop_back();
    }
    strPath = (strBase == "/" ? std::string() : strBase) + "/" + kFolderName;
    return true;
}

bool MakeDirectories(const std::string& strPath)
{
    if (strPath.empty()) {
        return false;
    }
    size_t nPos = 0;
    while (nPos != std::string::npos) {
        nPos = strPath.find('/', nPos + 1);
        const std::string strPart = strPath.substr(0, nPos);
        if (mkdir(strPart.c_str(), 0700) != 0 && errno != EEXIST) {
            // Some file systems answer EACCES or EROFS before EEXIST; a part
            // that is already a directory is fine whatever mkdir said.
            struct stat info;
            if (stat(strPart.c_str(), &info) != 0 || !S_ISDIR(info.st_mode)) {
                return false;
            }
        }
    }
    struct stat info;
    return stat(strPath.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

}  // namespace common_userdata

bool CGlobalFunction::GetUserDataDirectory(unsigned short* pszBuffer, int nSize)
{
    if (pszBuffer == nullptr || nSize <= 0) {
        return false;
    }
    std::string strPath;
    if (!common_userdata::UserDataDirectoryPath(strPath)) {
        pszBuffer[0] = 0;
        return false;
    }
    const std::vector<unsigned short> units = common_text::Utf8ToUtf16(strPath);
    const size_t nCopy = std::min(units.size(), static_cast<size_t>(nSize) - 1);
    std::copy(units.begin(), units.begin() + static_cast<std::ptrdiff_t>(nCopy), pszBuffer);
    pszBuffer[nCopy] = 0;
    return true;
}
