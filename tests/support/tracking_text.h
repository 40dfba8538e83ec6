// A "tracking" report as chronyc 4.3 prints it, with the values that a test cares about.
#pragma once

#include <string>

namespace tickervantage::testing {

inline std::string tracking_text(const std::string& leap = "Normal", const std::string& frequency = "12.345 ppm slow") {
    return "Reference ID    : 7F000001 (127.0.0.1)\n"
           "Stratum         : 6\n"
           "Ref time (UTC)  : Sat Nov 21 05:20:32 2026\n"
           "System time     : 0.000000806 seconds slow of NTP time\n"
           "Last offset     : -0.000000032 seconds\n"
           "RMS offset      : 0.000001125 seconds\n"
           "Frequency       : " +
           frequency +
           "\n"
           "Residual freq   : -0.001 ppm\n"
           "Skew            : 0.128 ppm\n"
           "Root delay      : 0.000005637 seconds\n"
           "Root dispersion : 0.000001995 seconds\n"
           "Update interval : 0.5 seconds\n"
           "Leap status     : " +
           leap + "\n";
}

// The same report as "chronyc -n -c" prints it. The number is as above, in ppm, slow below zero.
inline std::string tracking_line(const std::string& leap = "Normal", const std::string& frequency = "-12.345",
                                 const std::string& reference_id = "7F000001") {
    return reference_id + ",127.0.0.1,6,1795238432.000000000,0.000000806,-0.000000032,0.000001125," + frequency +
           ",-0.001,0.128,0.000005637,0.000001995,0.5," + leap + "\n";
}

} // namespace tickervantage::testing
