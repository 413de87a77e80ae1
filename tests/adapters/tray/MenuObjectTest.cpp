// SPDX-License-Identifier: MIT
#include "adapters/tray/MenuObject.h"

#include "FakeTrayHost.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using menuwire::Layout;
using menuwire::Line;

/// Calls the menu over a bus, as a panel does.
class MenuObjectTest : public testing::Test {
protected:
    MenuObjectTest() { program.bus().registerVirtualObject(u"/MenuBar"_s, menu.get()); }

    QDBusMessage ask(const QString &method, const QVariantList &arguments) {
        QDBusMessage message = QDBusMessage::createMethodCall(
            program.bus().baseService(), u"/MenuBar"_s, u"com.canonical.dbusmenu"_s, method);
        message.setArguments(arguments);
        QDBusPendingCallWatcher watcher(panel.bus().asyncCall(message, 10'000));
        EXPECT_TRUE(eventually([&] { return watcher.isFinished(); }));
        return watcher.reply();
    }

    Layout layout(int parent, int depth, const QStringList &names = {}) {
        const QDBusMessage answer = ask(u"GetLayout"_s, {parent, depth, names});
        EXPECT_EQ(answer.signature(), u"u(ia{sv}av)"_s);
        return qdbus_cast<Layout>(answer.arguments().value(1));
    }

    QDBusMessage click(int line) {
        const QVariant data = QVariant::fromValue(QDBusVariant(0));
        return ask(u"Event"_s, {line, u"clicked"_s, data, 0U});
    }

    PrivateBus bus;
    BusConnection program{bus.address()};
    BusConnection panel{bus.address()};
    TrayExample example;
    std::unique_ptr<MenuObject> menu =
        std::make_unique<MenuObject>(example.facts.menu, TrayKeyNames::characters);
};

TEST_F(MenuObjectTest, tellsItsLinesInOrder) {
    const Layout whole = layout(0, -1);
    EXPECT_EQ(whole.id, 0);
    EXPECT_EQ(whole.properties[u"children-display"_s], u"submenu"_s);
    ASSERT_EQ(whole.children.size(), 4);
    EXPECT_EQ(whole.children.at(0).properties[u"label"_s], u"Tavi"_s);
    EXPECT_EQ(whole.children.at(1).properties[u"type"_s], u"separator"_s);
    EXPECT_EQ(whole.children.at(2).properties[u"label"_s], u"Settings & Permissions…"_s);
    EXPECT_EQ(whole.children.at(3).properties[u"label"_s], u"snake__case"_s)
        << "one underscore would mark a letter";
    for (int index = 0; index < 4; ++index) {
        EXPECT_EQ(whole.children.at(index).id, index + 1);
    }
}

TEST_F(MenuObjectTest, whatOnlyTellsIsDisabled) {
    const Layout whole = layout(0, -1);
    EXPECT_EQ(whole.children.at(0).properties[u"enabled"_s], false);
    EXPECT_FALSE(whole.children.at(2).properties.contains(u"enabled"_s)) << "true by default";
}

TEST_F(MenuObjectTest, tellsTheKeys) {
    const Layout whole = layout(0, -1);
    const auto keys =
        qdbus_cast<QList<QStringList>>(whole.children.at(2).properties[u"shortcut"_s]);
    EXPECT_EQ(keys, (QList<QStringList>{{u"Control"_s, u","_s}}));
    EXPECT_FALSE(whole.children.at(3).properties.contains(u"shortcut"_s));
}

TEST_F(MenuObjectTest, namesTheKeysAsThePanelReadsThem) {
    program.bus().unregisterObject(u"/MenuBar"_s);
    menu =
        std::make_unique<MenuObject>(std::vector<MenuItem>{{.text = u"Settings"_s, .key = u","_s},
                                                           {.text = u"Quit"_s, .key = u"q"_s}},
                                     TrayKeyNames::words);
    program.bus().registerVirtualObject(u"/MenuBar"_s, menu.get());
    const Layout whole = layout(0, -1);
    const auto keysOf = [&](int index) {
        return qdbus_cast<QList<QStringList>>(whole.children.at(index).properties[u"shortcut"_s]);
    };
    EXPECT_EQ(keysOf(0), (QList<QStringList>{{u"Control"_s, u"comma"_s}}));
    EXPECT_EQ(keysOf(1), (QList<QStringList>{{u"Control"_s, u"Q"_s}}));
}

TEST(TrayKeyNames, panelsOfQtDesktopsReadCharacters) {
    EXPECT_EQ(trayKeyNamesOf(u"KDE"_s), TrayKeyNames::characters);
    EXPECT_EQ(trayKeyNamesOf(u"ubuntu:lxqt"_s), TrayKeyNames::characters);
    EXPECT_EQ(trayKeyNamesOf(u"XFCE"_s), TrayKeyNames::words);
    EXPECT_EQ(trayKeyNamesOf({}), TrayKeyNames::words);
}

TEST_F(MenuObjectTest, tellsNoMoreThanItIsAskedFor) {
    EXPECT_TRUE(layout(0, 0).children.isEmpty());
    const Layout named = layout(0, 1, {u"label"_s});
    EXPECT_EQ(named.children.at(0).properties.keys(), QStringList(u"label"_s));
    EXPECT_TRUE(named.children.at(1).properties.isEmpty());
    const Layout line = layout(3, -1);
    EXPECT_EQ(line.id, 3);
    EXPECT_TRUE(line.children.isEmpty());
}

TEST_F(MenuObjectTest, tellsOfSeveralLinesAtOnce) {
    const QDBusMessage answer =
        ask(u"GetGroupProperties"_s, {QVariant::fromValue(QList<int>{3, 99}), QStringList()});
    EXPECT_EQ(answer.signature(), u"a(ia{sv})"_s);
    const auto lines = qdbus_cast<QList<Line>>(answer.arguments().value(0));
    ASSERT_EQ(lines.size(), 1) << "there is no line 99";
    EXPECT_EQ(lines.at(0).id, 3);
    const auto all = qdbus_cast<QList<Line>>(
        ask(u"GetGroupProperties"_s, {QVariant::fromValue(QList<int>()), QStringList()})
            .arguments()
            .value(0));
    EXPECT_EQ(all.size(), 5);
}

TEST_F(MenuObjectTest, tellsOneProperty) {
    const QDBusMessage answer = ask(u"GetProperty"_s, {3, u"label"_s});
    EXPECT_EQ(answer.arguments().value(0).value<QDBusVariant>().variant(),
              u"Settings & Permissions…"_s);
    EXPECT_EQ(ask(u"GetProperty"_s, {3, u"no"_s}).type(), QDBusMessage::ErrorMessage);
}

TEST_F(MenuObjectTest, aClickDoesWhatTheLineSays) {
    EXPECT_EQ(click(3).type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(example.chosen, QStringList(u"settings"_s));
}

TEST_F(MenuObjectTest, otherEventsDoNothing) {
    const QVariant data = QVariant::fromValue(QDBusVariant(0));
    for (const QString &event : {u"hovered"_s, u"opened"_s, u"closed"_s}) {
        EXPECT_EQ(ask(u"Event"_s, {3, event, data, 0U}).type(), QDBusMessage::ReplyMessage);
    }
    click(0);
    click(1);
    click(2);
    EXPECT_TRUE(example.chosen.isEmpty());
}

TEST_F(MenuObjectTest, aClickOnALineThatThereIsNotIsRefused) {
    EXPECT_EQ(click(99).type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(click(-1).type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(ask(u"GetLayout"_s, {99, -1, QStringList()}).type(), QDBusMessage::ErrorMessage);
}

TEST_F(MenuObjectTest, aGroupOfEventsTellsWhichLinesThereAreNot) {
    const QDBusVariant data(0);
    const QList<menuwire::Event> events{{99, u"clicked"_s, data, 0}, {4, u"clicked"_s, data, 0}};
    const QDBusMessage answer = ask(u"EventGroup"_s, {QVariant::fromValue(events)});
    EXPECT_EQ(qdbus_cast<QList<int>>(answer.arguments().value(0)), QList<int>{99});
    EXPECT_EQ(example.chosen, QStringList(u"snake"_s));
}

TEST_F(MenuObjectTest, neverChangesBeforeItIsShown) {
    EXPECT_EQ(ask(u"AboutToShow"_s, {0}).arguments().value(0), false);
    EXPECT_EQ(ask(u"AboutToShowGroup"_s, {QVariant::fromValue(QList<int>{0})}).signature(),
              u"aiai"_s);
}

TEST_F(MenuObjectTest, aChoiceMayEndTheMenu) {
    program.bus().unregisterObject(u"/MenuBar"_s);
    menu = std::make_unique<MenuObject>(
        std::vector<MenuItem>{{.text = u"Quit"_s,
                               .action =
                                   [this] {
                                       example.chosen.append(u"quit"_s);
                                       program.bus().unregisterObject(u"/MenuBar"_s);
                                       menu.reset();
                                   }}},
        TrayKeyNames::words);
    program.bus().registerVirtualObject(u"/MenuBar"_s, menu.get());
    EXPECT_EQ(click(1).type(), QDBusMessage::ReplyMessage) << "answered before";
    EXPECT_EQ(example.chosen, QStringList(u"quit"_s));
}

TEST_F(MenuObjectTest, saysThatItFollowsTheProtocol) {
    QDBusMessage message =
        QDBusMessage::createMethodCall(program.bus().baseService(), u"/MenuBar"_s,
                                       u"org.freedesktop.DBus.Properties"_s, u"GetAll"_s);
    message << u"com.canonical.dbusmenu"_s;
    QDBusPendingCallWatcher watcher(panel.bus().asyncCall(message, 10'000));
    ASSERT_TRUE(eventually([&] { return watcher.isFinished(); }));
    const auto properties = qdbus_cast<QVariantMap>(watcher.reply().arguments().value(0));
    EXPECT_EQ(properties[u"Version"_s], 3U);
    EXPECT_EQ(properties[u"Status"_s], u"normal"_s);
    EXPECT_EQ(properties[u"TextDirection"_s], u"ltr"_s);
}

} // namespace

} // namespace zeph
