// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTextLayout>

#include <functional>

class QPainter;

namespace zeph::ui {

class WordWidths;

/// `text` with its dashes and hyphens joined to what they belong to, for the layout alone: no line
/// begins with a dash, and no word breaks at its hyphen.
QString joined(const QString &text);

/// A text in lines of about the same length: the narrowest that keep their number.
class BalancedText {
public:
    struct Limits {
        double width = 0;  ///< the most a line may take
        double line = 0;   ///< the height of one
        int mostLines = 0; ///< what is beyond is elided; 0 for no limit
    };

    BalancedText(const QString &text, const QFont &font, const Limits &limits);

    int lineCount() const { return m_layout.lineCount(); }
    /// Of the widest line, rounded up.
    int width() const;
    int height() const;
    bool isElided() const { return m_isElided; }
    /// Whether the lines are the same where they may take `width` at most: finding them costs far
    /// more than anything else of a text.
    bool holdsFor(double width) const { return width >= m_narrowest && width <= m_widest; }
    QStringList lines() const; ///< as laid out

    /// Paints the lines from `top` on, each aligned in `area`; `selected` counts as in the text.
    void paint(QPainter &painter, const QRectF &area, Qt::Alignment alignment,
               const QList<QTextLayout::FormatRange> &selected = {}) const;
    /// The place in the text that is nearest to `point` of `area`.
    int positionAt(const QPointF &point, const QRectF &area, Qt::Alignment alignment) const;

    /// Where a place in the text is in the layout, and back.
    int toLayout(int position) const;
    int toText(int position) const;

private:
    void wrap(double width);
    void holdOneLine(const Limits &limits);
    bool balance(const WordWidths &words, double most);
    void balance(double most);
    double widestWord();
    void elide(const Limits &limits);
    double lineX(int line, const QRectF &area, Qt::Alignment alignment) const;

    mutable QTextLayout m_layout;
    double m_lineHeight;
    bool m_isElided = false;
    double m_narrowest = 0; ///< limits of the width between which the lines are the same
    double m_widest = 0;
};

} // namespace zeph::ui
