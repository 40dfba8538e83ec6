// The command line of chronywake, for the program and for whoever writes its service definition.
//
//   chronywake [--chronyc PATH] [--socket PATH]
//       asks chronyd once to correct the clock and prints "200 OK" or what went wrong.
//   chronywake --make-thresh SECONDS --make-limit COUNT --burst-good COUNT --burst-max COUNT
//              [--burst-netmask MASK/ADDRESS] [--chronyc PATH] [--socket PATH]
//       stays, and does the same after each wake-up of the machine. One of the first five is enough to stay; those left
//       out have the defaults below.
//
// Every option and its value are two arguments. The options' names are those of the settings, with hyphens. Source:
// chronyc(1), commands makestep and burst.
#pragma once

#include "base/failure.h"

#include <string>
#include <vector>

namespace tickervantage {

struct WakeArguments {
    double make_thresh = 0.1;  // seconds; the clock is stepped when it is off by more
    int make_limit = 3;        // in at most so many updates; -1 for any number
    int burst_good = 4;        // good measurements wanted from each source
    int burst_max = 4;         // measurements tried at most
    std::string burst_netmask; // "mask/address": only these sources; empty for all
    std::string chronyc;       // absolute path; empty: beside chronywake, else /usr/bin/chronyc
    std::string socket;        // absolute path of chronyd's command socket; empty: where chronyc looks
    bool stays = false;
};

// The arguments that make chronywake stay, for its service definition: without the program, options whose value is
// empty left out.
[[nodiscard]] std::vector<std::string> wake_service_arguments(const WakeArguments& arguments);

// Reads the arguments behind the program's name.
[[nodiscard]] Result<WakeArguments> parse_wake_arguments(const std::vector<std::string>& words);

} // namespace tickervantage
