// Followed files of the file system. What begins like a gzip file is read as the text that it holds.
#pragma once

#include "base/followed_file.h"

namespace tickervantage {

class PosixFollowedFiles : public FollowedFiles {
public:
    [[nodiscard]] Found status(const std::string& name, FileStatus& status, std::optional<Failure>& reason) override;
    [[nodiscard]] int open(const std::string& name, std::unique_ptr<FollowedFile>& file, FileStatus& status,
                           std::optional<Failure>& reason) override;
};

} // namespace tickervantage
