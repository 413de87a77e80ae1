// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/painting/SymbolLibrary.h"
#include "ui/controls/Tokens.h"

#include <QCache>
#include <QFont>
#include <QMargins>
#include <QPixmap>

#include <chrono>

class QWidget;

namespace zeph::ui {

/// What a text is for; each has its size, weight and line height.
enum class TypeRole {
    title,        ///< of a pane
    version,      ///< on About
    row,          ///< the title of a row or a card
    body,         ///< running text, fields, menus
    bodyStrong,   ///< the chosen tab
    button,       ///< and values
    segment,      ///< of a choice, not chosen
    detail,       ///< under a title; status, hint, label of a field, link
    detailStrong, ///< the first line of the sidebar's footer
    note,         ///< under a field, state of a tile
    section,      ///< small capitals above a group
    fixed,        ///< paths and commands, in the system's own fixed font
    lead,         ///< the paragraph that a page of the first start begins with
    strong,       ///< the first line of two, in a list without controls
};

/// How one of our windows looks: its colours, its scale and its symbols. The window owns it; every
/// control in the window, popups included, finds it by `Look::of`.
class Look {
public:
    /// Dresses `window`, which owns this object from outside: palette, font and the way to here.
    Look(QWidget &window, Appearance appearance);
    ~Look();
    Look(const Look &) = delete;
    Look &operator=(const Look &) = delete;

    /// The look of the window that `widget` is in; a dark one for a widget in none.
    static const Look &of(const QWidget &widget);

    /// Changes to another appearance at once.
    void setAppearance(Appearance appearance);
    Appearance appearance() const { return m_appearance; }
    const Tokens &tokens() const { return m_tokens; }

    /// Without motion every duration is zero.
    void setMotion(bool isWanted) { m_hasMotion = isWanted; }
    std::chrono::milliseconds duration(std::chrono::milliseconds wanted) const;

    /// The symbol `identifier`, `size` logical pixels square, in `color`, for the pixel ratio of
    /// `widget`. From a designed size of 28 on its lines are thinned, so that they stay as fine as
    /// a title's. Where one reads from right to left, chevrons and arrows point the other way.
    QPixmap symbol(const QWidget &widget, const QString &identifier, double size,
                   const QColor &color) const;
    /// Gives the memory of the symbols back; they are drawn anew when needed.
    void forgetSymbols();

private:
    struct SymbolKey {
        QString identifier;
        int pixels = 0;
        int ratio = 0;  ///< in thousandths
        int stroke = 0; ///< in thousandths of a unit
        QRgb color = 0;
        bool isMirrored = false;
        bool operator==(const SymbolKey &) const = default;
        friend size_t qHash(const SymbolKey &key, size_t seed) {
            return qHashMulti(seed, key.identifier, key.pixels, key.ratio, key.stroke, key.color,
                              key.isMirrored);
        }
    };

    Look(); // for widgets in no window

    void dress();

    QWidget *m_window = nullptr;
    Appearance m_appearance = Appearance::dark;
    Tokens m_tokens;
    bool m_hasMotion = true;
    mutable SymbolLibrary m_symbols;
    mutable QCache<SymbolKey, QPixmap> m_pictures; ///< of symbols, by kilobytes
};

/// How wide the strokes of a symbol of this designed size are, in units of its grid of 24.
double symbolStroke(double size);

/// How much larger than designed everything is: the size of the application's font, 10 points
/// being 1.
double scale();

/// Whether text is so large, from 140 % on, that what stands side by side goes below each other.
bool isTextLarge();

/// `measure`, in logical pixels at a font of 10 points, for the application's font.
int scaled(double measure);

/// Margins at the designed scale, scaled, with start and end as one reads in `widget`.
QMargins directed(const QWidget &widget, double start, double top, double end, double bottom);

QFont font(TypeRole role);

/// The height of a line of that role, in logical pixels.
int lineHeight(TypeRole role);

} // namespace zeph::ui
