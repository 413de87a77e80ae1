// SPDX-License-Identifier: MIT
#include "sensing/DesktopMonitor.h"

#include "base/Background.h"
#include "support/FakeDesktopFolder.h"
#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <limits>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

using enum DesktopCategory;
using Counts = std::map<DesktopCategory, qint64>;

class DesktopCensus : public testing::Test {
protected:
    void addFile(const QString &name, std::optional<qint64> size = 1000) {
        folder.listing->push_back({name, false, size});
    }
    const DesktopSummary &sampled() {
        monitor->sample();
        finishTasks();
        return monitor->summary();
    }
    void finishTasks() {
        executor.runAll();
        loop.drain();
    }
    Counts countsOf(const QString &name) {
        folder.listing = {{name, false, 1000}};
        return sampled().counts;
    }

    ManualClock clock;
    ManualRunLoop loop{clock};
    ManualTaskExecutor executor;
    Background background = Background::over(executor, loop);
    FakeDesktopFolder folder;
    std::unique_ptr<DesktopMonitor> monitor = std::make_unique<DesktopMonitor>(folder, background);
};

TEST_F(DesktopCensus, startsUnavailableAndEmpty) {
    EXPECT_EQ(monitor->summary(), (DesktopSummary{0, {}, 0, false}));
    EXPECT_TRUE(folder.asked.empty()) << "nothing is read before it is asked for";
}

TEST_F(DesktopCensus, ofAnEmptyDesktopIsZeroItemsAndAvailable) {
    EXPECT_EQ(sampled(), (DesktopSummary{0, {}, 0, true}));
}

TEST_F(DesktopCensus, asksForTheFolderFoundAtCreation) {
    folder.path = QByteArray("/elsewhere");
    sampled();
    EXPECT_EQ(folder.asked, std::vector<QByteArray>{"/home/ada/Desktop"});
}

TEST_F(DesktopCensus, isNotTakenWithoutADesktopFolder) {
    folder.path.reset();
    DesktopMonitor homeless(folder, background);
    homeless.sample();
    finishTasks();
    EXPECT_TRUE(folder.asked.empty());
    EXPECT_EQ(homeless.summary(), DesktopSummary{});
}

TEST_F(DesktopCensus, staysUnavailableUntilAFirstSuccess) {
    folder.listing.reset();
    EXPECT_EQ(sampled(), DesktopSummary{});
    EXPECT_EQ(folder.asked.size(), 1U);
    folder.listing = {{u"a.pdf"_s, false, 5}};
    EXPECT_EQ(sampled(), (DesktopSummary{1, {{documents, 1}}, 0, true}));
}

TEST_F(DesktopCensus, keepsTheOldNumbersOnALaterFailure) {
    addFile(u"Screenshot.png"_s, 70);
    sampled();
    folder.listing.reset();
    EXPECT_EQ(sampled(), (DesktopSummary{1, {{screenshots, 1}}, 70, true}));
}

TEST_F(DesktopCensus, isTakenAwayFromTheMainThreadAndToldWhenItIsThere) {
    addFile(u"a.pdf"_s);
    std::vector<DesktopSummary> told;
    const auto watch = monitor->subscribe([&] { told.push_back(monitor->summary()); });
    monitor->sample();
    EXPECT_TRUE(folder.asked.empty()) << "nothing is listed on the main thread";
    executor.runAll();
    EXPECT_TRUE(told.empty()) << "nothing is told elsewhere";
    loop.drain();
    EXPECT_EQ(told, (std::vector{DesktopSummary{1, {{documents, 1}}, 0, true}}));
}

TEST_F(DesktopCensus, isNotToldOfWhenTheFolderCantBeRead) {
    int told = 0;
    const auto watch = monitor->subscribe([&] { ++told; });
    folder.listing.reset();
    sampled();
    EXPECT_EQ(told, 0);
    folder.listing.emplace();
    sampled();
    EXPECT_EQ(told, 1) << "an empty folder is no failure";
}

