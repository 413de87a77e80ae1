// SPDX-License-Identifier: MIT
#include "ui/controls/SettingRow.h"

#include "ui/controls/Look.h"
#include "ui/controls/SymbolView.h"
#include "ui/controls/TextLabel.h"

#include <QAbstractButton>
#include <QHBoxLayout>
#include <QMouseEvent>

namespace zeph::ui {

SettingRow::SettingRow(const Words &words, QWidget *control, QWidget *parent)
    : QWidget(parent),
      m_title(new TextLabel(words.title, TypeRole::row, TextLabel::Ink::ink, this)),
      m_detail(new TextLabel(words.detail, TypeRole::detail, TextLabel::Ink::second, this)),
      m_control(control),
      m_texts(new QVBoxLayout) {
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(scaled(20), scaled(14), scaled(20), scaled(14));
    row->setSpacing(scaled(16));
    if (!words.symbol.isEmpty()) {
        row->addWidget(new SymbolView(words.symbol, 20), 0, Qt::AlignTop);
    }
    m_texts->setSpacing(0);
    m_texts->addWidget(m_title);
    m_texts->addWidget(m_detail);
    m_detail->setVisible(!words.detail.isEmpty());
    row->addLayout(m_texts, 1);
    if (control != nullptr) {
        row->addWidget(control, 0, Qt::AlignVCenter);
        control->setAccessibleName(words.title);
        control->setAccessibleDescription(words.detail);
    }
}

void SettingRow::setTitle(const QString &title) {
    m_title->setText(title);
    if (m_control != nullptr) {
        m_control->setAccessibleName(title);
    }
}

void SettingRow::setDetail(const QString &detail) {
    m_detail->setText(detail);
    m_detail->setVisible(!detail.isEmpty());
    if (m_control != nullptr) {
        m_control->setAccessibleDescription(detail);
    }
}

QString SettingRow::title() const {
    return m_title->text();
}

void SettingRow::addBelow(QWidget *widget) {
    m_texts->addWidget(widget);
}

void SettingRow::mouseReleaseEvent(QMouseEvent *event) {
    auto *button = dynamic_cast<QAbstractButton *>(m_control);
    if (button != nullptr && button->isCheckable() && rect().contains(event->pos())) {
        button->click();
    }
}

} // namespace zeph::ui
