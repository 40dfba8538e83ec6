// The alerts that the user asked never to see again, by identifier.
//
// A caller asks `contains` before showing an alert, and calls `register_warning` when its suppression box was ticked.
// Each change is handed to the settings at once. One object for the whole program; the settings must outlive it. Main
// thread only.
#pragma once

#include "settings/default_settings.h"

#include <cstddef>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tickervantage {

class WarningRegister {
public:
    explicit WarningRegister(DefaultSettings& settings) : m_settings(settings) {}

    void load(); // adds what is stored; call once before the first `contains`
    [[nodiscard]] bool contains(std::string_view identifier) const;
    void register_warning(const std::string& identifier);
    void resetWarnings(); // every alert shows again

private:
    void save();

    DefaultSettings& m_settings;
    std::set<std::string, std::less<>> m_register;
};

// What is said is decided here, how it looks where it is shown.

enum class AlertKind : unsigned char { warning, question, information };

struct Alert {
    std::string identifier; // in the register of warnings
    std::string message = {};
    std::string informative = {};
    std::vector<std::string> buttons = {}; // the last one is also what closing the alert means
    AlertKind kind = AlertKind::warning;
};

struct AlertAnswer {
    std::size_t button = 0; // counted from 0
    bool suppress = false;  // the box "do not show again" was ticked
};

using AlertAnswered = std::function<void(AlertAnswer)>;
using ButtonPressed = std::function<void(std::size_t button)>;

class AlertPresenter {
public:
    virtual ~AlertPresenter() = default;
    virtual void show(const Alert& alert, AlertAnswered answered) = 0; // returns at once; the answer comes later
};

// Unless the user has asked not to see it: shows the alert, remembers a ticked box, and hands the pressed button on.
// Whether it was shown.
bool show_unless_suppressed(WarningRegister& warnings, AlertPresenter& presenter, const Alert& alert,
                            ButtonPressed pressed);

} // namespace tickervantage
