// SPDX-License-Identifier: MIT
#include "adapters/bus/SingleInstance.h"

#include "adapters/bus/PrivateBus.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVirtualObject>
#include <QElapsedTimer>
#include <QProcessEnvironment>
#include <QTimer>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

using Kind = ApplicationRequest::Kind;

const QString service = u"com.tavi.Tavi"_s;
const QString path = u"/com/tavi/Tavi"_s;

/// Takes every call and never answers.
class MuteObject : public QDBusVirtualObject {
public:
    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &, const QDBusConnection &) override { return true; }
};

class SingleInstanceOnABus : public testing::Test {
protected:
    std::unique_ptr<SingleInstance> start(BusConnection &connection) {
        return std::make_unique<SingleInstance>(
            connection.bus(),
            [this](const ApplicationRequest &request) { requests.push_back(request); });
    }

    static InstanceRole claim(SingleInstance &instance) {
        std::optional<InstanceRole> role;
        instance.claim([&](InstanceRole settled) { role = settled; });
        EXPECT_FALSE(role) << "it does not wait";
        EXPECT_TRUE(eventually([&] { return role.has_value(); }));
        return role.value_or(InstanceRole::noBus);
    }

    /// The answer to a call of the desktop's; an error message when it is refused.
    QDBusMessage call(const QString &method, const QVariantList &arguments,
                      const QString &interface = u"org.freedesktop.Application"_s) {
        QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
        message.setArguments(arguments);
        // This thread serves the call as well, so it must not wait for it.
        QDBusPendingCallWatcher watcher(desktop.bus().asyncCall(message));
        EXPECT_TRUE(eventually([&] { return watcher.isFinished(); }));
        return watcher.reply();
    }

    PrivateBus bus;
    BusConnection first{bus.address()};
    BusConnection second{bus.address()};
    BusConnection desktop{bus.address()};
    std::vector<ApplicationRequest> requests;
};

TEST_F(SingleInstanceOnABus, isPrimaryAndOwnsTheNameUntilItsEnd) {
    auto instance = start(first);
    EXPECT_EQ(claim(*instance), InstanceRole::primary);
    EXPECT_EQ(desktop.bus().interface()->serviceOwner(service).value(), first.bus().baseService());
    EXPECT_EQ(claim(*instance), InstanceRole::primary) << "asked twice";
    instance.reset();
    EXPECT_TRUE(eventually(
        [&] { return !desktop.bus().interface()->isServiceRegistered(service).value(); }));
}

TEST_F(SingleInstanceOnABus, isSecondaryWhileAnotherOwnsTheNameAndActivatesIt) {
    const auto owner = start(first);
    ASSERT_EQ(claim(*owner), InstanceRole::primary);
    const auto other = start(second);
    ASSERT_EQ(claim(*other), InstanceRole::secondary);
    std::optional<bool> answered;
    other->activateOwner([&](bool isAnswered) { answered = isAnswered; });
    EXPECT_TRUE(eventually([&] { return answered.has_value(); }));
    EXPECT_EQ(answered, true);
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests.at(0).kind, Kind::activate);
}

