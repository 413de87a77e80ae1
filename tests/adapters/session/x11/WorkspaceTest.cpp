// SPDX-License-Identifier: MIT
#include "X11Fixture.h"

#include "adapters/apps/DesktopEntries.h"
#include "adapters/loop/QtRunLoop.h"
#include "adapters/session/x11/X11Workspace.h"
#include "support/ManualTaskExecutor.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace zeph {

class WorkspaceTest : public X11OpenboxTest {
protected:
    WorkspaceTest() : entries({data.path()}, u"de_DE"_s, Background::over(executor, runLoop)) {
        QDir(data.path()).mkpath(u"applications"_s);
        install(u"org.example.Editor"_s, "Name=Editor\nName[de]=Schreiber\n");
        install(u"term"_s, "Name=Terminal\nStartupWMClass=XTermLike\n");
        executor.runAll();
    }

    void install(const QString &identifier, const QByteArray &keys) {
        QFile file(pathOf(identifier));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[Desktop Entry]\nType=Application\n" + keys);
    }

    QString pathOf(const QString &identifier) const {
        return data.path() + u"/applications/"_s + identifier + u".desktop"_s;
    }

    xcb_window_t open(const QByteArray &instance, const QByteArray &name) {
        return client->show({.geometry = {50, 50, 200, 150}, .instance = instance, .name = name});
    }

    bool waitForFront(const X11Workspace &workspace, const QString &identifier) {
        return waitUntil([&] {
            const auto front = workspace.frontmostApplication();
            return front && front->bundleIdentifier == identifier;
        });
    }

    QTemporaryDir data;
    ManualTaskExecutor executor;
    QtRunLoop runLoop;
    DesktopEntries entries;
};

TEST_F(WorkspaceTest, hasNoFrontWithoutAWindow) {
    EXPECT_EQ(X11Workspace(*connection, entries).frontmostApplication(), std::nullopt);
}

TEST_F(WorkspaceTest, knowsTheFrontThatWasThereBeforeIt) {
    const auto window = open("term", "XTermLike");
    client->activate(window);
    ASSERT_TRUE(waitUntil(
        [&] { return client->numbers(client->root(), "_NET_ACTIVE_WINDOW").contains(window); }));
    const X11Workspace workspace(*connection, entries);
    ASSERT_TRUE(waitForFront(workspace, u"term"_s));
    EXPECT_EQ(workspace.frontmostApplication(),
              (RunningApplication{u"term"_s, u"Terminal"_s, pathOf(u"term"_s)}));
}

TEST_F(WorkspaceTest, tellsOfEachApplicationThatComesToTheFront) {
    X11Workspace workspace(*connection, entries);
    QStringList seen;
    const Subscription activations =
        workspace.subscribeToActivations([&](const RunningApplication &application) {
            seen.append(application.localizedName.value_or(u"?"_s));
        });
    const auto terminal = open("term", "XTermLike");
    client->activate(terminal);
    ASSERT_TRUE(waitForFront(workspace, u"term"_s));
    const auto editor = client->show({.geometry = {300, 50, 200, 150},
                                      .instance = "editor",
                                      .name = "Editor",
                                      .gtkApplicationId = "org.example.Editor"});
    client->activate(editor);
    ASSERT_TRUE(waitForFront(workspace, u"org.example.Editor"_s));
    client->activate(terminal);
    ASSERT_TRUE(waitForFront(workspace, u"term"_s));
    EXPECT_EQ(seen, (QStringList{u"Terminal"_s, u"Schreiber"_s, u"Terminal"_s}));
}

TEST_F(WorkspaceTest, callsAnUnknownApplicationByItsWindowClass) {
    X11Workspace workspace(*connection, entries);
    client->activate(open("thing", "Thing"));
    ASSERT_TRUE(waitForFront(workspace, u"Thing"_s));
    EXPECT_EQ(workspace.frontmostApplication(),
              (RunningApplication{u"Thing"_s, u"Thing"_s, std::nullopt}));
}

TEST_F(WorkspaceTest, findsAnApplicationThatIsInstalledWhileItRuns) {
    X11Workspace workspace(*connection, entries);
    client->activate(open("term", "XTermLike"));
    ASSERT_TRUE(waitForFront(workspace, u"term"_s));
    QStringList seen;
    const Subscription activations =
        workspace.subscribeToActivations([&](const RunningApplication &application) {
            seen.append(application.localizedName.value_or(u"?"_s));
        });
    install(u"thing"_s, "Name=A Thing\n");
    ASSERT_TRUE(waitUntil([&] { return executor.waiting() > 0; }));
    const auto window = open("thing", "Thing");
    client->activate(window);
    ASSERT_TRUE(waitUntil([&] { return client->focus() == window; }));
    EXPECT_EQ(seen, QStringList());
    EXPECT_TRUE(waitUntil([&] {
        executor.runAll(); // an installation may be noticed in several steps
        const auto front = workspace.frontmostApplication();
        return front && front->bundleIdentifier == u"thing"_s;
    }));
    EXPECT_EQ(seen, QStringList(u"A Thing"_s)) << "one change counts as one";
}

TEST_F(WorkspaceTest, findsTheFrontApplicationThatIsInstalledAfterItsStart) {
    X11Workspace workspace(*connection, entries);
    client->activate(open("thing", "Thing"));
    ASSERT_TRUE(waitForFront(workspace, u"Thing"_s));
    install(u"thing"_s, "Name=A Thing\n");
    EXPECT_TRUE(waitUntil([&] {
        executor.runAll();
        const auto front = workspace.frontmostApplication();
        return front && front->bundleIdentifier == u"thing"_s;
    }));
}

TEST_F(WorkspaceTest, takesTheDesktopForNoApplication) {
    X11Workspace workspace(*connection, entries);
    client->activate(open("term", "XTermLike"));
    ASSERT_TRUE(waitForFront(workspace, u"term"_s));
    const auto desktop = client->show(
        {.geometry = kWholeScreen, .type = kDesktopType, .instance = "term", .name = "XTermLike"});
    client->activate(desktop);
    EXPECT_TRUE(waitUntil([&] { return !workspace.frontmostApplication(); }));
    EXPECT_EQ(client->focus(), desktop);
}

TEST_F(WorkspaceTest, takesOurOwnWindowsForNoApplication) {
    X11Workspace workspace(*connection, entries);
    client->activate(open("term", "XTermLike"));
    ASSERT_TRUE(waitForFront(workspace, u"term"_s));
    const auto own = client->show(
        {.geometry = {300, 50, 200, 150}, .instance = "tavi", .name = "com.tavi.Tavi"});
    client->activate(own);
    EXPECT_TRUE(waitUntil([&] { return !workspace.frontmostApplication(); }));
    EXPECT_EQ(client->focus(), own);
}

TEST_F(WorkspaceTest, theNumberOfOurProcessIsThatOfOthersInOtherSandboxes) {
    X11Workspace workspace(*connection, entries);
    client->activate(client->show({.geometry = {300, 50, 200, 150},
                                   .instance = "term",
                                   .name = "XTermLike",
                                   .process = static_cast<std::uint32_t>(getpid())}));
    EXPECT_TRUE(waitForFront(workspace, u"term"_s));
}

TEST_F(WorkspaceTest, hasNoFrontOnceTheLastWindowIsGone) {
    X11Workspace workspace(*connection, entries);
    const auto window = open("term", "XTermLike");
    client->activate(window);
    ASSERT_TRUE(waitForFront(workspace, u"term"_s));
    client->destroy(window);
    EXPECT_TRUE(waitUntil([&] { return !workspace.frontmostApplication(); }));
}

} // namespace zeph
