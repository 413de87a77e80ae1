// SPDX-License-Identifier: MIT
#include "resources/SymbolIdentifiers.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSet>
#include <QSvgRenderer>
#include <QXmlStreamReader>

#include <algorithm>
#include <cstdlib>
#include <vector>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {
namespace {

constexpr int gridUnits = 24;
constexpr int marginUnits = 2;
constexpr int rowSize = 15;
constexpr int largeSize = 48;
/// Curves are drawn by approximation: a fiftieth of a pixel may pass the margin.
constexpr int marginTolerance = 255 / 50;

QString pathOf(const char *identifier) {
    return u":/symbols/"_s + QLatin1StringView(identifier) + u".svg"_s;
}

/// The coverage of the drawing, 0 to 255 a pixel; an identifier without a drawing gives no ink.
/// It is drawn larger and reduced, since a pen of up to one pixel is drawn as a hairline whose
/// ends overshoot.
QImage inkOf(const char *identifier, int size) {
    constexpr int enlargement = 4;
    const int side = enlargement * size;
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QSvgRenderer renderer(pathOf(identifier));
    renderer.render(&painter, QRectF(0, 0, side, side));
    painter.end();
    return image.scaled(size, size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_Alpha8);
}

int coverage(const QImage &ink, int x, int y) {
    return ink.constScanLine(y)[x];
}

/// The ink in whole pixels, half covered ones counting half.
double amountOf(const QImage &ink) {
    double sum = 0;
    for (int y = 0; y < ink.height(); ++y) {
        for (int x = 0; x < ink.width(); ++x) {
            sum += coverage(ink, x, y) / 255.0;
        }
    }
    return sum;
}

/// How far two drawings of one size differ, in whole pixels.
double differenceOf(const QImage &one, const QImage &other) {
    double sum = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            sum += std::abs(coverage(one, x, y) - coverage(other, x, y)) / 255.0;
        }
    }
    return sum;
}

/// The strongest coverage among the pixels that lie wholly in the margin of the grid.
int strongestMarginPixel(const QImage &ink) {
    const int margin = ink.width() * marginUnits / gridUnits;
    const QRect inner = ink.rect().adjusted(margin, margin, -margin, -margin);
    int strongest = 0;
    for (int y = 0; y < ink.height(); ++y) {
        for (int x = 0; x < ink.width(); ++x) {
            if (!inner.contains(x, y)) {
                strongest = std::max(strongest, coverage(ink, x, y));
            }
        }
    }
    return strongest;
}

/// The smallest rectangle around the pixels that are at least half covered.
QRect boundsOf(const QImage &ink) {
    QRect bounds;
    for (int y = 0; y < ink.height(); ++y) {
        for (int x = 0; x < ink.width(); ++x) {
            if (coverage(ink, x, y) >= 128) {
                bounds |= QRect(x, y, 1, 1);
            }
        }
    }
    return bounds;
}

/// Into how many parts the ink falls, by pixels that are at least a quarter covered.
int separateParts(QImage ink) {
    constexpr int least = 64;
    int parts = 0;
    for (int y = 0; y < ink.height(); ++y) {
        for (int x = 0; x < ink.width(); ++x) {
            if (coverage(ink, x, y) < least) {
                continue;
            }
            ++parts;
            std::vector<QPoint> pending{{x, y}};
            while (!pending.empty()) {
                const QPoint at = pending.back();
                pending.pop_back();
                if (!ink.rect().contains(at) || coverage(ink, at.x(), at.y()) < least) {
                    continue;
                }
                ink.scanLine(at.y())[at.x()] = 0;
                for (const QPoint step :
                     {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1), QPoint(1, 1),
                      QPoint(-1, -1), QPoint(1, -1), QPoint(-1, 1)}) {
                    pending.push_back(at + step);
                }
            }
        }
    }
    return parts;
}

/// Checks one element of a drawing: a plain shape, in black, with the stroke of the family.
void expectFamilyStyle(const QXmlStreamReader &reader) {
    static const QSet<QString> shapes{u"path"_s, u"circle"_s,   u"rect"_s,
                                      u"line"_s, u"polyline"_s, u"ellipse"_s};
    const QXmlStreamAttributes attributes = reader.attributes();
    if (reader.name() == u"svg") {
        EXPECT_EQ(attributes.value(u"viewBox"_s), u"0 0 24 24");
        EXPECT_EQ(attributes.value(u"stroke-width"_s), u"1.5");
        EXPECT_EQ(attributes.value(u"stroke-linecap"_s), u"round");
        EXPECT_EQ(attributes.value(u"stroke-linejoin"_s), u"round");
        return;
    }
    EXPECT_TRUE(shapes.contains(reader.name().toString())) << reader.name().toUtf8().constData();
    EXPECT_FALSE(attributes.hasAttribute(u"stroke-width"_s));
    for (const QString &paint : {u"fill"_s, u"stroke"_s}) {
        if (attributes.hasAttribute(paint)) {
            const QStringView colour = attributes.value(paint);
            EXPECT_TRUE(colour == u"#000" || colour == u"none") << colour.toUtf8().constData();
        }
    }
}

