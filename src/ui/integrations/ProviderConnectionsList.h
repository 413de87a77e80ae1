// SPDX-License-Identifier: MIT
#pragma once

#include "ui/integrations/IntegrationsPage.h"

#include <QUuid>

#include <vector>

namespace zeph::ui {

class AccountList;
class Card;
class Tile;

/// The accounts at one service, and the way to add one.
class ProviderConnectionsList : public IntegrationsPage {
public:
    ProviderConnectionsList(const IntegrationsContext &context, PageActions actions,
                            QString provider, QWidget *parent = nullptr);

    QWidget *firstStop() override;

    void refresh();

private:
    void addAccount();

    QString m_provider;
    std::vector<QUuid> m_ids; ///< of the accounts, as they are listed
    AccountList *m_accounts;
    QWidget *m_nothing; ///< in place of the list where there is no account
    Tile *m_add;
};

} // namespace zeph::ui
