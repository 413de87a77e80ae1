// SPDX-License-Identifier: MIT
#pragma once

#include "services/accounts/StoreFixture.h"
#include "settings/PreferencesStore.h"
#include "support/FakeFormatters.h"

namespace zeph {

/// Accounts and preferences as the settings have them at hand.
class FormsFixture : public StoreFixture {
protected:
    FormsFixture() { launchAndSettle(); }

    /// An account that was saved with this key before.
    IntegrationConnection addReady(const QString &provider,
                                   const std::optional<QString> &extra = std::nullopt) {
        const auto account = add(provider, extra);
        store->setSecret(QStringLiteral("kept"), account.id);
        settle();
        return account;
    }

    FakeFormatters formatters;
    PreferencesStore preferences{defaults, notifications, formatters};
};

} // namespace zeph
