// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace zeph::ui {

/// A thin veil over a part of a card.
class Veil : public QWidget {
public:
    explicit Veil(QWidget *parent = nullptr) : QWidget(parent) {}

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace zeph::ui
