// SPDX-License-Identifier: MIT
// The census of a real folder on the real threads.
#include "adapters/loop/QtRunLoop.h"
#include "adapters/loop/QtTaskExecutor.h"
#include "adapters/power/QuietestHold.h"
#include "adapters/storage/FolderTree.h"
#include "adapters/storage/LinuxDesktopFolder.h"
#include "base/Background.h"
#include "sensing/DesktopMonitor.h"
#include "support/LeastGrowth.h"
#include "support/WaitUntil.h"

#include <atomic>
#include <future>
#include <latch>
#include <memory>
#include <vector>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// A folder at whose beginning and end the test may do something, on the thread that lists.
class WatchedFolder : public LinuxDesktopFolder {
public:
    using LinuxDesktopFolder::LinuxDesktopFolder;

    bool visitEntries(const QByteArray &url, const Visitor &visit) const override {
        atBegin();
        const bool isWhole = LinuxDesktopFolder::visitEntries(url, visit);
        atEnd();
        return isWhole;
    }

    std::function<void()> atBegin = [] {};
    std::function<void()> atEnd = [] {};
};

/// A census with its threads; the threads end before the folder.
struct Census {
    explicit Census(const QByteArray &path) : folder(path) {}

    bool take() {
        const int before = censuses;
        monitor.sample();
        return waitUntil([&] { return censuses > before; }, std::chrono::seconds(20));
    }

    QtRunLoop loop;
    WatchedFolder folder;
    QtTaskExecutor executor{2};
    Background background = Background::over(executor, loop);
    DesktopMonitor monitor{folder, background};
    int censuses = 0;
    Subscription counting = monitor.subscribe([this] { ++censuses; });
};

