// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QWidget>

namespace zeph::ui {

/// What our windows lie on: a piece of dusk or of early morning, painted once a size.
class Sky : public QWidget {
public:
    explicit Sky(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QPixmap m_picture;
};

} // namespace zeph::ui
