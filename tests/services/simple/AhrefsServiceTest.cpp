// SPDX-License-Identifier: MIT
#include "services/simple/AhrefsService.h"

#include "services/simple/SimpleFixture.h"

#include "services/web/Json.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class Ahrefs : public Simple {
protected:
    AhrefsService service{client, endpoints, clock, context};
};

QByteArray rating(const QByteArray &value) {
    return "{\"domain_rating\":{\"domain_rating\":" + value + "}}";
}

} // namespace

TEST_F(Ahrefs, showsTheRatingOfADomain) {
    expectJson("https://api.ahrefs.com/v3/public/domain-rating-free?target=example.com&output=json",
               recorded(u"ahrefs/domain-rating.json"_s));
    expectCard(service.fetch(u" example.com\n"_s), u"ahrefs"_s, u"example.com"_s,
               {{u"link"_s, u"DR 93"_s}});
}

TEST_F(Ahrefs, aWholeUrlWithAPathAsksForItsHostAlone) {
    EXPECT_EQ(ahrefsDomain(u"https://example.com/blog/a?b=c"_s), u"example.com"_s);
    EXPECT_EQ(ahrefsDomain(u"http://example.com"_s), u"example.com"_s);
    EXPECT_EQ(ahrefsDomain(u"\texample.com/"_s), u"example.com"_s);
}

TEST_F(Ahrefs, dropsTheSchemeWhereverItStands) {
    EXPECT_EQ(ahrefsDomain(u"view:https://example.com"_s), u"view:example.com"_s);
    EXPECT_EQ(ahrefsDomain(u"http://https://example.com"_s), u"example.com"_s);
}

TEST_F(Ahrefs, asksForNoDomainWithoutOne) {
    for (const QString &input : {u""_s, u"  "_s, u"https://"_s, u"/path"_s}) {
        expectFailure(service.fetch(input), u"ahrefs"_s, u"Enter a domain (e.g. example.com)."_s);
    }
}

TEST_F(Ahrefs, refusesADomainThatHasNoBytes) {
    expectFailure(service.fetch(QString(QChar(0xD800))), u"ahrefs"_s, u"Invalid domain."_s);
}

TEST_F(Ahrefs, encodesWhatWouldEndTheQueryValue) {
    expectJson(
        "https://api.ahrefs.com/v3/public/domain-rating-free?target=a%26b%3F%C3%A9&output=json",
        rating("1"));
    EXPECT_EQ(service.fetch(u"a&b?é"_s).error, std::nullopt);
}

TEST_F(Ahrefs, roundsTheRatingTiesToEven) {
    const auto text = [](const QByteArray &value) {
        return ahrefsCard(json::parse(rating(value)), u"a"_s).chips.front().text;
    };
    EXPECT_EQ(text("71"), u"DR 71"_s);
    EXPECT_EQ(text("71.6"), u"DR 72"_s);
    EXPECT_EQ(text("70.5"), u"DR 70"_s);
}

} // namespace zeph
