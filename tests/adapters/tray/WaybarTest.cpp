// SPDX-License-Identifier: MIT
#include "adapters/tray/NotifierItem.h"

#include "FakeTrayHost.h"
#include "support/SwaySession.h"
#include "support/WaitUntil.h"

#include <QImage>

#include <optional>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr QRgb barColor = 0x3050A0;
constexpr QRgb screenColor = 0x102010;
constexpr int barHeight = 32;

const QByteArray busConfiguration = R"xml(<busconfig><type>custom</type>
<listen>unix:path=%1</listen><auth>EXTERNAL</auth><policy context="default">
<allow user="*"/><allow send_destination="*"/><allow receive_sender="*"/><allow own="*"/>
</policy></busconfig>)xml";

const QByteArray barConfiguration = R"json({
    "layer": "top", "position": "top", "height": 32, "modules-left": ["tray"],
    "tray": {"icon-size": 24}
})json";

const QByteArray barStyle = R"css(
* { border: none; margin: 0; padding: 0; min-height: 0; }
window#waybar { background: #3050A0; }
)css";

/// The item in the tray of a bar that people use on wlroots compositors. The bar is both the
/// watcher, where items register, and the host, which shows them.
class WaybarTest : public testing::Test {
protected:
    WaybarTest() {
        if (!sway.isRunning()) {
            throw std::runtime_error("sway did not start");
        }
        // The bar can't be root's, and so the bus is not either.
        write(u"bus.conf"_s, QByteArray(busConfiguration).replace("%1", busPath().toUtf8()));
        write(u"bar.json"_s, barConfiguration);
        write(u"bar.css"_s, barStyle);
        sway.start({u"dbus-daemon"_s, u"--nofork"_s, u"--nopidfile"_s, u"--config-file"_s,
                    inFolder(u"bus.conf"_s)});
        const QString address = u"unix:path="_s + busPath();
        EXPECT_TRUE(waitUntil([&] {
            program.emplace(address);
            return program->bus().isConnected();
        }));
        sway.setVariable("DBUS_SESSION_BUS_ADDRESS", address.toUtf8());
        sway.setVariable("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent/bus");
        sway.setVariable("GSETTINGS_BACKEND", "memory");
    }

    ~WaybarTest() override { item.reset(); }

    pid_t startBar() {
        return sway.start(
            {u"waybar"_s, u"-c"_s, inFolder(u"bar.json"_s), u"-s"_s, inFolder(u"bar.css"_s)});
    }

    void makeItem() {
        item = std::make_unique<NotifierItem>(program->bus(), example.facts, example.tools, [] {});
    }

    /// How many pixels at the top of the screen are neither the bar nor the screen behind it.
    int countShown() const {
        const QImage picture = screenshot();
        int count = 0;
        for (int y = 0; y < std::min(picture.height(), barHeight); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const QRgb pixel = picture.pixel(x, y) & 0xFFFFFF;
                count += pixel != barColor && pixel != screenColor ? 1 : 0;
            }
        }
        return count;
    }

    bool hasBar() const { return (screenshot().pixel(1000, 4) & 0xFFFFFF) == barColor; }

    QImage screenshot() const {
        return QImage::fromData(sway.run({u"grim"_s, u"-t"_s, u"ppm"_s, u"-"_s}), "PPM")
            .convertToFormat(QImage::Format_RGB32);
    }

    QString busPath() const { return inFolder(u"bus"_s); }
    QString inFolder(const QString &name) const { return sway.folder() + u'/' + name; }

    void write(const QString &name, const QByteArray &text) const {
        QFile file(inFolder(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(text), text.size());
    }

    SwaySession sway{{.configuration = "output * bg #102010 solid_color"}};
    std::optional<BusConnection> program;
    TrayExample example;
    std::unique_ptr<NotifierItem> item;
};

TEST_F(WaybarTest, showsTheItemThatWasThereBeforeItAndAgainWhenItComesBack) {
    constexpr int leastShown = 200; // of a square of some 24 by 24
    makeItem();
    ASSERT_TRUE(waitUntil([this] { return item->host() == NotifierItem::Host::absent; }));
    for (const char *time : {"first", "again"}) {
        const pid_t bar = startBar();
        EXPECT_TRUE(waitUntil([this] { return item->host() == NotifierItem::Host::present; }))
            << time;
        EXPECT_TRUE(waitUntil([this] { return hasBar() && countShown() >= leastShown; })) << time;
        sway.stop(bar);
        EXPECT_TRUE(waitUntil([this] { return item->host() == NotifierItem::Host::absent; }))
            << time;
    }
}

TEST_F(WaybarTest, showsNothingWhereTheItemIsGone) {
    startBar();
    ASSERT_TRUE(waitUntil([this] { return hasBar(); }));
    ASSERT_EQ(countShown(), 0) << "an empty tray";
    makeItem();
    ASSERT_TRUE(waitUntil([this] { return countShown() > 0; }));
    item.reset();
    program->close();
    EXPECT_TRUE(waitUntil([this] { return countShown() == 0; }));
}

} // namespace

} // namespace zeph
