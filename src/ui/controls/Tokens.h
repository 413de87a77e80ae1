// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPalette>

namespace zeph::ui {

enum class Appearance { dark, light, highContrast };

/// The colours that our windows are drawn with. Veils (card, hair, fill ...) are ink or white with
/// an alpha, meant to lie over the sky.
struct Tokens {
    QColor ground;
    QColor ink;
    QColor accent;
    QColor skyTop;
    QColor skyBottom;
    QColor second;
    QColor third;
    QColor card;
    QColor cardHover;
    QColor field;
    QColor edge;
    QColor hair;
    QColor line;
    QColor fill;
    QColor hover;
    QColor press;
    QColor button;
    QColor buttonHover;
    QColor raised;
    QColor menu;
    QColor lift;
    QColor accentInk;
    QColor onAccent;
    QColor focus;
    QColor ok;
    QColor error;

    bool operator==(const Tokens &) const = default;

    /// Those of an appearance. `desktop` is the user's own palette: its highlight becomes the focus
    /// colour where it has a contrast of 3:1, and with `highContrast` its window colours are the
    /// bases.
    static Tokens of(Appearance appearance, const QPalette &desktop);

    /// For the stock parts of our windows: calendar, tooltip, selected text.
    QPalette palette(Appearance appearance) const;
};

/// The contrast of two opaque colours, 1 to 21, as the web's accessibility guidelines compute it.
double contrast(const QColor &one, const QColor &other);

} // namespace zeph::ui
