// SPDX-License-Identifier: MIT
#include "services/custom/JsonLeaves.h"

#include "services/web/Json.h"
#include "support/Fixture.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace zeph {

void PrintTo(const JsonLeaf &leaf, std::ostream *out) {
    *out << leaf.path.toStdString() << " = " << leaf.preview.toStdString();
}

namespace {

using testing::ElementsAre;

/// What the path leads to, formatted; absent where it leads to no leaf.
std::optional<QString> at(const char *document, const QString &path) {
    const auto leaf = CustomAPI::extract(json::parse(document), path);
    return leaf ? std::optional(CustomAPI::format(*leaf)) : std::nullopt;
}

QString format(const char *document) {
    return CustomAPI::format(json::parse(document));
}

std::vector<QString> pathsOf(const QByteArray &document) {
    std::vector<QString> paths;
    for (const JsonLeaf &leaf : CustomAPI::flatten(json::parse(document))) {
        paths.push_back(leaf.path);
    }
    return paths;
}

} // namespace

TEST(JsonLeavesExtract, stepsThroughAnArrayByIndex) {
    EXPECT_EQ(at(R"({"a":[{"b":1}]})", u"a.0.b"_s), u"1"_s);
}

TEST(JsonLeavesExtract, takesANumericPieceForAKeyInAnObject) {
    EXPECT_EQ(at(R"({"a":{"0":{"b":2}}})", u"a.0.b"_s), u"2"_s);
    EXPECT_EQ(at(R"({"a":{"0":{"b":2}}})", u"a.+0.b"_s), std::nullopt);
}

TEST(JsonLeavesExtract, findsNothingOutsideAnArrayOrByAWord) {
    const char *document = R"({"a":[10,20,30]})";
    for (const QString &path : {u"a.-1"_s,
                                u"a.5"_s,
                                u"a.3"_s,
                                u"a.x"_s,
                                u"a.1x"_s,
                                u"a. 1"_s,
                                u"a.1 "_s,
                                u"a.+"_s,
                                u"a.-"_s,
                                u"a.+-1"_s,
                                u"a.0x1"_s,
                                u"a.1e0"_s,
                                u"a.١"_s,
                                u"a.[1]"_s,
                                u"a[1]"_s,
                                u"a.*"_s,
                                u"$.a.1"_s,
                                u"a.9223372036854775808"_s,
                                u"a.18446744073709551617"_s,
                                u"a.99999999999999999999999999"_s,
                                u"a.-9223372036854775808"_s}) {
        EXPECT_EQ(at(document, path), std::nullopt) << qPrintable(path);
    }
}

TEST(JsonLeavesExtract, readsAnIndexWithSignAndLeadingZeros) {
    const char *document = R"({"a":[10,20,30]})";
    EXPECT_EQ(at(document, u"a.+1"_s), u"20"_s);
    EXPECT_EQ(at(document, u"a.01"_s), u"20"_s);
    EXPECT_EQ(at(document, u"a.-0"_s), u"10"_s);
    EXPECT_EQ(at(document, u"a.0000000000000000000000000002"_s), u"30"_s);
}

TEST(JsonLeavesExtract, dropsEmptyPieces) {
    const char *document = R"({"a":{"b":1,"":2}})";
    for (const QString &path : {u"a.b"_s, u"a..b"_s, u".a.b"_s, u"a.b."_s, u"...a...b..."_s}) {
        EXPECT_EQ(at(document, path), u"1"_s) << qPrintable(path);
    }
    EXPECT_EQ(at(document, u"a."_s), std::nullopt);
}

TEST(JsonLeavesExtract, reachesAScalarRootByTheEmptyPathOnly) {
    EXPECT_EQ(at("42", u""_s), u"42"_s);
    EXPECT_EQ(at("\"up\"", u"."_s), u"up"_s);
    EXPECT_EQ(at("null", u""_s), u"null"_s);
    EXPECT_EQ(at("42", u"0"_s), std::nullopt);
    EXPECT_EQ(at("{}", u""_s), std::nullopt);
    EXPECT_EQ(at("[1]", u""_s), std::nullopt);
}

TEST(JsonLeavesExtract, findsNothingWhereAPathStopsOnAnObjectOrAnArray) {
    const char *document = R"({"a":{"b":[1]}})";
    EXPECT_EQ(at(document, u"a"_s), std::nullopt);
    EXPECT_EQ(at(document, u"a.b"_s), std::nullopt);
}

TEST(JsonLeavesExtract, findsNothingBeyondALeaf) {
    EXPECT_EQ(at(R"({"a":1,"b":null,"c":"text"})", u"a.b"_s), std::nullopt);
    EXPECT_EQ(at(R"({"a":1,"b":null,"c":"text"})", u"b.0"_s), std::nullopt);
    EXPECT_EQ(at(R"({"a":1,"b":null,"c":"text"})", u"c.0"_s), std::nullopt);
}

