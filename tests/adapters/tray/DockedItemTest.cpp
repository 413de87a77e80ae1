// SPDX-License-Identifier: MIT
#include "adapters/tray/DockedItem.h"

#include "support/QtPrinters.h"
#include "support/WaitUntil.h"
#include "support/XTestClient.h"
#include "support/XvfbSession.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// A display with a program that collects windows in a tray, as a panel does.
class DockedItemTest : public testing::Test {
protected:
    DockedItemTest() {
        if (!session.isRunning()) {
            throw std::runtime_error("Xvfb did not start");
        }
        client = std::make_unique<XTestClient>(session.display());
    }

    /// Of one colour, at the top left of the screen.
    void startTray(const QString &colour = u"0x3050A0"_s) {
        tray = session.start({u"trayer"_s, u"--edge"_s,        u"top"_s,  u"--align"_s,
                              u"left"_s,   u"--width"_s,       u"200"_s,  u"--widthtype"_s,
                              u"pixel"_s,  u"--height"_s,      u"32"_s,   u"--heighttype"_s,
                              u"pixel"_s,  u"--transparent"_s, u"true"_s, u"--alpha"_s,
                              u"0"_s,      u"--tint"_s,        colour,    u"--distance"_s,
                              u"0"_s});
        ASSERT_GT(tray, 0);
    }

    void make() { item = DockedItem::make(facts, tools, session.display()); }

    bool isShown() const {
        const DockedWindow *window = item->window();
        return window != nullptr && client->isViewable(window->window());
    }

    /// Where the item lies on the screen.
    QRect place() const { return client->geometry(item->window()->window()); }

    /// How many pixels of the item have about this lightness.
    int countPixels(int least, int most) const {
        const QImage picture = client->screenshot(place());
        int count = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const int gray = qGray(picture.pixel(x, y));
                count += gray >= least && gray <= most ? 1 : 0;
            }
        }
        return count;
    }

    void click(QPoint position, int button) {
        session.run({u"xdotool"_s, u"mousemove"_s, QString::number(position.x()),
                     QString::number(position.y()), u"click"_s, QString::number(button)});
    }

    XvfbSession session;
    std::unique_ptr<XTestClient> client;
    pid_t tray = -1;
    QList<QPoint> opened; // where the menu was
    TrayFacts facts{.symbol = u"some.symbol"_s, .description = u"Tavi"_s, .menu = {}};
    TrayTools tools{.drawSymbol =
                        [](const QString &, int pixels) {
                            // A square in the middle, half as wide.
                            QImage mask(pixels, pixels, QImage::Format_Alpha8);
                            mask.fill(0);
                            for (int y = pixels / 4; y < pixels * 3 / 4; ++y) {
                                std::fill_n(mask.scanLine(y) + pixels / 4, pixels / 2, 0xFF);
                            }
                            return mask;
                        },
                    .popUpMenu = [this](const auto &, QPoint position) { opened << position; }};
    std::unique_ptr<DockedItem> item;
};

TEST_F(DockedItemTest, isDockedInTheTrayThatIsThere) {
    startTray();
    make();
    ASSERT_TRUE(waitUntil([this] { return isShown(); }));
    EXPECT_EQ(client->text(item->window()->window(), "_NET_WM_NAME"), "Tavi");
    EXPECT_EQ(client->numbers(item->window()->window(), "_XEMBED_INFO"),
              (QList<std::uint32_t>{0, 1}));
    EXPECT_LE(place().height(), 32);
}

TEST_F(DockedItemTest, isDockedInATrayThatComesLaterAndInTheNextOne) {
    make();
    ASSERT_TRUE(item);
    EXPECT_EQ(item->window(), nullptr);
    for (int life = 0; life < 2; ++life) {
        startTray();
        EXPECT_TRUE(waitUntil([this] { return isShown(); })) << life;
        session.stop(tray);
        EXPECT_TRUE(waitUntil([this] { return item->window() == nullptr; })) << life;
    }
}

TEST_F(DockedItemTest, theSymbolLiesOnThePanelsOwnGround) {
    startTray();
    make();
    ASSERT_TRUE(waitUntil([this] { return isShown() && countPixels(220, 255) > 20; }));
    const QRgb panel = client->pixel(place().topRight() + QPoint(40, 0));
    EXPECT_NEAR(qBlue(panel), 0xA0, 2) << "the panel's own colour";
    EXPECT_EQ(client->pixel(place().topLeft()), panel) << "it shows beside the symbol";
}

TEST_F(DockedItemTest, theSymbolIsDarkOnALightPanel) {
    startTray(u"0xF0F0F0"_s);
    make();
    ASSERT_TRUE(waitUntil([this] { return isShown() && countPixels(0, 40) > 20; }));
    EXPECT_GT(countPixels(220, 255), 20) << "the panel beside it";
}

TEST_F(DockedItemTest, aClickOpensTheMenuWhereItIs) {
    startTray();
    make();
    ASSERT_TRUE(waitUntil([this] { return isShown(); }));
    const QPoint centre = place().center();
    click(centre, 2);
    click(centre, 1);
    EXPECT_TRUE(waitUntil([this] { return opened.size() == 1; }));
    click(centre, 3);
    EXPECT_TRUE(waitUntil([this] { return opened.size() == 2; }));
    EXPECT_EQ(opened, (QList<QPoint>{centre, centre}));
}

TEST_F(DockedItemTest, leavesTheTrayAtItsEnd) {
    startTray();
    make();
    ASSERT_TRUE(waitUntil([this] { return isShown(); }));
    const xcb_window_t window = item->window()->window();
    item.reset();
    EXPECT_TRUE(waitUntil([&] { return !client->isViewable(window); }));
}

TEST_F(DockedItemTest, thereIsNoneWithoutADisplay) {
    EXPECT_FALSE(DockedItem::make(facts, tools, ":no"));
}

} // namespace

} // namespace zeph
