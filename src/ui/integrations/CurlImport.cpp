// SPDX-License-Identifier: MIT
#include "ui/integrations/CurlImport.h"

#include "ui/controls/Look.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/StatusLine.h"
#include "ui/controls/TextLabel.h"
#include "ui/integrations/CommandField.h"
#include "ui/integrations/IntegrationsWords.h"
#include "ui/integrations/Veil.h"

#include <QVBoxLayout>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double boxGap = 10;
constexpr double boxPadding = 14;
constexpr double boxSpacing = 12;

} // namespace

CurlImport::CurlImport(QWidget *parent)
    : QWidget(parent),
      m_toggle(new PillButton(words::importCurl, PillButton::Kind::secondary, this)),
      m_box(new Veil(this)),
      m_command(new CommandField(words::importHelp, m_box)),
      m_message(new StatusLine(m_box)) {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(scaled(boxGap));
    column->addWidget(m_toggle, 0, Qt::AlignLeading);
    column->addWidget(m_box);
    m_toggle->setSymbol(u"terminal"_s);
    m_toggle->setHeight(PillButton::Height::small);
    m_toggle->setCheckable(true);

    auto *box = new QVBoxLayout(m_box);
    const int padding = scaled(boxPadding);
    box->setContentsMargins(padding, padding, padding, padding);
    box->setSpacing(scaled(boxSpacing));
    box->addWidget(
        new TextLabel(words::importHelp, TypeRole::detail, TextLabel::Ink::second, m_box));
    box->addWidget(m_command);
    box->addWidget(m_message);
    auto *action = new PillButton(words::importAction, PillButton::Kind::secondary, m_box);
    action->setHeight(PillButton::Height::small);
    box->addWidget(action, 0, Qt::AlignTrailing);
    connect(m_toggle, &QPushButton::toggled, this, [this](bool isOpen) { setOpen(isOpen); });
    connect(action, &QPushButton::clicked, this, [this] { run(); });
    m_box->hide();
}

void CurlImport::setOpen(bool isOpen) {
    m_message->clear();
    m_box->setVisible(isOpen);
    if (isOpen) {
        m_command->setFocus(Qt::OtherFocusReason);
    } else {
        m_command->forget();
    }
}

void CurlImport::run() {
    const auto message = import(m_command->toPlainText());
    if (message) {
        m_message->show(StatusLine::Kind::error, *message);
        return;
    }
    m_toggle->setFocus(Qt::OtherFocusReason);
    m_toggle->setChecked(false);
}

} // namespace zeph::ui
