// SPDX-License-Identifier: MIT
#include "drawing/view/WallpaperStackLayout.h"

#include <algorithm>

namespace zeph {

namespace {

class WallpaperStack final : public ViewNode {
public:
    WallpaperStack(const WallpaperStackLayout &layout, std::vector<View> children)
        : m_layout(layout), m_children(std::move(children)) {}

    QSizeF measure(const ProposedSize & /*proposal*/, const LayoutContext &context) const override {
        return m_layout.arrange(idealSizes(context)).size;
    }

    void place(const QRectF &rect, const LayoutContext &context,
               std::vector<DrawItem> &items) const override {
        const std::vector<QSizeF> ideal = idealSizes(context);
        const auto arrangement = m_layout.arrange(ideal);
        for (std::size_t at = 0; at < m_children.size(); ++at) {
            const QPointF corner = rect.topLeft() + arrangement.frames[at].topLeft();
            m_children[at].place(QRectF(corner, ideal[at]), context, items);
        }
    }

private:
    std::vector<QSizeF> idealSizes(const LayoutContext &context) const {
        std::vector<QSizeF> sizes;
        sizes.reserve(m_children.size());
        for (const View &child : m_children) {
            sizes.push_back(child.measure({}, context));
        }
        return sizes;
    }

    WallpaperStackLayout m_layout;
    std::vector<View> m_children;
};

} // namespace

WallpaperStackLayout::Arrangement
WallpaperStackLayout::arrange(const std::vector<QSizeF> &sizes) const {
    if (sizes.empty()) {
        return {QSizeF(0, 0), {}};
    }
    const QSizeF anchor = anchorsLast ? sizes.back() : QSizeF(0, 0);
    const double reserved = anchor.height() > 0 ? anchor.height() + rowSpacing : 0;
    const std::size_t flowing = anchorsLast ? sizes.size() - 1 : sizes.size();

    Arrangement result;
    double limit = std::max(maxHeight - reserved, 1.0); // only the first column makes room
    double left = 0;
    double bottom = 0;
    double columnWidth = anchor.width();
    double totalWidth = anchor.width();
    double lowest = 0;
    for (std::size_t at = 0; at < flowing; ++at) {
        const double width = sizes[at].width();
        const double height = std::max(sizes[at].height(), 1.0);
        if (bottom > 0 && limit < bottom + rowSpacing + height) {
            left += columnWidth + columnSpacing;
            bottom = 0;
            columnWidth = 0;
            limit = maxHeight;
        } else if (bottom > 0) {
            bottom += rowSpacing;
        }
        result.frames.emplace_back(left, bottom, width, height);
        columnWidth = std::max(columnWidth, width);
        bottom += height;
        lowest = std::max(lowest, bottom);
        totalWidth = std::max(totalWidth, left + columnWidth);
    }
    if (anchorsLast) {
        const double top = std::max(0.0, maxHeight - anchor.height());
        result.frames.emplace_back(QPointF(0, top), anchor);
    }
    result.size = QSizeF(totalWidth, anchorsLast ? maxHeight : lowest);
    return result;
}

View wallpaperStack(const WallpaperStackLayout &layout, std::vector<View> children) {
    WallpaperStackLayout kept = layout;
    // An anchor that draws nothing must not hand its corner to the view before it.
    kept.anchorsLast = layout.anchorsLast && !children.empty() && !children.back().isEmpty();
    dropEmptyViews(children);
    return View(std::make_shared<WallpaperStack>(kept, std::move(children)));
}

} // namespace zeph
