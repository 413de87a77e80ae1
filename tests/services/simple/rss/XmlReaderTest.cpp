// SPDX-License-Identifier: MIT
#include "services/simple/rss/XmlReader.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QList>

#include <ctime>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// Writes down what it is told: "+a" and "-a" for tags, "[x]" for CDATA, text as it is.
class Notes : public XmlDelegate {
public:
    void didStartElement(const QString &name) override { text += u'+' + name + u' '; }
    void didEndElement(const QString &name) override { text += u'-' + name + u' '; }
    void foundCharacters(const QString &characters) override {
        text += characters;
        count += characters.size();
    }
    void foundCDATA(const QString &characters) override { text += u'[' + characters + u']'; }

    QString text;
    qsizetype count = 0;
};

struct Result {
    bool isComplete;
    QString notes;
};

Result read(const QByteArray &data) {
    Notes notes;
    const bool isComplete = readXml(data, notes);
    return {isComplete, notes.text};
}

void expectNotes(const QByteArray &data, const QString &notes) {
    const Result result = read(data);
    EXPECT_TRUE(result.isComplete) << data.constData();
    EXPECT_EQ(result.notes, notes);
}

void expectBroken(const QByteArray &data, const QString &notes) {
    const Result result = read(data);
    EXPECT_FALSE(result.isComplete) << data.left(80).constData();
    EXPECT_EQ(result.notes, notes);
}

/// Milliseconds of processor time.
qint64 timeOf(const QByteArray &data) {
    Notes notes;
    const std::clock_t begin = std::clock();
    readXml(data, notes);
    return (std::clock() - begin) * 1000 / CLOCKS_PER_SEC;
}

} // namespace

TEST(XmlReader, tellsTagsTextAndCdataInTheirOrder) {
    expectNotes("<?xml version='1.0'?><!-- c --><a b='c'>x<b/>&amp;&#233;<![CDATA[<y>]]>z</a>\n",
                u"+a x+b -b &é[<y>]z-a "_s);
}

TEST(XmlReader, tellsQualifiedNamesAndNeedsNoDeclarationOfPrefixes) {
    expectNotes("<media:title x:y='1'><Atom:B/></media:title>",
                u"+media:title +Atom:B -Atom:B -media:title "_s);
}

TEST(XmlReader, replacesTheEntitiesThatHtmlNames) {
    expectNotes("<a>caf&eacute;&nbsp;&hellip;&rsquo;</a>", u"+a café\u00A0…’-a "_s);
}

TEST(XmlReader, endsAtAnUnknownEntity) {
    expectBroken("<a>x<b/>&nope;<c/></a>", u"+a x+b -b "_s);
}

TEST(XmlReader, passesOverUnknownEntitiesOfADtdThatIsElsewhere) {
    expectNotes("<!DOCTYPE rss PUBLIC \"-//X//DTD RSS 0.91//EN\" \"http://x.example/rss.dtd\">"
                "<a>x&nope;&eacute;</a>",
                u"+a xé-a "_s);
}

TEST(XmlReader, replacesDeclaredEntities) {
    expectNotes("<!DOCTYPE a [<!ENTITY nbsp \"&#160;\"><!ENTITY firm \"Sea &amp; Co\">]>"
                "<a>&firm;&nbsp;</a>",
                u"+a Sea & Co\u00A0-a "_s);
}

TEST(XmlReader, readsNoFileForAnEntity) {
    expectNotes("<!DOCTYPE a [<!ENTITY f SYSTEM \"file:///etc/passwd\">]><a>x&f;y</a>",
                u"+a xy-a "_s);
}

TEST(XmlReader, refusesEntitiesWithinEntities) {
    QByteArray bomb = "<!DOCTYPE a [<!ENTITY a0 \"lol\">";
    for (int i = 1; i < 12; ++i) {
        const QByteArray inner = "&a" + QByteArray::number(i - 1) + ';';
        bomb += "<!ENTITY a" + QByteArray::number(i) + " \"" + inner.repeated(10) + "\">";
    }
    expectBroken(bomb + "]><a><b/>&a11;</a>", u"+a +b -b "_s);
    expectBroken("<!DOCTYPE a [<!ENTITY x \"&x;\">]><a>&x;</a>", u"+a "_s);
}

