// SPDX-License-Identifier: MIT
#pragma once

#include "ports/LoginItem.h"

#include <QStringList>

namespace zeph {

struct AutostartFacts;

/// The start with the session by an entry in the user's autostart folder, which outweighs one that
/// the system has for all users. What others wrote there is never replaced: in an entry of the
/// user's only the switch is changed, and what is no ordinary file is left alone.
class AutostartEntry : public LoginItem {
public:
    /// `configFolders`: the user's own first, as in XDG_CONFIG_HOME and XDG_CONFIG_DIRS.
    /// `executable` is what is to be started.
    AutostartEntry(QStringList configFolders, QString executable);

    bool isEnabled() const override;

    /// A small file, written at once: a press of a switch has its answer within the call.
    void setEnabled(bool enabled,
                    std::function<void(const std::optional<QString> &error)> done) override;

    /// Of an entry that we wrote.
    void renew(std::function<void(const std::optional<QString> &error)> done) override;

private:
    QString userFile() const;
    bool isSystemWide() const;
    bool startsNothing() const;
    std::optional<QString> change(bool enabled) const;
    std::optional<QString> write(const QByteArray &entry) const;
    std::optional<QString> remove() const;

    QStringList m_folders;
    QString m_executable;
};

} // namespace zeph
