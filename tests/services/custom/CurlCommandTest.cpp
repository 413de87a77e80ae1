// SPDX-License-Identifier: MIT
#include "services/custom/CurlCommand.h"

#include "support/QtPrinters.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<QString> tokens(const QString &text) {
    const QStringList list = CustomAPI::tokenizeCurl(text);
    return {list.begin(), list.end()};
}

/// The address and after it the headers as "name=value"; empty when the command has no address.
std::vector<QString> parsed(const QString &text) {
    const auto command = CustomAPI::parseCurl(text);
    if (!command) {
        return {};
    }
    std::vector<QString> parts{command->url};
    for (const HTTPHeaderEntry &header : command->headers) {
        parts.push_back(header.name + u'=' + header.value);
    }
    return parts;
}

} // namespace

TEST(TokenizeCurl, splitsAtBlanksTabsAndNewlines) {
    EXPECT_THAT(tokens(u"  curl \t -X\nGET\n\n"_s), ElementsAre(u"curl"_s, u"-X"_s, u"GET"_s));
    EXPECT_THAT(tokens(u""_s), IsEmpty());
    EXPECT_THAT(tokens(u" \t\n"_s), IsEmpty());
}

TEST(TokenizeCurl, keepsQuotedTextTogetherAndDropsTheQuotes) {
    EXPECT_THAT(tokens(u"'a b'  \"c\td\" e'f g'\"h\"i"_s),
                ElementsAre(u"a b"_s, u"c\td"_s, u"ef ghi"_s));
    EXPECT_THAT(tokens(u"'line\nbreak'"_s), ElementsAre(u"line\nbreak"_s));
}

TEST(TokenizeCurl, takesTheOtherQuoteWithinAQuoteForACharacter) {
    EXPECT_THAT(tokens(u"'say \"hi\"' \"it's\""_s), ElementsAre(u"say \"hi\""_s, u"it's"_s));
}

TEST(TokenizeCurl, emitsNothingForEmptyQuotes) {
    EXPECT_THAT(tokens(u"\"\" '' a"_s), ElementsAre(u"a"_s));
    EXPECT_THAT(tokens(u"a''b"_s), ElementsAre(u"ab"_s));
}

TEST(TokenizeCurl, readsABackslashOutsideAndInsideDoubleQuotes) {
    EXPECT_THAT(tokens(uR"(a\ b \"c\" \\ "d\"e\\f\n")"_s),
                ElementsAre(u"a b"_s, u"\"c\""_s, u"\\"_s, u"d\"e\\fn"_s));
    EXPECT_THAT(tokens(uR"("\ a")"_s), ElementsAre(u" a"_s));
}

TEST(TokenizeCurl, takesABackslashInSingleQuotesForACharacter) {
    EXPECT_THAT(tokens(uR"('a\b' 'c\')"_s), ElementsAre(uR"(a\b)"_s, uR"(c\)"_s));
}

TEST(TokenizeCurl, continuesALineAfterABackslash) {
    EXPECT_THAT(tokens(u"a\\\nb \\\n c"_s), ElementsAre(u"ab"_s, u"c"_s));
    EXPECT_THAT(tokens(u"\"a\\\nb\""_s), ElementsAre(u"ab"_s));
    EXPECT_THAT(tokens(u"'a\\\nb'"_s), ElementsAre(u"a\\\nb"_s));
}

TEST(TokenizeCurl, endsAnOpenQuoteAndAnOpenEscapeAtTheEnd) {
    EXPECT_THAT(tokens(u"a 'b c"_s), ElementsAre(u"a"_s, u"b c"_s));
    EXPECT_THAT(tokens(u"a \"b c "_s), ElementsAre(u"a"_s, u"b c "_s));
    EXPECT_THAT(tokens(u"a\\"_s), ElementsAre(u"a"_s));
    EXPECT_THAT(tokens(u"a '"_s), ElementsAre(u"a"_s));
}

