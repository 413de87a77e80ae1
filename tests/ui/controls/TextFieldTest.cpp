// SPDX-License-Identifier: MIT
#include "ui/controls/TextField.h"
#include "support/WindowFixture.h"

#include <QFocusFrame>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

class TextFieldTest : public WindowFixture {
protected:
    TextFieldTest() {
        open();
        other.setFocus(Qt::TabFocusReason);
    }

    /// Of the upper edge, `depth` pixels in.
    QColor edge(int depth) { return field.grab().toImage().pixelColor(field.width() / 2, depth); }

    TextField &field = add(new TextField(u"e.g. Main store"_s));
    TextField &other = add(new TextField);
};

} // namespace

TEST_F(TextFieldTest, theEdgeIsOnePixelAndInTheFocusColourTwo) {
    EXPECT_EQ(field.height(), 36);
    EXPECT_EQ(edge(0), look.tokens().edge);
    EXPECT_EQ(edge(1), look.tokens().field);

    field.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(edge(0), look.tokens().focus);
    EXPECT_EQ(edge(1), look.tokens().focus);
    EXPECT_EQ(edge(2), look.tokens().field);
}

TEST_F(TextFieldTest, aWrongEntryHasTheEdgeOfAnErrorAlsoWhileItIsTypedIn) {
    field.setWrong(true);
    EXPECT_EQ(edge(0), look.tokens().error);
    EXPECT_EQ(edge(1), look.tokens().error);

    field.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(edge(0), look.tokens().error);
    EXPECT_EQ(window.findChildren<QFocusFrame *>().size(), 1) << "so a ring tells the focus";

    field.setWrong(false);
    EXPECT_EQ(edge(0), look.tokens().focus);
}

TEST_F(TextFieldTest, isReadAsAFieldWithItsText) {
    field.setText(u"Main store"_s);
    EXPECT_EQ(accessible(field).role(), QAccessible::EditableText);
    EXPECT_EQ(accessible(field).text(QAccessible::Value), u"Main store");
}

} // namespace zeph::ui
