// SPDX-License-Identifier: MIT
#include "ui/controls/PaneScroll.h"
#include "ui/settings/AboutPane.h"
#include "ui/settings/DisplayPane.h"
#include "ui/settings/GeneralPane.h"
#include "ui/settings/LayoutPane.h"
#include "ui/settings/PaneFixture.h"
#include "ui/settings/PermissionsPane.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QLineEdit>

#include <set>

using namespace Qt::StringLiterals;

namespace zeph::ui {

/// Each pane by the Tab key alone, and as a screen reader hears it.
class PaneWalkTest : public PaneFixture {
protected:
    PaneWalkTest() {
        fillMorning();
        preferences.setLayoutMode(WidgetLayoutMode::manual);
        virtualDesktops.displays = {display(2, 1)};
    }

    /// The parts of the pane that the Tab key came to, in order, until it came round.
    std::vector<QWidget *> walk(Qt::Key key = Qt::Key_Tab) {
        std::vector<QWidget *> stops;
        std::set<QWidget *> seen;
        constexpr int limit = 500;
        for (int step = 0; step < limit; ++step) {
            QTest::keyClick(QApplication::focusWidget() == nullptr ? &window
                                                                   : QApplication::focusWidget(),
                            key);
            QWidget *now = QApplication::focusWidget();
            if (!stops.empty() && now == stops.back()) {
                continue; // another part of the same field
            }
            if (now == nullptr || !seen.insert(now).second) {
                return stops;
            }
            stops.push_back(now);
        }
        ADD_FAILURE() << "the walk does not end";
        return stops;
    }

    /// Those that can be reached by the keyboard: alone, or as one of a group.
    std::set<QWidget *> reachable() const {
        std::set<QWidget *> found;
        for (QWidget *widget : window.findChildren<QWidget *>()) {
            const bool isPart = dynamic_cast<QAbstractSpinBox *>(widget->parentWidget()) != nullptr;
            if (!isPart && widget->isVisible() && widget->isEnabled() &&
                (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus) {
                found.insert(widget);
            }
        }
        return found;
    }

    /// Whether the walk goes down the pane, wherever in its round it began.
    static bool stepsDown(std::vector<QWidget *> stops, const QWidget &origin) {
        const auto height = [&origin](const QWidget *stop) {
            return stop->mapTo(&origin, QPoint(0, stop->height() / 2)).y();
        };
        constexpr int besideEachOther = 30; // the heights of those on one line differ a little
        int top = height(stops.front());
        for (const QWidget *stop : stops) {
            top = std::min(top, height(stop));
        }
        const auto isOnTopLine = [&](const QWidget *stop) {
            return height(stop) < top + besideEachOther;
        };
        const auto below = std::find_if_not(stops.begin(), stops.end(), isOnTopLine);
        std::rotate(stops.begin(), std::find_if(below, stops.end(), isOnTopLine), stops.end());
        int lowest = 0;
        for (const QWidget *stop : stops) {
            if (height(stop) < lowest - besideEachOther) {
                ADD_FAILURE() << stop->accessibleName().toStdString() << " comes too late";
                return false;
            }
            lowest = std::max(lowest, height(stop));
        }
        return true;
    }

    void expectAWalk(Pane *pane) {
        show(new PaneScroll(pane));
        expectAWalkOver(*pane);
    }

    void expectAWalkOver(Pane &pane) {
        const std::vector<QWidget *> stops = walk();
        EXPECT_GE(stops.size(), 2U);
        EXPECT_TRUE(stepsDown(stops, pane));
        const std::set<QWidget *> reached(stops.begin(), stops.end());
        for (QWidget *widget : reachable()) {
            EXPECT_TRUE(reached.contains(widget) || isInAGroup(*widget, reached))
                << widget->metaObject()->className() << " " << spoken(*widget).toStdString();
        }
        for (QWidget *stop : stops) {
            EXPECT_FALSE(spoken(*stop).isEmpty())
                << stop->metaObject()->className() << " in "
                << stop->parentWidget()->metaObject()->className();
        }
        EXPECT_EQ(walk(Qt::Key_Backtab).size(), stops.size());
    }

    /// Of radio buttons one is a stop, and the arrows lead to the others.
    static bool isInAGroup(QWidget &widget, const std::set<QWidget *> &reached) {
        const auto *button = dynamic_cast<QAbstractButton *>(&widget);
        return button != nullptr && std::any_of(reached.begin(), reached.end(), [&](QWidget *one) {
                   const auto *other = dynamic_cast<QAbstractButton *>(one);
                   return other != nullptr && other->group() != nullptr &&
                          other->group() == button->group();
               });
    }
};

TEST_F(PaneWalkTest, general) {
    preferences.setBackgroundMode(BackgroundMode::solid);
    expectAWalk(new GeneralPane(paneContext(), u"~/Desktop"_s, background));
}

TEST_F(PaneWalkTest, generalWithRowsThatComeLater) {
    preferences.setBackgroundMode(BackgroundMode::solid);
    preferences.setCountdowns({});
    virtualDesktops.displays = {display(1, 1)};
    auto *pane = new GeneralPane(paneContext(), u"~/Desktop"_s, background);
    show(new PaneScroll(pane));
    preferences.setCountdowns({{QUuid::createUuid(), u"Trip"_s, at(0, 0, 0, 6, 1)},
                               {QUuid::createUuid(), u"Rent"_s, at(0, 0, 0, 6, 2)}});
    preferences.setDesktopSelection(SomeDesktops{{1}});
    virtualDesktops.change({display(3, 1)});
    preferences.setDisplaySelection(OneScreen{u"two"_s});
    screens.change({screen(u"one"_s, 1, 1920, 1080), screen(u"two"_s, 2, 1920, 1080)});
    settle();
    expectAWalkOver(*pane);
}

TEST_F(PaneWalkTest, generalWithATransparentBackground) {
    preferences.setBackgroundMode(BackgroundMode::transparent);
    expectAWalk(new GeneralPane(paneContext(), u"~/Desktop"_s, background));
}

TEST_F(PaneWalkTest, widgets) {
    expectAWalk(new DisplayPane(paneContext()));
}

TEST_F(PaneWalkTest, layout) {
    expectAWalk(new LayoutPane(paneContext()));
}

TEST_F(PaneWalkTest, permissions) {
    expectAWalk(new PermissionsPane(paneContext()));
}

TEST_F(PaneWalkTest, about) {
    expectAWalk(new AboutPane(paneContext(), QUrl(u"mailto:help@example.org"_s)));
}

TEST_F(PaneWalkTest, everythingThatCanBeLookedForIsThere) {
    GeneralPane &pane = show(new GeneralPane(paneContext(), u"~/Desktop"_s, background));
    QStringList titles;
    for (const SearchEntry &entry : pane.searchEntries()) {
        titles << entry.title;
        EXPECT_NE(entry.target, nullptr);
        EXPECT_TRUE(entry.target->isVisible()) << entry.title.toStdString();
    }
    for (const QString &title :
         {u"Open at login"_s, u"Show meeting titles"_s, u"24-hour clock"_s, u"Hide Desktop files"_s,
          u"Background"_s, u"Units"_s, u"Show Tavi on"_s, u"Show Tavi on desktops"_s,
          u"Event countdowns"_s, u"Use my region's number format"_s, u"Export and import"_s}) {
        EXPECT_TRUE(titles.contains(title)) << title.toStdString();
    }
}

} // namespace zeph::ui
