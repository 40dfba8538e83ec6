// The user's files on the machine's disks.
//
// A replacement holds a FileLock, so that two programs that save the same file do not write into each other's draft.
#pragma once

#include "base/user_files.h"

namespace tickervantage {

class PosixUserFiles : public UserFiles {
public:
    [[nodiscard]] Found read(const std::string& path, std::size_t limit, std::string& text,
                             std::string& sentence) override;
    [[nodiscard]] int replace(const std::string& path, const std::function<int(const TextSink&)>& write,
                              std::string& sentence) override;
    [[nodiscard]] int set_aside(const std::string& path, std::string& kept_as, std::string& sentence) override;
    void remove(const std::string& path) override;
};

} // namespace tickervantage