TEST(JsonLeavesExtract, takesNullForAValue) {
    EXPECT_EQ(at(R"({"a":null})", u"a"_s), u"null"_s);
    EXPECT_EQ(at(R"({"a":null})", u"b"_s), std::nullopt);
}

TEST(JsonLeavesExtract, looksAtTheCaseOfAKeyAndNotIntoOneWithADot) {
    EXPECT_EQ(at(R"({"A":1})", u"a"_s), std::nullopt);
    EXPECT_EQ(at(R"({"a.b":1})", u"a.b"_s), std::nullopt);
    EXPECT_EQ(at(R"({"größe":{"爱 ":7}})", u"größe.爱 "_s), u"7"_s);
}

TEST(JsonLeavesFormat, showsAFractionWithTwoDecimals) {
    EXPECT_EQ(format("3.456"), u"3.46"_s);
    EXPECT_EQ(format("-3.454"), u"-3.45"_s);
    EXPECT_EQ(format("0.1"), u"0.10"_s);
    EXPECT_EQ(format("0.999"), u"1.00"_s);
    EXPECT_EQ(format("-0.001"), u"-0.00"_s);
    EXPECT_EQ(format("1e-300"), u"0.00"_s);
    EXPECT_EQ(format("1234567.891"), u"1234567.89"_s);
    EXPECT_EQ(format("4503599627370495.5"), u"4503599627370495.50"_s);
}

TEST(JsonLeavesFormat, roundsExactHalvesToTheEvenDigit) {
    EXPECT_EQ(format("0.125"), u"0.12"_s);
    EXPECT_EQ(format("0.375"), u"0.38"_s);
    EXPECT_EQ(format("-2.625"), u"-2.62"_s);
    EXPECT_EQ(format("2.675"), u"2.67"_s); // the double lies below the half
}

TEST(JsonLeavesFormat, showsAWholeNumberWithoutDecimals) {
    EXPECT_EQ(format("3.0"), u"3"_s);
    EXPECT_EQ(format("1e3"), u"1000"_s);
    EXPECT_EQ(format("0"), u"0"_s);
    EXPECT_EQ(format("-0.0"), u"0"_s);
    EXPECT_EQ(format("-17"), u"-17"_s);
    EXPECT_EQ(format("128943000"), u"128943000"_s);
    EXPECT_EQ(format("9007199254740993"), u"9007199254740993"_s);
    EXPECT_EQ(format("9223372036854775807"), u"9223372036854775807"_s);
    EXPECT_EQ(format("-9223372036854775808"), u"-9223372036854775808"_s);
}

TEST(JsonLeavesFormat, keepsTheDigitsOfAWholeNumberBeyond64Bits) {
    EXPECT_EQ(format("9223372036854775808"), u"9223372036854775808"_s);
    EXPECT_EQ(format("1e22"), u"10000000000000000000000"_s);
    EXPECT_EQ(format("-1e308").size(), 310);
}

TEST(JsonLeavesFormat, showsOtherLeaves) {
    EXPECT_EQ(format("true"), u"yes"_s);
    EXPECT_EQ(format("false"), u"no"_s);
    EXPECT_EQ(format("\" as it is \\n\""), u" as it is \n"_s);
    EXPECT_EQ(format("\"\""), u""_s);
    EXPECT_EQ(format("\"true\""), u"true"_s);
    EXPECT_EQ(format("null"), u"null"_s);
}

TEST(JsonLeavesFormat, hasAFormForWhatIsNoLeaf) {
    EXPECT_EQ(format(R"({"a":[1]})"), u"{\"a\":[1]}"_s);
    EXPECT_EQ(CustomAPI::format(QJsonValue(QJsonValue::Undefined)), u""_s);
}

TEST(JsonLeavesFlatten, listsWholeAnswersDepthFirst) {
    EXPECT_THAT(
        CustomAPI::flatten(json::parse(fixture("custom/status.json"))),
        ElementsAre(
            JsonLeaf{u"healthy"_s, u"yes"_s}, JsonLeaf{u"load"_s, u"3.46"_s},
            JsonLeaf{u"servers.0.name"_s, u"alpha"_s},
            JsonLeaf{u"servers.0.region"_s, u"Frankfurt"_s}, JsonLeaf{u"servers.0.up"_s, u"yes"_s},
            JsonLeaf{u"servers.1.name"_s, u"beta"_s}, JsonLeaf{u"servers.1.region"_s, u"Zürich"_s},
            JsonLeaf{u"servers.1.up"_s, u"no"_s}, JsonLeaf{u"signups.ratio"_s, u"3"_s},
            JsonLeaf{u"signups.today"_s, u"42"_s}, JsonLeaf{u"signups.total"_s, u"128943"_s},
            JsonLeaf{u"since"_s, u"null"_s}, JsonLeaf{u"status"_s, u"ok"_s}));
}

