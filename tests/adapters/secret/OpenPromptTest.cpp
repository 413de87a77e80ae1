// SPDX-License-Identifier: MIT
#include "adapters/secret/Elsewhere.h"
#include "adapters/secret/FakePrompter.h"
#include "adapters/secret/SecretServer.h"
#include "adapters/secret/SecretServiceStore.h"
#include "support/WaitUntil.h"

#include <gio/gio.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const auto ours = u"com.tavi.integrations"_s;
const auto account = u"integration.A"_s;

/// Runs `body` in a process that ends with it: a call that was left to itself keeps the connection
/// that libraries share, and so the bus of this test, as long as its process lives.
template <typename Body>
void inAProcessOfItsOwn(Body body) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto run = [&body] {
        body();
        _exit(testing::Test::HasFailure() ? EXIT_FAILURE : EXIT_SUCCESS);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(EXIT_SUCCESS), "");
}

/// A locked collection with an entry.
void keepLocked(SecretServer &server) {
    server.start();
    elsewhere([] {
        SecretServiceStore store;
        EXPECT_EQ(store.add(ours, account, "sk"), SecretOutcome::done);
    });
    server.kill();
    server.startLocked();
}

/// Cuts this process off the bus as its end would: the connection that libraries share.
void leaveBus() {
    GDBusConnection *const shared = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    ASSERT_NE(shared, nullptr);
    EXPECT_TRUE(g_dbus_connection_close_sync(shared, nullptr, nullptr) != FALSE);
    g_object_unref(shared);
}

void endWhileAPromptStandsOpen() {
    SecretServer server;
    keepLocked(server);
    const FakePrompter prompter(server.bus(), FakePrompter::Person::isAway);
    auto waiting = std::make_unique<SecretServiceStore>();
    std::atomic<bool> isReleased = false;
    std::thread caller([&] {
        EXPECT_EQ(waiting->copy(ours, account).outcome, SecretOutcome::unavailable);
        isReleased = true;
    });
    EXPECT_TRUE(eventually([&] { return prompter.shown() == 1; }));
    EXPECT_FALSE(isReleased);
    // No event is processed from here, so nobody else can end the wait.
    const auto began = std::chrono::steady_clock::now();
    waiting->cancelAll();
    caller.join();
    EXPECT_EQ(waiting->copy(ours, account).outcome, SecretOutcome::unavailable);
    waiting.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::milliseconds(500));
    EXPECT_TRUE(server.isOnBus()) << "the service did not survive it";
    leaveBus();
    runLoopFor(std::chrono::milliseconds(100));
    EXPECT_TRUE(server.isOnBus()) << "the service did not survive our end";
}

void endWhileSeveralWait() {
    SecretServer server;
    keepLocked(server);
    const FakePrompter prompter(server.bus(), FakePrompter::Person::isAway);
    SecretServiceStore store;
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

TEST(OpenPrompt, holdsUpNoEnd) {
    inAProcessOfItsOwn(endWhileAPromptStandsOpen);
}

TEST(OpenPrompt, holdsUpTheNextCallerUntilTheEnd) {
    inAProcessOfItsOwn(endWhileSeveralWait);
}

} // namespace

} // namespace zeph
