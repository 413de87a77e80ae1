// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/ChoicePopup.h"
#include "ui/controls/Interaction.h"

#include <QComboBox>

namespace zeph::ui {

/// One of several texts, from a list that opens over it with the chosen one in place. The wheel
/// scrolls the pane instead.
class ChoiceBox : public QComboBox {
public:
    explicit ChoiceBox(const QStringList &texts, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    void showPopup() override;

protected:
    void wheelEvent(QWheelEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Interaction m_interaction{*this, [this] { return pill(rect()); }};
    ChoicePopup m_popup;
};

} // namespace zeph::ui
