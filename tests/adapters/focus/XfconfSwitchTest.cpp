// SPDX-License-Identifier: MIT
#include "adapters/focus/XfconfSwitch.h"

#include "adapters/focus/SwitchFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString serviceName = u"org.xfce.Xfconf"_s;
const QString path = u"/org/xfce/Xfconf"_s;

class PlayedXfconf : public SwitchFixture<XfconfSwitch> {
protected:
    PlayedXfconf() : SwitchFixture(serviceName) {
        service.error = u"org.xfce.Xfconf.Error.PropertyNotFound"_s;
    }
};

TEST_F(PlayedXfconf, isAskedForThePropertyOfItsChannel) {
    service.value = true;
    service.appear();
    listen();
    EXPECT_TRUE(becomes(true));
    EXPECT_EQ(service.lastQuestion.path(), path);
    EXPECT_EQ(service.lastQuestion.interface(), serviceName);
    EXPECT_EQ(service.lastQuestion.member(), u"GetProperty"_s);
    EXPECT_EQ(service.lastQuestion.arguments(),
              (QVariantList{u"xfce4-notifyd"_s, u"/do-not-disturb"_s}));
}

TEST_F(PlayedXfconf, isOffWhileNothingIsSet) {
    for (const QString &error : {u"PropertyNotFound"_s, u"ChannelNotFound"_s}) {
        service.error = u"org.xfce.Xfconf.Error."_s + error;
        service.appear();
        listen();
        EXPECT_TRUE(becomes(false)) << error.toStdString();
        service.vanish();
        EXPECT_TRUE(becomes(std::nullopt));
    }
}

TEST_F(PlayedXfconf, isUnknownAfterAnyOtherRefusal) {
    service.error = u"org.xfce.Xfconf.Error.ReadFailure"_s;
    service.appear();
    listen();
    ASSERT_TRUE(settlesAfter(1));
    EXPECT_EQ(quiet->isQuiet(), std::nullopt);
}

TEST_F(PlayedXfconf, isUnknownWhenThePropertyIsNoBoolean) {
    service.value = 1;
    service.appear();
    listen();
    ASSERT_TRUE(settlesAfter(1));
    EXPECT_EQ(quiet->isQuiet(), std::nullopt);
}

TEST_F(PlayedXfconf, isUnknownWithoutTheService) {
    listen();
    EXPECT_TRUE(settlesAfter(0));
    EXPECT_EQ(quiet->isQuiet(), std::nullopt);
}

TEST_F(PlayedXfconf, followsOnlySignalsOfTheRightForm) {
    service.value = false;
    service.appear();
    listen();
    ASSERT_TRUE(becomes(false));
    const QString changed = u"PropertyChanged"_s;
    const QVariant yes = QVariant::fromValue(QDBusVariant(true));
    service.signal(path, serviceName, changed, {u"other"_s, u"/do-not-disturb"_s, yes});
    service.signal(path, serviceName, changed, {u"xfce4-notifyd"_s, u"/other"_s, yes});
    service.signal(path, serviceName, changed, {u"xfce4-notifyd"_s, u"/do-not-disturb"_s});
    service.signal(path, serviceName, changed, {u"xfce4-notifyd"_s, u"/do-not-disturb"_s, true});
    service.signal(path, serviceName, u"PropertyRemoved"_s, {});
    service.signal(path, serviceName, changed, {u"xfce4-notifyd"_s, u"/do-not-disturb"_s, yes});
    EXPECT_TRUE(becomes(true));
    EXPECT_EQ(news, 2);
    service.signal(path, serviceName, u"PropertyRemoved"_s,
                   {u"xfce4-notifyd"_s, u"/do-not-disturb"_s});
    EXPECT_TRUE(becomes(false));
    EXPECT_EQ(service.questions, 1);
}

TEST_F(PlayedXfconf, thatNeverAnswersDoesNotHoldTheMainThread) {
    const double hold = holdWhileMute();
    RecordProperty("hold", std::to_string(hold));
    EXPECT_LT(hold, 5);
}

TEST_F(PlayedXfconf, startsAThousandTimesWithoutGrowth) {
    const auto growth = growthOfRestarts();
    RecordProperty("growth", static_cast<int>(growth));
    EXPECT_LT(growth, 200 * 16) << "less than 16 bytes a start";
}

} // namespace

} // namespace zeph
