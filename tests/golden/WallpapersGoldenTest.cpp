// SPDX-License-Identifier: MIT
#include "golden/GoldenImage.h"
#include "golden/Painted.h"
#include "golden/SampleDay.h"

#include "widgets/RootWallpaperView.h"

namespace zeph {

using namespace Qt::StringLiterals;

/// A screen in points, and its device pixels a point.
struct GoldenScreen {
    int width;
    int height;
    double scale;

    QString name() const {
        return u"%1x%2-%3x"_s.arg(QString::number(width), QString::number(height),
                                  QString::number(scale));
    }
};

/// Whole wallpapers. Each look is painted on a screen or two of its own, so that between them they
/// cover sizes, scales and shapes of screens with few pictures.
class GoldenWallpapers : public SampleDay {
protected:
    static QSize size(const GoldenScreen &screen) { return {screen.width, screen.height}; }

    void expectPicture(const QString &look, const GoldenScreen &screen) {
        const QImage got =
            painted.opaque(root.scene(size(screen), false), size(screen), screen.scale);
        EXPECT_TRUE(matchesGolden(got, name(look, screen)));
    }

    void expectPictureOverTheDesktop(const QString &look, const GoldenScreen &screen) {
        const QImage desktop = desktopPicture((QSizeF(size(screen)) * screen.scale).toSize());
        const QImage got =
            painted.over(desktop, root.scene(size(screen), true), size(screen), screen.scale);
        EXPECT_TRUE(matchesGolden(got, name(look, screen)));
    }

    static QString name(const QString &look, const GoldenScreen &screen) {
        return u"wallpaper-%1-%2"_s.arg(look, screen.name());
    }

    Painted painted;
    RootWallpaperView root{state, preferences, usage, framing, painted.metrics(), {}};
};

TEST_F(GoldenWallpapers, automaticMorning) {
    fillMorning();
    preferences.setBackgroundMode(BackgroundMode::automatic);
    expectPicture(u"morning"_s, {1280, 800, 1});
    expectPicture(u"morning"_s, {1920, 1080, 1});
}

TEST_F(GoldenWallpapers, automaticNightAtAScaleBetweenWholeOnes) {
    fillNight();
    preferences.setBackgroundMode(BackgroundMode::automatic);
    preferences.setUse24HourClock(true);
    expectPicture(u"night"_s, {1280, 720, 1.5});
    expectPicture(u"night"_s, {1920, 1080, 1});
}

TEST_F(GoldenWallpapers, solidInManyScripts) {
    fillWorldly();
    preferences.setBackgroundMode(BackgroundMode::solid);
    preferences.setBackgroundHex(u"#0A1A14"_s);
    expectPicture(u"solid"_s, {1280, 800, 2});
}

TEST_F(GoldenWallpapers, darkTextOnALightColour) {
    fillAccounts();
    preferences.setBackgroundMode(BackgroundMode::solid);
    preferences.setBackgroundHex(u"#E8DFC8"_s);
    expectPicture(u"light"_s, {1920, 1080, 1});
}

TEST_F(GoldenWallpapers, uprightScreen) {
    fillAccounts();
    preferences.setBackgroundMode(BackgroundMode::automatic);
    expectPicture(u"upright"_s, {1080, 1920, 1});
}

TEST_F(GoldenWallpapers, transparentOverThePicture) {
    fillMorning();
    preferences.setBackgroundMode(BackgroundMode::transparent);
    expectPictureOverTheDesktop(u"transparent"_s, {1280, 800, 1});
    expectPictureOverTheDesktop(u"transparent"_s, {1920, 1080, 2});
}

TEST_F(GoldenWallpapers, everyAccountOnALargeScreen) {
    fillAccounts();
    preferences.setBackgroundMode(BackgroundMode::transparent);
    expectPictureOverTheDesktop(u"accounts"_s, {3840, 2160, 1});
}

TEST_F(GoldenWallpapers, newUserOfWhomNothingIsKnown) {
    state.now = at(19, 5, 0, 5, 14);
    preferences.set(WidgetPlacement::off, WidgetKind::desktop);
    preferences.set(WidgetPlacement::off, WidgetKind::reminders);
    expectPicture(u"newcomer"_s, {1280, 800, 1});
}

TEST_F(GoldenWallpapers, theUsersOwnOrder) {
    fillMorning();
    preferences.setLayoutMode(WidgetLayoutMode::manual);
    preferences.setCustomOrder({u"weather"_s, u"clock"_s, u"machine"_s, u"meeting"_s, u"quote"_s});
    expectPicture(u"arranged"_s, {1280, 800, 1});
}

} // namespace zeph
