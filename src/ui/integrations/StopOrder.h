// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <vector>

namespace zeph::ui {

/// Makes Tab lead from each of `stops` to what takes the focus inside it, and on to the next. The
/// first stays where it is.
inline void orderStops(const std::vector<QWidget *> &stops) {
    QWidget *before = nullptr;
    const auto goTo = [&before](QWidget *stop) {
        if (before != nullptr) {
            QWidget::setTabOrder(before, stop);
        }
        before = stop;
    };
    for (QWidget *stop : stops) {
        goTo(stop);
        for (QWidget *part : stop->findChildren<QWidget *>()) {
            if (part->focusPolicy() != Qt::NoFocus) {
                goTo(part);
            }
        }
    }
}

} // namespace zeph::ui
