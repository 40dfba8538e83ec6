// An SQLite database, as far as the history needs one: statements with values in and out, failures as records.
//
// Not safe for two threads at once. Source: the C interface of SQLite 3.
#pragma once

#include "base/failure.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

struct sqlite3;
struct sqlite3_stmt;

namespace tickervantage {

enum class DatabaseUse : unsigned char { write, read };

// Breaks off what a database has under way, for a program that ends: that fails then. Any thread; one database at a
// time.
class DatabaseStop {
public:
    void stop();
    [[nodiscard]] bool is_stopped() const { return m_is_stopped; }

private:
    friend class Database;
    void watch(sqlite3* database); // null: none

    std::atomic<bool> m_is_stopped = false;
    std::mutex m_mutex; // guards m_database, which must not be closed while it is told to stop
    sqlite3* m_database = nullptr;
};

class Statement {
public:
    // Values are numbered from 1, columns from 0, as SQLite does. An absent one is NULL.
    Statement& bind(int at, std::optional<std::int64_t> value);
    Statement& bind(int at, const std::string& text);

    // Whether there is a row; afterwards, at the end or after a failure, the statement can be bound anew.
    [[nodiscard]] Result<bool> step();
    // For a statement without rows.
    [[nodiscard]] Result<> run();

    [[nodiscard]] std::optional<std::int64_t> integer(int column) const;
    [[nodiscard]] std::string text(int column) const;

private:
    friend class Database;
    struct End {
        void operator()(sqlite3_stmt* statement) const;
    };
    std::unique_ptr<sqlite3_stmt, End> m_statement;
    sqlite3* m_database = nullptr;
};

class Database {
public:
    // Makes the file where there is none, for writing only. A file that another program writes is waited for up to a
    // quarter of a second, then it is a failure.
    [[nodiscard]] static Result<Database> open(const std::string& path, DatabaseUse use,
                                               std::shared_ptr<DatabaseStop> stop = nullptr);

    [[nodiscard]] Result<> execute(const std::string& sql);
    [[nodiscard]] Result<Statement> prepare(const std::string& sql);
    [[nodiscard]] Result<std::int64_t> number(const std::string& sql); // the first value of the first row, else 0

    // All of them or none: what `work` returned, and taken back when that is a failure.
    template <typename Work>
    [[nodiscard]] Result<> in_transaction(Work work) {
        if (auto begun = execute("BEGIN IMMEDIATE"); !begun)
            return begun;
        auto done = work();
        if (done)
            done = execute("COMMIT");
        if (!done)
            (void)execute("ROLLBACK"); // SQLite may have done so itself
        return done;
    }

private:
    struct Close {
        std::shared_ptr<DatabaseStop> stop;
        void operator()(sqlite3* database) const;
    };
    std::unique_ptr<sqlite3, Close> m_database;
};

// Whether the file is no database or one with damaged pages: it is to be kept aside, since writing would make it worse.
[[nodiscard]] bool is_damage(const Failure& failure);

} // namespace tickervantage
