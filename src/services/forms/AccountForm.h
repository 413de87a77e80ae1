// SPDX-License-Identifier: MIT
#pragma once

#include "services/accounts/IntegrationConnection.h"
#include "services/accounts/SecretQueue.h"

#include <QString>

#include <optional>

namespace zeph {

class IntegrationsStore;
class PreferencesStore;

/// What stands in the form of an account.
struct AccountForm {
    IntegrationConnection account; ///< as it is edited
    QString secret = {};           ///< what is typed as the key; a kept one is never shown

    bool operator==(const AccountForm &) const = default;
};

/// Whether what is typed is enough: the second value where the service needs one, and a key unless
/// the service needs none or a key is kept already.
bool canSave(const AccountForm &form, const IntegrationsStore &store);

/// What saving comes to.
struct SavePlan {
    IntegrationConnection account;      ///< to be stored, its second value without outer blanks
    bool marksReady = false;            ///< the account is connected without a key
    std::optional<QString> secret = {}; ///< to be kept; absent where none was typed
    bool isFirst = false;               ///< the account was not ready before

    bool operator==(const SavePlan &) const = default;
};
SavePlan savePlan(const AccountForm &form, const IntegrationsStore &store);

/// Saves the form. The first time that an account is ready its widget is switched on, unless the
/// user chose about that widget before. `done` is told how the key fared: in a later turn where
/// one was typed, else within the call. Only with `done` may the form forget what was typed.
void saveAccount(const AccountForm &form, IntegrationsStore &store, PreferencesStore &preferences,
                 const SecretDone &done);

/// Switches a widget on unless the user chose about it before, and makes feeds small.
void showFirstTime(const QString &provider, PreferencesStore &preferences);

} // namespace zeph
