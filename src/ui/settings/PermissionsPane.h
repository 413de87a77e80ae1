// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/SettingRow.h"
#include "ui/settings/Pane.h"
#include "ui/settings/SettingsContext.h"

namespace zeph::ui {

class Card;
class PermissionRow;

/// The tab "Permissions": what the program may know, each given and taken back here.
class PermissionsPane : public Pane {
public:
    explicit PermissionsPane(const SettingsContext &context, QWidget *parent = nullptr);

    std::vector<SearchEntry> searchEntries() override;
    void willShow() override;

protected:
    bool event(QEvent *event) override;

private:
    using Action = void (PermissionsManager::*)();

    PermissionRow *addPermission(Card &card, const SettingRow::Words &words, Action allow,
                                 Action withdraw);
    QWidget *makeButtons();
    void refresh();

    SettingsContext m_context;
    PermissionRow *m_accessibility = nullptr;
    PermissionRow *m_location = nullptr;
    PermissionRow *m_calendar = nullptr;
    PermissionRow *m_reminders = nullptr;
    std::vector<std::pair<SettingRow::Words, PermissionRow *>> m_rows;
};

} // namespace zeph::ui
