#include "history/schema.h"

#include "history/records.h"

#include <fmt/format.h>

#include <vector>

namespace tickervantage::schema {
namespace {

static_assert(verdicts.size() == 7 && static_cast<int>(SelectionRule::unknown) == 22,
              "a change of these lists needs a new version, since the file keeps their numbers");

// "reading", "reading_60", "reading_3600"
std::string table(std::string_view what, int span) {
    return fmt::format("{}{}", what, span == 0 ? "" : "_" + std::to_string(span));
}

// The pattern once for each quantity of a reading, with a comma before it.
std::string each(std::string_view pattern) {
    std::string all;
    for (std::size_t at = 0; at < history_quantities; ++at)
        all += ", " + fmt::format(fmt::runtime(pattern), name_of(static_cast<HistoryQuantity>(at)));
    return all;
}

// An extent is kept as its mean and its distances from there, which are small or 0: 0 takes no room.
constexpr std::string_view kept_extent = "{0}, {0}_below, {0}_above";
constexpr std::string_view selected_single = "{0} AS {0}_low, {0}, {0} AS {0}_high";
constexpr std::string_view selected_extent = "{0} - {0}_below AS {0}_low, {0}, {0} + {0}_above AS {0}_high";
constexpr std::string_view read_extent = "{0}_low, {0}, {0}_high";
constexpr std::string_view extent_of_group = "min({0}_low) AS {0}_low, CAST(round(1.0 * sum({0} * count) / sum(CASE "
                                             "WHEN {0} IS NOT NULL THEN count END)) AS INTEGER) AS {0}, "
                                             "max({0}_high) AS {0}_high";
constexpr std::string_view thinned_extent =
    "grouped.{0}, grouped.{0} - grouped.{0}_low, grouped.{0}_high - grouped.{0}";

std::string of_offset(std::string_view pattern) {
    return fmt::format(fmt::runtime(pattern), "offset");
}

constexpr std::string_view in_period = " WHERE time >= ?1 AND time < ?2";
// A source's row is found by the time and the source's number in one: that is the densest table which SQLite has.
constexpr std::string_view keys_in_period = " WHERE key >= ?1 << 20 AND key < ?2 << 20";

// The rows of one level in one shape.
std::string level_rows(int span) {
    return fmt::format("SELECT time, {} AS span, {} AS count, verdict, reference, stratum, steers{} FROM {}{}", span,
                       span == 0 ? "1" : "count", each(span == 0 ? selected_single : selected_extent),
                       table("reading", span), in_period);
}

std::string level_sources(int span) {
    return fmt::format("SELECT key >> 20 AS time, {} AS span, 1 AS count, key & 0xFFFFF AS source, state, {}, error, "
                       "std_dev FROM {}{}",
                       span, of_offset(span == 0 ? selected_single : selected_extent), table("source_reading", span),
                       keys_in_period);
}

std::string tables_of(int span) {
    const bool whole = span == 0;
    return fmt::format("CREATE TABLE {}(time INTEGER PRIMARY KEY, verdict, reference, stratum, steers{}{});"
                       "CREATE TABLE {}(key INTEGER PRIMARY KEY, state, {}, error, std_dev);",
                       table("reading", span), whole ? "" : ", count", each(whole ? "{0}" : kept_extent),
                       table("source_reading", span), of_offset(whole ? "{0}" : kept_extent));
}

} // namespace

std::string tables() {
    return "CREATE TABLE name(id INTEGER PRIMARY KEY, name TEXT NOT NULL UNIQUE);"
           "CREATE TABLE event(time INTEGER NOT NULL, kind INTEGER NOT NULL, was TEXT NOT NULL, becomes TEXT NOT NULL);"
           "CREATE INDEX event_time ON event(time);" +
           tables_of(0) + tables_of(60) + tables_of(3600) + "PRAGMA user_version = " + std::to_string(version);
}

std::string insert_reading() {
    return "INSERT OR REPLACE INTO reading VALUES(?, ?, ?, ?, ?" + each("?") + ")";
}

std::string insert_source() {
    return "INSERT OR REPLACE INTO source_reading VALUES((?1 << 20) | (?2 & 0xFFFFF), ?3, ?4, ?5, ?6)";
}

std::string select_rows() {
    return "SELECT time, span, count, verdict, name, stratum, steers" + each(read_extent) + " FROM (" +
           level_rows(3600) + " UNION ALL " + level_rows(60) + " UNION ALL " + level_rows(0) +
           ") LEFT JOIN name ON id = reference ORDER BY time";
}

std::string select_sources() {
    return "SELECT time, span, name, state, " + of_offset(read_extent) + ", error, std_dev FROM (" +
           level_sources(3600) + " UNION ALL " + level_sources(60) + " UNION ALL " + level_sources(0) +
           ") JOIN name ON id = source WHERE ?3 IS NULL OR name = ?3 ORDER BY time";
}

// What a span has of its last reading alone is joined by that one's time.
std::string thin_rows(int from, int to) {
    return fmt::format("INSERT OR IGNORE INTO {} SELECT grouped.time, grouped.verdict, last.reference, last.stratum, "
                       "last.steers, grouped.count{} FROM (SELECT time / {} * {} AS time, max(time) AS newest, "
                       "sum(count) AS count, min(verdict) AS verdict{} FROM ({}) GROUP BY 1) AS grouped JOIN ({}) AS "
                       "last ON last.time = grouped.newest",
                       table("reading", to), each(thinned_extent), to, to, each(extent_of_group), level_rows(from),
                       level_rows(from));
}

std::string thin_sources(int from, int to) {
    return fmt::format(
        "INSERT OR IGNORE INTO {} SELECT (grouped.time << 20) | grouped.source, last.state, {}, "
        "grouped.error, grouped.std_dev FROM (SELECT time / {} * {} AS time, max(time) AS newest, source, "
        "{}, CAST(round(avg(error)) AS INTEGER) AS error, CAST(round(avg(std_dev)) AS INTEGER) AS "
        "std_dev FROM ({}) GROUP BY 1, source) AS grouped JOIN ({}) AS last ON last.time = "
        "grouped.newest AND last.source = grouped.source",
        table("source_reading", to), of_offset(thinned_extent), to, to, of_offset(extent_of_group), level_sources(from),
        level_sources(from));
}

std::string remove_rows(int span) {
    return "DELETE FROM " + table("reading", span) + std::string(in_period);
}

std::string remove_sources(int span) {
    return "DELETE FROM " + table("source_reading", span) + std::string(keys_in_period);
}

std::string oldest(int span) {
    return "SELECT time FROM " + table("reading", span) + " ORDER BY time LIMIT 1";
}

std::string newest() {
    return "SELECT max(time) FROM (SELECT max(time) AS time FROM reading UNION ALL SELECT max(time) FROM reading_60 "
           "UNION ALL SELECT max(time) FROM reading_3600)";
}

} // namespace tickervantage::schema
