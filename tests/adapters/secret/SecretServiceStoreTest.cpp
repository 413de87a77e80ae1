// SPDX-License-Identifier: MIT
#include "adapters/secret/SecretServiceStore.h"
#include "adapters/secret/Elsewhere.h"
#include "adapters/secret/FakePrompter.h"
#include "adapters/secret/OtherProgram.h"
#include "adapters/secret/SecretServer.h"
#include "support/LeastGrowth.h"
#include "support/MainThreadWatch.h"
#include "support/QtPrinters.h"
#include "support/WaitUntil.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace zeph {

namespace {

const auto ours = u"com.tavi.integrations"_s;
const auto earlier = u"com.zeph.integrations"_s;
const auto account = u"integration.A"_s;

/// Changes every call of one method on its way to the service, in the connection of this process.
class ChangedCalls {
public:
    using Change = void (*)(GDBusMessage *);

    ChangedCalls(const char *method, Change change)
        : m_bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr)),
          m_method(method),
          m_change(change) {
        g_dbus_connection_set_exit_on_close(m_bus, FALSE);
        m_filter = g_dbus_connection_add_filter(m_bus, pass, this, nullptr);
    }
    ~ChangedCalls() {
        g_dbus_connection_remove_filter(m_bus, m_filter);
        g_object_unref(m_bus);
    }
    ChangedCalls(const ChangedCalls &) = delete;
    ChangedCalls &operator=(const ChangedCalls &) = delete;

private:
    static GDBusMessage *pass(GDBusConnection * /*bus*/, GDBusMessage *message, gboolean isIncoming,
                              gpointer data) {
        const auto *self = static_cast<ChangedCalls *>(data);
        if (isIncoming != FALSE ||
            g_strcmp0(self->m_method, g_dbus_message_get_member(message)) != 0) {
            return message;
        }
        GDBusMessage *const changed = g_dbus_message_copy(message, nullptr);
        g_object_unref(message);
        self->m_change(changed);
        return changed;
    }

    GDBusConnection *m_bus;
    const char *m_method;
    Change m_change;
    guint m_filter = 0;
};

/// Asks an entry that is not there.
void askNone(GDBusMessage *message) {
    g_dbus_message_set_path(message, "/org/freedesktop/secrets/collection/login/none");
}

/// Asks for the entry of the open collection alone.
void unlockOpenAlone(GDBusMessage *message) {
    g_dbus_message_set_body(
        message,
        g_variant_new_parsed("([objectpath '/org/freedesktop/secrets/collection/open/1'],)"));
}

class SecretServiceStoreTest : public testing::Test {
protected:
    std::optional<QByteArray> copy(const QString &name = account) {
        SecretAnswer<std::optional<QByteArray>> found;
        elsewhere([&] { found = store.copy(ours, name); });
        outcome = found.outcome;
        return found.value;
    }
    void add(const QByteArray &data, const QString &name = account) {
        elsewhere([&] { outcome = store.add(ours, name, data); });
    }
    void remove(const QString &name = account) {
        elsewhere([&] { outcome = store.remove(ours, name); });
    }
    QStringList all(const QString &service = ours) {
        SecretAnswer<std::vector<SecureItem>> items;
        elsewhere([&] { items = store.copyAll(service); });
        outcome = items.outcome;
        QStringList texts;
        for (const SecureItem &item : items.value) {
            texts << item.account.value_or(u"nameless"_s) + u'=' +
                         (item.data ? QString::fromUtf8(*item.data) : u"unreadable"_s);
        }
        return texts;
    }

    SecretServer server;
    SecretServiceStore store;
    SecretOutcome outcome = SecretOutcome::done; ///< of the last operation
};

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
    EXPECT_EQ(copy(), std::nullopt);
    EXPECT_EQ(outcome, SecretOutcome::unavailable) << "nobody was there";
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

TEST_F(SecretServiceStoreTest, withoutABusThereIsNothing) {
    for (const std::optional<QByteArray> &address :
         {std::optional<QByteArray>(), std::optional<QByteArray>("unix:path=/nonexistent")}) {
        const ScopedVariable nowhere("DBUS_SESSION_BUS_ADDRESS", address);
        EXPECT_EQ(copy(), std::nullopt);
        EXPECT_EQ(outcome, SecretOutcome::unavailable);
        add("sk");
        EXPECT_EQ(outcome, SecretOutcome::unavailable);
        EXPECT_THAT(all(), IsEmpty());
        EXPECT_EQ(outcome, SecretOutcome::unavailable);
    }
}

TEST_F(SecretServiceStoreTest, entriesOfOtherProgramsAreLeftAlone) {
    server.start();
    OtherProgram other(server.address());
    other.keep("login", "org.example.Other", "theirs");
    ASSERT_THAT(other.kept("org.example.Other"), ElementsAre("theirs"));
    EXPECT_EQ(copy(), std::nullopt);
    EXPECT_THAT(all(), IsEmpty());
    add("ours");
    EXPECT_EQ(copy(), "ours");
    remove();
    EXPECT_EQ(outcome, SecretOutcome::done);
    EXPECT_EQ(copy(), std::nullopt);
    EXPECT_THAT(other.kept("org.example.Other"), ElementsAre("theirs"));
}

