// SPDX-License-Identifier: MIT
#include "ui/accessibility/SampleControls.h"

#include "ui/controls/Card.h"
#include "ui/controls/ChoiceBox.h"
#include "ui/controls/DateField.h"
#include "ui/controls/IconButton.h"
#include "ui/controls/LinkLabel.h"
#include "ui/controls/MarkRow.h"
#include "ui/controls/PercentSlider.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/ReorderList.h"
#include "ui/controls/SecretField.h"
#include "ui/controls/Segmented.h"
#include "ui/controls/SettingRow.h"
#include "ui/controls/SizeChoice.h"
#include "ui/controls/Stepper.h"
#include "ui/controls/Swatch.h"
#include "ui/controls/Switch.h"
#include "ui/controls/TextField.h"
#include "ui/controls/Tile.h"

#include <QHBoxLayout>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

void addRow(ui::Card &card, const QString &title, QWidget *control) {
    card.addRow(new ui::SettingRow({{}, title}, control));
}

ui::Card *rows() {
    auto *card = new ui::Card;
    addRow(*card, u"Switch"_s, new ui::Switch);
    addRow(*card, u"Segmented"_s, new ui::Segmented({u"Metric"_s, u"Imperial"_s}));
    addRow(*card, u"Size"_s, new ui::SizeChoice);
    addRow(*card, u"Slider"_s, new ui::PercentSlider);
    addRow(*card, u"Stepper"_s, new ui::Stepper(1, 9));
    addRow(*card, u"Choice"_s, new ui::ChoiceBox({u"Never"_s, u"Yearly"_s}));
    addRow(*card, u"Date"_s, new ui::DateField(QDate(2026, 5, 14)));
    addRow(*card, u"Text"_s, new ui::TextField(u"e.g. Main store"_s));
    addRow(*card, u"Secret"_s, new ui::SecretField);
    return card;
}

QWidget *swatches() {
    auto *row = new QWidget;
    row->setAccessibleName(u"Colors"_s);
    auto *line = new QHBoxLayout(row);
    line->addWidget(new ui::Swatch(u"Midnight"_s, u"#0D0F1F"_s));
    line->addWidget(new ui::Swatch(u"Forest"_s, u"#0A1A14"_s));
    return row;
}

QWidget *buttons() {
    auto *row = new QWidget;
    auto *line = new QHBoxLayout(row);
    line->addWidget(new ui::PillButton(u"Save"_s, ui::PillButton::Kind::primary));
    line->addWidget(new ui::IconButton(u"minus.circle.fill"_s, u"Remove"_s));
    line->addWidget(new ui::LinkLabel(u"Support"_s, QUrl(u"https://example.org"_s)));
    return row;
}

ui::Card *lists() {
    auto *card = new ui::Card;
    card->setAccessibleName(u"Displays"_s);
    card->addRow(new ui::RadioRow(u"All displays"_s, u"2 monitors"_s));
    card->addRow(new ui::RadioRow(u"Left display"_s, u"1920 × 1080"_s));
    card->addRow(new ui::CheckRow(u"Desktop 1"_s, u"current"_s));
    return card;
}

} // namespace

std::unique_ptr<ui::Pane> makeSampleControls() {
    auto pane = std::make_unique<ui::Pane>();
    pane->add(rows(), 0);
    pane->add(swatches(), 14);
    pane->add(buttons(), 14);
    pane->add(lists(), 14);
    pane->add(new ui::Tile({u"creditcard"_s, u"Stripe"_s, u"Revenue and customers"_s}), 14);
    auto *order = new ui::ReorderList;
    order->setAccessibleName(u"Order of widgets"_s);
    order->setRows({{u"clock"_s, u"clock"_s, u"Clock"_s}, {u"sun"_s, u"sun.max"_s, u"Sun"_s}});
    pane->add(order, 14);
    return pane;
}

} // namespace zeph
