// SPDX-License-Identifier: MIT
#include "ui/controls/Look.h"

#include "drawing/painting/OwnFonts.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPainter>
#include <QScreen>
#include <QToolTip>
#include <QVariant>
#include <QWidget>

#include <algorithm>
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
    case TypeRole::lead:
        return {14, 22, QFont::Normal, 0};
    case TypeRole::strong:
        return {14, 20, QFont::Medium, 0};
    }
    return {13.5, 20, QFont::Normal, 0};
}

constexpr int keptKilobytes = 1024; // of symbols

/// Whether a symbol points to one side of what it stands beside.
bool pointsSidewaysInLook(const QString &identifier) {
    return identifier == u"chevron.left" || identifier == u"chevron.right" ||
           identifier == u"chevron.forward" || identifier == u"arrow.up.right.square";
}

int thousandths(double value) {
    return static_cast<int>(std::lround(value * 1000));
}

constexpr double unhintedFrom = 20; // pixels
constexpr double pointsInAnInch = 72;
constexpr double designDotsPerInch = 96;

double dotsPerInch() {
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen == nullptr ? designDotsPerInch : screen->logicalDotsPerInchY();
}

QPixmap tinted(const QImage &mask, const QColor &color) {
    QImage image(mask.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(color);
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawImage(0, 0, mask);
    painter.end();
    return QPixmap::fromImage(std::move(image));
}

} // namespace

Look::Look() : m_tokens(Tokens::of(Appearance::dark, QPalette())), m_pictures(keptKilobytes) {}

Look::Look(QWidget &window, Appearance appearance)
    : m_window(&window), m_appearance(appearance), m_pictures(keptKilobytes) {
    OwnFonts::takeAll(); // people write in any script
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
    const QPalette palette = m_tokens.palette(m_appearance);
    m_window->setPalette(palette);
    QToolTip::setPalette(palette);
    QToolTip::setFont(font(TypeRole::note));
    m_window->setFont(font(TypeRole::body));
    m_window->update();
}

std::chrono::milliseconds Look::duration(std::chrono::milliseconds wanted) const {
    return m_hasMotion ? wanted : std::chrono::milliseconds(0);
}

QPixmap Look::symbol(const QWidget &widget, const QString &identifier, double size,
                     const QColor &color) const {
    const double ratio = widget.devicePixelRatioF();
    const double stroke = symbolStroke(size / scale());
    const SymbolKey key{identifier,
                        static_cast<int>(std::lround(size * ratio)),
                        thousandths(ratio),
                        thousandths(stroke),
                        color.rgba(),
                        widget.layoutDirection() == Qt::RightToLeft &&
                            pointsSidewaysInLook(identifier)};
    if (const QPixmap *known = m_pictures.object(key)) {
        return *known;
    }
    const QImage mask = m_symbols.mask(identifier, key.pixels, stroke);
    QPixmap made = tinted(key.isMirrored ? mask.mirrored(true, false) : mask, color);
    made.setDevicePixelRatio(ratio);
    const int kilobytes = 1 + made.width() * made.height() * 4 / 1024;
    m_pictures.insert(key, new QPixmap(made), kilobytes);
    return made;
}

void Look::forgetSymbols() {
    m_pictures.clear();
    m_symbols.forget();
}

double symbolStroke(double size) {
    constexpr double thinnedFrom = 28;
    constexpr double thinnestFrom = 56;
    constexpr double thinned = 1.2;
    constexpr double thinnest = 0.8;
    if (size < thinnedFrom) {
        return SymbolLibrary::usualStroke;
    }
    const double part = (size - thinnedFrom) / (thinnestFrom - thinnedFrom);
    return std::lerp(thinned, thinnest, std::min(part, 1.0));
}

double scale() {
    const QFont font = QApplication::font();
    const double points = font.pointSizeF() > 0 ? font.pointSizeF()
                                                : font.pixelSize() * pointsInAnInch / dotsPerInch();
    return points / designPointSize * dotsPerInch() / designDotsPerInch;
}

bool isTextLarge() {
    constexpr int largeFrom = 140; // percent, and fonts are not sized to the last digit
    return std::lround(scale() * 100) >= largeFrom;
}

int scaled(double measure) {
    return static_cast<int>(std::lround(measure * scale()));
}

QMargins directed(const QWidget &widget, double start, double top, double end, double bottom) {
    const QMargins margins(scaled(start), scaled(top), scaled(end), scaled(bottom));
    if (widget.layoutDirection() == Qt::LeftToRight) {
        return margins;
    }
    return {margins.right(), margins.top(), margins.left(), margins.bottom()};
}

QFont font(TypeRole role) {
    const Type type = typeOf(role);
    QFont result = role == TypeRole::fixed ? QFontDatabase::systemFont(QFontDatabase::FixedFont)
                                           : QFont(u"Inter"_s);
    const double pixels = type.size * scale();
    result.setPointSizeF(pixels * pointsInAnInch / dotsPerInch());
    result.setWeight(static_cast<QFont::Weight>(type.weight));
    // The toolkit draws letters at whole pixels only; the text is to be as wide as designed. Each
    // is said, since what a font leaves open comes from the widget above.
    if (type.spacing == 0) {
        const double fitting = pixels / std::max(1.0, std::round(pixels));
        result.setLetterSpacing(QFont::PercentageSpacing,
                                role == TypeRole::fixed ? 100 : 100 * fitting);
    } else {
        result.setLetterSpacing(QFont::AbsoluteSpacing, pixels * type.spacing / 100);
    }
    result.setCapitalization(role == TypeRole::section ? QFont::AllUppercase : QFont::MixedCase);
    result.setHintingPreference(pixels >= unhintedFrom ? QFont::PreferNoHinting
                                                       : QFont::PreferDefaultHinting);
    return result;
}

int lineHeight(TypeRole role) {
    return scaled(typeOf(role).line);
}

} // namespace zeph::ui
