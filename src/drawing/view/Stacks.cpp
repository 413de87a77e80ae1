// SPDX-License-Identifier: MIT
#include "drawing/view/Alignment.h"
#include "drawing/view/Views.h"

#include <algorithm>
#include <numeric>

namespace zeph {

namespace {

double gaps(double spacing, std::size_t count) {
    return count > 1 ? spacing * static_cast<double>(count - 1) : 0;
}

class VerticalStack final : public ViewNode {
public:
    VerticalStack(double spacing, std::vector<View> children, HorizontalAlignment alignment)
        : m_spacing(spacing), m_children(std::move(children)), m_alignment(alignment) {}

    QSizeF measure(const ProposedSize &proposal, const LayoutContext &context) const override {
        QSizeF size(0, gaps(m_spacing, m_children.size()));
        for (const View &child : m_children) {
            const QSizeF taken = child.measure({proposal.width, {}}, context);
            size = {std::max(size.width(), taken.width()), size.height() + taken.height()};
        }
        return size;
    }

    void place(const QRectF &rect, const LayoutContext &context,
               std::vector<DrawItem> &items) const override {
        double top = rect.top();
        for (const View &child : m_children) {
            const QSizeF taken = child.measure({rect.width(), {}}, context);
            const double left =
                rect.left() + alignedOffset(m_alignment, rect.width() - taken.width());
            child.place(QRectF(QPointF(left, top), taken), context, items);
            top += taken.height() + m_spacing;
        }
    }

private:
    double m_spacing;
    std::vector<View> m_children;
    HorizontalAlignment m_alignment;
};

class HorizontalStack final : public ViewNode {
public:
    HorizontalStack(double spacing, std::vector<View> children, VerticalAlignment alignment)
        : m_spacing(spacing), m_children(std::move(children)), m_alignment(alignment) {}

    QSizeF measure(const ProposedSize &proposal, const LayoutContext &context) const override {
        QSizeF size(gaps(m_spacing, m_children.size()), 0);
        for (const QSizeF &taken : sizes(proposal.width, context)) {
            size = {size.width() + taken.width(), std::max(size.height(), taken.height())};
        }
        return size;
    }

    void place(const QRectF &rect, const LayoutContext &context,
               std::vector<DrawItem> &items) const override {
        const std::vector<QSizeF> taken = sizes(rect.width(), context);
        double left = rect.left();
        for (std::size_t at = 0; at < m_children.size(); ++at) {
            const double top =
                rect.top() + alignedOffset(m_alignment, rect.height() - taken[at].height());
            m_children[at].place(QRectF(QPointF(left, top), taken[at]), context, items);
            left += taken[at].width() + m_spacing;
        }
    }

private:
    /// Ideal sizes when they fit; otherwise the least flexible children choose first and the
    /// others share what is left, so that a long text gives way to icons and fixed frames.
    std::vector<QSizeF> sizes(std::optional<double> width, const LayoutContext &context) const {
        std::vector<QSizeF> taken;
        double room = width.value_or(0) - gaps(m_spacing, m_children.size());
        double wanted = 0;
        for (const View &child : m_children) {
            taken.push_back(child.measure({}, context));
            wanted += taken.back().width();
        }
        constexpr double rounding = 1e-6; // sums of the same widths in another order
        if (!width || wanted <= room + rounding) {
            return taken;
        }
        const std::vector<std::size_t> order = leastFlexibleFirst(taken, context);
        for (std::size_t nth = 0; nth < order.size(); ++nth) {
            const std::size_t child = order[nth];
            const double share = std::max(room, 0.0) / static_cast<double>(order.size() - nth);
            if (share < taken[child].width()) {
                taken[child] = m_children[child].measure({share, {}}, context);
            }
            room -= taken[child].width();
        }
        return taken;
    }

    std::vector<std::size_t> leastFlexibleFirst(const std::vector<QSizeF> &ideal,
                                                const LayoutContext &context) const {
        std::vector<double> flexibility;
        for (std::size_t at = 0; at < ideal.size(); ++at) {
            const double least = m_children[at].measure({0.0, {}}, context).width();
            flexibility.push_back(ideal[at].width() - least);
        }
        std::vector<std::size_t> order(ideal.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::stable_sort(order.begin(), order.end(), [&](std::size_t one, std::size_t other) {
            return flexibility[one] < flexibility[other];
        });
        return order;
    }

    double m_spacing;
    std::vector<View> m_children;
    VerticalAlignment m_alignment;
};

} // namespace

View verticalStack(double spacing, std::vector<View> children, HorizontalAlignment alignment) {
    dropEmptyViews(children);
    if (children.empty()) {
        return {};
    }
    return View(std::make_shared<VerticalStack>(spacing, std::move(children), alignment));
}

View horizontalStack(double spacing, std::vector<View> children, VerticalAlignment alignment) {
    dropEmptyViews(children);
    if (children.empty()) {
        return {};
    }
    return View(std::make_shared<HorizontalStack>(spacing, std::move(children), alignment));
}

} // namespace zeph
