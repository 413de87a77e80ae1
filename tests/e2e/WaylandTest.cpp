// SPDX-License-Identifier: MIT
#include "TaviFixture.h"

#include "support/SwaySession.h"

#include <QDir>

#include <csignal>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// A sway of a loud colour and no X, unless the test wants that too.
struct TaviOnSwayTest : TaviTest {
    TaviOnSwayTest() {
        if (!sway.isRunning()) {
            throw std::runtime_error("sway did not start");
        }
        EXPECT_TRUE(waitUntil([this] { return countBare() == 1280 * 720; })) << "its background";
    }

    QProcessEnvironment environment() const {
        QProcessEnvironment variables = TaviTest::environment();
        variables.remove(u"DISPLAY"_s);
        variables.insert(u"WAYLAND_DISPLAY"_s, QString::fromLocal8Bit(sway.waylandDisplay()));
        variables.insert(u"SWAYSOCK"_s, QString::fromLocal8Bit(sway.controlSocket()));
        return variables;
    }

    QImage picture() const {
        return QImage::fromData(sway.run({u"grim"_s, u"-t"_s, u"ppm"_s, u"-"_s}), "PPM")
            .convertToFormat(QImage::Format_RGB32);
    }
    qint64 countBare() const {
        const QImage image = picture();
        qint64 count = image.isNull() ? -1 : 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                count += (image.pixel(x, y) & 0xFFFFFF) == kBareScreen ? 1 : 0;
            }
        }
        return count;
    }
    /// Of one colour is also a screen whose background has not come yet.
    bool isPlain() const {
        const QImage image = picture();
        QImage plain(image.size(), image.format());
        plain.fill(image.isNull() ? 0 : image.pixel(0, 0));
        return image == plain;
    }
    bool waitForLayer() const {
        return waitUntil([this] { return countBare() == 0 && !isPlain(); }, kPatience);
    }

    SwaySession sway{{.configuration = "output * bg #FF00FF solid_color\n"
                                       "for_window [app_id=\"foot\"] floating enable, "
                                       "resize set 200 120, move position 1000 560"}};
};

} // namespace

TEST_F(TaviOnSwayTest, drawsWithoutAnyXAndLeavesTheScreenAsItWas) {
    Program program(environment());
    ASSERT_TRUE(waitForLayer()) << qPrintable(program.errors());
    EXPECT_TRUE(waitUntil(
        [this] { return readWords(picture()).contains(u"machine"_s, Qt::CaseInsensitive); },
        kPatience));
    program.send(SIGTERM);
    EXPECT_TRUE(program.endsWith(EXIT_SUCCESS));
    EXPECT_TRUE(waitUntil([this] { return countBare() == 1280 * 720; }));
}

TEST_F(TaviOnSwayTest, drawsAnewWhereTheScaleChanges) {
    Program program(environment());
    ASSERT_TRUE(waitForLayer());
    ASSERT_TRUE(
        sway.tell(u"output HEADLESS-1 mode --custom 1920x1080, output HEADLESS-1 scale 1.5"_s));
    EXPECT_TRUE(
        waitUntil([this] { return picture().width() == 1920 && countBare() == 0; }, kPatience));
    EXPECT_TRUE(waitUntil(
        [this] { return readWords(picture()).contains(u"machine"_s, Qt::CaseInsensitive); },
        kPatience));
    EXPECT_TRUE(program.isRunning());
}

TEST_F(TaviOnSwayTest, endsWellWithTheSessionAndSavesWhatItCounted) {
    sway.start({u"foot"_s, u"sleep"_s, u"600"_s});
    Program program(environment());
    ASSERT_TRUE(waitForLayer());
    // The name of the application is drawn only after the counting began. Its title bar says
    // "foot".
    ASSERT_TRUE(waitUntil([this] { return readWords(picture()).contains(u"Foot"_s); }, kPatience));
    const char *const counted =
        "SELECT count(*) FROM app_usage WHERE name = 'Foot' AND seconds > 0";
    stored("DELETE FROM app_usage");
    ASSERT_EQ(stored(counted), u"0"_s);
    sway.killCompositor();
    QDir(sway.folder()).removeRecursively();
    EXPECT_TRUE(program.endsWith(EXIT_SUCCESS));
    EXPECT_EQ(stored(counted), u"1"_s);
}

TEST_F(TaviOnSwayTest, takesTheNextCompositorAfterACrash) {
    Program program(environment());
    ASSERT_TRUE(waitForLayer());
    const qint64 process = program.process();
    stored("DELETE FROM daily_stats");
    ASSERT_TRUE(sway.restartCompositor());
    EXPECT_TRUE(waitForLayer()) << qPrintable(program.errors());
    EXPECT_TRUE(program.isRunning());
    EXPECT_EQ(stored("SELECT count(*) FROM daily_stats"), u"1"_s) << "what was counted is saved";
    EXPECT_EQ(program.process(), process);
    program.send(SIGTERM);
    EXPECT_TRUE(program.endsWith(EXIT_SUCCESS));
}

TEST_F(TaviOnSwayTest, saysThatThereIsNothingToDrawOn) {
    QProcessEnvironment nowhere = environment();
    nowhere.insert(u"WAYLAND_DISPLAY"_s, u"/nonexistent/display"_s);
    Program program(nowhere);
    EXPECT_TRUE(program.endsWith(EXIT_FAILURE));
    EXPECT_EQ(program.errors(),
              u"tavi: there is no X display and no Wayland compositor to draw on\n"_s);
}

} // namespace zeph
