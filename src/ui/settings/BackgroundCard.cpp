// SPDX-License-Identifier: MIT
#include "ui/settings/BackgroundCard.h"

#include "drawing/palette/BackgroundPresets.h"
#include "settings/PreferencesStore.h"
#include "ui/controls/PercentSlider.h"
#include "ui/controls/Segmented.h"
#include "ui/controls/SettingRow.h"
#include "ui/controls/TextLabel.h"
#include "ui/settings/ColorWell.h"
#include "ui/settings/LiveRefresh.h"
#include "ui/settings/SwatchRow.h"

#include <QHBoxLayout>

#include <algorithm>
#include <array>
#include <cmath>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

// In the order in which they are offered.
constexpr std::array modes = {BackgroundMode::solid, BackgroundMode::automatic,
                              BackgroundMode::transparent};

QString modeDescription(BackgroundMode mode) {
    switch (mode) {
    case BackgroundMode::solid:
        return u"A single static color. Pick a preset or your own."_s;
    case BackgroundMode::automatic:
        return u"Shifts with the time of day — warmer at midday, deep at night."_s;
    case BackgroundMode::transparent:
        return u"Your desktop wallpaper shows through; set how opaque the widgets sit on top."_s;
    }
    return {};
}

QString cardTitle() {
    return u"Background"_s;
}

QString customColorTitle() {
    return u"Custom color"_s;
}

QString opacityTitle() {
    return u"Widget opacity"_s;
}

QColor shownColor(const Color &color) {
    return QColor::fromRgb(color.argb());
}

QString hexOf(const QColor &color) {
    return color.name(QColor::HexRgb).toUpper();
}

constexpr double percents = 100;

} // namespace

BackgroundCard::BackgroundCard(const SettingsContext &context, QWidget *parent)
    : Card(parent),
      m_context(context),
      m_mode(new Segmented({u"Solid"_s, u"Time of day"_s, u"Transparent"_s})),
      m_description(new TextLabel({}, TypeRole::detail, TextLabel::Ink::second)),
      m_swatches(new SwatchRow),
      m_colorName(new TextLabel({}, TypeRole::detail, TextLabel::Ink::ink)),
      m_customColor(new ColorWell(customColorTitle())),
      m_opacity(new PercentSlider),
      m_colors(makeColors()),
      m_transparency(makeOpacity()) {
    addRow(new SettingRow({u"paintpalette"_s, cardTitle()}, nullptr));
    addBody(makeBody());
    m_mode->setAccessibleName(cardTitle());
    m_mode->onChosen = [this](int index) {
        m_context.preferences.setBackgroundMode(modes.at(static_cast<std::size_t>(index)));
    };
    refresh();
    auto *live = new LiveRefresh(*this, context.runLoop, [this] { refresh(); });
    live->follow(context.preferences.objectWillChange);
}

QWidget *BackgroundCard::makeBody() {
    auto *body = new QWidget;
    auto *column = new QVBoxLayout(body);
    column->setContentsMargins(0, 0, 0, 0); // the body has its own
    column->setSpacing(0);
    column->addWidget(m_mode, 0, Qt::AlignLeading);
    column->addSpacing(scaled(10));
    column->addWidget(m_description);
    column->addWidget(m_colors);
    column->addWidget(m_transparency);
    return body;
}

QWidget *BackgroundCard::makeColors() {
    auto *colors = new QWidget;
    auto *column = new QVBoxLayout(colors);
    column->setContentsMargins(0, scaled(18), 0, 0);
    column->setSpacing(scaled(14));
    column->addWidget(m_swatches);
    m_swatches->setAccessibleName(cardTitle());
    m_swatches->onChosen = [this](const QString &hex) {
        m_context.preferences.setBackgroundHex(hex);
    };
    auto *line = new QHBoxLayout;
    line->setSpacing(scaled(12));
    line->addWidget(m_colorName, 1);
    auto *label = new TextLabel(customColorTitle(), TypeRole::detail, TextLabel::Ink::second);
    label->setWordWrap(false);
    label->setBuddy(m_customColor);
    line->addWidget(label);
    line->addWidget(m_customColor);
    column->addLayout(line);
    m_customColor->onChosen = [this](const QColor &chosen) {
        m_context.preferences.setBackgroundHex(hexOf(chosen));
    };
    return colors;
}

QWidget *BackgroundCard::makeOpacity() {
    auto *row = new QWidget;
    auto *line = new QHBoxLayout(row);
    line->setContentsMargins(0, scaled(18), 0, 0);
    line->setSpacing(scaled(16));
    auto *label = new TextLabel(opacityTitle(), TypeRole::detail, TextLabel::Ink::ink);
    label->setWordWrap(false);
    line->addWidget(label);
    line->addWidget(m_opacity, 1);
    m_opacity->setAccessibleName(opacityTitle());
    connect(m_opacity, &QSlider::valueChanged, this,
            [this](int percent) { m_context.preferences.setTransparentDim(percent / percents); });
    return row;
}

void BackgroundCard::refresh() {
    const PreferencesStore &preferences = m_context.preferences;
    const BackgroundMode mode = preferences.backgroundMode();
    m_mode->choose(static_cast<int>(std::find(modes.begin(), modes.end(), mode) - modes.begin()));
    m_description->setText(modeDescription(mode));
    m_colors->setVisible(mode == BackgroundMode::solid);
    m_transparency->setVisible(mode == BackgroundMode::transparent);
    refreshColors();
    // Showing a value that has more decimals must not round the stored one.
    const QSignalBlocker silent(m_opacity);
    m_opacity->setValue(static_cast<int>(std::lround(preferences.transparentDim() * percents)));
}

void BackgroundCard::refreshColors() {
    const Color color = BackgroundPresets::colorFor(m_context.preferences.backgroundHex());
    m_customColor->setColor(shownColor(color));
    const QString preset = m_swatches->choose(color.hexString());
    m_colorName->setText(preset.isEmpty() ? color.hexString() : preset);
}

std::vector<SearchEntry> BackgroundCard::searchEntries() const {
    std::vector<SearchEntry> entries{{cardTitle(), m_description->text(), m_mode}};
    if (!m_colors->isHidden()) {
        entries.push_back({customColorTitle(), {}, m_customColor});
    }
    if (!m_transparency->isHidden()) {
        entries.push_back({opacityTitle(), {}, m_opacity});
    }
    return entries;
}

} // namespace zeph::ui
