// SPDX-License-Identifier: MIT
#include "SensesFixture.h"

#include "adapters/apps/InstalledEntries.h"
#include "adapters/session/wayland/ForeignToplevels.h"
#include "support/QtPrinters.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace zeph {

class ForeignToplevelsTest : public SensesTest {
protected:
    void open(std::uint32_t version = 3) {
        connect({.toplevelVersion = version});
        workspace = ForeignToplevels::create(*connection, installed.entries());
        ASSERT_TRUE(workspace);
        activations = workspace->subscribeToActivations([this](const RunningApplication &front) {
            seen.append(front.localizedName.value_or(u"?"_s));
        });
        settle();
    }

    int show(const QByteArray &name, bool isActive) {
        const int window = compositor->addWindow(name, isActive);
        compositor->done(window);
        settle();
        return window;
    }

    void activate(int window, bool isActive) {
        compositor->setActive(window, isActive);
        compositor->done(window);
        settle();
    }

    std::optional<QString> front() const {
        const auto application = workspace->frontmostApplication();
        return application ? application->bundleIdentifier : std::nullopt;
    }

    InstalledEntries installed;
    std::unique_ptr<ForeignToplevels> workspace;
    QStringList seen;
    Subscription activations;
};

TEST_F(ForeignToplevelsTest, thereIsNoneWhereTheCompositorDoesNotTell) {
    connect({.toplevelVersion = 0});
    EXPECT_EQ(ForeignToplevels::create(*connection, installed.entries()), nullptr);
}

TEST_F(ForeignToplevelsTest, theFrontApplicationIsThatOfTheActiveWindowInEveryVersion) {
    for (const std::uint32_t version : {1U, 2U, 3U}) {
        workspace.reset();
        open(version);
        show("term", false);
        EXPECT_EQ(workspace->frontmostApplication(), std::nullopt) << version;
        show("org.example.Editor", true);
        EXPECT_EQ(front(), u"org.example.Editor"_s) << version;
    }
}

TEST_F(ForeignToplevelsTest, tellsOfEachApplicationThatBecomesActive) {
    open();
    const int editor = show("org.example.Editor", true);
    const int terminal = show("XTermLike", true);
    activate(editor, false);
    activate(terminal, false);
    activate(editor, true);
    EXPECT_EQ(seen, (QStringList{u"Editor"_s, u"Terminal"_s, u"Editor"_s}));
}

TEST_F(ForeignToplevelsTest, whatIsToldCountsOnceItIsDone) {
    open();
    const int window = compositor->addWindow("org.example.Editor", true);
    settle();
    EXPECT_EQ(workspace->frontmostApplication(), std::nullopt);
    compositor->done(window);
    settle();
    EXPECT_EQ(front(), u"org.example.Editor"_s);
}

TEST_F(ForeignToplevelsTest, aWindowMayGetItsNameLate) {
    open();
    const int window = show("", true);
    EXPECT_EQ(front(), std::nullopt);
    compositor->setName(window, "org.example.Editor");
    compositor->done(window);
    settle();
    EXPECT_EQ(front(), u"org.example.Editor"_s);
}

TEST_F(ForeignToplevelsTest, noneIsInFrontOnceTheWindowIsClosedOrInactive) {
    open();
    const int editor = show("org.example.Editor", true);
    compositor->closeWindow(editor);
    settle();
    EXPECT_EQ(workspace->frontmostApplication(), std::nullopt);
    const int terminal = show("term", true);
    ASSERT_EQ(front(), u"term"_s);
    activate(terminal, false);
    EXPECT_EQ(workspace->frontmostApplication(), std::nullopt);
}

TEST_F(ForeignToplevelsTest, aWindowOfOursIsNoApplicationInFront) {
    open();
    show("com.tavi.Tavi", true);
    EXPECT_EQ(workspace->frontmostApplication(), std::nullopt);
}

TEST_F(ForeignToplevelsTest, noneIsInFrontOnceTheCompositorTellsNothingMore) {
    open();
    const int editor = show("org.example.Editor", true);
    compositor->finishWindows();
    settle();
    EXPECT_EQ(workspace->frontmostApplication(), std::nullopt);
    activate(editor, false);
    activate(editor, true);
    EXPECT_EQ(workspace->frontmostApplication(), std::nullopt) << "others would be missed";
}

TEST_F(ForeignToplevelsTest, endsWithTheWindowsThatItKnows) {
    open();
    show("org.example.Editor", true);
    const int late = compositor->addWindow("term", true); // on its way when we end
    workspace.reset();
    compositor->done(late);
    settle();
    EXPECT_TRUE(connection->waitForAnswers()) << "the compositor complains of nothing";
}

} // namespace zeph
