// SPDX-License-Identifier: MIT
#include "drawing/view/TextBreaking.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr double rounding = 1e-3; // points; a text always fits the width measured for itself

QString withoutTrailingSpace(QStringView view) {
    while (!view.isEmpty() && view.back().isSpace()) {
        view.chop(1);
    }
    return view.toString();
}

/// `line` as it reads in a paragraph of this direction: by itself it would take that of its first
/// word, so that a sentence flips where a line begins in another script.
QString inDirection(bool rightToLeft, const QString &line) {
    constexpr char16_t leftToRightMark = 0x200e;
    constexpr char16_t rightToLeftMark = 0x200f;
    if (line.isEmpty() || line.isRightToLeft() == rightToLeft) {
        return line;
    }
    return QChar(rightToLeft ? rightToLeftMark : leftToRightMark) + line;
}

/// The ends of `string`'s units of the kind that `finder` finds, ascending.
std::vector<qsizetype> boundaries(const QString &string, QTextBoundaryFinder::BoundaryType kind) {
    QTextBoundaryFinder finder(kind, string);
    std::vector<qsizetype> ends;
    for (qsizetype at = finder.toNextBoundary(); at >= 0; at = finder.toNextBoundary()) {
        ends.push_back(at);
    }
    return ends;
}

/// How many of the first `limit` steps fit, when fewer fit always too. Doubles its guess first, so
/// that the cost follows the answer and not the length of the text.
template <typename Fits>
std::size_t longestFit(std::size_t limit, const Fits &fits) {
    std::size_t known = 0;
    std::size_t beyond = 1;
    while (beyond <= limit && fits(beyond)) {
        known = beyond;
        beyond = beyond * 2;
    }
    beyond = std::min(beyond, limit + 1);
    while (beyond - known > 1) {
        const std::size_t middle = known + (beyond - known) / 2;
        (fits(middle) ? known : beyond) = middle;
    }
    return known;
}

class LineBreaker {
public:
    LineBreaker(const QString &paragraph, double width, const TextWidth &measure)
        : m_text(paragraph),
          m_width(width),
          m_measure(measure),
          m_words(boundaries(paragraph, QTextBoundaryFinder::Line)) {}

    void appendLines(QStringList &lines) const {
        const bool rightToLeft = m_text.isRightToLeft();
        qsizetype start = 0;
        do {
            const qsizetype end = lineEnd(start);
            lines.append(inDirection(rightToLeft, line(start, end)));
            start = end;
        } while (start < m_text.size());
    }

private:
    QString line(qsizetype start, qsizetype end) const {
        return withoutTrailingSpace(QStringView(m_text).mid(start, end - start));
    }

    bool fits(qsizetype start, qsizetype end) const {
        return m_measure(line(start, end)) <= m_width + rounding;
    }

    qsizetype lineEnd(qsizetype start) const {
        const auto first = std::upper_bound(m_words.begin(), m_words.end(), start);
        const auto left = static_cast<std::size_t>(m_words.end() - first);
        const auto end = [&](std::size_t count) {
            return *(first + static_cast<std::ptrdiff_t>(count) - 1);
        };
        const std::size_t words =
            longestFit(left, [&](std::size_t count) { return fits(start, end(count)); });
        return words > 0 ? end(words) : endInsideWord(start, left > 0 ? *first : m_text.size());
    }

    qsizetype endInsideWord(qsizetype start, qsizetype wordEnd) const {
        const QString word = m_text.mid(start, wordEnd - start);
        const auto characters = boundaries(word, QTextBoundaryFinder::Grapheme);
        const std::size_t count = longestFit(characters.size(), [&](std::size_t taken) {
            return fits(start, start + characters[taken - 1]);
        });
        return characters.empty() ? wordEnd
                                  : start + characters[std::max<std::size_t>(count, 1) - 1];
    }

    const QString &m_text;
    double m_width;
    const TextWidth &m_measure;
    std::vector<qsizetype> m_words;
};

bool isLineBreak(QChar character) {
    return character == u'\n' || character == u'\r' || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator;
}

} // namespace

QString elideTail(const QString &string, double width, const TextWidth &measure) {
    if (measure(string) <= width + rounding) {
        return string;
    }
    const auto ends = boundaries(string, QTextBoundaryFinder::Grapheme);
    const auto cut = [&](std::size_t count) {
        const qsizetype end = count == 0 ? 0 : ends[count - 1];
        return QString(withoutTrailingSpace(QStringView(string).left(end)) + u'…');
    };
    const auto fits = [&](std::size_t count) { return measure(cut(count)) <= width + rounding; };
    const std::size_t kept = longestFit(ends.size(), fits);
    return kept > 0 || fits(0) ? cut(kept) : QString();
}

QStringList breakIntoLines(const QString &string, double width, const TextWidth &measure) {
    QString text = string;
    text.replace("\r\n"_L1, "\n"_L1);
    std::replace_if(text.begin(), text.end(), isLineBreak, QChar(u'\n'));
    QStringList lines;
    for (const QString &paragraph : text.split(u'\n')) {
        LineBreaker(paragraph, width, measure).appendLines(lines);
    }
    return lines;
}

} // namespace zeph
