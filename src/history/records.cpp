#include "history/records.h"

namespace tickervantage {

std::string_view name_of(HistoryQuantity quantity) {
    static constexpr std::array<std::string_view, history_quantities> names{
        "system_time", "last_offset", "rms_offset",      "frequency_ppm", "residual_frequency_ppm",
        "skew_ppm",    "root_delay",  "root_dispersion", "bound"};
    return names.at(static_cast<std::size_t>(quantity));
}

std::string_view name_of(HistoryEventKind kind) {
    static constexpr std::array<std::string_view, 4> names{"verdict", "reference", "chronyd", "job"};
    return names.at(static_cast<std::size_t>(kind));
}

} // namespace tickervantage
