// SPDX-License-Identifier: MIT
#include "drawing/view/Views.h"

namespace zeph {

namespace {

class RoundedRectangle final : public ViewNode {
public:
    RoundedRectangle(double cornerRadius, const Fill &fill)
        : m_cornerRadius(cornerRadius), m_fill(fill) {}

    QSizeF measure(const ProposedSize &proposal, const LayoutContext & /*context*/) const override {
        constexpr double idealSide = 10;
        return {proposal.width.value_or(idealSide), proposal.height.value_or(idealSide)};
    }

    void place(const QRectF &rect, const LayoutContext & /*context*/,
               std::vector<DrawItem> &items) const override {
        items.emplace_back(ShapeItem{rect, m_cornerRadius, m_fill, {}});
    }

private:
    double m_cornerRadius;
    Fill m_fill;
};

class Symbol final : public ViewNode {
public:
    Symbol(QString identifier, double size, const Color &color, double frame)
        : m_identifier(std::move(identifier)), m_size(size), m_color(color), m_frame(frame) {}

    QSizeF measure(const ProposedSize & /*proposal*/,
                   const LayoutContext & /*context*/) const override {
        return {m_frame, m_frame};
    }

    void place(const QRectF &rect, const LayoutContext & /*context*/,
               std::vector<DrawItem> &items) const override {
        // The strokes of a symbol span 20 of the 24 units of the grid that fills the box.
        const double side = m_size * 24 / 20;
        QRectF box(0, 0, side, side);
        box.moveCenter(rect.center());
        items.emplace_back(SymbolItem{m_identifier, m_color, box});
    }

private:
    QString m_identifier;
    double m_size;
    Color m_color;
    double m_frame;
};

class Bar final : public ViewNode {
public:
    Bar(const QSizeF &size, const ShapeItem &track, const ShapeItem &fill)
        : m_size(size), m_track(track), m_fill(fill) {}

    QSizeF measure(const ProposedSize & /*proposal*/,
                   const LayoutContext & /*context*/) const override {
        return m_size;
    }

    void place(const QRectF &rect, const LayoutContext & /*context*/,
               std::vector<DrawItem> &items) const override {
        for (ShapeItem part : {m_track, m_fill}) {
            if (!part.rect.isEmpty()) {
                part.rect.translate(rect.topLeft());
                part.bar->translate(rect.topLeft());
                items.emplace_back(part);
            }
        }
    }

private:
    QSizeF m_size;
    ShapeItem m_track; // relative to the top left of the bar
    ShapeItem m_fill;
};

} // namespace

View roundedRectangle(double cornerRadius, const Fill &fill) {
    return View(std::make_shared<RoundedRectangle>(cornerRadius, fill));
}

View symbol(const QString &identifier, double size, const Color &color, double frame) {
    return View(std::make_shared<Symbol>(identifier, size, color, frame));
}

View bar(const QSizeF &size, double cornerRadius, const Color &track, double fillWidth,
         const Fill &fill) {
    const QRectF whole(QPointF(0, 0), size);
    const QRectF filled(QPointF(0, 0), QSizeF(fillWidth, size.height()));
    return View(std::make_shared<Bar>(size,
                                      ShapeItem{whole, cornerRadius, Fill{track, {}}, {}, whole},
                                      ShapeItem{filled, cornerRadius, fill, {}, whole}));
}

} // namespace zeph
