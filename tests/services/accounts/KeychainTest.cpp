// SPDX-License-Identifier: MIT
#include "services/accounts/Keychain.h"

#include "support/FakeSecureStore.h"
#include "support/FakeUserDefaults.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>

#include <functional>
#include <future>
#include <thread>
#include <utility>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace zeph {

namespace {

const auto account = u"integration.A"_s;
const auto current = u"com.tavi.integrations"_s;
const auto legacy = u"com.zeph.integrations"_s;
const auto migratedKey = u"tavi.keychain.serviceMigrated"_s;

const auto copyCurrent = u"copy com.tavi.integrations integration.A"_s;
const auto copyLegacy = u"copy com.zeph.integrations integration.A"_s;
const auto removeCurrent = u"remove com.tavi.integrations integration.A"_s;
const auto removeLegacy = u"remove com.zeph.integrations integration.A"_s;
const auto addCurrent = u"add com.tavi.integrations integration.A"_s;
const auto copyAllLegacy = u"copyAll com.zeph.integrations"_s;

/// A store in which something may happen between a reading and its answer.
class SlowStore : public FakeSecureStore {
public:
    SecretAnswer<std::optional<QByteArray>> copy(const QString &service,
                                                 const QString &name) override {
        auto answer = FakeSecureStore::copy(service, name);
        if (afterReading && answer.value) {
            std::exchange(afterReading, {})();
        }
        return answer;
    }

    std::function<void()> afterReading; ///< called once, when something was found
};

/// A keychain whose migration is over.
class KeychainTest : public testing::Test {
protected:
    KeychainTest() { defaults.set(migratedKey, true); }

