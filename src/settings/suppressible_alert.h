// Alerts that the user may ask never to see again.
//
// What is said is decided here, how it looks where it is shown. Main thread.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace tickervantage {

class WarningRegister;

struct Alert {
    std::string identifier; // in the register of warnings
    std::string message = {};
    std::string informative = {};
    std::vector<std::string> buttons = {}; // the last one is also what closing the alert means
};

struct AlertAnswer {
    std::size_t button = 0; // counted from 0
    bool suppress = false;  // the box "do not show again" was ticked
};

// Shows the alert and returns at once; the answer comes later.
using ShowAlert = std::function<void(const Alert& alert, std::function<void(AlertAnswer)> answered)>;

// Unless the user has asked not to see it: shows the alert, remembers a ticked box, and hands the pressed button on.
// Whether it was shown.
bool show_unless_suppressed(WarningRegister& warnings, const ShowAlert& show, const Alert& alert,
                            std::function<void(std::size_t button)> pressed);

} // namespace tickervantage
