// SPDX-License-Identifier: MIT
#include "ui/controls/Segmented.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QRadioButton>

namespace zeph::ui {

Segmented::Segmented(const QStringList &labels, QWidget *parent)
    : QWidget(parent), m_group(new QButtonGroup(this)) {
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    for (int index = 0; index < labels.size(); ++index) {
        auto *button = new QRadioButton(labels[index], this);
        m_group->addButton(button, index);
        row->addWidget(button);
    }
    connect(m_group, &QButtonGroup::idClicked, this, [this](int index) {
        if (onChosen) {
            onChosen(index);
        }
    });
}

void Segmented::choose(int index) {
    if (QAbstractButton *button = m_group->button(index)) {
        button->setChecked(true);
        return;
    }
    m_group->setExclusive(false);
    for (QAbstractButton *button : m_group->buttons()) {
        button->setChecked(false);
    }
    m_group->setExclusive(true);
}

int Segmented::chosen() const {
    return m_group->checkedId();
}

} // namespace zeph::ui
