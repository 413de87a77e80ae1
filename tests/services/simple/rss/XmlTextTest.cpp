// SPDX-License-Identifier: MIT
#include "services/simple/rss/XmlText.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QStringEncoder>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

QString textOf(const QByteArray &bytes) {
    const auto decoded = xmlText(bytes);
    EXPECT_TRUE(decoded.has_value());
    EXPECT_TRUE(!decoded || decoded->isWhole);
    return decoded ? decoded->text : QString();
}

QByteArray declared(const QByteArray &encoding, const QByteArray &content) {
    return "<?xml version=\"1.0\" encoding=\"" + encoding + "\"?>" + content;
}

QByteArray encoded(const char *encoding, const QString &text) {
    return QStringEncoder(encoding).encode(text);
}

} // namespace

TEST(XmlText, isUtf8WithoutAnyWord) {
    EXPECT_EQ(textOf("<a>\xc3\xa9</a>"), u"<a>é</a>"_s);
    EXPECT_EQ(textOf(""), QString());
    EXPECT_EQ(textOf("<?xml version='1.0'?><a>\xc3\xa9</a>").right(8), u"<a>é</a>"_s);
}

TEST(XmlText, followsTheDeclaration) {
    const QByteArray bytes = "<a>\xe9\x80</a>";
    EXPECT_EQ(textOf(declared("windows-1252", bytes)).right(9), u"<a>é€</a>"_s);
    EXPECT_EQ(textOf(declared("ISO-8859-1", "<a>\xe9</a>")).right(8), u"<a>é</a>"_s);
    EXPECT_EQ(textOf(declared("iso-8859-15", "<a>\xa4</a>")).right(8), u"<a>€</a>"_s);
    EXPECT_EQ(textOf(declared("windows-1251", "<a>\xc8</a>")).right(8), u"<a>И</a>"_s);
    EXPECT_EQ(textOf(declared("Shift_JIS", "<a>\x83\x41</a>")).right(8), u"<a>ア</a>"_s);
    EXPECT_EQ(textOf(declared("utf8", "<a>\xc3\xa9</a>")).right(8), u"<a>é</a>"_s);
    EXPECT_EQ(textOf("<?xml  encoding = 'koi8-r' ?><a>\xe9</a>").right(8), u"<a>И</a>"_s);
}

TEST(XmlText, followsAByteOrderMarkBeforeTheDeclaration) {
    EXPECT_EQ(textOf("\xef\xbb\xbf" + declared("ISO-8859-1", "<a>\xc3\xa9</a>")).right(8),
              u"<a>é</a>"_s);
    const QString text = u"<?xml version=\"1.0\" encoding=\"UTF-16\"?><a>é😀></a>"_s;
    EXPECT_EQ(textOf("\xff\xfe" + encoded("UTF-16LE", text)), text);
    EXPECT_EQ(textOf("\xfe\xff" + encoded("UTF-16BE", text)), text);
}

TEST(XmlText, knowsWideTextWithoutAMark) {
    const QString text = u"<a>é</a>"_s;
    EXPECT_EQ(textOf(encoded("UTF-16LE", text)), text);
    EXPECT_EQ(textOf(encoded("UTF-16BE", text)), text);
}

TEST(XmlText, doesNotBelieveThatNarrowTextIsWide) {
    EXPECT_EQ(textOf(declared("utf-16", "<a>\xc3\xa9</a>")).right(8), u"<a>é</a>"_s);
}

TEST(XmlText, isAbsentForAnUnknownEncoding) {
    EXPECT_EQ(xmlText(declared("nonsense", "<a/>")).has_value(), false);
}

TEST(XmlText, endsWithTheLastTagBeforeBadBytes) {
    const auto decoded = xmlText("<a><b>c</b>d\xff</a>");
    ASSERT_TRUE(decoded.has_value());
    EXPECT_FALSE(decoded->isWhole);
    EXPECT_EQ(decoded->text, u"<a><b>c</b>"_s);
}

TEST(XmlText, takesNoEncodingFromBelowTheDeclaration) {
    EXPECT_EQ(textOf("<?xml version='1.0'?><a encoding='nonsense'/>").size(), 45);
}

} // namespace zeph