TEST_F(DesktopCensus, isTakenOnceAtATimeHoweverOftenItIsAskedFor) {
    for (int question = 0; question < 100; ++question) {
        monitor->sample();
    }
    EXPECT_EQ(executor.waiting(), 1U) << "a disk that hangs holds one thread";
    finishTasks();
    EXPECT_EQ(folder.asked.size(), 1U);
    sampled();
    EXPECT_EQ(folder.asked.size(), 2U);
}

TEST_F(DesktopCensus, mayComeAfterTheEndOfWhoAskedForIt) {
    int told = 0;
    const auto watch = monitor->subscribe([&] { ++told; });
    monitor->sample();
    executor.runAll();
    monitor.reset();
    finishTasks();
    EXPECT_EQ(told, 0);
}

TEST_F(DesktopCensus, replacesTheEarlierOneWhole) {
    addFile(u"Screenshot.png"_s, 70);
    sampled();
    folder.listing = {{u"song.mp3"_s, false, 9}};
    EXPECT_EQ(sampled(), (DesktopSummary{1, {{media, 1}}, 0, true}));
}

TEST_F(DesktopCensus, countsEveryEntryOnceAndHasNoKeyForWhatIsNotThere) {
    addFile(u"a.png"_s);
    addFile(u"b.png"_s);
    addFile(u"c.zip"_s);
    addFile(u"README"_s);
    folder.listing->push_back({u"work"_s, true, 4096});
    EXPECT_EQ(sampled(),
              (DesktopSummary{5, {{images, 2}, {archives, 1}, {folders, 1}, {other, 1}}, 0, true}));
}

TEST_F(DesktopCensus, lowersTheCaseOfTheExtension) {
    EXPECT_EQ(countsOf(u"IMG_1.JPG"_s), (Counts{{images, 1}}));
}

TEST_F(DesktopCensus, lowersTheCaseOfNamesThatAreNotAscii) {
    EXPECT_EQ(countsOf(u"\u00DCBER.JPG"_s), (Counts{{images, 1}}));
    EXPECT_EQ(countsOf(u"SCREEN SHOT \u00C9t\u00E9.PNG"_s), (Counts{{screenshots, 1}}));
    EXPECT_EQ(countsOf(u"talk.\u212AEY"_s), (Counts{{documents, 1}})) << "the Kelvin sign is a k";
}

TEST_F(DesktopCensus, findsTheWordAfterAnUnfinishedOne) {
    EXPECT_EQ(countsOf(u"screen of a screen recording"_s), (Counts{{screenshots, 1}}));
    EXPECT_EQ(countsOf(u"screen screen"_s), (Counts{{other, 1}}));
}

TEST_F(DesktopCensus, takesAPngNamedCleanShotForAScreenshotOnlyAtTheBeginning) {
    EXPECT_EQ(countsOf(u"CleanShot 2024.png"_s), (Counts{{screenshots, 1}}));
    EXPECT_EQ(countsOf(u"my cleanshot.png"_s), (Counts{{images, 1}}));
}

TEST_F(DesktopCensus, takesAScreenRecordingForAScreenshotWithItsSize) {
    addFile(u"Screen Recording 1.mov"_s, 123'456'789);
    EXPECT_EQ(sampled(), (DesktopSummary{1, {{screenshots, 1}}, 123'456'789, true}));
}

TEST_F(DesktopCensus, takesAFolderNamedScreenshotsForAFolder) {
    folder.listing->push_back({u"Screenshots"_s, true, 4096});
    EXPECT_EQ(sampled(), (DesktopSummary{1, {{folders, 1}}, 0, true}));
}

TEST_F(DesktopCensus, takesAPackageThatIsAFolderForAFolder) {
    folder.listing->push_back({u"Editor.zip"_s, true, std::nullopt});
    EXPECT_EQ(sampled().counts, (Counts{{folders, 1}}));
}

