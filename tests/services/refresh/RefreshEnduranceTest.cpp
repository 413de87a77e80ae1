// SPDX-License-Identifier: MIT
#include "services/refresh/RefreshFixture.h"

#include "support/LeastGrowth.h"

#include <chrono>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr int accountCount = 200;

/// Two hundred accounts of every kind.
class RefreshEnduranceTest : public RefreshFixture {
protected:
    RefreshEnduranceTest() {
        const QStringList providers = {u"stripe"_s, u"github"_s,     u"dodo"_s,  u"plausible"_s,
                                       u"rss"_s,    u"chartmogul"_s, u"polar"_s, u"reddit"_s};
        for (int number = 0; number < accountCount; ++number) {
            connect(providers[number % providers.size()], u"secret-%1"_s.arg(number),
                    u"value-%1"_s.arg(number));
        }
        launch();
    }

    /// Milliseconds of the main thread's longest turn in a whole run.
    double longestTurn() {
        using Clock = std::chrono::steady_clock;
        double longest = 0;
        const auto timed = [&longest](const std::function<void()> &turn) {
            const auto begin = Clock::now();
            turn();
            const std::chrono::duration<double, std::milli> taken = Clock::now() - begin;
            longest = std::max(longest, taken.count());
        };
        timed([this] { refresh->fetchIntegrations(); });
        executor.runAll();
        timed([this] { loop.drain(); });
        return longest;
    }
};

TEST_F(RefreshEnduranceTest, everyOneOfManyAccountsIsAskedOnceInARun) {
    run();
    EXPECT_EQ(calls.size(), accountCount + 1) << "and the quote";
    EXPECT_EQ(calls.removeDuplicates(), 0);
    EXPECT_EQ(state.stripeStats->size() + state.githubStats->size() + state.revenueStats->size() +
                  state.analyticsStats->size() + state.simpleStats->size(),
              std::size_t{accountCount});
}

TEST_F(RefreshEnduranceTest, theMainThreadOnlyAssignsOnceAFamily) {
    int changes = 0;
    const auto subscription = state.objectWillChange.subscribe([&] { ++changes; });
    refresh->fetchIntegrations();
    EXPECT_EQ(executor.waiting(), 6U);
    EXPECT_EQ(changes, 1) << "the empty list of endpoints";
    executor.runAll();
    EXPECT_EQ(changes, 1);
    calls.clear();
    secrets.takeCalls();
    loop.drain();
    EXPECT_EQ(changes, 7);
    EXPECT_TRUE(calls.isEmpty());
    EXPECT_TRUE(secrets.takeCalls().isEmpty());
}

TEST_F(RefreshEnduranceTest, noTurnOfTheMainThreadTakesFiveMilliseconds) {
    double least = longestTurn();
    for (int attempt = 0; attempt < 20 && least >= 5; ++attempt) {
        least = std::min(least, longestTurn());
    }
    EXPECT_LT(least, 5);
}

TEST_F(RefreshEnduranceTest, memoryStaysFlatOverHundredsOfRuns) {
    const auto growth = leastGrowth(1024, [this] {
        for (int round = 0; round < 500 / 20; ++round) {
            run();
            calls.clear();
            calls.squeeze();
            secrets.takeCalls();
        }
    });
    EXPECT_LT(growth, 1024);
}

} // namespace

} // namespace zeph
