// SPDX-License-Identifier: MIT
#include "adapters/session/kwin/KWinVirtualDesktops.h"

#include "adapters/bus/PrivateBus.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusVirtualObject>

#include <optional>

using namespace Qt::StringLiterals;

namespace zeph {

struct PlacedDesktop {
    int place = 0;
    QString identifier = {};
    QString name = {};
};

QDBusArgument &operator<<(QDBusArgument &argument, const PlacedDesktop &desktop) {
    argument.beginStructure();
    argument << desktop.place << desktop.identifier << desktop.name;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, PlacedDesktop &desktop) {
    argument.beginStructure();
    argument >> desktop.place >> desktop.identifier >> desktop.name;
    argument.endStructure();
    return argument;
}

/// KWin's manager of virtual desktops, as the test says.
class FakeDesktopManager : public QDBusVirtualObject {
public:
    explicit FakeDesktopManager(QString address) : m_address(std::move(address)) {
        qDBusRegisterMetaType<PlacedDesktop>();
        qDBusRegisterMetaType<QList<PlacedDesktop>>();
    }

    void appear() {
        m_connection = std::make_unique<BusConnection>(m_address);
        ASSERT_TRUE(m_connection->bus().registerVirtualObject(u"/VirtualDesktopManager"_s, this));
        ASSERT_TRUE(
            eventually([&] { return m_connection->bus().registerService(u"org.kde.KWin"_s); }));
    }
    void vanish() { m_connection.reset(); }

    void signal(const QString &name, const QVariantList &arguments) {
        QDBusMessage message = QDBusMessage::createSignal(
            u"/VirtualDesktopManager"_s, u"org.kde.KWin.VirtualDesktopManager"_s, name);
        message.setArguments(arguments);
        m_connection->bus().send(message);
    }

    QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection & /*bus*/) override {
        ++questions;
        if (isMute) {
            m_late = message;
            return true;
        }
        return answer(message);
    }

    /// Answers what was asked while it was mute.
    void answerLate() {
        isMute = false;
        answer(m_late);
    }

    bool answer(const QDBusMessage &message) const {
        const QVariant list = isOdd ? QVariant(u"odd"_s) : QVariant::fromValue(desktops);
        const QVariantMap properties{{u"current"_s, current}, {u"desktops"_s, list}};
        return m_connection->bus().send(refuses
                                            ? message.createErrorReply(QDBusError::Failed, u"no"_s)
                                            : message.createReply(QVariant(properties)));
    }

    QList<PlacedDesktop> desktops{{0, u"aa"_s, u"Desktop 1"_s}, {1, u"bb"_s, u"Mail"_s}};
    QString current = u"aa"_s;
    bool refuses = false;
    bool isOdd = false;
    bool isMute = false;
    int questions = 0;

private:
    QString m_address;
    std::unique_ptr<BusConnection> m_connection;
    QDBusMessage m_late;
};

class KWinVirtualDesktopsTest : public testing::Test {
protected:
    void open() {
        kwin.appear();
        desktops.emplace(ours.bus());
        changes = desktops->subscribe([this] { ++changeCount; });
        ASSERT_TRUE(eventually([&] { return changeCount == 1; }));
    }

    ManagedDisplay shared() const {
        const auto displays = desktops->managedDisplays();
        EXPECT_EQ(displays.size(), 1U);
        return displays.empty() ? ManagedDisplay() : displays[0];
    }

    QStringList names() const {
        QStringList result;
        for (const ManagedSpace &space : shared().spaces) {
            result.append(space.name);
        }
        return result;
    }

    PrivateBus bus;
    BusConnection ours{bus.address()};
    FakeDesktopManager kwin{bus.address()};
    std::optional<KWinVirtualDesktops> desktops;
    int changeCount = 0;
    Subscription changes;
};

