// SPDX-License-Identifier: MIT
#include "drawing/view/Views.h"

#include <QBuffer>
#include <QImageReader>

namespace zeph {

namespace {

class ImageView final : public ViewNode {
public:
    ImageView(QByteArray encoded, const QSizeF &size, double cornerRadius, const Color &outline)
        : m_encoded(std::move(encoded)),
          m_size(size),
          m_cornerRadius(cornerRadius),
          m_outline(outline) {}

    QSizeF measure(const ProposedSize & /*proposal*/,
                   const LayoutContext & /*context*/) const override {
        return m_size;
    }

    void place(const QRectF &rect, const LayoutContext & /*context*/,
               std::vector<DrawItem> &items) const override {
        const QRectF frame(rect.topLeft(), m_size);
        items.emplace_back(ImageItem{m_encoded, frame, m_cornerRadius});
        items.emplace_back(ShapeItem{frame, m_cornerRadius, {}, m_outline});
    }

private:
    QByteArray m_encoded;
    QSizeF m_size;
    double m_cornerRadius;
    Color m_outline;
};

/// Reads the header alone: this runs at each redraw.
bool isPicture(const QByteArray &encoded) {
    QBuffer buffer;
    buffer.setData(encoded);
    QImageReader reader(&buffer);
    return reader.canRead() && !reader.size().isEmpty();
}

} // namespace

View image(const QByteArray &encoded, const QSizeF &size, double cornerRadius,
           const Color &outline) {
    if (!isPicture(encoded)) {
        return {};
    }
    return View(std::make_shared<ImageView>(encoded, size, cornerRadius, outline));
}

} // namespace zeph
