// SPDX-License-Identifier: MIT
#include "platform/linux/secret/SecretServiceStore.h"
#include "linux/secret/Elsewhere.h"
#include "linux/secret/FakePrompter.h"
#include "linux/secret/SecretServer.h"
#include "support/LeastGrowth.h"
#include "support/MainThreadWatch.h"
#include "support/QtPrinters.h"
#include "support/WaitUntil.h"

#include <gmock/gmock.h>
#include <libsecret/secret.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace zeph {

namespace {

const auto ours = u"com.tavi.integrations"_s;
const auto earlier = u"com.zeph.integrations"_s;
const auto account = u"integration.A"_s;

class SecretServiceStoreTest : public testing::Test {
protected:
    std::optional<QByteArray> copy(const QString &name = account) {
        std::optional<QByteArray> found;
        elsewhere([&] { found = store.copy(ours, name); });
        return found;
    }
    void add(const QByteArray &data, const QString &name = account) {
        elsewhere([&] { store.add(ours, name, data); });
    }
    void remove(const QString &name = account) {
        elsewhere([&] { store.remove(ours, name); });
    }
    QStringList all(const QString &service = ours) {
        std::vector<SecureItem> items;
        elsewhere([&] { items = store.copyAll(service); });
        QStringList texts;
        for (const SecureItem &item : items) {
            texts << item.account.value_or(u"nameless"_s) + u'=' +
                         (item.data ? QString::fromUtf8(*item.data) : u"unreadable"_s);
        }
        return texts;
    }

