// SPDX-License-Identifier: MIT
#include "adapters/session/common/WatchedInputEvents.h"

#include "support/FakeConsent.h"

#include <gtest/gtest.h>

#include <vector>

namespace zeph {

namespace {

using std::chrono::milliseconds;

struct Desktop {
    std::vector<milliseconds> limits; // of the watches, in order
    int watches = 0;                  // at present
    bool isQuiet = false;
    bool refuses = false;
};

class PlayedWatch : public IdleWatch {
public:
    explicit PlayedWatch(Desktop &desktop) : m_desktop(desktop) { ++m_desktop.watches; }
    ~PlayedWatch() override { --m_desktop.watches; }
    bool isQuiet() const override { return m_desktop.isQuiet; }

private:
    Desktop &m_desktop;
};

class PlayedWatcher : public IdleWatcher {
public:
    explicit PlayedWatcher(Desktop &desktop) : m_desktop(desktop) {}
    std::unique_ptr<IdleWatch> watch(milliseconds limit) override {
        m_desktop.limits.push_back(limit);
        return m_desktop.refuses ? nullptr : std::make_unique<PlayedWatch>(m_desktop);
    }

private:
    Desktop &m_desktop;
};

} // namespace

class WatchedInputEventsTest : public testing::Test {
protected:
    Desktop desktop;
    FakeConsent consent;
    WatchedInputEvents events{std::make_unique<PlayedWatcher>(desktop), consent};
};

TEST_F(WatchedInputEventsTest, watchesForMoreThanTheTimeThatIsAskedFor) {
    EXPECT_FALSE(events.isQuietForMoreThan(90));
    EXPECT_EQ(desktop.limits, std::vector{milliseconds(90001)});
    desktop.isQuiet = true;
    EXPECT_TRUE(events.isQuietForMoreThan(90));
}

TEST_F(WatchedInputEventsTest, oneWatchServesAllWhoAskForTheSameTime) {
    for (int i = 0; i < 5; ++i) {
        events.isQuietForMoreThan(90);
    }
    EXPECT_EQ(desktop.limits.size(), 1U);
    events.isQuietForMoreThan(30);
    EXPECT_EQ(desktop.limits.size(), 2U);
    EXPECT_EQ(desktop.watches, 1) << "the former one has ended";
}

TEST_F(WatchedInputEventsTest, withoutAWatchTheUserIsThere) {
    desktop.isQuiet = true;
    desktop.refuses = true;
    EXPECT_FALSE(events.isQuietForMoreThan(90));
    EXPECT_FALSE(events.isQuietForMoreThan(90));
    EXPECT_EQ(desktop.limits.size(), 1U) << "it is not asked again and again";
    const WatchedInputEvents blind(nullptr, consent);
    EXPECT_FALSE(blind.isQuietForMoreThan(0));
}

TEST_F(WatchedInputEventsTest, saysThatKeysCanNotBeCounted) {
    consent.set(ConsentState::granted);
    EXPECT_FALSE(events.canCountKeys());
    EXPECT_EQ(events.makeTap([](const InputEvent &) {}), nullptr);
    EXPECT_FALSE(events.consentTellsFront());
    const WatchedInputEvents ofGnome(nullptr, consent,
                                     WatchedInputEvents::ConsentUse::frontApplication);
    EXPECT_TRUE(ofGnome.consentTellsFront());
}

TEST_F(WatchedInputEventsTest, isTrustedByTheUsersConsentAlone) {
    int changes = 0;
    const Subscription trust = events.subscribeToTrust([&] { ++changes; });
    EXPECT_FALSE(events.isTrusted());
    consent.set(ConsentState::granted);
    EXPECT_TRUE(events.isTrusted());
    consent.set(ConsentState::denied);
    EXPECT_FALSE(events.isTrusted());
    EXPECT_EQ(changes, 2);
}

} // namespace zeph
