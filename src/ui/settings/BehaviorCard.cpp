// SPDX-License-Identifier: MIT
#include "ui/settings/BehaviorCard.h"

#include "host/DesktopIconsManager.h"
#include "host/LaunchAtLogin.h"
#include "ports/UserDefaults.h"
#include "settings/PreferencesStore.h"
#include "ui/controls/SettingRow.h"
#include "ui/controls/StatusLine.h"
#include "ui/controls/Switch.h"
#include "ui/settings/LiveRefresh.h"

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

QString titlesKey() {
    return u"zeph.calendar.titles"_s;
}

QString hideIconsKey() {
    return u"zeph.desktop.hideIcons"_s;
}

QString desktopFilesDetail(const QString &folder) {
    return u"Hides folders and files via your file manager — they are removed, not covered by "
           u"Tavi. Still in %1 when you turn this off. Your file manager restarts briefly when you "
           u"change this."_s.arg(folder.isEmpty() ? u"your desktop folder"_s : folder);
}

} // namespace

BehaviorCard::BehaviorCard(const SettingsContext &context, const QString &desktopFolder,
                           QWidget *parent)
    : Card(parent),
      m_context(context),
      m_login(new Switch),
      m_titles(new Switch),
      m_clock(new Switch),
      m_desktopFiles(new Switch),
      m_loginProblem(new StatusLine),
      m_filesProblem(new StatusLine) {
    addLoginRow();
    addTitlesRow();
    addClockRow();
    addDesktopFilesRow(desktopFolder);
    refresh();
    auto *live = new LiveRefresh(*this, context.runLoop, [this] { refresh(); });
    live->follow(context.preferences.objectWillChange);
}

SettingRow *BehaviorCard::addSwitch(Switch *control, const QString &symbol, const QString &title,
                                    const QString &detail) {
    auto *row = new SettingRow({symbol, title, detail}, control);
    addRow(row);
    m_entries.push_back({title, detail, control});
    return row;
}

void BehaviorCard::addLoginRow() {
    addSwitch(m_login, u"power"_s, u"Open at login"_s,
              u"Keep your wallpaper alive — Tavi reopens automatically after every reboot or "
              u"logout."_s)
        ->addBelow(m_loginProblem);
    connect(m_login, &QCheckBox::clicked, this, [this](bool isOn) { setOpensAtLogin(isOn); });
}

void BehaviorCard::addTitlesRow() {
    addSwitch(m_titles, u"calendar"_s, u"Show meeting titles"_s,
              u"Off by default. Tavi reads only timing unless you turn this on."_s);
    connect(m_titles, &QCheckBox::clicked, this,
            [this](bool isOn) { m_context.defaults.set(titlesKey(), isOn); });
}

void BehaviorCard::addClockRow() {
    addSwitch(m_clock, u"clock"_s, u"24-hour clock"_s,
              u"Show the clock as 14:30 instead of 2:30."_s);
    connect(m_clock, &QCheckBox::clicked, this,
            [this](bool isOn) { m_context.preferences.setUse24HourClock(isOn); });
}

void BehaviorCard::addDesktopFilesRow(const QString &desktopFolder) {
    SettingRow *row = addSwitch(m_desktopFiles, u"folder"_s, u"Hide Desktop files"_s,
                                desktopFilesDetail(desktopFolder));
    connect(m_desktopFiles, &QCheckBox::clicked, this, [this](bool isOn) {
        m_context.defaults.set(hideIconsKey(), isOn);
        m_filesProblem->clear();
        m_context.desktopIcons.applyHidden(isOn, m_owner.whileAlive([this](bool doStay) {
            if (doStay) {
                m_filesProblem->show(
                    StatusLine::Kind::error,
                    u"Your icons stay for now: what their setting was can't be kept."_s);
            }
        }));
    });
    row->addBelow(m_filesProblem);
    if (!m_context.desktopIcons.canHide()) {
        m_desktopFiles->setEnabled(false);
        auto *hint = new StatusLine;
        row->addBelow(hint);
        hint->show(StatusLine::Kind::hint, u"Your desktop has no setting for this."_s);
    }
}

void BehaviorCard::setOpensAtLogin(bool opens) {
    m_isLoginPending = true;
    m_loginProblem->clear();
    m_context.launchAtLogin.setEnabled(opens, m_owner.whileAlive([this, opens](bool holds) {
        m_isLoginPending = false;
        refresh();
        if (!holds) {
            m_loginProblem->show(StatusLine::Kind::error,
                                 opens ? u"Your desktop did not take this, so it stays off."_s
                                       : u"Your desktop did not take this, so it stays on."_s);
        }
    }));
}

void BehaviorCard::refresh() {
    if (!m_isLoginPending) {
        m_login->setChecked(m_context.launchAtLogin.isEnabled());
    }
    m_titles->setChecked(m_context.defaults.boolean(titlesKey()));
    m_clock->setChecked(m_context.preferences.use24HourClock());
    m_desktopFiles->setChecked(m_context.defaults.boolean(hideIconsKey()));
}

std::vector<SearchEntry> BehaviorCard::searchEntries() const {
    return m_entries;
}

} // namespace zeph::ui
