// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11Screens.h"

#include "X11Fixture.h"

#include <xcb/randr.h>

namespace zeph {

/// An X server whose monitors the test defines.
class ScreensTest : public X11Test {
protected:
    ScreensTest() = default;
    explicit ScreensTest(const XvfbSession::Options &options) : X11Test(options) {}

    QByteArray xrandr(const QStringList &arguments) const {
        return session.run(QStringList{QStringLiteral("xrandr")} + arguments);
    }

    void setMonitor(const QString &name, const QString &geometry, const QString &output) const {
        ASSERT_FALSE(xrandr({QStringLiteral("--setmonitor"), name, geometry, output}).isNull());
    }

    void setResources(const QByteArray &resources) const {
        xcb_change_property(connection->xcb(), XCB_PROP_MODE_REPLACE, connection->root(),
                            XCB_ATOM_RESOURCE_MANAGER, XCB_ATOM_STRING, 8,
                            static_cast<std::uint32_t>(resources.size()), resources.constData());
        xcb_flush(connection->xcb());
    }

    /// Gives the only output an identity, as a plugged display has one.
    void setEdid(const QByteArray &block) const {
        const X11Reply<xcb_randr_get_screen_resources_current_reply_t> resources(
            xcb_randr_get_screen_resources_current_reply(
                connection->xcb(),
                xcb_randr_get_screen_resources_current(connection->xcb(), connection->root()),
                nullptr));
        ASSERT_TRUE(resources && resources->num_outputs == 1);
        xcb_randr_change_output_property(
            connection->xcb(), *xcb_randr_get_screen_resources_current_outputs(resources.get()),
            connection->intern("EDID"), XCB_ATOM_INTEGER, 8, XCB_PROP_MODE_REPLACE,
            static_cast<std::uint32_t>(block.size()), block.constData());
        xcb_flush(connection->xcb());
    }
};

/// Displays that tell of changes.
class FollowedScreensTest : public ScreensTest {
protected:
    void splitTheScreen() {
        setMonitor(QStringLiteral("left"), QStringLiteral("640/100x800/100+0+0"),
                   QStringLiteral("screen"));
        setMonitor(QStringLiteral("right"), QStringLiteral("640/100x800/100+640+0"),
                   QStringLiteral("none"));
        ASSERT_TRUE(waitUntil([&] { return screens.all().size() == 2 && calls > 0; }));
    }

    X11Screens screens{*connection};
    int calls = 0;
    Subscription told = screens.subscribe([this] { ++calls; });
};

} // namespace zeph
