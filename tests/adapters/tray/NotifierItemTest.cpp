// SPDX-License-Identifier: MIT
#include "adapters/tray/NotifierItem.h"

#include "FakeTrayHost.h"
#include "adapters/tray/NotifierWire.h"

#include <QDBusObjectPath>

#include <memory>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using Host = NotifierItem::Host;

const QString notifierPath = u"/StatusNotifierItem"_s;
const QString notifierInterface = u"org.kde.StatusNotifierItem"_s;

class NotifierItemTest : public testing::Test {
protected:
    void make() {
        item = std::make_unique<NotifierItem>(program.bus(), example.facts, example.tools,
                                              [this] { ++changes; });
    }

    void makeWithHost() {
        host.appear();
        make();
        ASSERT_TRUE(eventually([this] { return item->host() == Host::present; }));
        ASSERT_EQ(host.registered().size(), 1);
    }

    PrivateBus bus;
    BusConnection program{bus.address()};
    FakeTrayHost host{bus.address()};
    TrayExample example;
    int changes = 0;
    std::unique_ptr<NotifierItem> item;
};

TEST_F(NotifierItemTest, registersWithTheWatcherThatIsThere) {
    makeWithHost();
    EXPECT_EQ(host.registered().constFirst(), program.bus().baseService());
    EXPECT_EQ(changes, 1);
}

TEST_F(NotifierItemTest, registersWithAWatcherThatComesLaterAndWithTheNextOne) {
    make();
    EXPECT_EQ(item->host(), Host::unknown) << "it does not wait for the bus";
    EXPECT_TRUE(eventually([this] { return item->host() == Host::absent; }));
    host.appear();
    EXPECT_TRUE(eventually([this] { return item->host() == Host::present; }));
    EXPECT_EQ(host.registered().size(), 1);
    host.disappear();
    EXPECT_TRUE(eventually([this] { return item->host() == Host::absent; }));
    host.appear();
    EXPECT_TRUE(eventually([this] { return item->host() == Host::present; }));
    EXPECT_EQ(host.registered().size(), 2);
    EXPECT_EQ(changes, 4);
}

TEST_F(NotifierItemTest, aWatcherWithoutAHostShowsNothing) {
    host.appear(false);
    make();
    EXPECT_TRUE(eventually([this] { return item->host() == Host::absent; }));
    EXPECT_EQ(host.registered().size(), 1) << "it is there for the host that comes";
    host.setHost(true);
    EXPECT_TRUE(eventually([this] { return item->host() == Host::present; }));
    host.setHost(false);
    EXPECT_TRUE(eventually([this] { return item->host() == Host::absent; }));
}

TEST_F(NotifierItemTest, aWatcherThatTellsNothingOfItsHostIsTakenForOneWithAHost) {
    host.refuseProperties();
    makeWithHost();
}

TEST_F(NotifierItemTest, thereIsNoHostWithoutABus) {
    bus.stop();
    BusConnection nowhere(bus.address());
    const NotifierItem lonely(nowhere.bus(), example.facts, example.tools, [] {});
    EXPECT_EQ(lonely.host(), Host::absent);
}

TEST_F(NotifierItemTest, thereIsNoHostOnceTheBusHasGone) {
    makeWithHost();
    bus.stop();
    EXPECT_TRUE(eventually([this] { return item->host() == Host::absent; }));
}

TEST_F(NotifierItemTest, tellsWhatItIs) {
    makeWithHost();
    const QVariantMap facts = host.properties(notifierPath, notifierInterface);
    EXPECT_EQ(facts[u"Id"_s], u"com.tavi.Tavi"_s);
    EXPECT_EQ(facts[u"Title"_s], u"Tavi"_s);
    EXPECT_EQ(facts[u"IconAccessibleDesc"_s], u"Tavi"_s);
    EXPECT_EQ(facts[u"Category"_s], u"ApplicationStatus"_s);
    EXPECT_EQ(facts[u"Status"_s], u"Active"_s);
    EXPECT_EQ(facts[u"ItemIsMenu"_s], true);
    EXPECT_EQ(facts[u"Menu"_s].value<QDBusObjectPath>().path(), u"/MenuBar"_s);
    EXPECT_EQ(facts[u"IconName"_s], QString());
    EXPECT_EQ(qdbus_cast<notifierwire::ToolTip>(facts[u"ToolTip"_s]).title, u"Tavi"_s);
}

TEST_F(NotifierItemTest, namesTheIconOfTheThemeWhereThereIsOne) {
    example.tools.iconName = u"com.tavi.Tavi-symbolic"_s;
    makeWithHost();
    EXPECT_EQ(host.properties(notifierPath, notifierInterface)[u"IconName"_s],
              u"com.tavi.Tavi-symbolic"_s);
}

