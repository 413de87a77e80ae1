// SPDX-License-Identifier: MIT
#include "TaviFixture.h"

#include "adapters/session/plasma/FakePlasma.h"
#include "adapters/session/x11/PlayedDesktop.h"
#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11DesktopPicture.h"
#include "adapters/session/x11/X11RootPixmapSurface.h"
#include "adapters/storage/FolderLock.h"
#include "support/FakeScreens.h"

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
        client->killOwner(client->numbers(client->root(), "_TAVI_EARLIER_PICTURE").value(0));
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
    EXPECT_FALSE(client->numbers(client->root(), "_TAVI_EARLIER_PICTURE").isEmpty());
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
    QByteArray bytesOf(const char *below) const {
        QFile file(path(below));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    bool isRestored() const {
        return bytesOf("home/ignored-desktop-handlers") == "['conky']\n" &&
               bytesOf("home/desktop-layout") == "'true::true'\n";
    }
};

TEST_F(RestoreNemoTest, getsItsSettingsBack) {
    Program tavi(withTools(), kCommand);
    EXPECT_TRUE(tavi.endsWith(0)) << tavi.errors().toStdString();
    EXPECT_TRUE(isRestored());
    EXPECT_FALSE(bytesOf("config/Zeph/defaults.json").contains("nemo"));
}

TEST_F(RestoreNemoTest, getsItsSettingsBackByTheNextStartWhereItDoesNotRun) {
    Program tavi(withTools());
    EXPECT_TRUE(waitUntil([&] { return isRestored(); }, kPatience));
}

} // namespace zeph
