// SPDX-License-Identifier: MIT
#include "host/SpacesManager.h"

#include "host/SpaceWindow.h"
#include "ports/SurfaceSpaces.h"
#include "support/FakeVirtualDesktops.h"
#include "support/ManualRunLoop.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace zeph {

namespace {

using Numbers = std::optional<std::set<int>>;

/// What was asked for, in order, such as "remove 1 2" or "front".
using SpacesStory = std::vector<std::string>;

class FakeSpaceWindow : public SpaceWindow {
public:
    FakeSpaceWindow(int number, SpacesStory &story) : m_number(number), m_story(story) {}

    int windowNumber() const override { return m_number; }
    SpaceBehavior spaceBehavior() const override { return m_behavior; }
    void setSpaceBehavior(SpaceBehavior behavior) override {
        m_story.emplace_back(behavior == SpaceBehavior::pinned ? "pinned" : "all spaces");
        m_behavior = behavior;
    }
    bool isVisible() const override { return m_isVisible; }
    void orderFrontRegardless() override {
        m_story.emplace_back("front");
        m_isVisible = true;
    }
    void orderOut() override {
        m_story.emplace_back("out");
        m_isVisible = false;
    }

private:
    int m_number;
    SpacesStory &m_story;
    SpaceBehavior m_behavior = SpaceBehavior::allSpaces;
    bool m_isVisible = true;
};

/// Spaces that follow at once, or late when the test says so: surfaces stay where they were.
class FakeSurfaceSpaces : public SurfaceSpaces {
public:
    explicit FakeSurfaceSpaces(SpacesStory &story) : m_story(story) {}

    void add(int /*surface*/, const std::set<quint64> &spaces) override {
        tell("add", spaces);
        if (follows) {
            current.insert(spaces.begin(), spaces.end());
        }
    }
    void remove(int /*surface*/, const std::set<quint64> &spaces) override {
        tell("remove", spaces);
        if (follows) {
            std::erase_if(current, [&](quint64 space) {
                return spaces.contains(space) && !clinging.contains(space);
            });
        }
    }
    std::set<quint64> spacesOf(int /*surface*/) const override { return current; }

    bool follows = true;
    std::set<quint64> current;
    std::set<quint64> clinging; ///< cannot be left

private:
    void tell(std::string what, const std::set<quint64> &spaces) {
        for (const quint64 space : spaces) {
            what += ' ' + std::to_string(space);
        }
        m_story.push_back(what);
    }

    SpacesStory &m_story;
};

/// Three workspaces, the first of which is in sight, and a window that is seen on all of them.
class SpacesManagerTest : public testing::Test {
protected:
    SpacesManagerTest() {
        desktops.displays = {display(3, 1)};
        spaces.current = {1, 2, 3};
        open();
    }

    FakeSpaceWindow &open() {
        windows.push_back(
            std::make_unique<FakeSpaceWindow>(static_cast<int>(windows.size()) + 1, story));
        return *windows.back();
    }

    void pin(const Numbers &numbers, const std::optional<QString> &display = u"A"_s) {
        manager.pin(*windows.back(), numbers, display);
    }

    /// What happened since the last call.
    SpacesStory told() { return std::exchange(story, {}); }

    /// How many passes the current story holds.
    std::ptrdiff_t passes() const {
        return std::count_if(story.begin(), story.end(),
                             [](const std::string &one) { return one.starts_with("add"); });
    }

