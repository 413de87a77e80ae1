// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/PictureFolders.h"

#include "ShownPictures.h"
#include "support/FileMode.h"
#include "support/FullDisk.h"
#include "support/QtPrinters.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <thread>

using namespace Qt::StringLiterals;

namespace zeph {

class PictureFolderTest : public testing::Test {
protected:
    QString path(const QString &name = {}) const {
        return around.filePath(u"tavi/plasma/DP-1"_s) + (name.isEmpty() ? QString() : u'/' + name);
    }
    QStringList underWay() const {
        return QDir(around.filePath(u"tavi"_s)).entryList(QDir::Files | QDir::Hidden);
    }

    const QTemporaryDir around;
    PictureFolder folder{path()};
    const quint64 writer = folder.takeOver();
    const QString kept = around.filePath(u"cache/tavi/plasma/DP-1"_s);
    PictureFolder keeping{path(), kept};
    const QImage red = plainPicture({40, 30}, Qt::red);
    const QImage blue = plainPicture({40, 30}, Qt::blue);
};

TEST_F(PictureFolderTest, makesItsFoldersForTheUserAlone) {
    ASSERT_TRUE(folder.writeWhole(writer, red));
    for (const QString &one : {u"tavi"_s, u"tavi/plasma"_s, u"tavi/plasma/DP-1"_s}) {
        EXPECT_EQ(fileMode(around.filePath(one)), 0700) << one.toStdString();
    }
}

TEST_F(PictureFolderTest, aPictureIsABitmapThatIsReadAsItWasPainted) {
    QImage painted = red;
    painted.setPixelColor(1, 2, QColor(1, 20, 200));
    ASSERT_TRUE(folder.writeWhole(writer, painted));
    EXPECT_EQ(picturesIn(path()), QStringList{u"f-000000000001.bmp"_s});
    const QImage read(path(u"f-000000000001.bmp"_s));
    EXPECT_EQ(read.format(), QImage::Format_RGB32);
    EXPECT_EQ(read, painted);
    EXPECT_EQ(QFileInfo(path(u"f-000000000001.bmp"_s)).size(), 54 + 40 * 30 * 4);
}

TEST_F(PictureFolderTest, theNextWholePictureTakesThePlaceOfAllBefore) {
    ASSERT_TRUE(folder.writeWhole(writer, red));
    ASSERT_TRUE(folder.writePatches(writer, blue, {QRect(1, 2, 3, 4), QRect(20, 10, 5, 5)}));
    EXPECT_EQ(picturesIn(path()), (QStringList{u"f-000000000001.bmp"_s, u"p-000000000002-1-2.bmp"_s,
                                               u"p-000000000003-20-10.bmp"_s}));
    ASSERT_TRUE(folder.writeWhole(writer, blue));
    EXPECT_EQ(picturesIn(path()), QStringList{u"f-000000000004.bmp"_s});
}

TEST_F(PictureFolderTest, partsLieOverTheWholePicture) {
    QImage expected = red;
    QPainter(&expected).fillRect(QRect(1, 2, 3, 4), Qt::blue);
    ASSERT_TRUE(folder.writeWhole(writer, red));
    ASSERT_TRUE(folder.writePatches(writer, blue, {QRect(1, 2, 3, 4)}));
    EXPECT_EQ(shownBy(path()), expected);
}

TEST_F(PictureFolderTest, aLargePictureIsCompressed) {
    const QImage large = plainPicture({1921, 1080}, Qt::green);
    ASSERT_TRUE(folder.writeWhole(writer, plainPicture({1920, 1080}, Qt::green)));
    EXPECT_EQ(picturesIn(path()), QStringList{u"f-000000000001.bmp"_s});
    ASSERT_TRUE(folder.writeWhole(writer, large));
    EXPECT_EQ(picturesIn(path()), QStringList{u"f-000000000002.png"_s});
    EXPECT_EQ(shownBy(path()), large);
}

TEST_F(PictureFolderTest, nothingIsAPictureWithoutColour) {
    ASSERT_TRUE(folder.writeWhole(writer, red));
    ASSERT_TRUE(folder.writeNothing(writer));
    ASSERT_EQ(picturesIn(path()), QStringList{u"f-000000000002.png"_s});
    EXPECT_EQ(QImage(path(u"f-000000000002.png"_s)).pixelColor(0, 0).alpha(), 0);
}

TEST_F(PictureFolderTest, leavesNothingUnderWay) {
    ASSERT_TRUE(folder.writeWhole(writer, red));
    ASSERT_TRUE(folder.writePatches(writer, red, {QRect(0, 0, 2, 2)}));
    EXPECT_EQ(underWay(), QStringList());
}

TEST_F(PictureFolderTest, goesOnCountingWhereAnEarlierRunEnded) {
    ASSERT_TRUE(folder.writeWhole(writer, red));
    ASSERT_TRUE(folder.writePatches(writer, red, {QRect(0, 0, 2, 2)}));
    PictureFolder next(path());
    ASSERT_TRUE(next.writeWhole(next.takeOver(), blue));
    EXPECT_EQ(picturesIn(path()), QStringList{u"f-000000000003.bmp"_s});
}

TEST_F(PictureFolderTest, leavesFilesOfOthersAlone) {
    ASSERT_TRUE(QDir().mkpath(path()));
    QFile other(path(u"note.txt"_s));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    ASSERT_TRUE(folder.writeWhole(writer, red));
    ASSERT_TRUE(folder.writeWhole(writer, red));
    EXPECT_TRUE(QFile::exists(path(u"note.txt"_s)));
}

TEST_F(PictureFolderTest, whatAnEarlierWriterStillBringsIsLeftOut) {
    const quint64 next = folder.takeOver();
    ASSERT_TRUE(folder.writeWhole(next, blue));
    EXPECT_TRUE(folder.writeWhole(writer, red)) << "nothing went wrong";
    EXPECT_TRUE(folder.writePatches(writer, red, {QRect(0, 0, 2, 2)}));
    EXPECT_TRUE(folder.writeNothing(writer));
    EXPECT_EQ(shownBy(path()), blue);
}

TEST_F(PictureFolderTest, isTakenOverWithoutAWaitForTheDisk) {
    ASSERT_TRUE(folder.writeWhole(writer, red));
    // A disk that takes no more than a pipe does, until somebody reads it.
    const QByteArray slow = QFile::encodeName(around.filePath(u"tavi/.picture-DP-1"_s));
    ASSERT_EQ(mkfifo(slow.constData(), S_IRUSR | S_IWUSR), 0);
    const int reader = open(slow.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    std::thread writing([this] { folder.writeWhole(writer, plainPicture({400, 300}, Qt::blue)); });
    pollfd arrival{reader, POLLIN, 0};
    EXPECT_EQ(poll(&arrival, 1, 10'000), 1);
    folder.takeOver();
    std::array<char, 4096> taken{};
    while (poll(&arrival, 1, 10'000) == 1 && read(reader, taken.data(), taken.size()) > 0) {
    }
    close(reader);
    writing.join();
    EXPECT_EQ(shownBy(path()), red) << "it came too late";
    EXPECT_EQ(underWay(), QStringList());
}

TEST_F(PictureFolderTest, isMadeAnewWhenItWasRemoved) {
    ASSERT_TRUE(folder.writeWhole(writer, red));
    ASSERT_TRUE(QDir(around.filePath(u"tavi"_s)).removeRecursively());
    EXPECT_TRUE(folder.writeWhole(writer, blue));
    EXPECT_EQ(shownBy(path()), blue);
}

TEST_F(PictureFolderTest, isRemovedUnlessSomebodyElseWritesByThen) {
    ASSERT_TRUE(folder.writeWhole(writer, red));
    const quint64 next = folder.takeOver();
    folder.remove(writer);
    EXPECT_TRUE(QFile::exists(path()));
    folder.remove(next);
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(PictureFolderTest, isRemovedWithThePictureThatWouldOutliveTheSession) {
    const quint64 own = keeping.takeOver();
    ASSERT_TRUE(keeping.writeWhole(own, red));
    ASSERT_TRUE(QFile::exists(kept));
    keeping.remove(own);
    EXPECT_FALSE(QFile::exists(kept));
}

TEST_F(PictureFolderTest, keepsThePictureThatIsThereWhenTheDiskIsFull) {
    ASSERT_TRUE(folder.writeWhole(writer, red));
    {
        const FullDisk full(100);
        EXPECT_FALSE(folder.writeWhole(writer, blue));
        EXPECT_FALSE(folder.writePatches(writer, blue, {QRect(0, 0, 20, 20)}));
    }
    EXPECT_EQ(shownBy(path()), red);
    EXPECT_EQ(underWay(), QStringList());
    EXPECT_TRUE(folder.writeWhole(writer, blue)) << "once there is room again";
}

TEST_F(PictureFolderTest, theFirstWholePictureOfAWriterIsCopied) {
    const NoUmask none;
    ASSERT_TRUE(keeping.writeWhole(keeping.takeOver(), red));
    EXPECT_EQ(QImage(kept), red);
    EXPECT_EQ(fileMode(kept), 0600);
    for (const QString &one : {u"cache/tavi"_s, u"cache/tavi/plasma"_s}) {
        EXPECT_EQ(fileMode(around.filePath(one)), 0700) << one.toStdString();
    }
}

TEST_F(PictureFolderTest, onlyTheFirstTwoWholePicturesAreCopied) {
    const quint64 first = keeping.takeOver();
    ASSERT_TRUE(keeping.writeWhole(first, red));
    ASSERT_TRUE(keeping.writePatches(first, blue, {QRect(0, 0, 2, 2)}));
    EXPECT_EQ(QImage(kept), red);
    ASSERT_TRUE(keeping.writeWhole(first, blue));
    EXPECT_EQ(QImage(kept), blue) << "which has more to tell than the first frame";
    ASSERT_TRUE(keeping.writeWhole(first, red));
    ASSERT_TRUE(keeping.writeWhole(first, red));
    EXPECT_EQ(QImage(kept), blue);
    ASSERT_TRUE(keeping.writeWhole(keeping.takeOver(), red));
    EXPECT_EQ(QImage(kept), red) << "the first one of another writer";
}

TEST_F(PictureFolderTest, theLastWholePictureIsCopiedOnDemand) {
    const quint64 first = keeping.takeOver();
    for (const QImage &picture : {red, red, blue}) {
        ASSERT_TRUE(keeping.writeWhole(first, picture));
    }
    EXPECT_EQ(QImage(kept), red);
    keeping.keep();
    EXPECT_EQ(QImage(kept), blue);
    EXPECT_EQ(QDir(QFileInfo(kept).path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

TEST_F(PictureFolderTest, nothingIsNotCopied) {
    const quint64 first = keeping.takeOver();
    ASSERT_TRUE(keeping.writeNothing(first));
    EXPECT_FALSE(QFile::exists(kept));
    ASSERT_TRUE(keeping.writeWhole(first, red));
    EXPECT_EQ(QImage(kept), red);
    ASSERT_TRUE(keeping.writeNothing(first));
    EXPECT_EQ(QImage(kept), red);
    keeping.keep();
    EXPECT_EQ(QImage(kept), red);
}

TEST_F(PictureFolderTest, theCopyBeforeStaysWhereTheDiskIsFull) {
    const quint64 first = keeping.takeOver();
    for (const QImage &picture : {red, red, blue}) {
        ASSERT_TRUE(keeping.writeWhole(first, picture));
    }
    {
        const FullDisk full(100);
        keeping.keep();
    }
    EXPECT_EQ(QImage(kept), red);
    EXPECT_EQ(QDir(QFileInfo(kept).path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    keeping.keep();
    EXPECT_EQ(QImage(kept), blue);
}

TEST_F(PictureFolderTest, isWrittenAlsoWhereNoCopyCanBeMade) {
    QFile file(around.filePath(u"cache"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_TRUE(keeping.writeWhole(keeping.takeOver(), red));
    EXPECT_EQ(shownBy(path()), red);
}

TEST_F(PictureFolderTest, isRefusedWhereAFileLiesInTheWay) {
    ASSERT_TRUE(QDir().mkpath(around.filePath(u"tavi"_s)));
    QFile file(around.filePath(u"tavi/plasma"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_FALSE(folder.writeWhole(writer, red));
}

TEST(PictureFolders, eachOutputHasItsOwnCopy) {
    const QTemporaryDir around;
    PictureFolders folders(around.filePath(u"tavi/plasma"_s), around.filePath(u"kept"_s));
    const QImage red = plainPicture({4, 3}, Qt::red);
    for (const QString &output : {u"DP-1"_s, u"HDMI/1"_s}) {
        const auto folder = folders.of(output);
        ASSERT_TRUE(folder->writeWhole(folder->takeOver(), red));
    }
    EXPECT_EQ(folders.all().size(), 2U);
    EXPECT_EQ(QImage(around.filePath(u"kept/DP-1"_s)), red);
    EXPECT_EQ(QImage(around.filePath(u"kept/HDMI_1"_s)), red);
}

TEST(PictureFolders, anOutputHasOneFolder) {
    const QTemporaryDir around;
    PictureFolders folders(around.filePath(u"tavi/plasma"_s));
    const auto first = folders.of(u"DP-1"_s);
    EXPECT_EQ(folders.of(u"DP-1"_s), first);
    const auto second = folders.of(u"HDMI/1"_s);
    EXPECT_NE(second, first);
    ASSERT_TRUE(second->writeNothing(second->takeOver()));
    EXPECT_TRUE(QFile::exists(around.filePath(u"tavi/plasma/HDMI_1"_s)));
}

} // namespace zeph
