#include "peers/sqlite.h"

#include <stdexcept>

namespace peer {

Sqlite::Sqlite(const std::string& path) {
    sqlite3* opened = nullptr;
    const int result = sqlite3_open(path.c_str(), &opened);
    database.reset(opened);
    if (result != SQLITE_OK) throw std::runtime_error("sqlite: " + path + ": " + sqlite3_errmsg(opened));
}

void Sqlite::Run(const std::string& statements) {
    if (sqlite3_exec(Handle(), statements.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error("sqlite: " + statements + ": " + sqlite3_errmsg(Handle()));
}

SqliteStatement::SqliteStatement(const Sqlite& database, const std::string& text) {
    sqlite3_stmt* prepared = nullptr;
    if (sqlite3_prepare_v3(database.Handle(), text.data(), static_cast<int>(text.size()), SQLITE_PREPARE_PERSISTENT,
                           &prepared, nullptr) != SQLITE_OK)
        throw std::runtime_error("sqlite: " + text + ": " + sqlite3_errmsg(database.Handle()));
    statement.reset(prepared);
}

void SqliteStatement::Check(int result) const {
    if (result != SQLITE_OK)
        throw std::runtime_error(std::string("sqlite: ") + sqlite3_errmsg(sqlite3_db_handle(statement.get())));
}

void SqliteStatement::Bind(int parameter, std::int64_t value) {
    Check(sqlite3_bind_int64(statement.get(), parameter + 1, value));
}

void SqliteStatement::Bind(int parameter, double value) {
    Check(sqlite3_bind_double(statement.get(), parameter + 1, value));
}

void SqliteStatement::Bind(int parameter, std::string_view value) {
    Check(
        sqlite3_bind_text(statement.get(), parameter + 1, value.data(), static_cast<int>(value.size()), SQLITE_STATIC));
}

void SqliteStatement::BindNull(int parameter) { Check(sqlite3_bind_null(statement.get(), parameter + 1)); }

bool SqliteStatement::Step() {
    const int result = sqlite3_step(statement.get());
    if (result == SQLITE_ROW) return true;
    sqlite3_reset(statement.get());
    if (result != SQLITE_DONE) Check(result);
    return false;
}

std::string_view SqliteStatement::Text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), column));
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement.get(), column))};
}

}  // namespace peer