TEST(Symbols, everyIdentifierHasADrawing) {
    for (const char *identifier : symbolIdentifiers) {
        EXPECT_TRUE(QSvgRenderer(pathOf(identifier)).isValid()) << identifier;
    }
}

TEST(Symbols, theFolderHoldsOneFileForEachIdentifierAndNothingElse) {
    QStringList expected;
    for (const char *identifier : symbolIdentifiers) {
        expected += QLatin1StringView(identifier) + u".svg"_s;
    }
    expected.sort();
    const QDir::Filters everything = QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot;
    for (const QString &folder : {QStringLiteral(ZEPH_RESOURCES "/symbols"), u":/symbols"_s}) {
        QStringList found = QDir(folder).entryList(everything);
        found.sort();
        EXPECT_EQ(found, expected) << qPrintable(folder);
    }
}

TEST(Symbols, everyDrawingKeepsToTheGridAndTheStrokeOfTheFamily) {
    for (const char *identifier : symbolIdentifiers) {
        SCOPED_TRACE(identifier);
        QFile file(pathOf(identifier));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        QXmlStreamReader reader(&file);
        int elements = 0;
        while (!reader.atEnd()) {
            if (reader.readNext() == QXmlStreamReader::StartElement) {
                expectFamilyStyle(reader);
                ++elements;
            }
        }
        EXPECT_FALSE(reader.hasError()) << qPrintable(reader.errorString());
        EXPECT_GE(elements, 2);
    }
}

TEST(Symbols, everyDrawingHasInkInsideTheMarginAtEverySize) {
    for (const char *identifier : symbolIdentifiers) {
        for (const int size : {rowSize, largeSize}) {
            const QImage ink = inkOf(identifier, size);
            EXPECT_GT(amountOf(ink), 0.025 * size * size) << identifier << " at " << size;
            EXPECT_LE(strongestMarginPixel(ink), marginTolerance) << identifier << " at " << size;
        }
    }
}

TEST(Symbols, everyDrawingStandsInTheMiddleOfTheGrid) {
    for (const char *identifier : symbolIdentifiers) {
        const QRectF bounds(boundsOf(inkOf(identifier, largeSize)));
        const QPointF offset = bounds.center() - QPointF(largeSize, largeSize) / 2;
        EXPECT_LE(std::abs(offset.x()), largeSize / 16.0) << identifier;
        EXPECT_LE(std::abs(offset.y()), largeSize / 16.0) << identifier;
    }
}

TEST(Symbols, noTwoDrawingsLookAlikeInARow) {
    std::vector<QImage> inks;
    inks.reserve(symbolIdentifiers.size());
    for (const char *identifier : symbolIdentifiers) {
        inks.push_back(inkOf(identifier, rowSize));
    }
    const auto areOne = [](const char *one, const char *other) {
        return QByteArray(one) == "chevron.forward" && QByteArray(other) == "chevron.right";
    };
    for (std::size_t i = 0; i < inks.size(); ++i) {
        for (std::size_t j = i + 1; j < inks.size(); ++j) {
            if (areOne(symbolIdentifiers[i], symbolIdentifiers[j])) {
                continue;
            }
            EXPECT_GT(differenceOf(inks[i], inks[j]), 4.0)
                << symbolIdentifiers[i] << " and " << symbolIdentifiers[j];
        }
    }
}

TEST(Symbols, aFilledDrawingHasTheSilhouetteOfTheOpenOne) {
    for (const char *open :
         {"chart.bar", "checkmark.circle", "cloud", "cloud.sun", "moon.stars", "sun.max"}) {
        const QByteArray filled = QByteArray(open) + ".fill";
        const QImage openInk = inkOf(open, largeSize);
        const QImage filledInk = inkOf(filled.constData(), largeSize);
        EXPECT_EQ(boundsOf(openInk), boundsOf(filledInk)) << open;
        EXPECT_GT(amountOf(filledInk), 1.2 * amountOf(openInk)) << open;
    }
}

TEST(Symbols, forwardIsToTheRight) {
    EXPECT_EQ(inkOf("chevron.forward", largeSize), inkOf("chevron.right", largeSize));
}

TEST(Symbols, bothSidesOfTheGlobeAreDrawnInLines) {
    for (const char *globe : {"globe", "globe.americas"}) {
        QFile file(pathOf(globe));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_FALSE(file.readAll().contains("fill=\"#000\"")) << globe;
    }
}

TEST(Symbols, theSlashStandsFreeOfTheArrowThatItCuts) {
    EXPECT_EQ(separateParts(inkOf("location", largeSize)), 1);
    EXPECT_EQ(separateParts(inkOf("location.slash", largeSize)), 4);
}

TEST(Symbols, theSlashStandsFreeOfTheEyeThatItCuts) {
    EXPECT_EQ(separateParts(inkOf("eye", largeSize)), 2);
    EXPECT_EQ(separateParts(inkOf("eye.slash", largeSize)), 5);
}

TEST(Symbols, anIdentifierWithoutADrawingGivesNoInk) {
    EXPECT_FALSE(QFile::exists(pathOf("no.such.symbol")));
    EXPECT_EQ(amountOf(inkOf("no.such.symbol", rowSize)), 0.0);
}

} // namespace
} // namespace zeph
