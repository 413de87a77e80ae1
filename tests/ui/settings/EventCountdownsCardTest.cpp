// SPDX-License-Identifier: MIT
#include "ui/settings/EventCountdownsCard.h"

#include "settings/EventDay.h"
#include "ui/controls/CalendarSheet.h"
#include "ui/controls/ChoiceBox.h"
#include "ui/controls/DateField.h"
#include "ui/controls/IconButton.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/TextField.h"
#include "ui/settings/PaneFixture.h"

using namespace Qt::StringLiterals;

namespace zeph::ui {

class EventCountdownsCardTest : public PaneFixture {
protected:
    EventCountdownsCardTest() {
        clock.set(at(10, 24, 0, 5, 14));
        preferences.setCountdowns(
            {event(u"Summer trip"_s, at(8, 0, 0, 6, 6)),
             event(u"Anna"_s, at(0, 0, 0, 5, 15), CountdownRecurrence::yearly),
             event(u"Rent"_s, at(9, 0, 0, 1, 31))});
    }

    static CountdownEvent event(const QString &title, Date date,
                                CountdownRecurrence recurrence = CountdownRecurrence::none) {
        return {QUuid::createUuid(), title, date, recurrence};
    }

    void open() { show(new EventCountdownsCard(paneContext())); }

    QStringList stored() const {
        QStringList titles;
        for (const CountdownEvent &one : preferences.countdowns()) {
            titles << one.title;
        }
        return titles;
    }

