// SPDX-License-Identifier: MIT
#include "ui/controls/Tokens.h"

#include "drawing/palette/Color.h"

#include <algorithm>
#include <cmath>

namespace zeph::ui {

namespace {

constexpr double readable = 4.5; // contrast of a text
constexpr double visible = 3.0;  // contrast of a shape

QColor hex(QRgb value) {
    return QColor::fromRgb(value);
}

QColor veil(const QColor &color, double alpha) {
    QColor result = color;
    result.setAlphaF(static_cast<float>(alpha));
    return result;
}

Color plain(const QColor &color) {
    return {color.redF(), color.greenF(), color.blueF(), 1};
}

QColor mix(const QColor &from, const QColor &to, double fraction) {
    return QColor::fromRgb(plain(from).mix(plain(to), fraction).argb());
}

/// What `veil` looks like over `ground`.
QColor over(const QColor &veil, const QColor &ground) {
    return mix(ground, veil, static_cast<double>(veil.alphaF()));
}

double luminance(const QColor &color) {
    const auto linear = [](float channel) {
        const auto value = static_cast<double>(channel);
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

/// The least contrast of `color` with what it may lie on.
double worstContrast(const QColor &color, const Tokens &tokens, const QColor &card) {
    return std::min(
        {contrast(color, card), contrast(color, tokens.skyTop), contrast(color, tokens.skyBottom)});
}

/// `color` moved towards ink until a text in it can be read.
QColor legible(QColor color, const Tokens &tokens, const QColor &card) {
    for (int step = 0; step < 20 && worstContrast(color, tokens, card) < readable; ++step) {
        color = mix(color, tokens.ink, 0.05);
    }
    return color;
}

QColor edgeOf(const Tokens &tokens, const QColor &card, double fraction) {
    QColor edge = mix(card, tokens.ink, fraction);
    for (int step = 0; step < 20 && contrast(edge, card) < visible; ++step) {
        edge = mix(edge, tokens.ink, 0.05);
    }
    return edge;
}

void fillDark(Tokens &tokens) {
    const QColor white = Qt::white;
    const QColor black = Qt::black;
    tokens.skyTop = mix(tokens.ground, white, 0.05);
    tokens.skyBottom = mix(tokens.ground, black, 0.35);
    tokens.card = veil(white, 0.055);
    tokens.cardHover = veil(white, 0.09);
    const QColor card = over(tokens.card, tokens.skyTop);
    tokens.second = mix(tokens.ink, tokens.skyTop, 0.26);
    tokens.third = mix(tokens.ink, tokens.skyTop, 0.36);
    tokens.field = mix(card, black, 0.22);
    tokens.edge = edgeOf(tokens, card, 0.385);
    tokens.hair = veil(tokens.ink, 0.13);
    tokens.line = veil(tokens.ink, 0.09);
    tokens.fill = veil(tokens.ink, 0.09);
    tokens.hover = veil(tokens.ink, 0.05);
    tokens.press = veil(tokens.ink, 0.20);
    tokens.button = veil(tokens.ink, 0.09);
    tokens.buttonHover = veil(tokens.ink, 0.14);
    tokens.raised = hex(0x4A4A60);
    tokens.menu = hex(0x26263A);
    tokens.lift = hex(0x34354C);
    tokens.onAccent = hex(0x1A1420);
    tokens.focus = hex(0x9DB0FF);
    tokens.ok = hex(0x9BD8B0);
    tokens.error = hex(0xFFA599);
    tokens.accentInk = legible(tokens.accent, tokens, card);
}

void fillLight(Tokens &tokens) {
    const QColor white = Qt::white;
    const QColor black = Qt::black;
    tokens.skyTop = mix(tokens.ground, white, 0.35);
    tokens.skyBottom = mix(tokens.ground, black, 0.045);
    tokens.card = veil(white, 0.62);
    tokens.cardHover = veil(white, 0.85);
    const QColor card = over(tokens.card, tokens.skyBottom);
    tokens.second = mix(tokens.ink, tokens.skyBottom, 0.22);
    tokens.third = mix(tokens.ink, tokens.skyBottom, 0.30);
    tokens.field = white;
    tokens.edge = edgeOf(tokens, card, 0.54);
    tokens.hair = veil(tokens.ink, 0.16);
    tokens.line = veil(tokens.ink, 0.10);
    tokens.fill = veil(tokens.ink, 0.075);
    tokens.hover = veil(tokens.ink, 0.05);
    tokens.press = veil(tokens.ink, 0.12);
    tokens.button = veil(white, 0.78);
    tokens.buttonHover = white;
    tokens.raised = white;
    tokens.menu = hex(0xFBFAFD);
    tokens.lift = white;
    tokens.onAccent = white;
    tokens.focus = hex(0x4B58C8);
    tokens.ok = hex(0x1F6B3F);
    tokens.error = hex(0xB0281E);
    tokens.accentInk = legible(hex(0x8A4A0F), tokens, card);
}

/// No veil is left that a weak eye could miss.
void raiseContrast(Tokens &tokens, const QPalette &desktop) {
    tokens.ground = desktop.color(QPalette::Window);
    tokens.ink = desktop.color(QPalette::WindowText);
    tokens.skyTop = tokens.ground;
    tokens.skyBottom = tokens.ground;
    for (QColor *color :
         {&tokens.second, &tokens.third, &tokens.edge, &tokens.hair, &tokens.line}) {
        *color = tokens.ink;
    }
    for (QColor *color : {&tokens.card, &tokens.field, &tokens.menu, &tokens.lift}) {
        *color = tokens.ground;
    }
    for (QColor *color : {&tokens.fill, &tokens.hover, &tokens.press}) {
        *color = veil(tokens.ink, static_cast<double>(color->alphaF()));
    }
    for (QColor *color : {&tokens.cardHover, &tokens.button, &tokens.buttonHover}) {
        *color = veil(tokens.ink, color == &tokens.button ? 0.09 : 0.14);
    }
    tokens.accent = desktop.color(QPalette::Highlight);
    tokens.onAccent = desktop.color(QPalette::HighlightedText);
    tokens.accentInk = legible(desktop.color(QPalette::Link), tokens, tokens.ground);
    tokens.ok = legible(tokens.ok, tokens, tokens.ground);
    tokens.error = legible(tokens.error, tokens, tokens.ground);
    tokens.raised = mix(tokens.ground, tokens.ink, 0.25);
}

} // namespace

double contrast(const QColor &one, const QColor &other) {
    const double first = luminance(one);
    const double second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

Tokens Tokens::of(Appearance appearance, const QPalette &desktop) {
    Tokens tokens;
    const bool isHigh = appearance == Appearance::highContrast;
    const bool isDark =
        isHigh ? desktop.color(QPalette::Window).lightness() < 128 : appearance == Appearance::dark;
    tokens.ground = isDark ? hex(0x101126) : hex(0xF2F0F6);
    tokens.ink = isDark ? hex(0xF3F0EC) : hex(0x1C1A33);
    tokens.accent = isDark ? hex(0xF2B873) : hex(0xAE5D17);
    if (isDark) {
        fillDark(tokens);
    } else {
        fillLight(tokens);
    }
    if (isHigh) {
        raiseContrast(tokens, desktop);
    }
    const QColor highlight = desktop.color(QPalette::Highlight);
    const QColor card = over(tokens.card, tokens.skyTop);
    if (worstContrast(highlight, tokens, card) >= visible) {
        tokens.focus = highlight;
    }
    return tokens;
}

QPalette Tokens::palette(Appearance appearance) const {
    const bool isDark = ground.lightness() < 128;
    QPalette result;
    result.setColor(QPalette::Window, ground);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        result.setColor(role, ink);
    }
    result.setColor(QPalette::Base, field);
    result.setColor(QPalette::AlternateBase, over(card, ground));
    result.setColor(QPalette::PlaceholderText, third);
    result.setColor(QPalette::Button, menu);
    result.setColor(QPalette::Highlight, focus);
    result.setColor(QPalette::HighlightedText, ground);
    result.setColor(QPalette::Link, accentInk);
    result.setColor(QPalette::ToolTipBase, isDark && appearance != Appearance::highContrast
                                               ? mix(ink, ground, 0.08)
                                               : ink);
    result.setColor(QPalette::ToolTipText, isDark ? ground : QColor(Qt::white));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        result.setColor(QPalette::Disabled, role, veil(ink, 0.42));
    }
    return result;
}

} // namespace zeph::ui