TEST_F(DesktopCensus, takesADoubleEndingByTheLast) {
    EXPECT_EQ(countsOf(u"backup.tar.gz"_s), (Counts{{archives, 1}}));
    EXPECT_EQ(countsOf(u"backup.gz.bak"_s), (Counts{{other, 1}}));
}

TEST_F(DesktopCensus, findsTheWordsOfAScreenshotAnywhereInTheNameInAnyCase) {
    for (const QString &name :
         {u"Screenshot from today.png"_s, u"my SCREENSHOT"_s, u"old Screen Shot 3.txt"_s,
          u"a screen recording.zip"_s, u"x.screenshot"_s, u"CLEANSHOT"_s}) {
        EXPECT_EQ(countsOf(name), (Counts{{screenshots, 1}})) << name.toStdString();
    }
    for (const QString &name : {u"screens hot"_s, u"screen_shot"_s, u"screenrecording"_s}) {
        EXPECT_EQ(countsOf(name), (Counts{{other, 1}})) << name.toStdString();
    }
}

TEST_F(DesktopCensus, letsTheNameDecideBeforeTheExtension) {
    addFile(u"Screenshot notes.pdf"_s, 50);
    addFile(u"Screenshot.png"_s, 7);
    addFile(u"Screenshot of nothing"_s, std::nullopt);
    EXPECT_EQ(sampled(), (DesktopSummary{3, {{screenshots, 3}}, 57, true}));
}

TEST_F(DesktopCensus, countsNoBytesOfAnythingElse) {
    addFile(u"holiday.png"_s, 5'000);
    EXPECT_EQ(sampled().screenshotBytes, 0);
}

TEST_F(DesktopCensus, classifiesByNameAloneWhenTheValuesAreRefused) {
    folder.listing = {{u"Screenshot.png"_s, std::nullopt, std::nullopt},
                      {u"a.mp3"_s, std::nullopt, std::nullopt},
                      {u"folder"_s, std::nullopt, std::nullopt}};
    EXPECT_EQ(sampled(), (DesktopSummary{3, {{screenshots, 1}, {media, 1}, {other, 1}}, 0, true}));
}

TEST_F(DesktopCensus, stopsAddingAtTheLargestNumber) {
    constexpr qint64 most = std::numeric_limits<qint64>::max();
    addFile(u"screenshot 1"_s, most - 1);
    addFile(u"screenshot 2"_s, most - 1);
    EXPECT_EQ(sampled().screenshotBytes, most);
}

TEST_F(DesktopCensus, knowsEveryExtensionOfEveryCategory) {
    const std::map<DesktopCategory, QStringList> lists{
        {images, u"png jpg jpeg gif heic heif webp tiff tif bmp svg"_s.split(u' ')},
        {documents,
         u"pdf doc docx txt md rtf pages key numbers xls xlsx ppt pptx csv"_s.split(u' ')},
        {archives, u"zip dmg rar 7z tar gz pkg"_s.split(u' ')},
        {media, u"mp4 mov m4v avi mkv mp3 wav m4a aiff flac"_s.split(u' ')},
    };
    for (const auto &[category, extensions] : lists) {
        for (const QString &extension : extensions) {
            EXPECT_EQ(countsOf(u"name."_s + extension), (Counts{{category, 1}}))
                << extension.toStdString();
            EXPECT_EQ(countsOf(extension), (Counts{{other, 1}})) << extension.toStdString();
        }
    }
}

TEST_F(DesktopCensus, comparesExtensionsExactly) {
    for (const QString &name : {u"a.pn"_s, u"a.pngs"_s, u"a. png"_s, u"a."_s, u"a.png."_s,
                                u"a.\u0440df"_s, u"no ending"_s, u""_s}) {
        EXPECT_EQ(countsOf(name), (Counts{{other, 1}})) << name.toStdString();
    }
}

} // namespace

} // namespace zeph
