// SPDX-License-Identifier: MIT
#include "PlasmaStage.h"
#include "ShownPictures.h"

#include "adapters/session/plasma/PictureFolder.h"

using namespace Qt::StringLiterals;

namespace zeph {

/// What people see of our pictures in Plasma.
class ShownPackageTest : public testing::Test {
protected:
    void open() { stage.emplace(room.path(), around, kept); }

    /// A picture of an earlier session, of which nothing else is left.
    void keepEarlier(const QImage &picture) {
        const QTemporaryDir earlier;
        PictureFolder left(earlier.filePath(u"tavi/plasma/_"_s), kept + u"/_"_s);
        ASSERT_TRUE(left.writeWhole(left.takeOver(), picture));
    }

    static QImage withPart(QImage whole, const QRect &part, QColor colour) {
        QPainter(&whole).fillRect(part, colour);
        return whole;
    }

    const QTemporaryDir room;
    const QString around = room.filePath(u"tavi/plasma"_s);
    const QString path = around + u"/_"_s; // of an output without a name
    const QString kept = room.filePath(u"cache/tavi/plasma"_s);
    PictureFolder folder{path};
    const quint64 writer = folder.takeOver();
    const QImage plain = plainPicture({40, 30}, QColor(u"#0d0f1f"_s));
    const QImage red = plainPicture({40, 30}, Qt::red);
    const QImage blue = plainPicture({40, 30}, Qt::blue);
    std::optional<PlasmaStage> stage;
};

TEST_F(ShownPackageTest, theOneThatWasThereBeforeIt) {
    ASSERT_TRUE(folder.writeWhole(writer, red));
    ASSERT_TRUE(folder.writePatches(writer, blue, {QRect(10, 10, 6, 4)}));
    open();
    EXPECT_TRUE(stage->comesToShow(withPart(red, {10, 10, 6, 4}, Qt::blue))) << stage->said();
}

TEST_F(ShownPackageTest, oneColourUntilThereIsAny) {
    ASSERT_TRUE(QDir().mkpath(around));
    open();
    ASSERT_TRUE(stage->comesToShow(plain)) << stage->said();
    ASSERT_TRUE(folder.writeWhole(writer, red));
    EXPECT_TRUE(stage->comesToShow(red)) << "the folder came later";
}

TEST_F(ShownPackageTest, thatOfAnEarlierSessionUntilThereIsAny) {
    keepEarlier(red);
    open();
    ASSERT_TRUE(stage->comesToShow(red)) << stage->said();
    ASSERT_TRUE(folder.writeWhole(writer, blue));
    stage->startAnew("2");
    EXPECT_TRUE(stage->comesToShow(blue));
    ASSERT_TRUE(folder.writeNothing(writer));
    EXPECT_TRUE(stage->comesToShow(plain)) << "hidden, and so is the earlier one";
}

TEST_F(ShownPackageTest, thatOfAnEarlierSessionFillsTheDesktop) {
    QImage wide = plainPicture({80, 30}, Qt::red);
    QPainter(&wide).fillRect(QRect(20, 0, 40, 30), Qt::blue);
    keepEarlier(wide);
    open();
    EXPECT_TRUE(stage->comesToShow(blue)) << "its middle: " << stage->said();
}

TEST_F(ShownPackageTest, theNewestOfEach) {
    ASSERT_TRUE(folder.writeWhole(writer, red));
    open();
    ASSERT_TRUE(stage->comesToShow(red)) << stage->said();
    ASSERT_TRUE(folder.writePatches(writer, blue, {QRect(0, 0, 6, 4), QRect(20, 10, 8, 8)}));
    QImage expected = withPart(withPart(red, {0, 0, 6, 4}, Qt::blue), {20, 10, 8, 8}, Qt::blue);
    EXPECT_TRUE(stage->comesToShow(expected));
    const QImage green = plainPicture({40, 30}, Qt::green);
    ASSERT_TRUE(folder.writePatches(writer, green, {QRect(2, 2, 20, 10)}));
    expected = withPart(expected, {2, 2, 20, 10}, Qt::green);
    EXPECT_TRUE(stage->comesToShow(expected)) << "later ones lie above";
    ASSERT_TRUE(folder.writeWhole(writer, blue));
    EXPECT_TRUE(stage->comesToShow(blue)) << "without the parts of the last one";
    ASSERT_TRUE(folder.writePatches(writer, red, {QRect(1, 1, 2, 2)}));
    EXPECT_TRUE(stage->comesToShow(withPart(blue, {1, 1, 2, 2}, Qt::red)));
}

TEST_F(ShownPackageTest, manyPicturesInARow) {
    open();
    for (int i = 0; i < 40; ++i) {
        ASSERT_TRUE(folder.writeWhole(writer, plainPicture({40, 30}, QColor(i, 0, 0))));
        ASSERT_TRUE(folder.writePatches(writer, red, {QRect(i, 0, 1, 1)}));
    }
    stage->startAnew("2");
    const QImage last = plainPicture({40, 30}, QColor(39, 0, 0));
    EXPECT_TRUE(stage->comesToShow(withPart(last, {39, 0, 1, 1}, Qt::red))) << stage->said();
}

TEST_F(ShownPackageTest, aPartThatComesWhileTheFolderIsRead) {
    ASSERT_TRUE(folder.writeWhole(writer, red));
    open();
    ASSERT_TRUE(stage->comesToShow(red)) << stage->said();
    QImage expected = red;
    for (int i = 0; i < 20; ++i) {
        const QRect left(i, 0, 1, 8);
        const QRect right(i, 12, 1, 8);
        ASSERT_TRUE(folder.writePatches(writer, blue, {left, right}));
        expected = withPart(withPart(expected, left, Qt::blue), right, Qt::blue);
        ASSERT_TRUE(stage->comesToShow(expected)) << i << stage->said();
    }
}

TEST_F(ShownPackageTest, theLastOneWhenItsFileIsGone) {
    ASSERT_TRUE(folder.writeWhole(writer, red));
    open();
    ASSERT_TRUE(stage->comesToShow(red)) << stage->said();
    folder.remove(writer);
    for (int looks = 0; looks < 20; ++looks) { // it learns of the folder between two of them
        QFile::remove(room.filePath(u"seen.png"_s));
        ASSERT_TRUE(stage->comesToShow(red));
    }
}

TEST_F(ShownPackageTest, thoseOfANewRunWhereTheFolderIsMadeAnew) {
    ASSERT_TRUE(folder.writeWhole(writer, red));
    ASSERT_TRUE(folder.writeWhole(writer, red));
    open();
    ASSERT_TRUE(stage->comesToShow(red)) << stage->said();
    ASSERT_TRUE(QDir(room.filePath(u"tavi"_s)).removeRecursively());
    PictureFolder next(path); // counts from the beginning
    ASSERT_TRUE(next.writeWhole(next.takeOver(), blue));
    stage->startAnew("2");
    EXPECT_TRUE(stage->comesToShow(blue));
}

TEST_F(ShownPackageTest, theFolderIsMadeAnewBetweenTwoLooks) {
    ASSERT_TRUE(folder.writeWhole(writer, red));
    open();
    ASSERT_TRUE(stage->comesToShow(red)) << stage->said();
    ASSERT_TRUE(QDir(path).removeRecursively());
    PictureFolder next(path);
    ASSERT_TRUE(next.writeWhole(next.takeOver(), blue)) << "with the number of the last one";
    EXPECT_TRUE(stage->comesToShow(blue)) << stage->said();
    ASSERT_TRUE(next.writeWhole(next.takeOver(), red));
    EXPECT_TRUE(stage->comesToShow(red)) << stage->said();
}

TEST_F(ShownPackageTest, ofAnotherOutputAreLeftOut) {
    PictureFolder another(around + u"/DP-1"_s);
    ASSERT_TRUE(another.writeWhole(another.takeOver(), blue));
    open();
    ASSERT_TRUE(stage->comesToShow(plain)) << stage->said();
    ASSERT_TRUE(folder.writeWhole(writer, red));
    EXPECT_TRUE(stage->comesToShow(red)) << stage->said();
}

TEST_F(ShownPackageTest, partsOfAnEarlierRunGoWithItsPicture) {
    ASSERT_TRUE(folder.writeWhole(writer, red));
    ASSERT_TRUE(folder.writePatches(writer, blue, {{0, 0, 4, 4}, {8, 8, 4, 4}, {16, 16, 4, 4}}));
    open();
    ASSERT_TRUE(stage->comesToShow(
        withPart(withPart(withPart(red, {0, 0, 4, 4}, Qt::blue), {8, 8, 4, 4}, Qt::blue),
                 {16, 16, 4, 4}, Qt::blue)))
        << stage->said();
    ASSERT_TRUE(QDir(path).removeRecursively());
    PictureFolder next(room.filePath(u"next/plasma/_"_s));
    const quint64 run = next.takeOver();
    ASSERT_TRUE(next.writeWhole(run, red));
    ASSERT_TRUE(next.writeWhole(run, blue)); // with a higher number than the last one
    ASSERT_TRUE(next.writePatches(run, red, {{20, 2, 4, 4}})); // with one of the last parts
    ASSERT_TRUE(QDir().rename(room.filePath(u"next/plasma/_"_s), path));
    EXPECT_TRUE(stage->comesToShow(withPart(blue, {20, 2, 4, 4}, Qt::red))) << stage->said();
}

/// As of one whose output has not come yet; it would be read by the model itself.
TEST_F(ShownPackageTest, theFolderItWasStartedInIsNotLookedAt) {
    ASSERT_TRUE(QDir().mkpath(room.filePath(u".hidden"_s)));
    PictureFolder wrong(room.filePath(u"_"_s)); // the stage starts in the room
    ASSERT_TRUE(wrong.writeWhole(wrong.takeOver(), blue));
    open();
    ASSERT_TRUE(stage->comesToShow(plain)) << stage->said();
    ASSERT_TRUE(folder.writeWhole(writer, red));
    stage->startAnew("2");
    EXPECT_TRUE(stage->comesToShow(red)) << stage->said();
}

TEST_F(ShownPackageTest, oneColourWhileTheSurfaceIsHidden) {
    ASSERT_TRUE(folder.writeWhole(writer, red));
    open();
    ASSERT_TRUE(stage->comesToShow(red)) << stage->said();
    ASSERT_TRUE(folder.writeNothing(writer));
    EXPECT_TRUE(stage->comesToShow(plain));
}

} // namespace zeph
