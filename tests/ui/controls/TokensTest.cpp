// SPDX-License-Identifier: MIT
#include "ui/controls/Look.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace zeph::ui {

namespace {

/// A desktop whose highlight can't be seen on our windows, so that the focus is our own.
QPalette plainDesktop() {
    QPalette palette;
    palette.setColor(QPalette::Highlight, QColor(0x48, 0x40, 0x58));
    return palette;
}

QPalette lightDesktop() {
    QPalette palette;
    palette.setColor(QPalette::Highlight, QColor(0xd8, 0xd8, 0xe8));
    return palette;
}

Tokens dark() {
    return Tokens::of(Appearance::dark, plainDesktop());
}

Tokens light() {
    return Tokens::of(Appearance::light, lightDesktop());
}

QColor over(const QColor &veil, const QColor &ground) {
    const auto part = [&](int one, int other) {
        return qRound(other + (one - other) * static_cast<double>(veil.alphaF()));
    };
    return {part(veil.red(), ground.red()), part(veil.green(), ground.green()),
            part(veil.blue(), ground.blue())};
}

void expectColor(const QColor &color, QRgb wanted, const char *name) {
    const QColor other = QColor::fromRgb(wanted);
    const int off =
        std::max({std::abs(color.red() - other.red()), std::abs(color.green() - other.green()),
                  std::abs(color.blue() - other.blue())});
    EXPECT_LE(off, 1) << name << " is " << qPrintable(color.name());
    EXPECT_EQ(color.alpha(), 255) << name;
}

void expectVeil(const QColor &color, QRgb wanted, double alpha, const char *name) {
    EXPECT_EQ(color.rgb() & 0xFFFFFF, wanted & 0xFFFFFF) << name;
    EXPECT_NEAR(static_cast<double>(color.alphaF()), alpha, 0.001) << name;
}

/// What a text or a shape can lie on.
std::vector<QColor> groundsOf(const Tokens &tokens) {
    std::vector<QColor> grounds{tokens.skyTop, tokens.skyBottom, tokens.field, tokens.menu,
                                tokens.lift};
    for (const QColor &end : {tokens.skyTop, tokens.skyBottom}) {
        grounds.push_back(over(tokens.card, end));
        grounds.push_back(over(tokens.cardHover, end));
    }
    return grounds;
}

double worst(const QColor &color, const Tokens &tokens) {
    double least = 21;
    for (const QColor &ground : groundsOf(tokens)) {
        least = std::min(least, contrast(color, ground));
    }
    return least;
}

} // namespace

TEST(Tokens, ofTheDark) {
    const Tokens tokens = dark();
    expectColor(tokens.ground, 0x101126, "ground");
    expectColor(tokens.ink, 0xF3F0EC, "ink");
    expectColor(tokens.accent, 0xF2B873, "accent");
    expectColor(tokens.skyTop, 0x1C1D31, "skyTop");
    expectColor(tokens.skyBottom, 0x0A0B19, "skyBottom");
    expectColor(tokens.second, 0xBBB9BB, "second");
    expectColor(tokens.third, 0xA6A4A9, "third");
    expectVeil(tokens.card, 0xFFFFFF, 0.055, "card");
    expectColor(over(tokens.card, tokens.skyTop), 0x28293C, "card over the sky");
    expectVeil(tokens.cardHover, 0xFFFFFF, 0.09, "cardHover");
    expectColor(tokens.field, 0x1F202F, "field");
    expectColor(tokens.edge, 0x767680, "edge");
    expectVeil(tokens.hair, 0xF3F0EC, 0.13, "hair");
    expectVeil(tokens.line, 0xF3F0EC, 0.09, "line");
    expectVeil(tokens.fill, 0xF3F0EC, 0.09, "fill");
    expectVeil(tokens.hover, 0xF3F0EC, 0.05, "hover");
    expectVeil(tokens.press, 0xF3F0EC, 0.20, "press");
    expectVeil(tokens.button, 0xF3F0EC, 0.09, "button");
    expectVeil(tokens.buttonHover, 0xF3F0EC, 0.14, "buttonHover");
    expectColor(tokens.raised, 0x4A4A60, "raised");
    expectColor(tokens.menu, 0x26263A, "menu");
    expectColor(tokens.lift, 0x34354C, "lift");
    expectColor(tokens.accentInk, 0xF2B873, "accentInk");
    expectColor(tokens.onAccent, 0x1A1420, "onAccent");
    expectColor(tokens.focus, 0x9DB0FF, "focus");
    expectColor(tokens.ok, 0x9BD8B0, "ok");
    expectColor(tokens.error, 0xFFA599, "error");
}

