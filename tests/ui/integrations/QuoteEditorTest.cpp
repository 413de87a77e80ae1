// SPDX-License-Identifier: MIT
#include "ui/integrations/IntegrationsFixture.h"

#include <QCheckBox>

using namespace Qt::StringLiterals;

namespace zeph::ui {

namespace {

class QuoteEditorTest : public IntegrationsFixture {
protected:
    QuoteEditorTest() {
        open();
        press(u"Quote of the Day"_s);
    }
};

TEST_F(QuoteEditorTest, saysWhereQuotesComeFrom) {
    EXPECT_TRUE(shows(u"Quote of the Day"_s));
    EXPECT_TRUE(shows(u"A daily quote from ZenQuotes. No account or key needed."_s));
}

TEST_F(QuoteEditorTest, itsSwitchWritesTheSetting) {
    QCheckBox *const shown = toggle(u"Show quote of the day"_s);
    ASSERT_NE(shown, nullptr);
    EXPECT_TRUE(shown->isChecked());
    EXPECT_TRUE(shown->hasFocus());
    key(Qt::Key_Space);
    EXPECT_FALSE(store->quoteEnabled());
    EXPECT_EQ(defaults.get<bool>(u"zeph.integrations.quote.enabled"_s), false);
}

TEST_F(QuoteEditorTest, itsSwitchFollowsTheSetting) {
    store->setQuoteEnabled(false);
    turn();
    EXPECT_FALSE(toggle(u"Show quote of the day"_s)->isChecked());
}

} // namespace

} // namespace zeph::ui
