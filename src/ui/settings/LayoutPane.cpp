// SPDX-License-Identifier: MIT
#include "ui/settings/LayoutPane.h"

#include "settings/PreferencesStore.h"
#include "ui/controls/Look.h"
#include "ui/controls/PaneHeader.h"
#include "ui/controls/ReorderList.h"
#include "ui/controls/Segmented.h"
#include "ui/controls/TextLabel.h"
#include "ui/settings/LiveRefresh.h"
#include "ui/settings/PaneMeasures.h"
#include "ui/settings/WallpaperPreview.h"
#include "ui/settings/WidgetLayoutEditor.h"

#include <QHBoxLayout>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int modeToView = 18;
constexpr int belowView = 22;
constexpr double textToPicture = 14;
constexpr double pictureWidth = 600;
constexpr double pictureHeight = 337;

QString modeTitle() {
    return u"Layout mode"_s;
}

QString automaticText() {
    return u"Widgets flow automatically to fit your screen. Switch to Custom to reorder them "
           u"yourself."_s;
}

} // namespace

LayoutPane::LayoutPane(const SettingsContext &context, QWidget *parent)
    : Pane(parent),
      m_context(context),
      m_mode(new Segmented({u"Auto"_s, u"Custom"_s})),
      m_automatic(makeAutomatic()),
      m_editor(new WidgetLayoutEditor(context)) {
    add(new PaneHeader(u"Visual Layout"_s, u"Auto flows widgets to fit your screen. Custom lets "
                                           u"you reorder them."_s),
        0);
    add(makeModeLine(), belowHeader);
    auto *views = new QWidget;
    auto *column = new QVBoxLayout(views);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_automatic);
    column->addWidget(m_editor);
    addFilling(views, modeToView, belowView);
    m_mode->onChosen = [this](int index) {
        m_context.preferences.setLayoutMode(static_cast<WidgetLayoutMode>(index));
    };
    refresh();
    auto *live = new LiveRefresh(*this, context.runLoop, [this] { refresh(); });
    live->follow(context.preferences.objectWillChange);
}

QWidget *LayoutPane::makeModeLine() {
    auto *line = new QWidget;
    auto *row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(scaled(16));
    auto *label = new TextLabel(modeTitle(), TypeRole::row, TextLabel::Ink::ink);
    label->setWordWrap(false);
    row->addWidget(label);
    row->addWidget(m_mode);
    row->addStretch(1);
    m_mode->setAccessibleName(modeTitle());
    return line;
}

QWidget *LayoutPane::makeAutomatic() {
    auto *view = new QWidget;
    auto *column = new QVBoxLayout(view);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(scaled(textToPicture));
    column->addWidget(new TextLabel(automaticText(), TypeRole::body, TextLabel::Ink::second));
    column->addWidget(
        new WallpaperPreview(m_context, {scaled(pictureWidth), scaled(pictureHeight)}));
    column->addStretch(1);
    return view;
}

void LayoutPane::refresh() {
    const WidgetLayoutMode mode = m_context.preferences.layoutMode();
    m_mode->choose(static_cast<int>(mode));
    m_automatic->setVisible(mode == WidgetLayoutMode::automatic);
    m_editor->setVisible(mode == WidgetLayoutMode::manual);
}

std::vector<SearchEntry> LayoutPane::searchEntries() {
    std::vector<SearchEntry> entries{{modeTitle(), automaticText(), m_mode}};
    if (m_context.preferences.layoutMode() == WidgetLayoutMode::manual) {
        entries.push_back({u"Order of the widgets"_s, {}, &m_editor->list()});
    }
    return entries;
}

} // namespace zeph::ui
