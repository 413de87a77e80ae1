// SPDX-License-Identifier: MIT
#include "ui/settings/PermissionsPane.h"

#include "host/PermissionsManager.h"
#include "ports/LocationClient.h"
#include "ports/SystemSettings.h"
#include "ui/controls/Card.h"
#include "ui/controls/Look.h"
#include "ui/controls/PaneHeader.h"
#include "ui/controls/PillButton.h"
#include "ui/settings/LiveRefresh.h"
#include "ui/settings/PaneMeasures.h"
#include "ui/settings/PermissionRow.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QUrl>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int cardToButtons = 20;

} // namespace

PermissionsPane::PermissionsPane(const SettingsContext &context, QWidget *parent)
    : Pane(parent), m_context(context) {
    using Manager = PermissionsManager;
    add(new PaneHeader(u"Permissions"_s, u"All optional. Deny everything and Tavi still works."_s),
        0);
    auto *card = new Card;
    m_accessibility =
        addPermission(*card,
                      {u"keyboard"_s, u"Accessibility"_s,
                       u"to measure your typing rhythm and mouse activity. It never sees what you "
                       u"type, only timing."_s},
                      &Manager::requestAccessibility, &Manager::withdrawAccessibility);
    m_location = addPermission(*card,
                               {u"location"_s, u"Location"_s,
                                u"for your local weather and accurate sunrise and sunset."_s},
                               &Manager::requestLocation, &Manager::withdrawLocation);
    m_calendar =
        addPermission(*card,
                      {u"calendar"_s, u"Calendar"_s,
                       u"to show your next meeting. It only reads timing, not contents."_s},
                      &Manager::requestCalendar, &Manager::withdrawCalendar);
    m_reminders = addPermission(
        *card,
        {u"checklist"_s, u"Reminders"_s, u"to show what's due today. Counts and top items only."_s},
        &Manager::requestReminders, &Manager::withdrawReminders);
    add(card, belowHeader);
    add(makeButtons(), cardToButtons);
    refresh();
    auto *live = new LiveRefresh(*this, context.runLoop, [this] { refresh(); });
    live->follow(context.permissions->objectWillChange);
}

PermissionRow *PermissionsPane::addPermission(Card &card, const SettingRow::Words &words,
                                              Action allow, Action withdraw) {
    PermissionsManager &manager = *m_context.permissions;
    auto *row = new PermissionRow(words, {[&manager, allow] { (manager.*allow)(); },
                                          [&manager, withdraw] { (manager.*withdraw)(); }});
    card.addRow(row);
    m_rows.emplace_back(words, row);
    return row;
}

QWidget *PermissionsPane::makeButtons() {
    auto *buttons = new QWidget;
    auto *line = new QHBoxLayout(buttons);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(scaled(10));
    const QUrl privacy(PermissionsManager::privacyLink());
    auto *settings = new PillButton(u"Open System Settings → Privacy"_s);
    line->addWidget(settings);
    settings->setVisible(m_context.systemSettings.canOpen(privacy));
    connect(settings, &QPushButton::clicked, this,
            [this, privacy] { m_context.systemSettings.open(privacy); });
    auto *again = new PillButton(u"Refresh"_s);
    line->addWidget(again);
    connect(again, &QPushButton::clicked, this, [this] { m_context.permissions->refresh(); });
    line->addStretch(1);
    return buttons;
}

void PermissionsPane::refresh() {
    const PermissionsManager &manager = *m_context.permissions;
    m_accessibility->show(*manager.accessibilityGranted,
                          inputState(*manager.accessibilityGranted, manager.canCountKeys(),
                                     manager.inputConsentTellsFront()));
    m_location->show(*manager.locationGranted,
                     locationState(*manager.locationGranted, manager.locationHindrance()));
    m_calendar->show(*manager.calendarGranted, permissionState(*manager.calendarGranted));
    m_reminders->show(*manager.remindersGranted, permissionState(*manager.remindersGranted));
}

void PermissionsPane::willShow() {
    m_context.permissions->refresh();
}

bool PermissionsPane::event(QEvent *event) {
    if (event->type() == QEvent::WindowActivate) {
        // The user may come back from the desktop's own settings.
        m_context.permissions->refresh();
    }
    return Pane::event(event);
}

std::vector<SearchEntry> PermissionsPane::searchEntries() {
    std::vector<SearchEntry> entries;
    for (const auto &[words, row] : m_rows) {
        QWidget *button = row->button();
        entries.push_back({words.title, words.detail, button->isVisibleTo(row) ? button : row});
    }
    return entries;
}

} // namespace zeph::ui