TEST(Tokens, ofTheLight) {
    const Tokens tokens = light();
    expectColor(tokens.ground, 0xF2F0F6, "ground");
    expectColor(tokens.ink, 0x1C1A33, "ink");
    expectColor(tokens.accent, 0xAE5D17, "accent");
    expectColor(tokens.skyTop, 0xF7F5F9, "skyTop");
    expectColor(tokens.skyBottom, 0xE7E5EB, "skyBottom");
    expectColor(tokens.second, 0x49475B, "second");
    expectColor(tokens.third, 0x59576A, "third");
    expectVeil(tokens.card, 0xFFFFFF, 0.62, "card");
    expectColor(over(tokens.card, tokens.skyBottom), 0xF6F5F7, "card over the sky");
    expectVeil(tokens.cardHover, 0xFFFFFF, 0.85, "cardHover");
    expectColor(tokens.field, 0xFFFFFF, "field");
    expectColor(tokens.edge, 0x807F8D, "edge");
    expectVeil(tokens.hair, 0x1C1A33, 0.16, "hair");
    expectVeil(tokens.line, 0x1C1A33, 0.10, "line");
    expectVeil(tokens.fill, 0x1C1A33, 0.075, "fill");
    expectVeil(tokens.hover, 0x1C1A33, 0.05, "hover");
    expectVeil(tokens.press, 0x1C1A33, 0.12, "press");
    expectVeil(tokens.button, 0xFFFFFF, 0.78, "button");
    expectColor(tokens.buttonHover, 0xFFFFFF, "buttonHover");
    expectColor(tokens.raised, 0xFFFFFF, "raised");
    expectColor(tokens.menu, 0xFBFAFD, "menu");
    expectColor(tokens.lift, 0xFFFFFF, "lift");
    expectColor(tokens.accentInk, 0x8A4A0F, "accentInk");
    expectColor(tokens.onAccent, 0xFFFFFF, "onAccent");
    expectColor(tokens.focus, 0x4B58C8, "focus");
    expectColor(tokens.ok, 0x1F6B3F, "ok");
    expectColor(tokens.error, 0xB0281E, "error");
}

TEST(Tokens, everyTextCanBeReadWhereverItLies) {
    for (const Tokens &tokens : {dark(), light()}) {
        for (const QColor &ink :
             {tokens.ink, tokens.second, tokens.third, tokens.accentInk, tokens.error, tokens.ok}) {
            EXPECT_GE(worst(ink, tokens), 4.5) << qPrintable(ink.name());
        }
        EXPECT_GE(contrast(tokens.ground, tokens.ink), 4.5) << "the text of a primary button";
    }
}

TEST(Tokens, everyShapeThatMeansSomethingCanBeSeen) {
    for (const Tokens &tokens : {dark(), light()}) {
        const QColor onTop = over(tokens.card, tokens.skyTop);
        const QColor onBottom = over(tokens.card, tokens.skyBottom);
        for (const QColor &shape : {tokens.edge, tokens.accent, tokens.focus}) {
            for (const QColor &ground : {onTop, onBottom, tokens.skyTop, tokens.skyBottom}) {
                EXPECT_GE(contrast(shape, ground), 3.0) << qPrintable(shape.name());
            }
        }
        EXPECT_GE(contrast(tokens.onAccent, tokens.accent), 3.0);
    }
}

TEST(Tokens, theDesktopsHighlightIsTheFocusWhereItCanBeSeen) {
    QPalette desktop;
    desktop.setColor(QPalette::Highlight, QColor(0x40, 0xE0, 0x80));
    EXPECT_EQ(Tokens::of(Appearance::dark, desktop).focus, QColor(0x40, 0xE0, 0x80));
    expectColor(Tokens::of(Appearance::light, desktop).focus, 0x4B58C8, "focus");
}

