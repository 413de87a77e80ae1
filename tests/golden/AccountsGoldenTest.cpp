// SPDX-License-Identifier: MIT
#include "golden/GoldenImage.h"
#include "golden/WidgetSheet.h"

#include "widgets/WallpaperContentView.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// What a picture is of: one widget, or the cards, which share a block.
struct AccountPicture {
    QString name;
    std::vector<WidgetKind> kinds;
};

const AccountPicture cards{u"cards"_s,
                           {WidgetKind::ahrefs, WidgetKind::coingecko, WidgetKind::hackernews,
                            WidgetKind::reddit, WidgetKind::producthunt, WidgetKind::bluesky,
                            WidgetKind::currency, WidgetKind::gumroad, WidgetKind::polar,
                            WidgetKind::vercel, WidgetKind::netlify}};

AccountPicture one(WidgetKind kind) {
    return {rawValue(kind), {kind}};
}

/// Keeps addresses out of the tests' names.
void PrintTo(const AccountPicture &picture, std::ostream *out) {
    *out << picture.name.toStdString();
}

std::string pictureName(const testing::TestParamInfo<AccountPicture> &info) {
    return info.param.name.toStdString();
}

} // namespace

class GoldenAccounts : public WidgetSheet, public testing::WithParamInterface<AccountPicture> {
protected:
    QImage picture() {
        const WallpaperContentView content(context, available);
        std::vector<View> rows;
        for (const auto &row : WallpaperContentView::flowRows(GetParam().kinds)) {
            rows.push_back(content.flowRow(row, {}));
        }
        return sheet(rows);
    }
    QString name(const QString &variation) const {
        return u"account-"_s + GetParam().name + variation;
    }
};

class AccountsOfMany : public GoldenAccounts {};
class AccountsOfOne : public GoldenAccounts {};
class AccountsWithOddContent : public GoldenAccounts {};

TEST_P(AccountsOfMany, lookAsExpected) {
    fillAccounts();
    EXPECT_TRUE(matchesGolden(picture(), name({})));
}

INSTANTIATE_TEST_SUITE_P(BesideFailedOnes, AccountsOfMany,
                         testing::Values(cards, one(WidgetKind::revenue), one(WidgetKind::github),
                                         one(WidgetKind::githubGraph), one(WidgetKind::chartmogul),
                                         one(WidgetKind::lemonsqueezy), one(WidgetKind::dodo),
                                         one(WidgetKind::trustmrr), one(WidgetKind::rss),
                                         one(WidgetKind::customAPIs), one(WidgetKind::openai),
                                         one(WidgetKind::claude), one(WidgetKind::analytics)),
                         pictureName);

TEST_P(AccountsOfOne, lookAsExpected) {
    fillFewAccounts();
    EXPECT_TRUE(matchesGolden(picture(), name(u"-one"_s)));
}

INSTANTIATE_TEST_SUITE_P(WithLittleToTell, AccountsOfOne,
                         testing::Values(cards, one(WidgetKind::revenue), one(WidgetKind::github),
                                         one(WidgetKind::githubGraph), one(WidgetKind::chartmogul),
                                         one(WidgetKind::rss)),
                         pictureName);

TEST_P(AccountsWithOddContent, lookAsExpected) {
    fillOddAccounts();
    EXPECT_TRUE(matchesGolden(picture(), name(u"-odd"_s)));
}

INSTANTIATE_TEST_SUITE_P(LongOrHuge, AccountsWithOddContent,
                         testing::Values(cards, one(WidgetKind::revenue), one(WidgetKind::github),
                                         one(WidgetKind::githubGraph), one(WidgetKind::chartmogul),
                                         one(WidgetKind::rss), one(WidgetKind::customAPIs)),
                         pictureName);

} // namespace zeph
