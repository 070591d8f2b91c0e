// The settings store: the file "settings.conf" in the user-data directory,
// read whole on every lookup and rewritten whole on every change (a temporary
// file renamed over the old one, so a reader never sees half a file). One
// process-wide lock keeps a change from losing another thread's change.
#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <mutex>
#include <string>
#include <vector>

#include "GlobalFunction.h"
#include "SettingsFormat.h"
#include "UserDataDirectory.h"
#include "Utf8Text.h"

namespace {

using common_settings::SettingEntry;

const char kSettingsFileName[] = "settings.conf";

std::mutex& SettingsMutex()
{
    static std::mutex mutexSettings;
    return mutexSettings;
}

std::u16string ToU16(const unsigned short* pszText)
{
    const size_t nLength = common_text::Utf16Length(pszText);
    std::u16string strText(nLength, u'\0');
    for (size_t i = 0; i < nLength; ++i) {
        strText[i] = static_cast<char16_t>(pszText[i]);
    }
    return strText;
}

// A missing file is an empty store.
bool ReadWholeFile(const std::string& strPath, std::string& strText)
{
    strText.clear();
    const int fd = open(strPath.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        return errno == ENOENT;
    }
    char buffer[4096];
    bool bOk = true;
    for (;;) {
        const ssize_t nRead = read(fd, buffer, sizeof(buffer));
        if (nRead > 0) {
            strText.append(buffer, static_cast<size_t>(nRead));
        } else if (nRead == 0) {
            break;
        } else if (errno != EINTR) {
            bOk = false;
            break;
        }
    }
    close(fd);
    return bOk;
}

bool WriteAll(int fd, const std::string& strText)
{
    size_t nDone = 0;
    while (nDone < strText.size()) {
        const ssize_t nWritten = write(fd, strText.data() + nDone, strText.size() - nDone);
        if (nWritten < 0) {
            if (errno == EINTR) {
                continue;
            }
            return false;
        }
        nDone += static_cast<size_t>(nWritten);
    }
    return true;
}

bool ReplaceFile(const std::string& strDirectory, const std::string& strPath,
                 const std::string& strText)
{
    std::string strTemp = strDirectory + "/." + kSettingsFileName + ".XXXXXX";
    const int fd = mkostemp(&strTemp[0], O_CLOEXEC);
    if (fd < 0) {
        return false;
    }
    bool bOk = WriteAll(fd, strText) && fsync(fd) == 0;
    bOk = (close(fd) == 0) && bOk;
    if (bOk && rename(strTemp.c_str(), strPath.c_str()) == 0) {
        return true;
    }
    unlink(strTemp.c_str());
    return false;
}

std::vector<SettingEntry>::iterator FindEntry(std::vector<SettingEntry>& entries,
                                              const std::u16string& strModule,
                                              const std::u16string& strItem)
{
    return std::find_if(entries.begin(), entries.end(), [&](const SettingEntry& entry) {
        return entry.module == strModule && entry.item == strItem;
    });
}

}  // namespace

bool CGlobalFunction::SetSetting(const unsigned short* pszModule, const unsigned short* pszItem,
                                 const unsigned short* pszValue)
{
    if (pszModule == nullptr || pszItem == nullptr) {
        return false;
    }
    try {
        const std::u16string strModule = ToU16(pszModule);
        const std::u16string strItem = ToU16(pszItem);
        const std::u16string strValue = ToU16(pszValue);

        std::lock_guard<std::mutex> lock(SettingsMutex());
        std::string strDirectory;
        if (!common_userdata::UserDataDirectoryPath(strDirectory) ||
            !common_userdata::MakeDirectories(strDirectory)) {
            return false;
        }
        const std::string strPath = strDirectory + "/" + kSettingsFileName;
        std::string strText;
        if (!ReadWholeFile(strPath, strText)) {
            return false;  // rewriting an unreadable file would lose its entries
        }
        std::vector<SettingEntry> entries = common_settings::ParseSettings(strText);
        const auto found = FindEntry(entries, strModule, strItem);
        if (found != entries.end()) {
            found->value = strValue;
        } else {
            entries.push_back(SettingEntry{strModule, strItem, strValue});
        }
        return ReplaceFile(strDirectory, strPath, common_settings::FormatSettings(entries));
    } catch (...) {
        return false;
    }
}

int CGlobalFunction::GetSetting(const unsigned short* pszModule, const unsigned short* pszItem,
                                unsigned short* pszBuffer, int nSize)
{
    const bool bHasBuffer = pszBuffer != nullptr && nSize > 0;
    if (bHasBuffer) {
        pszBuffer[0] = 0;
    }
    if (pszModule == nullptr || pszItem == nullptr) {
        return 0;
    }
    try {
        const std::u16string strModule = ToU16(pszModule);
        const std::u16string strItem = ToU16(pszItem);
        std::string strText;
        {
            std::lock_guard<std::mutex> lock(SettingsMutex());
            std::string strDirectory;
            if (!common_userdata::UserDataDirectoryPath(strDirectory) ||
                !ReadWholeFile(strDirectory + "/" + kSettingsFileName, strText)) {
                return 0;
            }
        }
        std::vector<SettingEntry> entries = common_settings::ParseSettings(strText);
        const auto found = FindEntry(entries, strModule, strItem);
        if (found == entries.end()) {
            return 0;
        }
        const std::u16string& strValue = found->value;
        if (bHasBuffer) {
            const size_t nCopy = std::min(strValue.size(), static_cast<size_t>(nSize));
            std::copy(strValue.begin(), strValue.begin() + static_cast<std::ptrdiff_t>(nCopy),
                      pszBuffer);
            if (nCopy < static_cast<size_t>(nSize)) {
                pszBuffer[nCopy] = 0;
            }
        }
        return static_cast<int>(std::min(strValue.size(), static_cast<size_t>(INT_MAX)));
    } catch (...) {
        return 0;
    }
}