TEST_F(SecretServiceStoreTest, aRefusedPromptIsNotRepeatedByReading) {
    server.start();
    add("sk");
    server.kill();
    server.startLocked();
    const FakePrompter prompter(server.bus(), FakePrompter::Person::refuses);
    EXPECT_EQ(copy(), std::nullopt);
    EXPECT_EQ(outcome, SecretOutcome::refused);
    EXPECT_EQ(prompter.shown(), 1);
    EXPECT_EQ(copy(), std::nullopt);
    EXPECT_EQ(outcome, SecretOutcome::refused);
    EXPECT_THAT(all(), ElementsAre(u"nameless=unreadable"_s));
    EXPECT_EQ(outcome, SecretOutcome::refused);
    EXPECT_EQ(prompter.shown(), 1);
    add("new");
    EXPECT_EQ(outcome, SecretOutcome::refused);
    EXPECT_EQ(prompter.shown(), 2) << "who saves a key is asked again";
    remove();
    EXPECT_EQ(outcome, SecretOutcome::refused);
    EXPECT_EQ(prompter.shown(), 3);
    server.kill();
    server.start();
    EXPECT_EQ(copy(), "sk") << "unlocked elsewhere, so no prompt is needed";
    EXPECT_EQ(outcome, SecretOutcome::done);
    EXPECT_EQ(prompter.shown(), 3);
}

TEST_F(SecretServiceStoreTest, aRefusedPromptComesUpAgainForWhoWantsIt) {
    server.start();
    add("sk");
    server.kill();
    server.startLocked();
    const FakePrompter prompter(server.bus(), FakePrompter::Person::refuses);
    EXPECT_EQ(copy(), std::nullopt);
    store.askAgain();
    EXPECT_EQ(prompter.shown(), 1) << "not before something is read";
    EXPECT_EQ(copy(), std::nullopt);
    EXPECT_EQ(copy(), std::nullopt);
    EXPECT_EQ(prompter.shown(), 2) << "once";
}

TEST_F(SecretServiceStoreTest, whoRefusesToMakeTheFirstCollectionRefusesTheSecret) {
    server.startLocked();
    const FakePrompter prompter(server.bus(), FakePrompter::Person::refuses);
    add("sk");
    EXPECT_EQ(outcome, SecretOutcome::refused);
    EXPECT_EQ(prompter.shown(), 1);
    EXPECT_EQ(copy(), std::nullopt);
    EXPECT_EQ(outcome, SecretOutcome::done) << "there is nothing to unlock";
}

TEST_F(SecretServiceStoreTest, anAdditionReplacesWhatLiesInAnotherCollection) {
    server.start();
    add("first");
    OtherProgram other(server.address());
    other.keep("session", "com.tavi.integrations", "old");
    ASSERT_EQ(all().size(), 2);
    add("new");
    EXPECT_THAT(all(), ElementsAre(u"integration.A=new"_s));
    EXPECT_EQ(copy(), "new");
}

TEST_F(SecretServiceStoreTest, anEntryThatCannotBeReadBackIsNeitherRemovedNorCalledKept) {
    server.start();
    {
        const ChangedCalls unreadable("GetSecret", askNone);
        add("new");
        EXPECT_EQ(outcome, SecretOutcome::unavailable);
    }
    EXPECT_EQ(copy(), "new");
    EXPECT_EQ(outcome, SecretOutcome::done);
}

/// Two collections with an entry each, of which one needs no password; both are locked, and only
/// that one will be opened.
class HalfUnlockedTest : public SecretServiceStoreTest {
protected:
    void keepTwo(const char *openSchema) {
        server.start();
        add("locked");
        OtherProgram other(server.address());
        other.makeOpenCollection("open");
        other.keep("open", openSchema, "open");
        server.kill();
        server.startLocked();
        prompter.emplace(server.bus(), FakePrompter::Person::refuses);
        half.emplace("Unlock", unlockOpenAlone);
    }

    std::optional<FakePrompter> prompter;
    std::optional<ChangedCalls> half;
};

TEST_F(HalfUnlockedTest, aRemovalThatLeavesALockedEntryIsRefused) {
    keepTwo("com.tavi.integrations");
    remove();
    EXPECT_EQ(outcome, SecretOutcome::refused);
    EXPECT_THAT(all(), ElementsAre(u"nameless=unreadable"_s));
}

TEST_F(HalfUnlockedTest, aReadThatLeavesALockedEntryIsRefusedAndAsksNoMore) {
    keepTwo("org.example.Other");
    EXPECT_EQ(copy(), std::nullopt);
    EXPECT_EQ(outcome, SecretOutcome::refused);
    half.reset();
    EXPECT_EQ(copy(), std::nullopt);
    EXPECT_EQ(outcome, SecretOutcome::refused);
    EXPECT_EQ(prompter->shown(), 0);
}

TEST_F(HalfUnlockedTest, aReadIsDoneWithTheEntryThatIsOpen) {
    keepTwo("com.tavi.integrations");
    EXPECT_EQ(copy(), "open");
    EXPECT_EQ(outcome, SecretOutcome::done);
}

TEST_F(SecretServiceStoreTest, nothingToUnlockIsNoReasonForAPrompt) {
    server.start();
    add("sk");
    server.kill();
    server.startLocked();
    const FakePrompter prompter(server.bus(), FakePrompter::Person::refuses);
    EXPECT_EQ(copy(u"integration.unknown"_s), std::nullopt);
    EXPECT_EQ(outcome, SecretOutcome::done);
    EXPECT_THAT(all(earlier), IsEmpty());
    EXPECT_EQ(outcome, SecretOutcome::done);
    remove(u"integration.unknown"_s);
    EXPECT_EQ(outcome, SecretOutcome::done);
    EXPECT_EQ(prompter.shown(), 0);
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
