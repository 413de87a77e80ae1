// SPDX-License-Identifier: MIT
#include "services/forms/AccountWords.h"

#include "model/AppState.h"
#include "services/accounts/Providers.h"
#include "services/catalogue/ServiceCatalogue.h"
#include "services/forms/AccountForm.h"

#include <QUrlQuery>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

std::optional<FormLink> link(const QString &text, QLatin1StringView address) {
    if (address.isEmpty()) {
        return std::nullopt;
    }
    return FormLink{text, QUrl(QString(address))};
}

} // namespace

AccountWords accountWords(const QString &provider) {
    AccountWords words;
    words.title = providers::defaultName(provider);
    const ServiceRow *const row = serviceRow(provider);
    if (row && row->widget) {
        words.icon = icon(*row->widget);
    }
    if (row && row->words) {
        const ServiceWords &told = *row->words;
        words.help = told.help.toString();
        words.keyLabel = told.keyPlaceholder.toString();
        words.valueLabel = told.valueLabel.toString();
        words.valuePlaceholder = told.valuePlaceholder.toString();
        words.keyLink = link(u"Where to find your %1"_s.arg(told.keyWord), told.keyPage);
        words.valueLink = link(told.valueLink.toString(), told.valuePage);
    }
    return words;
}

QString noAccountsText(const QString &provider) {
    return u"No accounts yet. Add one to connect %1."_s.arg(providers::defaultName(provider));
}

QString activityText(const IntegrationConnection &account) {
    return account.enabled ? u"Active"_s : u"Paused"_s;
}

QString accountTitle(const IntegrationConnection &account) {
    const QString name = account.name.trimmed();
    return name.isEmpty() ? providers::defaultName(account.provider) : name;
}

FormLink gitHubTokenLink() {
    QUrlQuery query;
    query.addQueryItem(u"description"_s, u"Tavi"_s);
    query.addQueryItem(u"scopes"_s, u"read:user,repo"_s);
    query.addQueryItem(u"default_expires_at"_s, u"none"_s);
    QUrl address(u"https://github.com/settings/tokens/new"_s);
    address.setQuery(query);
    return {u"Create a token (preset, no expiry) →"_s, address};
}

bool needsTokenNote(const AccountForm &form, const AppState &state, bool isKept) {
    if (!form.account.showContributionGraph || !form.secret.trimmed().isEmpty()) {
        return false;
    }
    const auto &records = *state.githubStats;
    const auto record = std::find_if(records.begin(), records.end(), [&form](const auto &one) {
        return one.connectionId == form.account.id;
    });
    const auto told = record == records.end() ? std::nullopt : record->hasToken;
    return !told.value_or(isKept);
}

qint64 feedItems(const IntegrationConnection &account) {
    constexpr qint64 atFirst = 3;
    return std::clamp(account.feedCount.value_or(atFirst), fewestFeedItems, mostFeedItems);
}

QString feedItemsTitle(qint64 count) {
    return u"Show latest %1 item%2"_s.arg(count).arg(count > 1 ? u"s"_s : QString());
}

QString saveTitle(bool isReady) {
    return isReady ? u"Save changes"_s : u"Save & connect"_s;
}

FormState formState(bool isReady, bool isJustSaved) {
    if (isJustSaved) {
        return {u"checkmark.circle.fill"_s, u"Saved — now on your wallpaper"_s};
    }
    if (isReady) {
        return {u"checkmark.circle.fill"_s, u"Connected — showing on your wallpaper"_s};
    }
    return {{}, u"Connect this account to your wallpaper."_s};
}

std::optional<QString> keepingFailure(SecretOutcome outcome) {
    switch (outcome) {
    case SecretOutcome::refused:
        return u"The keyring stayed locked, so this works only until Tavi ends. Save again to "
               "keep it."_s;
    case SecretOutcome::unavailable:
        return u"The keyring gave no answer, so this works only until Tavi ends. Save again to "
               "keep it."_s;
    case SecretOutcome::done:
        break;
    }
    return std::nullopt;
}

std::optional<QString> endpointFailure(SecretOutcome outcome, bool isListed) {
    if (isListed || outcome == SecretOutcome::done) {
        return keepingFailure(outcome);
    }
    return u"Your endpoints lie in the keyring, and it has to be unlocked before one can be "
           "added. Nothing was saved; try again."_s;
}

std::optional<QString> removalFailure(SecretOutcome outcome) {
    if (outcome == SecretOutcome::done) {
        return std::nullopt;
    }
    return u"It is removed here. The keyring could not be opened, so its key is erased when Tavi "
           "starts again."_s;
}

} // namespace zeph
