// SPDX-License-Identifier: MIT
#include "TaviFixture.h"

#include <csignal>
#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QByteArray kWelcome = "Welcome to Tavi";
constexpr int kLastStep = 5;

// Places in the window of the first run, which grows with the desktop's font.
constexpr double kDesignedWidth = 470;
constexpr QPoint kContinue(392, 534);
constexpr QPoint kBack(58, 534);
constexpr QPoint kTimeOfDay(261, 431);
constexpr QPoint kTransparent(380, 431);

// The row of marks: the one of the step is long and bright, each before it a dot.
constexpr int kMarksHeight = 31;
constexpr double kFirstMark = 205; // the middle of the long mark of the first step
constexpr double kMarkPitch = 12;
constexpr int kShortestLongMark = 14;
constexpr int kMarkBrightness = 160;

/// Where nothing stands on the wallpaper and no window before it.
constexpr QPoint kBareSpot(1272, 792);

} // namespace

/// The first start on a new account, gone through by mouse and keyboard.
class OnboardingTest : public TaviTest {
protected:
    OnboardingTest() {
        startWindowManager();
        QFile::remove(settingsPath());
    }

    QString settingsPath() const { return path("config/Zeph/defaults.json"); }

    QJsonValue setting(const QString &key) const {
        QFile file(settingsPath());
        return file.open(QIODevice::ReadOnly)
                   ? QJsonDocument::fromJson(file.readAll()).object().value(key)
                   : QJsonValue();
    }

    bool waitForSetting(const QString &key, const QJsonValue &value) const {
        return waitUntil([&] { return setting(key) == value; }, kPatience);
    }

    /// The window with this title that is no wallpaper; 0 while there is none to be seen.
    xcb_window_t window(const QByteArray &title = kWelcome) const {
        for (const xcb_window_t one : client->findAll(title)) {
            if (!isWallpaper(one) && client->isViewable(one)) {
                return one;
            }
        }
        return 0;
    }

    bool waitForWelcome() const {
        return waitUntil(
            [&] {
                const xcb_window_t shown = window();
                return shown != 0 &&
                       client->numbers(client->root(), "_NET_ACTIVE_WINDOW").value(0) == shown;
            },
            kPatience);
    }

    /// The window has this many pixels for each that it was designed with.
    double scale() const { return client->geometry(window()).width() / kDesignedWidth; }

    /// The step whose mark is lit, counted from 0.
    std::optional<int> step() const {
        const double scaled = scale();
        const QRect place = client->geometry(window());
        const QImage marks = client->screenshot(
            {place.x(), place.y() + qRound(kMarksHeight * scaled), place.width(), 1});
        int run = 0;
        for (int x = 0; x < marks.width(); ++x) {
            const bool isLit = qGray(marks.pixel(x, 0)) > kMarkBrightness;
            if (!isLit && run >= kShortestLongMark * scaled) {
                const double middle = (x - run / 2.0) / scaled;
                return qRound((middle - kFirstMark) / kMarkPitch);
            }
            run = isLit ? run + 1 : 0;
        }
        return std::nullopt;
    }

    bool waitForStep(int wanted) const {
        return waitUntil([&] { return step() == wanted; }, kPatience);
    }

    void click(const QPoint &place) const {
        const QPoint spot = client->geometry(window()).topLeft() + place * scale();
        session.run({u"xdotool"_s, u"mousemove"_s, QString::number(spot.x()),
                     QString::number(spot.y()), u"click"_s, u"1"_s});
    }

    void press(const QStringList &keys) const {
        session.run(QStringList{u"xdotool"_s, u"key"_s} + keys);
    }

    /// Whether the wallpaper comes to be of a colour that satisfies `isWanted`. Settings are kept
    /// before the wallpaper follows them, and while it is made anew the screen may be bare.
    bool waitForColor(const std::function<bool(QRgb)> &isWanted) const {
        return waitUntil(
            [&] {
                const QRgb now = client->pixel(kBareSpot) & 0xFFFFFF;
                return now != kBareScreen && isWanted(now);
            },
            kPatience);
    }

    void goTo(int wanted) {
        for (int gone = 0; gone < wanted; ++gone) {
            ASSERT_TRUE(waitForStep(gone));
            click(kContinue);
        }
        ASSERT_TRUE(waitForStep(wanted));
    }
};

