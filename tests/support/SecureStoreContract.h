// SPDX-License-Identifier: MIT
#pragma once

#include "ports/SecureStore.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>

#include <string>

namespace zeph {

/// What every secure store has to hold to. `Machine` has a `store`, runs work where it may block
/// with `run`, and can `lock` the store against a person who dismisses every prompt, and take it
/// away with `end`.
template <typename Machine>
class SecureStoreContract : public testing::Test {
protected:
    SecretOutcome add(const char *account, const QByteArray &data, const char *service = "a") {
        return of([&] { return machine.store.add(text(service), text(account), data); });
    }
    SecretOutcome remove(const char *account) {
        return of([&] { return machine.store.remove(text("a"), text(account)); });
    }
    SecretAnswer<std::optional<QByteArray>> copy(const char *account) {
        return of([&] { return machine.store.copy(text("a"), text(account)); });
    }
    SecretAnswer<std::vector<SecureItem>> copyAll(const char *service = "a") {
        return of([&] { return machine.store.copyAll(text(service)); });
    }
    /// Every entry, as "account=data".
    std::vector<std::string> entries(const char *service = "a") {
        std::vector<std::string> texts;
        for (const SecureItem &item : copyAll(service).value) {
            texts.push_back(item.account.value_or(QString()).toStdString() + '=' +
                            item.data.value_or(QByteArray()).toStdString());
        }
        return texts;
    }

    Machine machine;

private:
    static QString text(const char *latin) { return QLatin1StringView(latin); }

    template <typename Operation>
    auto of(Operation operation) {
        std::optional<decltype(operation())> answer;
        machine.run([&] { answer = operation(); });
        return std::move(*answer);
    }
};

TYPED_TEST_SUITE_P(SecureStoreContract);

TYPED_TEST_P(SecureStoreContract, keepsFindsAndRemovesByServiceAndAccount) {
    EXPECT_EQ(this->add("one", "1"), SecretOutcome::done);
    EXPECT_EQ(this->add("two", "2"), SecretOutcome::done);
    EXPECT_EQ(this->add("one", "other", "b"), SecretOutcome::done);
    EXPECT_EQ(this->copy("one").outcome, SecretOutcome::done);
    EXPECT_EQ(this->copy("one").value, "1");
    EXPECT_THAT(this->entries(), testing::UnorderedElementsAre("one=1", "two=2"));
    EXPECT_EQ(this->remove("one"), SecretOutcome::done);
    EXPECT_THAT(this->entries(), testing::UnorderedElementsAre("two=2"));
    EXPECT_THAT(this->entries("b"), testing::UnorderedElementsAre("one=other"));
}

TYPED_TEST_P(SecureStoreContract, nothingThereIsAnAnswer) {
    EXPECT_EQ(this->copy("one").outcome, SecretOutcome::done);
    EXPECT_EQ(this->copy("one").value, std::nullopt);
    EXPECT_EQ(this->copyAll().outcome, SecretOutcome::done);
    EXPECT_TRUE(this->copyAll().value.empty());
    EXPECT_EQ(this->remove("one"), SecretOutcome::done);
}

TYPED_TEST_P(SecureStoreContract, anAdditionTakesThePlaceOfWhatWasThere) {
    this->add("one", "old");
    EXPECT_EQ(this->add("one", "new"), SecretOutcome::done);
    EXPECT_EQ(this->copy("one").value, "new");
    EXPECT_THAT(this->entries(), testing::UnorderedElementsAre("one=new"));
}

TYPED_TEST_P(SecureStoreContract, whatIsLockedIsRefusedAndStays) {
    this->add("one", "1");
    this->machine.lock();
    EXPECT_EQ(this->copy("one").outcome, SecretOutcome::refused);
    EXPECT_EQ(this->copy("one").value, std::nullopt);
    EXPECT_EQ(this->copyAll().outcome, SecretOutcome::refused);
    EXPECT_EQ(this->add("one", "2"), SecretOutcome::refused);
    EXPECT_EQ(this->remove("one"), SecretOutcome::refused);
    this->machine.unlock();
    EXPECT_EQ(this->copy("one").value, "1");
}

TYPED_TEST_P(SecureStoreContract, aStoreThatIsNotThereIsUnavailable) {
    this->add("one", "1");
    this->machine.end();
    EXPECT_EQ(this->copy("one").outcome, SecretOutcome::unavailable);
    EXPECT_EQ(this->copy("one").value, std::nullopt);
    EXPECT_EQ(this->copyAll().outcome, SecretOutcome::unavailable);
    EXPECT_EQ(this->add("one", "2"), SecretOutcome::unavailable);
    EXPECT_EQ(this->remove("one"), SecretOutcome::unavailable);
}

REGISTER_TYPED_TEST_SUITE_P(SecureStoreContract, keepsFindsAndRemovesByServiceAndAccount,
                            nothingThereIsAnAnswer, anAdditionTakesThePlaceOfWhatWasThere,
                            whatIsLockedIsRefusedAndStays, aStoreThatIsNotThereIsUnavailable);

} // namespace zeph
