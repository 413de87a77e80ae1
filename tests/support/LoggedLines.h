// SPDX-License-Identifier: MIT
#pragma once

#include <QLoggingCategory>
#include <QString>
#include <QStringList>

namespace zeph {

/// What `action` logs by `category`, all its levels asked for, line by line.
template <typename Action>
QStringList loggedLines(const QString &category, Action action) {
    static QStringList lines;
    lines.clear();
    QLoggingCategory::setFilterRules(category + QStringLiteral("=true"));
    const auto before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &line) { lines.append(line); });
    action();
    qInstallMessageHandler(before);
    QLoggingCategory::setFilterRules(QString());
    return lines;
}

} // namespace zeph
