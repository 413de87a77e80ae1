// SPDX-License-Identifier: MIT
#include "adapters/secret/SilentService.h"
#include "adapters/secret/Elsewhere.h"
#include "adapters/secret/SecretServer.h"
#include "adapters/secret/SecretServiceStore.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class SilentServiceTest : public testing::Test {
protected:
    SecretServer server; // its bus alone
    SilentService silent{server.bus()};
};

TEST_F(SilentServiceTest, isGivenUpAndThenLeftInPeace) {
    SecretServiceStore store({std::chrono::milliseconds(300), std::chrono::minutes(10)});
    elsewhere([&] { EXPECT_EQ(store.copy(u"s"_s, u"a"_s).outcome, SecretOutcome::unavailable); });
    const int calls = silent.calls;
    elsewhere([&] {
        for (int account = 0; account < 200; ++account) {
            EXPECT_EQ(store.copy(u"s"_s, QString::number(account)).outcome,
                      SecretOutcome::unavailable);
            EXPECT_EQ(store.add(u"s"_s, QString::number(account), "x"), SecretOutcome::unavailable);
        }
    });
    EXPECT_EQ(silent.calls, calls);
}

TEST_F(SilentServiceTest, isAskedAgainAfterAWhile) {
    SecretServiceStore store({std::chrono::milliseconds(50), std::chrono::milliseconds(0)});
    elsewhere([&] {
        // On a slow machine even the way to the bus may take longer than that.
        for (int attempt = 0; attempt < 200 && silent.calls < 2; ++attempt) {
            store.copy(u"s"_s, u"a"_s);
        }
    });
    EXPECT_GE(silent.calls, 2);
}

TEST_F(SilentServiceTest, holdsUpNoEnd) {
    auto store = std::make_unique<SecretServiceStore>();
    std::thread caller([&] { store->copy(u"s"_s, u"a"_s); });
    EXPECT_TRUE(eventually([&] { return silent.calls > 0; }));
    const auto began = std::chrono::steady_clock::now();
    store->cancelAll();
    caller.join();
    store.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::milliseconds(500));
}

TEST_F(SilentServiceTest, aStoreThatNobodyAskedSpeaksToNobody) {
    {
        SecretServiceStore store;
        EXPECT_EQ(silent.calls, 0);
    }
    EXPECT_EQ(silent.calls, 0);
}

} // namespace

} // namespace zeph
