// A connection to SQLite, with the extension loaded.
#ifndef TESTS_SQL_DATABASE_H
#define TESTS_SQL_DATABASE_H

#include <memory>
#include <stdexcept>
#include <string>

#include <sqlite3.h>

namespace tests {

/// Rows come as text: '|' between columns, a line feed between rows, NULL as "NULL"; an error as what it
/// says after "error: ".
class Database {
public:
    explicit Database(const std::string& file = ":memory:", bool loads = true) {
        sqlite3* database = nullptr;
        const int code = sqlite3_open(file.c_str(), &database);
        m_Database.reset(database);
        if (code != SQLITE_OK)
            throw std::runtime_error("no database");
        sqlite3_busy_timeout(database, 10000);
        if (loads)
            Load();
    }

    void Load() {
        char* error = nullptr;
        sqlite3_enable_load_extension(Handle(), 1);
        if (sqlite3_load_extension(Handle(), SQLITE_EXTENSION, nullptr, &error) == SQLITE_OK)
            return;
        const std::string what = error != nullptr ? error : "no word";
        sqlite3_free(error);
        throw std::runtime_error(what);
    }

    /// The rows of all statements.
    std::string Rows(const std::string& statements) const {
        std::string rows;
        for (const char* rest = statements.c_str(); *rest != '\0';) {
            sqlite3_stmt* prepared = nullptr;
            if (sqlite3_prepare_v2(Handle(), rest, -1, &prepared, &rest) != SQLITE_OK)
                return rows + Error();
            const std::unique_ptr<sqlite3_stmt, Close> statement(prepared);
            int code = SQLITE_DONE;
            while (prepared != nullptr && (code = sqlite3_step(prepared)) == SQLITE_ROW)
                rows += RowOf(prepared);
            if (code != SQLITE_DONE)
                rows += Error();
        }
        if (!rows.empty() && rows.back() == '\n')
            rows.pop_back();
        return rows;
    }

    sqlite3* Handle() const { return m_Database.get(); }

private:
    std::string Error() const { return std::string("error: ") + sqlite3_errmsg(Handle()); }

    static std::string RowOf(sqlite3_stmt* statement) {
        std::string row;
        for (int column = 0; column < sqlite3_column_count(statement); ++column) {
            const unsigned char* const text = sqlite3_column_text(statement, column);
            const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
            row += column == 0 ? "" : "|";
            row += text == nullptr ? "NULL" : std::string(reinterpret_cast<const char*>(text), size);
        }
        return row + '\n';
    }

    struct Close {
        void operator()(sqlite3* database) const { sqlite3_close(database); }
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };

    std::unique_ptr<sqlite3, Close> m_Database;
};

} // namespace tests

#endif
