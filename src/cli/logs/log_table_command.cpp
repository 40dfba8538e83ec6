// `tickerctl log` of all logs but the tracking log.
#include "base/local_clock.h"
#include "cli/logs/log_command.h"
#include "cli/terminal.h"

#include <fmt/format.h>

#include <cmath>
#include <ostream>
#include <vector>

namespace tickervantage {
namespace {

constexpr std::int64_t microseconds_a_second = 1000000;

std::string stamp_of(const LogTable& records, std::size_t index) {
    const std::int64_t time = records.microseconds(index);
    std::string stamp = utc_stamp(time / microseconds_a_second);
    if (records.shape().has_fraction)
        stamp.insert(stamp.size() - 1, fmt::format(".{:06}", time % microseconds_a_second));
    return stamp;
}

Json json_of(const LogTable& records, std::size_t column, std::size_t index) {
    const LogColumn& shape = records.shape().columns[column];
    if (!shape.is_number())
        return std::string(records.text(column, index));
    const double number = records.number(column, index);
    if (std::isnan(number))
        return nullptr;
    const bool is_whole = shape.form != ColumnForm::number && number == std::trunc(number) && std::abs(number) < 1e15;
    return is_whole ? Json(static_cast<std::int64_t>(number)) : Json(number);
}

Json json_of(const LogTable& records, std::size_t index) {
    Json record{{"timestamp", stamp_of(records, index)}};
    for (std::size_t column = 0; column < records.shape().columns.size(); ++column)
        record[std::string(records.shape().columns[column].name)] = json_of(records, column, index);
    return record;
}

// Of no record: for a heading.
Json names_of(const LogShape& shape) {
    Json names{{"timestamp", shape.has_fraction ? "2026-11-22T12:44:52.181179Z" : "2026-11-22T12:44:52Z"}};
    for (const LogColumn& column : shape.columns)
        names[std::string(column.name)] = nullptr;
    return names;
}

std::vector<std::size_t> chosen(const LogTable& records, const LogChoice& choice) {
    std::vector<std::size_t> indexes;
    for (std::size_t index = 0; index < records.size(); ++index)
        if (choice.has_time(records.time(index)) &&
            (!choice.source || (records.shape().has_source && records.text(0, index) == *choice.source)))
            indexes.push_back(index);
    return indexes;
}

} // namespace

int print_log(const LogTable& records, LogForm form, std::ostream& out, const LogChoice& choice) {
    print_heading(names_of(records.shape()), form, out);
    const auto indexes = chosen(records, choice);
    for (const std::size_t index : indexes)
        if (out)
            print_record(json_of(records, index), form, out);
    return indexes.empty() ? answer_is_no : 0;
}

int print_log_summary(const LogTable& records, LogForm form, std::ostream& out, const LogChoice& choice) {
    const auto indexes = chosen(records, choice);
    Json document{{"count", indexes.size()}, {"first", nullptr}, {"last", nullptr}};
    if (!indexes.empty()) {
        document["first"] = stamp_of(records, indexes.front());
        document["last"] = stamp_of(records, indexes.back());
    }
    std::vector<double> values(indexes.size());
    for (std::size_t column = 0; column < records.shape().columns.size(); ++column) {
        if (!records.shape().columns[column].is_number())
            continue;
        for (std::size_t i = 0; i < indexes.size(); ++i)
            values[i] = records.number(column, indexes[i]);
        document[std::string(records.shape().columns[column].name)] = summary_json(values);
    }
    print_summary(document, form, out);
    return indexes.empty() ? answer_is_no : 0;
}

} // namespace tickervantage
