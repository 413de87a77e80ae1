// SPDX-License-Identifier: MIT
#include "ui/controls/LinkLabel.h"

#include <QDesktopServices>

namespace zeph::ui {

LinkLabel::LinkLabel(const QString &text, QUrl page, QWidget *parent)
    : QPushButton(text, parent),
      open([](const QUrl &url) { QDesktopServices::openUrl(url); }),
      m_page(std::move(page)) {
    connect(this, &QPushButton::clicked, this, [this] { open(m_page); });
}

} // namespace zeph::ui
