// SPDX-License-Identifier: MIT
#include "golden/GoldenImage.h"
#include "golden/Painted.h"
#include "golden/SampleDay.h"

#include "presentation/widgets/RootWallpaperView.h"

namespace zeph {

using namespace Qt::StringLiterals;

/// A screen in points, and its device pixels a point.
struct GoldenScreen {
    int width;
    int height;
    int scale;

    QString name() const {
        return u"%1x%2-%3x"_s.arg(QString::number(width), QString::number(height),
                                  QString::number(scale));
    }
};

std::string screenName(const testing::TestParamInfo<GoldenScreen> &info) {
    return info.param.name().replace(u'-', u'_').toStdString();
}

class GoldenWallpapers : public SampleDay, public testing::WithParamInterface<GoldenScreen> {
protected:
    QSize size() const { return {GetParam().width, GetParam().height}; }
    double scale() const { return GetParam().scale; }
    QString name(const QString &what) const {
        return u"wallpaper-%1-%2"_s.arg(what, GetParam().name());
    }

    QImage onOpaqueSurface() { return painted.opaque(root.scene(size(), false), size(), scale()); }

    Painted painted;
    RootWallpaperView root{state, preferences, usage, framing, painted.metrics(), {}};
};

TEST_P(GoldenWallpapers, automaticMorning) {
    fillMorning();
    preferences.setBackgroundMode(BackgroundMode::automatic);
    EXPECT_TRUE(matchesGolden(onOpaqueSurface(), name(u"morning"_s)));
}

TEST_P(GoldenWallpapers, automaticNight) {
    fillNight();
    preferences.setBackgroundMode(BackgroundMode::automatic);
    preferences.setUse24HourClock(true);
    EXPECT_TRUE(matchesGolden(onOpaqueSurface(), name(u"night"_s)));
}

TEST_P(GoldenWallpapers, solidInManyScripts) {
    fillWorldly();
    preferences.setBackgroundMode(BackgroundMode::solid);
    preferences.setBackgroundHex(u"#0A1A14"_s);
    EXPECT_TRUE(matchesGolden(onOpaqueSurface(), name(u"solid"_s)));
}

TEST_P(GoldenWallpapers, transparentOverThePicture) {
    fillMorning();
    preferences.setBackgroundMode(BackgroundMode::transparent);
    const QImage desktop = desktopPicture(size() * scale());
    const QImage got = painted.over(desktop, root.scene(size(), true), size(), scale());
    EXPECT_TRUE(matchesGolden(got, name(u"transparent"_s)));
}

INSTANTIATE_TEST_SUITE_P(Screens, GoldenWallpapers,
                         testing::Values(GoldenScreen{1280, 800, 1}, GoldenScreen{1280, 800, 2},
                                         GoldenScreen{1920, 1080, 1}, GoldenScreen{1920, 1080, 2},
                                         GoldenScreen{2560, 1440, 1}, GoldenScreen{2560, 1440, 2}),
                         screenName);

} // namespace zeph
