// What the main window remembers from one run to the next.
#pragma once

#include "chrony/status/status_values.h"
#include "settings/default_settings.h"

#include <string>

namespace tickervantage {

struct MainWindowSettings {
    std::string chronyCommand = "tracking";
    meterView m_meterview = meterView::lastoffset;
    bool showIPaddress = false;
    bool showOriginalName = false;
    int m_interval = 10; // seconds, 1 to 60
    std::string m_server;
    Font output_font; // no family: the window's own

    // Settings are read in this order. A stored meter view that does not exist ends the reading: the ones after it may
    // come from a version that counts views differently, and keep their defaults.
    friend bool operator==(const MainWindowSettings&, const MainWindowSettings&) = default;

    static MainWindowSettings load(const DefaultSettings& settings);
    void save(DefaultSettings& settings) const;
};

} // namespace tickervantage
