// SPDX-License-Identifier: MIT
#include "ui/integrations/ProviderConnectionsList.h"

#include "model/AppState.h"
#include "services/accounts/IntegrationsStore.h"
#include "services/forms/AccountWords.h"
#include "services/forms/ConnectionStatus.h"
#include "ui/controls/Card.h"
#include "ui/controls/Look.h"
#include "ui/controls/PaneHeader.h"
#include "ui/controls/Tile.h"
#include "ui/integrations/AccountList.h"
#include "ui/integrations/EmptyCard.h"
#include "ui/integrations/IntegrationsWords.h"
#include "ui/settings/LiveRefresh.h"

#include <QVBoxLayout>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double addTileHeight = 52;

} // namespace

ProviderConnectionsList::ProviderConnectionsList(const IntegrationsContext &context,
                                                 PageActions actions, QString provider,
                                                 QWidget *parent)
    : IntegrationsPage(context, std::move(actions), parent), m_provider(std::move(provider)) {
    const AccountWords service = accountWords(m_provider);
    addHeader(service.title, service.help, service.icon);
    auto *holder = new QWidget(this);
    auto *column = new QVBoxLayout(holder);
    column->setContentsMargins(0, 0, 0, 0);
    auto *card = new Card(holder);
    m_accounts = new AccountList(service.title, card);
    card->addRow(m_accounts);
    m_nothing = new EmptyCard(noAccountsText(m_provider), holder);
    column->addWidget(card);
    column->addWidget(m_nothing);
    add(holder, headerGap);
    m_add = new Tile(
        {.symbol = u"plus.circle"_s, .title = words::addAccount, .blurb = {}, .isAddition = true},
        this);
    m_add->setFixedHeight(scaled(addTileHeight));
    add(m_add, cardGap);
    connect(m_add, &QPushButton::clicked, this, [this] { addAccount(); });
    m_accounts->onChosen = [this](int row) {
        pane().select({.page = IntegrationsSelection::Page::account,
                       .provider = m_provider,
                       .id = m_ids[static_cast<std::size_t>(row)]});
    };
    auto *live = new LiveRefresh(*this, context.runLoop, [this] { refresh(); });
    live->follow(context.integrations.objectWillChange);
    live->follow(context.state.objectWillChange);
    refresh();
}

QWidget *ProviderConnectionsList::firstStop() {
    return m_ids.empty() ? static_cast<QWidget *>(m_add) : m_accounts;
}

void ProviderConnectionsList::refresh() {
    std::vector<AccountList::Row> rows;
    m_ids.clear();
    for (const IntegrationConnection &account : context().integrations.connections(m_provider)) {
        const auto status = connectionStatus(account, context().state, context().framing);
        rows.push_back({.name = accountTitle(account),
                        .status = status ? status->text : QString(),
                        .isError = status && status->isError,
                        .state = activityText(account)});
        m_ids.push_back(account.id);
    }
    m_nothing->setVisible(rows.empty());
    m_accounts->parentWidget()->setVisible(!rows.empty());
    m_accounts->setRows(std::move(rows));
}

void ProviderConnectionsList::addAccount() {
    const IntegrationConnection added =
        context().integrations.addConnection(m_provider, std::nullopt, std::nullopt);
    pane().select(
        {.page = IntegrationsSelection::Page::account, .provider = m_provider, .id = added.id});
}

} // namespace zeph::ui
