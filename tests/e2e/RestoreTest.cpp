// SPDX-License-Identifier: MIT
#include "TaviFixture.h"

#include "adapters/session/plasma/FakePlasma.h"
#include "adapters/session/x11/PlayedDesktop.h"
#include "adapters/session/x11/RecordOnRoot.h"
#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11DesktopPicture.h"
#include "adapters/session/x11/X11RootPixmapSurface.h"
#include "adapters/storage/FolderLock.h"
#include "support/FakeScreens.h"
#include "support/FullDisk.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QStringList kCommand{u"--restore-desktop"_s};
const QPoint kAway(900, 600);
const QColor kTheirColour = Qt::darkRed;
constexpr std::uint32_t kOurColour = 0x0000FF;

} // namespace

/// A desktop whose picture a killed run has left painted over.
class RestoreTest : public TaviTest {
protected:
    RestoreTest() { leaveAsKilled(); }

    /// MATE, whose setting of the icons lies in a file of the test.
    QProcessEnvironment onMate() const {
        writeTool("caja", "exit 0");
        writeTool("gsettings", "if [ \"$1\" = set ]; then echo \"$4\" >\"$HOME/icons\"\n"
                               "else cat \"$HOME/icons\"; fi");
        auto variables = environment();
        variables.insert(u"PATH"_s, pathOfTools());
        variables.insert(u"XDG_CURRENT_DESKTOP"_s, u"MATE"_s);
        return variables;
    }
    QByteArray contentOf(const char *below) const {
        QFile file(path(below));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    bool hasPicture() const { return client->pixel(kAway) == (kTheirColour.rgb() & 0xFFFFFF); }

private:
    void leaveAsKilled() {
        const auto connection = X11Connection::open(session.display());
        X11DesktopPicture picture(*connection, [] {});
        picture.setTarget(m_desktop.target());
        X11RootPixmapSurface surface(*connection, picture, screen(QString(), 1, 1280, 800));
        surface.show([](QImage &frame) {
            frame.fill(Qt::blue);
            return QRegion(frame.rect());
        });
        surface.orderFront();
        EXPECT_TRUE(waitUntil([&] { return client->pixel(kAway) == kOurColour; }));
        const xcb_pixmap_t mark = xcb_generate_id(connection->xcb());
        xcb_create_pixmap(connection->xcb(), 24, mark, connection->root(), 1, 1);
        connection->intern("ZEPH_TEST"); // the server knows it with the answer
        client->killOwner(recordOnRoot(*client).kept);
        client->killOwner(mark);
        EXPECT_EQ(client->pixel(kAway), kOurColour);
    }

    PlayedDesktop m_desktop{session.display(), {1280, 800}, kTheirColour};
};

TEST_F(RestoreTest, bringsThePictureBackAndEnds) {
    Program first(environment(), kCommand);
    EXPECT_TRUE(first.endsWith(0)) << first.errors().toStdString();
    EXPECT_EQ(first.output(), u"tavi: the desktop has its earlier picture back\n"_s);
    EXPECT_TRUE(hasPicture());
    EXPECT_TRUE(client->findAll("Tavi").isEmpty());
    EXPECT_FALSE(QFile::exists(path("data/Zeph"))) << "nothing is written";

    Program second(environment(), kCommand);
    EXPECT_TRUE(second.endsWith(0)) << second.errors().toStdString();
    EXPECT_EQ(second.output(), u"tavi: there is no earlier picture to put back\n"_s);
    EXPECT_TRUE(hasPicture());
}

TEST_F(RestoreTest, leavesAProgramThatRunsWhatItKeeps) {
    const FolderLock lock(path("data/Zeph"), std::chrono::milliseconds(0));
    Program tavi(environment(), kCommand);
    EXPECT_TRUE(tavi.endsWith(1));
    EXPECT_EQ(tavi.errors(),
              u"tavi: it is running, and puts the earlier picture back when it ends\n"_s);
    EXPECT_EQ(client->pixel(kAway), kOurColour);
    EXPECT_FALSE(client->numbers(client->root(), kRecordName).isEmpty());
}

TEST_F(RestoreTest, leavesARunOnAnotherMachineWhatItKeeps) {
    auto record = recordOnRoot(*client);
    ++record.machine;
    const auto numbers = numbersOf(record);
    client->setNumbers(client->root(), kRecordName, {numbers.begin(), numbers.end()});
    Program tavi(environment(), kCommand);
    EXPECT_TRUE(tavi.endsWith(0)) << tavi.errors().toStdString();
    EXPECT_EQ(tavi.output(), u"tavi: there is no earlier picture to put back\n"_s);
    EXPECT_EQ(client->pixel(kAway), kOurColour);
    EXPECT_EQ(recordOnRoot(*client), record);
}

TEST_F(RestoreTest, failsWithoutADisplay) {
    session.killServer();
    Program tavi(environment(), kCommand);
    EXPECT_TRUE(tavi.endsWith(1));
    EXPECT_EQ(tavi.errors(), u"tavi: there is no X display to put a picture back on\n"_s);
}

TEST_F(RestoreTest, bringsPlasmasWallpapersBackToo) {
    FakePlasma plasma(bus.address());
    plasma.desktops = {{1, u"com.tavi.Tavi"_s}};
    writeSettings(R"({"zeph.plasma.earlier": "{\"1\":\"org.kde.color\"}"})");
    {
        const FolderLock lock(path("data/Zeph"), std::chrono::milliseconds(0));
        plasma.appear();
        Program tavi(environment(), kCommand);
        EXPECT_TRUE(tavi.endsWith(1)) << "it is running";
        EXPECT_TRUE(plasma.scripts.isEmpty());
    }
    Program tavi(environment(), kCommand);
    EXPECT_TRUE(tavi.endsWith(0)) << tavi.errors().toStdString();
    EXPECT_EQ(tavi.output(), u"tavi: the desktop has its earlier picture back\n"_s);
    EXPECT_EQ(plasma.desktops, (std::map<int, QString>{{1, u"org.kde.color"_s}}));
    EXPECT_TRUE(hasPicture());

    plasma.vanish();
    writeSettings(R"({"zeph.plasma.earlier": "{\"1\":\"org.kde.color\"}"})");
    Program second(environment(), kCommand);
    EXPECT_TRUE(second.endsWith(1));
    EXPECT_EQ(second.errors(), u"tavi: Plasma's shell does not run, and would get its earlier "
                               "wallpapers back\n"_s);
}

TEST_F(RestoreTest, bringsTheIconsBackToo) {
    writeFile(path("home/icons"), "false\n");
    writeSettings(R"({"zeph.desktop.earlierIcons": "{\"mate\":\"true\"}"})");
    Program tavi(onMate(), kCommand);
    EXPECT_TRUE(tavi.endsWith(0)) << tavi.errors().toStdString();
    EXPECT_EQ(tavi.output(), u"tavi: the desktop has its earlier picture and its icons back\n"_s);
    EXPECT_EQ(contentOf("home/icons"), "true\n");
    EXPECT_FALSE(contentOf("config/Zeph/defaults.json").contains("earlierIcons"));
}

TEST_F(RestoreTest, tellsThatNobodyWouldShowTheIcons) {
    writeSettings(R"({"zeph.desktop.earlierIcons": "{\"mate\":\"true\"}"})");
    Program tavi(environment(), kCommand);
    EXPECT_TRUE(tavi.endsWith(1));
    EXPECT_EQ(tavi.errors(), u"tavi: nobody is there who would show the desktop's icons again\n"_s);
    EXPECT_TRUE(hasPicture());
    EXPECT_TRUE(contentOf("config/Zeph/defaults.json").contains("earlierIcons"));
}

TEST_F(RestoreTest, tellsWhereTheSettingsCanNotBeWritten) {
    FakePlasma plasma(bus.address());
    plasma.desktops = {{1, u"com.tavi.Tavi"_s}};
    plasma.appear();
    writeSettings(R"({"zeph.plasma.earlier": "{\"1\":\"org.kde.color\"}"})");
    const FullDisk full(8);
    Program tavi(environment(), kCommand);
    EXPECT_TRUE(tavi.endsWith(1));
    EXPECT_TRUE(tavi.errors().endsWith(
        u"tavi: its settings could not be written, and tell as before of what is back\n"_s))
        << tavi.errors().toStdString();
    EXPECT_EQ(plasma.desktops, (std::map<int, QString>{{1, u"org.kde.color"_s}}));
    EXPECT_TRUE(contentOf("config/Zeph/defaults.json").contains("zeph.plasma.earlier"));
}

/// A killed run has left Nemo's settings changed; the tool keeps them in files named for the keys.
class RestoreNemoTest : public RestoreTest {
protected:
    RestoreNemoTest() {
        writeTool("gsettings", "echo \"$*\" >>'" + path("calls").toUtf8() + "'\nfile='" +
                                   path("home/").toUtf8() +
                                   "'$3\nif [ \"$1\" = get ]; then cat \"$file\"; "
                                   "else echo \"$4\" >\"$file\"; fi");
        writeFile(path("home/ignored-desktop-handlers"), "['conky', 'tavi']\n");
        writeFile(path("home/desktop-layout"), "'true::true::'\n");
        writeSettings(R"({"zeph.nemo.isListed": true, "zeph.nemo.earlierLayout": "'true::true'"})");
    }

    QProcessEnvironment withTools() const {
        QProcessEnvironment variables = environment();
        variables.insert(u"PATH"_s, pathOfTools());
        return variables;
    }
    bool isRestored() const {
        return contentOf("home/ignored-desktop-handlers") == "['conky']\n" &&
               contentOf("home/desktop-layout") == "'true::true'\n";
    }
};

TEST_F(RestoreNemoTest, getsItsSettingsBack) {
    Program tavi(withTools(), kCommand);
    EXPECT_TRUE(tavi.endsWith(0)) << tavi.errors().toStdString();
    EXPECT_TRUE(isRestored());
    EXPECT_FALSE(contentOf("config/Zeph/defaults.json").contains("nemo"));
}

TEST_F(RestoreNemoTest, getsItsSettingsBackByTheNextStartWhereItDoesNotRun) {
    Program tavi(withTools());
    EXPECT_TRUE(waitUntil([&] { return isRestored(); }, kPatience));
}

} // namespace zeph
