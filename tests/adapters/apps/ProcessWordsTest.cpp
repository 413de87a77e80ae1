// SPDX-License-Identifier: MIT
#include "adapters/apps/ProcessWords.h"

#include <gtest/gtest.h>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

QString programIn(const QString &program, const QStringList &arguments) {
    return hintsIn({1, program, arguments, {}}).program;
}

QString desktopFileIn(qint64 number, const QByteArray &groups) {
    return hintsIn({number, {}, {}, groups}).desktopFile;
}

} // namespace

TEST(ProcessWordsTest, aProgramIsNamedByItsFile) {
    EXPECT_EQ(programIn(u"gedit"_s, {u"gedit"_s, u"/home/x/letter.txt"_s}), u"gedit"_s);
}

TEST(ProcessWordsTest, anInterpreterIsNamedByItsScript) {
    EXPECT_EQ(programIn(u"python3.11"_s, {u"/usr/bin/python3"_s, u"/usr/bin/gnome-tweaks"_s}),
              u"gnome-tweaks"_s);
    EXPECT_EQ(programIn(u"gjs-console"_s, {u"gjs"_s, u"-m"_s, u"/x/weather.js"_s, u"y"_s}),
              u"weather"_s);
    EXPECT_EQ(programIn(u"bash"_s, {u"sh"_s, u"/usr/bin/org.example.Tool"_s}),
              u"org.example.Tool"_s);
    EXPECT_EQ(programIn(u"python3"_s, {u"python3"_s}), u"python3"_s);
    EXPECT_EQ(programIn(u"python3"_s, {}), u"python3"_s);
}

TEST(ProcessWordsTest, theUnitThatWasMadeForTheProcessNamesItsEntry) {
    EXPECT_EQ(desktopFileIn(4711, "0::/user.slice/app.slice/app-gnome-org.example.Editor-4711"
                                  ".scope\n"),
              u"org.example.Editor"_s);
    EXPECT_EQ(desktopFileIn(5, "0::/app-gnome-text\\x2deditor-5.scope\n"), u"text-editor"_s);
    EXPECT_EQ(desktopFileIn(5, "0::/app-org.example.Editor-5.scope\n"), u"org.example.Editor"_s);
}

TEST(ProcessWordsTest, theUnitOfAnotherProcessNamesNothing) {
    const QByteArray terminal = "0::/app.slice/app-gnome-org.example.Terminal-4711.scope\n";
    EXPECT_EQ(desktopFileIn(4712, terminal), QString());
    EXPECT_EQ(desktopFileIn(711, terminal), QString());
}

TEST(ProcessWordsTest, whatIsNoUnitOfAnApplicationNamesNothing) {
    EXPECT_EQ(desktopFileIn(5, ""), QString());
    EXPECT_EQ(desktopFileIn(5, "0::/"), QString());
    EXPECT_EQ(desktopFileIn(5, "0::/session-5.scope"), QString());
    EXPECT_EQ(desktopFileIn(5, "0::/app-5.scope"), QString());
    EXPECT_EQ(desktopFileIn(5, "0::/app-\\x-5.scope"), u"\\x"_s);
    EXPECT_EQ(desktopFileIn(5, "0::/app-\\x4-5.scope"), u"\\x4"_s);
}

TEST(ProcessWordsTest, readsThoseOfAProcess) {
    const ProcessWords words = wordsOfProcess(getpid());
    EXPECT_EQ(words.number, getpid());
    EXPECT_FALSE(words.program.isEmpty());
    EXPECT_TRUE(words.arguments.constFirst().endsWith(words.program));
    EXPECT_EQ(wordsOfProcess(0).program, QString());
}

} // namespace zeph
