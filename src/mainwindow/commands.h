// The chronyc reports that the command menu offers. Source: chronyc(1), monitoring commands.
#pragma once

#include <array>
#include <string_view>

namespace tickervantage {

struct StatusCommand {
    std::string_view command; // one argument of chronyc, and the menu item's title
    std::string_view explanation;
};

inline constexpr std::array<StatusCommand, 15> status_commands{{
    {"tracking", "How the system clock is doing"},
    {"sources", "The time sources"},
    {"sources -v", "The time sources, with the columns explained"},
    {"sourcestats", "Drift rate and offset of each source"},
    {"sourcestats -v", "Drift rate and offset of each source, with the columns explained"},
    {"activity", "How many sources are online and offline"},
    {"authdata", "Authentication of the sources (needs administrator rights)"},
    {"ntpdata", "The last valid measurement of each NTP source (needs administrator rights)"},
    {"selectdata", "How the sources were selected (needs administrator rights)"},
    {"clients", "Clients that asked this machine for the time (needs administrator rights)"},
    {"serverstats", "Counts of the requests this machine answered or dropped"},
    {"rtcdata", "The real-time clock"},
    {"smoothing", "Smoothing of the time served to clients"},
    {"manual list", "Times that were entered by hand"},
    {"version", "Versions of chronyd, chronyc and their libraries"},
}};

} // namespace tickervantage
