// SPDX-License-Identifier: MIT
#include "ui/tray/TrayMenu.h"

#include "ports/StatusBar.h"
#include "support/QtPrinters.h"

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QPixmap>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph::ui {

namespace {

class TrayMenuTest : public testing::Test {
protected:
    ~TrayMenuTest() override {
        for (QWidget *const widget : QApplication::topLevelWidgets()) {
            widget->close();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static QList<QMenu *> openMenus() {
        QList<QMenu *> open;
        for (QWidget *const widget : QApplication::topLevelWidgets()) {
            auto *const menu = dynamic_cast<QMenu *>(widget);
            if (menu != nullptr && menu->isVisible()) {
                open.append(menu);
            }
        }
        return open;
    }

    /// Where the window system has the place 10, 10 of the only screen.
    static constexpr QPoint place{10, 10};

    QStringList chosen;
    std::vector<MenuItem> items{
        {.text = u"Tavi"_s},
        {},
        {.text = u"Settings & Permissions…"_s,
         .key = u","_s,
         .action = [this] { chosen.append(u"settings"_s); }},
        {.text = u"Check for Updates…"_s, .action = [this] { chosen.append(u"check"_s); }},
        {},
        {.text = u"Everything stays on your computer"_s},
        {},
        {.text = u"Quit Tavi"_s, .key = u"q"_s, .action = [this] { chosen.append(u"quit"_s); }}};
};

TEST_F(TrayMenuTest, hasTheLinesInOrder) {
    const TrayMenu menu(items, Appearance::dark);
    const QList<QAction *> lines = menu.actions();
    ASSERT_EQ(static_cast<std::size_t>(lines.size()), items.size());
    for (int index = 0; index < lines.size(); ++index) {
        const MenuItem &item = items.at(static_cast<std::size_t>(index));
        const QAction &line = *lines.at(index);
        EXPECT_EQ(line.isSeparator(), item.text.isEmpty());
        EXPECT_EQ(line.text(), QString(item.text).replace(u"&"_s, u"&&"_s));
        EXPECT_EQ(line.isEnabled() && !line.isSeparator(), item.action != nullptr);
        EXPECT_EQ(line.shortcut().toString(),
                  item.key.isEmpty() ? QString() : u"Ctrl+"_s + item.key.toUpper());
    }
}

TEST_F(TrayMenuTest, hasTheMeasuresOfTheDesign) {
    TrayMenu menu(items, Appearance::dark);
    const QSize size = menu.sizeHint();
    EXPECT_EQ(size.width(), scaled(264));
    EXPECT_EQ(size.height(), 5 * scaled(32) + 3 * scaled(12) + 2 * scaled(6));
    EXPECT_EQ(menu.actionGeometry(menu.actions().at(2)).height(), scaled(32));
}

TEST_F(TrayMenuTest, growsWithALongLine) {
    items.at(0).text = u"A line that is so long that it would never fit into the usual width"_s;
    TrayMenu menu(items, Appearance::dark);
    EXPECT_GT(menu.sizeHint().width(), scaled(300));
}

TEST_F(TrayMenuTest, isWorkedByTheKeyboard) {
    TrayMenu::popUp(items, Appearance::dark, place);
    ASSERT_EQ(openMenus().size(), 1);
    QMenu *const menu = openMenus().constFirst();
    const auto press = [&](Qt::Key key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(menu, &event);
    };
    press(Qt::Key_Down);
    EXPECT_EQ(menu->activeAction()->text(), u"Settings && Permissions…"_s)
        << "what can't be chosen is passed over";
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(chosen, QStringList(u"check"_s));
    EXPECT_TRUE(openMenus().isEmpty());
}

TEST_F(TrayMenuTest, oneTakesThePlaceOfTheOther) {
    TrayMenu::popUp(items, Appearance::dark, place);
    TrayMenu::popUp(items, Appearance::light, place);
    EXPECT_EQ(openMenus().size(), 1);
}

TEST_F(TrayMenuTest, opensWhereItIsAskedFor) {
    TrayMenu::popUp(items, Appearance::dark, place);
    ASSERT_EQ(openMenus().size(), 1);
    EXPECT_EQ(openMenus().constFirst()->pos(), place);
}

TEST_F(TrayMenuTest, itsCornersAreRoundAndItsGroundIsThatOfTheAppearance) {
    for (const Appearance appearance : {Appearance::dark, Appearance::light}) {
        TrayMenu menu(items, appearance);
        menu.resize(menu.sizeHint());
        QImage picture(menu.size(), QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::transparent);
        menu.render(&picture, {}, {}, QWidget::DrawChildren);
        EXPECT_LT(qAlpha(picture.pixel(0, 0)), 40);
        const Tokens tokens = Tokens::of(appearance, QPalette());
        EXPECT_EQ(picture.pixelColor(scaled(12), scaled(10)).rgb(), tokens.menu.rgb());
        EXPECT_FALSE(menu.mask().contains(QPoint(0, 0))) << "also without a compositor";
        EXPECT_TRUE(menu.mask().contains(QPoint(scaled(20), scaled(20))));
        if (qEnvironmentVariableIsSet("ZEPH_PICTURES")) {
            menu.setActiveAction(menu.actions().at(2));
            menu.grab().save(qEnvironmentVariable("ZEPH_PICTURES") +
                             (appearance == Appearance::dark ? u"/dark.png"_s : u"/light.png"_s));
        }
    }
}

} // namespace

} // namespace zeph::ui

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
