// The tables of the history, and the statements over them.
#pragma once

#include <string>

namespace tickervantage::schema {

// Of the tables, kept as SQLite's user_version. Also the numbers of verdicts and rules are kept: those of their lists.
inline constexpr int version = 1;

[[nodiscard]] std::string tables();

[[nodiscard]] std::string insert_reading();
[[nodiscard]] std::string insert_source();

// By time, for ?1 <= time < ?2: time, span, count, verdict, reference, stratum, steers, and low, mean and high of each
// quantity.
[[nodiscard]] std::string select_rows();
// time, span, source, state, low, mean and high of the offset, error, std_dev; ?3: of this source, NULL: of all.
[[nodiscard]] std::string select_sources();

// Makes rows of `to` seconds of those of `from` seconds (0: single readings) with ?1 <= time < ?2, and removes these.
[[nodiscard]] std::string thin_rows(int from, int to);
[[nodiscard]] std::string thin_sources(int from, int to);
[[nodiscard]] std::string remove_rows(int span);
[[nodiscard]] std::string remove_sources(int span);

// The time of the oldest row of a level; no row where it is empty.
[[nodiscard]] std::string oldest(int span);
// The time of the newest of all, or NULL.
[[nodiscard]] std::string newest();

} // namespace tickervantage::schema
