// SPDX-License-Identifier: MIT
#include "DatabaseFile.h"

#include <sqlite3.h>

namespace zeph {

QString databaseValue(const QString &path, const QString &sql) {
    sqlite3 *database = nullptr;
    sqlite3_stmt *statement = nullptr;
    QString value;
    if (sqlite3_open_v2(path.toUtf8().constData(), &database, SQLITE_OPEN_READWRITE, nullptr) ==
        SQLITE_OK) {
        sqlite3_busy_timeout(database, 5000);
        if (sqlite3_prepare_v2(database, sql.toUtf8().constData(), -1, &statement, nullptr) ==
                SQLITE_OK &&
            sqlite3_step(statement) == SQLITE_ROW) {
            value = QString::fromUtf8(
                reinterpret_cast<const char *>(sqlite3_column_text(statement, 0)));
        }
    }
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return value;
}

} // namespace zeph
