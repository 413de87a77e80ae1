// SPDX-License-Identifier: MIT
#include "adapters/focus/LinuxFocusFile.h"

#include "adapters/focus/FakeSessionService.h"
#include "base/Background.h"
#include "sensing/FocusMonitor.h"
#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class FocusFileOfADesktop : public testing::Test {
protected:
    LinuxFocusFile &open(const FocusSource &source) {
        file = std::make_unique<LinuxFocusFile>(source, client.bus(), background);
        monitor = std::make_unique<FocusMonitor>(*file);
        subscription = file->subscribe([this] {
            ++told;
            monitor->sample();
        });
        otherSubscription = file->subscribe([this] { ++toldOthers; });
        return *file;
    }
    FocusState sampled() {
        monitor->sample();
        return monitor->state();
    }
    void signalInhibited(bool value) {
        notifications.signal(u"/org/freedesktop/Notifications"_s,
                             u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s,
                             {u"org.freedesktop.Notifications"_s,
                              QVariantMap{{u"Inhibited"_s, value}}, QStringList()});
    }

    PrivateBus bus;
    FakeSessionService notifications{bus.address(), u"org.freedesktop.Notifications"_s};
    FakeSessionService xfconf{bus.address(), u"org.xfce.Xfconf"_s};
    BusConnection client{bus.address()};
    ManualClock clock;
    ManualRunLoop loop{clock};
    ManualTaskExecutor executor;
    const Background background = Background::over(executor, loop);
    std::unique_ptr<LinuxFocusFile> file;
    std::unique_ptr<FocusMonitor> monitor;
    int told = 0;
    int toldOthers = 0;
    Subscription subscription;
    Subscription otherSubscription;
};

TEST_F(FocusFileOfADesktop, isReadByTheMonitor) {
    notifications.value = true;
    notifications.appear();
    open(QuietService::notifications);
    EXPECT_TRUE(eventually([&] { return sampled() == FocusState::on; }));
    signalInhibited(false);
    EXPECT_TRUE(eventually([&] { return sampled() == FocusState::off; }));
    notifications.vanish();
    EXPECT_TRUE(eventually([&] { return sampled() == FocusState::unknown; }));
}

TEST_F(FocusFileOfADesktop, comesFromTheServiceOfTheSource) {
    notifications.value = true;
    notifications.appear();
    xfconf.value = false;
    xfconf.appear();
    open(QuietService::xfconf);
    EXPECT_TRUE(eventually([&] { return sampled() == FocusState::off; }));
    EXPECT_EQ(notifications.questions, 0);
}

TEST_F(FocusFileOfADesktop, tellsWhenItCanAnswerWhatItRefused) {
    notifications.isMute = true;
    notifications.value = true;
    notifications.appear();
    open(QuietService::notifications);
    EXPECT_EQ(sampled(), FocusState::unknown);
    ASSERT_TRUE(eventually([&] { return notifications.questions == 1; }));
    notifications.answerLate();
    EXPECT_TRUE(eventually([&] { return told == 1; }));
    EXPECT_EQ(toldOthers, 1) << "another listener hears it as well";
    EXPECT_EQ(monitor->state(), FocusState::on);
}

TEST_F(FocusFileOfADesktop, tellsNothingOfLaterChangesNorUnasked) {
    notifications.value = true;
    notifications.appear();
    open(QuietService::notifications);
    ASSERT_TRUE(eventually([&] { return file->contents().has_value(); }));
    told = 0; // one of the questions came before the answer
    signalInhibited(false);
    ASSERT_TRUE(eventually([&] { return sampled() == FocusState::off; }));
    notifications.vanish();
    notifications.value = false;
    ASSERT_TRUE(eventually([&] { return sampled() == FocusState::unknown; }));
    EXPECT_EQ(told, 0);
    notifications.appear();
    EXPECT_TRUE(eventually([&] { return told == 1; })) << "this one was refused";
}

TEST_F(FocusFileOfADesktop, isNotThereWithoutThoseSettings) {
    open(QuietSetting{u"org.example.nothing"_s, u"quiet"_s, true});
    executor.runAll();
    loop.drain();
    EXPECT_EQ(sampled(), FocusState::unknown);
    EXPECT_EQ(told, 0);
}

TEST_F(FocusFileOfADesktop, isNotThereWithoutABus) {
    bus.stop();
    BusConnection nowhere(bus.address());
    for (const QuietService service : {QuietService::notifications, QuietService::xfconf}) {
        LinuxFocusFile homeless(service, nowhere.bus(), background);
        EXPECT_EQ(homeless.contents(), std::nullopt);
    }
}

} // namespace

} // namespace zeph
