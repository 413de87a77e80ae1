// SPDX-License-Identifier: MIT
#include "adapters/locale/IcuFormatters.h"
#include "support/DateOf.h"
#include "support/Environment.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const IcuFormatters &german() {
    static const IcuFormatters formatters(u"de_DE"_s, u"Europe/Berlin"_s);
    return formatters;
}

QString dollars(double amount, int minimum, int maximum) {
    return german().currency(amount, u"USD"_s, NumberLocale::enUS, minimum, maximum).value();
}

bool measuresInUSUnits(const QString &locale) {
    return IcuFormatters(locale, u"Etc/UTC"_s).usesUSMeasurement();
}

} // namespace

TEST(IcuFormatters, writesMoneyInTheFractionDigitsAskedFor) {
    EXPECT_EQ(dollars(12.5, 0, 2), u"$12.5"_s);
    EXPECT_EQ(dollars(12.0, 0, 2), u"$12"_s);
    EXPECT_EQ(dollars(12.34, 0, 2), u"$12.34"_s);
    EXPECT_EQ(dollars(12.5, 2, 2), u"$12.50"_s);
    EXPECT_EQ(dollars(12.0, 0, 0), u"$12"_s);
    EXPECT_EQ(dollars(99999.99, 0, 2), u"$99,999.99"_s);
    EXPECT_EQ(dollars(-3.0, 0, 0), u"-$3"_s);
}

TEST(IcuFormatters, roundsHalvesOfMoneyToEven) {
    EXPECT_EQ(dollars(2.5, 0, 0), u"$2"_s);
    EXPECT_EQ(dollars(3.5, 0, 0), u"$4"_s);
    EXPECT_EQ(dollars(0.125, 0, 2), u"$0.12"_s);
}

TEST(IcuFormatters, writesMoneyInTheUsersForm) {
    EXPECT_EQ(german().currency(1234.5, u"EUR"_s, NumberLocale::current, 0, 2),
              u"1.234,5\u00a0€"_s);
    EXPECT_EQ(german().currency(1234.5, u"eur"_s, NumberLocale::enUS, 0, 2), u"€1,234.5"_s);
}

TEST(IcuFormatters, ignoresTheUsualDigitsOfACurrency) {
    EXPECT_EQ(german().currency(1234.56, u"JPY"_s, NumberLocale::enUS, 0, 2), u"¥1,234.56"_s);
}

TEST(IcuFormatters, refusesWhatIsNoCurrencyOrNoAmount) {
    for (const auto &code : {u""_s, u"US"_s, u"EURO"_s, u"U$D"_s, u"١٢٣"_s}) {
        EXPECT_EQ(german().currency(1, code, NumberLocale::enUS, 0, 2), std::nullopt);
        EXPECT_EQ(german().currencySymbol(code, NumberLocale::enUS), std::nullopt);
    }
    EXPECT_EQ(german().currency(std::nan(""), u"USD"_s, NumberLocale::enUS, 0, 2), std::nullopt);
    EXPECT_EQ(german().currency(std::numeric_limits<double>::infinity(), u"USD"_s,
                                NumberLocale::enUS, 0, 2),
              std::nullopt);
}

TEST(IcuFormatters, knowsTheSymbolsOfCurrencies) {
    EXPECT_EQ(german().currencySymbol(u"USD"_s, NumberLocale::enUS), u"$"_s);
    EXPECT_EQ(german().currencySymbol(u"usd"_s, NumberLocale::enUS), u"$"_s);
    EXPECT_EQ(german().currencySymbol(u"EUR"_s, NumberLocale::enUS), u"€"_s);
    EXPECT_EQ(german().currencySymbol(u"CAD"_s, NumberLocale::enUS), u"CA$"_s);
    EXPECT_EQ(german().currencySymbol(u"GBP"_s, NumberLocale::current), u"£"_s);
}

TEST(IcuFormatters, takesAnUnknownCodeForItsOwnSymbol) {
    EXPECT_EQ(german().currencySymbol(u"xqz"_s, NumberLocale::enUS), u"XQZ"_s);
    EXPECT_EQ(german().currency(5, u"XQZ"_s, NumberLocale::enUS, 0, 0), u"XQZ\u00a05"_s);
}