TEST(Tokens, highContrastTakesTheUsersOwnColours) {
    QPalette desktop;
    desktop.setColor(QPalette::Window, Qt::black);
    desktop.setColor(QPalette::WindowText, Qt::yellow);
    desktop.setColor(QPalette::Highlight, Qt::cyan);
    const Tokens tokens = Tokens::of(Appearance::highContrast, desktop);
    EXPECT_EQ(tokens.ground, QColor(Qt::black));
    EXPECT_EQ(tokens.skyTop, tokens.skyBottom);
    for (const QColor &color : {tokens.ink, tokens.second, tokens.third, tokens.edge}) {
        EXPECT_EQ(color, QColor(Qt::yellow));
    }
    for (const QColor &color : {tokens.ok, tokens.error, tokens.accentInk}) {
        EXPECT_GE(contrast(color, tokens.ground), 4.5) << qPrintable(color.name());
    }
    for (const QColor &veil : {tokens.fill, tokens.hover, tokens.press}) {
        EXPECT_EQ(veil.rgb(), QColor(Qt::yellow).rgb());
    }
}

TEST(Tokens, highContrastCanBeLight) {
    QPalette desktop;
    desktop.setColor(QPalette::Window, Qt::white);
    desktop.setColor(QPalette::WindowText, Qt::black);
    desktop.setColor(QPalette::Link, QColor(0xC0, 0xC0, 0xFF));
    const Tokens tokens = Tokens::of(Appearance::highContrast, desktop);
    EXPECT_GE(contrast(tokens.error, tokens.ground), 4.5);
    EXPECT_GE(contrast(tokens.accentInk, tokens.ground), 4.5) << "a link that is too pale is inked";
}

TEST(Tokens, highContrastInksWhatCanNotBeReadOnTheUsersGround) {
    QPalette desktop;
    desktop.setColor(QPalette::Window, QColor(0xA8, 0xA8, 0xA8));
    desktop.setColor(QPalette::WindowText, Qt::black);
    const Tokens tokens = Tokens::of(Appearance::highContrast, desktop);
    EXPECT_GE(contrast(tokens.ok, tokens.ground), 4.5);
    EXPECT_GE(contrast(tokens.error, tokens.ground), 4.5);
}

TEST(Tokens, theStockPartsFit) {
    const Tokens tokens = dark();
    const QPalette palette = tokens.palette(Appearance::dark);
    EXPECT_EQ(palette.color(QPalette::Window), tokens.ground);
    EXPECT_EQ(palette.color(QPalette::Text), tokens.ink);
    EXPECT_EQ(palette.color(QPalette::Base), tokens.field);
    EXPECT_EQ(palette.color(QPalette::Highlight), tokens.focus);
    EXPECT_EQ(palette.color(QPalette::HighlightedText), tokens.ground);
    EXPECT_EQ(palette.color(QPalette::ToolTipText), tokens.ground);
    EXPECT_GE(contrast(palette.color(QPalette::ToolTipText), palette.color(QPalette::ToolTipBase)),
              7);
    EXPECT_EQ(light().palette(Appearance::light).color(QPalette::ToolTipText), QColor(Qt::white));
}

TEST(Look, largeSymbolsHaveThinnerStrokes) {
    EXPECT_EQ(symbolStroke(20), 1.5);
    EXPECT_EQ(symbolStroke(27.9), 1.5);
    EXPECT_DOUBLE_EQ(symbolStroke(28), 1.2);
    EXPECT_DOUBLE_EQ(symbolStroke(56), 0.8);
    EXPECT_DOUBLE_EQ(symbolStroke(90), 0.8);
}

TEST(Tokens, contrastIsThatOfTheGuidelines) {
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 0.001);
    EXPECT_NEAR(contrast(Qt::white, Qt::black), 21, 0.001);
    EXPECT_NEAR(contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.478, 0.001);
    EXPECT_EQ(contrast(Qt::red, Qt::red), 1);
}

} // namespace zeph::ui
