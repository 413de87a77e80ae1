// SPDX-License-Identifier: MIT
#include "drawing/view/View.h"

namespace zeph {

View::View() = default;

QSizeF View::measure(const ProposedSize &proposal, const LayoutContext &context) const {
    return m_node ? m_node->measure(proposal, context) : QSizeF(0, 0);
}

void View::place(const QRectF &rect, const LayoutContext &context,
                 std::vector<DrawItem> &items) const {
    if (m_node) {
        m_node->place(rect, context, items);
    }
}

void dropEmptyViews(std::vector<View> &views) {
    std::erase_if(views, [](const View &view) { return view.isEmpty(); });
}

} // namespace zeph