TEST(IcuFormatters, groupsWholeNumbers) {
    EXPECT_EQ(german().decimal(99999, NumberLocale::enUS), u"99,999"_s);
    EXPECT_EQ(german().decimal(99999, NumberLocale::current), u"99.999"_s);
    EXPECT_EQ(german().decimal(-1234567, NumberLocale::enUS), u"-1,234,567"_s);
    EXPECT_EQ(german().decimal(std::numeric_limits<qint64>::max(), NumberLocale::enUS),
              u"9,223,372,036,854,775,807"_s);
    EXPECT_EQ(IcuFormatters(u"en_IN"_s, u"Etc/UTC"_s).decimal(1234567, NumberLocale::current),
              u"12,34,567"_s);
}

TEST(IcuFormatters, writesDatesInEnglishInTheZone) {
    const Date date = dateOf("2024-03-05T14:07:00Z");
    EXPECT_EQ(german().date(date, u"EEEE, MMMM d"_s), u"Tuesday, March 5"_s);
    EXPECT_EQ(german().date(date, u"h:mm a"_s), u"3:07 PM"_s);
    EXPECT_EQ(german().date(date, u"HH:mm"_s), u"15:07"_s);
}

TEST(IcuFormatters, replacesTheDayHalves) {
    const DayHalfSymbols lower{u"am"_s, u"pm"_s};
    EXPECT_EQ(german().date(dateOf("2024-03-05T14:07:00Z"), u"h:mm a"_s, lower), u"3:07 pm"_s);
    EXPECT_EQ(german().date(dateOf("2024-03-04T23:07:00Z"), u"h:mm a"_s, lower), u"12:07 am"_s);
    EXPECT_EQ(german().date(dateOf("2024-03-05T14:07:00Z"), u"h:mm a"_s), u"3:07 PM"_s);
}

TEST(IcuFormatters, cutsSecondsRatherThanRoundingThem) {
    EXPECT_EQ(german().date(Date{59.9996}, u"mm:ss"_s), u"00:59"_s);
    EXPECT_EQ(german().date(Date{-0.0001}, u"mm:ss"_s), u"59:59"_s);
}

TEST(IcuFormatters, countsTheYearsOfTheUsersCalendar) {
    const IcuFormatters thai(u"th_TH"_s, u"Etc/UTC"_s);
    EXPECT_EQ(thai.date(dateOf("2024-03-05T12:00:00Z"), u"MMMM d, y"_s), u"March 5, 2567"_s);
}

TEST(IcuFormatters, answersNothingForABadPatternOrDate) {
    EXPECT_EQ(german().date(dateOf("2024-03-05T12:00:00Z"), u"I"_s), QString());
    EXPECT_EQ(german().date(Date{std::nan("")}, u"h:mm"_s), QString());
}

TEST(IcuFormatters, writesTextsLongerThanItsFirstBuffer) {
    const QString literal = QString(300, u'x');
    EXPECT_EQ(german().date(Date{}, u"'%1'"_s.arg(literal)), literal);
}

TEST(IcuFormatters, followsTheMachinesZone) {
    const ScopedVariable tz("TZ", "Asia/Tokyo");
    const IcuFormatters formatters(u"en_US"_s);
    EXPECT_EQ(formatters.date(dateOf("2024-03-05T12:00:00Z"), u"HH:mm"_s), u"21:00"_s);
}

TEST(IcuFormatters, measuresInUSUnitsOnlyWhereTheLocaleDoes) {
    EXPECT_TRUE(measuresInUSUnits(u"en_US"_s));
    EXPECT_FALSE(measuresInUSUnits(u"en_GB"_s));
    EXPECT_FALSE(measuresInUSUnits(u"de_DE"_s));
    EXPECT_FALSE(measuresInUSUnits(u"en_001"_s));
}

TEST(IcuFormatters, takesEachCategoryFromItsOwnVariable) {
    const ScopedVariable all("LC_ALL", std::nullopt);
    const ScopedVariable numeric("LC_NUMERIC", "de_DE.UTF-8");
    const ScopedVariable monetary("LC_MONETARY", "en_US.UTF-8");
    const ScopedVariable measurement("LC_MEASUREMENT", "en_US.UTF-8");
    const ScopedVariable lang("LANG", "fr_FR.UTF-8");
    const IcuFormatters formatters({}, u"Etc/UTC"_s);
    EXPECT_EQ(formatters.decimal(1234, NumberLocale::current), u"1.234"_s);
    EXPECT_EQ(formatters.currency(1.5, u"USD"_s, NumberLocale::current, 2, 2), u"$1.50"_s);
    EXPECT_TRUE(formatters.usesUSMeasurement());
}

} // namespace zeph
