// SPDX-License-Identifier: MIT
#include "ui/integrations/AccountList.h"

#include "support/QtPrinters.h"
#include "ui/controls/Look.h"
#include "ui/integrations/ValueList.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace zeph::ui {

namespace {

TEST(AccountListTest, aRowGrowsWithItsErrorUpToFourLines) {
    AccountList list(u"Stripe"_s);
    const QString sentence = u"The service did not like what it was asked. "_s;
    list.setRows({{u"a"_s, {}, false, u"Active"_s},
                  {u"b"_s, u"Fine"_s, false, u"Active"_s},
                  {u"c"_s, sentence.repeated(3), true, u"Active"_s},
                  {u"d"_s, sentence.repeated(60), true, u"Active"_s},
                  {u"e"_s, sentence.repeated(60), false, u"Active"_s}});
    const int line = lineHeight(TypeRole::detail);
    EXPECT_EQ(list.rowHeight(0, 600), scaled(64));
    EXPECT_EQ(list.rowHeight(1, 600), scaled(69));
    EXPECT_EQ(list.rowHeight(2, 600), scaled(69) + line);
    EXPECT_EQ(list.rowHeight(3, 600), scaled(69) + 3 * line);
    EXPECT_EQ(list.rowHeight(4, 600), scaled(69)) << "only errors wrap";
    EXPECT_EQ(list.heightForWidth(600), scaled(64) + 4 * scaled(69) + 4 * line);
}

TEST(AccountListTest, aNameWithTagsIsShownAsItIs) {
    AccountList list(u"Stripe"_s);
    list.setRows({{u"<b>Shop</b>"_s, {}, false, u"Active"_s}});
    EXPECT_EQ(list.item(0)->toolTip(), u"<p>&lt;b&gt;Shop&lt;/b&gt;</p>"_s);
}

TEST(ValueListTest, aRowSaysItsValueAndWhetherItIsShown) {
    ValueList list(u"Values"_s);
    list.setRows({{u"data.today"_s, u"42"_s, true}, {u"(response)"_s, u"<i>"_s, false}});
    EXPECT_EQ(list.item(0)->text(), u"data.today, 42, shown, 1 of 2"_s);
    EXPECT_EQ(list.item(1)->text(), u"(response), <i>, add, 2 of 2"_s);
    EXPECT_EQ(list.item(1)->toolTip(), u"<p>(response): &lt;i&gt;</p>"_s);
}

TEST(ValueListTest, aValueWithAPercentSignIsSaidAsItIs) {
    ValueList list(u"Values"_s);
    list.setRows({{u"next"_s, u"https%3A%2F%2Fa.org/%1"_s, false}});
    EXPECT_EQ(list.item(0)->text(), u"next, https%3A%2F%2Fa.org/%1, add, 1 of 1"_s);
}

TEST(ValueListTest, aWholeDocumentAsAValueIsCutOff) {
    ValueList list(u"Values"_s);
    list.setRows({{u"text"_s, QString(1'000'000, u'x'), false}});
    EXPECT_LT(list.item(0)->text().size(), 400);
}

} // namespace

} // namespace zeph::ui