TEST_F(NotifierItemTest, itsPicturesComeInSeveralSizesAndReadOnAnyGround) {
    makeWithHost();
    const QVariantMap facts = host.properties(notifierPath, notifierInterface);
    const auto pictures = qdbus_cast<QList<notifierwire::Pixmap>>(facts[u"IconPixmap"_s]);
    QList<int> sizes;
    for (const notifierwire::Pixmap &picture : pictures) {
        sizes.append(picture.width);
        EXPECT_EQ(picture.height, picture.width);
        ASSERT_EQ(picture.bytes.size(), picture.width * picture.height * 4);
        const auto centre =
            picture.bytes.mid((picture.height / 2 * picture.width + picture.width / 2) * 4, 4);
        EXPECT_EQ(centre, QByteArray::fromHex("fff3f0ec")) << "light, the alpha first";
        EXPECT_EQ(picture.bytes.left(4), QByteArray::fromHex("ff101126")) << "a dark seam";
    }
    EXPECT_EQ(sizes, (QList<int>{16, 22, 24, 32, 48}));
    EXPECT_EQ(example.drawn.constFirst(), u"some.symbol"_s);
}

TEST_F(NotifierItemTest, opensItsOwnMenuForHostsThatCallForIt) {
    makeWithHost();
    for (const QString &method : {u"Activate"_s, u"ContextMenu"_s}) {
        EXPECT_EQ(host.ask(notifierPath, notifierInterface, method, {30, 40}).type(),
                  QDBusMessage::ReplyMessage);
    }
    EXPECT_EQ(example.opened, (QList<QPoint>{{30, 40}, {30, 40}}));
    EXPECT_EQ(host.ask(notifierPath, notifierInterface, u"SecondaryActivate"_s, {1, 2}).type(),
              QDBusMessage::ReplyMessage);
    EXPECT_EQ(host.ask(notifierPath, notifierInterface, u"Scroll"_s, {1, u"vertical"_s}).type(),
              QDBusMessage::ReplyMessage);
    EXPECT_EQ(example.opened.size(), 2);
}

TEST_F(NotifierItemTest, refusesOtherCalls) {
    makeWithHost();
    const QString properties = u"org.freedesktop.DBus.Properties"_s;
    EXPECT_EQ(host.ask(notifierPath, notifierInterface, u"Activate"_s, {}).type(),
              QDBusMessage::ErrorMessage);
    EXPECT_EQ(host.ask(notifierPath, u"org.example.Other"_s, u"Activate"_s, {1, 2}).type(),
              QDBusMessage::ErrorMessage);
    EXPECT_EQ(
        host.ask(notifierPath, properties, u"Get"_s, {notifierInterface, u"No"_s}).errorName(),
        u"org.freedesktop.DBus.Error.UnknownProperty"_s);
    EXPECT_EQ(host.ask(notifierPath, properties, u"GetAll"_s, {u"org.example.Other"_s}).errorName(),
              u"org.freedesktop.DBus.Error.UnknownInterface"_s);
    const QVariant value = QVariant::fromValue(QDBusVariant(u"x"_s));
    EXPECT_EQ(host.ask(notifierPath, properties, u"Set"_s, {notifierInterface, u"Id"_s, value})
                  .errorName(),
              u"org.freedesktop.DBus.Error.PropertyReadOnly"_s);
}

TEST_F(NotifierItemTest, answersForOneProperty) {
    makeWithHost();
    const QDBusMessage answer = host.ask(notifierPath, u"org.freedesktop.DBus.Properties"_s,
                                         u"Get"_s, {notifierInterface, u"Id"_s});
    EXPECT_EQ(answer.signature(), u"v"_s);
    EXPECT_EQ(answer.arguments().constFirst().value<QDBusVariant>().variant(), u"com.tavi.Tavi"_s);
}

TEST_F(NotifierItemTest, leavesTheBusAtItsEnd) {
    makeWithHost();
    item.reset();
    EXPECT_EQ(host.ask(notifierPath, notifierInterface, u"Scroll"_s, {1, u"vertical"_s}).type(),
              QDBusMessage::ErrorMessage);
}

TEST_F(NotifierItemTest, describesItself) {
    makeWithHost();
    for (const auto &[path, method] : {std::pair{notifierPath, u"\"ContextMenu\""_s},
                                       std::pair{u"/MenuBar"_s, u"\"GetLayout\""_s}}) {
        const QDBusMessage answer =
            host.ask(path, u"org.freedesktop.DBus.Introspectable"_s, u"Introspect"_s, {});
        EXPECT_TRUE(answer.arguments().value(0).toString().contains(method));
    }
}

} // namespace

} // namespace zeph
