// What the main window remembers from one run to the next.
#pragma once

#include "chrony/status/status_values.h"
#include "settings/settings_keys.h"

#include <string>

namespace tickervantage {

class DefaultSettings;

struct MainWindowSettings {
    std::string chronyCommand{settings::chronyc_command.fallback};
    meterView m_meterview = meterView::lastoffset;
    bool meter_error_bound = false; // on the meter, in place of the quantity above
    bool showIPaddress = false;
    bool showOriginalName = false;
    int m_interval = settings::chronyc_interval.fallback; // seconds
    std::string m_server;
    Font output_font; // no family: the window's own

    friend bool operator==(const MainWindowSettings&, const MainWindowSettings&) = default;

    // With a stored meter view that does not exist, only the command is read: what comes after it may come from a
    // version that counts views differently, and keeps its default.
    static MainWindowSettings load(const DefaultSettings& settings);
    void save(DefaultSettings& settings) const;
};

} // namespace tickervantage
