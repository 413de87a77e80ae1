// SPDX-License-Identifier: MIT
#include "services/github/GitHubService.h"

#include "services/web/ContractServer.h"
#include "services/web/Endpoints.h"
#include "support/ManualClock.h"
#include "support/UtcCalendar.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr double fetchTime = 1'763'090'130.75;

Exchange askPublic(const QByteArray &pathAndQuery) {
    return {getRequest("https://api.github.com/" + pathAndQuery,
                       {{"Accept", "application/vnd.github+json"}})};
}

Exchange ask(const QByteArray &pathAndQuery) {
    return {
        getRequest("https://api.github.com/" + pathAndQuery,
                   {{"Accept", "application/vnd.github+json"}, {"Authorization", "Bearer t1"}})};
}

/// What is asked with a token, and answered in full; a test changes the answers it is about.
struct WithToken {
    Exchange profile = ask("user").answering(fixture("github/user.json"));
    std::vector<Exchange> repositories = {page(1).answering(fixture("github/repos.json"))};
    Exchange search = ask("search/issues?q=author:mira+type:pr+state:open")
                          .answering(fixture("github/search-issues.json"));

    static Exchange page(int number) {
        return ask("user/repos?per_page=100&affiliation=owner&page=" + QByteArray::number(number));
    }
    std::vector<Exchange> all() const {
        std::vector<Exchange> all{profile};
        all.insert(all.end(), repositories.begin(), repositories.end());
        all.push_back(search);
        return all;
    }
};

std::vector<Exchange> withoutToken() {
    return {askPublic("users/mira").answering(fixture("github/users-mira.json")),
            askPublic("users/mira/repos?per_page=100&type=owner&page=1")
                .answering(fixture("github/repos.json")),
            askPublic("search/issues?q=author:mira+type:pr+state:open")
                .answering(fixture("github/search-issues.json"))};
}

GitHubStats fetched(const std::vector<Exchange> &conversation, const QString &username = u"mira"_s,
                    const std::optional<QString> &token = u"t1"_s) {
    ContractServer server(conversation);
    const Endpoints endpoints;
    const ManualClock clock(fetchTime);
    const UtcCalendar calendar;
    return GitHubService(server.client(), endpoints, clock, calendar).fetch(username, token);
}

QString told(const GitHubStats &stats) {
    return u"%1: %2 followers, %3 repos, %4 stars, %5 prs, %6, %7"_s.arg(stats.username)
        .arg(stats.followers)
        .arg(stats.publicRepos)
        .arg(stats.totalStars)
        .arg(stats.openPRs)
        .arg(stats.updated == Date{fetchTime} ? u"updated now"_s : u"not updated"_s)
        .arg(stats.error.value_or(u"no error"_s));
}

QByteArray repositories(int count, int starsEach) {
    QByteArray list =
        ("{\"stargazers_count\":" + QByteArray::number(starsEach) + "},").repeated(count);
    list.chop(1);
    return '[' + list + ']';
}

} // namespace

TEST(GitHubService, withATokenReadsTheUsersOwnAccount) {
    EXPECT_EQ(told(fetched(WithToken().all())),
              u"mira: 321 followers, 13 repos, 121 stars, 2 prs, updated now, no error"_s);
}

TEST(GitHubService, withoutATokenAsksThePublicPathsAndShowsNoKey) {
    const QString expected =
        u"mira: 321 followers, 10 repos, 121 stars, 2 prs, updated now, no error"_s;
    EXPECT_EQ(told(fetched(withoutToken(), u"mira"_s, std::nullopt)), expected);
    EXPECT_EQ(told(fetched(withoutToken(), u"mira"_s, u""_s)), expected);
}

TEST(GitHubService, privateRepositoriesCountOnlyWithAToken) {
    std::vector<Exchange> conversation = withoutToken();
    conversation[0] = conversation[0].answering(fixture("github/user.json"));
    EXPECT_EQ(fetched(conversation, u"mira"_s, std::nullopt).publicRepos, 10);
    EXPECT_EQ(fetched(WithToken().all()).publicRepos, 13);
}

TEST(GitHubService, startsAsTheRecordOfAYearWithItsFigures) {
    const GitHubStats stats = fetched(WithToken().all());
    EXPECT_EQ(stats.contributionLayout, ContributionLayout::y1);
    EXPECT_TRUE(stats.showStats);
    EXPECT_EQ(stats.contributions, std::nullopt);
    EXPECT_EQ(stats.label, QString());
    EXPECT_FALSE(stats.connectionId.isNull());
    EXPECT_NE(stats.connectionId, fetched(WithToken().all()).connectionId);
}

TEST(GitHubService, aFullPageLeadsToASecondWhichEndsItWhenEmpty) {
    WithToken conversation;
    conversation.repositories = {WithToken::page(1).answering(repositories(100, 2)),
                                 WithToken::page(2).answering("[]")};
    EXPECT_EQ(fetched(conversation.all()).totalStars, 200);
}

TEST(GitHubService, readsAtMostThreePagesOfRepositories) {
    WithToken conversation;
    conversation.repositories = {WithToken::page(1).answering(repositories(100, 1)),
                                 WithToken::page(2).answering(repositories(100, 1)),
                                 WithToken::page(3).answering(repositories(100, 1))};
    EXPECT_EQ(fetched(conversation.all()).totalStars, 300);
}

