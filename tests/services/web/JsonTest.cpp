// SPDX-License-Identifier: MIT
#include "services/web/Json.h"

#include "base/DescribedError.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace zeph {

using namespace Qt::StringLiterals;

TEST(Json, takesAWholeDoubleForAnInteger) {
    EXPECT_EQ(json::integer(json::parse("3")), 3);
    EXPECT_EQ(json::integer(json::parse("3.0")), 3);
    EXPECT_EQ(json::integer(json::parse("-4e2")), -400);
    EXPECT_EQ(json::integer(json::parse("9223372036854775807")), 9223372036854775807);
}

TEST(Json, takesNoPartOrTooLargeNumberForAnInteger) {
    EXPECT_EQ(json::integer(json::parse("3.5")), std::nullopt);
    EXPECT_EQ(json::integer(json::parse("9223372036854775808")), std::nullopt);
    EXPECT_EQ(json::integer(json::parse("1e300")), std::nullopt);
}

TEST(Json, takesABooleanForNoNumber) {
    EXPECT_EQ(json::integer(json::parse("true")), std::nullopt);
    EXPECT_EQ(json::number(json::parse("false")), std::nullopt);
    EXPECT_EQ(json::boolean(json::parse("1")), std::nullopt);
}

TEST(Json, takesATextForNoNumber) {
    EXPECT_EQ(json::integer(json::parse("\"3\"")), std::nullopt);
    EXPECT_EQ(json::number(json::parse("\"3\"")), std::nullopt);
    EXPECT_EQ(json::text(json::parse("3")), std::nullopt);
}

TEST(Json, acceptsFragments) {
    EXPECT_EQ(json::number(json::parse(" 2.5 ")), 2.5);
    EXPECT_EQ(json::text(json::parse("\"a\\u00e9\"")), u"aé"_s);
    EXPECT_EQ(json::boolean(json::parse("true")), true);
    EXPECT_TRUE(json::parse("null").isNull());
}

TEST(Json, keepsAByteOrderMarkInsideOfAText) {
    const QJsonValue value = json::parse("{\"a\":\"\xEF\xBB\xBF\xEF\xBB\xBFx\"}");
    EXPECT_EQ(json::text(value.toObject().value(u"a")), u"\uFEFF\uFEFFx"_s);
}

TEST(Json, skipsAByteOrderMark) {
    EXPECT_EQ(json::integer(json::parse("\xEF\xBB\xBF[7]").toArray().at(0)), 7);
    EXPECT_EQ(json::integer(json::parse("\xEF\xBB\xBF\n7")), 7);
}

TEST(Json, refusesWhatIsNoJson) {
    for (const char *body : {"", " ", "nope", "NaN", "1,2", "1],[2", "{", "[1", "{}x", "<html>",
                             "\"\xFF\"", "{\"a\":NaN}", "\"a"}) {
        EXPECT_THROW(json::parse(body), DescribedError) << body;
    }
}

TEST(Json, refusesNestingWithoutEnd) {
    EXPECT_THROW(json::parse(QByteArray(100'000, '[')), DescribedError);
    const QByteArray closed = QByteArray(100'000, '[') + QByteArray(100'000, ']');
    EXPECT_THROW(json::parse(closed), DescribedError);
}

TEST(Json, takesTheLastOfDoubleKeys) {
    EXPECT_EQ(json::integer(json::parse(R"({"a":1,"a":2})").toObject().value(u"a")), 2);
}

} // namespace zeph
