// SPDX-License-Identifier: MIT
#include "services/revenue/StripePricing.h"

#include "services/web/Json.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

QJsonObject object(const char *text) {
    return json::parse(text).toObject();
}

qint64 monthly(qint64 amount, const char *recurring) {
    return StripePricing::monthlyCents(amount, object(recurring));
}

qint64 discounted(qint64 amount, const char *discount) {
    return StripePricing::applyDiscount(amount, object(discount));
}

qint64 cents(const char *subscription, const ExchangeRates &rates = {}) {
    return StripePricing::subscriptionCents(object(subscription), u"usd"_s, rates);
}

} // namespace

TEST(StripePricing, aYearlyPriceIsATwelfthAMonth) {
    EXPECT_EQ(monthly(120000, R"({"interval":"year","interval_count":1})"), 10000);
    EXPECT_EQ(monthly(100, R"({"interval":"year","interval_count":2})"), 4);
}

TEST(StripePricing, aWeeklyPriceIsRoundedByItsOwnFactor) {
    EXPECT_EQ(monthly(1000, R"({"interval":"week","interval_count":1})"), 4333);
    EXPECT_EQ(monthly(1000, R"({"interval":"week","interval_count":2})"), 2167);
}

TEST(StripePricing, aDailyPriceIsRoundedByItsOwnFactor) {
    EXPECT_EQ(monthly(100, R"({"interval":"day"})"), 3042);
    EXPECT_EQ(monthly(-100, R"({"interval":"day"})"), -3042);
}

TEST(StripePricing, everyOtherIntervalCountsAsMonths) {
    EXPECT_EQ(monthly(1000, R"({"interval":"month","interval_count":3})"), 333);
    EXPECT_EQ(monthly(1001, R"({"interval":"month","interval_count":2})"), 501); // half upwards
    EXPECT_EQ(monthly(-1001, R"({"interval":"month","interval_count":2})"), -501);
    EXPECT_EQ(monthly(1000, R"({"interval":"Year"})"), 1000); // the case counts
    EXPECT_EQ(monthly(1000, R"({"interval":7})"), 1000);
    EXPECT_EQ(monthly(1000, "{}"), 1000);
}

TEST(StripePricing, aCountBelowOneOrOfAnotherTypeIsOne) {
    EXPECT_EQ(monthly(1000, R"({"interval_count":0})"), 1000);
    EXPECT_EQ(monthly(1000, R"({"interval_count":-4})"), 1000);
    EXPECT_EQ(monthly(1000, R"({"interval_count":1.5})"), 1000);
    EXPECT_EQ(monthly(1000, R"({"interval_count":"2"})"), 1000);
}

TEST(StripePricing, aWholeCouponLeavesNothing) {
    EXPECT_EQ(discounted(4200, R"({"coupon":{"percent_off":100}})"), 0);
}

TEST(StripePricing, anAmountOffBeyondTheSumLeavesNothingAndNeverLess) {
    EXPECT_EQ(discounted(300, R"({"coupon":{"amount_off":500}})"), 0);
    EXPECT_EQ(discounted(300, R"({"coupon":{"amount_off":100}})"), 200);
    EXPECT_EQ(discounted(300, R"({"coupon":{"amount_off":-9223372036854775808}})"),
              std::numeric_limits<qint64>::max());
}

TEST(StripePricing, halvesAreRoundedAwayFromZeroWhereverCentsAreDivided) {
    for (const qint64 sign : {1, -1}) {
        EXPECT_EQ(monthly(sign * 5, R"({"interval":"month","interval_count":2})"), sign * 3);
        EXPECT_EQ(monthly(sign * 30, R"({"interval":"year"})"), sign * 3);
        EXPECT_EQ(monthly(sign * 6, R"({"interval":"day"})"), sign * 183);
        EXPECT_EQ(monthly(sign * 15, R"({"interval":"week","interval_count":10})"), sign * 7);
        EXPECT_EQ(discounted(sign * 5, R"({"coupon":{"percent_off":50}})"), sign * 3);
        const QByteArray item = R"({"items":{"data":[{"plan":{"currency":"eur","amount":)" +
                                QByteArray::number(sign * 5) + "}}]}}";
        EXPECT_EQ(cents(item, {{u"EUR"_s, 2}}), sign * 3);
    }
}

