// Files that one run of the program keeps for the next, in case it ends suddenly. Calls wait for the disk; one thread.
#pragma once

#include "base/failure.h"

#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

struct LeftFile {
    std::string path;
    std::string bytes;
};

class KeptFiles {
public:
    virtual ~KeptFiles() = default;

    // Of this run. A name is that of a file without folders.
    [[nodiscard]] virtual Result<> keep(const std::string& name, std::string_view bytes) = 0;
    virtual void drop(const std::string& name) = 0;

    // Of runs that have ended, oldest first. A file that cannot be read stays where it is.
    [[nodiscard]] virtual std::vector<LeftFile> left_behind() = 0;

    // Of a file that was left behind: makes it one of this run's, or removes it.
    [[nodiscard]] virtual Result<> adopt(const std::string& path, const std::string& name) = 0;
    virtual void remove(const std::string& path) = 0;
};

} // namespace tickervantage
