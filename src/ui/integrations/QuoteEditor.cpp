// SPDX-License-Identifier: MIT
#include "ui/integrations/QuoteEditor.h"

#include "services/accounts/IntegrationsStore.h"
#include "services/forms/ServiceCards.h"
#include "ui/controls/Card.h"
#include "ui/controls/PaneHeader.h"
#include "ui/controls/SettingRow.h"
#include "ui/controls/Switch.h"
#include "ui/integrations/IntegrationsWords.h"
#include "ui/settings/LiveRefresh.h"

namespace zeph::ui {

using namespace Qt::StringLiterals;

QuoteEditor::QuoteEditor(const IntegrationsContext &context, PageActions actions, QWidget *parent)
    : IntegrationsPage(context, std::move(actions), parent), m_switch(new Switch) {
    const ServiceCard card = cardForID(u"quote"_s, context.integrations);
    addHeader(card.title, words::quoteHelp, card.icon);
    auto *rows = new Card(this);
    rows->addRow(new SettingRow({.symbol = {}, .title = words::showQuote}, m_switch, rows));
    add(rows, headerGap);
    connect(m_switch, &QCheckBox::clicked, this,
            [this](bool isOn) { this->context().integrations.setQuoteEnabled(isOn); });
    const auto refresh = [this] {
        m_switch->setChecked(this->context().integrations.quoteEnabled());
    };
    auto *live = new LiveRefresh(*this, context.runLoop, refresh);
    live->follow(context.integrations.objectWillChange);
    refresh();
}

QWidget *QuoteEditor::firstStop() {
    return m_switch;
}

} // namespace zeph::ui
