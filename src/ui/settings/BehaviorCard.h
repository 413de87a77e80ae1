// SPDX-License-Identifier: MIT
#pragma once

#include "base/WorkOwner.h"
#include "ui/controls/Card.h"
#include "ui/settings/Pane.h"
#include "ui/settings/SettingsContext.h"

namespace zeph::ui {

class SettingRow;
class StatusLine;
class Switch;

/// How the program behaves: its start with the session, what it reads of meetings, the clock, and
/// the files on the desktop.
class BehaviorCard : public Card {
public:
    /// `desktopFolder` is what people call it, such as "~/Desktop"; empty for a user without one.
    BehaviorCard(const SettingsContext &context, const QString &desktopFolder,
                 QWidget *parent = nullptr);

    std::vector<SearchEntry> searchEntries() const;

private:
    SettingRow *addSwitch(Switch *control, const QString &symbol, const QString &title,
                          const QString &detail);
    void addLoginRow();
    void addTitlesRow();
    void addClockRow();
    void addDesktopFilesRow(const QString &desktopFolder);
    void setOpensAtLogin(bool opens);
    void refresh();

    SettingsContext m_context;
    Switch *m_login;
    Switch *m_titles;
    Switch *m_clock;
    Switch *m_desktopFiles;
    StatusLine *m_loginProblem;
    StatusLine *m_filesProblem;
    bool m_isLoginPending = false; // the desktop was asked and has not answered
    std::vector<SearchEntry> m_entries;
    WorkOwner m_owner;
};

} // namespace zeph::ui
