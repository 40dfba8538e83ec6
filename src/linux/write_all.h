// Writing all of a text to a descriptor that may take it piece by piece.
//
// 0, or -1 with errno; then some of the bytes may have gone out. Waits as long as the descriptor does; any thread.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <string_view>

namespace tickervantage {

[[nodiscard]] inline int write_all(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(fd, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return -1;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

} // namespace tickervantage
