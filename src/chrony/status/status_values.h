// What a tracking report means for the dashboard: the daemon's state, the meter's value and its text.
#pragma once

#include "chrony/reports/tracking_report.h"

#include <string>
#include <string_view>

namespace tickervantage {

class ClockPerformance;

enum class chronydStatus : unsigned char { synchronised = 0, notlocked = 1, unavailable = 2 };

// The quantity on the meter, in the order of the selector's items.
enum class meterView : unsigned char {
    systemtime = 0,
    lastoffset = 1,
    rmsoffset = 2,
    rootdelay = 3,
    rootdispersion = 4,
    frequency = 5
};

inline constexpr int meter_view_count = 6;

// In place of a value that is not there.
inline constexpr const char* no_value = "–";

// "synchronised", "notlocked", "unavailable"; the field's name of the view. For tickerctl and logs, never translated.
[[nodiscard]] std::string_view name_of(chronydStatus status);
[[nodiscard]] std::string_view name_of(meterView view);

// A leap second to be deleted counts as unavailable: chronyd announces it by a status that no state is defined for.
[[nodiscard]] chronydStatus status_from_leap(std::string_view leapstatus);

struct MeterInput {
    double value = 0;        // seconds; a plain ratio with per_second
    bool per_second = false; // the value is a rate
};

// Zero when the daemon is unavailable.
[[nodiscard]] MeterInput choose_meter(chronydStatus status, meterView view, const TrackingReport& report);

// Sets the meter and returns its value as text in the unit of its scale: three decimals, a blank, the unit.
std::string set_meter(ClockPerformance& meter, const MeterInput& input);

} // namespace tickervantage
