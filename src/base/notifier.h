// One notification of the desktop: shown, replaced by the next, taken away. Calls return at once.
#pragma once

#include <string>

namespace tickervantage {

struct Notification {
    std::string title; // UTF-8, in the user's language
    std::string text;
    bool is_critical = false; // stays until it is withdrawn or closed
};

class Notifier {
public:
    virtual ~Notifier() = default;
    virtual void show(const Notification& notification) = 0; // in place of the one that was shown before
    virtual void withdraw() = 0;
};

} // namespace tickervantage
