// SPDX-License-Identifier: MIT
#include "RealDesktopFixture.h"
#include "RecordOnRoot.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QColor kFirst(0x80, 0, 0);  // of the first workspace
const QColor kSecond(0, 0x80, 0); // of the second

/// Where the distribution puts the settings daemon, in a folder named for the machine.
QString xfconfDaemon() {
    const QDir libraries(u"/usr/lib"_s);
    for (const QString &folder : libraries.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString path = libraries.filePath(folder + u"/xfce4/xfconf/xfconfd"_s);
        if (QFile::exists(path)) {
            return path;
        }
    }
    return {};
}

QByteArray xfceColour(const QByteArray &red, const QByteArray &green) {
    return R"(<property name="color-style" type="int" value="0"/>
        <property name="image-style" type="int" value="0"/>
        <property name="rgba1" type="array"><value type="double" value=")" +
           red + R"("/><value type="double" value=")" + green +
           R"("/><value type="double" value="0"/><value type="double" value="1"/></property>)";
}

QByteArray xfceSettings(bool isEachWorkspaceItsOwn) {
    return R"(<?xml version="1.0"?><channel name="xfce4-desktop" version="1.0">
        <property name="backdrop" type="empty">
        <property name="single-workspace-mode" type="bool" value=")" +
           QByteArray(isEachWorkspaceItsOwn ? "false" : "true") + R"("/>
        <property name="screen0" type="empty"><property name="monitorscreen" type="empty">
        <property name="workspace0" type="empty">)" +
           xfceColour("0.501961", "0") + R"(</property><property name="workspace1" type="empty">)" +
           xfceColour("0", "0.501961") +
           R"(</property></property></property></property>
        <property name="desktop-icons" type="empty"><property name="file-icons" type="empty">
        <property name="show-home" type="bool" value="false"/>
        <property name="show-filesystem" type="bool" value="false"/>
        <property name="show-removable" type="bool" value="false"/>
        <property name="show-trash" type="bool" value="false"/></property></property></channel>)";
}

/// xfwm4 and xfdesktop.
class XfceTest : public RealDesktopTest {
protected:
    explicit XfceTest(const QString &compositor = u"--compositor=off"_s,
                      bool isEachWorkspaceItsOwn = false)
        : RealDesktopTest("XFCE_DESKTOP_WINDOW") {
        write(u".config/xfce4/xfconf/xfce-perchannel-xml/xfce4-desktop.xml"_s,
              xfceSettings(isEachWorkspaceItsOwn));
        session.start({xfconfDaemon()});
        session.start({u"xfwm4"_s, compositor});
        startProgram();
        waitForIcons({0, 0, 300, 300}, kFirst);
    }

    void startProgram() { program = session.start({u"xfdesktop"_s}); }

    pid_t program = -1;
};

class ComposedXfceTest : public XfceTest {
protected:
    ComposedXfceTest() : XfceTest(u"--compositor=on"_s) {}
};

class XfceWorkspacesTest : public XfceTest {
protected:
    XfceWorkspacesTest() : XfceTest(u"--compositor=off"_s, true) {}
};

/// marco and caja.
class MateTest : public RealDesktopTest {
protected:
    MateTest() : RealDesktopTest("CAJA_DESKTOP_WINDOW_ID") {
        write(u".config/glib-2.0/settings/keyfile"_s,
              "[org/mate/desktop/background]\nprimary-color='#800000'\n"
              "color-shading-type='solid'\npicture-filename=''\npicture-options='wallpaper'\n"
              "[org/mate/caja/desktop]\ncomputer-icon-visible=false\nhome-icon-visible=false\n"
              "trash-icon-visible=false\nvolumes-visible=false\nnetwork-icon-visible=false\n");
        session.start({u"marco"_s, u"--no-composite"_s});
        program = session.start({u"caja"_s, u"--no-default-window"_s, u"--force-desktop"_s});
        waitForIcons({0, 0, 300, 300}, kFirst);
    }

    pid_t program = -1;
};

