// SPDX-License-Identifier: MIT
#include "services/simple/rss/WideTags.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

QString tag(qsizetype attributes) {
    QString text = u"<a"_s;
    for (qsizetype i = 0; i < attributes; ++i) {
        text += u" x%1=\"a>b\""_s.arg(i);
    }
    return text + u"/>"_s;
}

bool isWhole(const QString &xml) {
    return lengthBeforeWideTag(xml) == xml.size();
}

} // namespace

TEST(WideTags, endBeforeTheFirstOfThem) {
    const QString start = u"<r><b c='1'/>text"_s;
    EXPECT_EQ(lengthBeforeWideTag(start + tag(mostAttributes + 1) + u"</r>"_s), start.size());
}

TEST(WideTags, areNotThoseWithAttributesEnough) {
    EXPECT_TRUE(isWhole(u"<r>"_s + tag(mostAttributes) + tag(mostAttributes) + u"</r>"_s));
    EXPECT_TRUE(isWhole(QString()));
    EXPECT_TRUE(isWhole(u"a = b "_s.repeated(1000)));
}

TEST(WideTags, areFoundBehindWhateverEndsOrBeginsNothing) {
    for (const QString &before :
         {u"<!DOCTYPE l [<!ENTITY a '<!--'>]>"_s, u"<!DOCTYPE l [<!ENTITY a '<![CDATA['>]><l>"_s,
          u"<!DOCTYPE l><![CDATA["_s, u"<![CDATA[<!--]]>"_s, u"<!-- <![CDATA[ -->"_s, u"<!-->-->"_s,
          u"<?p <!-- ?>"_s, u"<a b='"_s, u"<"_s, u"<<"_s, u"<!ELEMENT a <!--"_s}) {
        EXPECT_EQ(lengthBeforeWideTag(before + tag(mostAttributes + 1)), before.size())
            << qPrintable(before);
    }
}

TEST(WideTags, areNotTextInASection) {
    const QString wide = tag(mostAttributes + 1);
    EXPECT_TRUE(isWhole(u"<a><![CDATA["_s + wide + u"]]></a>"_s));
    EXPECT_TRUE(isWhole(u"<a><!--"_s + wide + u"--></a>"_s));
    EXPECT_TRUE(isWhole(u"<?p "_s + wide + u"?><a/>"_s));
    EXPECT_TRUE(isWhole(u"<a><![CDATA["_s + wide)); // without an end
    const QString section = u"<a><![CDATA["_s + wide + u"]]>"_s;
    EXPECT_EQ(lengthBeforeWideTag(section + wide), section.size());
}

TEST(WideTags, areFoundWithoutBlanksBetween) {
    EXPECT_FALSE(isWhole(u"<a "_s + u"b='<'"_s.chopped(3) + u"''c=\"\""_s.repeated(300)));
    EXPECT_FALSE(isWhole(u"<é "_s + u"ö = \n'' "_s.repeated(300)));
}

TEST(WideTags, areNotPlainTextThatHoldsABracket) {
    EXPECT_TRUE(isWhole(u"<![CDATA[for (i = 0; i <n; ++i) { "_s + u"a = b; "_s.repeated(1000)));
    EXPECT_TRUE(isWhole(u"<a title='"_s + u"b=c "_s.repeated(1000) + u"'/>"_s));
}

} // namespace zeph
