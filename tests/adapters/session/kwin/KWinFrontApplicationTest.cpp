// SPDX-License-Identifier: MIT
#include "KWinFixture.h"

#include "adapters/apps/InstalledEntries.h"
#include "adapters/session/kwin/KWinFrontApplication.h"

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace zeph {

class KWinFrontApplicationTest : public PlayedKWinTest {
protected:
    void openFront() {
        kwin.appear();
        open();
        workspace.emplace(*script, installed.entries(), runLoop);
        told = script->subscribeToFront([this](const auto & /*window*/) { ++tellings; });
        activations = workspace->subscribeToActivations([this](const RunningApplication &front) {
            seen.append(front.localizedName.value_or(u"?"_s));
        });
    }

    void activate(const QString &windowClass, const QString &desktopFile = {}, int process = 0) {
        const int before = tellings;
        kwin.tellFront(windowClass, desktopFile, process);
        ASSERT_TRUE(eventually([&] { return tellings == before + 1; }));
    }

    std::optional<QString> front() const {
        const auto application = workspace->frontmostApplication();
        return application ? application->bundleIdentifier : std::nullopt;
    }

    ManualClock clock;
    ManualRunLoop runLoop{clock};
    InstalledEntries installed;
    std::optional<KWinFrontApplication> workspace;
    int tellings = 0;
    QStringList seen;
    Subscription told;
    Subscription activations;
};

TEST_F(KWinFrontApplicationTest, isFoundByItsDesktopEntry) {
    openFront();
    activate(u"whatever"_s, u"org.example.Editor"_s);
    EXPECT_EQ(front(), u"org.example.Editor"_s);
    activate(u"XTermLike"_s);
    EXPECT_EQ(front(), u"term"_s);
}

TEST_F(KWinFrontApplicationTest, nothingBetweenTwoWindowsIsNoChange) {
    openFront();
    activate(u"XTermLike"_s);
    activate({});
    EXPECT_EQ(front(), u"term"_s);
    activate(u"XTermLike"_s);
    runLoop.advance(1);
    EXPECT_EQ(front(), u"term"_s);
    EXPECT_EQ(seen, QStringList{u"Terminal"_s});
}

TEST_F(KWinFrontApplicationTest, nothingForLongerIsTheDesktop) {
    openFront();
    activate(u"XTermLike"_s);
    activate({});
    runLoop.advance(0.06);
    EXPECT_EQ(workspace->frontmostApplication(), std::nullopt);
}

TEST_F(KWinFrontApplicationTest, aWindowOfOursIsNoApplicationInFront) {
    openFront();
    activate(u"XTermLike"_s);
    activate(u"tavi"_s, u"com.tavi.Tavi"_s);
    runLoop.advance(0.06);
    EXPECT_EQ(workspace->frontmostApplication(), std::nullopt);
    activate(u"XTermLike"_s, {}, getpid());
    EXPECT_EQ(front(), u"term"_s) << "a sandbox may have such a process too";
    activate(u"com.tavi.tavi"_s);
    runLoop.advance(0.06);
    EXPECT_EQ(workspace->frontmostApplication(), std::nullopt);
}

TEST_F(KWinFrontApplicationTest, noneIsInFrontOnceKWinIsGone) {
    openFront();
    activate(u"XTermLike"_s);
    kwin.vanish();
    ASSERT_TRUE(eventually([&] { return tellings == 2; }));
    runLoop.advance(0.06);
    EXPECT_EQ(workspace->frontmostApplication(), std::nullopt);
}

} // namespace zeph
