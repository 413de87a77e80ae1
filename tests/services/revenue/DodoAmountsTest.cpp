// SPDX-License-Identifier: MIT
#include "services/revenue/DodoAmounts.h"

#include "services/revenue/DodoRequests.h"
#include "services/web/Json.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

std::optional<QString> customerOf(const char *item) {
    return DodoAmounts::customerID(json::parse(item).toObject());
}

} // namespace

TEST(DodoAmounts, yenHaveNoMinorUnits) {
    EXPECT_EQ(DodoAmounts::usdCents({{u"JPY"_s, 1000}}, {{u"JPY"_s, 150}}), 667);
}

TEST(DodoAmounts, euroAreToldInCents) {
    EXPECT_EQ(DodoAmounts::usdCents({{u"EUR"_s, 1000}}, {{u"EUR"_s, 0.9}}), 1111);
}

TEST(DodoAmounts, everyCurrencyWithoutMinorUnitsIsKnown) {
    for (const auto &code :
         {u"BIF"_s, u"CLP"_s, u"DJF"_s, u"GNF"_s, u"JPY"_s, u"KMF"_s, u"KRW"_s, u"MGA"_s, u"PYG"_s,
          u"RWF"_s, u"UGX"_s, u"VND"_s, u"VUV"_s, u"XAF"_s, u"XOF"_s, u"XPF"_s}) {
        EXPECT_EQ(DodoAmounts::usdCents({{code, 5}}, {{code, 1}}), 500) << qPrintable(code);
    }
    EXPECT_EQ(DodoAmounts::usdCents({{u"jpy"_s, 5}}, {{u"jpy"_s, 1}}), 5);
}

TEST(DodoAmounts, anAmountWithoutAUsableRateDropsOut) {
    const DodoAmounts::ByCurrency amounts{{u"EUR"_s, 1000}, {u"USD"_s, 70}};
    EXPECT_EQ(DodoAmounts::usdCents(amounts, {}), 70);
    EXPECT_EQ(DodoAmounts::usdCents(amounts, {{u"EUR"_s, 0}}), 70);
    EXPECT_EQ(DodoAmounts::usdCents(amounts, {{u"EUR"_s, -1}}), 70);
    EXPECT_EQ(DodoAmounts::usdCents({{u"eur"_s, 1000}}, {{u"EUR"_s, 1}}), 0); // as it is sent
}

TEST(DodoAmounts, halvesAreRoundedAwayFromZero) {
    EXPECT_EQ(DodoAmounts::usdCents({{u"EUR"_s, 1}}, {{u"EUR"_s, 2}}), 1);
    EXPECT_EQ(DodoAmounts::usdCents({{u"EUR"_s, -1}}, {{u"EUR"_s, 2}}), -1);
}

TEST(DodoAmounts, sumsBeyondAllNumbersEndAtTheLimit) {
    const qint64 largest = std::numeric_limits<qint64>::max();
    EXPECT_EQ(DodoAmounts::usdCents({{u"EUR"_s, 1}, {u"USD"_s, largest}}, {{u"EUR"_s, 1e-300}}),
              largest);
    DodoAmounts amounts;
    amounts.addPayments(json::parse(R"({"items":[{"total_amount":9223372036854775807},)"
                                    R"({"total_amount":9223372036854775807}]})"));
    EXPECT_EQ(amounts.total.at(u"USD"_s), largest);
}

TEST(DodoAmounts, readsASubscriptionWithItsDefaults) {
    DodoAmounts amounts;
    EXPECT_FALSE(amounts.addSubscriptions(json::parse(
        R"({"items":[{"recurring_pre_tax_amount":500},{"recurring_pre_tax_amount":"9"},)"
        R"({"recurring_pre_tax_amount":1200,"payment_frequency_interval":"YEAR",)"
        R"("payment_frequency_count":2,"currency":"EUR"},)"
        R"({"recurring_pre_tax_amount":100,"payment_frequency_interval":"Week"},4,null]})")));
    const DodoAmounts::ByCurrency expected{{u"EUR"_s, 50}, {u"USD"_s, 934}};
    EXPECT_EQ(amounts.monthly, expected);
    EXPECT_TRUE(amounts.total.empty());
}

TEST(DodoAmounts, aBodyWithoutItemsAddsNothingAndIsTheLast) {
    DodoAmounts amounts;
    for (const char *body : {"{}", "[]", "7", R"({"items":[]})", R"({"items":{}})"}) {
        EXPECT_FALSE(amounts.addSubscriptions(json::parse(body))) << body;
        EXPECT_FALSE(amounts.addPayments(json::parse(body))) << body;
    }
    EXPECT_TRUE(amounts.monthly.empty());
    EXPECT_TRUE(amounts.total.empty());
    EXPECT_FALSE(amounts.needsRates());
}

TEST(DodoAmounts, needsRatesForAnyCurrencyButUsd) {
    EXPECT_FALSE((DodoAmounts{{{u"USD"_s, 1}}, {{u"USD"_s, 1}}}.needsRates()));
    EXPECT_TRUE((DodoAmounts{{{u"EUR"_s, 0}}, {}}.needsRates()));
    EXPECT_TRUE((DodoAmounts{{}, {{u"usd"_s, 1}}}.needsRates()));
}

TEST(DodoAmounts, findsTheCustomerOnTheItemOrBelowIt) {
    EXPECT_EQ(customerOf(R"({"customer_id":"a","customer":{"customer_id":"b"}})"), u"a"_s);
    EXPECT_EQ(customerOf(R"({"customer_id":7,"customer":{"customer_id":"b"}})"), u"b"_s);
    for (const char *item : {"{}", R"({"customer":"c"})", R"({"customer":{"customer_id":7}})"}) {
        EXPECT_EQ(customerOf(item), std::nullopt) << item;
    }
}

TEST(DodoAmounts, takesTheNumbersOfARateTableAndPassesOverTheRest) {
    const ExchangeRates expected{{u"EUR"_s, 0.9}, {u"JPY"_s, 150}};
    EXPECT_EQ(DodoAmounts::usdRates(json::parse(
                  R"({"rates":{"EUR":0.9,"JPY":150,"GBP":"0.7","INR":null,"CHF":true}})")),
              expected);
    EXPECT_TRUE(DodoAmounts::usdRates(json::parse("[]")).empty());
}

TEST(DodoRequests, aBlankBrandIsNoBrand) {
    for (const auto &brand : {u""_s, u"  "_s, u"\n\t "_s, QString(QChar(0xD800))}) {
        EXPECT_EQ(DodoRequests::brandSuffix(brand), QString());
    }
}

TEST(DodoRequests, aBrandIsTrimmedAndEncoded) {
    EXPECT_EQ(DodoRequests::brandSuffix(u" brand_1\n"_s), u"&brand_id=brand_1"_s);
    EXPECT_EQ(DodoRequests::brandSuffix(u"a b&c=ü"_s), u"&brand_id=a%20b%26c%3D%C3%BC"_s);
}

} // namespace zeph
