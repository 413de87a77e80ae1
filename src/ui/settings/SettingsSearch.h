// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

namespace zeph::ui {

/// Something to be found, and on which tab it stands.
struct Findable {
    QString title;
    QString detail;
    int tab = 0;
    QPointer<QWidget> target = {};   ///< none for the tab itself
    std::function<void()> show = {}; ///< brings the target into view on its pane; may be null
};

/// How well a text of this title and detail fits what is looked for, 0 being best; none when a
/// word of it is in neither. Case and accents don't count.
std::optional<int> searchRank(const QString &title, const QString &detail, const QString &wanted);

/// Those that fit, the best first, and else in their own order.
std::vector<Findable> searchResults(const std::vector<Findable> &all, const QString &wanted);

} // namespace zeph::ui
