#include "studies/history/history_table.h"

#include "base/number_text.h"

#include <cmath>

namespace tickervantage {

HistoryTable table_of(const HistoryView& view) {
    HistoryTable table;
    for (const HistoryCurve& curve : view.curves()) {
        if (!view.is_shown(curve))
            continue;
        HistoryTable::Part part{curve.key, {}};
        const std::size_t end = curve.values->first_from(std::nextafter(view.range().to, INFINITY));
        for (std::size_t at = curve.values->first_from(view.range().from); at < end; ++at)
            part.values.push_back(curve.values->at(at));
        table.parts.push_back(std::move(part));
    }
    return table;
}

std::string csv_of(const HistoryTable& table) {
    std::string text = "time,curve,lowest,mean,highest\n";
    for (const auto& part : table.parts)
        for (const TimedExtent& value : part.values) {
            text += utc_stamp(static_cast<std::int64_t>(std::floor(value.time))) + ',' + part.key;
            for (const double number : {value.low, value.mean, value.high})
                text += ',' + text_from_double(number).value_or("");
            text += '\n';
        }
    return text;
}

} // namespace tickervantage