    FakeSecureStore store;
    FakeUserDefaults defaults;
    Keychain keychain{store, defaults};
};

/// One whose migration is still to come.
class KeychainMigrationTest : public testing::Test {
protected:
    FakeSecureStore store;
    FakeUserDefaults defaults;
    Keychain keychain{store, defaults};
};

TEST_F(KeychainTest, aWriteIsAnAdditionAndThenTheRemovalOfTheEarlierEntry) {
    keychain.set(u"sk_1"_s, account);
    EXPECT_THAT(store.takeCalls(), ElementsAre(addCurrent, removeLegacy));
    EXPECT_THAT(store.entries(), ElementsAre(u"com.tavi.integrations integration.A=sk_1"_s));
}

TEST_F(KeychainTest, aWriteReplacesWhatWasThere) {
    keychain.set(u"old"_s, account);
    keychain.set(u"new"_s, account);
    EXPECT_THAT(store.entries(), ElementsAre(u"com.tavi.integrations integration.A=new"_s));
    EXPECT_EQ(keychain.get(account).value, u"new"_s);
}

TEST_F(KeychainTest, settingNothingOrAnEmptyTextErasesBothEntriesAndTheMemory) {
    for (const std::optional<QString> &nothing : {std::optional<QString>(), std::optional(u""_s)}) {
        keychain.set(u"old"_s, account);
        store.put(legacy, {account, "older"});
        store.takeCalls();
        keychain.set(nothing, account);
        EXPECT_THAT(store.takeCalls(), ElementsAre(removeCurrent, removeLegacy));
        EXPECT_THAT(store.entries(), IsEmpty());
        EXPECT_EQ(keychain.get(account).value, std::nullopt);
    }
}

TEST_F(KeychainTest, aBlankIsAValue) {
    keychain.set(u" "_s, account);
    EXPECT_THAT(store.entries(), ElementsAre(u"com.tavi.integrations integration.A= "_s));
}

TEST_F(KeychainTest, theFirstReadAsksTheStoreAndTheNextDoesNot) {
    store.put(current, {account, "sk_1"});
    EXPECT_EQ(keychain.get(account).value, u"sk_1"_s);
    EXPECT_THAT(store.takeCalls(), ElementsAre(copyCurrent));
    EXPECT_EQ(keychain.get(account).value, u"sk_1"_s);
    EXPECT_THAT(store.takeCalls(), IsEmpty());
}

TEST_F(KeychainTest, aWrittenSecretIsNotReadFromTheStore) {
    keychain.set(u"sk_1"_s, account);
    store.takeCalls();
    EXPECT_EQ(keychain.get(account).value, u"sk_1"_s);
    EXPECT_THAT(store.takeCalls(), IsEmpty());
}

TEST_F(KeychainTest, aMissingAccountCostsTwoReadsEachTime) {
    for (int time = 0; time < 3; ++time) {
        EXPECT_EQ(keychain.get(account).value, std::nullopt);
        EXPECT_THAT(store.takeCalls(), ElementsAre(copyCurrent, copyLegacy));
    }
}

TEST_F(KeychainTest, aValueUnderTheEarlierNameIsReturnedAndMovedOver) {
    store.put(legacy, {account, "sk_old"});
    EXPECT_EQ(keychain.get(account).value, u"sk_old"_s);
    EXPECT_THAT(store.takeCalls(), ElementsAre(copyCurrent, copyLegacy, addCurrent, removeLegacy));
    EXPECT_THAT(store.entries(), ElementsAre(u"com.tavi.integrations integration.A=sk_old"_s));
    EXPECT_EQ(keychain.get(account).value, u"sk_old"_s);
    EXPECT_THAT(store.takeCalls(), IsEmpty());
}

TEST_F(KeychainTest, aFailedWriteIsRememberedUntilTheProcessEnds) {
    store.answer(SecretOutcome::refused);
    keychain.set(u"sk_1"_s, account);
    EXPECT_EQ(keychain.get(account).value, u"sk_1"_s);
    store.answer(SecretOutcome::done);
    Keychain restarted(store, defaults);
    EXPECT_EQ(restarted.get(account).value, std::nullopt);
}

TEST_F(KeychainTest, bytesThatAreNoUtf8ReadAsNothing) {
    store.put(current, {account, QByteArray("\xff\xfe", 2)});
    EXPECT_EQ(keychain.get(account).value, std::nullopt);
    EXPECT_THAT(store.takeCalls(), ElementsAre(copyCurrent, copyLegacy));
}

TEST_F(KeychainTest, anyTextComesBackAsItWas) {
    for (const auto &text :
         {u"Zoë · 🌤"_s, u"\ufeffmark"_s, u"a\nb\t c "_s, QString(5000, u'k')}) {
        keychain.set(text, account);
        EXPECT_EQ(Keychain(store, defaults).get(account).value, text);
    }
}

TEST_F(KeychainTest, erasingRemovesBothEntriesAndTheMemory) {
    keychain.set(u"sk_1"_s, account);
    store.put(legacy, {account, "older"});
    store.takeCalls();
    keychain.erase(account);
    EXPECT_THAT(store.takeCalls(), ElementsAre(removeCurrent, removeLegacy));
    EXPECT_THAT(store.entries(), IsEmpty());
    EXPECT_EQ(keychain.get(account).value, std::nullopt);
}

TEST_F(KeychainTest, accountsAreKeptApart) {
    keychain.set(u"a"_s, u"one"_s);
    keychain.set(u"b"_s, u"two"_s);
    keychain.erase(u"one"_s);
    EXPECT_EQ(keychain.get(u"one"_s).value, std::nullopt);
    EXPECT_EQ(keychain.get(u"two"_s).value, u"b"_s);
}

TEST_F(KeychainTest, aSecretReplacedDuringAReadDoesNotComeBack) {
    store.put(current, {account, "old"});
    bool isReplaced = false;
    store.setHook([&](const QString &call) {
        if (call == copyCurrent && !std::exchange(isReplaced, true)) {
            // The read below still sees the old value, as one under way would.
            keychain.set(u"new"_s, account);
            store.remove(current, account);
            store.put(current, {account, "old"});
        }
    });
    EXPECT_EQ(keychain.get(account).value, u"old"_s);
    EXPECT_EQ(keychain.get(account).value, u"new"_s);
}

TEST_F(KeychainTest, anEarlierEntryErasedBeforeItsReadIsAnsweredStaysErased) {
    SlowStore slow;
    Keychain reading(slow, defaults);
    slow.put(legacy, {account, "old"});
    std::thread eraser;
    // The eraser has removed both entries when the read goes on, and ends only after it.
    std::promise<void> removed;
    std::promise<void> isRead;
    slow.setHook([&, removals = 0](const QString &call) mutable {
        if (call == removeLegacy && removals++ == 0) {
            slow.remove(legacy, account);
            removed.set_value();
            isRead.get_future().wait();
        }
    });
    slow.afterReading = [&] {
        eraser = std::thread([&] { reading.erase(account); });
        removed.get_future().wait();
    };
    EXPECT_EQ(reading.get(account).value, u"old"_s) << "it was there when the read began";
    isRead.set_value();
    eraser.join();
    EXPECT_THAT(slow.entries(), IsEmpty());
    EXPECT_EQ(reading.get(account).value, std::nullopt);
}

TEST_F(KeychainTest, anEarlierEntryReadDuringItsErasureStaysErased) {
    store.put(legacy, {account, "old"});
    bool isErasing = false;
    store.setHook([&](const QString &call) {
        if (call == removeLegacy && !std::exchange(isErasing, true)) {
            std::thread reader([&] { keychain.get(account); });
            reader.join();
        }
    });
    keychain.erase(account);
    EXPECT_TRUE(isErasing);
    EXPECT_THAT(store.entries(), IsEmpty());
    EXPECT_EQ(keychain.get(account).value, std::nullopt);
}

TEST_F(KeychainTest, aStoreThatWaitsForThePasswordHoldsUpNoOtherRead) {
    keychain.set(u"known"_s, u"other"_s);
    std::optional<QString> answer;
    store.setHook([&](const QString &call) {
        if (call == copyCurrent) {
            std::thread reader([&] { answer = keychain.get(u"other"_s).value; });
            reader.join();
        }
    });
    keychain.get(account);
    EXPECT_EQ(answer, u"known"_s);
}

TEST_F(KeychainMigrationTest, movesEveryReadableEntryOnce) {
    store.put(legacy, {u"stripe"_s, "one"});
    store.put(legacy, {u"github"_s, "two"});
    store.put(u"org.other"_s, {u"stripe"_s, "theirs"});
    keychain.migrateLegacyServiceIfNeeded();
    EXPECT_THAT(store.takeCalls(), ElementsAre(copyAllLegacy, u"add com.tavi.integrations stripe"_s,
                                               u"remove com.zeph.integrations stripe"_s,
                                               u"add com.tavi.integrations github"_s,
                                               u"remove com.zeph.integrations github"_s));
    EXPECT_THAT(store.entries(), UnorderedElementsAre(u"com.tavi.integrations stripe=one"_s,
                                                      u"com.tavi.integrations github=two"_s,
                                                      u"org.other stripe=theirs"_s));
    EXPECT_EQ(defaults.get<bool>(migratedKey), true);
    keychain.migrateLegacyServiceIfNeeded();
    EXPECT_THAT(store.takeCalls(), IsEmpty());
}

TEST_F(KeychainMigrationTest, aSecretErasedWhileTheOldOneIsReadDoesNotComeBack) {
    defaults.set(migratedKey, true);
    store.put(legacy, {account, "old"});
    bool isReading = false;
    store.setHook([&](const QString &call) {
        if (call.startsWith(u"copy com.zeph") && !std::exchange(isReading, true)) {
            keychain.set(u"new"_s, account);
            store.put(legacy, {account, "old"}); // what the read under way had found
        }
    });
    EXPECT_EQ(keychain.get(account).value, u"old"_s);
    EXPECT_EQ(keychain.get(account).value, u"new"_s);
}

TEST_F(KeychainMigrationTest, leavesWhatItCannotReadWhereItIs) {
    store.put(legacy, {u"bad"_s, QByteArray("\xc3\x28", 2)});
    store.put(legacy, {std::nullopt, "nameless"});
    store.put(legacy, {u"locked"_s, std::nullopt});
    store.put(legacy, {u"good"_s, "text"});
    keychain.migrateLegacyServiceIfNeeded();
    EXPECT_THAT(store.takeCalls(), ElementsAre(copyAllLegacy, u"add com.tavi.integrations good"_s,
                                               u"remove com.zeph.integrations good"_s));
    EXPECT_EQ(store.entries().size(), 4);
    EXPECT_TRUE(defaults.boolean(migratedKey));
}

TEST_F(KeychainMigrationTest, isTriedOnceEvenWhenTheStoreRefuses) {
    store.put(legacy, {u"stripe"_s, "one"});
    store.answer(SecretOutcome::refused);
    keychain.migrateLegacyServiceIfNeeded();
    EXPECT_TRUE(defaults.boolean(migratedKey));
    store.answer(SecretOutcome::done);
    store.takeCalls();
    keychain.migrateLegacyServiceIfNeeded();
    EXPECT_THAT(store.takeCalls(), IsEmpty());
}

TEST_F(KeychainMigrationTest, runsBeforeTheFirstReadAndFillsNoMemory) {
    store.put(legacy, {account, "sk"});
    EXPECT_EQ(keychain.get(account).value, u"sk"_s);
    EXPECT_THAT(store.takeCalls(),
                ElementsAre(copyAllLegacy, addCurrent, removeLegacy, copyCurrent));
}

TEST_F(KeychainMigrationTest, runsBeforeTheFirstWrite) {
    keychain.set(u"sk"_s, account);
    EXPECT_THAT(store.takeCalls(), ElementsAre(copyAllLegacy, addCurrent, removeLegacy));
}

TEST_F(KeychainMigrationTest, runsBeforeTheFirstErasing) {
    keychain.erase(account);
    EXPECT_THAT(store.takeCalls(), ElementsAre(copyAllLegacy, removeCurrent, removeLegacy));
}

TEST_F(KeychainMigrationTest, aFlagOfAnotherTypeDoesNotCount) {
    defaults.set(migratedKey, u"true"_s);
    keychain.migrateLegacyServiceIfNeeded();
    EXPECT_THAT(store.takeCalls(), ElementsAre(copyAllLegacy));
}

TEST_F(KeychainMigrationTest, manyThreadsMayBeTheFirst) {
    for (int entry = 0; entry < 20; ++entry) {
        store.put(legacy, {u"integration.%1"_s.arg(entry), QByteArray::number(entry)});
    }
    std::vector<std::thread> threads;
    std::vector<std::optional<QString>> answers(4);
    for (std::size_t index = 0; index < answers.size(); ++index) {
        threads.emplace_back([this, &answer = answers[index]] {
            for (int entry = 0; entry < 20; ++entry) {
                keychain.set(u"mine"_s, u"thread"_s);
                answer = keychain.get(u"integration.%1"_s.arg(entry)).value;
            }
        });
    }
    for (std::thread &thread : threads) {
        thread.join();
    }
    EXPECT_TRUE(defaults.boolean(migratedKey));
    EXPECT_EQ(keychain.get(u"thread"_s).value, u"mine"_s);
    for (int entry = 0; entry < 20; ++entry) {
        EXPECT_EQ(keychain.get(u"integration.%1"_s.arg(entry)).value, QString::number(entry));
    }
}

} // namespace

} // namespace zeph
