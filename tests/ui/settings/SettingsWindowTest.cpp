// SPDX-License-Identifier: MIT
#include "support/FakeScreens.h"
#include "support/ManualAnimation.h"
#include "ui/controls/PaneScroll.h"
#include "ui/controls/Sky.h"
#include "ui/settings/SearchField.h"
#include "ui/settings/SearchList.h"
#include "ui/settings/ShortcutsCard.h"
#include "ui/settings/WindowUnderTest.h"

#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>

#include <malloc.h>

namespace zeph::ui {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// The first child of that class; stock look-ups don't tell our classes from theirs.
template <typename Child>
Child *childOf(const QWidget &parent) {
    for (QWidget *child : parent.findChildren<QWidget *>()) {
        if (auto *found = dynamic_cast<Child *>(child)) {
            return found;
        }
    }
    return nullptr;
}

class SettingsWindowTest : public testing::Test {
protected:
    SettingsWindowTest() { made.open(); }

    SettingsWindow &window() { return *made.window; }
    SideBar &tabs() { return *childOf<SideBar>(window()); }
    SearchField &field() { return *childOf<SearchField>(window()); }
    SearchList &results() { return *childOf<SearchList>(window()); }
    ShortcutsCard &shortcuts() { return *childOf<ShortcutsCard>(window()); }
    Sky &sky() { return *childOf<Sky>(window()); }

    void keys(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&window(), key, modifiers);
        QApplication::processEvents();
    }
    void lookFor(const QString &text) {
        keys(Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(&field(), text);
        made.loop.drain();
        QApplication::processEvents();
    }

    WindowUnderTest made;
};

} // namespace

TEST_F(SettingsWindowTest, opensOnTheFirstTabAndMakesThatPaneAlone) {
    EXPECT_EQ(window().windowTitle(), u"Tavi");
    EXPECT_EQ(window().size(), QSize(880, 580));
    EXPECT_EQ(window().minimumSize(), QSize(720, 440));
    EXPECT_EQ(window().currentTab(), 0);
    ASSERT_NE(made.panes[0], nullptr);
    EXPECT_EQ(made.panes[0]->showings, 1);
    EXPECT_EQ(std::count(made.panes.begin(), made.panes.end(), nullptr), 5);
}

TEST_F(SettingsWindowTest, controlWithADigitShowsThatTab) {
    for (const int index : {5, 1, 3, 0, 2, 4}) {
        keys(static_cast<Qt::Key>(Qt::Key_1 + index), Qt::ControlModifier);
        EXPECT_EQ(window().currentTab(), index);
        EXPECT_EQ(tabs().currentIndex(), index);
        EXPECT_TRUE(made.panes[static_cast<std::size_t>(index)]->isVisible());
    }
    EXPECT_FALSE(made.panes[0]->isVisible());
}

TEST_F(SettingsWindowTest, aPaneIsMadeOnceAndToldEachTimeItComesIntoView) {
    window().showTab(2);
    const SamplePane *pane = made.panes[2];
    window().showTab(0);
    window().showTab(2);
    EXPECT_EQ(made.panes[2], pane);
    EXPECT_EQ(pane->showings, 2);
    window().showTab(2);
    EXPECT_EQ(pane->showings, 2) << "it was in view already";
}

TEST_F(SettingsWindowTest, aTabThatIsNotThereIsLeftOut) {
    window().showTab(-1);
    window().showTab(6);
    EXPECT_EQ(window().currentTab(), 0);
}

TEST_F(SettingsWindowTest, closingKeepsTheWindowAndItsTab) {
    int closings = 0;
    window().onClosed = [&] { ++closings; };
    window().showTab(3);
    keys(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window().isVisible());
    EXPECT_EQ(closings, 1);
    made.open();
    EXPECT_EQ(window().currentTab(), 3);
    EXPECT_EQ(made.panes[3]->showings, 2);
}

TEST_F(SettingsWindowTest, aClosedWindowKeepsNoPicture) {
    window().grab();
    EXPECT_TRUE(sky().holdsPicture());
    window().close();
    made.loop.drain();
    EXPECT_FALSE(sky().holdsPicture());
}

