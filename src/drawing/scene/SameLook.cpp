// SPDX-License-Identifier: MIT
#include "drawing/scene/SameLook.h"

#include <QHashFunctions>

namespace zeph {

namespace {

bool same(const Color &one, const Color &other) {
    return one.argb() == other.argb();
}

template <typename Value>
bool same(const std::optional<Value> &one, const std::optional<Value> &other);

bool same(const Fill &one, const Fill &other) {
    return same(one.start, other.start) && same(one.end, other.end);
}

bool same(const TextShadow &one, const TextShadow &other) {
    return one.radius == other.radius && one.offsetY == other.offsetY &&
           same(one.color, other.color);
}

bool same(const AmbientBackground &one, const AmbientBackground &other) {
    return same(one.top, other.top) && same(one.bottom, other.bottom) &&
           same(one.accent, other.accent) && one.time == other.time && one.energy == other.energy;
}

template <typename Value>
bool same(const std::optional<Value> &one, const std::optional<Value> &other) {
    return one.has_value() == other.has_value() && (!one || same(*one, *other));
}

bool same(const TextItem &one, const TextItem &other) {
    return one.origin == other.origin && one.scale == other.scale && one.text == other.text &&
           one.style.font == other.style.font && same(one.style.color, other.style.color) &&
           same(one.style.shadow, other.style.shadow);
}

bool same(const SymbolItem &one, const SymbolItem &other) {
    return one.box == other.box && one.identifier == other.identifier &&
           same(one.color, other.color);
}

bool same(const ShapeItem &one, const ShapeItem &other) {
    return one.rect == other.rect && one.bar == other.bar &&
           one.cornerRadius == other.cornerRadius && same(one.fill, other.fill) &&
           same(one.outline, other.outline);
}

bool same(const ImageItem &one, const ImageItem &other) {
    const bool sameBytes = one.encoded.constData() == other.encoded.constData() &&
                           one.encoded.size() == other.encoded.size();
    return one.rect == other.rect && one.cornerRadius == other.cornerRadius &&
           (sameBytes || one.encoded == other.encoded);
}

struct LookHash {
    std::size_t operator()(const TextItem &item) const {
        return qHashMulti(1, item.text, item.origin.x(), item.origin.y(), item.style.color.argb());
    }
    std::size_t operator()(const SymbolItem &item) const {
        return qHashMulti(2, item.identifier, item.box.x(), item.box.y(), item.color.argb());
    }
    std::size_t operator()(const ShapeItem &item) const {
        return qHashMulti(3, item.rect.x(), item.rect.y(), item.rect.width(),
                          item.fill ? item.fill->start.argb() : 0);
    }
    std::size_t operator()(const ImageItem &item) const {
        return qHashMulti(4, item.encoded.size(), item.rect.x(), item.rect.y());
    }
};

} // namespace

bool sameLook(const Color &one, const Color &other) {
    return same(one, other);
}

bool sameLook(const DrawItem &one, const DrawItem &other) {
    return one.index() == other.index() &&
           std::visit(
               [&other](const auto &item) {
                   return same(item, std::get<std::decay_t<decltype(item)>>(other));
               },
               one);
}

bool sameLook(const std::optional<AmbientBackground> &one,
              const std::optional<AmbientBackground> &other) {
    return same(one, other);
}

std::size_t lookHash(const DrawItem &item) {
    return std::visit(LookHash{}, item);
}

} // namespace zeph
