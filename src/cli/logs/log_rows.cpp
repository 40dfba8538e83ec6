#include "cli/logs/log_rows.h"

#include "cli/terminal.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <ostream>

namespace tickervantage {
namespace {

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

constexpr std::size_t heads = 3; // of a summary: count, first, last

} // namespace

void print_heading(const Json& record, LogForm form, std::ostream& out) {
    if (form == LogForm::json)
        return;
    Json names;
    for (const auto& [name, value] : record.items())
        names[name] = form == LogForm::text && name == "timestamp"
                          ? fmt::format("{:<{}}", name, value.get_ref<const std::string&>().size())
                          : name;
    print_row(names, form, out);
}

void print_record(const Json& record, LogForm form, std::ostream& out) {
    if (form == LogForm::json)
        out << json_text(record, -1);
    else
        print_row(record, form, out);
}

Json summary_json(std::span<const double> values) {
    return summary_json(summary_of(values, summary_shares));
}

Json summary_json(const std::optional<ValueSummary>& summary) {
    const auto value = [&](double number) {
        return summary ? Json(number) : Json(nullptr);
    };
    const ValueSummary known = summary.value_or(ValueSummary{.percentiles = {0, 0, 0}});
    return {{"min", value(known.least)},
            {"max", value(known.largest)},
            {"mean", value(known.mean)},
            {"rms", value(known.rms)},
            {"median", value(known.percentiles[0])},
            {"p95", value(known.percentiles[1])},
            {"p99", value(known.percentiles[2])}};
}

void print_summary(const Json& document, LogForm form, std::ostream& out) {
    if (form == LogForm::json) {
        out << json_text(document);
        return;
    }
    const auto cell = [&](const Json& value) {
        return form == LogForm::csv ? "," + csv_of(value) : fmt::format(" {:>11}", text_of(value));
    };
    std::size_t number = 0;
    for (const auto& [name, entry] : document.items()) {
        if (number++ < heads) {
            if (form == LogForm::text)
                out << fmt::format("{:<15} {}\n", name, text_of(entry));
            continue;
        }
        if (number == heads + 1) {
            out << (form == LogForm::csv ? std::string("series") : std::string(14, ' '));
            for (const auto& [heading, value] : entry.items())
                out << cell(Json(heading));
            out << '\n';
        }
        out << (form == LogForm::csv ? name : fmt::format("{:<14}", name));
        for (const auto& value : entry)
            out << cell(value);
        out << '\n';
    }
}

} // namespace tickervantage
