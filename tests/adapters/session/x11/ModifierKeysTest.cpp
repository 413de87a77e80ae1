// SPDX-License-Identifier: MIT
#include "InputEventsFixture.h"

using namespace Qt::StringLiterals;

namespace zeph {

enum class KeySource { recorded, raw };

void PrintTo(KeySource source, std::ostream *out) {
    *out << (source == KeySource::raw ? "raw" : "recorded");
}

/// Key presses as the tap counts them, on either way by which they come.
class ModifierKeysTest : public InputEventsTest, public testing::WithParamInterface<KeySource> {
protected:
    ModifierKeysTest() {
        client->setAutoRepeat(false); // on a slow machine even a short press would repeat
        openTypewriter();
        if (GetParam() == KeySource::raw) {
            single = openWithoutRecording();
            bare = std::make_unique<X11InputEvents>(*single, screens, consents.input);
            tap = startTap(*bare, *single, events);
        } else {
            tap = startTap();
        }
    }

    /// How often the tap told of a key while these were pressed.
    std::ptrdiff_t toldFor(const QStringList &keys) {
        const auto before = count(InputEventKind::keyDown);
        xdotool(QStringList{u"key"_s} + keys);
        xdotool({u"key"_s, u"b"_s}); // comes last, and always counts
        EXPECT_TRUE(waitForCount(InputEventKind::keyDown, before + 1));
        settle(single ? *single : *connection);
        return count(InputEventKind::keyDown) - before - 1;
    }

    std::unique_ptr<X11Connection> single;
    std::unique_ptr<X11InputEvents> bare;
    std::unique_ptr<InputEventTap> tap;
};

namespace {

const QString kKeyA = u"38"_s;
const QString kKeyMenu = u"135"_s;
const QString kRightAlt = u"108"_s;

TEST_P(ModifierKeysTest, countsALetterOnceWhateverIsHeldWithIt) {
    EXPECT_EQ(toldFor({u"a"_s}), 1);
    EXPECT_EQ(toldFor({u"Shift_L+a"_s}), 1);
    EXPECT_EQ(toldFor({u"Control_L+c"_s}), 1);
    EXPECT_EQ(toldFor({u"Control_L+Alt_L+c"_s}), 1);
}

TEST_P(ModifierKeysTest, countsNoModifierByItself) {
    for (const auto *key : {"Shift_L", "Shift_R", "Control_L", "Control_R", "Alt_L", "Alt_R",
                            "Super_L", "Super_R", "Caps_Lock", "Caps_Lock"}) {
        EXPECT_EQ(toldFor({QString::fromLatin1(key)}), 0) << key;
    }
}

TEST_P(ModifierKeysTest, countsKeysThatTypeNoCharacter) {
    EXPECT_EQ(toldFor({u"Left"_s, u"F5"_s, u"BackSpace"_s, u"Escape"_s}), 4);
}

TEST_P(ModifierKeysTest, followsAChangeOfTheModifiers) {
    ASSERT_EQ(toldFor({kKeyA}), 1);
    client->setThirdModifier({38});
    EXPECT_TRUE(waitUntil([&] { return toldFor({kKeyA}) == 0; }));
    client->setThirdModifier({});
    EXPECT_TRUE(waitUntil([&] { return toldFor({kKeyA}) == 1; }));
}

TEST_P(ModifierKeysTest, knowsTheThirdLevelKeyOfALayout) {
    // The server keeps both keys of such a layout out of its table of modifiers.
    ASSERT_EQ(toldFor({kKeyMenu}), 1);
    ASSERT_FALSE(
        session.run({u"setxkbmap"_s, u"-layout"_s, u"de"_s, u"-option"_s, u"lv3:menu_switch"_s})
            .isNull());
    EXPECT_TRUE(waitUntil([&] { return toldFor({kKeyMenu}) == 0; }));
    EXPECT_EQ(toldFor({kRightAlt}), 0);
    EXPECT_EQ(toldFor({kKeyA}), 1);
}

INSTANTIATE_TEST_SUITE_P(BothWays, ModifierKeysTest,
                         testing::Values(KeySource::recorded, KeySource::raw),
                         [](const auto &source) {
                             return std::string(source.param == KeySource::raw ? "raw"
                                                                               : "recorded");
                         });

} // namespace

} // namespace zeph
