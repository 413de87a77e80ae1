// SPDX-License-Identifier: MIT
#include "InstalledEntries.h"

#include "adapters/apps/FrontApplication.h"
#include "adapters/apps/RunningProgram.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStringList>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

ApplicationHints hints(const QString &windowClass, const QString &program = {}) {
    ApplicationHints result;
    result.windowClass = windowClass;
    result.program = program;
    return result;
}

} // namespace

class FrontApplicationTest : public testing::Test {
protected:
    FrontApplicationTest() {
        activations = front.subscribeToActivations([this](const RunningApplication &application) {
            seen.append(application.localizedName.value_or(u"?"_s));
        });
        changes = front.subscribe([this] { ++changeCount; });
    }

    InstalledEntries installed;
    FrontApplication front{installed.entries()};
    QStringList seen;
    int changeCount = 0;
    Subscription activations;
    Subscription changes;
};

TEST_F(FrontApplicationTest, thereIsNoneAtFirst) {
    EXPECT_EQ(front.now(), std::nullopt);
}

TEST_F(FrontApplicationTest, isTheInstalledOneThatTheWindowBelongsTo) {
    front.set(hints(u"XTermLike"_s));
    EXPECT_EQ(front.now(),
              (RunningApplication{u"term"_s, u"Terminal"_s, installed.pathOf(u"term"_s)}));
    EXPECT_EQ(seen, QStringList{u"Terminal"_s});
}

TEST_F(FrontApplicationTest, oneWithoutAnEntryIsCalledByItsClassElseByItsProgram) {
    front.set(hints(u"Thing"_s, u"thing-bin"_s));
    EXPECT_EQ(front.now(), (RunningApplication{u"Thing"_s, u"Thing"_s, std::nullopt}));
    front.set(hints({}, u"thing-bin"_s));
    EXPECT_EQ(front.now(), (RunningApplication{u"thing-bin"_s, u"thing-bin"_s, std::nullopt}));
    front.set(hints({}));
    EXPECT_EQ(front.now(), RunningApplication{});
}

TEST_F(FrontApplicationTest, anotherWindowOfTheSameApplicationIsNoActivation) {
    front.set(hints(u"XTermLike"_s));
    front.set(hints(u"XTermLike"_s, u"another"_s));
    EXPECT_EQ(seen, QStringList{u"Terminal"_s});
    EXPECT_EQ(changeCount, 1);
}

TEST_F(FrontApplicationTest, goingAwayIsAChangeAndNoActivation) {
    front.set(hints(u"XTermLike"_s));
    front.set(std::nullopt);
    EXPECT_EQ(front.now(), std::nullopt);
    EXPECT_EQ(seen.size(), 1);
    EXPECT_EQ(changeCount, 2);
    front.set(std::nullopt);
    EXPECT_EQ(changeCount, 2);
}

TEST_F(FrontApplicationTest, theOneBeforeStaysWhileTheEntriesAreReadAnew) {
    front.set(hints(u"XTermLike"_s));
    installed.install(u"thing"_s, "Name=A Thing\n");
    installed.letNotice();
    front.set(hints(u"thing"_s));
    EXPECT_EQ(front.now()->bundleIdentifier, u"term"_s);
    installed.read();
    EXPECT_EQ(front.now()->bundleIdentifier, u"thing"_s);
    EXPECT_EQ(seen, (QStringList{u"Terminal"_s, u"A Thing"_s}));
}

TEST_F(FrontApplicationTest, anAnswerForAWindowThatIsNoLongerInFrontIsDropped) {
    installed.install(u"thing"_s, "Name=A Thing\n");
    installed.letNotice();
    front.set(hints(u"thing"_s));
    front.set(hints(u"XTermLike"_s));
    installed.read();
    EXPECT_EQ(seen, QStringList{u"Terminal"_s});
}

TEST_F(FrontApplicationTest, findsItsOwnEntryOnceThatIsInstalled) {
    front.set(hints(u"thing"_s));
    EXPECT_EQ(front.now()->bundlePath, std::nullopt);
    installed.install(u"thing"_s, "Name=A Thing\n");
    installed.letNotice();
    installed.read();
    EXPECT_EQ(front.now()->localizedName, u"A Thing"_s);
}

TEST(RunningProgramTest, tellsTheFileNameOfAProcess) {
    EXPECT_EQ(programOfProcess(getpid()),
              QFileInfo(QCoreApplication::applicationFilePath()).fileName());
    EXPECT_EQ(programOfProcess(0), QString());
    EXPECT_EQ(programOfProcess(-1), QString());
}

} // namespace zeph
