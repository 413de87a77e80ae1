// SPDX-License-Identifier: MIT
#include "services/forms/AccountForm.h"

#include "base/Blanks.h"
#include "base/TakenOut.h"
#include "services/accounts/IntegrationsStore.h"
#include "services/accounts/Providers.h"
#include "services/catalogue/ServiceCatalogue.h"
#include "settings/PreferencesStore.h"

namespace zeph {

namespace {

bool hasValue(const IntegrationConnection &account) {
    return !withoutOuterBlanks(account.extra.value_or(QString())).isEmpty();
}

bool takesKey(const QString &provider) {
    return !providers::isKeyless(provider);
}

} // namespace

bool canSave(const AccountForm &form, const IntegrationsStore &store) {
    const IntegrationConnection &account = form.account;
    if (placeOf(store.connections(), account.id) == store.connections().end()) {
        return false;
    }
    const bool hasTypedKey = !form.secret.trimmed().isEmpty();
    if (providers::needsValue(account.provider)) {
        return hasValue(account) &&
               (!providers::needsKey(account.provider) || hasTypedKey || store.isReady(account));
    }
    return hasTypedKey || (store.isReady(account) && form.secret.isEmpty());
}

SavePlan savePlan(const AccountForm &form, const IntegrationsStore &store) {
    SavePlan plan{form.account};
    const auto stored = placeOf(store.connections(), form.account.id);
    plan.isFirst = stored != store.connections().end() && !store.isReady(*stored);
    if (plan.account.extra) {
        plan.account.extra = withoutOuterBlanks(*plan.account.extra);
    }
    const QString &provider = plan.account.provider;
    plan.marksReady = !providers::needsKey(provider) && hasValue(plan.account);
    const QString secret = form.secret.trimmed();
    if (takesKey(provider) && !secret.isEmpty()) {
        plan.secret = secret;
    }
    return plan;
}

void saveAccount(const AccountForm &form, IntegrationsStore &store, PreferencesStore &preferences,
                 const SecretDone &done) {
    if (!canSave(form, store)) {
        done(SecretOutcome::refused);
        return;
    }
    const SavePlan plan = savePlan(form, store);
    store.updateConnection(plan.account);
    if (plan.marksReady) {
        store.markReady(plan.account.id);
    }
    if (plan.secret) {
        store.setSecret(plan.secret, plan.account.id, done);
        store.updateConnection(plan.account); // a new key switches its account on
    }
    if (plan.isFirst) {
        showFirstTime(plan.account.provider, preferences);
    }
    if (!plan.secret) {
        done(SecretOutcome::done);
    }
}

void showFirstTime(const QString &provider, PreferencesStore &preferences) {
    const std::optional<WidgetKind> widget =
        provider == u"stripe" ? WidgetKind::revenue : widgetKindFromRaw(provider);
    if (!widget) {
        return;
    }
    if (!preferences.hasChosenPlacement(*widget)) {
        preferences.set(WidgetPlacement::always, *widget);
    }
    if (widget == WidgetKind::rss && !preferences.hasChosenSize(*widget)) {
        preferences.setSize(WidgetSizeOption::small, *widget);
    }
}

} // namespace zeph