TEST(StripePricing, aPercentageWithAFractionIsRounded) {
    EXPECT_EQ(discounted(999, R"({"coupon":{"percent_off":12.5}})"), 874);
    EXPECT_EQ(discounted(1, R"({"coupon":{"percent_off":50}})"), 1); // half away from zero
}

TEST(StripePricing, aPercentageComesBeforeAnAmount) {
    EXPECT_EQ(discounted(1000, R"({"coupon":{"percent_off":10,"amount_off":500}})"), 900);
    EXPECT_EQ(discounted(1000, R"({"coupon":{"percent_off":null,"amount_off":500}})"), 500);
}

TEST(StripePricing, whatIsNoCouponTakesNothingOff) {
    EXPECT_EQ(StripePricing::applyDiscount(1000, std::nullopt), 1000);
    for (const char *discount :
         {"{}", R"({"coupon":"spring"})", R"({"coupon":{}})", R"({"coupon":{"amount_off":1.5}})",
          R"({"coupon":{"percent_off":"10"}})", R"({"percent_off":10})"}) {
        EXPECT_EQ(discounted(1000, discount), 1000) << discount;
    }
}

TEST(StripePricing, anItemInEuroIsConvertedByTheRate) {
    const char *subscription = R"({"items":{"data":[{"price":{"unit_amount":1000,"currency":"eur",)"
                               R"("recurring":{"interval":"month"}}}]}})";
    EXPECT_EQ(cents(subscription, {{u"EUR"_s, 0.5}}), 2000);
    EXPECT_EQ(cents(subscription, {{u"EUR"_s, 1e-300}}), std::numeric_limits<qint64>::max());
    EXPECT_EQ(cents(subscription, {{u"GBP"_s, 0.5}}), 1000);
}

TEST(StripePricing, anItemInTheAccountsCurrencyIsNotConverted) {
    const char *subscription = R"({"items":{"data":[{"price":{"unit_amount":1000,"currency":"USD",)"
                               R"("recurring":{}}},{"plan":{"amount":500}}]}})";
    EXPECT_EQ(cents(subscription, {{u"USD"_s, 4}}), 1500);
}

TEST(StripePricing, theDiscountIsTakenAfterConversion) {
    EXPECT_EQ(cents(R"({"discount":{"coupon":{"amount_off":300}},"items":{"data":[{"price":)"
                    R"({"unit_amount":1000,"currency":"eur","recurring":{}}}]}})",
                    {{u"EUR"_s, 0.5}}),
              1700);
}

TEST(StripePricing, aPriceComesBeforeAPlan) {
    EXPECT_EQ(cents(R"({"items":{"data":[{"price":{"unit_amount":100,"recurring":{}},)"
                    R"("plan":{"amount":900}}]}})"),
              100);
}

TEST(StripePricing, anIncompletePriceFallsBackOnThePlan) {
    for (const char *price :
         {R"({"unit_amount":null,"recurring":{}})", R"({"unit_amount":100,"recurring":null})",
          R"({"unit_amount":100.5,"recurring":{}})", R"("price_1")", "null"}) {
        const QByteArray item = QByteArray(R"({"items":{"data":[{"quantity":2,"price":)") + price +
                                R"(,"plan":{"amount":1200,"interval":"year"}}]}})";
        EXPECT_EQ(cents(item), 200) << price;
    }
}

TEST(StripePricing, anItemWithoutPriceAndPlanAddsNothing) {
    EXPECT_EQ(cents(R"({"items":{"data":[{"quantity":3},{"plan":{"amount":"9"}},7,null,)"
                    R"({"price":{"unit_amount":5,"recurring":{}}}]}})"),
              5);
}

TEST(StripePricing, itemsOfAnotherTypeAddNothing) {
    for (const char *subscription :
         {"{}", R"({"items":[]})", R"({"items":{"data":{}}})", R"({"items":{"data":null}})"}) {
        EXPECT_EQ(cents(subscription), 0) << subscription;
    }
}

TEST(StripePricing, aQuantityOfAnotherTypeIsOne) {
    EXPECT_EQ(cents(R"({"items":{"data":[{"quantity":"3","plan":{"amount":100}},)"
                    R"({"quantity":2.5,"plan":{"amount":100}},{"quantity":0,"plan":{"amount":9}},)"
                    R"({"quantity":3,"plan":{"amount":100}}]}})"),
              500);
}

} // namespace zeph
