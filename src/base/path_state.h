// What lies under a path, as far as a user who typed it wants to know.
#pragma once

namespace tickervantage {

enum class PathState : unsigned char {
    nothing, // there is nothing, or we may not look
    folder,
    file,
    program, // a file that we may run
};

} // namespace tickervantage
