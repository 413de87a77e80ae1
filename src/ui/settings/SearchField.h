// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

namespace zeph::ui {

/// A field to search in: a quiet capsule with a lens.
class SearchField : public QLineEdit {
public:
    explicit SearchField(QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace zeph::ui
