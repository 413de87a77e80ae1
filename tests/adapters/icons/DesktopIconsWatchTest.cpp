// SPDX-License-Identifier: MIT
#include "adapters/icons/DesktopIconsWatch.h"

#include "adapters/bus/PrivateBus.h"
#include "adapters/loop/QtRunLoop.h"
#include "adapters/loop/QtTaskExecutor.h"
#include "base/Background.h"
#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// How many folders the kernel watches for this process.
int watchedFolders() {
    int count = 0;
    const QDir descriptors(u"/proc/self/fdinfo"_s);
    const QStringList names = descriptors.entryList(QDir::Files);
    for (const QString &name : names) {
        QFile file(descriptors.filePath(name));
        count += file.open(QIODevice::ReadOnly)
                     ? static_cast<int>(file.readAll().count("inotify wd:"))
                     : 0;
    }
    return count;
}

class DesktopIconsWatchTest : public testing::Test {
protected:
    void write(const QByteArray &arrangement) const {
        const QString folder = m_home.filePath(u"config/xfce4/desktop"_s);
        QDir().mkpath(folder);
        QFile file(folder + u"/icons.screen.latest.rc"_s);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(arrangement);
    }

private:
    QTemporaryDir m_home;
    QtRunLoop m_runLoop;
    QtTaskExecutor m_executor{2, QtTaskExecutor::Start::atOnce};
    Background m_background = Background::over(m_executor, m_runLoop);

protected:
    DesktopIconsWatch icons{IconStore{IconStore::Kind::xfdesktop,
                                      {m_home.filePath(u"config"_s), m_home.filePath(u"data"_s),
                                       QFile::encodeName(m_home.filePath(u"Desktop"_s))}},
                            m_background, QDBusConnection(u"no bus"_s)};
};

/// Icons that Plasma's shell tells.
class PlasmaIconsWatchTest : public testing::Test {
protected:
    void appear() {
        m_shell = std::make_unique<BusConnection>(m_bus.address());
        isRunning = true;
        ASSERT_TRUE(m_shell->bus().registerService(u"org.kde.plasmashell"_s));
    }
    void vanish() {
        isRunning = false;
        m_shell.reset();
    }

    /// Whether its desktop, and no guess, is what is known.
    bool areTold() const { return icons.icons().displays.size() == 1; }

    std::atomic<bool> isRunning = false;
    std::atomic<bool> hasDesktops = true;
    std::atomic<int> questions = 0;

private:
    IconStore store() {
        const QString home = m_home.path();
        return {IconStore::Kind::plasma,
                {home + u"/config"_s, home + u"/data"_s, QFile::encodeName(home + u"/Desktop"_s)},
                {},
                [this](const QString &) -> std::optional<QString> {
                    ++questions;
                    if (!isRunning) {
                        return std::nullopt;
                    }
                    const QString desktop = u"{\"type\":\"org.kde.plasma.folder\",\"screen\":0}"_s;
                    return u"{\"desktops\":[%1]}"_s.arg(hasDesktops ? desktop : QString());
                }};
    }

    QTemporaryDir m_home;
    PrivateBus m_bus;
    std::unique_ptr<BusConnection> m_shell;
    BusConnection m_own{m_bus.address()};
    QtRunLoop m_runLoop;
    QtTaskExecutor m_executor{2, QtTaskExecutor::Start::atOnce};
    Background m_background = Background::over(m_executor, m_runLoop);

protected:
    DesktopIconsWatch icons{store(), m_background, m_own.bus()};
};

} // namespace

TEST_F(DesktopIconsWatchTest, followsTheArrangement) {
    write("[a]\nrow=0\ncol=0\n");
    icons.setOn(true);
    ASSERT_TRUE(waitUntil([&] { return icons.icons().places.size() == 1; }));
    write("[a]\nrow=0\ncol=0\n[b]\nrow=1\ncol=0\n");
    EXPECT_TRUE(waitUntil([&] { return icons.icons().places.size() == 2; }));
    write("[a]\nrow=0\ncol=0\n[b]\nrow=1\ncol=0\n[c]\nrow=2\ncol=0\n");
    EXPECT_TRUE(waitUntil([&] { return icons.icons().places.size() == 3; }));
}

TEST(DesktopIconsWatchThreadTest, touchesNoFolderOnTheMainThread) {
    const QTemporaryDir home;
    QDir().mkpath(home.filePath(u"Desktop"_s));
    ManualClock clock;
    ManualRunLoop loop(clock);
    ManualTaskExecutor executor;
    const Background background = Background::over(executor, loop);
    DesktopIconsWatch icons{IconStore{IconStore::Kind::xfdesktop,
                                      {home.filePath(u"config"_s), home.filePath(u"data"_s),
                                       QFile::encodeName(home.filePath(u"Desktop"_s))}},
                            background, QDBusConnection(u"no bus"_s)};
    const int before = watchedFolders();
    icons.setOn(true);
    EXPECT_EQ(watchedFolders(), before) << "it may be on another machine, and hang";
    executor.runAll();
    EXPECT_GT(watchedFolders(), before);
}

TEST_F(DesktopIconsWatchTest, forgetsThemWhenNobodyWantsToKnow) {
    write("[a]\nrow=0\ncol=0\n");
    icons.setOn(true);
    ASSERT_TRUE(waitUntil([&] { return icons.icons().places.size() == 1; }));
    int calls = 0;
    const Subscription told = icons.subscribe([&] { ++calls; });
    icons.setOn(false);
    EXPECT_EQ(icons.icons(), DesktopIcons());
    EXPECT_EQ(calls, 1);
}

TEST_F(DesktopIconsWatchTest, takesNothingThatWasReadTooLate) {
    write("[a]\nrow=0\ncol=0\n");
    icons.setOn(true);
    icons.setOn(false);
    runLoopFor(std::chrono::milliseconds(100));
    EXPECT_EQ(icons.icons(), DesktopIcons());
}

TEST_F(PlasmaIconsWatchTest, asksAShellThatIsThereOnce) {
    appear();
    icons.setOn(true);
    EXPECT_TRUE(waitUntil([&] { return areTold(); }));
    runLoopFor(std::chrono::milliseconds(100));
    EXPECT_EQ(questions, 1);
}

TEST_F(PlasmaIconsWatchTest, asksAShellThatStartsLate) {
    icons.setOn(true);
    ASSERT_TRUE(waitUntil([&] { return icons.icons().isGuessed; }));
    appear();
    EXPECT_TRUE(waitUntil([&] { return areTold(); }));
    EXPECT_FALSE(icons.icons().isGuessed);
}

TEST_F(PlasmaIconsWatchTest, asksAgainWhileTheShellHasNoDesktopsYet) {
    hasDesktops = false;
    appear();
    icons.setOn(true);
    ASSERT_TRUE(waitUntil([&] { return icons.icons().isGuessed; }));
    hasDesktops = true;
    EXPECT_TRUE(waitUntil([&] { return areTold(); }));
}

TEST_F(PlasmaIconsWatchTest, keepsWhatAShellToldUntilTheNextOneTellsMore) {
    appear();
    icons.setOn(true);
    ASSERT_TRUE(waitUntil([&] { return areTold(); }));
    int calls = 0;
    const Subscription told = icons.subscribe([&] { ++calls; });
    const int before = questions;
    vanish();
    hasDesktops = false;
    appear();
    ASSERT_TRUE(waitUntil([&] { return questions > before; }));
    runLoopFor(std::chrono::milliseconds(50));
    EXPECT_TRUE(areTold());
    EXPECT_EQ(calls, 0);
}

} // namespace zeph