TEST(CensusOfAFolder, followsWhatIsPutThereAndTaken) {
    const FolderTree tree;
    Census census(tree.path());
    EXPECT_FALSE(census.monitor.summary().available);
    ASSERT_TRUE(census.take());
    EXPECT_EQ(census.monitor.summary(), (DesktopSummary{0, {}, 0, true}));

    tree.addFile("Screenshot 1.png", 5'000'000'000);
    tree.addFile(".hidden.png", 1);
    tree.addFile("B\xFCro.JPG", 1);
    tree.addFolder("Screenshots");
    tree.addFile("Screenshots/Screenshot 2.png", 1);
    tree.addLink("link.pdf", "/nonexistent");
    tree.addPipe("pipe");
    ASSERT_TRUE(census.take());
    const DesktopSummary full{5,
                              {{DesktopCategory::screenshots, 1},
                               {DesktopCategory::images, 1},
                               {DesktopCategory::documents, 1},
                               {DesktopCategory::folders, 1},
                               {DesktopCategory::other, 1}},
                              5'000'000'000,
                              true};
    EXPECT_EQ(census.monitor.summary(), full);

    ASSERT_EQ(::unlink(tree.path("Screenshot 1.png").constData()), 0);
    ASSERT_TRUE(census.take());
    EXPECT_EQ(census.monitor.summary().totalItems, 4);
}

TEST(CensusOfAFolder, keepsTheLastNumbersWhenTheFolderVanishes) {
    const FolderTree tree;
    tree.addFolder("desk");
    tree.addFile("desk/a.zip", 1);
    std::atomic<int> listings = 0;
    Census census(tree.path("desk"));
    census.folder.atEnd = [&] { ++listings; };
    ASSERT_TRUE(census.take());
    const DesktopSummary before = census.monitor.summary();
    EXPECT_EQ(before, (DesktopSummary{1, {{DesktopCategory::archives, 1}}, 0, true}));
    ASSERT_EQ(::unlink(tree.path("desk/a.zip").constData()), 0);
    ASSERT_EQ(::rmdir(tree.path("desk").constData()), 0);
    census.monitor.sample();
    ASSERT_TRUE(waitUntil([&] { return listings == 2; }, std::chrono::seconds(20)));
    runLoopFor(std::chrono::milliseconds(20));
    EXPECT_EQ(census.monitor.summary(), before);
    tree.addFolder("desk");
    EXPECT_TRUE(waitUntil(
        [&] {
            census.monitor.sample();
            return census.monitor.summary().totalItems == 0;
        },
        std::chrono::seconds(20)));
}

TEST(CensusOfAFolder, ofTenThousandFilesDoesNotHoldTheMainThread) {
    const FolderTree tree;
    for (int number = 0; number < 5'000; ++number) {
        tree.addFile("Screenshot from 2024-03-01 " + QByteArray::number(number) + ".png", 10);
        tree.addFile("Quarterly figures, " + QByteArray::number(number) + " of many.xlsx", 10);
    }
    Census census(tree.path());
    const double hold = quietestHoldMs([&](MainThreadWatch &watch) {
        const int beats = watch.beats();
        EXPECT_TRUE(waitUntil([&] { return watch.beats() > beats + 1; }));
        ASSERT_TRUE(census.take());
        EXPECT_TRUE(waitUntil([&, now = watch.beats()] { return watch.beats() > now + 1; }));
    });
    RecordProperty("hold", std::to_string(hold));
    EXPECT_LT(hold, 5);
    EXPECT_EQ(census.monitor.summary(), (DesktopSummary{10'000,
                                                        {{DesktopCategory::screenshots, 5'000},
                                                         {DesktopCategory::documents, 5'000}},
                                                        50'000,
                                                        true}));
}

TEST(CensusOfAFolder, servesTheLastNumbersWhileTheDiskHangs) {
    const FolderTree tree;
    tree.addFile("a.mp3", 1);
    std::atomic<bool> isHanging = false;
    std::promise<void> release;
    const std::shared_future<void> released = release.get_future().share();
    Census census(tree.path());
    census.folder.atBegin = [&] {
        if (isHanging) {
            released.wait();
        }
    };
    ASSERT_TRUE(census.take());
    isHanging = true;
    const double hold = quietestHoldMs([&](MainThreadWatch &watch) {
        for (int tick = 0; tick < 20; ++tick) {
            const int beats = watch.beats();
            census.monitor.sample();
            EXPECT_TRUE(waitUntil([&] { return watch.beats() > beats + 1; }));
        }
    });
    EXPECT_LT(hold, 5);
    EXPECT_EQ(census.monitor.summary(),
              (DesktopSummary{1, {{DesktopCategory::media, 1}}, 0, true}));
    tree.addFile("b.mp3", 1);
    release.set_value();
    EXPECT_TRUE(waitUntil([&] { return census.monitor.summary().totalItems == 2; },
                          std::chrono::seconds(20)));
}

TEST(CensusOfAFolder, onSeveralThreadsKeepsNoMemoryForItsNames) {
    constexpr int threads = 8;
    constexpr int files = 4'000;
    const FolderTree tree;
    for (int number = 0; number < files; ++number) {
        tree.addFile("Quarterly figures, " + QByteArray::number(number) + " of many.xlsx", 10);
    }
    QtRunLoop loop;
    WatchedFolder folder(tree.path());
    // All threads stand at the end of the listing at once.
    std::latch ended(threads);
    std::atomic<std::size_t> held = 0;
    folder.atEnd = [&] {
        ended.arrive_and_wait();
        held = mallinfo2().uordblks;
    };
    QtTaskExecutor executor(threads);
    const Background background = Background::over(executor, loop);
    std::vector<std::unique_ptr<DesktopMonitor>> monitors;
    const auto before = mallinfo2().uordblks;
    for (int thread = 0; thread < threads; ++thread) {
        monitors.push_back(std::make_unique<DesktopMonitor>(folder, background));
        monitors.back()->sample();
    }
    ASSERT_TRUE(
        waitUntil([&] { return monitors.back()->summary().available; }, std::chrono::seconds(20)));
    EXPECT_EQ(monitors.back()->summary().totalItems, files);
    const auto growth = static_cast<std::int64_t>(held) - static_cast<std::int64_t>(before);
    RecordProperty("growth", static_cast<int>(growth));
    EXPECT_LT(growth, threads * std::int64_t(100'000)) << "25 bytes a name";
}

TEST(CensusOfAFolder, isTakenAThousandTimesWithoutGrowth) {
    const FolderTree tree;
    for (int number = 0; number < 50; ++number) {
        tree.addFile("Screenshot " + QByteArray::number(number) + ".png", 10);
    }
    Census census(tree.path());
    const auto takeMany = [&] {
        for (int round = 0; round < 200; ++round) {
            ASSERT_TRUE(census.take());
        }
    };
    takeMany();
    const auto growth = leastGrowth(5, takeMany);
    RecordProperty("growth", static_cast<int>(growth));
    EXPECT_LT(growth, 200 * 16) << "less than 16 bytes a census";
}

} // namespace

} // namespace zeph
