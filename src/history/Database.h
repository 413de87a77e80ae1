// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace zeph {

/// What a statement's parameter may hold; `std::monostate` is SQL NULL.
using DatabaseValue = std::variant<std::monostate, double, qint64, QString>;

/// The row that a running query stands on; valid only inside the mapping function. Columns count
/// from 0; NULL reads as 0 or as the empty text.
class DatabaseRow {
public:
    explicit DatabaseRow(sqlite3_stmt *statement) : m_statement(statement) {}

    qint64 integer(int column) const;
    double real(int column) const;
    QString text(int column) const;

private:
    sqlite3_stmt *m_statement;
};

/// One connection to one SQLite file. Every operation blocks until its statement is finished and
/// may come from any thread: a mutex runs them one after the other. Nothing is retried.
class Database {
public:
    /// Has SQLite take what it wants of the environment, so that it can be opened on a thread while
    /// others change that.
    static void readEnvironment();

    /// Opens or creates the file at `path` in WAL mode. Null, after one printed line, when SQLite
    /// can't open it; a file that is no database opens and fails at each statement.
    static std::unique_ptr<Database> open(const QString &path);

    ~Database();
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    /// Runs one or more statements without parameters or rows. False, and printed, on an error.
    bool exec(const QString &sql);

    /// Runs one statement with its parameters in order. False, and printed, when its data is lost.
    bool write(const QString &sql, const std::vector<DatabaseValue> &parameters);

    /// What `map` makes of each row, in row order. An error looks like the end of the rows. `map`
    /// takes a `const DatabaseRow &` and must not call back into this database.
    template <typename Map>
    auto query(const QString &sql, const std::vector<DatabaseValue> &parameters, Map map) {
        Rows<Map> rows;
        forEachRow(sql, parameters,
                   [&rows, &map](const DatabaseRow &row) { rows.push_back(map(row)); });
        return rows;
    }

    /// The same for whoever has to tell "no rows" from an error: absent when not all rows could be
    /// read.
    template <typename Map>
    auto read(const QString &sql, const std::vector<DatabaseValue> &parameters, Map map) {
        Rows<Map> rows;
        const bool isWhole = forEachRow(
            sql, parameters, [&rows, &map](const DatabaseRow &row) { rows.push_back(map(row)); });
        return isWhole ? std::optional(std::move(rows)) : std::nullopt;
    }

    /// Whether a statement found that the file is no database or a damaged one.
    bool isDamaged() const { return m_isDamaged; }

private:
    template <typename Map>
    using Rows = std::vector<std::decay_t<std::invoke_result_t<Map &, const DatabaseRow &>>>;

    explicit Database(sqlite3 *handle) : m_handle(handle) {}

    /// False when an error ended the rows.
    bool forEachRow(const QString &sql, const std::vector<DatabaseValue> &parameters,
                    const std::function<void(const DatabaseRow &)> &visit);
    /// Takes notice of a statement's status, and hands it on.
    int noted(int status);

    sqlite3 *m_handle;
    std::mutex m_queue; // stands in for a serial queue: one statement at a time
    std::atomic<bool> m_isDamaged = false;
};

} // namespace zeph