    SecretServer server;
    SecretServiceStore store;
};

TEST_F(SecretServiceStoreTest, keepsFindsAndRemovesEntriesByServiceAndAccount) {
    server.start();
    EXPECT_EQ(copy(), std::nullopt);
    EXPECT_THAT(all(), IsEmpty());
    add("sk_1");
    add("sk_2", u"integration.B"_s);
    elsewhere([&] { store.add(earlier, account, "older"); });
    EXPECT_EQ(copy(), "sk_1");
    EXPECT_THAT(all(), UnorderedElementsAre(u"integration.A=sk_1"_s, u"integration.B=sk_2"_s));
    EXPECT_THAT(all(earlier), ElementsAre(u"integration.A=older"_s));
    remove();
    remove();
    EXPECT_EQ(copy(), std::nullopt);
    EXPECT_THAT(all(), ElementsAre(u"integration.B=sk_2"_s));
    EXPECT_THAT(all(earlier), ElementsAre(u"integration.A=older"_s));
}

TEST_F(SecretServiceStoreTest, bytesOfEveryKindComeBackAsTheyWere) {
    server.start();
    for (const QByteArray &bytes : {QByteArray("a\0b\xff\xfe", 5), QByteArray(20'000, 'k'),
                                    QByteArray("Zo\xc3\xab \n"), QByteArray("")}) {
        add(bytes);
        EXPECT_EQ(copy(), bytes);
    }
    EXPECT_EQ(all().size(), 1) << "an addition replaces";
}

TEST_F(SecretServiceStoreTest, entriesOutlastTheService) {
    server.start();
    add("sk_1");
    server.kill();
    EXPECT_EQ(copy(), std::nullopt) << "nobody was there";
    server.start();
    EXPECT_EQ(copy(), "sk_1");
    remove();
    EXPECT_EQ(copy(), std::nullopt);
}

TEST_F(SecretServiceStoreTest, aServiceKilledBetweenRemovalAndAdditionLosesTheEntryAlone) {
    server.start();
    add("old");
    add("other", u"integration.B"_s);
    remove();
    server.kill();
    add("new");
    server.start();
    EXPECT_THAT(all(), ElementsAre(u"integration.B=other"_s));
    add("new");
    EXPECT_EQ(copy(), "new");
}

TEST_F(SecretServiceStoreTest, withoutAServiceThereIsNothing) {
    EXPECT_EQ(copy(), std::nullopt);
    add("sk");
    remove();
    EXPECT_THAT(all(), IsEmpty());
}

TEST_F(SecretServiceStoreTest, withoutABusThereIsNothing) {
    for (const std::optional<QByteArray> &address :
         {std::optional<QByteArray>(), std::optional<QByteArray>("unix:path=/nonexistent")}) {
        const ScopedVariable nowhere("DBUS_SESSION_BUS_ADDRESS", address);
        EXPECT_EQ(copy(), std::nullopt);
        add("sk");
        EXPECT_THAT(all(), IsEmpty());
    }
}

TEST_F(SecretServiceStoreTest, entriesOfOtherProgramsAreLeftAlone) {
    server.start();
    const SecretSchema theirs = {
        "org.example.Other",
        SECRET_SCHEMA_NONE,
        {{"service", SECRET_SCHEMA_ATTRIBUTE_STRING}, {"account", SECRET_SCHEMA_ATTRIBUTE_STRING}},
        0,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        nullptr,
        nullptr};
    const auto keep = [](const SecretSchema *schema) {
        return secret_password_store_sync(schema, SECRET_COLLECTION_DEFAULT, "theirs", "theirs",
                                          nullptr, nullptr, "service", "com.tavi.integrations",
                                          "account", "integration.A", nullptr) != FALSE;
    };
    ASSERT_TRUE(keep(&theirs));
    EXPECT_EQ(copy(), std::nullopt);
    EXPECT_THAT(all(), IsEmpty());
    add("ours");
    EXPECT_EQ(copy(), "ours");
    remove();
    char *const left =
        secret_password_lookup_sync(&theirs, nullptr, nullptr, "service", "com.tavi.integrations",
                                    "account", "integration.A", nullptr);
    EXPECT_STREQ(left, "theirs");
    secret_password_free(left);
    secret_service_disconnect();
}

TEST_F(SecretServiceStoreTest, aRefusedPromptIsNotRepeatedByReading) {
    server.start();
    add("sk");
    server.kill();
    server.startLocked();
    const FakePrompter prompter(server.bus(), FakePrompter::Person::refuses);
    EXPECT_EQ(copy(), std::nullopt);
    EXPECT_EQ(prompter.shown(), 1);
    EXPECT_EQ(copy(), std::nullopt);
    EXPECT_THAT(all(), ElementsAre(u"nameless=unreadable"_s));
    EXPECT_EQ(prompter.shown(), 1);
    add("new");
    EXPECT_EQ(prompter.shown(), 2) << "who saves a key is asked again";
    remove();
    EXPECT_EQ(prompter.shown(), 3);
    server.kill();
    server.start();
    EXPECT_EQ(copy(), "sk") << "unlocked elsewhere, so no prompt is needed";
    EXPECT_EQ(prompter.shown(), 3);
}

TEST_F(SecretServiceStoreTest, nothingToUnlockIsNoReasonForAPrompt) {
    server.start();
    add("sk");
    server.kill();
    server.startLocked();
    const FakePrompter prompter(server.bus(), FakePrompter::Person::refuses);
    EXPECT_EQ(copy(u"integration.unknown"_s), std::nullopt);
    EXPECT_THAT(all(earlier), IsEmpty());
    remove(u"integration.unknown"_s);
    EXPECT_EQ(prompter.shown(), 0);
}

TEST_F(SecretServiceStoreTest, aPromptThatStandsOpenHoldsUpNoEnd) {
    server.start();
    add("sk");
    server.kill();
    server.startLocked();
    const FakePrompter prompter(server.bus(), FakePrompter::Person::isAway);
    auto waiting = std::make_unique<SecretServiceStore>();
    std::atomic<bool> isReleased = false;
    std::thread caller([&] {
        waiting->copy(ours, account);
        isReleased = true;
    });
    EXPECT_TRUE(eventually([&] { return prompter.shown() == 1; }));
    EXPECT_FALSE(isReleased);
    // No event is processed from here, so nobody else can end the wait.
    const auto began = std::chrono::steady_clock::now();
    waiting->cancelAll();
    caller.join();
    EXPECT_EQ(waiting->copy(ours, account), std::nullopt) << "nothing is found after the end";
    waiting.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::milliseconds(500));
    EXPECT_TRUE(server.isOnBus()) << "the service did not survive it";
    SecretServer::leaveBus();
    runLoopFor(std::chrono::milliseconds(100));
    EXPECT_TRUE(server.isOnBus()) << "the service did not survive our end";
}

TEST_F(SecretServiceStoreTest, aPromptThatStandsOpenHoldsUpTheNextCallerUntilTheEnd) {
    server.start();
    add("sk");
    server.kill();
    server.startLocked();
    const FakePrompter prompter(server.bus(), FakePrompter::Person::isAway);
    std::atomic<int> released = 0;
    std::vector<std::thread> callers;
    for (int caller = 0; caller < 3; ++caller) {
        callers.emplace_back([&] {
            store.copy(ours, account);
            ++released;
        });
    }
    EXPECT_TRUE(eventually([&] { return prompter.shown() == 1; }));
    runLoopFor(std::chrono::milliseconds(100));
    EXPECT_EQ(prompter.shown(), 1) << "one prompt, however many wait";
    EXPECT_EQ(released, 0);
    store.cancelAll();
    for (std::thread &caller : callers) {
        caller.join();
    }
    EXPECT_EQ(released, 3);
}

TEST_F(SecretServiceStoreTest, theMainThreadIsNeverHeld) {
    server.start();
    double least = 1000;
    for (int attempt = 0; attempt < 5 && least >= 5; ++attempt) {
        SecretServiceStore fresh;
        MainThreadWatch watch;
        elsewhere([&] {
            fresh.add(ours, account, "sk");
            fresh.copy(ours, account);
            fresh.remove(ours, account);
        });
        least = std::min(least, watch.longestHoldMs());
    }
    EXPECT_LT(least, 5);
}

TEST_F(SecretServiceStoreTest, memoryStaysFlat) {
    server.start();
    const auto growth = leastGrowth(2048, [this] {
        elsewhere([&] {
            for (int round = 0; round < 3; ++round) {
                store.add(ours, account, "sk");
                store.copy(ours, account);
                store.remove(ours, account);
            }
        });
    });
    EXPECT_LT(growth, 2048);
}

} // namespace

} // namespace zeph