/// openbox and pcmanfm with an image for its wallpaper; without one it has no picture to paint
/// into.
class LxdeTest : public RealDesktopTest {
protected:
    LxdeTest() : RealDesktopTest({}) {
        QImage image(64, 64, QImage::Format_RGB32);
        image.fill(kFirst);
        image.save(home.filePath(u"red.png"_s));
        write(u".config/pcmanfm/default/desktop-items-0.conf"_s,
              "[*]\nwallpaper_mode=stretch\nwallpaper_common=1\nwallpaper=" + home.path().toUtf8() +
                  "/red.png\ndesktop_bg=#000000\ndesktop_fg=#ffffff\ndesktop_shadow=#000000\n"
                  "show_documents=0\nshow_trash=0\nshow_mounts=0\n");
        session.startOpenbox();
        session.start({u"pcmanfm"_s, u"--desktop"_s, u"--profile"_s, u"default"_s});
        waitForIcons({0, 0, 300, 300}, kFirst);
    }

    xcb_window_t desktopWindow() const override {
        for (const xcb_window_t window : client->findAll("pcmanfm")) {
            if (client->geometry(window) == kWholeScreen) {
                return window;
            }
        }
        return XCB_WINDOW_NONE;
    }
};

} // namespace

TEST_F(XfceTest, theIconsStayAndTheirPictureIsOurs) {
    const auto surface = shown(Qt::blue);
    EXPECT_TRUE(waitUntil([&] { return liesBeneathIcons(Qt::blue); }));
    fill(*surface, Qt::darkCyan);
    EXPECT_TRUE(waitUntil([&] { return liesBeneathIcons(Qt::darkCyan); }));
}

TEST_F(XfceTest, anIconCanBeClicked) {
    const auto surface = shown(Qt::blue);
    ASSERT_TRUE(waitUntil([&] { return liesBeneathIcons(Qt::blue); }));
    click({70, 50});
    EXPECT_TRUE(waitUntil([&] { return !liesBeneathIcons(Qt::blue); })) << "it is highlighted";
    click(kFree);
    session.run({u"xdotool"_s, u"mousemove"_s, u"1200"_s, u"780"_s});
    EXPECT_TRUE(waitUntil([&] { return liesBeneathIcons(Qt::blue); }));
}

TEST_F(XfceTest, thePictureIsBackAtTheEnd) {
    auto surface = shown(Qt::blue);
    surface.reset();
    picture.reset();
    EXPECT_TRUE(waitForPixel(kFree, kFirst));
    EXPECT_TRUE(waitUntil([&] { return client->screenshot(icons) == before; }));
}

TEST_F(XfceTest, aReloadOfTheProgramDoesNotLastAndIsNoPictureOfOurs) {
    auto surface = shown(Qt::blue);
    ASSERT_FALSE(session.run({u"xfdesktop"_s, u"--reload"_s}).isNull());
    session.run({u"xfconf-query"_s, u"-c"_s, u"xfce4-desktop"_s, u"-p"_s,
                 u"/backdrop/screen0/monitorscreen/workspace0/rgba1"_s, u"-s"_s, u"0"_s, u"-s"_s,
                 u"0.501961"_s, u"-s"_s, u"0"_s, u"-s"_s, u"1"_s});
    // Its picture is seen for a moment, and then ours again.
    surface->orderOut();
    EXPECT_TRUE(followUntilPixel(kFree, kSecond)) << "that is the earlier picture now";
    surface->orderFront();
    EXPECT_TRUE(followUntilPixel(kFree, Qt::blue));
}

TEST_F(XfceTest, comesBackWithTheProgram) {
    const auto surface = shown(Qt::blue);
    session.stop(program);
    ASSERT_TRUE(waitFollowing([&] { return !picture->isThere(); }));
    fill(*surface, Qt::darkCyan);
    startProgram();
    EXPECT_TRUE(followUntilPixel(kFree, Qt::darkCyan));
    EXPECT_TRUE(waitFollowing([&] { return liesBeneathIcons(Qt::darkCyan); }));
}

TEST_F(XfceTest, comesBackWithTheProgramAfterItsCrash) {
    const auto surface = shown(Qt::blue);
    client->killOwner(desktopWindow());
    fill(*surface, Qt::darkCyan); // into a picture that is gone
    session.stop(program);
    ASSERT_TRUE(waitFollowing([&] { return !picture->isThere(); }));
    startProgram();
    EXPECT_TRUE(followUntilPixel(kFree, Qt::darkCyan));
    EXPECT_TRUE(waitFollowing([&] { return liesBeneathIcons(Qt::darkCyan); }));
}

