// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/PlasmaPictureSurface.h"

#include "ShownPictures.h"
#include "adapters/session/plasma/PictureFolders.h"
#include "base/Background.h"
#include "support/FakeScreens.h"
#include "support/FullDisk.h"
#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"
#include "support/QtPrinters.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

class PlasmaPictureSurfaceTest : public testing::Test {
protected:
    static Screen output(const QString &connector, int width = 40, int height = 30) {
        Screen made = screen(connector, 1, width, height);
        made.connector = connector;
        return made;
    }

    std::unique_ptr<PlasmaPictureSurface> make(const QString &connector = u"DP-1"_s) {
        return std::make_unique<PlasmaPictureSurface>(
            PlasmaPictureSurface::Tools{folders, background, loop, [this] { ++refusals; }},
            output(connector));
    }

    /// Lets the thread write all that is due.
    void write() {
        do {
            executor.runAll();
            loop.drain();
        } while (executor.waiting() > 0);
    }

    static QRegion paint(DesktopSurface &surface, QColor colour, const QRect &part) {
        return surface.show([&](QImage &frame) {
            QPainter(&frame).fillRect(part, colour);
            return QRegion(part);
        });
    }
    static QRegion fillAll(DesktopSurface &surface, QColor colour) {
        return paint(surface, colour, QRect(0, 0, 40, 30));
    }

    QString path(const QString &connector = u"DP-1"_s) const {
        return folders.around() + u'/' + connector;
    }
    QStringList pictures() const { return picturesIn(path()); }

    const QTemporaryDir around;
    PictureFolders folders{around.filePath(u"tavi/plasma"_s)};
    ManualClock clock;
    ManualRunLoop loop{clock};
    ManualTaskExecutor executor;
    Background background = Background::over(executor, loop);
    int refusals = 0;
};

TEST_F(PlasmaPictureSurfaceTest, writesNothingBeforeItIsShown) {
    const auto surface = make();
    fillAll(*surface, Qt::blue);
    write();
    EXPECT_FALSE(QFile::exists(path()));
    surface->orderFront();
    write();
    EXPECT_EQ(shownBy(path()), plainPicture({40, 30}, Qt::blue));
}

TEST_F(PlasmaPictureSurfaceTest, writesOnAnotherThread) {
    const auto surface = make();
    surface->orderFront();
    EXPECT_EQ(executor.waiting(), 1U);
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(PlasmaPictureSurfaceTest, aChangeGoesAsAPart) {
    const auto surface = make();
    fillAll(*surface, Qt::blue);
    surface->orderFront();
    write();
    EXPECT_EQ(paint(*surface, Qt::red, {5, 6, 7, 8}), QRegion(5, 6, 7, 8));
    write();
    EXPECT_EQ(pictures(), (QStringList{u"f-000000000001.bmp"_s, u"p-000000000002-5-6.bmp"_s}));
    QImage expected = plainPicture({40, 30}, Qt::blue);
    QPainter(&expected).fillRect(QRect(5, 6, 7, 8), Qt::red);
    EXPECT_EQ(shownBy(path()), expected);
}

TEST_F(PlasmaPictureSurfaceTest, aWholePictureFollowsTooManyParts) {
    const auto surface = make();
    fillAll(*surface, Qt::blue);
    surface->orderFront();
    write();
    for (int i = 0; i <= PatchBudget::mostPatches; ++i) {
        paint(*surface, QColor(i, 0, 0), {i, 0, 1, 1});
        write();
    }
    EXPECT_EQ(pictures(), QStringList{u"f-000000000026.bmp"_s});
    EXPECT_EQ(shownBy(path()).pixelColor(24, 0), QColor(24, 0, 0));
}

TEST_F(PlasmaPictureSurfaceTest, nobodyPaintsWhileTheFrameIsRead) {
    const auto surface = make();
    surface->orderFront();
    int painted = 0;
    for (const QColor colour : {QColor(Qt::red), QColor(Qt::green)}) {
        EXPECT_EQ(surface->show([&painted, colour](QImage &frame) {
            ++painted;
            frame.fill(colour);
            return QRegion(frame.rect());
        }),
                  QRegion());
    }
    EXPECT_EQ(painted, 0);
    write();
    EXPECT_EQ(painted, 1) << "the newest only";
    EXPECT_EQ(shownBy(path()), plainPicture({40, 30}, Qt::green));
}

TEST_F(PlasmaPictureSurfaceTest, isNotSeenWhileItIsHidden) {
    const auto surface = make();
    fillAll(*surface, Qt::blue);
    surface->orderFront();
    write();
    surface->orderOut();
    write();
    EXPECT_EQ(shownBy(path()).size(), QSize(1, 1));
    paint(*surface, Qt::red, {5, 6, 7, 8});
    write();
    EXPECT_EQ(pictures().size(), 1);
    surface->orderFront();
    write();
    EXPECT_EQ(shownBy(path()).pixelColor(5, 6), QColor(Qt::red));
    EXPECT_EQ(shownBy(path()).pixelColor(1, 1), QColor(Qt::blue));
}

TEST_F(PlasmaPictureSurfaceTest, staysWhereItIsShownAgainInTheSameTurn) {
    const auto surface = make();
    surface->orderFront();
    write();
    surface->orderOut();
    surface->orderFront();
    write();
    EXPECT_EQ(shownBy(path()).size(), QSize(40, 30));
}

TEST_F(PlasmaPictureSurfaceTest, theLastPictureStaysAtTheEnd) {
    auto surface = make();
    fillAll(*surface, Qt::blue);
    surface->orderFront();
    write();
    surface->orderOut();
    surface.reset();
    write();
    EXPECT_EQ(shownBy(path()), plainPicture({40, 30}, Qt::blue));
}

TEST_F(PlasmaPictureSurfaceTest, whatTheLastSurfaceStillWritesDoesNotCoverTheNext) {
    auto old = make();
    fillAll(*old, Qt::blue);
    old->orderFront();
    const auto next = make();
    fillAll(*next, Qt::green);
    next->orderFront();
    old.reset();
    ASSERT_EQ(executor.waiting(), 2U);
    executor.runAt(1);
    executor.runAt(0);
    EXPECT_EQ(shownBy(path()), plainPicture({40, 30}, Qt::green));
}

TEST_F(PlasmaPictureSurfaceTest, beginsAnewInAnotherSizeWhileTheOldOneIsWritten) {
    const auto surface = make();
    fillAll(*surface, Qt::blue);
    surface->orderFront();
    surface->setScreen(output(u"DP-1"_s, 20, 10));
    paint(*surface, Qt::red, {0, 0, 20, 10});
    write();
    EXPECT_EQ(shownBy(path()), plainPicture({20, 10}, Qt::red));
}

TEST_F(PlasmaPictureSurfaceTest, followsItsDisplayToAnotherConnector) {
    const auto surface = make();
    fillAll(*surface, Qt::blue);
    surface->orderFront();
    write();
    surface->setScreen(output(u"DP-2"_s));
    write();
    EXPECT_EQ(shownBy(path(u"DP-2"_s)), plainPicture({40, 30}, Qt::blue));
}

TEST_F(PlasmaPictureSurfaceTest, tellsThatPicturesCanNotBeWritten) {
    const auto surface = make();
    surface->orderFront();
    const FullDisk full(100);
    write();
    EXPECT_EQ(refusals, 1);
}

} // namespace zeph