TEST(TokenizeCurl, doesNotSplitAtACarriageReturn) {
    EXPECT_THAT(tokens(u"a\rb"_s), ElementsAre(u"a\rb"_s));
    EXPECT_THAT(tokens(u"a\r\nb c"_s), ElementsAre(u"a\r\nb"_s, u"c"_s));
    EXPECT_THAT(tokens(u"a \\\r\nb"_s), ElementsAre(u"a"_s, u"\r\nb"_s));
    EXPECT_THAT(tokens(u"a\r\r\nb\n\rc"_s), ElementsAre(u"a\r\r\nb"_s, u"\rc"_s));
}

TEST(TokenizeCurl, seesNothingSpecialInADollar) {
    EXPECT_THAT(tokens(uR"($'a\nb' $HOME `x`)"_s),
                ElementsAre(uR"($a\nb)"_s, u"$HOME"_s, u"`x`"_s));
}

TEST(TokenizeCurl, keepsAllOtherCharacters) {
    EXPECT_THAT(tokens(u"größe=爱😀 a|b;c&d#e"_s), ElementsAre(u"größe=爱😀"_s, u"a|b;c&d#e"_s));
    EXPECT_THAT(tokens(u"a\u00a0b\u2003c\vd"_s), ElementsAre(u"a\u00a0b\u2003c\vd"_s));
}

TEST(ParseCurl, readsAWholeCommandWithOneHeader) {
    EXPECT_THAT(parsed(u"curl -X POST 'https://api.example.com/v1?a=1&b=2' "
                       u"-H 'Authorization: Bearer k' -d '{\"a\":1}'"_s),
                ElementsAre(u"https://api.example.com/v1?a=1&b=2"_s, u"Authorization=Bearer k"_s));
}

TEST(ParseCurl, readsAContinuedLineAsOneCommand) {
    EXPECT_THAT(parsed(u"curl \\\n  https://example.com \\\n  -H 'A: b' \\\n  --compressed"_s),
                ElementsAre(u"https://example.com"_s, u"A=b"_s));
}

TEST(ParseCurl, doesNotReadOnAfterACarriageReturn) {
    EXPECT_THAT(parsed(u"curl \\\r\n  -H 'A: b' https://example.com"_s),
                ElementsAre(u"https://example.com"_s, u"A=b"_s));
    EXPECT_THAT(parsed(u"curl \\\r\nhttps://example.com"_s), IsEmpty());
}

TEST(ParseCurl, letsTheUrlFlagReplaceTheAddressAndABareWordNot) {
    EXPECT_THAT(parsed(u"curl --url https://one.com https://two.com"_s),
                ElementsAre(u"https://one.com"_s));
    EXPECT_THAT(parsed(u"curl https://two.com --url https://one.com"_s),
                ElementsAre(u"https://one.com"_s));
    EXPECT_THAT(parsed(u"curl --url https://one.com --url https://two.com"_s),
                ElementsAre(u"https://two.com"_s));
    EXPECT_THAT(parsed(u"curl https://one.com https://two.com"_s),
                ElementsAre(u"https://one.com"_s));
}

TEST(ParseCurl, takesWhateverFollowsTheUrlFlag) {
    EXPECT_THAT(parsed(u"--url example.com"_s), ElementsAre(u"example.com"_s));
    EXPECT_THAT(parsed(u"--url -H 'A: b'"_s), ElementsAre(u"-H"_s));
    EXPECT_THAT(parsed(u"curl https://one.com --url"_s), ElementsAre(u"https://one.com"_s));
    EXPECT_THAT(parsed(u"curl --url"_s), IsEmpty());
}

TEST(ParseCurl, ignoresAHeaderWithoutAColonAndFindsTheAddress) {
    EXPECT_THAT(parsed(u"curl -H 'no colon' https://example.com"_s),
                ElementsAre(u"https://example.com"_s));
    EXPECT_THAT(parsed(u"curl -H 'X-Empty:' --header ': x' https://example.com"_s),
                ElementsAre(u"https://example.com"_s));
}

