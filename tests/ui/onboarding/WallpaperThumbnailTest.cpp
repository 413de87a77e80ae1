// SPDX-License-Identifier: MIT
#include "ui/settings/WallpaperThumbnail.h"

#include "ui/SettingsFixture.h"

#include <QApplication>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize thumbnailSize{160, 90};

class WallpaperThumbnailTest : public SettingsFixture {
protected:
    WallpaperThumbnailTest() {
        fillMorning();
        preferences.setBackgroundMode(BackgroundMode::solid);
    }

    void show() {
        thumbnail.show();
        settle();
    }

    static void settle() {
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }

    QImage picture() { return thumbnail.grab().toImage(); }

    ui::WallpaperThumbnail thumbnail{context(), thumbnailSize};
};

int differingPixels(const QImage &one, const QImage &other) {
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            count += one.pixel(x, y) != other.pixel(x, y) ? 1 : 0;
        }
    }
    return count;
}

} // namespace

TEST_F(WallpaperThumbnailTest, showsTheWallpaperOnceItIsSeen) {
    EXPECT_EQ(thumbnail.renderCount(), 0);
    show();
    EXPECT_EQ(thumbnail.renderCount(), 1);
    EXPECT_EQ(thumbnail.pictureRect(), QRectF(0, 0, 160, 90));
    EXPECT_LT(qGray(picture().pixel(80, 45)), 60) << "a dark solid colour";
}

TEST_F(WallpaperThumbnailTest, followsChangesAtMostOnceASecond) {
    show();
    for (int change = 0; change < 50; ++change) {
        state.uptimeSeconds = change;
        settle();
    }
    EXPECT_EQ(thumbnail.renderCount(), 1);
    loop.advance(0.99);
    settle();
    EXPECT_EQ(thumbnail.renderCount(), 1);
    loop.advance(0.02);
    settle();
    EXPECT_EQ(thumbnail.renderCount(), 2);
    loop.advance(30);
    settle();
    EXPECT_EQ(thumbnail.renderCount(), 2) << "nothing has changed since";
    state.uptimeSeconds = 5;
    settle();
    EXPECT_EQ(thumbnail.renderCount(), 3) << "after a rest, at once";
}

TEST_F(WallpaperThumbnailTest, restsWhileNobodySeesIt) {
    show();
    thumbnail.hide();
    loop.advance(5);
    state.uptimeSeconds = 1;
    settle();
    loop.advance(5);
    EXPECT_EQ(thumbnail.renderCount(), 1);
    show();
    EXPECT_EQ(thumbnail.renderCount(), 2);
}

TEST_F(WallpaperThumbnailTest, anotherBackgroundIsThereAtOnceAndStoredNowhere) {
    show();
    const QImage solid = picture();
    thumbnail.setBackground(BackgroundMode::automatic);
    settle();
    EXPECT_EQ(thumbnail.renderCount(), 2);
    EXPECT_GT(differingPixels(solid, picture()), 160 * 90 / 2);
    EXPECT_EQ(preferences.backgroundMode(), BackgroundMode::solid);
    thumbnail.setBackground(std::nullopt);
    settle();
    EXPECT_EQ(picture(), solid);
    loop.advance(2); // the rests of all three are over
    state.uptimeSeconds = 9;
    settle();
    EXPECT_EQ(thumbnail.renderCount(), 4);
}

TEST_F(WallpaperThumbnailTest, theRestIsThatOfTheLastRendering) {
    show();
    loop.advance(0.5);
    thumbnail.setBackground(BackgroundMode::automatic);
    settle();
    EXPECT_EQ(thumbnail.renderCount(), 2);
    state.uptimeSeconds = 1;
    loop.advance(0.9); // the first rest ends meanwhile
    settle();
    EXPECT_EQ(thumbnail.renderCount(), 2);
    loop.advance(0.2);
    settle();
    EXPECT_EQ(thumbnail.renderCount(), 3);
}

TEST_F(WallpaperThumbnailTest, aTransparentOneLiesOnADesktopsPicture) {
    thumbnail.setBackground(BackgroundMode::transparent);
    show();
    const QImage got = picture();
    EXPECT_GT(qGray(got.pixel(150, 45)), 90) << "light, as pictures are";
    EXPECT_EQ(qAlpha(got.pixel(80, 45)), 255);
}

TEST_F(WallpaperThumbnailTest, hasTheProportionsOfTheMainScreen) {
    show();
    screens.change({screen(u"upright"_s, 1, 1080, 1920)});
    loop.advance(1.01);
    settle();
    EXPECT_EQ(thumbnail.size(), thumbnailSize);
    EXPECT_NEAR(thumbnail.pictureRect().width(), 90 * 1080 / 1920.0, 0.1);
    EXPECT_NEAR(thumbnail.pictureRect().center().x(), 80, 0.1);
    EXPECT_EQ(thumbnail.renderCount(), 2);
    screens.change({});
    loop.advance(1.01);
    settle();
    EXPECT_EQ(thumbnail.pictureRect(), QRectF(0, 0, 160, 90)) << "a common screen";
}

TEST_F(WallpaperThumbnailTest, endsWithARestUnderWay) {
    {
        ui::WallpaperThumbnail brief(context(), thumbnailSize);
        brief.show();
        settle();
    }
    loop.advance(2);
}

} // namespace zeph
