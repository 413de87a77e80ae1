// SPDX-License-Identifier: MIT
#include "adapters/web/HttpFixture.h"
#include "services/web/ProviderHTTP.h"

#include <QJsonArray>
#include <QJsonObject>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// What the smaller services make of answers that came over a real connection.
class ServiceAnswers : public HttpFixture {
protected:
    QJsonValue json(const QByteArray &body, int status = 200) {
        LoopbackServer server(answering(answer(status, body)));
        return ProviderHTTP::json(client, server.url().toString(), {{"X-Key", "secret"}});
    }
    QString refusal(const QByteArray &body, int status = 200) {
        try {
            json(body, status);
        } catch (const DescribedError &error) {
            return error.description();
        }
        return u"read"_s;
    }
};

TEST_F(ServiceAnswers, areAskedForAsJson) {
    EXPECT_EQ(json("{\"a\":1}"), (QJsonObject{{u"a"_s, 1}}));
    EXPECT_EQ(received().back().header("Accept"), "application/json");
    LoopbackServer server(answering(answer(200, "1")));
    ProviderHTTP::json(client, server.url().toString(), {{"accept", "text/plain"}});
    EXPECT_EQ(received().back().header("Accept"), "text/plain");
}

TEST_F(ServiceAnswers, tellTheirOwnRefusal) {
    for (const int status : {401, 403, 404, 429, 500, 502}) {
        const QString number = u"HTTP %1"_s.arg(status);
        EXPECT_EQ(refusal("{\"message\":\"nope\"}", status), u"nope"_s);
        EXPECT_EQ(refusal("{\"error\":{\"message\":\"nope\"}}", status), u"nope"_s);
        EXPECT_EQ(refusal("<html>nope</html>", status), number);
        EXPECT_EQ(refusal("", status), number);
        EXPECT_EQ(refusal("\xFF\xFE{", status), number);
    }
    EXPECT_EQ(refusal("", 304), u"HTTP 304"_s);
}

TEST_F(ServiceAnswers, mayHoldAMarkOfTheByteOrder) {
    EXPECT_EQ(json("\xEF\xBB\xBF[1]"), QJsonArray{1});
}

TEST_F(ServiceAnswers, areRefusedWhenTheyAreNoJson) {
    const std::vector<QByteArray> bodies{
        "",
        "{\"a\":NaN}",
        "NaN",
        "{\"a\":Infinity}",
        "{\"a\":\"\xFF\"}",
        "{\"a\":1",
        "{\"a\":1}{}",
        "<html></html>",
        QByteArray(100'000, '['),
        QByteArray("{\"a\":").repeated(100'000),
        QByteArray(1000, '\0'),
    };
    for (const QByteArray &body : bodies) {
        EXPECT_TRUE(refusal(body).startsWith(u"The answer could not be read: "_s))
            << body.left(20).toStdString();
    }
    EXPECT_TRUE(refusal("", 204).startsWith(u"The answer could not be read: "_s));
}

TEST_F(ServiceAnswers, tellTheLastOfTwoValues) {
    EXPECT_EQ(json("{\"a\":1,\"a\":2}"), (QJsonObject{{u"a"_s, 2}}));
}

TEST_F(ServiceAnswers, leaveFailuresOfTheTransportAsTheyAre) {
    EXPECT_THROW(ProviderHTTP::json(client, u"http://missing.test/"_s), TransportError);
}

} // namespace

} // namespace zeph
