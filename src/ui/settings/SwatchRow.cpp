// SPDX-License-Identifier: MIT
#include "ui/settings/SwatchRow.h"

#include "drawing/palette/BackgroundPresets.h"
#include "ui/controls/Accessible.h"
#include "ui/controls/Look.h"
#include "ui/controls/Swatch.h"
#include "ui/settings/CheckOnly.h"

#include <QButtonGroup>
#include <QGridLayout>

#include <algorithm>

namespace zeph::ui {

namespace {

constexpr double swatchGap = 8;

} // namespace

SwatchRow::SwatchRow(QWidget *parent)
    : QWidget(parent), m_swatches(new QButtonGroup(this)), m_grid(new QGridLayout(this)) {
    announceAs(*this, QAccessible::Grouping);
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setSpacing(scaled(swatchGap));
    for (const BackgroundPresets::Preset &preset : BackgroundPresets::all()) {
        auto *swatch = new Swatch(preset.name, preset.hex, this);
        m_swatches->addButton(swatch, static_cast<int>(m_swatches->buttons().size()));
        connect(swatch, &QRadioButton::clicked, this, [this, hex = preset.hex] {
            if (onChosen) {
                onChosen(hex);
            }
        });
    }
    arrange(static_cast<int>(m_swatches->buttons().size()));
}

QString SwatchRow::choose(const QString &hex) {
    const auto presets = BackgroundPresets::all();
    const auto chosen = std::find_if(presets.begin(), presets.end(),
                                     [&hex](const auto &preset) { return preset.hex == hex; });
    const bool isPreset = chosen != presets.end();
    checkOnly(*m_swatches, isPreset ? static_cast<int>(chosen - presets.begin()) : -1);
    return isPreset ? chosen->name : QString();
}

int SwatchRow::widthOf(int columns) const {
    const int swatch = m_swatches->button(0)->sizeHint().width();
    return columns * swatch + (columns - 1) * m_grid->horizontalSpacing();
}

QSize SwatchRow::minimumSizeHint() const {
    const auto count = static_cast<int>(m_swatches->buttons().size());
    return {widthOf((count + 1) / 2), QWidget::minimumSizeHint().height()};
}

void SwatchRow::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    const auto count = static_cast<int>(m_swatches->buttons().size());
    arrange(width() < widthOf(count) ? (count + 1) / 2 : count);
}

void SwatchRow::arrange(int columns) {
    if (columns == m_columns) {
        return;
    }
    m_grid->setColumnStretch(m_columns, 0);
    m_columns = columns;
    const auto swatches = m_swatches->buttons();
    for (int index = 0; index < static_cast<int>(swatches.size()); ++index) {
        m_grid->addWidget(m_swatches->button(index), index / columns, index % columns);
    }
    m_grid->setColumnStretch(columns, 1);
}

} // namespace zeph::ui
