// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Interaction.h"

#include <QPushButton>
#include <QUrl>

#include <functional>

namespace zeph::ui {

/// Opens a page in the browser, told by an arrow behind the text. Underlined always.
class LinkLabel : public QPushButton {
public:
    LinkLabel(const QString &text, QUrl page, QWidget *parent = nullptr);

    const QUrl &page() const { return m_page; }

    /// Called with the page when pressed; opens it in the person's browser unless set otherwise.
    std::function<void(const QUrl &)> open;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    double textWidth() const;
    Rounded ringShape() const;

    QUrl m_page;
    Interaction m_interaction{*this, [this] { return ringShape(); }};
};

} // namespace zeph::ui
