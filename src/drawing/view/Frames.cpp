// SPDX-License-Identifier: MIT
#include "drawing/view/Alignment.h"
#include "drawing/view/Views.h"

#include <algorithm>

namespace zeph {

namespace {

class Framed final : public ViewNode {
public:
    Framed(View content, const FrameSpec &frame) : m_content(std::move(content)), m_frame(frame) {}

    QSizeF measure(const ProposedSize &proposal, const LayoutContext &context) const override {
        const QSizeF content = m_content.measure(offer(proposal), context);
        return {m_frame.width.value_or(limited(content.width())),
                m_frame.height.value_or(content.height())};
    }

    void place(const QRectF &rect, const LayoutContext &context,
               std::vector<DrawItem> &items) const override {
        const QSizeF size = m_content.measure(offer({rect.width(), rect.height()}), context);
        const QPointF offset(alignedOffset(m_frame.horizontal, rect.width() - size.width()),
                             alignedOffset(m_frame.vertical, rect.height() - size.height()));
        m_content.place(QRectF(rect.topLeft() + offset, size), context, items);
    }

private:
    double limited(double width) const {
        return m_frame.maxWidth ? std::min(width, *m_frame.maxWidth) : width;
    }

    ProposedSize offer(const ProposedSize &proposal) const {
        ProposedSize offered = proposal;
        if (m_frame.width) {
            offered.width = m_frame.width;
        } else if (m_frame.maxWidth) {
            offered.width = limited(proposal.width.value_or(*m_frame.maxWidth));
        }
        if (m_frame.height) {
            offered.height = m_frame.height;
        }
        return offered;
    }

    View m_content;
    FrameSpec m_frame;
};

class Padded final : public ViewNode {
public:
    Padded(View content, const Padding &padding)
        : m_content(std::move(content)), m_padding(padding) {}

    QSizeF measure(const ProposedSize &proposal, const LayoutContext &context) const override {
        ProposedSize offered;
        if (proposal.width) {
            offered.width = std::max(0.0, *proposal.width - 2 * m_padding.horizontal);
        }
        if (proposal.height) {
            offered.height = std::max(0.0, *proposal.height - 2 * m_padding.vertical);
        }
        const QSizeF content = m_content.measure(offered, context);
        return {content.width() + 2 * m_padding.horizontal,
                content.height() + 2 * m_padding.vertical};
    }

    void place(const QRectF &rect, const LayoutContext &context,
               std::vector<DrawItem> &items) const override {
        const QSizeF inner(std::max(0.0, rect.width() - 2 * m_padding.horizontal),
                           std::max(0.0, rect.height() - 2 * m_padding.vertical));
        const QPointF offset(m_padding.horizontal, m_padding.vertical);
        m_content.place(QRectF(rect.topLeft() + offset, inner), context, items);
    }

private:
    View m_content;
    Padding m_padding;
};

class OnCard final : public ViewNode {
public:
    OnCard(View content, double cornerRadius, const Color &fill)
        : m_content(std::move(content)), m_cornerRadius(cornerRadius), m_fill(fill) {}

    QSizeF measure(const ProposedSize &proposal, const LayoutContext &context) const override {
        return m_content.measure(proposal, context);
    }

    void place(const QRectF &rect, const LayoutContext &context,
               std::vector<DrawItem> &items) const override {
        items.emplace_back(ShapeItem{rect, m_cornerRadius, Fill{m_fill, {}}, {}});
        m_content.place(rect, context, items);
    }

private:
    View m_content;
    double m_cornerRadius;
    Color m_fill;
};

} // namespace

View framed(View content, const FrameSpec &frame) {
    return View(std::make_shared<Framed>(std::move(content), frame));
}

View padded(View content, const Padding &padding) {
    return View(std::make_shared<Padded>(std::move(content), padding));
}

View onCard(View content, double cornerRadius, const Color &fill) {
    return View(std::make_shared<OnCard>(std::move(content), cornerRadius, fill));
}

} // namespace zeph
