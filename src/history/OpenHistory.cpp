// SPDX-License-Identifier: MIT
#include "history/OpenHistory.h"

#include "base/PrivateFolder.h"
#include "history/PrivateFiles.h"
#include "history/UsageStatements.h"

using namespace Qt::StringLiterals;

namespace zeph {

QString historyPath(const QString &folder) {
    return folder + u"/zeph.sqlite"_s;
}

OpenHistory openHistory(const QString &folder) {
    makePrivateFolder(folder);
    const QString path = historyPath(folder);
    makePrivateDatabaseFile(path);
    OpenHistory opened{Database::open(path), false};
    if (opened.database) {
        Database &database = *opened.database;
        const bool hasApplications = database.exec(QString::fromUtf16(statements::createAppUsage));
        opened.hasTables =
            database.exec(QString::fromUtf16(statements::createDailyStats)) && hasApplications;
    }
    return opened;
}

} // namespace zeph
