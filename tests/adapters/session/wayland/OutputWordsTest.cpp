// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/OutputWords.h"

#include "adapters/session/identity/EdidBlock.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

struct OutputWordsTest : testing::Test {
    /// What the kernel keeps of the display at a connector.
    void plug(const QString &entry, const QByteArray &edid) const {
        QDir(folder.path()).mkpath(entry);
        QFile file(folder.filePath(entry + u"/edid"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(edid);
    }
    ScreenFacts words(const OutputNames &names) const { return outputWords(names, folder.path()); }

    QTemporaryDir folder;
};

} // namespace

TEST_F(OutputWordsTest, areThoseOfTheDisplaysOwnBlock) {
    plug(u"card1-DP-1"_s, edidBlock("P27", "42"));
    EXPECT_EQ(words({u"Acme Incorporated"_s, u"Something"_s, u"DP-1"_s, {}}),
              (ScreenFacts{u"ACM"_s, u"P27"_s, u"42"_s, u"DP-1"_s}));
}

TEST_F(OutputWordsTest, areThoseOfTheConnectorAndOfNoneThatEndsLikeIt) {
    plug(u"card0-eDP-1"_s, edidBlock("inside", "1"));
    plug(u"card0-HDMI-A-DP-1"_s, edidBlock("other", "3"));
    plug(u"card0-DP-1"_s, edidBlock("outside", "2"));
    EXPECT_EQ(words({{}, {}, u"DP-1"_s, {}}).model, u"outside"_s);
    EXPECT_EQ(words({{}, {}, u"eDP-1"_s, {}}).model, u"inside"_s);
    EXPECT_EQ(words({u"Acme"_s, u"P27"_s, u"*"_s, {}}).model, u"P27"_s);
}

TEST_F(OutputWordsTest, passOverACardWhoseConnectorOfThatNameIsFree) {
    plug(u"card0-DP-1"_s, {});
    plug(u"card1-DP-1"_s, edidBlock("P27", "42"));
    EXPECT_EQ(words({{}, {}, u"DP-1"_s, {}}).serialNumber, u"42"_s);
}

TEST_F(OutputWordsTest, areTheCompositorsWhereSeveralDisplaysCouldBeMeant) {
    plug(u"card0-DP-1"_s, edidBlock("P27", "41"));
    plug(u"card1-DP-1"_s, edidBlock("P27", "42"));
    EXPECT_EQ(words({u"Acme"_s, u"Q32"_s, u"DP-1"_s, u"Acme Q32 XY12 (DP-1)"_s}),
              (ScreenFacts{u"Acme"_s, u"Q32"_s, u"XY12"_s, u"DP-1"_s}));
}

TEST_F(OutputWordsTest, findASerialNumberInADescriptionOfTheKnownFormOnly) {
    const auto serial = [this](const QString &description) {
        return words({u"Acme"_s, u"P27"_s, u"DP-1"_s, description}).serialNumber;
    };
    EXPECT_EQ(serial(u"Acme P27 XY12 (DP-1 via HDMI)"_s), u"XY12"_s);
    EXPECT_EQ(serial(u"Acme P27 Unknown (DP-1)"_s), QString());
    EXPECT_EQ(serial(u"Acme P27 (DP-1)"_s), QString());
    EXPECT_EQ(serial(u"Acme P27 XY12"_s), QString());
    EXPECT_EQ(serial(u"Built-in display (eDP-1)"_s), QString());
    EXPECT_EQ(serial({}), QString());
}

TEST_F(OutputWordsTest, dropWhatMeansNothing) {
    EXPECT_EQ(words({u"Unknown"_s, u" unknown "_s, u"HEADLESS-1"_s, u"Headless output 1"_s}),
              (ScreenFacts{{}, {}, {}, u"HEADLESS-1"_s}));
}

TEST_F(OutputWordsTest, neverLeaveTheFolder) {
    plug(u"card0-x"_s, edidBlock("P27", "42"));
    EXPECT_EQ(words({{}, u"Q32"_s, u"../card0-x"_s, {}}).model, u"Q32"_s);
    EXPECT_EQ(words({{}, u"Q32"_s, {}, {}}).model, u"Q32"_s);
}

} // namespace zeph
