// SPDX-License-Identifier: MIT
#include "adapters/icons/DesktopIconsWatch.h"

#include "adapters/loop/QtRunLoop.h"
#include "adapters/loop/QtTaskExecutor.h"
#include "base/Background.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

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
                            m_background};
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

} // namespace zeph