TEST(ParseCurl, looksAtTheArgumentOfARefusedHeaderAgain) {
    EXPECT_THAT(parsed(u"curl -H -H 'A: b' https://example.com"_s),
                ElementsAre(u"https://example.com"_s, u"A=b"_s));
    EXPECT_THAT(parsed(u"curl -H -d https://one.com https://two.com"_s),
                ElementsAre(u"https://two.com"_s));
    EXPECT_THAT(parsed(u"curl https://example.com -H"_s), ElementsAre(u"https://example.com"_s));
    // An address has a colon, and so it is a header.
    EXPECT_THAT(parsed(u"curl --url https://one.com -H https://two.com"_s),
                ElementsAre(u"https://one.com"_s, u"https=//two.com"_s));
}

TEST(ParseCurl, keepsHeadersInOrderWithDoubles) {
    EXPECT_THAT(parsed(u"curl -H 'B: 1' --header \"A:  2 \" -H'C: 3' -H b:4 https://example.com"_s),
                ElementsAre(u"https://example.com"_s, u"B=1"_s, u"A=2"_s, u"b=4"_s));
    EXPECT_THAT(parsed(u"curl -H a:b:c https://example.com"_s),
                ElementsAre(u"https://example.com"_s, u"a=b:c"_s));
}

TEST(ParseCurl, givesEachHeaderAnIdentityOfItsOwn) {
    const auto command = CustomAPI::parseCurl(u"-H A:b -H A:b https://example.com"_s);
    ASSERT_TRUE(command);
    ASSERT_EQ(command->headers.size(), 2U);
    EXPECT_FALSE(command->headers[0].id.isNull());
    EXPECT_NE(command->headers[0].id, command->headers[1].id);
}

TEST(ParseCurl, throwsMethodAndBodyAndTheLikeAway) {
    for (const char *flag : {"-X", "--request", "-d", "--data", "--data-raw", "--data-binary", "-u",
                             "--user", "-o", "--output", "-A", "--user-agent"}) {
        const QString name = QString::fromLatin1(flag);
        EXPECT_THAT(parsed(u"curl "_s + name + u" https://one.com https://two.com"_s),
                    ElementsAre(u"https://two.com"_s))
            << flag;
        EXPECT_THAT(parsed(u"curl https://one.com "_s + name), ElementsAre(u"https://one.com"_s))
            << flag;
    }
}

TEST(ParseCurl, dropsFlagsThatItDoesNotKnow) {
    EXPECT_THAT(parsed(u"curl -s -L --compressed --max-time 5 -e page https://example.com"_s),
                ElementsAre(u"https://example.com"_s));
    EXPECT_THAT(parsed(u"curl --referer https://one.com https://two.com"_s),
                ElementsAre(u"https://one.com"_s));
    EXPECT_THAT(parsed(u"curl --url=https://one.com"_s), IsEmpty());
}

TEST(ParseCurl, takesOnlyAWordWithASchemeForAnAddress) {
    EXPECT_THAT(parsed(u"curl example.com/path"_s), IsEmpty());
    EXPECT_THAT(parsed(u"curl HTTPS://example.com"_s), IsEmpty());
    EXPECT_THAT(parsed(u"curl ftp://example.com"_s), IsEmpty());
    EXPECT_THAT(parsed(u"https://example.com"_s), ElementsAre(u"https://example.com"_s));
    EXPECT_THAT(parsed(u"curl curl http://example.com"_s), ElementsAre(u"http://example.com"_s));
}

TEST(ParseCurl, findsNothingWithoutAnAddressWhateverHeadersThereAre) {
    EXPECT_FALSE(CustomAPI::parseCurl(u"curl -H 'A: b'"_s));
    EXPECT_FALSE(CustomAPI::parseCurl(u"curl"_s));
    EXPECT_FALSE(CustomAPI::parseCurl(u""_s));
}

} // namespace zeph
