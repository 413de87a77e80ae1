// SPDX-License-Identifier: MIT
#include "integrations/simple/rss/HtmlEntities.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace zeph {

using namespace Qt::StringLiterals;

TEST(HtmlEntities, knowsTheNamesOfHtml) {
    EXPECT_EQ(htmlEntity(u"nbsp"_s), QChar(0x00A0));
    EXPECT_EQ(htmlEntity(u"eacute"_s), u'é');
    EXPECT_EQ(htmlEntity(u"Eacute"_s), u'É');
    EXPECT_EQ(htmlEntity(u"yuml"_s), u'ÿ');
    EXPECT_EQ(htmlEntity(u"hellip"_s), u'…');
    EXPECT_EQ(htmlEntity(u"rsquo"_s), u'’');
    EXPECT_EQ(htmlEntity(u"euro"_s), u'€');
    EXPECT_EQ(htmlEntity(u"OElig"_s), u'Œ');
    EXPECT_EQ(htmlEntity(u"diams"_s), u'♦');
}

TEST(HtmlEntities, knowsNoOthers) {
    for (const QString &name : {u""_s, u"nope"_s, u"NBSP"_s, u"amp"_s, u"lt"_s, u"nbsp "_s}) {
        EXPECT_EQ(htmlEntity(name), std::nullopt) << qPrintable(name);
    }
}

} // namespace zeph
