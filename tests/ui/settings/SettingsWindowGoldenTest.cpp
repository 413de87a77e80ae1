// SPDX-License-Identifier: MIT
#include "golden/GoldenImage.h"
#include "ui/controls/ReorderList.h"
#include "ui/settings/WindowUnderTest.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace zeph::ui {

using namespace Qt::StringLiterals;
using Scheme = DesktopAppearance::Scheme;

namespace {

/// Letters may be drawn a little otherwise by another version of the font's renderer.
constexpr GoldenOptions letters{.channelTolerance = 3, .allowedPixels = 12};

QImage pictureOf(QWidget &widget) {
    QApplication::processEvents();
    return widget.grab().toImage();
}

QScrollBar &scrollBarOf(SettingsWindow &window) {
    return *window.findChild<QScrollArea *>()->verticalScrollBar();
}

std::vector<ReorderList::Row> layoutRows() {
    return {{u"quote"_s, u"quote.bubble"_s, u"Quote of the day"_s},
            {u"history"_s, u"book.closed"_s, u"On this day in history"_s},
            {u"reminders"_s, u"checklist"_s, u"Reminders"_s},
            {u"meeting"_s, u"calendar"_s, u"Next meeting"_s},
            {u"iss"_s, u"globe.americas"_s, u"Space station"_s},
            {u"countdowns"_s, u"calendar.badge.clock"_s, u"Event countdowns"_s},
            {u"apps"_s, u"chart.bar"_s, u"App usage ranking"_s, u"does not fit"_s},
            {u"weather"_s, u"cloud.sun"_s, u"Weather"_s}};
}

} // namespace

TEST(SettingsWindowGolden, inTheDarkAndInTheLight) {
    for (const Scheme scheme : {Scheme::dark, Scheme::light}) {
        const QString name = scheme == Scheme::dark ? u"dark"_s : u"light"_s;
        WindowUnderTest made(scheme);
        made.open();
        EXPECT_TRUE(matchesGolden(pictureOf(*made.window), u"settings-"_s + name, letters));
        scrollBarOf(*made.window).setValue(460);
        EXPECT_TRUE(
            matchesGolden(pictureOf(*made.window), u"settings-scrolled-"_s + name, letters));
    }
}

TEST(SettingsWindowGolden, withMoreContrast) {
    WindowUnderTest made;
    made.desktop.wantedContrast = true;
    made.desktop.tell();
    made.loop.drain();
    made.open();
    scrollBarOf(*made.window).setValue(300);
    EXPECT_TRUE(matchesGolden(pictureOf(*made.window), u"settings-contrast"_s, letters));
}

TEST(SettingsWindowGolden, aSearch) {
    WindowUnderTest made;
    made.open();
    QTest::keyClick(made.window.get(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), u"clock"_s);
    made.loop.drain();
    EXPECT_TRUE(matchesGolden(pictureOf(*made.window), u"settings-search"_s, letters));
}

TEST(SettingsWindowGolden, theShortcuts) {
    WindowUnderTest made(Scheme::light);
    made.open();
    QTest::keyClick(made.window.get(), Qt::Key_F1);
    EXPECT_TRUE(matchesGolden(pictureOf(*made.window), u"settings-shortcuts"_s, letters));
}

TEST(SettingsWindowGolden, fromRightToLeft) {
    QApplication::setLayoutDirection(Qt::RightToLeft);
    WindowUnderTest made;
    made.open();
    scrollBarOf(*made.window).setValue(460);
    EXPECT_TRUE(matchesGolden(pictureOf(*made.window), u"settings-mirrored"_s, letters));
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST(SettingsWindowGolden, withALargerFont) {
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSizeF(before.pointSizeF() * 1.5);
    QApplication::setFont(large);
    {
        WindowUnderTest made;
        made.open();
        scrollBarOf(*made.window).setValue(400);
        EXPECT_TRUE(matchesGolden(pictureOf(*made.window), u"settings-font-150"_s, letters));
    }
    QApplication::setFont(before);
}

TEST(SettingsWindowGolden, aRowInTheHand) {
    for (const Scheme scheme : {Scheme::dark, Scheme::light}) {
        WindowUnderTest made(scheme);
        auto *list = new ReorderList;
        made.open();
        made.panes[0]->add(list, 14);
        list->setRows(layoutRows());
        list->setFixedSize(290, 290);
        for (int turn = 0; turn < 3; ++turn) {
            QApplication::processEvents(); // it is shown in a later turn, and laid out in another
        }
        scrollBarOf(*made.window).setValue(scrollBarOf(*made.window).maximum());
        list->setFocus(Qt::TabFocusReason);
        list->setCurrentRow(3);
        QTest::keyClick(list, Qt::Key_Space);
        QTest::keyClick(list, Qt::Key_Up);
        EXPECT_TRUE(matchesGolden(pictureOf(*made.window),
                                  scheme == Scheme::dark ? u"settings-dragging-dark"_s
                                                         : u"settings-dragging-light"_s,
                                  letters));
    }
}

} // namespace zeph::ui