TEST_F(OnboardingTest, leadsByMouseAndKeyboardThroughAllStepsToItsEnd) {
    const Program tavi(environment());
    ASSERT_TRUE(waitForWelcome());
    ASSERT_TRUE(waitForWallpaper()) << "behind it";
    ASSERT_TRUE(waitForStep(0)) << "it may be active before it is painted";
    EXPECT_EQ(setting(u"zeph.onboarded"_s).toBool(), false);
    EXPECT_EQ(setting(u"zeph.consent.input"_s).toInt(), 0);

    press({u"Return"_s});
    ASSERT_TRUE(waitForStep(1));
    press({u"Tab"_s, u"space"_s}); // "Allow" comes after "Continue"
    EXPECT_TRUE(waitForSetting(u"zeph.consent.input"_s, 3));

    click(kContinue);
    ASSERT_TRUE(waitForStep(2));
    EXPECT_EQ(setting(u"zeph.consent.location"_s).toInt(), 0) << "what is skipped is not allowed";

    click(kContinue);
    ASSERT_TRUE(waitForStep(3));
    click(kBack);
    ASSERT_TRUE(waitForStep(2));
    press({u"alt+Left"_s});
    ASSERT_TRUE(waitForStep(1));
    click(kContinue);
    ASSERT_TRUE(waitForStep(2));
    click(kContinue);
    ASSERT_TRUE(waitForStep(3));

    click(kContinue);
    ASSERT_TRUE(waitForStep(4));
    const QRgb solid = client->pixel(kBareSpot) & 0xFFFFFF;
    click(kTransparent);
    EXPECT_TRUE(waitForSetting(u"zeph.background.mode"_s, u"transparent"_s));
    click(kTimeOfDay);
    EXPECT_TRUE(waitForSetting(u"zeph.background.mode"_s, u"auto"_s));
    EXPECT_TRUE(waitForColor([solid](QRgb now) { return now != solid; }));
    press({u"Left"_s});
    EXPECT_TRUE(waitForSetting(u"zeph.background.mode"_s, u"solid"_s));
    EXPECT_TRUE(waitForColor([solid](QRgb now) { return now == solid; }));

    click(kContinue);
    ASSERT_TRUE(waitForStep(5));
    EXPECT_EQ(setting(u"zeph.onboarded"_s).toBool(), false) << "not before the last word";
    click(kContinue);
    EXPECT_TRUE(waitUntil([this] { return window() == 0; }, kPatience));
    EXPECT_TRUE(waitForSetting(u"zeph.onboarded"_s, true));
    EXPECT_EQ(setting(u"zeph.background.mode"_s), u"solid"_s);
    EXPECT_EQ(setting(u"zeph.consent.input"_s), 3);
    EXPECT_EQ(setting(u"zeph.consent.location"_s).toInt(), 0);

    Program second(environment());
    EXPECT_TRUE(second.endsWith(0)) << second.errors().toStdString();
    EXPECT_TRUE(waitUntil([this] { return window("Tavi") != 0; }, kPatience)) << "the settings";
    EXPECT_EQ(window(), 0U);
}

TEST_F(OnboardingTest, whatWasAllowedCountsAsSoonAsItIsDone) {
    const Program tavi(environment());
    ASSERT_TRUE(waitForWelcome());
    goTo(1);
    press({u"Tab"_s, u"space"_s});
    ASSERT_TRUE(waitForSetting(u"zeph.consent.input"_s, 3));
    for (int next = 2; next <= kLastStep; ++next) {
        click(kContinue);
        ASSERT_TRUE(waitForStep(next));
    }
    click(kContinue);
    ASSERT_TRUE(waitUntil([this] { return window() == 0; }, kPatience));
    const auto writer =
        client->show({.geometry = {800, 300, 200, 150}, .instance = "writer", .name = "Writer"});
    client->activate(writer);
    ASSERT_TRUE(waitUntil([&] { return client->focus() == writer; }));
    ASSERT_TRUE(waitForWords(u"Writer"_s)) << lastWords.toStdString();
    press(QStringList(40, u"a"_s));
    EXPECT_TRUE(waitForWords(u"Typing 40 a minute"_s)) << lastWords.toStdString();
}

TEST_F(OnboardingTest, closedByItsFrameItComesBackAtItsStep) {
    const Program tavi(environment());
    ASSERT_TRUE(waitForWelcome());
    goTo(3);
    session.run({u"wmctrl"_s, u"-c"_s, QString::fromLatin1(kWelcome)});
    ASSERT_TRUE(waitUntil([this] { return window() == 0; }, kPatience));
    EXPECT_EQ(setting(u"zeph.onboarded"_s).toBool(), false);
    EXPECT_TRUE(tavi.isRunning()) << "the wallpaper goes on";
    Program second(environment());
    EXPECT_TRUE(second.endsWith(0)) << second.errors().toStdString();
    ASSERT_TRUE(waitForWelcome());
    EXPECT_TRUE(waitForStep(3));
}

TEST_F(OnboardingTest, closedByTheKeyboardItComesBackAtItsStepAndANewStartBeginsAnew) {
    {
        Program tavi(environment());
        ASSERT_TRUE(waitForWelcome());
        goTo(2);
        press({u"ctrl+w"_s});
        ASSERT_TRUE(waitUntil([this] { return window() == 0; }, kPatience));
        const Program second(environment());
        ASSERT_TRUE(waitForWelcome());
        EXPECT_TRUE(waitForStep(2));
        tavi.send(SIGTERM);
        ASSERT_TRUE(tavi.endsWith(0));
        EXPECT_EQ(setting(u"zeph.onboarded"_s).toBool(), false);
    }
    const Program again(environment());
    ASSERT_TRUE(waitForWelcome());
    EXPECT_TRUE(waitForStep(0));
}

} // namespace zeph