TEST(GitHubService, aPageThatIsNotFullIsTheLast) {
    WithToken conversation;
    conversation.repositories = {WithToken::page(1).answering(repositories(99, 1))};
    EXPECT_EQ(fetched(conversation.all()).totalStars, 99);
}

TEST(GitHubService, aPageThatFailsKeepsTheStarsSoFarWithoutAnError) {
    const Exchange second = WithToken::page(2);
    for (const Exchange &failing :
         {second.cutOff(), second.answering(badGateway()), second.answering(""),
          second.answering(fixture("github/error-403-rate-limit.json"), 403),
          second.answering(R"([{"stargazers_count":5},7])")}) {
        WithToken conversation;
        conversation.repositories = {WithToken::page(1).answering(repositories(100, 1)), failing};
        EXPECT_EQ(told(fetched(conversation.all())),
                  u"mira: 321 followers, 13 repos, 100 stars, 2 prs, updated now, no error"_s);
    }
}

TEST(GitHubService, aListIsReadWhateverItsStatus) {
    WithToken conversation;
    conversation.repositories = {WithToken::page(1).answering(repositories(2, 4), 500)};
    EXPECT_EQ(fetched(conversation.all()).totalStars, 8);
}

TEST(GitHubService, aSearchBeyondTheRateLimitLeavesNoPullRequestsAndNoError) {
    WithToken conversation;
    const Exchange search = conversation.search;
    for (const Exchange &failing :
         {search.answering(fixture("github/error-403-rate-limit.json"), 403),
          search.answering(fixture("github/error-422-search.json"), 422),
          search.answering(badGateway()), search.cutOff(), search.answering(""),
          search.answering(R"({"total_count":"2"})"), search.answering("[2]")}) {
        conversation.search = failing;
        EXPECT_EQ(told(fetched(conversation.all())),
                  u"mira: 321 followers, 13 repos, 121 stars, 0 prs, updated now, no error"_s);
    }
}

TEST(GitHubService, aProfileThatFailsIsTheErrorAndTheEnd) {
    const Exchange profile = WithToken().profile;
    const QString nothing = u"mira: 0 followers, 0 repos, 0 stars, 0 prs, not updated, "_s;
    EXPECT_EQ(told(fetched({profile.answering(fixture("github/error-401.json"), 401)})),
              nothing + u"Bad credentials"_s);
    EXPECT_EQ(told(fetched({profile.answering(badGateway())})), nothing + u"GitHub error 502"_s);
    EXPECT_EQ(told(fetched({profile.answering(R"({"message":7})", 404)})),
              nothing + u"GitHub error 404"_s);
    EXPECT_EQ(told(fetched({profile.cutOff()})), nothing + u"The connection was lost."_s);
}

TEST(GitHubService, aProfileOfAnotherFormCountsAsNothing) {
    for (const char *body :
         {"", "<html>", "[]", "{}", R"({"followers":"9","public_repos":1.5})",
          R"({"followers":NaN})", R"({"followers":1e300,"public_repos":true})"}) {
        WithToken conversation;
        conversation.profile = conversation.profile.answering(body);
        EXPECT_EQ(told(fetched(conversation.all())),
                  u"mira: 0 followers, 0 repos, 121 stars, 2 prs, updated now, no error"_s)
            << body;
    }
}

TEST(GitHubService, figuresBeyondAllNumbersEndAtTheLimit) {
    WithToken conversation;
    conversation.profile = conversation.profile.answering(
        R"({"public_repos":9223372036854775807,"total_private_repos":9223372036854775807})");
    conversation.repositories = {WithToken::page(1).answering(
        R"([{"stargazers_count":9223372036854775807},{"stargazers_count":9223372036854775807}])")};
    const GitHubStats stats = fetched(conversation.all());
    EXPECT_EQ(stats.publicRepos, std::numeric_limits<qint64>::max());
    EXPECT_EQ(stats.totalStars, std::numeric_limits<qint64>::max());
}

TEST(GitHubService, theUserNameGoesIntoPathsAsItStands) {
    const QByteArray name = "mira%20x/y";
    fetched({askPublic("users/" + name),
             askPublic("users/" + name + "/repos?per_page=100&type=owner&page=1"),
             askPublic("search/issues?q=author:" + name + "+type:pr+state:open")},
            u"mira%20x/y"_s, std::nullopt);
}

TEST(GitHubService, aUserNameThatMakesNoUrlIsAnErrorWithoutARequest) {
    EXPECT_EQ(fetched({}, u"mi ra"_s, std::nullopt).error, u"Invalid URL"_s);
}

TEST(GitHubService, aUserNameThatMakesNoUrlCostsOnlyThePullRequestsWithAToken) {
    const WithToken conversation;
    EXPECT_EQ(told(fetched({conversation.profile, conversation.repositories[0]}, u"mi ra"_s)),
              u"mi ra: 321 followers, 13 repos, 121 stars, 0 prs, updated now, no error"_s);
}

} // namespace zeph
