// SPDX-License-Identifier: MIT
#include "services/catalogue/ServiceCatalogue.h"

#include "support/FakeHttpClient.h"
#include "support/Fixture.h"
#include "support/ManualClock.h"
#include "support/QtPrinters.h"
#include "wording/FramingFixture.h"

#include <gmock/gmock.h>

#include <set>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace zeph {

namespace {

/// The services, all of them below one root, and what they ask.
class ServiceCatalogueTest : public Framing {
protected:
    /// Asks the service of `row` while all its roots lead to root.test.
    AccountRecord ask(const ServiceRow &row, const AccountQuestion &question) {
        Endpoints endpoints;
        if (row.root) {
            endpoints.*row.root = u"https://root.test"_s;
        }
        return row.fetch({http, endpoints, clock, calendar, calendar, context})(question);
    }

    /// A request as one text, with the credentials of basic authorization readable.
    static QByteArray text(const HttpRequest &request) {
        QByteArray text = request.url.toEncoded() + ' ' + request.body;
        for (const HttpHeader &header : request.headers) {
            const bool isBasic = header.value.startsWith("Basic ");
            text += ' ' + (isBasic ? QByteArray::fromBase64(header.value.mid(6)) : header.value);
        }
        return text;
    }

    FakeHttpClient http;
    ManualClock clock;
};

TEST_F(ServiceCatalogueTest, everyServiceIsThereOnce) {
    for (const ServiceRow &row : serviceCatalogue()) {
        EXPECT_EQ(serviceRow(row.key), &row);
    }
}

TEST_F(ServiceCatalogueTest, theAccountsOfEarlyVersionsAreCarriedOverInTheirOrder) {
    QStringList keys;
    for (const ServiceRow &row : serviceCatalogue()) {
        if (row.hadSingleAccount) {
            keys.append(row.key);
        }
    }
    EXPECT_THAT(keys, ElementsAre(u"stripe"_s, u"github"_s, u"chartmogul"_s, u"lemonsqueezy"_s,
                                  u"dodo"_s, u"plausible"_s, u"trustmrr"_s, u"ahrefs"_s,
                                  u"coingecko"_s, u"hackernews"_s, u"reddit"_s));
}

TEST_F(ServiceCatalogueTest, aKeyThatIsNotKnownHasNoRow) {
    for (const auto &key : {u""_s, u"cursor"_s, u"Stripe"_s, u"rss "_s}) {
        EXPECT_EQ(serviceRow(key), nullptr) << key.toStdString();
    }
}

TEST_F(ServiceCatalogueTest, everyRowIsComplete) {
    std::set<QString> names;
    std::set<WidgetKind> widgets;
    for (const ServiceRow &row : serviceCatalogue()) {
        EXPECT_TRUE(names.insert(row.defaultName).second) << row.key.data();
        EXPECT_TRUE(row.widget && widgets.insert(*row.widget).second) << row.key.data();
        EXPECT_TRUE(row.secret != Need::none || row.value == Need::required) << row.key.data();
        EXPECT_EQ(row.family.has_value(), row.fetch != nullptr) << row.key.data();
        EXPECT_EQ(row.root != nullptr, row.family && row.key != "rss"_L1) << row.key.data();
    }
}

TEST_F(ServiceCatalogueTest, theWordsOfAFormFitWhatTheServiceNeeds) {
    QStringList unoffered;
    for (const ServiceRow &row : serviceCatalogue()) {
        if (!row.words) {
            unoffered.append(row.key);
            continue;
        }
        EXPECT_FALSE(row.words->blurb.isEmpty()) << row.key.data();
        EXPECT_TRUE(row.words->help.endsWith(u'.')) << row.key.data();
        EXPECT_EQ(row.words->keyPlaceholder.isEmpty(), row.secret == Need::none) << row.key.data();
        EXPECT_EQ(row.words->keyPage.isEmpty(), row.secret == Need::none) << row.key.data();
        EXPECT_EQ(row.words->valueLabel.isEmpty(), row.value == Need::none) << row.key.data();
    }
    EXPECT_THAT(unoffered,
                ElementsAre(u"openai"_s, u"claude"_s, u"plausible"_s, u"vercel"_s, u"netlify"_s));
}

TEST_F(ServiceCatalogueTest, everyRootIsAServerOfItsOwn) {
    const Endpoints endpoints;
    std::set<QString> roots;
    for (const ServiceRow &row : serviceCatalogue()) {
        if (row.root) {
            const QString root = endpoints.*row.root;
            EXPECT_TRUE(roots.insert(root).second) << row.key.data();
            EXPECT_TRUE(root.startsWith(u"https://"_s) && !root.endsWith(u'/')) << row.key.data();
        }
    }
}

TEST_F(ServiceCatalogueTest, everyServiceIsAskedAtItsRootWithWhatTheAccountGives) {
    for (const ServiceRow &row : serviceCatalogue()) {
        if (!row.fetch) {
            continue;
        }
        // A value that is an address, a pair of currencies and a name as well.
        const QString value = row.root ? u"USD/EUR"_s : u"https://root.test/USD/EUR"_s;
        const std::size_t before = http.requests().size();
        const auto key = row.secret == Need::required ? std::optional(u"sesame"_s) : std::nullopt;
        const AccountRecord record = ask(row, {key, value});
        EXPECT_EQ(record.index(), static_cast<std::size_t>(*row.family)) << row.key.data();
        ASSERT_GT(http.requests().size(), before) << row.key.data();
        const QByteArray asked = text(http.requests()[before]).toLower();
        EXPECT_TRUE(asked.startsWith("https://root.test/")) << asked.data();
        EXPECT_EQ(asked.contains("sesame"), row.secret == Need::required) << asked.data();
        EXPECT_EQ(asked.contains("usd"), row.value != Need::none) << asked.data();
    }
}

TEST_F(ServiceCatalogueTest, gitHubIsAskedForItsGraphWhereThatIsShown) {
    http.setHandler([](const HttpRequest &request) {
        return FakeHttpClient::json(request.method == "POST"
                                        ? fixture("github/graphql-three-years.json")
                                        : fixture("github/user.json"));
    });
    const ServiceRow &row = *serviceRow(u"github"_s);
    AccountQuestion question{u"token"_s, u"octo"_s};
    EXPECT_EQ(std::get<GitHubStats>(ask(row, question)).contributions, std::nullopt);
    question.graph = ContributionLayout::y2;
    const auto stats = std::get<GitHubStats>(ask(row, question));
    ASSERT_TRUE(stats.contributions.has_value());
    EXPECT_EQ(stats.contributions->rows.size(), 2U);
}

TEST_F(ServiceCatalogueTest, aFeedIsCutAtTheNumberOfItemsThatIsGiven) {
    http.setHandler([](const HttpRequest &) {
        return HttpResponse{200,
                            {},
                            "<rss><item><title>a</title></item>"
                            "<item><title>b</title></item></rss>"};
    });
    AccountQuestion question{std::nullopt, u"https://a.org/feed"_s, 1};
    const ServiceRow &row = *serviceRow(u"rss"_s);
    EXPECT_EQ(std::get<SimpleIntegrationStats>(ask(row, question)).chips.size(), 1U);
    question.itemCount = 2;
    EXPECT_EQ(std::get<SimpleIntegrationStats>(ask(row, question)).chips.size(), 2U);
}

TEST_F(ServiceCatalogueTest, everyHostStandsInTheDocument) {
    QFile document(QStringLiteral(ZEPH_SERVICES_DOCUMENT));
    ASSERT_TRUE(document.open(QFile::ReadOnly));
    const QByteArray words = document.readAll();
    const Endpoints endpoints;
    for (const ServiceRow &row : serviceCatalogue()) {
        if (row.root) {
            const QString host = QUrl(endpoints.*row.root).host();
            EXPECT_TRUE(words.contains(u"| %1"_s.arg(host).toUtf8())) << row.key.data();
        }
    }
}

} // namespace

} // namespace zeph
