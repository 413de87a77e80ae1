// SPDX-License-Identifier: MIT
#include "adapters/kernel/UnixSignals.h"

#include "support/WaitUntil.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <thread>

namespace zeph {

using testing::ElementsAre;

namespace {

void (*dispositionOf(int number))(int) {
    struct sigaction action {};
    sigaction(number, nullptr, &action);
    return action.sa_handler;
}

TEST(UnixSignals, handsEachSignalToTheEventLoopInOrder) {
    std::vector<int> seen;
    UnixSignals signals([&](int number) { seen.push_back(number); });
    ASSERT_TRUE(signals.isActive());
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        ASSERT_EQ(std::raise(number), 0);
    }
    EXPECT_TRUE(seen.empty()) << "nothing runs within the signal handler";
    EXPECT_TRUE(waitUntil([&] { return seen.size() == 3; }));
    EXPECT_THAT(seen, ElementsAre(SIGTERM, SIGINT, SIGHUP));
}

TEST(UnixSignals, callsOnTheThreadThatMadeItWhereverTheSignalStruck) {
    const auto here = std::this_thread::get_id();
    std::thread::id calledOn;
    UnixSignals signals([&](int) { calledOn = std::this_thread::get_id(); });
    std::thread([] { std::raise(SIGTERM); }).join();
    EXPECT_TRUE(waitUntil([&] { return calledOn != std::thread::id(); }));
    EXPECT_EQ(calledOn, here);
}

TEST(UnixSignals, tellsThatOneHasComeThoughNobodyReadsIt) {
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // in a process where none has come yet
    const auto run = [] {
        const UnixSignals signals([](int) {});
        const bool wasThere = UnixSignals::haveCome();
        std::raise(SIGTERM);
        _exit(!wasThere && UnixSignals::haveCome() ? EXIT_SUCCESS : EXIT_FAILURE);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(EXIT_SUCCESS), "");
}

TEST(UnixSignals, keepsABrokenPipeFromEndingTheProcess) {
    const UnixSignals signals([](int) {});
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    ::close(ends[0]);
    EXPECT_EQ(::write(ends[1], "x", 1), -1);
    EXPECT_EQ(errno, EPIPE);
    ::close(ends[1]);
}

TEST(UnixSignals, putsTheFormerDispositionsBack) {
    std::signal(SIGTERM, SIG_DFL);
    {
        const UnixSignals signals([](int) {});
    }
    EXPECT_EQ(dispositionOf(SIGTERM), SIG_DFL);
}

TEST(UnixSignals, leavesASignalIgnoredThatTheProcessWasStartedToIgnore) {
    std::signal(SIGHUP, SIG_IGN);
    int seen = 0;
    {
        const UnixSignals signals([&](int) { ++seen; });
        EXPECT_EQ(dispositionOf(SIGHUP), SIG_IGN);
        std::raise(SIGHUP);
        std::raise(SIGTERM);
        EXPECT_TRUE(waitUntil([&] { return seen > 0; }));
    }
    EXPECT_EQ(seen, 1);
    std::signal(SIGHUP, SIG_DFL);
}

TEST(UnixSignals, mayBeEndedByItsOwnHandler) {
    std::unique_ptr<UnixSignals> signals;
    int seen = 0;
    signals = std::make_unique<UnixSignals>([&](int) {
        ++seen;
        signals.reset();
    });
    std::raise(SIGTERM);
    std::raise(SIGTERM);
    EXPECT_TRUE(waitUntil([&] { return seen == 2; }));
    EXPECT_FALSE(signals);
}

TEST(UnixSignals, survivesAFloodOfSignals) {
    int seen = 0;
    UnixSignals signals([&](int) { ++seen; });
    for (int index = 0; index < 100'000; ++index) {
        std::raise(SIGHUP);
    }
    EXPECT_TRUE(waitUntil([&] { return seen > 0; }));
}

} // namespace

} // namespace zeph
