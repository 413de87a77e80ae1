// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QPalette>
#include <QRectF>
#include <QTextLayout>

namespace zeph::ui {

/// One line of text with its cursor and what is selected, painted in a field that itself shows
/// something else.
class RevealedText {
public:
    struct Line {
        QString text;
        int cursor = 0;
        int selectionStart = 0;
        int selectionLength = 0;
    };

    /// Sets `line` anew, scrolled from where it was so far that the cursor is in `place`.
    void set(const Line &line, const QFont &font, const QRectF &place);

    void paint(QPainter &painter, const QPalette &palette, bool hasCursor) const;
    /// The character boundary nearest to `x`.
    int positionAt(double x) const;

private:
    QTextLayout m_layout;
    Line m_line;
    QRectF m_place;
    double m_scrolled = 0;
    QPointF m_origin;
};

} // namespace zeph::ui
