// The chronyc reports that the command menu offers. Source: chronyc(1), monitoring commands.
#pragma once

#include "base/translatable.h"

#include <array>
#include <string_view>

namespace tickervantage {

struct StatusCommand {
    std::string_view command; // one argument of chronyc, and the menu item's title
    const char* explanation;
};

/* TRANSLATOR commands
   main window: what a report of chronyc shows, a tooltip in the menu of reports. */
inline constexpr std::array<StatusCommand, 15> status_commands{{
    {"tracking", TV_TEXT("commands", "How the system clock is doing")},
    {"sources", TV_TEXT("commands", "The time sources")},
    {"sources -v", TV_TEXT("commands", "The time sources, with the columns explained")},
    {"sourcestats", TV_TEXT("commands", "Drift rate and offset of each source")},
    {"sourcestats -v", TV_TEXT("commands", "Drift rate and offset of each source, with the columns explained")},
    {"activity", TV_TEXT("commands", "How many sources are online and offline")},
    {"authdata", TV_TEXT("commands", "Authentication of the sources (needs administrator rights)")},
    {"ntpdata", TV_TEXT("commands", "The last valid measurement of each NTP source (needs administrator rights)")},
    {"selectdata", TV_TEXT("commands", "How the sources were selected (needs administrator rights)")},
    {"clients", TV_TEXT("commands", "Clients that asked this machine for the time (needs administrator rights)")},
    {"serverstats",
     TV_TEXT("commands", "Counts of the requests this machine answered or dropped (needs administrator rights)")},
    {"rtcdata", TV_TEXT("commands", "The real-time clock")},
    {"smoothing", TV_TEXT("commands", "Smoothing of the time served to clients")},
    {"manual list", TV_TEXT("commands", "Times that were entered by hand")},
    {"version", TV_TEXT("commands", "Versions of chronyd, chronyc and their libraries")},
}};

} // namespace tickervantage
