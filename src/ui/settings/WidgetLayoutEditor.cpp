// SPDX-License-Identifier: MIT
#include "ui/settings/WidgetLayoutEditor.h"

#include "model/AppState.h"
#include "ports/Screens.h"
#include "services/accounts/IntegrationsStore.h"
#include "settings/PreferencesStore.h"
#include "ui/controls/Card.h"
#include "ui/controls/Look.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/ReorderList.h"
#include "ui/controls/TextLabel.h"
#include "ui/settings/LiveRefresh.h"
#include "ui/settings/WallpaperPreview.h"
#include "widgets/LayoutRows.h"
#include "widgets/RootWallpaperView.h"

#include <QHBoxLayout>

#include <algorithm>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double listWidth = 290;
constexpr double leastListHeight = 4 * 42; // four rows
constexpr double listGap = 20;
constexpr double thumbnailWidth = 290;
constexpr double thumbnailHeight = 163;
constexpr double textGap = 14;
constexpr double footerGap = 12;

QString instruction() {
    return u"Drag to reorder. Widgets flow top-to-bottom, then into the next column. Time stays "
           u"pinned bottom-left."_s;
}

QString nothingToArrange() {
    return u"Turn on widgets in What to Show to arrange them here."_s;
}

} // namespace

WidgetLayoutEditor::WidgetLayoutEditor(const SettingsContext &context, QWidget *parent)
    : QWidget(parent),
      m_context(context),
      m_card(new Card),
      m_list(new ReorderList),
      m_empty(new TextLabel(nothingToArrange(), TypeRole::body, TextLabel::Ink::second)),
      m_footer(new QWidget),
      m_count(new TextLabel({}, TypeRole::detail, TextLabel::Ink::second)),
      m_reset(new PillButton(u"Reset order"_s)) {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(scaled(textGap));
    column->addWidget(new TextLabel(instruction(), TypeRole::body, TextLabel::Ink::second));
    auto *line = new QHBoxLayout;
    line->setSpacing(scaled(listGap));
    line->addWidget(makeList());
    auto *beside = new QVBoxLayout;
    beside->addWidget(
        new WallpaperPreview(context, {scaled(thumbnailWidth), scaled(thumbnailHeight)}));
    beside->addStretch(1);
    line->addLayout(beside, 1);
    column->addLayout(line, 1);

    m_list->onReordered = [this](const QStringList &order) {
        m_context.preferences.setCustomOrder(order);
    };
    connect(m_reset, &QPushButton::clicked, this,
            [this] { m_context.preferences.resetCustomOrder(); });
    refresh();
    auto *live = new LiveRefresh(*this, context.runLoop, [this] { refresh(); });
    live->follow(context.preferences.objectWillChange);
    live->follow(context.integrations.objectWillChange);
    live->follow(context.state.objectWillChange);
    live->follow(context.screens.subscribe(live->handler()));
}

QWidget *WidgetLayoutEditor::makeList() {
    auto *side = new QWidget;
    side->setFixedWidth(scaled(listWidth));
    auto *column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(scaled(footerGap));
    m_list->setAccessibleName(u"Order of the widgets"_s);
    // As high as there is room for, up to all its rows; then it scrolls.
    m_list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    m_card->addRow(m_list);
    column->addWidget(m_card, 1);
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setMinimumHeight(scaled(leastListHeight));
    column->addWidget(m_empty);
    m_footer->setLayout(makeFooter());
    column->addWidget(m_footer);
    column->addStretch();
    return side;
}

QLayout *WidgetLayoutEditor::makeFooter() {
    auto *line = new QHBoxLayout;
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(m_count, 1);
    line->addWidget(m_reset);
    m_reset->setHeight(PillButton::Height::small);
    return line;
}

std::vector<WidgetKind> WidgetLayoutEditor::cutOff() const {
    const auto screen = m_context.screens.main();
    return screen ? m_context.wallpaper.cutOff(screen->frame.size()) : std::vector<WidgetKind>();
}

void WidgetLayoutEditor::refresh() {
    const std::vector<WidgetKind> kinds =
        layoutRows(m_context.state, m_context.preferences, m_context.integrations.quoteEnabled(),
                   m_context.framing.calendar);
    const std::vector<WidgetKind> hidden = cutOff();
    std::vector<ReorderList::Row> rows;
    for (const WidgetKind kind : kinds) {
        const bool isCutOff = std::find(hidden.begin(), hidden.end(), kind) != hidden.end();
        rows.push_back(
            {rawValue(kind), icon(kind), title(kind), isCutOff ? u"does not fit"_s : QString()});
    }
    m_list->setRows(rows);
    const int whole = m_list->sizeHint().height();
    m_list->setMinimumHeight(std::min(scaled(leastListHeight), whole));
    m_list->setMaximumHeight(whole);
    m_card->setVisible(!rows.empty());
    m_empty->setVisible(rows.empty());
    m_count->setText(layoutCountText(rows.size()));
}

} // namespace zeph::ui
