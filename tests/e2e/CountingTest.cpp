// SPDX-License-Identifier: MIT
#include "TaviFixture.h"

#include <csignal>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const char *const kKeystrokes = "SELECT keystrokes FROM daily_stats";

} // namespace

class CountingTest : public TaviTest {
protected:
    CountingTest() { startWindowManager(); }

    /// Gives the focus to a window of an application of this name.
    void work(const QByteArray &name) {
        const auto window = client->show({.geometry = {800, 300, 200, 150},
                                          .colour = 0x00FF00,
                                          .instance = name.toLower(),
                                          .name = name});
        client->activate(window);
        ASSERT_TRUE(waitUntil([&] { return client->focus() == window; }));
    }

    void type(int keys) const {
        session.run(QStringList{u"xdotool"_s, u"key"_s, u"--delay"_s, u"0"_s} +
                    QStringList(keys, u"a"_s));
    }
};

TEST_F(CountingTest, countsTypedKeysWithConsent) {
    writeSettings(R"({"zeph.consent.input": 3})");
    work("Writer");
    Program tavi(environment());
    // The name of the application is drawn only after the counting began.
    ASSERT_TRUE(waitForWords(u"Writer"_s)) << lastWords.toStdString();
    type(40);
    EXPECT_TRUE(waitForWords(u"Typing 40 a minute"_s)) << lastWords.toStdString();
    tavi.send(SIGTERM);
    ASSERT_TRUE(tavi.endsWith(0));
    EXPECT_EQ(stored(kKeystrokes), u"40"_s);
}

TEST_F(CountingTest, countsNoKeysWithoutConsent) {
    work("Writer");
    Program tavi(environment());
    ASSERT_TRUE(waitForWords(u"Writer"_s)) << lastWords.toStdString();
    type(40);
    // Keystrokes are published together with the ranking of applications.
    work("Reader");
    ASSERT_TRUE(waitForWords(u"Reader"_s, 2)) << lastWords.toStdString();
    tavi.send(SIGTERM);
    ASSERT_TRUE(tavi.endsWith(0));
    EXPECT_EQ(stored(kKeystrokes), u"0"_s);
}

TEST_F(CountingTest, goesOnFromTheSameDaysTotalAfterARestart) {
    writeSettings(R"({"zeph.consent.input": 3})");
    work("Writer");
    for (const int total : {25, 50}) {
        Program tavi(environment());
        if (total > 25) {
            EXPECT_EQ(stored(kKeystrokes), u"25"_s);
        }
        ASSERT_TRUE(waitForWords(u"Writer"_s)) << lastWords.toStdString();
        type(25);
        // The rate is of this run alone.
        ASSERT_TRUE(waitForWords(u"Typing 25 a minute"_s)) << lastWords.toStdString();
        tavi.send(SIGTERM);
        ASSERT_TRUE(tavi.endsWith(0));
        EXPECT_EQ(stored(kKeystrokes), QString::number(total));
    }
}

} // namespace zeph
