#include "cli/logs/log_command.h"

#include "base/local_clock.h"
#include "cli/json_text.h"
#include "cli/terminal.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <span>
#include <string_view>
#include <utility>

namespace tickervantage {
namespace {

constexpr std::array<std::string_view, series_count> series_names{"offset",      "mean_offset",    "rms_offset",
                                                                  "offset_sd",   "rem_cor",        "mean_rem_cor",
                                                                  "rms_rem_cor", "rootdispersion", "frequency"};

template <class Value>
Json json_of(const std::optional<Value>& value) {
    return value ? Json(*value) : Json(nullptr);
}

Json json_of(const tracking& record) {
    return {{"timestamp", utc_stamp(record.timestamp)},
            {"address", record.address},
            {"stratum", json_of(record.stratum)},
            {"frequency", json_of(record.frequency)},
            {"skew", json_of(record.skew)},
            {"offset", json_of(record.offset)},
            {"el", record.el},
            {"co", json_of(record.co)},
            {"offset_sd", json_of(record.offset_sd)},
            {"rem_cor", json_of(record.rem_cor)},
            {"rootdispersion", json_of(record.rootdispersion)},
            {"rms_offset", json_of(record.rms_offset)},
            {"mean_offset", json_of(record.mean_offset)},
            {"mean_rem_cor", json_of(record.mean_rem_cor)},
            {"rms_rem_cor", json_of(record.rms_rem_cor)},
            {"root_delay", json_of(record.root_delay)},
            {"max_error", json_of(record.max_error)}};
}

// A text of the log as one field of CSV.
std::string quoted(const std::string& text) {
    if (text.find_first_of("\",") == std::string::npos)
        return one_line(text);
    std::string all = "\"";
    for (const char one : one_line(text))
        all.append(one == '"' ? 2 : 1, one);
    return all + '"';
}

std::string csv_of(const Json& value) {
    if (value.is_null())
        return {};
    return value.is_string() ? quoted(value.get<std::string>()) : value.dump();
}

std::string text_of(const Json& value) {
    if (value.is_null())
        return "-";
    if (value.is_number_float())
        return fmt::format("{:.3e}", value.get<double>());
    return value.is_string() ? one_line(value.get<std::string>()) : value.dump();
}

void print_row(const Json& record, LogForm form, std::ostream& out) {
    constexpr std::size_t narrowest = 10;
    std::string row;
    for (const auto& [name, value] : record.items()) {
        row += row.empty() ? "" : form == LogForm::csv ? "," : " ";
        row += form == LogForm::csv ? csv_of(value)
                                    : fmt::format("{:>{}}", text_of(value), std::max(narrowest, name.size()));
    }
    out << row << '\n';
}

void print_heading(LogForm form, std::ostream& out) {
    Json names;
    const Json any = json_of(tracking());
    for (const auto& [name, value] : any.items())
        names[name] = form == LogForm::text && name == "timestamp" ? fmt::format("{:<20}", name) : name;
    print_row(names, form, out);
}

// Between two values: on the straight line between them.
double percentile(std::span<const double> sorted, double share) {
    const double place = share * static_cast<double>(sorted.size() - 1);
    const auto below = static_cast<std::size_t>(place);
    const double above = sorted[std::min(below + 1, sorted.size() - 1)];
    return sorted[below] + (above - sorted[below]) * (place - static_cast<double>(below));
}

Json series_summary(const TrackingRecords& records, Series series) {
    std::vector<double> values;
    double sum = 0;
    double squares = 0;
    for (std::size_t index = 0; index < records.size(); ++index) {
        const double value = records.value(series, index);
        if (std::isnan(value))
            continue;
        values.push_back(value);
        sum += value;
        squares += value * value;
    }
    if (values.empty())
        return {{"min", nullptr},    {"max", nullptr}, {"mean", nullptr}, {"rms", nullptr},
                {"median", nullptr}, {"p95", nullptr}, {"p99", nullptr}};
    std::ranges::sort(values);
    const auto count = static_cast<double>(values.size());
    return {{"min", values.front()},
            {"max", values.back()},
            {"mean", sum / count},
            {"rms", std::sqrt(squares / count)},
            {"median", percentile(values, 0.5)},
            {"p95", percentile(values, 0.95)},
            {"p99", percentile(values, 0.99)}};
}

std::pair<LogTime, LogTime> first_and_last(const TrackingRecords& records) {
    return {records.time(0), records.time(records.size() - 1)};
}

Json summary(const TrackingRecords& records) {
    Json document{{"count", records.size()}, {"first", nullptr}, {"last", nullptr}};
    if (!records.empty()) {
        document["first"] = utc_stamp(first_and_last(records).first);
        document["last"] = utc_stamp(first_and_last(records).second);
    }
    for (std::size_t series = 0; series < series_count; ++series)
        document[std::string(series_names[series])] = series_summary(records, static_cast<Series>(series));
    return document;
}

void print_summary_table(const Json& document, LogForm form, std::ostream& out) {
    const auto cell = [&](const Json& value) {
        return form == LogForm::csv ? "," + csv_of(value) : fmt::format(" {:>11}", text_of(value));
    };
    if (form == LogForm::text)
        for (const auto* name : {"count", "first", "last"})
            out << fmt::format("{:<15} {}\n", name, text_of(document.at(name)));
    for (const auto name : series_names) {
        const Json& series = document.at(std::string(name));
        if (name == series_names.front()) {
            out << (form == LogForm::csv ? std::string("series") : std::string(14, ' '));
            for (const auto& [heading, value] : series.items())
                out << cell(Json(heading));
            out << '\n';
        }
        out << (form == LogForm::csv ? std::string(name) : fmt::format("{:<14}", name));
        for (const auto& value : series)
            out << cell(value);
        out << '\n';
    }
}

} // namespace

int print_log(const TrackingRecords& records, LogForm form, std::ostream& out) {
    if (form != LogForm::json)
        print_heading(form, out);
    for (std::size_t index = 0; index < records.size() && out; ++index) {
        const Json record = json_of(records.record(index));
        if (form == LogForm::json)
            out << json_text(record, -1);
        else
            print_row(record, form, out);
    }
    return records.empty() ? answer_is_no : 0;
}

int print_log_summary(const TrackingRecords& records, LogForm form, std::ostream& out) {
    const Json document = summary(records);
    if (form == LogForm::json)
        out << json_text(document);
    else
        print_summary_table(document, form, out);
    return records.empty() ? answer_is_no : 0;
}

} // namespace tickervantage
