// SPDX-License-Identifier: MIT
#include "widgets/HiddenReason.h"

#include "base/Log.h"
#include "model/AppState.h"
#include "settings/PreferencesFixture.h"
#include "support/LoggedLines.h"
#include "support/UtcCalendar.h"
#include "widgets/HiddenWidgetsLog.h"
#include "widgets/WidgetLayoutCatalog.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using enum WidgetKind;

constexpr Date now{1'700'000'000};

const QString noAnswer = u"No account of its service has answered yet, or none is connected"_s;
const QString refused = u"The last fetch failed: The key was refused"_s;

class HiddenReasonTest : public PreferencesFixture {
protected:
    std::optional<QString> reason(WidgetKind kind) {
        return hiddenReason(kind, state, prefs(), quoteEnabled, calendar);
    }

    template <typename Record>
    void expectFailureTold(WidgetKind kind, Published<std::vector<Record>> &list, Record record) {
        SCOPED_TRACE(rawValue(kind).toStdString());
        EXPECT_EQ(reason(kind), noAnswer);
        record.error = u"The key was refused"_s;
        list = std::vector{record};
        EXPECT_EQ(reason(kind), refused);
        record.error.reset();
        record.updated = now;
        list = std::vector{record};
        EXPECT_EQ(reason(kind), std::nullopt);
    }

    AppState state{now};
    UtcCalendar calendar;
    bool quoteEnabled = false;
};

TEST_F(HiddenReasonTest, isThereForExactlyTheWidgetsThatAreNotDrawn) {
    const auto drawn = WidgetLayoutCatalog::orderedKinds(state, prefs(), quoteEnabled, calendar);
    for (const WidgetKind kind : allWidgetKinds()) {
        const bool isDrawn = std::find(drawn.begin(), drawn.end(), kind) != drawn.end();
        EXPECT_NE(reason(kind).has_value(), isDrawn) << rawValue(kind).toStdString();
    }
}

TEST_F(HiddenReasonTest, tellsThatAWidgetIsSwitchedOff) {
    EXPECT_EQ(reason(desktop), u"It is switched off"_s);
    prefs().set(WidgetPlacement::off, clock);
    EXPECT_EQ(reason(clock), u"It is switched off"_s);
}

TEST_F(HiddenReasonTest, tellsThatAKindIsNotShownAtPresent) {
    for (const WidgetKind kind : {openai, claude, analytics, vercel, netlify, nasa}) {
        EXPECT_EQ(reason(kind), u"The wallpaper has no place for it at present"_s);
    }
}

TEST_F(HiddenReasonTest, tellsTheFailureOfAnAccount) {
    expectFailureTold(revenue, state.stripeStats, StripeStats{});
    RevenueStats chart;
    chart.provider = rawValue(chartmogul);
    expectFailureTold(chartmogul, state.revenueStats, chart);
    EXPECT_EQ(reason(dodo), noAnswer);
    SimpleIntegrationStats page;
    page.provider = rawValue(reddit);
    expectFailureTold(reddit, state.simpleStats, page);
    EXPECT_EQ(reason(bluesky), noAnswer);
}

TEST_F(HiddenReasonTest, tellsWhatAGitHubAccountHides) {
    EXPECT_EQ(reason(github), noAnswer);
    EXPECT_EQ(reason(githubGraph), noAnswer);
    GitHubStats account;
    account.updated = now;
    account.showStats = false;
    state.githubStats = std::vector{account};
    EXPECT_EQ(reason(github), u"Its numbers are switched off in the account"_s);
    EXPECT_EQ(reason(githubGraph), u"No account shows its graph, or the graph could not be read"_s);
}

TEST_F(HiddenReasonTest, tellsWhatCustomEndpointsLack) {
    EXPECT_EQ(reason(customAPIs), u"No custom endpoint has answered yet, or none is set up"_s);
    CustomAPIResult result;
    state.customResults = std::vector{result};
    EXPECT_EQ(reason(customAPIs), u"No endpoint has a value to show"_s);
    result.error = u"The key was refused"_s;
    state.customResults = std::vector{result};
    EXPECT_EQ(reason(customAPIs), refused);
}

TEST_F(HiddenReasonTest, tellsWhatTheSmallWidgetsWaitFor) {
    prefs().set(WidgetPlacement::always, reminders);
    EXPECT_EQ(reason(devices), u"No connected device tells its charge"_s);
    EXPECT_EQ(reason(reminders),
              u"The task lists were not read yet, or reading them is not allowed"_s);
    EXPECT_EQ(reason(countdowns), u"There is no event to come"_s);
    EXPECT_EQ(reason(onThisDay), u"Its service has not answered yet"_s);
    EXPECT_EQ(reason(iss), u"Its service has not answered yet"_s);
    EXPECT_EQ(reason(quote), u"The daily quote is switched off among the integrations"_s);
    quoteEnabled = true;
    EXPECT_EQ(reason(quote), u"Its service has not answered yet"_s);
}

TEST(HiddenWidgetsLog, asksAndTellsNothingWhileItsCategoryIsSilent) {
    const LoggedLines logged{QString()};
    HiddenWidgetsLog log;
    log.update([](WidgetKind /*kind*/) -> std::optional<QString> {
        ADD_FAILURE();
        return {};
    });
    EXPECT_EQ(logged.all(), QStringList());
}

TEST(HiddenWidgetsLog, tellsEachWidgetOnceAndThenWhatChanged) {
    LoggedLines logged(u"zeph.widgets.info=true"_s);
    HiddenWidgetsLog log;
    std::optional<QString> ofTheQuote = u"Not today"_s;
    const auto reasonOf = [&](WidgetKind kind) {
        return kind == quote ? ofTheQuote : std::nullopt;
    };
    log.update(reasonOf);
    const QStringList first = logged.take();
    EXPECT_EQ(first.size(), widgetKindCount);
    EXPECT_TRUE(first.contains(u"quote: Not today"_s));
    EXPECT_TRUE(first.contains(u"clock: shown"_s));
    log.update(reasonOf);
    EXPECT_EQ(logged.take(), QStringList());
    ofTheQuote.reset();
    log.update(reasonOf);
    EXPECT_EQ(logged.take(), QStringList{u"quote: shown"_s});
}

} // namespace

} // namespace zeph
