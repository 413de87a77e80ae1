// SPDX-License-Identifier: MIT
#include "adapters/login/PortalLoginItem.h"

#include "adapters/login/BackgroundRequest.h"
#include "adapters/login/FakePortal.h"
#include "support/Environment.h"
#include "support/FakeUserDefaults.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class PortalLoginItemTest : public testing::Test {
protected:
    void set(bool enabled) {
        item->setEnabled(enabled, [this](const std::optional<QString> &error) {
            answers << error.value_or(u"done"_s);
        });
    }
    /// Asks, waits for the question, and responds.
    void setAnd(bool enabled, uint response, bool autostart) {
        const std::size_t question = portal.options.size();
        set(enabled);
        ASSERT_TRUE(eventually([&] { return portal.options.size() > question; }));
        portal.respond(question, response, {{u"background"_s, true}, {u"autostart"_s, autostart}});
    }
    bool answered(const QStringList &wanted) {
        return eventually([&] { return answers == wanted; });
    }

    PrivateBus bus;
    FakePortal portal{bus.address()};
    BusConnection client{bus.address()};
    FakeUserDefaults defaults;
    std::unique_ptr<PortalLoginItem> item =
        std::make_unique<PortalLoginItem>(client.bus(), defaults);
    QStringList answers;
};

} // namespace

TEST_F(PortalLoginItemTest, asksThePortalAndKeepsItsAnswer) {
    portal.appear();
    EXPECT_FALSE(item->isEnabled());
    setAnd(true, 0, true);
    ASSERT_TRUE(answered({u"done"_s}));
    EXPECT_EQ(portal.options.at(0).value(u"autostart"_s), true);
    EXPECT_FALSE(portal.options.at(0).value(u"reason"_s).toString().isEmpty());
    EXPECT_TRUE(item->isEnabled());
    EXPECT_TRUE(PortalLoginItem(client.bus(), defaults).isEnabled());
    setAnd(false, 0, false);
    ASSERT_TRUE(answered({u"done"_s, u"done"_s}));
    EXPECT_EQ(portal.options.at(1).value(u"autostart"_s), false);
    EXPECT_FALSE(item->isEnabled());
}

TEST_F(PortalLoginItemTest, isNotEnabledBeforeThePortalResponds) {
    portal.appear();
    set(true);
    ASSERT_TRUE(eventually([&] { return portal.options.size() == 1; }));
    EXPECT_TRUE(answers.isEmpty());
    EXPECT_FALSE(item->isEnabled());
}

TEST_F(PortalLoginItemTest, tellsARefusalAndADismissedQuestion) {
    portal.appear();
    setAnd(true, 0, false);
    ASSERT_TRUE(answered({u"the desktop refused"_s}));
    setAnd(true, 2, true);
    ASSERT_TRUE(answered({u"the desktop refused"_s, u"the desktop refused"_s}));
    answers.clear();
    setAnd(true, 1, true);
    ASSERT_TRUE(answered({u"the question was dismissed"_s}));
    EXPECT_FALSE(item->isEnabled());
    EXPECT_EQ(defaults.writes, 0);
}

TEST_F(PortalLoginItemTest, followsTheHandleOfAnOldPortal) {
    portal.keepsOldHandles = true;
    portal.appear();
    set(true);
    // The response comes after the call was answered and its handle is followed.
    ASSERT_TRUE(eventually([&] {
        if (!portal.handles.empty()) {
            portal.respond(0, 0, {{u"autostart"_s, true}});
        }
        return !answers.isEmpty();
    }));
    EXPECT_EQ(answers, QStringList{u"done"_s});
}

TEST_F(PortalLoginItemTest, hearsAResponseThatComesBeforeTheCallIsAnswered) {
    portal.isEager = true;
    portal.appear();
    set(true);
    EXPECT_TRUE(answered({u"done"_s}));
}

TEST_F(PortalLoginItemTest, tellsThatThePortalCantBeAsked) {
    set(true);
    ASSERT_TRUE(eventually([&] { return answers.size() == 1; }));
    EXPECT_TRUE(answers.first().startsWith(u"the desktop can't be asked"_s));
    portal.refuses = true;
    portal.appear();
    set(true);
    ASSERT_TRUE(eventually([&] { return answers.size() == 2; }));
    EXPECT_EQ(answers.last(), u"the desktop can't be asked: no"_s);
}

TEST_F(PortalLoginItemTest, tellsThatThePortalWentAway) {
    portal.appear();
    set(true);
    ASSERT_TRUE(eventually([&] { return portal.options.size() == 1; }));
    portal.vanish();
    EXPECT_TRUE(answered({u"the desktop went away before it answered"_s}));
}

TEST_F(PortalLoginItemTest, tellsThatThereIsNoBus) {
    bus.stop();
    BusConnection nowhere(bus.address());
    PortalLoginItem without(nowhere.bus(), defaults);
    without.setEnabled(true, [this](const auto &error) { answers << error.value_or(u"done"_s); });
    EXPECT_TRUE(answered({u"there is no session bus"_s}));
}

TEST_F(PortalLoginItemTest, answersEachOfSeveralQuestions) {
    portal.appear();
    set(true);
    set(false);
    ASSERT_TRUE(eventually([&] { return portal.options.size() == 2; }));
    portal.respond(1, 0, {{u"autostart"_s, false}});
    portal.respond(0, 1, {});
    EXPECT_TRUE(answered({u"done"_s, u"the question was dismissed"_s}));
    EXPECT_FALSE(item->isEnabled());
}

TEST_F(PortalLoginItemTest, mayBeAskedAgainWithinTheAnswer) {
    portal.appear();
    item->setEnabled(true, [this](const std::optional<QString> &) { set(true); });
    ASSERT_TRUE(eventually([&] { return portal.options.size() == 1; }));
    portal.respond(0, 1, {});
    ASSERT_TRUE(eventually([&] { return portal.options.size() == 2; }));
    portal.respond(1, 0, {{u"autostart"_s, true}});
    EXPECT_TRUE(answered({u"done"_s}));
}

TEST_F(PortalLoginItemTest, mayEndWhileAsked) {
    portal.appear();
    set(true);
    ASSERT_TRUE(eventually([&] { return portal.options.size() == 1; }));
    item.reset();
    portal.respond(0, 0, {{u"autostart"_s, true}});
    EXPECT_FALSE(eventually([&] { return !answers.isEmpty(); }, 100));
}

TEST(Sandbox, isFlatpaksByItsFile) {
    QTemporaryDir root;
    const ScopedVariable snap("SNAP", std::nullopt);
    EXPECT_FALSE(runsInSandbox(u"/app/bin/tavi"_s, root.path()));
    QFile file(root.filePath(u".flatpak-info"_s));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    EXPECT_TRUE(runsInSandbox(u"/app/bin/tavi"_s, root.path()));
}

TEST(Sandbox, isSnapsForAProgramOfThatSnapAlone) {
    QTemporaryDir root;
    const ScopedVariable snap("SNAP", "/snap/tavi/7");
    EXPECT_TRUE(runsInSandbox(u"/snap/tavi/7/bin/tavi"_s, root.path()));
    EXPECT_FALSE(runsInSandbox(u"/snap/tavi/77/bin/tavi"_s, root.path()));
    EXPECT_FALSE(runsInSandbox(u"/usr/bin/tavi"_s, root.path()));
}

} // namespace zeph
