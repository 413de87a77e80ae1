// SPDX-License-Identifier: MIT
#include "settings/CountdownForm.h"

#include "settings/PreferencesFixture.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace zeph {

namespace {

/// Writes a date as its seconds and its pattern.
class PatternFormatters : public FakeFormatters {
public:
    QString date(Date date, const QString &pattern,
                 const DayHalfSymbols & /*dayHalves*/) const override {
        return QString::number(date.secondsSince1970) + u' ' + pattern;
    }
};

class CountdownFormTest : public PreferencesFixture {
protected:
    CountdownEvent event(const QString &title) {
        return {QUuid::createUuid(), title, Date{1000}, CountdownRecurrence::none};
    }
};

TEST_F(CountdownFormTest, addsOnlyWithATitleThatIsNotBlank) {
    for (const auto &title : {u""_s, u"  "_s, u"\t\n"_s}) {
        CountdownForm form{title, Date{1000}};
        EXPECT_FALSE(form.canAdd());
        EXPECT_FALSE(form.add(prefs()));
    }
    EXPECT_THAT(prefs().countdowns(), IsEmpty());
    EXPECT_TRUE((CountdownForm{u" Trip"_s, Date{1000}}.canAdd()));
}

TEST_F(CountdownFormTest, appendsAnEventWithAFreshIdAndEmptiesTheTitle) {
    CountdownForm form{u" Rent "_s, Date{1000}, CountdownRecurrence::monthly};
    EXPECT_TRUE(form.add(prefs()));
    EXPECT_EQ(form.title, u""_s);
    EXPECT_EQ(form.recurrence, CountdownRecurrence::monthly);
    form.title = u"Trip"_s;
    EXPECT_TRUE(form.add(prefs()));
    const auto &events = relaunched().countdowns();
    ASSERT_THAT(events, SizeIs(2));
    EXPECT_EQ(events[0],
              (CountdownEvent{events[0].id, u"Rent"_s, Date{1000}, CountdownRecurrence::monthly}));
    EXPECT_EQ(events[1].title, u"Trip"_s);
    EXPECT_FALSE(events[0].id.isNull() || events[0].id == events[1].id);
}

TEST_F(CountdownFormTest, aRowTellsADateAndHowTheEventComesAgain) {
    auto rent = event(u"Rent"_s);
    rent.recurrence = CountdownRecurrence::monthly;
    const auto trip = event(u"Trip"_s);
    EXPECT_THAT(countdownRows({rent, trip}, PatternFormatters()),
                ElementsAre(CountdownRow{rent.id, u"Rent"_s, u"1000 MMM d, y"_s, u"monthly"_s},
                            CountdownRow{trip.id, u"Trip"_s, u"1000 MMM d, y"_s, {}}));
}

TEST_F(CountdownFormTest, aRemovedEventComesBackWhereItStood) {
    const std::vector events = {event(u"a"_s), event(u"b"_s), event(u"c"_s)};
    prefs().setCountdowns(events);
    const auto removed = removeCountdown(events[1].id, prefs());
    ASSERT_TRUE(removed);
    EXPECT_THAT(relaunched().countdowns(), ElementsAre(events[0], events[2]));
    restoreCountdown(*removed, prefs());
    EXPECT_EQ(relaunched().countdowns(), events);
}

TEST_F(CountdownFormTest, anEventThatIsThereDoesNotComeTwice) {
    const auto trip = event(u"Trip"_s);
    prefs().setCountdowns({trip});
    const auto removed = removeCountdown(trip.id, prefs());
    ASSERT_TRUE(removed);
    restoreCountdown(*removed, prefs());
    restoreCountdown(*removed, prefs());
    EXPECT_THAT(prefs().countdowns(), ElementsAre(trip));
}

TEST_F(CountdownFormTest, theRemovalOfAnUnknownEventWritesNothing) {
    prefs().setCountdowns({event(u"Trip"_s)});
    const int writes = defaults.writes;
    EXPECT_EQ(removeCountdown(QUuid::createUuid(), prefs()), std::nullopt);
    EXPECT_EQ(defaults.writes, writes);
}

} // namespace

} // namespace zeph
