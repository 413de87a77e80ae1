// SPDX-License-Identifier: MIT
#include "ui/settings/DesktopWallpaperCard.h"

#include "ports/DesktopWallpaper.h"
#include "ui/controls/SettingRow.h"
#include "ui/controls/StatusLine.h"
#include "ui/controls/Switch.h"
#include "ui/settings/LiveRefresh.h"

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

QString underIconsTitle() {
    return u"Show under the icons of Plasma"_s;
}

QString underIconsDetail() {
    return u"Puts Tavi's own wallpaper into Plasma, where your icons lie above it, and brings back "
           u"each desktop's earlier one when you turn this off."_s;
}

} // namespace

DesktopWallpaperCard::DesktopWallpaperCard(const SettingsContext &context,
                                           DesktopWallpaper &wallpaper, QWidget *parent)
    : Card(parent), m_wallpaper(wallpaper), m_switch(new Switch), m_problem(new StatusLine) {
    auto *row = new SettingRow({u"photo"_s, underIconsTitle(), underIconsDetail()}, m_switch);
    row->addBelow(m_problem);
    addRow(row);
    connect(m_switch, &QCheckBox::clicked, this, [this](bool isOn) { m_wallpaper.choose(isOn); });
    refresh();
    auto *live = new LiveRefresh(*this, context.runLoop, [this] { refresh(); });
    live->follow(m_wallpaper.subscribe(live->handler()));
}

void DesktopWallpaperCard::showEvent(QShowEvent *event) {
    Card::showEvent(event);
    m_wallpaper.look();
}

void DesktopWallpaperCard::refresh() {
    const bool isChosen = m_wallpaper.isChosen();
    m_switch->setChecked(isChosen);
    const QString problem = m_wallpaper.problem();
    if (problem.isEmpty() && m_wallpaper.isReplaced()) {
        m_problem->show(StatusLine::Kind::hint, u"Plasma was given another wallpaper since. Turn "
                                                u"this off and on to have Tavi's again."_s);
    } else if (problem.isEmpty()) {
        m_problem->clear();
    } else {
        m_problem->show(StatusLine::Kind::error,
                        isChosen ? problem + u", so Tavi covers the icons for now."_s
                                 : problem + u'.');
    }
}

std::vector<SearchEntry> DesktopWallpaperCard::searchEntries() const {
    return {{underIconsTitle(), underIconsDetail(), m_switch}};
}

} // namespace zeph::ui
