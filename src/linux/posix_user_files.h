// Files on the machine's disks.
//
// A replacement of the user's holds a FileLock, so that two programs that save the same file do not write into each
// other's draft.
#pragma once

#include "base/user_files.h"

namespace tickervantage {

class PosixFiles : public Files {
public:
    [[nodiscard]] FileReading read(const std::string& path, std::size_t limit) override;
    [[nodiscard]] Result<> replace(const std::string& path, const WriteText& write) override;
};

class PosixUserFiles : public UserFiles {
public:
    [[nodiscard]] FileReading read(const std::string& path, std::size_t limit) override;
    [[nodiscard]] Result<> replace(const std::string& path, const WriteText& write) override;
    [[nodiscard]] Result<std::string> set_aside(const std::string& path) override;
    void remove(const std::string& path) override;
};

} // namespace tickervantage
