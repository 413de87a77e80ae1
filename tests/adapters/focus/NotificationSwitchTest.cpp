// SPDX-License-Identifier: MIT
#include "adapters/focus/NotificationSwitch.h"

#include "adapters/focus/SwitchFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString serviceName = u"org.freedesktop.Notifications"_s;
const QString path = u"/org/freedesktop/Notifications"_s;
const QString properties = u"org.freedesktop.DBus.Properties"_s;

class InhibitedNotifications : public SwitchFixture<NotificationSwitch> {
protected:
    InhibitedNotifications() : SwitchFixture(serviceName) {}

    void tell(const QVariantMap &changed, const QStringList &invalidated = {}) {
        service.signal(path, properties, u"PropertiesChanged"_s,
                       {serviceName, changed, invalidated});
    }
};

TEST_F(InhibitedNotifications, areUnknownWithoutTheService) {
    listen();
    EXPECT_TRUE(settlesAfter(0));
    EXPECT_EQ(quiet->isQuiet(), std::nullopt);
    EXPECT_EQ(news, 0);
}

TEST_F(InhibitedNotifications, areUnknownWithoutABus) {
    bus.stop();
    BusConnection nowhere(bus.address());
    const NotificationSwitch adapter(nowhere.bus(), [] {});
    EXPECT_EQ(adapter.isQuiet(), std::nullopt);
}

TEST_F(InhibitedNotifications, areWhatTheServiceAnswers) {
    service.value = true;
    service.appear();
    listen();
    EXPECT_TRUE(becomes(true));
    EXPECT_EQ(service.lastQuestion.path(), path);
    EXPECT_EQ(service.lastQuestion.interface(), properties);
    EXPECT_EQ(service.lastQuestion.member(), u"Get"_s);
    EXPECT_EQ(service.lastQuestion.arguments(), (QVariantList{serviceName, u"Inhibited"_s}));
    service.value = false;
    listen();
    EXPECT_TRUE(becomes(false));
}

TEST_F(InhibitedNotifications, followTheService) {
    service.value = false;
    service.appear();
    listen();
    ASSERT_TRUE(becomes(false));
    tell({{u"Inhibited"_s, true}});
    EXPECT_TRUE(becomes(true));
    tell({{u"Inhibited"_s, false}, {u"Other"_s, 1}});
    EXPECT_TRUE(becomes(false));
    EXPECT_EQ(service.questions, 1) << "a signal tells all";
    EXPECT_EQ(news, 3);
}

TEST_F(InhibitedNotifications, areAskedForWhenAChangeComesWithoutItsValue) {
    service.value = false;
    service.appear();
    listen();
    ASSERT_TRUE(becomes(false));
    service.value = true;
    tell({}, {u"Inhibited"_s});
    EXPECT_TRUE(becomes(true));
    EXPECT_EQ(service.questions, 2);
}

TEST_F(InhibitedNotifications, areAskedForOnceMoreHoweverOftenTheyChangeMeanwhile) {
    service.value = false;
    service.appear();
    listen();
    ASSERT_TRUE(becomes(false));
    service.isMute = true;
    for (int change = 0; change < 100; ++change) {
        tell({}, {u"Inhibited"_s});
    }
    ASSERT_TRUE(eventually([&] { return service.questions == 2; }));
    ASSERT_TRUE(settlesAfter(2));
    EXPECT_EQ(service.questions, 2);
    service.isMute = false;
    service.answerLate();
    ASSERT_TRUE(eventually([&] { return service.questions == 3; }));
    service.value = true;
    tell({}, {u"Inhibited"_s});
    EXPECT_TRUE(becomes(true));
}

TEST_F(InhibitedNotifications, mindOnlyTheirOwnProperty) {
    service.value = true;
    service.appear();
    listen();
    ASSERT_TRUE(becomes(true));
    tell({{u"Other"_s, false}}, {u"Another"_s});
    service.signal(
        path, properties, u"PropertiesChanged"_s,
        {u"org.kde.NotificationManager"_s, QVariantMap{{u"Inhibited"_s, false}}, QStringList()});
    service.signal(u"/elsewhere"_s, properties, u"PropertiesChanged"_s,
                   {serviceName, QVariantMap{{u"Inhibited"_s, false}}, QStringList()});
    tell({{u"Last"_s, 1}}, {u"Inhibited"_s});
    ASSERT_TRUE(settlesAfter(2));
    EXPECT_EQ(quiet->isQuiet(), true);
    EXPECT_EQ(news, 1);
}

