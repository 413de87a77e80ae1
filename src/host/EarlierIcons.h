// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QString>

#include <optional>

namespace zeph {

class UserDefaults;

/// The key of what is kept: a JSON object of texts by `DesktopShell::name`.
inline const QString earlierIconsKey = QStringLiteral("zeph.desktop.earlierIcons");

/// What the settings of desktops were before their icons were hidden, each in its desktop's own
/// words: a person may use several desktops with one home folder. Of any thread, one at a time.
class EarlierIcons {
public:
    explicit EarlierIcons(UserDefaults &defaults) : m_defaults(defaults) {}

    /// Absent where nothing is kept. What an earlier version kept, which did not write down of
    /// which desktop it was, counts for each.
    std::optional<QString> of(const QString &desktop) const;

    /// Whether there is anything of any desktop.
    bool isEmpty() const;

    /// False when it can't be saved; then what was kept before stays.
    bool keep(const QString &desktop, const QString &value);

    void forget(const QString &desktop);

private:
    QMap<QString, QString> all() const;
    void write(const QMap<QString, QString> &kept);

    UserDefaults &m_defaults;
};

} // namespace zeph
