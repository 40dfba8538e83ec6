// What makes the start of the program short.
#pragma once

#include "base/paths.h"

#include <thread>

namespace tickervantage {

// Reads the descriptions of the fonts while something else is done, which is a third of what a small window needs until
// it is painted. Ends no earlier than the reading.
class FontsAhead {
public:
    FontsAhead();
    ~FontsAhead();
    FontsAhead(const FontsAhead&) = delete;
    FontsAhead& operator=(const FontsAhead&) = delete;

private:
    std::thread m_thread;
};

// The desktop's own icons come first; the bundle's stand in for those that its theme lacks. Needs the application
// object.
void choose_icons(const Paths& paths);

} // namespace tickervantage
