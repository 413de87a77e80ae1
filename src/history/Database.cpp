// SPDX-License-Identifier: MIT
#include "history/Database.h"

#include "base/Console.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

struct FinalizeStatement {
    void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// Binds one value to the 1-based `position`.
struct Binder {
    sqlite3_stmt *statement;
    int position;

    void operator()(std::monostate) const { sqlite3_bind_null(statement, position); }
    void operator()(double value) const { sqlite3_bind_double(statement, position, value); }
    void operator()(qint64 value) const { sqlite3_bind_int64(statement, position, value); }
    void operator()(const QString &value) const {
        sqlite3_bind_text(statement, position, value.toUtf8().constData(), -1, SQLITE_TRANSIENT);
    }
};

void bind(sqlite3_stmt *statement, const std::vector<DatabaseValue> &parameters) {
    int position = 0;
    for (const DatabaseValue &parameter : parameters) {
        ++position;
        std::visit(Binder{statement, position}, parameter);
    }
}

/// The prepared statement and SQLite's status; the statement is null when that is not `SQLITE_OK`.
std::pair<Statement, int> prepare(sqlite3 *handle, const QString &sql) {
    sqlite3_stmt *statement = nullptr;
    const int status =
        sqlite3_prepare_v2(handle, sql.toUtf8().constData(), -1, &statement, nullptr);
    return {Statement(statement), status};
}

void printError(const QString &what, sqlite3 *handle) {
    printLine(u"[Zeph] %1: %2"_s.arg(what, QString::fromUtf8(sqlite3_errmsg(handle))));
}

} // namespace

qint64 DatabaseRow::integer(int column) const {
    return sqlite3_column_int64(m_statement, column);
}

double DatabaseRow::real(int column) const {
    return sqlite3_column_double(m_statement, column);
}

QString DatabaseRow::text(int column) const {
    const unsigned char *bytes = sqlite3_column_text(m_statement, column);
    return QString::fromUtf8(reinterpret_cast<const char *>(bytes));
}

void Database::readEnvironment() {
    sqlite3_initialize();
}

std::unique_ptr<Database> Database::open(const QString &path) {
    sqlite3 *handle = nullptr;
    const int status = sqlite3_open(path.toUtf8().constData(), &handle);
    // SQLite hands out a connection to be closed even when it could not open the file.
    std::unique_ptr<Database> database(new Database(handle));
    if (status != SQLITE_OK) {
        printLine(u"[Zeph] failed to open db at %1"_s.arg(path));
        return nullptr;
    }
    database->exec(u"PRAGMA journal_mode=WAL;"_s);
    database->exec(u"PRAGMA synchronous=NORMAL;"_s);
    return database;
}

Database::~Database() {
    if (m_handle != nullptr) {
        sqlite3_close(m_handle);
    }
}

bool Database::exec(const QString &sql) {
    const std::lock_guard turn(m_queue);
    char *message = nullptr;
    const int status =
        noted(sqlite3_exec(m_handle, sql.toUtf8().constData(), nullptr, nullptr, &message));
    if (message != nullptr) {
        printLine(u"[Zeph] sql error: %1"_s.arg(QString::fromUtf8(message)));
        sqlite3_free(message);
    }
    return status == SQLITE_OK;
}

bool Database::write(const QString &sql, const std::vector<DatabaseValue> &parameters) {
    const std::lock_guard turn(m_queue);
    const auto [statement, status] = prepare(m_handle, sql);
    if (noted(status) != SQLITE_OK) {
        printError(u"prepare failed"_s, m_handle);
        return false;
    }
    bind(statement.get(), parameters);
    const bool isDone = noted(sqlite3_step(statement.get())) == SQLITE_DONE;
    if (!isDone) {
        printError(u"step failed"_s, m_handle);
    }
    return isDone;
}

bool Database::forEachRow(const QString &sql, const std::vector<DatabaseValue> &parameters,
                          const std::function<void(const DatabaseRow &)> &visit) {
    const std::lock_guard turn(m_queue);
    const auto [statement, status] = prepare(m_handle, sql);
    if (noted(status) != SQLITE_OK) {
        return false; // a read that can't be prepared is silent, unlike a write
    }
    bind(statement.get(), parameters);
    int step = SQLITE_OK;
    while ((step = noted(sqlite3_step(statement.get()))) == SQLITE_ROW) {
        visit(DatabaseRow(statement.get()));
    }
    return step == SQLITE_DONE;
}

int Database::noted(int status) {
    const int kind = status & 0xFF; // without what SQLite adds to tell more
    if (kind == SQLITE_CORRUPT || kind == SQLITE_NOTADB) {
        m_isDamaged = true;
    }
    return status;
}

} // namespace zeph
