#include "linux/path_state.h"

#include <sys/stat.h>
#include <unistd.h>

namespace tickervantage {

PathState path_state(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0)
        return PathState::nothing;
    if (S_ISDIR(status.st_mode))
        return PathState::folder;
    const bool runs = S_ISREG(status.st_mode) && ::access(path.c_str(), X_OK) == 0;
    return runs ? PathState::program : PathState::file;
}

} // namespace tickervantage
