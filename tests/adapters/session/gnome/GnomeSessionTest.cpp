// SPDX-License-Identifier: MIT
#include "FakeDisplayConfig.h"

#include "adapters/apps/InstalledEntries.h"
#include "adapters/loop/QtRunLoop.h"
#include "adapters/session/gnome/GnomeSession.h"
#include "adapters/session/x11/X11Fixture.h"
#include "support/FakeConsent.h"
#include "support/ManualTaskExecutor.h"

using namespace Qt::StringLiterals;

namespace zeph {

/// The X server of GNOME's Wayland, and the bus on which its compositor tells of the monitors.
class GnomeSessionTest : public X11Test {
protected:
    std::unique_ptr<GnomeSession> open() {
        auto opened = X11Session::open({installed.entries(), consent}, session.display());
        return std::make_unique<GnomeSession>(
            std::move(opened.session),
            GnomeSession::Surroundings{ours.bus(), Background::over(executor, runLoop),
                                       installed.entries(), consent, runLoop});
    }

    PrivateBus bus;
    BusConnection ours{bus.address()};
    FakeDisplayConfig shell{bus.address()};
    FakeConsent consent;
    ManualTaskExecutor executor;
    QtRunLoop runLoop;
    InstalledEntries installed;
};

TEST_F(GnomeSessionTest, hasTheScalesThatTheCompositorTellsAndWaitsForNone) {
    shell.parts = {{{0, 0}, 2, {{u"Meta-0"_s}}}};
    shell.appear();
    const auto gnome = open();
    EXPECT_EQ(gnome->screens().main()->scale, 1);
    int calls = 0;
    const Subscription changes = gnome->screens().subscribe([&] { ++calls; });
    EXPECT_TRUE(eventually([&] { return gnome->screens().main()->scale == 2; }));
    EXPECT_EQ(gnome->screens().main()->frame, QRectF(0, 0, 640, 400));
    EXPECT_EQ(gnome->screens().main()->deviceFrame, kWholeScreen);
    EXPECT_EQ(calls, 1);
    shell.parts[0].scale = 1;
    shell.tellOfChange();
    EXPECT_TRUE(eventually([&] { return calls == 2; }));
    EXPECT_EQ(gnome->screens().main()->frame, QRectF(kWholeScreen));
}

} // namespace zeph
