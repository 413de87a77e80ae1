// SPDX-License-Identifier: MIT
#include "drawing/painting/TextCache.h"

#include <QString>

#include <gtest/gtest.h>

namespace zeph {

namespace {

struct TextKey {
    QString text;

    bool operator==(const TextKey &) const = default;
};

size_t qHash(const TextKey &key, size_t seed) {
    return ::qHash(key.text, seed);
}

class TextCacheTest : public testing::Test {
protected:
    void ask(const QString &text) {
        EXPECT_EQ(cache.value({text}, [&] { return ++made, text.size(); }), text.size());
    }
    /// A redraw of so many texts; returns how many had to be looked at.
    int askForAll(int count) {
        const int before = made;
        for (int at = 0; at < count; ++at) {
            ask(QString::number(at));
        }
        return made - before;
    }

    TextCache<TextKey, qsizetype> cache{100};
    int made = 0;
};

} // namespace

TEST_F(TextCacheTest, asksForEachTextOnce) {
    EXPECT_EQ(askForAll(90), 90);
    EXPECT_EQ(askForAll(90), 0);
}

TEST_F(TextCacheTest, growsToWhatOneRedrawAsksFor) {
    for (int redraw = 0; redraw < 8; ++redraw) {
        askForAll(1000);
    }
    EXPECT_EQ(askForAll(1000), 0);
}

TEST_F(TextCacheTest, growsNoFurtherThanSixteenfold) {
    for (int redraw = 0; redraw < 20; ++redraw) {
        askForAll(5000);
    }
    EXPECT_EQ(askForAll(5000), 5000);
    askForAll(1600);
    EXPECT_EQ(askForAll(1600), 0);
    EXPECT_EQ(askForAll(1601), 1) << "this is one more than fit";
}

TEST_F(TextCacheTest, staysSmallWhereATextChangesNowAndThen) {
    for (int minute = 0; minute < 2000; ++minute) {
        askForAll(50);
        ask(QStringLiteral("at minute %1").arg(minute));
    }
    askForAll(100); // fills what there is room for
    ask(QStringLiteral("one more"));
    EXPECT_GT(askForAll(100), 0) << "there was never need for more room";
}

TEST_F(TextCacheTest, aLongTextCountsForSeveral) {
    ask(QString(64 * 99, u'x'));
    const int before = made;
    ask(QStringLiteral("a"));
    ask(QString(64 * 99, u'x'));
    EXPECT_GT(made, before + 1) << "both do not fit";
}

} // namespace zeph