TEST_F(InhibitedNotifications, areUnknownOfAServiceThatKnowsNone) {
    service.error = u"org.freedesktop.DBus.Error.UnknownProperty"_s;
    service.appear();
    listen();
    ASSERT_TRUE(settlesAfter(1));
    EXPECT_EQ(quiet->isQuiet(), std::nullopt);
}

TEST_F(InhibitedNotifications, areUnknownWhenTheyAreNoBoolean) {
    service.value = u"true"_s;
    service.appear();
    listen();
    ASSERT_TRUE(settlesAfter(1));
    EXPECT_EQ(quiet->isQuiet(), std::nullopt);
    tell({{u"Inhibited"_s, true}});
    EXPECT_TRUE(becomes(true));
    tell({{u"Inhibited"_s, 1}});
    EXPECT_TRUE(becomes(std::nullopt));
}

TEST_F(InhibitedNotifications, areUnknownWhileTheServiceIsAway) {
    service.value = true;
    service.appear();
    listen();
    ASSERT_TRUE(becomes(true));
    service.vanish();
    EXPECT_TRUE(becomes(std::nullopt));
    service.value = false;
    service.appear();
    EXPECT_TRUE(becomes(false));
}

TEST_F(InhibitedNotifications, ofAServiceThatDiesWhileAskedAreUnknown) {
    service.isMute = true;
    service.appear();
    listen();
    ASSERT_TRUE(settlesAfter(1));
    service.vanish();
    service.isMute = false;
    service.value = true;
    service.appear();
    EXPECT_TRUE(becomes(true));
}

TEST_F(InhibitedNotifications, ofAServiceThatNeverAnswersDoNotHoldTheMainThread) {
    const double hold = holdWhileMute();
    RecordProperty("hold", std::to_string(hold));
    EXPECT_LT(hold, 5);
}

TEST_F(InhibitedNotifications, areTakenOverHoweverLate) {
    service.isMute = true;
    service.value = true;
    service.appear();
    listen();
    const auto isPresent = [](const QDBusMessage &answer) {
        return std::optional(answer.type() == QDBusMessage::ReplyMessage);
    };
    // A question with a limit is given up: only then is the other one answered.
    const FollowedAnswer impatient(
        client.bus(), {serviceName, path, properties, u"Get"_s, {}}, isPresent, [] {}, 20);
    EXPECT_TRUE(eventually([&] { return impatient.value() == false; }));
    EXPECT_EQ(quiet->isQuiet(), std::nullopt);
    service.answerLate();
    EXPECT_TRUE(becomes(true));
    EXPECT_EQ(FollowedAnswer::anyTime, 0x7fffffff) << "to the bus library, without a limit";
}

TEST_F(InhibitedNotifications, mayEndWhileAsked) {
    service.isMute = true;
    service.appear();
    listen();
    ASSERT_TRUE(settlesAfter(1));
    quiet.reset();
    service.answerLate();
    EXPECT_TRUE(settlesAfter(1));
    EXPECT_EQ(news, 0);
}

TEST_F(InhibitedNotifications, followAThousandStartsWithoutGrowth) {
    const auto growth = growthOfRestarts();
    RecordProperty("growth", static_cast<int>(growth));
    EXPECT_LT(growth, 200 * 16) << "less than 16 bytes a start";
}

TEST_F(InhibitedNotifications, followAThousandChangesWithoutGrowth) {
    service.value = false;
    service.appear();
    listen();
    ASSERT_TRUE(becomes(false));
    const auto changeMany = [&] {
        for (int change = 0; change < 200; ++change) {
            const bool isOn = change % 2 == 0;
            tell({{u"Inhibited"_s, isOn}});
            ASSERT_TRUE(becomes(isOn));
        }
    };
    changeMany();
    const auto growth = leastGrowth(5, changeMany);
    RecordProperty("growth", static_cast<int>(growth));
    EXPECT_LT(growth, 200 * 16) << "less than 16 bytes a change";
}

} // namespace

} // namespace zeph
