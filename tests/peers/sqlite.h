#ifndef PEER_SQLITE_H
#define PEER_SQLITE_H

/// As much of SQLite as tests and benchmarks set the object store against. What fails throws std::runtime_error.

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace peer {

class Sqlite {
public:
    /// ":memory:" is a database without a file.
    explicit Sqlite(const std::string& path);

    /// Runs statements that have no rows.
    void Run(const std::string& statements);
    sqlite3* Handle() const { return database.get(); }

private:
    struct Close {
        void operator()(sqlite3* open) const { sqlite3_close(open); }
    };
    std::unique_ptr<sqlite3, Close> database;
};

/// A prepared statement. Parameters and columns count from 0.
class SqliteStatement {
public:
    SqliteStatement(const Sqlite& database, const std::string& text);

    void Bind(int parameter, std::int64_t value);
    void Bind(int parameter, double value);
    /// The text is not copied.
    void Bind(int parameter, std::string_view value);
    void BindNull(int parameter);

    /// Whether there is a row; after the last, or after `Reset`, it starts anew.
    bool Step();
    void Reset() { sqlite3_reset(statement.get()); }

    std::int64_t Integer(int column) const { return sqlite3_column_int64(statement.get(), column); }
    double Double(int column) const { return sqlite3_column_double(statement.get(), column); }
    /// Valid until the next step.
    std::string_view Text(int column) const;

private:
    struct Finalize {
        void operator()(sqlite3_stmt* prepared) const { sqlite3_finalize(prepared); }
    };
    std::unique_ptr<sqlite3_stmt, Finalize> statement;

    void Check(int result) const;
};

}  // namespace peer

#endif
