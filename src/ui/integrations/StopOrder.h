// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <vector>

namespace zeph::ui {

/// Makes Tab lead from each of `stops` to the next. The first stays where it is.
inline void orderStops(const std::vector<QWidget *> &stops) {
    for (std::size_t index = 1; index < stops.size(); ++index) {
        QWidget::setTabOrder(stops[index - 1], stops[index]);
    }
}

} // namespace zeph::ui
