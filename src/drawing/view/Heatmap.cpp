// SPDX-License-Identifier: MIT
#include "drawing/view/Views.h"

#include <algorithm>

namespace zeph {

namespace {

constexpr double cellRadius = 2;

class Heatmap final : public ViewNode {
public:
    Heatmap(std::vector<std::vector<Color>> columns, double cell, double gap)
        : m_columns(std::move(columns)), m_cell(cell), m_gap(gap) {}

    QSizeF measure(const ProposedSize & /*proposal*/,
                   const LayoutContext & /*context*/) const override {
        std::size_t tallest = 0;
        for (const auto &column : m_columns) {
            tallest = std::max(tallest, column.size());
        }
        return {extent(m_columns.size()), extent(tallest)};
    }

    void place(const QRectF &rect, const LayoutContext & /*context*/,
               std::vector<DrawItem> &items) const override {
        QPointF corner = rect.topLeft();
        for (const auto &column : m_columns) {
            corner.setY(rect.top());
            for (const Color &color : column) {
                if (color.alpha > 0) {
                    const QRectF square(corner, QSizeF(m_cell, m_cell));
                    items.emplace_back(ShapeItem{square, cellRadius, Fill{color, {}}, {}});
                }
                corner.ry() += m_cell + m_gap;
            }
            corner.rx() += m_cell + m_gap;
        }
    }

private:
    double extent(std::size_t count) const {
        return count == 0 ? 0 : static_cast<double>(count) * (m_cell + m_gap) - m_gap;
    }

    std::vector<std::vector<Color>> m_columns;
    double m_cell;
    double m_gap;
};

} // namespace

View heatmap(const std::vector<std::vector<Color>> &columns, double cell, double gap) {
    return View(std::make_shared<Heatmap>(columns, cell, gap));
}

} // namespace zeph