TEST(XmlReader, refusesOneLongEntityManyTimes) {
    const QByteArray dtd = "<!DOCTYPE a [<!ENTITY x \"" + QByteArray(4000, 'x') + "\">]>";
    expectBroken(dtd + "<a>" + QByteArray("&x;").repeated(20'000) + "</a>", u"+a "_s);
    expectBroken(dtd + "<a b='" + QByteArray("&x;").repeated(20'000) + "'/>", QString());
    Notes notes;
    EXPECT_TRUE(readXml(dtd + "<a>" + QByteArray("&x;").repeated(10) + "</a>", notes));
    EXPECT_EQ(notes.count, 40'000);
}

TEST(XmlReader, refusesParameterEntitiesManyTimes) {
    const QByteArray dtd = "<!DOCTYPE a [<!ENTITY % x \"" + QByteArray(4000, ' ') + "\">";
    expectBroken(dtd + QByteArray("%x;").repeated(10'000) + "]><a/>", QString());
}

TEST(XmlReader, countsAPercentSignInTheDtdOnly) {
    const QByteArray dtd = "<!DOCTYPE a [<!ENTITY firm \"" + QByteArray(40, 'x') + "\">]>";
    Notes notes;
    EXPECT_TRUE(readXml(dtd + "<a>&firm;" + QByteArray(10'000, '%') + "</a>", notes));
    EXPECT_EQ(notes.count, 10'040);
    const QByteArray many =
        "<!ENTITY % x \"" + QByteArray(60, ' ') + "\">" + QByteArray("%x;").repeated(1600) + "]>";
    expectBroken("<!DOCTYPE a [" + many + "<a/>", QString());
}

TEST(XmlReader, readsTextInASectionThatLooksLikeATagOfTooManyAttributes) {
    const QByteArray tag = "<b" + QByteArray(" c=''").repeated(300) + ">";
    expectNotes("<a><![CDATA[" + tag + "]]>x<!--" + tag + "--></a>",
                u"+a ["_s + QString::fromUtf8(tag) + u"]x-a "_s);
}

TEST(XmlReader, endsAtABracketWithinAnAttribute) {
    expectBroken("<a><b c='<![CDATA['/></a>", u"+a "_s);
    expectBroken("<a><b c=\"<!--\"/></a>", u"+a "_s);
    expectBroken("<a><b c='<?'/></a>", u"+a "_s);
}

TEST(XmlReader, refusesAttributesOfADtd) {
    expectBroken("<!DOCTYPE a [<!ATTLIST a b CDATA 'c'>]><a/>", QString());
    expectBroken("<!DOCTYPE a [<!ENTITY % p \"&#60;!ATT&#76;IST a b CDATA 'c'>\">%p;]><a/>",
                 QString());
}

TEST(XmlReader, refusesAPrologWithoutEnd) {
    expectBroken("<!DOCTYPE a [" + QByteArray("<!ELEMENT b ANY>").repeated(5000) + "]><a/>",
                 QString());
    QByteArray attributes = "<!DOCTYPE a [<!ATTLIST a ";
    for (int i = 0; i < 300'000; ++i) {
        attributes += 'x' + QByteArray::number(i) + " CDATA 'v' ";
    }
    EXPECT_LT(timeOf(attributes + ">]><a/>"), 15'000); // a square would take half an hour
}

TEST(XmlReader, refusesTooDeepNesting) {
    EXPECT_TRUE(
        read(QByteArray("<a>").repeated(256) + QByteArray("</a>").repeated(256)).isComplete);
    const Result deep = read(QByteArray("<a>").repeated(1'000'000));
    EXPECT_FALSE(deep.isComplete);
    EXPECT_EQ(deep.notes.count(u'+'), 256);
}

TEST(XmlReader, endsAtATagOfTooManyAttributes) {
    QByteArray tag = "<b";
    for (int i = 0; i < 1'000'000; ++i) {
        tag += " x" + QByteArray::number(i) + "=''";
    }
    const QByteArray data = "<a><c/>" + tag + "/></a>";
    EXPECT_LT(timeOf(data), 15'000); // a square would take hours
    expectBroken(data, u"+a +c -c "_s);
}

TEST(XmlReader, tellsWhatStandsBeforeABadTail) {
    expectBroken("<a><b>x</b><c></a>", u"+a +b x-b +c "_s);
    expectBroken("<a><b>x</b>", u"+a +b x-b "_s);
    expectBroken("<a><b>x</b>y\xff</a>", u"+a +b x-b "_s);
    expectBroken("<a/>tail", u"+a -a "_s);
    expectBroken("<a/><b/>", u"+a -a "_s);
}

TEST(XmlReader, refusesWhatIsNoXml) {
    for (const char *data : {"", " ", "text", "{}", "<!doctype html><html></html>", "<?xml?>",
                             "\n<?xml version='1.0'?><a/>", "<a b=c/>", "<1/>"}) {
        expectBroken(data, QString());
    }
}

TEST(XmlReader, readsAcrossTheEndOfTheFirstPartAlike) {
    for (int shift = 0; shift < 24; ++shift) {
        const QByteArray start = "<a><!--" + QByteArray(65'500 + shift, ' ') + "-->";
        const QByteArray end = "te\xf0\x9f\x98\x80xt&eacute;&#233;<b c='d'>[<![CDATA[e]]></b></a>";
        expectNotes(start + end, u"+a te😀xtéé+b [[e]-b -a "_s);
    }
}

TEST(XmlReader, readsFiveMebibytesInLinearTime) {
    constexpr qsizetype size = 5 * 1024 * 1024;
    const QByteArray item =
        "<item><title>A headline &amp; more</title><link>https://a.example/1</link></item>";
    const QByteArray data = "<a>" + item.repeated(size / item.size()) + "</a>";
    EXPECT_LT(timeOf(data), 15'000); // a square would take hours
}

TEST(XmlReader, readsManyOfEachPieceInLinearTime) {
    constexpr qsizetype size = 512 * 1024;
    const QList<QByteArray> pieces{"text ",
                                   "&amp;",
                                   "&nbsp;",
                                   "<![CDATA[x]]>",
                                   "<!-- c -->",
                                   "<b/>",
                                   "<?p q?>",
                                   "]]&gt;",
                                   "<i a='1' b='2' c='3' d='4'/>",
                                   "\n"};
    for (const QByteArray &piece : pieces) {
        const QByteArray data = "<a>" + piece.repeated(size / piece.size()) + "</a>";
        EXPECT_TRUE(read(data).isComplete) << piece.constData();
        EXPECT_LT(timeOf(data), 15'000) << piece.constData();
    }
}

} // namespace zeph
