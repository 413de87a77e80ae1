// SPDX-License-Identifier: MIT
#include "ui/controls/Look.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPainter>
#include <QScreen>
#include <QVariant>
#include <QWidget>

#include <cmath>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr const char *lookProperty = "zephLook";
constexpr double designPointSize = 10;

/// How a role is set at the designed size.
struct Type {
    double size;
    double line;
    int weight;
    double spacing; ///< of letters, in percent of the size
};

Type typeOf(TypeRole role) {
    switch (role) {
    case TypeRole::title:
        return {32, 40, QFont::ExtraLight, -1.2};
    case TypeRole::version:
        return {22, 30, QFont::ExtraLight, 0};
    case TypeRole::row:
        return {14, 20, QFont::Normal, 0};
    case TypeRole::body:
        return {13.5, 20, QFont::Normal, 0};
    case TypeRole::bodyStrong:
        return {13.5, 20, QFont::Medium, 0};
    case TypeRole::button:
        return {13, 20, QFont::Medium, 0};
    case TypeRole::segment:
        return {13, 20, QFont::Normal, 0};
    case TypeRole::detail:
        return {12.5, 18, QFont::Normal, 0};
    case TypeRole::detailStrong:
        return {12.5, 18, QFont::Medium, 0};
    case TypeRole::note:
        return {12, 17, QFont::Normal, 0};
    case TypeRole::section:
        return {11, 16, QFont::DemiBold, 9};
    case TypeRole::fixed:
        return {12, 18, QFont::Normal, 0};
    }
    return {13.5, 20, QFont::Normal, 0};
}

constexpr double unhintedFrom = 20; // pixels
constexpr double pointsInAnInch = 72;
constexpr double designDotsPerInch = 96;

double dotsPerInch() {
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen == nullptr ? designDotsPerInch : screen->logicalDotsPerInchY();
}

QPixmap tinted(const QImage &mask, const QColor &color, double ratio) {
    QImage image(mask.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawImage(0, 0, mask);
    painter.end();
    image.setDevicePixelRatio(ratio);
    return QPixmap::fromImage(std::move(image));
}

} // namespace

Look::Look() : m_tokens(Tokens::of(Appearance::dark, QPalette())) {}

Look::Look(QWidget &window, Appearance appearance) : m_window(&window), m_appearance(appearance) {
    window.setProperty(lookProperty, QVariant::fromValue(static_cast<void *>(this)));
    dress();
}

Look::~Look() = default;

const Look &Look::of(const QWidget &widget) {
    for (const QWidget *window = widget.window(); window != nullptr;) {
        const QVariant look = window->property(lookProperty);
        if (look.isValid()) {
            return *static_cast<const Look *>(look.value<void *>());
        }
        const QWidget *parent = window->parentWidget();
        window = parent == nullptr ? nullptr : parent->window();
    }
    static const Look plain;
    return plain;
}

void Look::setAppearance(Appearance appearance) {
    m_appearance = appearance;
    dress();
}

void Look::dress() {
    m_tokens = Tokens::of(m_appearance, QApplication::palette());
    m_window->setPalette(m_tokens.palette(m_appearance));
    m_window->setFont(font(TypeRole::body));
    m_window->update();
}

std::chrono::milliseconds Look::duration(std::chrono::milliseconds wanted) const {
    return m_hasMotion ? wanted : std::chrono::milliseconds(0);
}

QPixmap Look::symbol(const QWidget &widget, const QString &identifier, double size,
                     const QColor &color) const {
    const double ratio = widget.devicePixelRatioF();
    const int pixels = static_cast<int>(std::lround(size * ratio));
    return tinted(m_symbols.mask(identifier, pixels), color, ratio);
}

double scale() {
    const QFont font = QApplication::font();
    const double points = font.pointSizeF() > 0 ? font.pointSizeF()
                                                : font.pixelSize() * pointsInAnInch / dotsPerInch();
    return points / designPointSize * dotsPerInch() / designDotsPerInch;
}

int scaled(double measure) {
    return static_cast<int>(std::lround(measure * scale()));
}

QFont font(TypeRole role) {
    const Type type = typeOf(role);
    QFont result = role == TypeRole::fixed ? QFontDatabase::systemFont(QFontDatabase::FixedFont)
                                           : QFont(u"Inter"_s);
    // Qt has no fractions of a pixel, but of a point.
    result.setPointSizeF(type.size * scale() * pointsInAnInch / dotsPerInch());
    result.setWeight(static_cast<QFont::Weight>(type.weight));
    if (type.spacing != 0) {
        result.setLetterSpacing(QFont::PercentageSpacing, 100 + type.spacing);
    }
    if (role == TypeRole::section) {
        result.setCapitalization(QFont::AllUppercase);
    }
    if (type.size * scale() >= unhintedFrom) {
        result.setHintingPreference(QFont::PreferNoHinting);
    }
    return result;
}

int lineHeight(TypeRole role) {
    return scaled(typeOf(role).line);
}

} // namespace zeph::ui