TEST(JsonLeavesFlatten, listsOnlyTheFirstFiveOfAnArray) {
    QByteArray objects;
    for (int index = 0; index < 8; ++index) {
        objects += (index == 0 ? R"({"n":)" : R"(,{"n":)") + QByteArray::number(index) + "}";
    }
    EXPECT_THAT(pathsOf("[" + objects + "]"),
                ElementsAre(u"0.n"_s, u"1.n"_s, u"2.n"_s, u"3.n"_s, u"4.n"_s));
    EXPECT_THAT(pathsOf("[1,2,3,4,5]"), ElementsAre(u"0"_s, u"1"_s, u"2"_s, u"3"_s, u"4"_s));
}

TEST(JsonLeavesFlatten, stopsAt250Leaves) {
    QJsonObject object;
    for (int index = 0; index < 300; ++index) {
        object.insert(u"key%1"_s.arg(index, 3, 10, QChar(u'0')), index);
    }
    const auto leaves = CustomAPI::flatten(object);
    ASSERT_EQ(leaves.size(), 250U);
    EXPECT_EQ(leaves.front(), (JsonLeaf{u"key000"_s, u"0"_s}));
    EXPECT_EQ(leaves.back(), (JsonLeaf{u"key249"_s, u"249"_s}));
    const auto nested = CustomAPI::flatten(QJsonArray{object, object});
    ASSERT_EQ(nested.size(), 250U);
    EXPECT_EQ(nested.back().path, u"0.key249"_s);
}

TEST(JsonLeavesFlatten, holdsTheBoundsThatItIsGiven) {
    const QJsonValue json = json::parse(R"({"a":[1,2,3],"b":4,"c":5})");
    EXPECT_THAT(CustomAPI::flatten(json, 3, 2),
                ElementsAre(JsonLeaf{u"a.0"_s, u"1"_s}, JsonLeaf{u"a.1"_s, u"2"_s},
                            JsonLeaf{u"b"_s, u"4"_s}));
    EXPECT_TRUE(CustomAPI::flatten(json, 0).empty());
}

TEST(JsonLeavesFlatten, sortsKeysWhateverTheirOrder) {
    EXPECT_THAT(pathsOf(R"({"b":1,"a":{"z":1,"y":1},"B":1,"ä":1,"10":1,"9":1})"),
                ElementsAre(u"10"_s, u"9"_s, u"B"_s, u"a.y"_s, u"a.z"_s, u"b"_s, u"ä"_s));
}

TEST(JsonLeavesFlatten, givesAScalarRootTheEmptyPath) {
    EXPECT_THAT(CustomAPI::flatten(json::parse("42")), ElementsAre(JsonLeaf{u""_s, u"42"_s}));
    EXPECT_THAT(CustomAPI::flatten(json::parse("null")), ElementsAre(JsonLeaf{u""_s, u"null"_s}));
}

TEST(JsonLeavesFlatten, listsNothingOfWhatIsEmpty) {
    EXPECT_TRUE(pathsOf("{}").empty());
    EXPECT_TRUE(pathsOf(R"([[],{},[{}]])").empty());
}

TEST(JsonLeavesFlatten, leavesOutWhatNoPathReaches) {
    EXPECT_THAT(pathsOf(R"({"a.b":1,"":2,"c":{"":{"d":3},".":4,"e":5},"a":{"f.":[6]}})"),
                ElementsAre(u"c.e"_s));
    // Left out, too, where its path would lead to another value.
    EXPECT_THAT(CustomAPI::flatten(json::parse(R"({"a.b":1,"a":{"b":2}})")),
                ElementsAre(JsonLeaf{u"a.b"_s, u"2"_s}));
}

TEST(JsonLeavesFlatten, listsPathsThatLeadBackToTheirLeaf) {
    const QJsonValue json = json::parse(fixture("custom/status.json"));
    const auto leaves = CustomAPI::flatten(json);
    ASSERT_EQ(leaves.size(), 13U);
    for (const JsonLeaf &leaf : leaves) {
        const auto value = CustomAPI::extract(json, leaf.path);
        ASSERT_TRUE(value) << qPrintable(leaf.path);
        EXPECT_EQ(CustomAPI::format(*value), leaf.preview) << qPrintable(leaf.path);
    }
}

TEST(JsonLeavesFlatten, listsTheValueOfAKeyThatBeginsWithAMark) {
    const QJsonValue json = json::parse("{\"\xEF\xBB\xBFname\":7}");
    EXPECT_THAT(CustomAPI::flatten(json), ElementsAre(JsonLeaf{u"\uFEFFname"_s, u"7"_s}));
    EXPECT_EQ(CustomAPI::extract(json, u"\uFEFFname"_s), QJsonValue(7));
}

TEST(JsonLeavesFlatten, listsALeafAtTheDepthThatTheParserAllows) {
    const int depth = 500;
    const auto leaves =
        CustomAPI::flatten(json::parse(QByteArray(depth, '[') + "7" + QByteArray(depth, ']')));
    ASSERT_EQ(leaves.size(), 1U);
    EXPECT_EQ(leaves.front().path.count(u'0'), depth);
}

} // namespace zeph
