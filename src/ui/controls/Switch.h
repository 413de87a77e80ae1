// SPDX-License-Identifier: MIT
#pragma once

#include <QCheckBox>

namespace zeph::ui {

/// On or off: a moon in an outline, or a sun. It has no text of its own; the row that it stands in
/// names it.
class Switch : public QCheckBox {
public:
    explicit Switch(QWidget *parent = nullptr);

    QSize sizeHint() const override;
};

} // namespace zeph::ui
