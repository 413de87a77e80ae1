// SPDX-License-Identifier: MIT
#include "drawing/view/FixedColumnFlow.h"

#include <algorithm>

namespace zeph {

namespace {

class ColumnFlow final : public ViewNode {
public:
    ColumnFlow(const FixedColumnFlow &flow, std::vector<View> children)
        : m_flow(flow), m_children(std::move(children)) {}

    QSizeF measure(const ProposedSize & /*proposal*/, const LayoutContext &context) const override {
        if (m_children.empty()) {
            return {0, 0};
        }
        const double width = columnWidth(context);
        const auto across = static_cast<double>(std::min(m_children.size(), columns()));
        double height = 0;
        for (std::size_t first = 0; first < m_children.size(); first += columns()) {
            height += (first > 0 ? m_flow.spacing : 0) + rowHeight(first, width, context);
        }
        return {width * across + m_flow.spacing * (across - 1), height};
    }

    void place(const QRectF &rect, const LayoutContext &context,
               std::vector<DrawItem> &items) const override {
        const double width = columnWidth(context);
        double top = rect.top();
        for (std::size_t first = 0; first < m_children.size(); first += columns()) {
            const double height = rowHeight(first, width, context);
            double left = rect.left();
            for (std::size_t at = first; at < rowEnd(first); ++at) {
                m_children[at].place(QRectF(left, top, width, height), context, items);
                left += width + m_flow.spacing;
            }
            top += height + m_flow.spacing;
        }
    }

private:
    std::size_t columns() const { return static_cast<std::size_t>(std::max(m_flow.columns, 1)); }

    std::size_t rowEnd(std::size_t first) const {
        return std::min(first + columns(), m_children.size());
    }

    double columnWidth(const LayoutContext &context) const {
        if (m_flow.fixedColumnWidth) {
            return *m_flow.fixedColumnWidth;
        }
        double widest = 0;
        for (const View &child : m_children) {
            widest = std::max(widest, child.measure({}, context).width());
        }
        return std::min(widest, m_flow.maxColumnWidth);
    }

    double rowHeight(std::size_t first, double width, const LayoutContext &context) const {
        double tallest = 0;
        for (std::size_t at = first; at < rowEnd(first); ++at) {
            tallest = std::max(tallest, m_children[at].measure({width, {}}, context).height());
        }
        return tallest;
    }

    FixedColumnFlow m_flow;
    std::vector<View> m_children;
};

} // namespace

View columnFlow(const FixedColumnFlow &flow, std::vector<View> children) {
    dropEmptyViews(children);
    return View(std::make_shared<ColumnFlow>(flow, std::move(children)));
}

} // namespace zeph
