// A fresh directory under /tmp, removed with everything in it at the end.
#ifndef TESTKIT_TEMPDIR_H
#define TESTKIT_TEMPDIR_H

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace testkit {

class TempDir {
public:
    TempDir()
    {
        std::string pattern = "/tmp/netsrv-test-XXXXXX";
        if (mkdtemp(&pattern[0]) != nullptr) {
            m_path = pattern;
        } else {
            ADD_FAILURE() << "mkdtemp failed";
        }
    }
    ~TempDir()
    {
        std::error_code ec;
        if (!m_path.empty()) {
            std::filesystem::remove_all(m_path, ec);
        }
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& Path() const { return m_path; }
    std::string operator/(const std::string& name) const { return m_path + "/" + name; }

    // Writes a file of this directory, replacing it; returns its path.
    std::string Write(const std::string& name, const std::string& text) const
    {
        const std::string path = *this / name;
        std::ofstream file(path, std::ios::binary | std::ios::trunc);
        file << text;
        EXPECT_TRUE(file.good()) << path;
        return path;
    }

private:
    std::string m_path;
};

}  // namespace testkit

#endif
