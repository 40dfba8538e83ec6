// The values behind the picture, as a table for other programs. Plain values, any thread.
#pragma once

#include "studies/history/history_view.h"

#include <string>
#include <vector>

namespace tickervantage {

struct HistoryTable {
    struct Part {
        std::string key;
        std::vector<TimedExtent> values;
    };
    std::vector<Part> parts;
};

// The shown curves in the range in sight.
[[nodiscard]] HistoryTable table_of(const HistoryView& view);

// "time,curve,lowest,mean,highest", one value a line; UTC, seconds and ppm, numbers that read back exactly.
[[nodiscard]] std::string csv_of(const HistoryTable& table);

} // namespace tickervantage