    TextField &name() { return named<TextField>(u"Event name"_s); }
    PillButton &addButton() { return named<PillButton>(u"Add"_s); }
};

TEST_F(EventCountdownsCardTest, listsTheEventsWithTheirDatesAndRecurrences) {
    open();
    EXPECT_TRUE(says(u"Summer trip"_s));
    EXPECT_TRUE(says(u"Jun 6, 2026"_s));
    EXPECT_TRUE(says(u"yearly"_s));
    EXPECT_TRUE(find<IconButton>(u"Remove Rent"_s));
}

TEST_F(EventCountdownsCardTest, addsOnlyWhatHasAName) {
    preferences.setCountdowns({});
    open();
    EXPECT_FALSE(addButton().isEnabled());
    QTest::keyClicks(&name(), u"   "_s);
    EXPECT_FALSE(addButton().isEnabled());
    press(name(), Qt::Key_Return);
    EXPECT_TRUE(preferences.countdowns().empty());
    QTest::keyClicks(&name(), u"Launch"_s);
    EXPECT_TRUE(addButton().isEnabled());
    click(addButton());
    EXPECT_EQ(stored(), QStringList{u"Launch"_s});
    EXPECT_EQ(name().text(), QString());
    EXPECT_FALSE(addButton().isEnabled());
    EXPECT_TRUE(says(u"Launch"_s));
}

TEST_F(EventCountdownsCardTest, theDayOfANewEventIsThatOfTheOpening) {
    open();
    auto &day = named<DateField>(u"Event date"_s);
    const auto openAgain = [&](int date) {
        window.hide();
        clock.set(at(10, 24, 0, 5, date));
        window.show();
        return day.date();
    };
    EXPECT_EQ(openAgain(23), QDate(2026, 5, 23));
    QTest::keyClicks(&name(), u"Launch"_s);
    EXPECT_EQ(openAgain(24), QDate(2026, 5, 23)) << "a name was typed for it";
    name().clear();
    EXPECT_EQ(openAgain(24), QDate(2026, 5, 24)) << "there is none any more";
    day.setDate(QDate(2026, 7, 1));
    EXPECT_EQ(openAgain(25), QDate(2026, 7, 1)) << "it was chosen";
    EXPECT_EQ(all<CalendarSheet>().at(0)->today(), QDate(2026, 5, 25));
}

TEST_F(EventCountdownsCardTest, aNewEventHasTheChosenDayAndRecurrence) {
    preferences.setCountdowns({});
    open();
    EXPECT_EQ(named<DateField>(u"Event date"_s).date(), QDate(2026, 5, 14));
    named<DateField>(u"Event date"_s).setDate(QDate(2026, 7, 1));
    named<ChoiceBox>(u"Recurrence"_s).setCurrentText(u"monthly"_s);
    QTest::keyClicks(&name(), u"Rent"_s);
    press(name(), Qt::Key_Return);
    ASSERT_EQ(preferences.countdowns().size(), 1U);
    const CountdownEvent &added = preferences.countdowns().front();
    EXPECT_EQ(localDay(added.date), QDate(2026, 7, 1));
    EXPECT_EQ(added.recurrence, CountdownRecurrence::monthly);
    EXPECT_FALSE(added.id.isNull());
    EXPECT_TRUE(says(u"Jul 1, 2026"_s));
}

TEST_F(EventCountdownsCardTest, offersTheFourRecurrencesInOrder) {
    open();
    auto &recurrence = named<ChoiceBox>(u"Recurrence"_s);
    QStringList texts;
    for (int index = 0; index < recurrence.count(); ++index) {
        texts << recurrence.itemText(index);
    }
    EXPECT_EQ(texts, (QStringList{u"none"_s, u"weekly"_s, u"monthly"_s, u"yearly"_s}));
}

TEST_F(EventCountdownsCardTest, takesARemovalBackForEightSeconds) {
    open();
    press(named<IconButton>(u"Remove Anna"_s), Qt::Key_Space);
    EXPECT_EQ(stored(), (QStringList{u"Summer trip"_s, u"Rent"_s}));
    EXPECT_TRUE(says(u"Removed Anna."_s));
    auto &undo = named<PillButton>(u"Undo"_s);
    EXPECT_TRUE(undo.hasFocus());
    loop.advance(7.9);
    EXPECT_TRUE(undo.isVisible());
    press(undo, Qt::Key_Space);
    EXPECT_EQ(stored(), (QStringList{u"Summer trip"_s, u"Anna"_s, u"Rent"_s}));
    EXPECT_FALSE(undo.isVisible());
    EXPECT_TRUE(named<IconButton>(u"Remove Anna"_s).hasFocus());
}

TEST_F(EventCountdownsCardTest, theOfferEndsAfterEightSeconds) {
    open();
    click(named<IconButton>(u"Remove Rent"_s));
    loop.advance(8.1);
    EXPECT_FALSE(find<PillButton>(u"Undo"_s));
    EXPECT_FALSE(says(u"Removed Rent."_s));
    EXPECT_EQ(stored(), (QStringList{u"Summer trip"_s, u"Anna"_s}));
}

TEST_F(EventCountdownsCardTest, anotherRemovalOffersThatOne) {
    open();
    click(named<IconButton>(u"Remove Rent"_s));
    loop.advance(5);
    click(named<IconButton>(u"Remove Anna"_s));
    loop.advance(5); // the first one's time is over, the second one's is not
    EXPECT_TRUE(says(u"Removed Anna."_s));
    click(named<PillButton>(u"Undo"_s));
    EXPECT_EQ(stored(), (QStringList{u"Summer trip"_s, u"Anna"_s}));
}

TEST_F(EventCountdownsCardTest, followsTheListAndKeepsWhatIsTyped) {
    open();
    QTest::keyClicks(&name(), u"Half a na"_s);
    preferences.setCountdowns({event(u"Elsewhere"_s, at(0, 0, 0, 6, 1))});
    settle();
    EXPECT_TRUE(says(u"Elsewhere"_s));
    EXPECT_FALSE(says(u"Anna"_s));
    EXPECT_EQ(name().text(), u"Half a na"_s);
}

TEST_F(EventCountdownsCardTest, theNameStandsAboveTheRestWhereThereIsLittleRoom) {
    open();
    const auto top = [this](QWidget &part) { return part.mapTo(&window, QPoint()).y(); };
    auto &day = named<DateField>(u"Event date"_s);
    window.resize(640, 700);
    settle();
    EXPECT_LT(top(day), top(name()) + name().height());
    window.resize(530, 700);
    settle();
    EXPECT_LE(window.minimumSizeHint().width(), 480);
    EXPECT_GE(top(day), top(name()) + name().height());
}

} // namespace zeph::ui
