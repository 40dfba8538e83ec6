#include "cli/history/history_command.h"

#include "base/sentence.h"
#include "chrony/data/reports.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <ostream>
#include <utility>
#include <vector>

namespace tickervantage {
namespace {

std::string moment(std::int64_t time) {
    return text_of_moment(static_cast<double>(time));
}

Json row_json(const HistoryRow& row) {
    Json json = {{"time", moment(row.time)},
                 {"span", row.span},
                 {"count", row.count},
                 {"verdict", name_of(row.verdict)},
                 {"reference", row.reference.empty() ? Json(nullptr) : Json(row.reference)},
                 {"stratum", or_null(row.stratum)},
                 {"steers", or_null(row.steers)}};
    for (std::size_t at = 0; at < history_quantities; ++at) {
        const std::string name(name_of(static_cast<HistoryQuantity>(at)));
        const MaybeExtent& value = row.values.at(at);
        json[name] = value ? Json(value->mean) : Json(nullptr);
        json[name + "_low"] = value ? Json(value->low) : Json(nullptr);
        json[name + "_high"] = value ? Json(value->high) : Json(nullptr);
    }
    return json;
}

Json source_json(const SourceRow& row) {
    return {{"time", moment(row.time)},
            {"span", row.span},
            {"source", row.source},
            {"letter", std::string(1, row.letter)},
            {"rule", name_of(row.rule)},
            {"reach", row.reach},
            {"offset", row.offset ? Json(row.offset->mean) : Json(nullptr)},
            {"offset_low", row.offset ? Json(row.offset->low) : Json(nullptr)},
            {"offset_high", row.offset ? Json(row.offset->high) : Json(nullptr)},
            {"error", or_null(row.error)},
            {"std_dev", or_null(row.std_dev)}};
}

Json event_json(const HistoryEvent& event) {
    return {{"time", moment(event.time)}, {"kind", name_of(event.kind)}, {"from", event.from}, {"to", event.to}};
}

// A heading and a line for each; a text with a comma is quoted.
void print_csv(const Json& rows, std::ostream& out) {
    const auto cell = [](const Json& value) {
        if (value.is_null())
            return std::string();
        if (!value.is_string())
            return value.dump();
        const auto text = value.get<std::string>();
        return text.find_first_of(",\"") == std::string::npos ? text : fmt::format("\"{}\"", text);
    };
    bool headed = false;
    for (const Json& row : rows) {
        std::string heading;
        std::string line;
        for (const auto& [key, value] : row.items()) {
            heading += (heading.empty() ? "" : ",") + key;
            line += (line.empty() ? "" : ",") + cell(value);
        }
        if (!std::exchange(headed, true))
            out << heading << '\n';
        out << line << '\n';
    }
}

template <typename Row, typename Make>
Json array_of(const std::vector<Row>& rows, Make make) {
    Json array = Json::array();
    for (const Row& row : rows)
        array.push_back(make(row));
    return array;
}

std::string words_of(const HistoryEvent& event) {
    const auto or_none = [](const std::string& name) {
        return name.empty() ? std::string("none") : name;
    };
    switch (event.kind) {
    case HistoryEventKind::verdict:
        return fmt::format("{} -> {}", event.from, event.to);
    case HistoryEventKind::reference:
        return fmt::format("reference {} -> {}", or_none(event.from), or_none(event.to));
    case HistoryEventKind::chronyd:
        return "chronyd " + event.to;
    case HistoryEventKind::job:
        break;
    }
    return fmt::format("{}: {}", event.from, event.to);
}

// How much of what was read went to each verdict.
std::string shares_of(const std::vector<HistoryRow>& rows) {
    std::array<double, verdicts.size()> counts{};
    double all = 0;
    for (const HistoryRow& row : rows) {
        counts.at(static_cast<std::size_t>(row.verdict)) += row.count;
        all += row.count;
    }
    std::string shares;
    for (std::size_t at = verdicts.size(); at-- > 0;)
        if (counts.at(at) > 0)
            shares += fmt::format("{}{} {:.2f} %", shares.empty() ? "" : ", ", name_of(verdicts.at(at)),
                                  100 * counts.at(at) / all);
    return shares;
}

std::string largest(const std::vector<HistoryRow>& rows, HistoryQuantity quantity) {
    std::optional<double> most;
    for (const HistoryRow& row : rows)
        if (const MaybeExtent& value = row.values.at(static_cast<std::size_t>(quantity)))
            most = std::max({most.value_or(0), std::abs(value->low), std::abs(value->high)});
    return most ? text_of(quantity::seconds(*most)) : not_known;
}

void print_text(const std::vector<HistoryRow>& rows, const std::vector<HistoryEvent>& events, std::ostream& out) {
    int readings = 0;
    for (const HistoryRow& row : rows)
        readings += row.count;
    out << fmt::format("From            : {}\nTo              : {}\nReadings        : {}\n", moment(rows.front().time),
                       moment(rows.back().time + rows.back().span), readings)
        << "Verdicts        : " << shares_of(rows) << '\n'
        << "Largest bound   : " << largest(rows, HistoryQuantity::bound) << '\n'
        << "Largest offset  : " << largest(rows, HistoryQuantity::last_offset) << '\n'
        << "Events          : " << events.size() << '\n';
    for (const HistoryEvent& event : events)
        out << moment(event.time) << "  " << words_of(event) << '\n';
}

} // namespace

Result<int> print_history(HistoryReader& history, const HistoryQuestion& question, std::ostream& out) {
    const auto rows = history.rows(question.period);
    const auto events = history.events(question.period);
    const bool with_sources = question.source || question.form == HistoryForm::json;
    const auto sources =
        with_sources ? history.sources(question.period, question.source) : Result<std::vector<SourceRow>>();
    for (const Failure* failure :
         {rows ? nullptr : &rows.error(), events ? nullptr : &events.error(), sources ? nullptr : &sources.error()})
        if (failure != nullptr)
            return tl::unexpected(*failure);
    const bool is_there = question.source ? !sources->empty() : !rows->empty();
    if (question.form == HistoryForm::json) {
        out << json_text({{"readings", array_of(*rows, row_json)},
                          {"sources", array_of(*sources, source_json)},
                          {"events", array_of(*events, event_json)}});
    } else if (question.source || question.form == HistoryForm::csv) {
        print_csv(question.source ? array_of(*sources, source_json) : array_of(*rows, row_json), out);
    } else if (is_there) {
        print_text(*rows, *events, out);
    }
    return is_there ? 0 : 1;
}

} // namespace tickervantage