TEST_F(ComposedXfceTest, theIconsStayAndTheirPictureIsOurs) {
    const X11Compositor compositor(*connection);
    ASSERT_TRUE(waitUntil([&] { return compositor.isRunning(); }))
        << "nothing composes the windows";
    const auto surface = shown(Qt::blue);
    EXPECT_TRUE(waitUntil([&] { return liesBeneathIcons(Qt::blue); }));
    fill(*surface, Qt::darkCyan, QRect(200, 100, 800, 600));
    EXPECT_TRUE(waitForPixel({300, 300}, Qt::darkCyan));
    EXPECT_TRUE(waitForPixel({199, 300}, Qt::blue));
    surface->orderOut();
    EXPECT_TRUE(waitForPixel(kFree, kFirst));
    EXPECT_TRUE(waitUntil([&] { return client->screenshot(icons) == before; }));
}

TEST_F(XfceWorkspacesTest, ourPictureIsOnAllWorkspacesAndTheirsIsKeptForEach) {
    const auto surface = shown(Qt::blue);
    session.run({u"xdotool"_s, u"set_desktop"_s, u"1"_s});
    // It paints its second picture over ours, and we paint ours over that.
    const auto keptIsTheSecond = [&] {
        const auto kept = recordOnRoot(*client).kept;
        return client->pixelOf(kept, kFree) == kSecond.rgba();
    };
    ASSERT_TRUE(waitFollowing(keptIsTheSecond));
    EXPECT_TRUE(followUntilPixel(kFree, Qt::blue));
    surface->orderOut();
    EXPECT_TRUE(followUntilPixel(kFree, kSecond));
    session.run({u"xdotool"_s, u"set_desktop"_s, u"0"_s});
    EXPECT_TRUE(followUntilPixel(kFree, kFirst));
    surface->orderFront();
    EXPECT_TRUE(followUntilPixel(kFree, Qt::blue));
}

TEST_F(MateTest, theIconsStayAndTheirPictureIsOurs) {
    const auto surface = shown(Qt::blue);
    EXPECT_TRUE(waitFollowing([&] { return liesBeneathIcons(Qt::blue); }));
    click({88, 46});
    EXPECT_TRUE(waitFollowing([&] { return !liesBeneathIcons(Qt::blue); })) << "it is highlighted";
}

TEST_F(MateTest, staysOnEveryWorkspace) {
    const auto surface = shown(Qt::blue);
    for (const QString &workspace : {u"1"_s, u"0"_s}) {
        session.run({u"xdotool"_s, u"set_desktop"_s, workspace});
        runLoopFor(std::chrono::milliseconds(300));
        EXPECT_TRUE(followUntilPixel(kFree, Qt::blue));
    }
}

TEST_F(MateTest, thePictureIsBackAtTheEnd) {
    auto surface = shown(Qt::blue);
    ASSERT_TRUE(waitFollowing([&] { return liesBeneathIcons(Qt::blue); }));
    surface.reset();
    picture.reset();
    EXPECT_TRUE(waitForPixel(kFree, kFirst));
    EXPECT_TRUE(waitUntil([&] { return client->screenshot(icons) == before; }));
}

TEST_F(LxdeTest, theIconsStayAndTheirPictureIsOurs) {
    auto surface = shown(Qt::blue);
    EXPECT_TRUE(waitFollowing([&] { return liesBeneathIcons(Qt::blue); }));
    click({60, 32});
    EXPECT_TRUE(waitFollowing([&] { return !liesBeneathIcons(Qt::blue); })) << "it is highlighted";
    click(kFree);
    session.run({u"xdotool"_s, u"mousemove"_s, u"1200"_s, u"780"_s});
    ASSERT_TRUE(waitFollowing([&] { return liesBeneathIcons(Qt::blue); }));
    surface.reset();
    picture.reset();
    EXPECT_TRUE(waitForPixel(kFree, kFirst));
    EXPECT_TRUE(waitUntil([&] { return client->screenshot(icons) == before; }));
}

