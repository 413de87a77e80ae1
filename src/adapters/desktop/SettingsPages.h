// SPDX-License-Identifier: MIT
#pragma once

#include "ports/SystemSettings.h"

#include <QStringList>

#include <optional>

namespace zeph {

/// The pages of the desktops' settings programs, for GNOME, Budgie, Cinnamon and Plasma. Other
/// desktops have none for what our links are about.
class SettingsPages : public SystemSettings {
public:
    /// `currentDesktop` is XDG_CURRENT_DESKTOP: names apart by colons, the first of which that has
    /// the page decides. `dataFolders` are those of XDG_DATA_HOME and XDG_DATA_DIRS, which tell
    /// what is installed.
    SettingsPages(const QString &currentDesktop, QStringList dataFolders);

    bool canOpen(const QUrl &link) const override;
    void open(const QUrl &link) override;

private:
    struct Command {
        QString program;
        QStringList arguments;
    };

    std::optional<Command> commandFor(const QUrl &link) const;

    QStringList m_desktops;
    QStringList m_dataFolders;
};

} // namespace zeph
