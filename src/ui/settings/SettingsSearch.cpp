// SPDX-License-Identifier: MIT
#include "ui/settings/SettingsSearch.h"

#include <QStringList>

#include <algorithm>
#include <utility>

namespace zeph::ui {

namespace {

/// In lower case and without accents.
QString folded(const QString &text) {
    QString plain;
    for (const QChar character : text.normalized(QString::NormalizationForm_KD)) {
        if (!character.isMark()) {
            plain += character;
        }
    }
    return plain.toCaseFolded().simplified();
}

bool hasWordThatStarts(const QString &text, const QString &start) {
    const QStringList words = text.split(u' ');
    return std::any_of(words.begin(), words.end(),
                       [&](const QString &word) { return word.startsWith(start); });
}

} // namespace

std::optional<int> searchRank(const QString &title, const QString &detail, const QString &wanted) {
    const QString sought = folded(wanted);
    if (sought.isEmpty()) {
        return std::nullopt;
    }
    const QString head = folded(title);
    const QString whole = head + u' ' + folded(detail);
    const QStringList words = sought.split(u' ');
    const auto allIn = [&words](const QString &text) {
        return std::all_of(words.begin(), words.end(),
                           [&](const QString &word) { return text.contains(word); });
    };
    if (!allIn(whole)) {
        return std::nullopt;
    }
    if (head.startsWith(sought)) {
        return 0;
    }
    if (!allIn(head)) {
        return 3;
    }
    return hasWordThatStarts(head, words.front()) ? 1 : 2;
}

std::vector<Findable> searchResults(const std::vector<Findable> &all, const QString &wanted) {
    std::vector<std::pair<int, const Findable *>> ranked;
    for (const Findable &one : all) {
        if (const std::optional<int> rank = searchRank(one.title, one.detail, wanted)) {
            ranked.emplace_back(*rank, &one);
        }
    }
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](const auto &one, const auto &other) { return one.first < other.first; });
    std::vector<Findable> results;
    results.reserve(ranked.size());
    for (const auto &[rank, one] : ranked) {
        results.push_back(*one);
    }
    return results;
}

} // namespace zeph::ui
