// SPDX-License-Identifier: MIT
#include "ui/controls/BalancedText.h"

#include "ui/controls/WordWidths.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <optional>

namespace zeph::ui {

namespace {

constexpr QChar wordJoiner(0x2060);
constexpr QChar enDash(0x2013);
constexpr QChar emDash(0x2014);
constexpr double wholePixel = 1;

constexpr double unlimited = 1e6;

bool isDash(QChar character) {
    return character == enDash || character == emDash;
}

/// The least width, to a pixel, in which a text that fills `count` lines of `most` still does. No
/// word is broken for it.
double narrowest(double most, int count, double widestWord,
                 const std::function<int(double width)> &linesIn) {
    double least = std::min(most, std::max(widestWord, most / count / 2));
    double enough = most;
    while (enough - least > wholePixel) {
        const double middle = (least + enough) / 2;
        (linesIn(middle) > count ? least : enough) = middle;
    }
    return enough;
}

} // namespace

QString joined(const QString &text) {
    QString result;
    result.reserve(text.size() + 8);
    for (qsizetype at = 0; at < text.size(); ++at) {
        const QChar character = text[at];
        const QChar next = at + 1 < text.size() ? text[at + 1] : QChar();
        const QChar before = at > 0 ? text[at - 1] : QChar();
        if (character == u'\n') {
            result += QChar(QChar::LineSeparator);
        } else if (character == u' ' && isDash(next)) {
            result += QChar(QChar::Nbsp);
        } else if (isDash(character) && !before.isSpace()) {
            result += wordJoiner;
            result += character;
        } else if (character == u'-' && before.isLetterOrNumber() && next.isLetterOrNumber()) {
            result += character;
            result += wordJoiner;
        } else {
            result += character;
        }
    }
    return result;
}

BalancedText::BalancedText(const QString &text, const QFont &font, const Limits &limits)
    : m_layout(joined(text), font),
      m_lineHeight(limits.line),
      m_narrowest(limits.width),
      m_widest(limits.width) {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    m_layout.setTextOption(option);
    m_layout.setCacheEnabled(true);
    const double most = std::max(limits.width, wholePixel);
    std::optional<WordWidths> words;
    if (WordWidths::canTell(m_layout.text())) {
        wrap(unlimited);
        if (m_layout.lineAt(0).naturalTextWidth() <= most) {
            holdOneLine(limits);
            return;
        }
        words.emplace(m_layout.lineAt(0), m_layout.text());
    }
    wrap(most);
    const int count = lineCount();
    if (limits.mostLines > 0 && count > limits.mostLines) {
        elide(limits);
    } else if (count < 2) {
        holdOneLine(limits);
    } else if (!words || !balance(*words, most)) {
        wrap(most);
        balance(most);
    }
}

void BalancedText::holdOneLine(const Limits &limits) {
    const double natural = lineCount() < 1 ? 0 : m_layout.lineAt(0).naturalTextWidth();
    m_narrowest = std::min(natural, limits.width);
    m_widest = std::numeric_limits<double>::max();
}

/// False where the layout does not come to the lines that the words foretold.
bool BalancedText::balance(const WordWidths &words, double most) {
    const int count = lineCount();
    m_narrowest = narrowest(most, count, words.widest(),
                            [&words](double width) { return words.linesIn(width); });
    wrap(m_narrowest);
    return lineCount() == count;
}

void BalancedText::balance(double most) {
    const int count = lineCount();
    m_narrowest = narrowest(most, count, widestWord(), [this](double width) {
        wrap(width);
        return lineCount();
    });
    wrap(m_narrowest);
}

void BalancedText::wrap(double width) {
    m_layout.beginLayout();
    for (double y = 0;; y += m_lineHeight) {
        QTextLine line = m_layout.createLine();
        if (!line.isValid()) {
            break;
        }
        line.setLineWidth(width);
        line.setPosition({0, std::floor(y + (m_lineHeight - line.height()) / 2)});
    }
    m_layout.endLayout();
}

/// A narrower layout would break words to keep the number of lines.
double BalancedText::widestWord() {
    QTextOption option = m_layout.textOption();
    option.setWrapMode(QTextOption::WordWrap);
    m_layout.setTextOption(option);
    wrap(wholePixel);
    double widest = 0;
    for (int line = 0; line < lineCount(); ++line) {
        widest = std::max(widest, m_layout.lineAt(line).naturalTextWidth());
    }
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_layout.setTextOption(option);
    return widest;
}

void BalancedText::elide(const Limits &limits) {
    const int start = m_layout.lineAt(limits.mostLines - 1).textStart();
    const QString text = m_layout.text();
    const QString rest = QFontMetricsF(m_layout.font())
                             .elidedText(text.mid(start).replace(QChar(QChar::LineSeparator), u' '),
                                         Qt::ElideRight, limits.width - wholePixel);
    m_layout.setText(text.left(start) + rest);
    wrap(limits.width);
    m_isElided = true;
}

int BalancedText::width() const {
    double widest = 0;
    for (int line = 0; line < lineCount(); ++line) {
        widest = std::max(widest, m_layout.lineAt(line).naturalTextWidth());
    }
    return static_cast<int>(std::ceil(widest));
}

int BalancedText::height() const {
    return static_cast<int>(std::lround(m_lineHeight * std::max(1, lineCount())));
}

QStringList BalancedText::lines() const {
    QStringList result;
    for (int line = 0; line < lineCount(); ++line) {
        const QTextLine one = m_layout.lineAt(line);
        result.append(m_layout.text().mid(one.textStart(), one.textLength()).trimmed());
    }
    return result;
}

double BalancedText::lineX(int line, const QRectF &area, Qt::Alignment alignment) const {
    const QTextLine one = m_layout.lineAt(line);
    const double free = area.width() - one.naturalTextWidth();
    double x = area.x();
    if ((alignment & Qt::AlignHCenter) != 0) {
        x += free / 2;
    } else if ((alignment & Qt::AlignRight) != 0) {
        x += free;
    }
    return x;
}

void BalancedText::paint(QPainter &painter, const QRectF &area, Qt::Alignment alignment,
                         const QList<QTextLayout::FormatRange> &selected) const {
    for (int line = 0; line < lineCount(); ++line) {
        const QTextLine one = m_layout.lineAt(line);
        const QPointF origin(lineX(line, area, alignment), area.y());
        for (const QTextLayout::FormatRange &range : selected) {
            const int from = std::max(range.start, one.textStart());
            const int to = std::min(range.start + range.length, one.textStart() + one.textLength());
            if (from < to) {
                const double x = one.cursorToX(from);
                const QRectF mark(origin.x() + x, area.y() + m_lineHeight * line,
                                  one.cursorToX(to) - x, m_lineHeight);
                painter.fillRect(mark.normalized(), range.format.background());
            }
        }
        one.draw(&painter, origin);
    }
}

int BalancedText::positionAt(const QPointF &point, const QRectF &area,
                             Qt::Alignment alignment) const {
    if (lineCount() == 0) {
        return 0;
    }
    const int line =
        std::clamp(static_cast<int>((point.y() - area.y()) / m_lineHeight), 0, lineCount() - 1);
    return toText(m_layout.lineAt(line).xToCursor(point.x() - lineX(line, area, alignment)));
}

int BalancedText::toText(int position) const {
    const QString text = m_layout.text();
    return position - static_cast<int>(QStringView(text).left(position).count(wordJoiner));
}

int BalancedText::toLayout(int position) const {
    const QString text = m_layout.text();
    int at = 0;
    for (int left = position; at < text.size() && (left > 0 || text[at] == wordJoiner); ++at) {
        left -= text[at] == wordJoiner ? 0 : 1;
    }
    return at;
}

} // namespace zeph::ui
