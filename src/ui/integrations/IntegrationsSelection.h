// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUuid>

namespace zeph::ui {

/// What the integrations pane shows.
struct IntegrationsSelection {
    enum class Page {
        cards,    ///< everything there is
        accounts, ///< those at one service
        account,  ///< one of them
        endpoint, ///< a custom one; without an id, a new one
        quote
    };

    Page page = Page::cards;
    QString provider = {}; ///< key of the service, for accounts and one account
    QUuid id = {};         ///< of the account or the endpoint

    bool operator==(const IntegrationsSelection &) const = default;
};

} // namespace zeph::ui
