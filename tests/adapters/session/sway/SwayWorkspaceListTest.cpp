// SPDX-License-Identifier: MIT
#include "SwayFixture.h"

#include "adapters/session/sway/SwayInsets.h"
#include "adapters/session/sway/SwayVirtualDesktops.h"
#include "adapters/session/sway/SwayWorkspaceList.h"

using namespace Qt::StringLiterals;

namespace zeph {

class SwayWorkspaceListTest : public PlayedSwayTest {
protected:
    void open(const QByteArray &workspaces) {
        sway.answers[kWorkspaces] = workspaces;
        list.emplace(ipc);
        changes = list->subscribe([this] { ++changeCount; });
        settle();
    }

    void happens(quint32 kind, const QByteArray &change) {
        sway.sendEvent(kind,
                       R"({"change": ")" + change + R"(", "container": {"id": 1}, "current": {}})");
        settle();
        settle();
    }

    static QByteArray one(int id, const QByteArray &output, bool isVisible,
                          const QByteArray &area = "[0,0,0,0]") {
        const auto sides = area.sliced(1, area.size() - 2).split(',');
        return R"({"id": )" + QByteArray::number(id) + R"(, "name": ")" + QByteArray::number(id) +
               R"(", "output": ")" + output + R"(", "visible": )" + (isVisible ? "true" : "false") +
               R"(, "rect": {"x": )" + sides[0] + R"(, "y": )" + sides[1] + R"(, "width": )" +
               sides[2] + R"(, "height": )" + sides[3] + "}}";
    }

    std::optional<SwayWorkspaceList> list;
    int changeCount = 0;
    Subscription changes;
};

TEST_F(SwayWorkspaceListTest, knowsTheWorkspacesOnceSwayAnswered) {
    sway.answers[kWorkspaces] = "[" + one(4, "A", true) + "]";
    list.emplace(ipc);
    EXPECT_TRUE(list->all().empty());
    settle();
    ASSERT_EQ(list->all().size(), 1U);
    EXPECT_EQ(list->all()[0].id, 4U);
}

TEST_F(SwayWorkspaceListTest, followsWhatHappensToWorkspaces) {
    open("[" + one(4, "A", true) + "]");
    sway.answers[kWorkspaces] = "[" + one(4, "A", false) + "," + one(5, "A", true) + "]";
    happens(kWorkspaceEvent, "init");
    EXPECT_EQ(list->all().size(), 2U);
    EXPECT_EQ(changeCount, 2);
    happens(kWorkspaceEvent, "focus");
    EXPECT_EQ(changeCount, 2) << "nothing is another";
}

TEST_F(SwayWorkspaceListTest, aListThatCouldNotBeReadChangesNothing) {
    open("[" + one(4, "A", true) + "]");
    sway.answers[kWorkspaces] = "?";
    happens(kWorkspaceEvent, "focus");
    EXPECT_EQ(list->all().size(), 1U);
    EXPECT_EQ(changeCount, 1);
}

TEST_F(SwayWorkspaceListTest, manyEventsAreOneQuestionMore) {
    open("[]");
    const auto before = sway.count(kWorkspaces);
    for (int i = 0; i < 50; ++i) {
        sway.sendEvent(kWorkspaceEvent, R"({"change": "focus", "current": {}})");
    }
    settle();
    settle();
    EXPECT_GE(sway.count(kWorkspaces), before + 1);
    EXPECT_LE(sway.count(kWorkspaces), before + 10);
}

TEST_F(SwayWorkspaceListTest, aTitleIsNoReasonToAsk) {
    open("[]");
    const auto before = sway.count(kWorkspaces);
    happens(kWindowEvent, "title");
    EXPECT_EQ(sway.count(kWorkspaces), before);
    happens(kWindowEvent, "new");
    EXPECT_EQ(sway.count(kWorkspaces), before + 1);
}

TEST_F(SwayWorkspaceListTest, asksAnewAfterSwayHungUpInTheMiddleOfAnAnswer) {
    open("[" + one(4, "A", true) + "]");
    sway.isMute = true;
    sway.sendEvent(kWorkspaceEvent, R"({"change": "focus", "current": {}})");
    ASSERT_TRUE(waitUntil([&] { return sway.count(kWorkspaces) == 2; }));
    sway.hangUp();
    ASSERT_TRUE(waitUntil([&] { return !ipc.isConnected(); }));
    EXPECT_EQ(list->all().size(), 1U);
    sway.isMute = false;
    sway.answers[kWorkspaces] = "[]";
    runLoop.advance(1);
    EXPECT_TRUE(waitUntil([&] { return list->all().empty(); }));
}

TEST_F(SwayWorkspaceListTest, eachOutputHasWorkspacesOfItsOwn) {
    open("[" + one(4, "A", false) + "," + one(9, "B", true) + "," + one(5, "A", true) + "]");
    int desktopChanges = 0;
    SwayVirtualDesktops desktops(*list, [](const QString &output) { return u"ID-"_s + output; });
    const Subscription told = desktops.subscribe([&] { ++desktopChanges; });
    const std::vector<ManagedDisplay> expected{
        {.identifier = u"ID-A"_s,
         .currentSpace = 5,
         .spaces = {{.id = 4, .name = u"4"_s}, {.id = 5, .name = u"5"_s}}},
        {.identifier = u"ID-B"_s, .currentSpace = 9, .spaces = {{.id = 9, .name = u"9"_s}}}};
    EXPECT_EQ(desktops.managedDisplays(), expected);
    sway.answers[kWorkspaces] = "[" + one(4, "A", false) + "]";
    happens(kWorkspaceEvent, "focus");
    EXPECT_EQ(desktopChanges, 1);
    EXPECT_EQ(desktops.managedDisplays().at(0).currentSpace, std::nullopt);
}

TEST_F(SwayWorkspaceListTest, barsLeaveTheAreaOfTheWorkspaceThatAnOutputShows) {
    open("[" + one(4, "A", false, "[0,0,1280,720]") + "," + one(5, "A", true, "[0,23,1280,697]") +
         "," + one(6, "B", true, "[1280,0,1024,740]") + "," + one(7, "C", true) + "]");
    SwayInsets insets(ipc, *list);
    EXPECT_EQ(insets.usableArea(u"A"_s, {}), QRectF(0, 23, 1280, 697));
    EXPECT_EQ(insets.usableArea(u"B"_s, {}), QRectF(1280, 0, 1024, 740));
    EXPECT_EQ(insets.usableArea(u"C"_s, {}), std::nullopt) << "not laid out yet";
    EXPECT_EQ(insets.usableArea(u"D"_s, {}), std::nullopt);
}

TEST_F(SwayWorkspaceListTest, barsThatComeLateLieBelowInTheVersionsThatDrawSo) {
    sway.answers[kVersion] = R"({"major": 1, "minor": 7, "patch": 0})";
    open("[]");
    const SwayInsets insets(ipc, *list);
    EXPECT_FALSE(insets.laterLieBelow()) << "not known yet";
    settle();
    EXPECT_TRUE(insets.laterLieBelow());
    sway.answers[kVersion] = R"({"major": 1, "minor": 10, "patch": 1})";
    sway.hangUp();
    ASSERT_TRUE(waitUntil([&] { return !ipc.isConnected(); }));
    runLoop.advance(1);
    settle();
    EXPECT_FALSE(insets.laterLieBelow()) << "another one was started";
}

} // namespace zeph
