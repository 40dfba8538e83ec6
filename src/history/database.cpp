#include "history/database.h"

#include "base/failure_codes.h"

#include <sqlite3.h>

#include <cerrno>

namespace tickervantage {

namespace {

constexpr int patience_ms = 250;

tl::unexpected<Failure> database_failure(sqlite3* database) {
    const int code = sqlite3_errcode(database);
    if (code == SQLITE_CORRUPT || code == SQLITE_NOTADB)
        return failed(FailureCode::is_damaged);
    const int error = sqlite3_system_errno(database);
    if (code == SQLITE_FULL)
        return tl::unexpected(system_failure(ENOSPC));
    const bool of_the_disk = code == SQLITE_IOERR || code == SQLITE_CANTOPEN;
    if (of_the_disk && error != 0)
        return tl::unexpected(system_failure(error));
    return tl::unexpected(said_by_others(sqlite3_errmsg(database)));
}

} // namespace

void Statement::End::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

void DatabaseStop::stop() {
    m_is_stopped = true;
    const std::lock_guard lock(m_mutex);
    if (m_database != nullptr)
        sqlite3_interrupt(m_database);
}

void DatabaseStop::watch(sqlite3* database) {
    const std::lock_guard lock(m_mutex);
    m_database = database;
}

void Database::Close::operator()(sqlite3* database) const {
    if (stop)
        stop->watch(nullptr);
    sqlite3_close_v2(database);
}

Statement& Statement::bind(int at, std::optional<std::int64_t> value) {
    if (value)
        sqlite3_bind_int64(m_statement.get(), at, *value);
    else
        sqlite3_bind_null(m_statement.get(), at);
    return *this;
}

Statement& Statement::bind(int at, const std::string& text) {
    sqlite3_bind_text(m_statement.get(), at, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    return *this;
}

Result<bool> Statement::step() {
    const int result = sqlite3_step(m_statement.get());
    if (result == SQLITE_ROW)
        return true;
    if (result == SQLITE_DONE) {
        sqlite3_reset(m_statement.get());
        return false;
    }
    auto failure = database_failure(m_database);
    sqlite3_reset(m_statement.get());
    return failure;
}

Result<> Statement::run() {
    const auto stepped = step();
    return stepped ? Result<>() : tl::unexpected(stepped.error());
}

std::optional<std::int64_t> Statement::integer(int column) const {
    if (sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL)
        return std::nullopt;
    return sqlite3_column_int64(m_statement.get(), column);
}

std::string Statement::text(int column) const {
    const auto* const bytes = reinterpret_cast<const char*>(sqlite3_column_text(m_statement.get(), column));
    return bytes == nullptr ? std::string() : std::string(bytes);
}

Result<Database> Database::open(const std::string& path, DatabaseUse use, std::shared_ptr<DatabaseStop> stop) {
    const int flags = use == DatabaseUse::write ? SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE : SQLITE_OPEN_READONLY;
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(path.c_str(), &opened, flags, nullptr);
    Database database;
    database.m_database = {opened, Close{stop}};
    if (stop)
        stop->watch(opened);
    if (result != SQLITE_OK)
        return database_failure(opened);
    sqlite3_busy_timeout(opened, patience_ms);
    return database;
}

Result<> Database::execute(const std::string& sql) {
    if (sqlite3_exec(m_database.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        return database_failure(m_database.get());
    return {};
}

Result<Statement> Database::prepare(const std::string& sql) {
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v2(m_database.get(), sql.c_str(), -1, &prepared, nullptr) != SQLITE_OK)
        return database_failure(m_database.get());
    Statement statement;
    statement.m_statement.reset(prepared);
    statement.m_database = m_database.get();
    return statement;
}

Result<std::int64_t> Database::number(const std::string& sql) {
    auto statement = prepare(sql);
    if (!statement)
        return tl::unexpected(statement.error());
    const auto there = statement->step();
    if (!there)
        return tl::unexpected(there.error());
    return *there ? statement->integer(0).value_or(0) : 0;
}

bool is_damage(const Failure& failure) {
    return failure.code == FailureCode::is_damaged || (failure.cause && is_damage(*failure.cause));
}

} // namespace tickervantage
