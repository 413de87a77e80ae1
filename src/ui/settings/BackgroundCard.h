// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Card.h"
#include "ui/settings/Pane.h"
#include "ui/settings/SettingsContext.h"

namespace zeph::ui {

class ColorWell;
class PercentSlider;
class Segmented;
class SwatchRow;
class TextLabel;

/// What lies behind the widgets.
class BackgroundCard : public Card {
public:
    explicit BackgroundCard(const SettingsContext &context, QWidget *parent = nullptr);

    std::vector<SearchEntry> searchEntries() const;

private:
    QWidget *makeBody();
    QWidget *makeColors();
    QWidget *makeOpacity();
    void refresh();
    void refreshColors();

    SettingsContext m_context;
    Segmented *m_mode;
    TextLabel *m_description;
    SwatchRow *m_swatches;
    TextLabel *m_colorName;
    ColorWell *m_customColor;
    PercentSlider *m_opacity;
    QWidget *m_colors;       ///< shown with one colour
    QWidget *m_transparency; ///< shown while the desktop shows through
};

} // namespace zeph::ui
