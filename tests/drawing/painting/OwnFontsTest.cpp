// SPDX-License-Identifier: MIT
#include "drawing/painting/OwnFonts.h"

#include "drawing/painting/QtFonts.h"
#include "drawing/painting/TextShaper.h"

#include <QGuiApplication>
#include <QPainter>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

struct Script {
    const char *name;
    QString text;
    bool isNamed; ///< the named families hold all its letters
};

std::ostream &operator<<(std::ostream &stream, const Script &script) {
    return stream << script.name;
}

const FontSpec plain{17, FontWeight::light};

bool hasBox(const ShapedText &shaped) {
    return std::any_of(shaped.runs.begin(), shaped.runs.end(),
                       [](const QGlyphRun &run) { return run.glyphIndexes().contains(0U); });
}

QImage painted(const ShapedText &shaped) {
    QImage image(600, 60, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    QPainter painter(&image);
    painter.setPen(Qt::white);
    for (const QGlyphRun &run : shaped.runs) {
        painter.drawGlyphRun({10, 40}, run);
    }
    return image;
}

bool isBlank(const QImage &image) {
    QImage black(image.size(), image.format());
    black.fill(Qt::black);
    return image == black;
}

/// Every case is a process of its own, as the toolkit finds its fonts once.
class EveryScript : public testing::TestWithParam<Script> {};

TEST_P(EveryScript, looksTheSameByTheOwnFontsAndByAll) {
    const Script &script = GetParam();
    const ShapedText latin = shapeText(u"Typing at your steady pace \u00b7 88:88"_s, plain);
    const QImage latinBefore = painted(latin);
    const ShapedText before = shapeText(script.text, plain);
    EXPECT_FALSE(hasBox(before));
    const QImage first = painted(before);
    EXPECT_FALSE(isBlank(first));

    EXPECT_EQ(OwnFonts::takeAll(), script.isNamed); // else the missing letter made it happen
    const ShapedText after = shapeText(script.text, plain);
    EXPECT_EQ(after.width, before.width);
    EXPECT_EQ(painted(after), first);
    const ShapedText latinAfter = shapeText(u"Typing at your steady pace \u00b7 88:88"_s, plain);
    EXPECT_EQ(latinAfter.width, latin.width);
    EXPECT_EQ(painted(latinAfter), latinBefore);
    EXPECT_EQ(painted(latin), latinBefore); // what is kept can be painted still
}

INSTANTIATE_TEST_SUITE_P(OwnFonts, EveryScript,
                         testing::Values(Script{"latin", u"Žluťoučký kůň, Æther, ﬁ"_s, true},
                                         Script{"cyrillic", u"Съешь ещё этих мягких"_s, true},
                                         Script{"greek", u"Ξεσκεπάζω την ψυχοφθόρα"_s, true},
                                         Script{"arabic", u"اجتماع الفريق"_s, true},
                                         Script{"hebrew", u"פגישת צוות"_s, true},
                                         Script{"signs", u"↓ 12 KB/s · ↑ 3 °C − ½ × → …"_s, true},
                                         Script{"emoji", u"🙂 👍🏽 ☀️ ❤️"_s, true},
                                         Script{"japanese", u"今日の会議"_s, false},
                                         Script{"korean", u"팀 회의"_s, false},
                                         Script{"thai", u"ประชุมทีม"_s, false},
                                         Script{"devanagari", u"टीम की बैठक"_s, false}),
                         [](const auto &one) { return std::string(one.param.name); });

TEST(OwnFontsTest, areTakenForAllOnlyOnce) {
    EXPECT_TRUE(OwnFonts::takeAll());
    EXPECT_FALSE(OwnFonts::takeAll());
}

TEST(OwnFontsTest, doNotLookAgainForALetterThatNoFontHas) {
    OwnFonts::takeAll();
    EXPECT_TRUE(hasBox(shapeText(QString::fromUcs4(U"\U000FFFF0"), plain)));
}

} // namespace

} // namespace zeph

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleMock(&argc, argv);
    if (!testing::GTEST_FLAG(list_tests) && !zeph::OwnFonts::use()) {
        std::fputs("the families of the wallpaper are not installed\n", stderr);
        return EXIT_FAILURE;
    }
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
