// SPDX-License-Identifier: MIT
#include "ui/settings/AboutPane.h"

#include "host/UpdateChecker.h"
#include "ui/controls/Logo.h"
#include "ui/controls/Look.h"
#include "ui/controls/PaneHeader.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/SettingRow.h"
#include "ui/controls/StatusLine.h"
#include "ui/controls/TextLabel.h"
#include "ui/settings/DrawingWayCard.h"
#include "ui/settings/PaneMeasures.h"
#include "ui/settings/UpdateCard.h"

#include <QDesktopServices>
#include <QHBoxLayout>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int headerToLogo = 30;
constexpr int logoToCard = 30;
constexpr double logoSize = 66;
constexpr double logoGap = 22;

QString privacyText() {
    return u"Tavi turns your desktop into a calm mirror of your day: focus, movement, meetings, "
           u"weather, and the numbers you care about. Everything is computed on your computer and "
           u"stays on your computer: no accounts, no servers, no analytics. API keys you add live "
           u"in your keyring and talk to services directly."_s;
}

} // namespace

AboutPane::AboutPane(const SettingsContext &context, QUrl support, QWidget *parent)
    : Pane(parent),
      open([](const QUrl &page) { QDesktopServices::openUrl(page); }),
      m_support(std::move(support)) {
    add(new PaneHeader(u"About"_s, u"The wallpaper that reflects your day."_s), 0);
    add(makeVersionLine(), headerToLogo);
    add(makePrivacyCard(), logoToCard);
    add(makeUpdateCard(context), betweenCards);
    add(makeDrawingWayCard(context), betweenCards);
    add(makeSupportCard(), betweenCards);
}

QWidget *AboutPane::makeVersionLine() {
    auto *line = new QWidget;
    auto *row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(scaled(logoGap));
    row->addWidget(new Logo(logoSize));
    row->addWidget(new TextLabel(u"Version %1"_s.arg(UpdateChecker::currentVersion()),
                                 TypeRole::version, TextLabel::Ink::ink),
                   1, Qt::AlignVCenter);
    return line;
}

QWidget *AboutPane::makePrivacyCard() {
    auto *card = new Card;
    auto *row = new SettingRow({u"lock.shield"_s, u"Private by design"_s}, nullptr);
    row->addBelow(new TextLabel(privacyText(), TypeRole::body, TextLabel::Ink::second));
    card->addRow(row);
    m_entries.push_back({row->title(), privacyText(), row});
    return card;
}

QWidget *AboutPane::makeUpdateCard(const SettingsContext &context) {
    auto *card = new UpdateCard(context);
    for (const SearchEntry &entry : card->searchEntries()) {
        m_entries.push_back(entry);
    }
    return card;
}

QWidget *AboutPane::makeDrawingWayCard(const SettingsContext &context) {
    auto *card = new DrawingWayCard(context);
    for (const SearchEntry &entry : card->searchEntries()) {
        m_entries.push_back(entry);
    }
    return card;
}

QWidget *AboutPane::makeSupportCard() {
    auto *contact = new PillButton(u"Contact us"_s);
    const QString detail = u"Questions, feedback, or feature ideas? We'd love to hear from you."_s;
    auto *row = new SettingRow({u"lifepreserver"_s, u"Support"_s, detail}, contact);
    contact->setAccessibleName(contact->text());
    connect(contact, &QPushButton::clicked, this, [this] { open(m_support); });
    if (m_support.isEmpty()) {
        contact->setEnabled(false);
        auto *hint = new StatusLine;
        row->addBelow(hint);
        hint->show(StatusLine::Kind::hint, u"This build was given no address to write to."_s);
    }
    m_entries.push_back({row->title(), detail, contact});
    auto *card = new Card;
    card->addRow(row);
    return card;
}

} // namespace zeph::ui
