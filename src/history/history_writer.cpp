#include "history/history_writer.h"

#include "base/failure_codes.h"
#include "history/schema.h"
#include "history/units.h"

#include <array>
#include <fcntl.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <utility>

namespace tickervantage {

namespace {

constexpr std::int64_t day_seconds = 86'400;

std::optional<std::int64_t> whole_units(const std::optional<double>& value, double units) {
    constexpr double most = 9e18;
    if (!value || !std::isfinite(*value))
        return std::nullopt;
    return static_cast<std::int64_t>(std::clamp(std::round(*value * units), -most, most));
}

std::optional<double> mean_of(const MaybeExtent& extent) {
    return extent ? std::optional(extent->mean) : std::nullopt;
}

Result<> make_private_file(const std::string& path) {
    const FileDescriptor file(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    return file.valid() ? Result<>() : failed(FailureCode::cannot_write, {path}, errno);
}

// With what was written behind the main file, which belongs to it.
Result<std::string> set_database_aside(const std::string& path) {
    auto aside = set_file_aside(path);
    if (!aside)
        return aside;
    for (const char* const ending : {"-wal", "-shm"}) {
        std::error_code ignored; // mostly there is none
        std::filesystem::rename(path + ending, *aside + ending, ignored);
    }
    return aside;
}

Result<> check_version(Database& database, const std::string& path) {
    const auto version = database.number("PRAGMA user_version");
    if (!version)
        return tl::unexpected(version.error());
    if (*version > schema::version)
        return failed(FailureCode::history_is_newer, {path});
    if (*version == schema::version)
        return {};
    return database.in_transaction([&] { return database.execute(schema::tables()); });
}

// The last one that closes a database takes this file away: where it lies, a writer was killed or the machine went off.
bool was_left_open(const std::string& path) {
    std::error_code unknown;
    return std::filesystem::exists(path + "-wal", unknown);
}

Result<> check_pages(Database& database) {
    auto checked = database.prepare("PRAGMA quick_check(1)");
    if (!checked)
        return tl::unexpected(checked.error());
    const auto there = checked->step();
    if (!there)
        return tl::unexpected(there.error());
    return checked->text(0) == "ok" ? Result<>() : failed(FailureCode::is_damaged);
}

} // namespace

Result<HistoryWriter> HistoryWriter::opened(const std::string& path, const HistoryOpening& opening) {
    HistoryWriter writer;
    writer.m_stop = opening.stop;
    if (const auto made = make_private_file(path); !made)
        return tl::unexpected(made.error());
    const bool was_left = was_left_open(path);
    auto database = Database::open(path, DatabaseUse::write, opening.stop);
    if (!database)
        return tl::unexpected(database.error());
    writer.m_database = std::move(*database);
    // A killed process loses nothing by "normal", and the disk is not made to wake up for each reading.
    auto ready = (was_left ? check_pages(writer.m_database) : Result<>())
                     .and_then([&] { return check_version(writer.m_database, path); })
                     .and_then([&] {
                         return writer.m_database.execute("PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL; "
                                                          "PRAGMA journal_size_limit = 4194304");
                     })
                     .and_then([&] { return writer.prepare(); });
    if (!ready)
        return tl::unexpected(ready.error());
    return writer;
}

Result<HistoryWriter> HistoryWriter::open(const std::string& path, const HistoryOpening& opening) {
    if (auto made = make_private_folder(std::filesystem::path(path).parent_path().string()); !made)
        return tl::unexpected(made.error());
    FileLock lock;
    if (!lock.lock(path, std::chrono::milliseconds(0)))
        return failed(FailureCode::history_has_writer);
    auto writer = opening.is_damaged ? failed(FailureCode::is_damaged) : opened(path, opening);
    std::optional<std::string> aside;
    if (!writer && is_damage(writer.error())) {
        const auto moved = set_database_aside(path);
        if (!moved)
            return tl::unexpected(moved.error());
        aside = *moved;
        writer = opened(path, opening);
    }
    if (!writer)
        return writer.error().code == FailureCode::history_is_newer
                   ? tl::unexpected(writer.error())
                   : failed(FailureCode::cannot_write, {path}, writer.error());
    writer->m_lock = std::move(lock);
    writer->m_kept_aside = std::move(aside);
    return writer;
}

Result<> HistoryWriter::add_beside(const std::string& path, const HistoryEvent& event) {
    std::error_code unknown;
    if (!std::filesystem::exists(path, unknown))
        return failed(FailureCode::no_such_file, {path});
    HistoryWriter writer;
    auto database = Database::open(path, DatabaseUse::write);
    if (!database)
        return failed(FailureCode::cannot_write, {path}, database.error());
    writer.m_database = std::move(*database);
    auto added = check_version(writer.m_database, path).and_then([&] { return writer.prepare(); }).and_then([&] {
        return writer.add(event);
    });
    return added ? added : failed(FailureCode::cannot_write, {path}, added.error());
}

Result<> HistoryWriter::prepare() {
    const auto wanted = std::to_array<std::pair<Statement*, std::string>>({
        {&m_insert_reading, schema::insert_reading()},
        {&m_insert_source, schema::insert_source()},
        {&m_insert_event, "INSERT INTO event VALUES(?, ?, ?, ?)"},
        {&m_insert_name, "INSERT OR IGNORE INTO name(name) VALUES(?)"},
        {&m_find_name, "SELECT id FROM name WHERE name = ?"},
    });
    for (const auto& [statement, sql] : wanted) {
        auto prepared = m_database.prepare(sql);
        if (!prepared)
            return tl::unexpected(prepared.error());
        *statement = std::move(*prepared);
    }
    return {};
}

Result<std::optional<std::int64_t>> HistoryWriter::id_of(const std::string& name) {
    if (name.empty())
        return std::nullopt;
    if (const auto added = m_insert_name.bind(1, name).run(); !added)
        return tl::unexpected(added.error());
    const auto found = m_find_name.bind(1, name).step();
    if (!found)
        return tl::unexpected(found.error());
    const auto id = m_find_name.integer(0);
    (void)m_find_name.step(); // to its end: there is one row
    return id;
}

Result<> HistoryWriter::add_row(const HistoryRow& row) {
    const auto reference = id_of(row.reference);
    if (!reference)
        return tl::unexpected(reference.error());
    auto& insert = m_insert_reading;
    insert.bind(1, row.time).bind(2, static_cast<std::int64_t>(row.verdict)).bind(3, *reference);
    insert.bind(4, row.stratum).bind(5, row.steers);
    for (std::size_t at = 0; at < history_quantities; ++at)
        insert.bind(static_cast<int>(6 + at),
                    whole_units(mean_of(row.values.at(at)), units_of(static_cast<HistoryQuantity>(at))));
    return insert.run();
}

Result<> HistoryWriter::add_source(const SourceRow& row) {
    const auto source = id_of(row.source);
    if (!source)
        return tl::unexpected(source.error());
    auto& insert = m_insert_source;
    insert.bind(1, row.time).bind(2, *source);
    insert.bind(3, kept_number({row.letter, static_cast<std::int64_t>(row.rule), row.reach}));
    insert.bind(4, whole_units(mean_of(row.offset), units_a_second));
    insert.bind(5, whole_units(row.error, units_a_second)).bind(6, whole_units(row.std_dev, units_a_second));
    return insert.run();
}

Result<> HistoryWriter::add(const HistoryEvent& event) {
    return m_insert_event.bind(1, event.time)
        .bind(2, static_cast<std::int64_t>(event.kind))
        .bind(3, event.from)
        .bind(4, event.to)
        .run();
}

Result<> HistoryWriter::add_whole(const HistoryReading& reading) {
    auto done = add_row(reading.row);
    for (std::size_t at = 0; done && at < reading.sources.size(); ++at)
        done = add_source(reading.sources[at]);
    return done;
}

Result<> HistoryWriter::add(const HistoryReading& reading, const std::vector<HistoryEvent>& events) {
    return add(std::vector{reading}, events);
}

Result<> HistoryWriter::add(const std::vector<HistoryReading>& readings, const std::vector<HistoryEvent>& events) {
    return m_database.in_transaction([&] {
        Result<> done;
        for (std::size_t at = 0; done && at < readings.size(); ++at)
            done = add_whole(readings[at]);
        for (std::size_t at = 0; done && at < events.size(); ++at)
            done = add(events[at]);
        return done;
    });
}

Result<> HistoryWriter::thin(std::int64_t now) {
    struct Level {
        int from;  // s of a row
        int to;    // s of the rows made of it; 0: none, it goes
        int whole; // days
    };
    for (const auto& level : {Level{0, 60, 7}, Level{60, 3600, 90}, Level{3600, 0, 5 * 365}}) {
        const auto end = (now - level.whole * day_seconds) / day_seconds * day_seconds;
        if (auto done = thin_level(level.from, level.to, end); !done)
            return done;
    }
    return {};
}

Result<> HistoryWriter::thin_level(int from, int to, std::int64_t end) {
    while (true) {
        auto oldest = m_database.prepare(schema::oldest(from));
        if (!oldest)
            return tl::unexpected(oldest.error());
        const auto there = oldest->step();
        if (!there)
            return tl::unexpected(there.error());
        const auto first = oldest->integer(0).value_or(0);
        const auto next = (first / day_seconds + 1) * day_seconds;
        if (!*there || next > end || (m_stop && m_stop->is_stopped()))
            return {};
        oldest = Statement(); // the day is written while nothing is being read
        if (auto done = thin_day(from, to, {first, next}); !done)
            return done;
    }
}

Result<> HistoryWriter::thin_day(int from, int to, const HistoryPeriod& day) {
    std::vector<std::string> steps{schema::remove_rows(from), schema::remove_sources(from)};
    if (to != 0)
        steps.insert(steps.begin(), {schema::thin_rows(from, to), schema::thin_sources(from, to)});
    return m_database.in_transaction([&]() -> Result<> {
        for (const auto& step : steps) {
            auto statement = m_database.prepare(step);
            if (!statement)
                return tl::unexpected(statement.error());
            if (auto done = statement->bind(1, day.from).bind(2, day.to).run(); !done)
                return done;
        }
        return {};
    });
}

} // namespace tickervantage
