// What lies at a path, and what a user may do with it.
#pragma once

namespace tickervantage {

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

} // namespace tickervantage
