// SPDX-License-Identifier: MIT
#include "ui/controls/LiteralText.h"

#include "ui/controls/MarkRow.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/Tile.h"

#include <QAccessible>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph::ui {

namespace {

QString spokenName(QWidget &widget) {
    return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
}

} // namespace

TEST(LiteralText, anAmpersandIsSpokenAndPressesNothing) {
    PillButton save(u"Save & connect"_s);
    EXPECT_EQ(spokenName(save), u"Save & connect"_s);
    EXPECT_TRUE(save.shortcut().isEmpty());
    save.setText(u"R&D"_s);
    EXPECT_EQ(spokenName(save), u"R&D"_s);
    EXPECT_TRUE(save.shortcut().isEmpty());
}

TEST(LiteralText, namesThatPeopleGaveAreSpokenAsTheyAre) {
    Tile tile({u"creditcard"_s, u"R&D"_s, {}});
    EXPECT_EQ(spokenName(tile), u"R&D"_s);
    EXPECT_TRUE(tile.shortcut().isEmpty());
    RadioRow display(u"Left & right"_s, {});
    EXPECT_EQ(spokenName(display), u"Left & right"_s);
    CheckRow workspace(u"Mail & chat"_s, {});
    EXPECT_EQ(spokenName(workspace), u"Mail & chat"_s);
    EXPECT_TRUE(workspace.shortcut().isEmpty());
}

TEST(LiteralText, aNameOfItsOwnStays) {
    PillButton allow(u"Allow"_s);
    allow.setAccessibleName(u"Allow Calendar"_s);
    allow.setText(u"Open & allow"_s);
    EXPECT_EQ(spokenName(allow), u"Allow Calendar"_s);
}

} // namespace zeph::ui
