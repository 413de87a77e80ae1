// SPDX-License-Identifier: MIT
#pragma once

#include "ports/SecureStore.h"
#include "services/accounts/IntegrationConnection.h"
#include "services/simple/rss/RSSService.h"

#include <QString>
#include <QUrl>

#include <optional>

namespace zeph {

class AppState;
struct AccountForm;

/// A link of a form.
struct FormLink {
    QString text;
    QUrl address;

    bool operator==(const FormLink &) const = default;
};

/// What the list of a service's accounts and the form of one of them say. What a service has no
/// use for is empty.
struct AccountWords {
    QString title; ///< of the service
    QString icon;
    QString help;             ///< under the title
    QString keyLabel;         ///< of the secret's field; the same text stands in the empty field
    QString valueLabel;       ///< of the second field
    QString valuePlaceholder; ///< a sample of it
    std::optional<FormLink> keyLink;   ///< to the page where keys are made
    std::optional<FormLink> valueLink; ///< to where the second field's values are found

    bool operator==(const AccountWords &) const = default;
};

/// The words for a service, of which only title and symbol are known where it is not offered.
AccountWords accountWords(const QString &provider);

/// "No accounts yet. Add one to connect {name}."
QString noAccountsText(const QString &provider);

/// "Active" or "Paused".
QString activityText(const IntegrationConnection &account);

/// What a row or a title calls the account: its name, else its service.
QString accountTitle(const IntegrationConnection &account);

/// Where a token is made that can read what the contribution graph needs.
FormLink gitHubTokenLink();

/// Whether the form has to tell that the contribution graph needs a token: the graph is wanted, and
/// none is typed or kept. The account's last fetch knows whether it found one; before there was any
/// and while the keyring is locked, `isKept` tells whether one was kept.
bool needsTokenNote(const AccountForm &form, const AppState &state, bool isKept);

/// How many of a feed's items are shown, within the bounds of `RSSService`.
qint64 feedItems(const IntegrationConnection &account);

/// "Show latest 3 items"
QString feedItemsTitle(qint64 count);

/// Of the action that saves: "Save & connect", or "Save changes" of a ready account.
QString saveTitle(bool isReady);

/// The line beside that action.
struct FormState {
    QString icon; ///< empty without one
    QString text;

    bool operator==(const FormState &) const = default;
};
FormState formState(bool isReady, bool isJustSaved);

/// What to tell after the keyring was asked to keep a secret and did not; absent when it did.
std::optional<QString> keepingFailure(SecretOutcome outcome);

/// The same of headers and of all else that belongs to an endpoint. `isListed` tells whether the
/// endpoint is in the list at all now.
std::optional<QString> endpointFailure(SecretOutcome outcome, bool isListed);

/// The same after a removal.
std::optional<QString> removalFailure(SecretOutcome outcome);

} // namespace zeph
