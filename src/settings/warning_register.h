// The alerts that the user asked never to see again, by identifier.
//
// A caller asks `contains` before showing an alert, and calls `register_warning` when its suppression box was ticked.
// Each change is handed to the settings at once. One object for the whole program; the settings must outlive it. Main
// thread only.
#pragma once

#include "settings/default_settings.h"

#include <functional>
#include <set>
#include <string>
#include <string_view>

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

} // namespace tickervantage
