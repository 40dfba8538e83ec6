// The configuration that has chrony write its logs, and what they cost. Pure functions, any thread.
// Source: chrony.conf(5), directives log and logdir; the length of lines as chronyd 4.3 writes them.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tickervantage {

inline constexpr const char* usual_log_line = "log tracking measurements statistics selection";
inline constexpr const char* usual_log_folder_line = "logdir /var/log/chrony";

// With that line in place of the one that is commented out, or at the end where there is none, and with a folder where
// none is named. Nothing else is changed. What other lines ask for is logged as well.
[[nodiscard]] std::string with_logging(std::string_view text);

// Bytes that these logs grow by in a day, with sources that are asked each so many seconds.
[[nodiscard]] double logged_bytes_a_day(std::span<const double> intervals);

} // namespace tickervantage
