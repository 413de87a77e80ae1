// SPDX-License-Identifier: MIT
#include "ui/controls/WordWidths.h"

#include <QTextBoundaryFinder>
#include <QTextLayout>

#include <algorithm>

namespace zeph::ui {

namespace {

bool turnsOrEnds(QChar character) {
    switch (character.direction()) {
    case QChar::DirL:
    case QChar::DirEN:
    case QChar::DirES:
    case QChar::DirET:
    case QChar::DirCS:
    case QChar::DirWS:
    case QChar::DirON:
    case QChar::DirBN:
    case QChar::DirNSM:
        break;
    default:
        return true;
    }
    return character.isSurrogate() || character == QChar::LineSeparator ||
           character == QChar::Tabulation;
}

} // namespace

bool WordWidths::canTell(const QString &text) {
    return !text.isEmpty() && std::none_of(text.begin(), text.end(), turnsOrEnds);
}

WordWidths::WordWidths(const QTextLine &line, const QString &text) {
    QTextBoundaryFinder ends(QTextBoundaryFinder::Line, text);
    int start = 0;
    for (qsizetype next = ends.toNextBoundary(); next > start; next = ends.toNextBoundary()) {
        const int end = static_cast<int>(next);
        int letters = end;
        while (letters > start && text[letters - 1] == u' ') {
            --letters;
        }
        const double left = line.cursorToX(start);
        m_words.push_back({line.cursorToX(letters) - left, line.cursorToX(end) - left});
        start = end;
    }
}

double WordWidths::widest() const {
    double most = 0;
    for (const Word &word : m_words) {
        most = std::max(most, word.letters);
    }
    return most;
}

int WordWidths::linesIn(double width) const {
    int lines = 1;
    double filled = 0;
    for (const Word &word : m_words) {
        if (filled > 0 && filled + word.letters > width) {
            ++lines;
            filled = 0;
        }
        filled += word.advance;
    }
    return lines;
}

} // namespace zeph::ui