TEST_F(SingleInstanceOnABus, isPrimaryOnceAnotherProcessThatOwnedTheNameIsKilled) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, bus.address());
    QProcess owner;
    endWithThisProcess(owner);
    owner.setProcessEnvironment(environment);
    owner.start(u"/usr/bin/python3"_s, {u"-m"_s, u"dbusmock"_s, u"--session"_s, service, path,
                                        u"org.freedesktop.Application"_s});
    const auto isOwned = [&] {
        return desktop.bus().interface()->isServiceRegistered(service).value();
    };
    ASSERT_TRUE(eventually(isOwned));
    const auto instance = start(first);
    ASSERT_EQ(claim(*instance), InstanceRole::secondary);
    owner.kill();
    ASSERT_TRUE(owner.waitForFinished(10'000));
    EXPECT_TRUE(eventually([&] { return !isOwned(); }));
    EXPECT_EQ(claim(*instance), InstanceRole::primary);
}

TEST_F(SingleInstanceOnABus, givesAMuteOwnerTwoSeconds) {
    MuteObject mute;
    ASSERT_TRUE(desktop.bus().registerVirtualObject(path, &mute));
    ASSERT_TRUE(desktop.bus().registerService(service));
    const auto instance = start(first);
    ASSERT_EQ(claim(*instance), InstanceRole::secondary);
    std::optional<bool> answered;
    instance->activateOwner([&](bool isAnswered) { answered = isAnswered; });
    QElapsedTimer taken;
    taken.start();
    EXPECT_FALSE(answered) << "it does not wait";
    EXPECT_TRUE(eventually([&] { return answered.has_value(); }));
    EXPECT_EQ(answered, false);
    EXPECT_GE(taken.elapsed(), 1500) << "the bus library's timers may be early";
}

TEST_F(SingleInstanceOnABus, tellsThatTheOwnerWentAwayMeanwhile) {
    const auto instance = start(first);
    std::optional<bool> answered;
    instance->activateOwner([&](bool isAnswered) { answered = isAnswered; });
    EXPECT_TRUE(eventually([&] { return answered.has_value(); }));
    EXPECT_EQ(answered, false);
}

TEST_F(SingleInstanceOnABus, leavesAnOwnerThatAnswersInItsPlace) {
    const auto owner = start(first);
    ASSERT_EQ(claim(*owner), InstanceRole::primary);
    const auto other = start(second);
    ASSERT_EQ(claim(*other), InstanceRole::secondary);
    std::optional<InstanceRole> role;
    other->activateOrSucceedOwner([&](InstanceRole settled) { role = settled; });
    EXPECT_TRUE(eventually([&] { return role.has_value(); }));
    EXPECT_EQ(role, InstanceRole::secondary);
    EXPECT_EQ(requests.size(), 1U);
}

TEST_F(SingleInstanceOnABus, takesThePlaceOfAnOwnerThatIsEnding) {
    // Its object is gone already, its name not yet.
    ASSERT_TRUE(desktop.bus().registerService(service));
    const auto instance = start(first);
    ASSERT_EQ(claim(*instance), InstanceRole::secondary);
    std::optional<InstanceRole> role;
    instance->activateOrSucceedOwner([&](InstanceRole settled) { role = settled; });
    QTimer::singleShot(300, [&] { desktop.bus().unregisterService(service); });
    EXPECT_TRUE(eventually([&] { return role.has_value(); }));
    EXPECT_EQ(role, InstanceRole::primary);
    EXPECT_EQ(desktop.bus().interface()->serviceOwner(service).value(), first.bus().baseService());
}

TEST_F(SingleInstanceOnABus, givesUpOnAnOwnerThatNeitherAnswersNorEnds) {
    ASSERT_TRUE(desktop.bus().registerService(service));
    const auto instance = start(first);
    ASSERT_EQ(claim(*instance), InstanceRole::secondary);
    std::optional<InstanceRole> role;
    instance->activateOrSucceedOwner([&](InstanceRole settled) { role = settled; });
    EXPECT_TRUE(eventually([&] { return role.has_value(); }));
    EXPECT_EQ(role, InstanceRole::secondary);
}

TEST_F(SingleInstanceOnABus, runsOnWithoutABus) {
    bus.stop();
    BusConnection nowhere(bus.address());
    const auto instance = start(nowhere);
    EXPECT_EQ(claim(*instance), InstanceRole::noBus);
    EXPECT_EQ(claim(*instance), InstanceRole::noBus);
    std::optional<bool> answered;
    instance->activateOwner([&](bool isAnswered) { answered = isAnswered; });
    EXPECT_FALSE(answered) << "in a later turn";
    EXPECT_TRUE(eventually([&] { return answered.has_value(); }));
    EXPECT_EQ(answered, false);
}

TEST_F(SingleInstanceOnABus, waitsForNoBusThatHangs) {
    const auto owner = start(first);
    ASSERT_EQ(claim(*owner), InstanceRole::primary);
    const auto other = start(second);
    bus.freeze();
    QElapsedTimer taken;
    taken.start();
    std::optional<InstanceRole> role;
    other->claim([&](InstanceRole settled) { role = settled; });
    EXPECT_LT(taken.elapsed(), 1000) << "a waiting call would take 25 s";
    bus.thaw();
    EXPECT_TRUE(eventually([&] { return role.has_value(); }));
    EXPECT_EQ(role, InstanceRole::secondary) << "it is settled when the bus goes on";
}

TEST_F(SingleInstanceOnABus, endsAtOnceOnABusThatHangs) {
    auto owner = start(first);
    ASSERT_EQ(claim(*owner), InstanceRole::primary);
    bus.freeze();
    QElapsedTimer taken;
    taken.start();
    owner.reset();
    EXPECT_LT(taken.elapsed(), 1000) << "a waiting call would take 25 s";
    bus.thaw();
}

TEST_F(SingleInstanceOnABus, handsOverWhatTheDesktopAsks) {
    const auto instance = start(first);
    ASSERT_EQ(claim(*instance), InstanceRole::primary);
    const QVariantMap platform{{u"activation-token"_s, u"abc"_s}};
    EXPECT_EQ(call(u"Activate"_s, {platform}).type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(call(u"Open"_s, {QStringList{u"file:///a"_s, u"file:///b"_s}, platform}).type(),
              QDBusMessage::ReplyMessage);
    EXPECT_EQ(
        call(u"ActivateAction"_s, {u"settings"_s, QVariantList{u"general"_s}, platform}).type(),
        QDBusMessage::ReplyMessage);
    ASSERT_EQ(requests.size(), 3U);
    EXPECT_EQ(requests.at(0).kind, Kind::activate);
    EXPECT_EQ(requests.at(0).platformData, platform);
    EXPECT_EQ(requests.at(1).kind, Kind::open);
    EXPECT_EQ(requests.at(1).uris, (QStringList{u"file:///a"_s, u"file:///b"_s}));
    EXPECT_EQ(requests.at(2).kind, Kind::action);
    EXPECT_EQ(requests.at(2).action, u"settings"_s);
    EXPECT_EQ(requests.at(2).parameters, QVariantList{u"general"_s});
    EXPECT_EQ(requests.at(2).platformData, platform);
}

TEST_F(SingleInstanceOnABus, refusesOtherMethodsAndArguments) {
    const auto instance = start(first);
    ASSERT_EQ(claim(*instance), InstanceRole::primary);
    EXPECT_EQ(call(u"Quit"_s, {QVariantMap()}).type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(call(u"Activate"_s, {}).type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(call(u"Open"_s, {u"file:///a"_s, QVariantMap()}).type(), QDBusMessage::ErrorMessage);
    EXPECT_EQ(call(u"Activate"_s, {QVariantMap()}, u"org.example.Other"_s).type(),
              QDBusMessage::ErrorMessage);
    EXPECT_TRUE(requests.empty());
}

TEST_F(SingleInstanceOnABus, describesItsInterface) {
    const auto instance = start(first);
    ASSERT_EQ(claim(*instance), InstanceRole::primary);
    const QDBusMessage answer = call(u"Introspect"_s, {}, u"org.freedesktop.DBus.Introspectable"_s);
    ASSERT_EQ(answer.type(), QDBusMessage::ReplyMessage);
    const QString text = answer.arguments().constFirst().toString();
    for (const QString &method : {u"\"Activate\""_s, u"\"Open\""_s, u"\"ActivateAction\""_s}) {
        EXPECT_TRUE(text.contains(method)) << method.toStdString();
    }
}

} // namespace

} // namespace zeph