    ManualClock clock;
    ManualRunLoop loop{clock};
    SpacesStory story;
    FakeVirtualDesktops desktops;
    FakeSurfaceSpaces spaces{story};
    std::vector<std::unique_ptr<FakeSpaceWindow>> windows;
    SpacesManager manager{desktops, spaces, loop, [this] {
                              std::vector<SpaceWindow *> all;
                              for (const auto &window : windows) {
                                  all.push_back(window.get());
                              }
                              return all;
                          }};
};

TEST_F(SpacesManagerTest, aWindowOfAllWorkspacesIsMovedNowhere) {
    pin(std::nullopt);
    EXPECT_THAT(told(), ElementsAre("all spaces"));
    EXPECT_THAT(manager.intent(), ElementsAre(Pair(1, IsEmpty())));
    loop.advance(1);
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(SpacesManagerTest, aWindowIsMovedToTheChosenWorkspaceAndNoLongerInSight) {
    pin(std::set{2});
    EXPECT_THAT(told(), ElementsAre("pinned", "remove 1 2 3", "add 2"));
    EXPECT_THAT(manager.intent(), ElementsAre(Pair(1, ElementsAre(2))));
    EXPECT_EQ(windows[0]->spaceBehavior(), SpaceBehavior::pinned);
    loop.advance(1);
    EXPECT_THAT(told(), IsEmpty()) << "it is settled";
}

TEST_F(SpacesManagerTest, whatLingersOnTheWorkspaceInSightIsOrderedOut) {
    spaces.clinging = {1};
    pin(std::set{2});
    EXPECT_THAT(told(), ElementsAre("pinned", "remove 1 2 3", "add 2", "out"));
    loop.advance(1);
    EXPECT_THAT(told(), IsEmpty()) << "out of sight it may be listed there";
}

TEST_F(SpacesManagerTest, aHiddenWindowComesBackOnAChosenWorkspace) {
    spaces.clinging = {1};
    pin(std::set{2});
    story.clear();
    spaces.clinging = {};
    desktops.displays = {display(3, 2)};
    pin(std::set{2});
    EXPECT_THAT(told(), ElementsAre("remove 1 2 3", "add 2", "front"));
    pin(std::set{2});
    EXPECT_THAT(told(), ElementsAre("remove 1 2 3", "add 2")) << "it is in front already";
}

TEST_F(SpacesManagerTest, noneInSightOrdersNothing) {
    desktops.displays = {display(3, std::nullopt)};
    spaces.clinging = {1};
    pin(std::set{2});
    EXPECT_EQ(passes(), 1);
    EXPECT_TRUE(windows[0]->isVisible());
}

TEST_F(SpacesManagerTest, aNumberThatNoWorkspaceHasShowsTheWindowOnAll) {
    desktops.displays = {display(1, 1)};
    pin(std::set{2});
    EXPECT_THAT(told(), ElementsAre("all spaces"));
    EXPECT_THAT(manager.intent(), ElementsAre(Pair(1, IsEmpty())));
}

TEST_F(SpacesManagerTest, aPinnedWindowReturnsToAllByItsBehaviorAlone) {
    spaces.clinging = {1};
    pin(std::set{2});
    story.clear();
    pin(std::nullopt);
    EXPECT_THAT(told(), ElementsAre("all spaces", "front"));
    EXPECT_EQ(windows[0]->spaceBehavior(), SpaceBehavior::allSpaces);
}

TEST_F(SpacesManagerTest, aDesktopWithoutWorkspacesShowsEveryWindow) {
    desktops.displays = {};
    EXPECT_EQ(manager.snapshot(), SpaceSnapshot());
    pin(std::set{1});
    EXPECT_THAT(told(), ElementsAre("all spaces"));
    EXPECT_THAT(manager.intent(), ElementsAre(Pair(1, IsEmpty())));
}

TEST_F(SpacesManagerTest, aDisplayThatIsNotListedTakesTheNumberOfEveryDisplay) {
    desktops.displays = {display(2, 11, u"B"_s, 11), display(2, 22, u"C"_s, 21)};
    spaces.current = {};
    pin(std::set{1}, u"A"_s);
    EXPECT_THAT(manager.intent(), ElementsAre(Pair(1, ElementsAre(11, 21))));
    pin(std::set{2}, std::nullopt);
    EXPECT_THAT(manager.intent(), ElementsAre(Pair(1, ElementsAre(12, 22))));
}

TEST_F(SpacesManagerTest, ofDisplaysWithTheirOwnWorkspacesEachDecidesForItself) {
    desktops.displays = {display(2, 11, u"A"_s, 11), display(2, 22, u"B"_s, 21)};
    spaces.current = {11, 22};
    spaces.clinging = {11, 22};
    FakeSpaceWindow &other = open();
    manager.pin(*windows[0], std::set{2}, u"A"_s);
    manager.pin(other, std::set{2}, u"B"_s);
    EXPECT_FALSE(windows[0]->isVisible()) << "its display shows the first one";
    EXPECT_TRUE(other.isVisible()) << "its display shows the second one";
    EXPECT_THAT(manager.intent(), ElementsAre(Pair(1, ElementsAre(12)), Pair(2, ElementsAre(22))));
}

TEST_F(SpacesManagerTest, fullScreenWorkspacesAreLeftButHaveNoNumber) {
    desktops.displays[0].spaces[1].isRegular = false;
    pin(std::set{2});
    EXPECT_THAT(told(), ElementsAre("pinned", "remove 1 2 3", "add 3"));
}

TEST_F(SpacesManagerTest, whatDoesNotFollowIsLookedAtSevenTimes) {
    spaces.follows = false;
    spaces.current = {2, 3};
    pin(std::set{2});
    EXPECT_EQ(passes(), 1);
    loop.advance(0.049);
    EXPECT_EQ(passes(), 1);
    loop.advance(0.001);
    EXPECT_EQ(passes(), 2);
    loop.advance(0.25);
    EXPECT_EQ(passes(), 7);
    loop.advance(10);
    EXPECT_EQ(passes(), 7) << "it stays as it is";
    pin(std::set{2});
    EXPECT_EQ(passes(), 8) << "until the next time";
}

TEST_F(SpacesManagerTest, whatFollowsLateIsLookedAtNoLonger) {
    spaces.follows = false;
    spaces.current = {};
    pin(std::set{2, 3});
    loop.advance(0.1);
    EXPECT_EQ(passes(), 3);
    spaces.current = {2};
    loop.advance(0.05);
    EXPECT_EQ(passes(), 4) << "it is not on all of them yet";
    spaces.current = {1, 2, 3};
    loop.advance(0.05);
    EXPECT_EQ(passes(), 5);
    EXPECT_FALSE(windows[0]->isVisible()) << "and lingers in sight";
    loop.advance(1);
    EXPECT_EQ(passes(), 5);
}

TEST_F(SpacesManagerTest, aNewerChoiceEndsThePassesOfTheEarlierOne) {
    spaces.follows = false;
    spaces.current = {};
    pin(std::set{2});
    loop.advance(0.03);
    pin(std::set{3});
    told();
    loop.advance(0.1);
    EXPECT_THAT(told(), ElementsAre("remove 1 2 3", "add 3", "remove 1 2 3", "add 3"));
    pin(std::nullopt);
    told();
    loop.advance(1);
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(SpacesManagerTest, passesEndWhenTheWorkspacesGo) {
    spaces.follows = false;
    spaces.current = {};
    pin(std::set{2});
    desktops.displays = {};
    told();
    loop.advance(1);
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(SpacesManagerTest, aClosedWindowIsMovedNoMoreAndForgottenByTheNextPin) {
    spaces.follows = false;
    spaces.current = {};
    pin(std::set{2});
    FakeSpaceWindow &other = open();
    windows.erase(windows.begin());
    told();
    loop.advance(1);
    EXPECT_THAT(told(), IsEmpty());
    EXPECT_EQ(manager.intent().count(1), 1U);
    manager.pin(other, std::nullopt, u"A"_s);
    EXPECT_THAT(manager.intent(), ElementsAre(Pair(2, IsEmpty())));
}

TEST_F(SpacesManagerTest, noPassOutlivesTheManager) {
    spaces.follows = false;
    spaces.current = {};
    {
        SpacesManager brief(desktops, spaces, loop,
                            [this] { return std::vector<SpaceWindow *>{windows[0].get()}; });
        brief.pin(*windows[0], std::set{2}, std::nullopt);
    }
    told();
    loop.advance(1);
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(SpacesManagerTest, aWindowIsWantedUnlessAnotherWorkspaceIsInSight) {
    EXPECT_TRUE(manager.isWantedNow(std::nullopt, u"A"_s));
    EXPECT_TRUE(manager.isWantedNow(std::set{1, 2}, u"A"_s));
    EXPECT_FALSE(manager.isWantedNow(std::set{2}, u"A"_s));
    EXPECT_TRUE(manager.isWantedNow(std::set{9}, u"A"_s)) << "that is all of them";
    desktops.displays = {display(3, std::nullopt)};
    EXPECT_TRUE(manager.isWantedNow(std::set{2}, u"A"_s)) << "who knows";
    EXPECT_THAT(told(), IsEmpty());
}

} // namespace

} // namespace zeph
