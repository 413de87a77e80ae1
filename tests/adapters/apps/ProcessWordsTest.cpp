// SPDX-License-Identifier: MIT
#include "adapters/apps/ProcessWords.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

QString programIn(const QString &program, const QStringList &arguments) {
    return hintsIn({1, program, arguments, {}}).program;
}

QString desktopFileIn(qint64 number, const QByteArray &groups) {
    return hintsIn({number, {}, {}, groups}).desktopFile;
}

/// A process that sees another folder as the root of all.
class ProcessElsewhere {
public:
    explicit ProcessElsewhere(const QByteArray &root) {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC) != 0) {
            return;
        }
        m_number = fork();
        if (m_number == 0) {
            const bool isElsewhere = chroot(root.constData()) == 0 ||
                                     (unshare(CLONE_NEWUSER) == 0 && chroot(root.constData()) == 0);
            const char word = isElsewhere ? 'y' : 'n';
            if (write(ends[1], &word, 1) == 1) {
                pause();
            }
            _exit(0);
        }
        char word = 'n';
        m_isThere = read(ends[0], &word, 1) == 1 && word == 'y';
        close(ends[0]);
        close(ends[1]);
    }
    ~ProcessElsewhere() {
        if (m_number > 0) {
            kill(m_number, SIGKILL);
            waitpid(m_number, nullptr, 0);
        }
    }
    ProcessElsewhere(const ProcessElsewhere &) = delete;
    ProcessElsewhere &operator=(const ProcessElsewhere &) = delete;

    bool isThere() const { return m_isThere; }
    pid_t number() const { return m_number; }

private:
    pid_t m_number = -1;
    bool m_isThere = false;
};

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

TEST(ProcessWordsTest, aSandboxTellsItsApplication) {
    const QByteArray info = "[Instance]\nname=wrong\n[Application]\nname=org.example.Editor\n"
                            "runtime=x\n";
    const auto hints = hintsIn({5, u"xdg-dbus-proxy"_s, {}, "0::/app-flatpak-x-5.scope", info});
    EXPECT_EQ(hints.desktopFile, u"org.example.Editor"_s);
    EXPECT_EQ(hints.windowClass, u"org.example.Editor"_s);
    EXPECT_EQ(hints.program, QString()) << "the program of a sandbox is no program of the host";
}

TEST(ProcessWordsTest, whatSpeaksForAnUnknownSandboxTellsNothing) {
    for (const QByteArray info : {"", "[Application]\n", "[Instance]\nname=wrong\n", "name=a"}) {
        const auto hints = hintsIn({5, u"xdg-dbus-proxy"_s, {}, "0::/app-proxy-5.scope", info});
        EXPECT_TRUE(hints.program.isEmpty() && hints.desktopFile.isEmpty()) << info.constData();
    }
    EXPECT_EQ(programIn(u"gedit"_s, {}), u"gedit"_s);
}

TEST(ProcessWordsTest, readsWhatTheFoldersOfASandboxTell) {
    const QTemporaryDir root;
    QFile file(root.filePath(u".flatpak-info"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[Application]\nname=org.example.Editor\n");
    file.close();
    const ProcessElsewhere process(QFile::encodeName(root.path()));
    ASSERT_TRUE(process.isThere()) << "takes root, or user namespaces for everybody";
    EXPECT_EQ(hintsIn(wordsOfProcess(process.number())).desktopFile, u"org.example.Editor"_s);
}

TEST(ProcessWordsTest, readsThoseOfAProcess) {
    const ProcessWords words = wordsOfProcess(getpid());
    EXPECT_EQ(words.number, getpid());
    EXPECT_FALSE(words.program.isEmpty());
    EXPECT_TRUE(words.arguments.constFirst().endsWith(words.program));
    EXPECT_EQ(wordsOfProcess(0).program, QString());
}

} // namespace zeph
