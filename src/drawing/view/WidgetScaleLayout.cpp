// SPDX-License-Identifier: MIT
#include "drawing/view/WidgetScaleLayout.h"

#include "drawing/view/ScaledItems.h"

#include <cmath>

namespace zeph {

namespace {

class ScaledWidget final : public ViewNode {
public:
    ScaledWidget(const WidgetScaleLayout &layout, View content)
        : m_layout(layout), m_content(std::move(content)) {}

    QSizeF measure(const ProposedSize & /*proposal*/, const LayoutContext &context) const override {
        const QSizeF natural = m_content.measure({m_layout.baseWidth, {}}, context);
        return {std::ceil(natural.width() * m_layout.scale),
                std::ceil(natural.height() * m_layout.scale)};
    }

    void place(const QRectF &rect, const LayoutContext &context,
               std::vector<DrawItem> &items) const override {
        const std::size_t first = items.size();
        const QSizeF natural = m_content.measure({m_layout.baseWidth, {}}, context);
        m_content.place(QRectF(rect.topLeft(), natural), context, items);
        for (std::size_t at = first; at < items.size(); ++at) {
            scaleAbout(rect.topLeft(), m_layout.scale, items[at]);
        }
    }

private:
    WidgetScaleLayout m_layout;
    View m_content;
};

} // namespace

View scaledWidget(const WidgetScaleLayout &layout, View content) {
    if (content.isEmpty()) {
        return content; // nothing takes no room in any size
    }
    return View(std::make_shared<ScaledWidget>(layout, std::move(content)));
}

} // namespace zeph
