// SPDX-License-Identifier: MIT
#pragma once

#include <QComboBox>

namespace zeph::ui {

/// One of several texts, from a list that opens. The wheel scrolls the pane instead.
class ChoiceBox : public QComboBox {
public:
    explicit ChoiceBox(const QStringList &texts, QWidget *parent = nullptr);

protected:
    void wheelEvent(QWheelEvent *event) override;
};

} // namespace zeph::ui
