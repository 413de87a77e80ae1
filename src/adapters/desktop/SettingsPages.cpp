// SPDX-License-Identifier: MIT
#include "adapters/desktop/SettingsPages.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>
#include <tuple>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// One page of a settings program.
struct SettingsPage {
    QString desktop;
    QString link;     ///< the page of ours that leads there
    QString evidence; ///< in a data folder, there where the page is
    QString program;
    QString argument;
};

/// Calendars and task lists come from the desktop's accounts. Of a link that stands twice the first
/// page counts that is installed. No desktop has a page for the input.
const std::vector<SettingsPage> &settingsPages() {
    static const std::vector<SettingsPage> pages = [] {
        std::vector<SettingsPage> all;
        // Forks of one program, which one has what the other calls by another name.
        for (const auto &[desktop, program, prefix] :
             {std::tuple{u"GNOME"_s, u"gnome-control-center"_s, u"applications/gnome-"_s},
              std::tuple{u"Unity"_s, u"gnome-control-center"_s, u"applications/gnome-"_s},
              std::tuple{u"Budgie"_s, u"budgie-control-center"_s, u"applications/budgie-"_s}}) {
            const auto add = [&all, &desktop = desktop, &program = program,
                              &prefix = prefix](const QString &link, const QString &panel) {
                all.push_back(
                    {desktop, link, prefix + panel + u"-panel.desktop"_s, program, panel});
            };
            add(u"location"_s, u"location"_s);
            add(u"location"_s, u"privacy"_s);
            add(u"calendar"_s, u"online-accounts"_s);
            add(u"reminders"_s, u"online-accounts"_s);
            add(u"privacy"_s, u"privacy"_s);
            add(u"privacy"_s, u"location"_s); // before GNOME 46 one of the pages of "Privacy"
        }
        const QString cinnamon = u"cinnamon/cinnamon-settings/modules/cs_"_s;
        for (const QString &link : {u"calendar"_s, u"reminders"_s}) {
            all.push_back({u"X-Cinnamon"_s, link, cinnamon + u"online_accounts.py"_s,
                           u"cinnamon-settings"_s, u"online-accounts"_s});
        }
        all.push_back({u"X-Cinnamon"_s, u"privacy"_s, cinnamon + u"privacy.py"_s,
                       u"cinnamon-settings"_s, u"privacy"_s});
        for (const QString &program : {u"systemsettings"_s, u"systemsettings5"_s}) {
            all.push_back({u"KDE"_s, u"privacy"_s, u"applications/kcm_recentFiles.desktop"_s,
                           program, u"kcm_recentFiles"_s});
        }
        return all;
    }();
    return pages;
}

} // namespace

SettingsPages::SettingsPages(const QString &currentDesktop, QStringList dataFolders)
    : m_desktops(currentDesktop.split(u':', Qt::SkipEmptyParts)),
      m_dataFolders(std::move(dataFolders)) {}

bool SettingsPages::canOpen(const QUrl &link) const {
    return commandFor(link).has_value();
}

void SettingsPages::open(const QUrl &link) {
    if (const auto command = commandFor(link)) {
        QProcess::startDetached(command->program, command->arguments);
    }
}

std::optional<SettingsPages::Command> SettingsPages::commandFor(const QUrl &link) const {
    if (link.scheme() != u"zeph-settings"_s) {
        return std::nullopt;
    }
    const auto isInstalled = [this](const QString &evidence) {
        return std::any_of(m_dataFolders.begin(), m_dataFolders.end(), [&](const QString &folder) {
            return QFile::exists(folder + u'/' + evidence);
        });
    };
    for (const QString &desktop : m_desktops) {
        for (const SettingsPage &page : settingsPages()) {
            if (page.link != link.path() ||
                page.desktop.compare(desktop.trimmed(), Qt::CaseInsensitive) != 0) {
                continue;
            }
            const QString program = QStandardPaths::findExecutable(page.program);
            if (!program.isEmpty() && isInstalled(page.evidence)) {
                return Command{program, {page.argument}};
            }
        }
    }
    return std::nullopt;
}

} // namespace zeph
