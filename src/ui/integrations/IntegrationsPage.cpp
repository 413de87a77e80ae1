// SPDX-License-Identifier: MIT
#include "ui/integrations/IntegrationsPage.h"

#include "ui/controls/Look.h"
#include "ui/controls/PaneHeader.h"
#include "ui/integrations/IntegrationsWords.h"

#include <QVBoxLayout>

namespace zeph::ui {

IntegrationsPage::IntegrationsPage(const IntegrationsContext &context, PageActions actions,
                                   QWidget *parent)
    : QWidget(parent),
      m_context(context),
      m_actions(std::move(actions)),
      m_column(new QVBoxLayout(this)) {
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(0);
    m_column->addStretch(1);
}

void IntegrationsPage::hold(QWidget *notices) {
    m_column->insertWidget(1, notices);
}

PaneHeader *IntegrationsPage::addHeader(const QString &title, const QString &help,
                                        const QString &symbol) {
    auto *header = new PaneHeader(title, help, this);
    header->setBack(words::wayBack, [this] { m_actions.leave(); });
    header->setSymbol(symbol);
    add(header, 0);
    return header;
}

void IntegrationsPage::add(QWidget *widget, double gap) {
    if (m_column->count() > 1) {
        m_column->insertSpacing(m_column->count() - 1, scaled(gap));
    }
    m_column->insertWidget(m_column->count() - 1, widget);
}

} // namespace zeph::ui