TEST_F(XfceTest, theWindowServerDrawsBeneathTheIcons) {
    picture.reset(); // it has one of its own
    auto surface = server->makeDesktopSurface(wholeScreen(), false);
    EXPECT_EQ(server->drawingWay().mechanism, DrawingMechanism::rootPixmap);
    fill(*surface, Qt::blue);
    surface->orderFront();
    EXPECT_TRUE(waitUntil([&] { return liesBeneathIcons(Qt::blue); }));
    surface.reset();
    EXPECT_TRUE(waitUntil([&] { return client->screenshot(icons) == before; }));
}

TEST_F(XfceTest, theMechanismFollowsTheDesktopProgram) {
    picture.reset();
    const auto mechanism = [&] { return server->drawingWay().mechanism; };
    server->settle();
    ASSERT_EQ(mechanism(), DrawingMechanism::rootPixmap);
    auto surface = server->makeDesktopSurface(wholeScreen(), false);
    const Subscription follow = server->subscribeToDrawingWay([&] {
        surface = server->makeDesktopSurface(wholeScreen(), false);
        fill(*surface, Qt::blue);
        surface->orderFront();
    });
    session.stop(program);
    ASSERT_TRUE(waitUntil([&] { return mechanism() == DrawingMechanism::desktopWindow; }));
    EXPECT_TRUE(waitForPixel(kFree, Qt::blue));
    startProgram();
    ASSERT_TRUE(waitUntil([&] { return mechanism() == DrawingMechanism::rootPixmap; }));
    EXPECT_TRUE(waitForPixel(kFree, Qt::blue));
    EXPECT_TRUE(waitUntil([&] { return liesBeneathIcons(Qt::blue); }));
}

TEST_F(ComposedXfceTest, aTransparentWallpaperLiesAboveTheIconsAndShowsThem) {
    picture.reset();
    ASSERT_TRUE(waitUntil([&] { return X11Compositor(*connection).isRunning(); }));
    const auto surface = server->makeDesktopSurface(wholeScreen(), true);
    EXPECT_TRUE(surface->isTransparent());
    EXPECT_TRUE(
        waitUntil([&] { return server->drawingWay().reason.contains(u"shine through it"_s); }));
    EXPECT_EQ(server->drawingWay().mechanism, DrawingMechanism::rootPixmap);
    surface->show([](QImage &frame) {
        frame.fill(Qt::transparent);
        frame.setPixelColor(kFree, Qt::blue);
        return QRegion(frame.rect());
    });
    surface->orderFront();
    EXPECT_TRUE(waitForPixel(kFree, Qt::blue));
    EXPECT_TRUE(waitUntil([&] { return client->screenshot(icons) == before; }));
}

TEST_F(MateTest, theWindowServerDrawsBeneathTheIcons) {
    picture.reset();
    const auto surface = server->makeDesktopSurface(wholeScreen(), false);
    EXPECT_EQ(server->drawingWay().mechanism, DrawingMechanism::rootPixmap);
    fill(*surface, Qt::blue);
    surface->orderFront();
    EXPECT_TRUE(waitUntil([&] { return liesBeneathIcons(Qt::blue); }));
    click({88, 46});
    EXPECT_TRUE(waitUntil([&] { return !liesBeneathIcons(Qt::blue); })) << "it is highlighted";
}

TEST_F(MateTest, aNoteThatAKilledProgramLeftIsNoDesktopProgram) {
    picture.reset();
    server->settle();
    ASSERT_EQ(server->drawingWay().mechanism, DrawingMechanism::rootPixmap);
    client->killOwner(desktopWindow());
    EXPECT_TRUE(waitUntil(
        [&] { return server->drawingWay().mechanism == DrawingMechanism::desktopWindow; }));
    EXPECT_NE(desktopWindow(), xcb_window_t{XCB_WINDOW_NONE});
}

TEST_F(LxdeTest, theWindowServerDrawsBeneathTheIcons) {
    picture.reset();
    const auto surface = server->makeDesktopSurface(wholeScreen(), false);
    EXPECT_EQ(server->drawingWay().mechanism, DrawingMechanism::rootPixmap);
    fill(*surface, Qt::blue);
    surface->orderFront();
    EXPECT_TRUE(waitUntil([&] { return liesBeneathIcons(Qt::blue); }));
}

} // namespace zeph
