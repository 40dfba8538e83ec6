// What lies at a path, as the windows and the check of a configuration want to know it.
#pragma once

#include <string>

namespace tickervantage {

// As far as a user who typed the path wants to know.
enum class PathState : unsigned char {
    nothing, // there is nothing, or we may not look
    folder,
    file,
    program, // a file that we may run
};

// What a certain user may do with it.
struct PathFacts {
    enum class Kind : unsigned char {
        unknown, // we are not allowed to look
        missing,
        file,
        folder,
        device,
        other,
    };
    Kind kind = Kind::unknown;
    bool readable = true; // by that user, who gets to it through all folders above
    bool writable = true; // likewise
};

// Waits for the disk or the network: on a queue.
class PathProbes {
public:
    virtual ~PathProbes() = default;

    [[nodiscard]] virtual PathState state(const std::string& path) const = 0;
    [[nodiscard]] virtual PathFacts look(const std::string& path, const std::string& user) const = 0;
    [[nodiscard]] virtual bool user_exists(const std::string& user) const = 0;
};

} // namespace tickervantage
