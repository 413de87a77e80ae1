// SPDX-License-Identifier: MIT
#include "drawing/painting/RandomScenes.h"

#include <QBuffer>
#include <QImage>

#include <array>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

QByteArray encodedPicture() {
    QImage picture(30, 20, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            picture.setPixel(x, y, qRgb(8 * x, 12 * y, 90));
        }
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return bytes;
}

} // namespace

TextItem RandomScenes::text() {
    const std::array<QString, 8> texts{u"CPU is resting at 4%"_s,
                                       u"12:47"_s,
                                       u"AVAW fjg “—”"_s,
                                       u"日本語の名前"_s,
                                       u"שלום"_s,
                                       u"🎉 party"_s,
                                       u"Ünïcödé g̈"_s,
                                       u"1111111"_s};
    TextItem item;
    item.text = texts.at(static_cast<std::size_t>(below(8)));
    item.style.font.size =
        std::array<double, 5>{11, 13, 17, 21, 84}.at(static_cast<std::size_t>(below(5)));
    item.style.font.weight = static_cast<FontWeight>(below(5));
    item.style.font.design = static_cast<FontDesign>(below(2));
    item.style.font.italic = below(4) == 0;
    item.style.font.evenDigits = below(2) == 0;
    item.style.font.letterSpacing = below(4) == 0 ? 1.5 : 0;
    item.style.color = color();
    if (below(4) == 0) {
        item.style.shadow = TextShadow{Color::black(0.25), 12, 4};
    }
    item.origin = point();
    item.scale = std::array<double, 3>{1, 0.85, 1.3}.at(static_cast<std::size_t>(below(3)));
    return item;
}

ShapeItem RandomScenes::shape() {
    ShapeItem item;
    const double side = below(3) == 0 ? 9 : 9 + below(150);
    item.rect = QRectF(point(), QSizeF(side, below(2) == 0 ? side : 8 + part()));
    item.cornerRadius = below(14);
    item.fill = Fill{color(), {}};
    if (below(3) == 0) {
        item.fill->end = color();
    }
    if (below(4) == 0) {
        item.outline = color();
    }
    if (below(4) == 0) {
        item.bar = item.rect.adjusted(-below(3), 0, below(90), 0);
    }
    return item;
}

ImageItem RandomScenes::picture() {
    return {encodedPicture(), QRectF(point(), QSizeF(60 + below(40), 40)), 12};
}

DrawItem RandomScenes::item() {
    switch (below(6)) {
    case 0:
    case 1:
        return text();
    case 2: {
        const double side = 10 + part() * 12;
        return SymbolItem{below(2) == 0 ? u"sun.max"_s : u"unknown"_s, color(),
                          QRectF(point(), QSizeF(side, side))};
    }
    case 3:
        return picture();
    default:
        return shape();
    }
}

AmbientBackground RandomScenes::backdrop() {
    return AmbientBackground::still(Palette::forMood(part(), FocusState::off));
}

Scene RandomScenes::scene() {
    Scene scene;
    if (below(3) > 0) {
        scene.backdrop = backdrop();
    }
    const int count = 5 + below(20);
    for (int at = 0; at < count; ++at) {
        scene.items.push_back(item());
    }
    return scene;
}

void RandomScenes::change(Scene &scene) {
    const auto index = [&] { return below(static_cast<int>(scene.items.size())); };
    const int changes = 1 + below(3);
    for (int at = 0; at < changes; ++at) {
        if (scene.items.size() < 3 || below(5) == 0) {
            scene.items.insert(
                scene.items.begin() + below(static_cast<int>(scene.items.size()) + 1), item());
            continue;
        }
        const auto one = scene.items.begin() + index();
        switch (below(5)) {
        case 0:
            scene.items.erase(one);
            break;
        case 1:
            std::iter_swap(one, scene.items.begin() + index());
            break;
        case 2:
            if (auto *text = std::get_if<TextItem>(&*one)) {
                text->style.color = color();
                text->origin.rx() += part();
            }
            break;
        default:
            *one = item();
        }
    }
    if (below(15) == 0) {
        scene.backdrop = backdrop();
    }
}

} // namespace zeph
