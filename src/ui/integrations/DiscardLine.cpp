// SPDX-License-Identifier: MIT
#include "ui/integrations/DiscardLine.h"

#include "ui/controls/Look.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/StatusLine.h"
#include "ui/integrations/IntegrationsWords.h"

#include <QApplication>
#include <QHBoxLayout>

namespace zeph::ui {

namespace {

constexpr double discardGap = 10;

} // namespace

DiscardLine::DiscardLine(QWidget *parent)
    : QWidget(parent),
      m_question(new StatusLine(this)),
      m_discard(new PillButton(words::discard, PillButton::Kind::destructive, this)),
      m_keep(new PillButton(words::keepEditing, PillButton::Kind::secondary, this)) {
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(scaled(discardGap));
    row->addWidget(m_question, 1, Qt::AlignVCenter);
    for (PillButton *button : {m_discard, m_keep}) {
        button->setHeight(PillButton::Height::small);
        row->addWidget(button);
    }
    connect(m_keep, &QPushButton::clicked, this, [this] { dismiss(); });
    connect(m_discard, &QPushButton::clicked, this, [this] {
        hide();
        if (onDiscard) {
            onDiscard();
        }
    });
    connect(qApp, &QApplication::focusChanged, this,
            [this](const QWidget *, const QWidget *focused) { follow(focused); });
    hide();
}

void DiscardLine::ask() {
    m_before = QApplication::focusWidget();
    show();
    m_question->show(StatusLine::Kind::hint, words::discardChanges);
    m_keep->setFocus(Qt::OtherFocusReason);
}

void DiscardLine::dismiss() {
    const bool hadFocus = isAncestorOf(QApplication::focusWidget());
    hide();
    m_question->clear();
    if (hadFocus && m_before != nullptr) {
        m_before->setFocus(Qt::OtherFocusReason);
    }
}

/// Not when the whole window loses the focus, to which the user comes back.
void DiscardLine::follow(const QWidget *focused) {
    if (isAsking() && focused != nullptr && focused->window() == window() &&
        !isAncestorOf(focused)) {
        dismiss();
    }
}

} // namespace zeph::ui
