#include "history/history_reader.h"

#include "base/failure_codes.h"
#include "history/schema.h"
#include "history/units.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace tickervantage {

namespace {

MaybeExtent extent_at(const Statement& row, int column, double units) {
    const auto low = row.integer(column);
    const auto mean = row.integer(column + 1);
    const auto high = row.integer(column + 2);
    if (!low || !mean || !high)
        return std::nullopt;
    const auto value = [units](std::int64_t kept) {
        return static_cast<double>(kept) / units;
    };
    return Extent{value(*low), value(*mean), value(*high)};
}

// A number from a file, which may hold anything, as one of a list.
template <typename Listed>
Listed listed(std::optional<std::int64_t> number, Listed last, Listed otherwise) {
    if (!number || *number < 0 || *number > static_cast<std::int64_t>(last))
        return otherwise;
    return static_cast<Listed>(*number);
}

int small(std::optional<std::int64_t> number) {
    return static_cast<int>(std::clamp<std::int64_t>(number.value_or(0), 0, 1'000'000'000));
}

HistoryRow row_at(const Statement& row) {
    HistoryRow read{.time = row.integer(0).value_or(0), .span = small(row.integer(1)), .count = small(row.integer(2))};
    read.verdict = listed(row.integer(3), Verdict::synchronised, Verdict::unavailable);
    read.reference = row.text(4);
    if (const auto stratum = row.integer(5))
        read.stratum = small(stratum);
    if (const auto steers = row.integer(6))
        read.steers = *steers != 0;
    for (std::size_t at = 0; at < history_quantities; ++at)
        read.values.at(at) = extent_at(row, static_cast<int>(7 + 3 * at), units_of(static_cast<HistoryQuantity>(at)));
    return read;
}

std::optional<double> seconds_at(const Statement& row, int column) {
    const auto units = row.integer(column);
    return units ? std::optional(static_cast<double>(*units) / units_a_second) : std::nullopt;
}

SourceRow source_at(const Statement& row) {
    SourceRow read{.time = row.integer(0).value_or(0), .span = small(row.integer(1)), .source = row.text(2)};
    const auto state = kept_state(row.integer(3).value_or(0));
    read.letter = state.letter;
    read.rule = listed(state.rule, SelectionRule::unknown, SelectionRule::unknown);
    read.reach = state.reach;
    read.offset = extent_at(row, 4, units_a_second);
    read.error = seconds_at(row, 7);
    read.std_dev = seconds_at(row, 8);
    return read;
}

// All rows of a statement, each made by `make`.
template <typename Row, typename Make>
Result<std::vector<Row>> collected(Statement& statement, Make make) {
    std::vector<Row> rows;
    while (true) {
        const auto there = statement.step();
        if (!there)
            return tl::unexpected(there.error());
        if (!*there)
            return rows;
        rows.push_back(make(statement));
    }
}

} // namespace

Result<HistoryReader> HistoryReader::open(const std::string& path) {
    std::error_code unknown;
    if (!std::filesystem::exists(path, unknown))
        return failed(FailureCode::no_such_file, {path});
    HistoryReader store;
    auto database = Database::open(path, DatabaseUse::read);
    const auto version = database ? database->number("PRAGMA user_version") : tl::unexpected(database.error());
    if (!version)
        return failed(FailureCode::cannot_read, {path}, version.error());
    if (*version == 0) // made a moment ago, by a writer that was ended
        return failed(FailureCode::no_such_file, {path});
    store.m_database = std::move(*database);
    return store;
}

Result<std::vector<HistoryRow>> HistoryReader::rows(const HistoryPeriod& period) {
    auto statement = m_database.prepare(schema::select_rows());
    if (!statement)
        return tl::unexpected(statement.error());
    statement->bind(1, period.from).bind(2, period.to);
    return collected<HistoryRow>(*statement, row_at);
}

Result<std::optional<HistoryRow>> HistoryReader::last_row() {
    const auto last = m_database.number(schema::newest());
    if (!last)
        return tl::unexpected(last.error());
    auto found = rows({*last, *last + 1});
    if (!found)
        return tl::unexpected(found.error());
    return found->empty() ? std::nullopt : std::optional(std::move(found->back()));
}

Result<std::vector<SourceRow>> HistoryReader::sources(const HistoryPeriod& period,
                                                      const std::optional<std::string>& source) {
    auto statement = m_database.prepare(schema::select_sources());
    if (!statement)
        return tl::unexpected(statement.error());
    statement->bind(1, period.from).bind(2, period.to);
    if (source)
        statement->bind(3, *source);
    return collected<SourceRow>(*statement, source_at);
}

Result<std::vector<HistoryEvent>> HistoryReader::events(const HistoryPeriod& period) {
    auto statement = m_database.prepare("SELECT time, kind, was, becomes FROM event WHERE time >= ?1 AND time < ?2 "
                                        "ORDER BY time, rowid");
    if (!statement)
        return tl::unexpected(statement.error());
    statement->bind(1, period.from).bind(2, period.to);
    return collected<HistoryEvent>(*statement, [](const Statement& row) {
        return HistoryEvent{row.integer(0).value_or(0),
                            listed(row.integer(1), HistoryEventKind::job, HistoryEventKind::job), row.text(2),
                            row.text(3)};
    });
}

} // namespace tickervantage
