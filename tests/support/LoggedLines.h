// SPDX-License-Identifier: MIT
#pragma once

#include <QLoggingCategory>
#include <QMutex>
#include <QString>
#include <QStringList>

#include <utility>

namespace zeph {

/// Collects what is logged while it lives, by any thread; one at a time.
class LoggedLines {
public:
    /// `rules` as in QT_LOGGING_RULES.
    explicit LoggedLines(const QString &rules) {
        {
            const QMutexLocker lock(&s_guard);
            s_lines.clear();
        }
        QLoggingCategory::setFilterRules(rules);
        m_earlier = qInstallMessageHandler(collect);
    }
    ~LoggedLines() {
        qInstallMessageHandler(m_earlier);
        QLoggingCategory::setFilterRules(QString());
    }
    LoggedLines(const LoggedLines &) = delete;
    LoggedLines &operator=(const LoggedLines &) = delete;

    QStringList all() const {
        const QMutexLocker lock(&s_guard);
        return s_lines;
    }

    /// What was collected since the last call.
    QStringList take() {
        const QMutexLocker lock(&s_guard);
        return std::exchange(s_lines, {});
    }

private:
    static void collect(QtMsgType /*type*/, const QMessageLogContext & /*where*/,
                        const QString &line) {
        const QMutexLocker lock(&s_guard);
        s_lines.append(line);
    }

    static inline QMutex s_guard;
    static inline QStringList s_lines;
    QtMessageHandler m_earlier = nullptr;
};

/// What `action` logs by `category`, all its levels asked for, line by line.
template <typename Action>
QStringList loggedLines(const QString &category, Action action) {
    const LoggedLines logged(category + QStringLiteral("=true"));
    action();
    return logged.all();
}

} // namespace zeph