TEST_F(KWinVirtualDesktopsTest, areSharedByAllDisplays) {
    open();
    EXPECT_EQ(names(), (QStringList{u"Desktop 1"_s, u"Mail"_s}));
    EXPECT_NE(shared().identifier, QString());
    EXPECT_EQ(shared().currentSpace, shared().spaces.at(0).id);
    EXPECT_NE(shared().spaces.at(0).id, shared().spaces.at(1).id);
    EXPECT_TRUE(shared().spaces.at(0).isRegular);
}

TEST_F(KWinVirtualDesktopsTest, theCurrentOneIsFollowed) {
    open();
    kwin.current = u"bb"_s;
    kwin.signal(u"currentChanged"_s, {u"bb"_s});
    ASSERT_TRUE(eventually([&] { return changeCount == 2; }));
    EXPECT_EQ(shared().currentSpace, shared().spaces.at(1).id);
}

TEST_F(KWinVirtualDesktopsTest, eachKeepsItsIdWhileOthersComeAndGo) {
    open();
    const quint64 mail = shared().spaces.at(1).id;
    kwin.desktops = {{0, u"cc"_s, u"New"_s}, {1, u"bb"_s, u"Post"_s}};
    kwin.signal(u"desktopCreated"_s,
                {u"cc"_s, QVariant::fromValue(PlacedDesktop{0, u"cc"_s, u"New"_s})});
    ASSERT_TRUE(eventually([&] { return changeCount == 2; }));
    EXPECT_EQ(names(), (QStringList{u"New"_s, u"Post"_s}));
    EXPECT_EQ(shared().spaces.at(1).id, mail);
    EXPECT_NE(shared().spaces.at(0).id, mail);
    EXPECT_EQ(shared().currentSpace, std::nullopt);
    kwin.desktops.removeFirst();
    kwin.signal(u"desktopRemoved"_s, {u"cc"_s});
    ASSERT_TRUE(eventually([&] { return changeCount == 3; }));
    EXPECT_EQ(names(), QStringList{u"Post"_s});
}

TEST_F(KWinVirtualDesktopsTest, aNameIsFollowed) {
    open();
    kwin.desktops[0].name = u"Home"_s;
    kwin.signal(u"desktopDataChanged"_s, {u"aa"_s, QVariant::fromValue(kwin.desktops[0])});
    EXPECT_TRUE(eventually([&] { return names().constFirst() == u"Home"_s; }));
}

TEST_F(KWinVirtualDesktopsTest, aChangeWhileTheAnswerIsUnderWayIsNotMissed) {
    open();
    kwin.isMute = true;
    kwin.signal(u"currentChanged"_s, {u"aa"_s});
    ASSERT_TRUE(eventually([&] { return kwin.questions == 2; }));
    kwin.signal(u"currentChanged"_s, {u"bb"_s});
    kwin.answerLate(); // as it was when it was asked
    kwin.current = u"bb"_s;
    EXPECT_TRUE(
        eventually([&] { return shared().currentSpace == shared().spaces.at(1).id; }, 3000));
}

TEST_F(KWinVirtualDesktopsTest, whatCouldNotBeReadChangesNothing) {
    open();
    kwin.refuses = true;
    kwin.signal(u"currentChanged"_s, {u"bb"_s});
    ASSERT_TRUE(eventually([&] { return kwin.questions == 2; }));
    eventually([&] { return changeCount > 1; }, 100);
    EXPECT_EQ(names().size(), 2);
}

TEST_F(KWinVirtualDesktopsTest, aListOfAnotherFormIsNone) {
    kwin.isOdd = true;
    kwin.appear();
    desktops.emplace(ours.bus());
    ASSERT_TRUE(eventually([&] { return kwin.questions == 1; }));
    eventually([&] { return !desktops->managedDisplays().empty(); }, 100);
    EXPECT_TRUE(desktops->managedDisplays().empty());
}

TEST_F(KWinVirtualDesktopsTest, thereAreNoneWithoutKWin) {
    open();
    kwin.vanish();
    EXPECT_TRUE(eventually([&] { return desktops->managedDisplays().empty(); }));
    kwin.appear();
    EXPECT_TRUE(eventually([&] { return !desktops->managedDisplays().empty(); }));
}

} // namespace zeph