TEST_F(SettingsWindowTest, escapeAndAltWithLeftGoAStepBackInThePane) {
    keys(Qt::Key_Escape);
    EXPECT_EQ(made.panes[0]->stepsBack, 1);
    keys(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(made.panes[0]->stepsBack, 2);
}

TEST_F(SettingsWindowTest, theSearchLooksThroughAllPanes) {
    lookFor(u"meeting"_s);
    EXPECT_EQ(std::count(made.panes.begin(), made.panes.end(), nullptr), 0);
    EXPECT_EQ(results().count(), 6);
    EXPECT_EQ(results().currentRow(), 0);
    EXPECT_FALSE(tabs().isVisible());
}

TEST_F(SettingsWindowTest, enterLeadsToWhatIsFound) {
    lookFor(u"show on wallpaper"_s);
    QTest::keyClick(&field(), Qt::Key_Down);
    QTest::keyClick(&field(), Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(window().currentTab(), 1);
    EXPECT_EQ(QApplication::focusWidget(), made.panes[1]->numbers);
    EXPECT_FALSE(made.panes[1]->numbers->visibleRegion().isEmpty()) << "it is scrolled to";
    EXPECT_TRUE(field().text().isEmpty());
    EXPECT_TRUE(tabs().isVisible());
}

TEST_F(SettingsWindowTest, aClickLeadsToWhatIsFound) {
    lookFor(u"abou"_s);
    ASSERT_GE(results().count(), 1);
    QTest::mouseClick(results().viewport(), Qt::LeftButton, {},
                      results().visualItemRect(results().item(0)).center());
    EXPECT_EQ(window().currentTab(), 5);
}

TEST_F(SettingsWindowTest, escapeEndsTheSearchFirst) {
    lookFor(u"zzz"_s);
    EXPECT_EQ(results().count(), 0);
    QTest::keyClick(&field(), Qt::Key_Escape);
    EXPECT_TRUE(field().text().isEmpty());
    EXPECT_EQ(made.panes[0]->stepsBack, 0);
    EXPECT_EQ(QApplication::focusWidget(), &tabs());
}

TEST_F(SettingsWindowTest, aHiddenTargetIsBroughtIntoViewFirst) {
    lookFor(u"show on wallpaper"_s); // makes the panes
    SearchEntry &entry = made.panes[1]->entries.back();
    entry.target->hide();
    entry.show = [target = entry.target] { target->show(); };
    lookFor(u"show on wallpaper "_s);
    QTest::keyClick(&field(), Qt::Key_Down);
    QTest::keyClick(&field(), Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_TRUE(entry.target->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), made.panes[1]->numbers);
}

TEST_F(SettingsWindowTest, aTargetThatThePaneKeepsHiddenDoesNotTakeTheFocus) {
    lookFor(u"show on wallpaper"_s); // makes the panes
    SamplePane &pane = *made.panes[1];
    pane.numbers->parentWidget()->parentWidget()->hide();
    pane.entries.back().show = [&pane] { pane.login->setFocus(); }; // as where it asks first
    lookFor(u"show on wallpaper "_s);
    QTest::keyClick(&field(), Qt::Key_Down);
    QTest::keyClick(&field(), Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(window().currentTab(), 1);
    EXPECT_EQ(QApplication::focusWidget(), pane.login);
}

TEST_F(SettingsWindowTest, aTargetThatIsGoneStillLeadsToItsTab) {
    lookFor(u"show on wallpaper"_s);
    QTest::keyClick(&field(), Qt::Key_Down);
    delete made.panes[1]->entries.back().target;
    made.panes[1]->entries.pop_back();
    QTest::keyClick(&field(), Qt::Key_Return);
    EXPECT_EQ(window().currentTab(), 1);
}

TEST_F(SettingsWindowTest, f1ShowsTheShortcutsAndTheFocusComesBack) {
    made.panes[0]->login->setFocus(Qt::TabFocusReason);
    keys(Qt::Key_F1);
    EXPECT_TRUE(shortcuts().isVisible());
    EXPECT_EQ(QApplication::focusWidget(), &shortcuts());
    EXPECT_TRUE(shortcuts().accessibleDescription().contains(u"Ctrl+F: Search the settings"_s));
    QTest::keyClick(&shortcuts(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &shortcuts()) << "what lies below can't be reached";
    QTest::keyClick(&shortcuts(), Qt::Key_Escape);
    EXPECT_FALSE(shortcuts().isVisible());
    EXPECT_EQ(QApplication::focusWidget(), made.panes[0]->login);
}

TEST_F(SettingsWindowTest, hugsTheRightEdgeOfAScreenOnEveryCall) {
    const Screen wide = screen(u"one"_s, 1, 1920, 1080, 0, 1, 30);
    window().hugRightEdge(wide);
    const QRect frame = window().frameGeometry();
    EXPECT_EQ(frame.x() + frame.width(), 1920 - 24);
    EXPECT_EQ(frame.y() - 30, 1080 - frame.y() - frame.height());
    window().move(0, 0);
    window().hugRightEdge(wide);
    EXPECT_EQ(window().frameGeometry(), frame);
    EXPECT_EQ(window().size(), QSize(880, 580));
}

TEST_F(SettingsWindowTest, isNoLargerThanTheScreen) {
    window().hugRightEdge(screen(u"one"_s, 1, 640, 400));
    EXPECT_EQ(window().frameGeometry().size(), QSize(640, 400));
    window().hugRightEdge(screen(u"two"_s, 2, 1920, 1080));
    EXPECT_EQ(window().minimumSize(), QSize(720, 440));
}

TEST_F(SettingsWindowTest, theColumnIs600WideAndAtMost640) {
    EXPECT_EQ(made.panes[0]->width(), 600);
    window().resize(1400, 580);
    QApplication::processEvents();
    EXPECT_EQ(made.panes[0]->width(), 640);
    window().resize(720, 580);
    QApplication::processEvents();
    EXPECT_EQ(made.panes[0]->width(), 720 - 208 - 72);
}

TEST_F(SettingsWindowTest, theRowWithTheFocusIsInSightWithRoomToSpare) {
    auto *scroll = childOf<PaneScroll>(window());
    made.panes[0]->numbers->setFocus(Qt::TabFocusReason);
    QApplication::processEvents();
    const QWidget *row = made.panes[0]->numbers->parentWidget();
    const int bottom = row->mapTo(scroll->viewport(), QPoint(0, row->height())).y();
    EXPECT_LE(bottom, scroll->viewport()->height() - 23);
    EXPECT_GT(scroll->verticalScrollBar()->value(), 0);
}

TEST_F(SettingsWindowTest, followsTheDesktopLive) {
    const QColor dark = window().palette().color(QPalette::Window);
    made.desktop.wantedScheme = DesktopAppearance::Scheme::light;
    made.desktop.tell();
    made.loop.drain();
    EXPECT_NE(window().palette().color(QPalette::Window), dark);
}

TEST_F(SettingsWindowTest, anotherPaletteOfTheToolkitIsFollowedToo) {
    made.desktop.wantedScheme = DesktopAppearance::Scheme::unknown;
    const QPalette before = QApplication::palette();
    QPalette bright = before;
    bright.setColor(QPalette::Window, Qt::black);
    QApplication::setPalette(bright);
    QApplication::processEvents();
    made.loop.drain();
    EXPECT_LT(window().palette().color(QPalette::Window).lightness(), 128);
    QApplication::setPalette(before);
    QApplication::processEvents();
    made.loop.drain();
    EXPECT_GT(window().palette().color(QPalette::Window).lightness(), 128);
}

TEST_F(SettingsWindowTest, panesFadeIntoEachOtherIn120Milliseconds) {
    ManualAnimation animation;
    window().showTab(1);
    QApplication::processEvents();
    const QImage arrived = window().grab().toImage();
    window().showTab(0);
    made.desktop.wantedMotion = true;
    made.desktop.tell();
    made.loop.drain();
    window().showTab(1);
    animation.passes(0ms);
    animation.passes(60ms);
    EXPECT_NE(window().grab().toImage(), arrived);
    animation.passes(60ms);
    QApplication::processEvents();
    EXPECT_EQ(window().grab().toImage(), arrived);
}

TEST_F(SettingsWindowTest, openedAndClosedOftenItTakesNoMoreMemoryThanAnEmptyOne) {
    const auto growthOf = [this](QWidget &shown) {
        const auto openAndClose = [&](int times) {
            for (int time = 0; time < times; ++time) {
                shown.show();
                shown.activateWindow();
                QApplication::processEvents();
                shown.grab();
                shown.close();
                made.loop.drain();
                QApplication::processEvents();
            }
            return static_cast<qint64>(mallinfo2().uordblks);
        };
        const qint64 before = openAndClose(20);
        return openAndClose(100) - before;
    };
    QWidget empty;
    empty.setAttribute(Qt::WA_QuitOnClose, false);
    const qint64 own = growthOf(empty); // of the toolkit, some 200 bytes a time
    EXPECT_LT(growthOf(window()), own + (qint64{16} << 10));
}

} // namespace zeph::ui
