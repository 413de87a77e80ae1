// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

class QTextLine;

namespace zeph::ui {

/// How much room the words of a text take, so that how many lines they would fill can be told
/// without laying them out: the toolkit shapes the letters anew for each layout.
class WordWidths {
public:
    /// Whether the words of `text` follow each other from left to right in one paragraph.
    static bool canTell(const QString &text);

    /// `line` has all of `text`, of which that can be told.
    WordWidths(const QTextLine &line, const QString &text);

    /// Of the word that takes the most room.
    double widest() const;
    /// How many lines they fill that are `width` wide each.
    int linesIn(double width) const;

private:
    struct Word {
        double letters = 0; ///< without the spaces behind it
        double advance = 0; ///< with them
    };
    std::vector<Word> m_words;
};

} // namespace zeph::ui
