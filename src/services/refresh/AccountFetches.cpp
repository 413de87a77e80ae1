// SPDX-License-Identifier: MIT
#include "services/refresh/AccountFetches.h"

#include "base/Blanks.h"
#include "base/DescribedError.h"
#include "model/ContributionLayout.h"
#include "services/accounts/AccountKeys.h"
#include "services/accounts/IntegrationsStore.h"
#include "services/accounts/Keychain.h"
#include "services/catalogue/ServiceCatalogue.h"

namespace zeph {

namespace {

/// What the service is asked, and whether it is known that there is a secret for it or none.
struct PreparedQuestion {
    AccountQuestion asked;
    bool isSecretKnown = true;
};

/// Adds the secret of an account that was connected; that of one that was not is not asked for.
/// Blanks and a newline around it came with the pasting, and no service takes them.
void addSecret(const FetchTools &tools, const IntegrationConnection &account,
               PreparedQuestion &question) {
    if (!tools.store.hasSecret(account.id)) {
        return;
    }
    const auto secret = tools.keychain.get(secretAccount(account.id));
    question.isSecretKnown = secret.isDone();
    if (secret.value) {
        question.asked.key = secret.value->trimmed();
    }
}

std::optional<ContributionLayout> graphOf(const IntegrationConnection &account) {
    if (!account.showContributionGraph) {
        return std::nullopt;
    }
    return contributionLayoutFromRaw(account.contributionLayout).value_or(ContributionLayout::y1);
}

/// Absent when the account lacks what the service needs.
std::optional<PreparedQuestion> questionOf(const FetchTools &tools, const ServiceRow &service,
                                           const IntegrationConnection &account) {
    PreparedQuestion prepared;
    AccountQuestion &question = prepared.asked;
    question.value = withoutOuterBlanks(account.extra.value_or(QString()));
    if (service.value == Need::required && question.value.isEmpty()) {
        return std::nullopt;
    }
    if (service.secret != Need::none) {
        addSecret(tools, account, prepared);
    }
    if (service.secret == Need::required && question.key.value_or(QString()).isEmpty()) {
        return std::nullopt;
    }
    question.itemCount = account.feedCount.value_or(question.itemCount);
    question.graph = graphOf(account);
    return prepared;
}

/// What `call` returns. When it throws, `fail` gets the words of that and returns the result.
template <typename Call, typename Fail>
auto guarded(Call &&call, Fail &&fail) -> decltype(call()) {
    try {
        return call();
    } catch (const DescribedError &error) {
        return fail(error.description());
    } catch (const std::exception &error) {
        return fail(QString::fromUtf8(error.what()));
    }
}

template <typename Record>
Record failedRecord(const QString &words) {
    Record record;
    record.error = words;
    return record;
}

AccountRecord failedAccount(AccountFamily family, const QString &words) {
    switch (family) {
    case AccountFamily::stripe:
        return failedRecord<StripeStats>(words);
    case AccountFamily::github:
        return failedRecord<GitHubStats>(words);
    case AccountFamily::revenue:
        return failedRecord<RevenueStats>(words);
    case AccountFamily::analytics:
        return failedRecord<AnalyticsStats>(words);
    case AccountFamily::simple:
        break;
    }
    return failedRecord<SimpleIntegrationStats>(words);
}

template <typename Record>
void stamp(Record &record, const IntegrationConnection &account, const PreparedQuestion &) {
    record.id = account.id;
    record.label = account.name;
}

void stamp(StripeStats &record, const IntegrationConnection &account, const PreparedQuestion &) {
    record.connectionId = account.id;
    record.label = account.name;
}

void stamp(GitHubStats &record, const IntegrationConnection &account,
           const PreparedQuestion &question) {
    record.connectionId = account.id;
    record.label = account.name;
    record.showStats = account.showStats;
    record.contributionLayout = graphOf(account).value_or(record.contributionLayout);
    if (question.isSecretKnown) {
        record.hasToken = !question.asked.key.value_or(QString()).isEmpty();
    }
}

} // namespace

std::optional<AccountFamily> familyOf(const IntegrationConnection &account) {
    const ServiceRow *const service = serviceRow(account.provider);
    return service ? service->family : std::nullopt;
}

std::optional<AccountRecord> fetchAccount(const FetchTools &tools,
                                          const IntegrationConnection &account) {
    const ServiceRow *const service = serviceRow(account.provider);
    if (!service || !service->family) {
        return std::nullopt;
    }
    std::optional<PreparedQuestion> question;
    try {
        question = questionOf(tools, *service, account);
    } catch (const std::exception &) {
        return std::nullopt; // the keyring's library failed
    }
    if (!question) {
        return std::nullopt;
    }
    AccountRecord record =
        guarded([&] { return tools.services.accounts.value(account.provider)(question->asked); },
                [&](const QString &words) { return failedAccount(*service->family, words); });
    std::visit([&](auto &stamped) { stamp(stamped, account, *question); }, record);
    return record;
}

std::optional<CustomAPIResult> fetchCustomAPI(const FetchTools &tools,
                                              const CustomAPIConfig &config) {
    auto result =
        guarded([&] { return tools.services.customAPI(config); }, failedRecord<CustomAPIResult>);
    result.id = config.id;
    result.name = config.name;
    return result;
}

EndpointListing listEndpoint(const FetchTools &tools, const CustomAPIConfig &config) {
    return guarded([&] { return tools.services.listEndpoint(config); },
                   failedRecord<EndpointListing>);
}

std::optional<QuoteInfo> fetchQuote(const FetchTools &tools) {
    try {
        return tools.services.quote();
    } catch (const std::exception &) {
        return std::nullopt;
    }
}

} // namespace zeph
