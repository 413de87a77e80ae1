// SPDX-License-Identifier: MIT
#include "services/simple/RedditProfile.h"

#include "services/simple/SimpleFixture.h"

#include "services/web/ServiceError.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <ctime>
#include <limits>
#include <random>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

using RedditProfile = Simple;

/// The number that a plain pattern finds: what the patterns of linear time must find as well.
std::optional<qint64> plain(const QString &page, const QRegularExpression &pattern) {
    const auto match = pattern.match(page);
    bool isNumber = false;
    const qint64 number = match.captured(1).remove(u',').toLongLong(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

class PlainPatterns {
public:
    RedditFigures oldSite(const QString &page) const {
        return {plain(page, m_post).value_or(0) + plain(page, m_comment).value_or(0),
                plain(page, m_followers)};
    }
    RedditFigures newSite(const QString &page) const {
        return {plain(page, m_karma).value_or(0), plain(page, m_followers)};
    }

private:
    static QRegularExpression expression(const QString &pattern) {
        return QRegularExpression(pattern, QRegularExpression::CaseInsensitiveOption);
    }

    QRegularExpression m_post = expression(uR"(class="karma"[^>]*>\s*([\d,]+))"_s);
    QRegularExpression m_comment = expression(uR"(class="karma comment-karma"[^>]*>\s*([\d,]+))"_s);
    QRegularExpression m_followers = expression(uR"(([\d,]+)\s*followers)"_s);
    QRegularExpression m_karma = expression(uR"(([\d,]+)\s*karma)"_s);
};

const std::array pieces = {u"class=\"karma\""_s,
                           u"class=\"karma comment-karma\""_s,
                           u">"_s,
                           u" "_s,
                           u"7"_s,
                           u","_s,
                           u"\n"_s,
                           u"Followers"_s,
                           u"karma"_s,
                           u"x"_s};

QString randomPage(std::mt19937 &random) {
    QString page;
    for (auto length = random() % 12; length > 0; --length) {
        page += pieces[random() % pieces.size()];
    }
    return page;
}

/// Milliseconds of processor time for reading `page` as either site's.
qint64 timeOf(const QString &page) {
    const std::clock_t begin = std::clock();
    RedditFigures figures = oldSiteFigures(page);
    addNewSiteFigures(page, figures);
    return (std::clock() - begin) * 1000 / CLOCKS_PER_SEC;
}

} // namespace

TEST_F(RedditProfile, dropsEachPrefixOnce) {
    EXPECT_EQ(redditName(u"/u/@name"_s), u"name"_s);
    EXPECT_EQ(redditName(u"u/u/name"_s), u"u/name"_s);
    EXPECT_EQ(redditName(u" /user/name\n"_s), u"name"_s);
    EXPECT_EQ(redditName(u"/u/u//user/@name"_s), u"name"_s);
    EXPECT_EQ(redditName(u"@u/name"_s), u"u/name"_s);
    EXPECT_EQ(redditName(u"U/name"_s), u"U/name"_s);
}

TEST_F(RedditProfile, addsPostAndCommentKarmaOfTheOldSite) {
    const RedditFigures figures =
        oldSiteFigures(QString::fromUtf8(recorded(u"reddit/old-profile.html"_s)));
    EXPECT_EQ(figures, (RedditFigures{15467, std::nullopt}));
    EXPECT_EQ(oldSiteFigures(u"<b class=\"karma\">5</b>"_s).karma, 5);
    EXPECT_EQ(oldSiteFigures(u"<b class=\"KARMA COMMENT-KARMA\" id=a>\n 6</b>"_s).karma, 6);
}

TEST_F(RedditProfile, aSumOfKarmaBeyondAllNumbersEndsAtTheLimit) {
    const QString page = u"class=\"karma\">9223372036854775807<class=\"karma comment-karma\">1"_s;
    EXPECT_EQ(oldSiteFigures(page).karma, std::numeric_limits<qint64>::max());
}

TEST_F(RedditProfile, readsTheMainSiteInTheOrderOfItsPatterns) {
    const auto read = [](const QString &page) {
        RedditFigures figures;
        addNewSiteFigures(page, figures);
        return figures;
    };
    EXPECT_EQ(read(u"1 karma \"totalKarma\":2 \"total_karma\" : 3"_s).karma, 3);
    EXPECT_EQ(read(u"1 karma \"totalKarma\":2"_s).karma, 2);
    EXPECT_EQ(read(u"1,000 karma"_s).karma, 1000);
    EXPECT_EQ(read(u"5 followers \"subscribers\":6"_s).followers, 6);
    EXPECT_EQ(read(u"5 followers"_s).followers, 5);
    EXPECT_EQ(read(u""_s), RedditFigures());
}

TEST_F(RedditProfile, keepsWhatTheOldSiteTold) {
    RedditFigures figures{7, 0};
    addNewSiteFigures(u"\"total_karma\":3 \"subscribers\":6"_s, figures);
    EXPECT_EQ(figures, (RedditFigures{7, 0}));
}

TEST_F(RedditProfile, showsWhatIsAtLeastOne) {
    const Chips karma{{u"flame"_s, u"1 karma"_s}};
    EXPECT_EQ(redditCard(u"a"_s, {1, 0}, true, context).chips, karma);
    const Chips followers{{u"person.2"_s, u"1 followers"_s}};
    EXPECT_EQ(redditCard(u"a"_s, {0, 1}, true, context).chips, followers);
    EXPECT_EQ(redditCard(u"a"_s, {0, 1}, true, context).headline, u"u/a"_s);
    EXPECT_THROW(redditCard(u"a"_s, {0, 0}, true, context), ServiceError);
    EXPECT_THROW(redditCard(u"a"_s, {0, std::nullopt}, true, context), ServiceError);
}

TEST_F(RedditProfile, showsFollowersOfNoneWhenTheMainSiteFailed) {
    const Chips none{{u"person.2"_s, u"0 followers"_s}};
    EXPECT_EQ(redditCard(u"a"_s, {0, 0}, false, context).chips, none);
    EXPECT_THROW(redditCard(u"a"_s, {0, std::nullopt}, false, context), ServiceError);
    const Chips karma{{u"flame"_s, u"2 karma"_s}};
    EXPECT_EQ(redditCard(u"a"_s, {2, std::nullopt}, false, context).chips, karma);
}

TEST_F(RedditProfile, findsWhatThePlainPatternsFind) {
    const PlainPatterns patterns;
    std::mt19937 random(1); // NOLINT: the same pages in every run
    int withFigures = 0;
    for (int i = 0; i < 400; ++i) {
        const QString page = randomPage(random);
        const RedditFigures figures = oldSiteFigures(page);
        ASSERT_EQ(figures, patterns.oldSite(page)) << qPrintable(page);
        RedditFigures added;
        addNewSiteFigures(page, added);
        ASSERT_EQ(added, patterns.newSite(page)) << qPrintable(page);
        withFigures += figures == RedditFigures() ? 0 : 1;
    }
    EXPECT_GT(withFigures, 20);
}

TEST_F(RedditProfile, readsHostilePagesInLinearTime) {
    constexpr qsizetype length = 500'000;
    const QStringList hostile{
        u"class=\"karma\""_s,  u"class=\"karma\">"_s, u"1"_s, u"1,"_s, u"1 "_s,
        u"\"total_karma\" "_s, u"followers"_s,        u"<"_s};
    for (const QString &piece : hostile) {
        const qint64 elapsed = timeOf(piece.repeated(length / piece.size()));
        EXPECT_LT(elapsed, 5'000) << qPrintable(piece); // a square takes minutes
    }
    const QString blanks = QString(length / 2, u'1') + QString(length / 2, u' ');
    EXPECT_LT(timeOf(blanks), 5'000);
    EXPECT_LT(timeOf(u"class=\"karma\">"_s + QString(length, u' ')), 5'000);
}

} // namespace zeph
