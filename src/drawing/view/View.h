// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/scene/DrawItem.h"

#include <QSizeF>

#include <memory>
#include <optional>
#include <vector>

namespace zeph {

class TextMetrics;

/// What a parent offers a view: a width, a height, both or neither. Absent means "your ideal".
struct ProposedSize {
    std::optional<double> width;
    std::optional<double> height;
};

/// What a node needs to measure: shaped text.
struct LayoutContext {
    const TextMetrics &metrics;
};

/// One kind of view. Immutable, so a `View` can be copied freely.
class ViewNode {
public:
    ViewNode() = default;
    virtual ~ViewNode() = default;
    ViewNode(const ViewNode &) = delete;
    ViewNode &operator=(const ViewNode &) = delete;

    virtual QSizeF measure(const ProposedSize &proposal, const LayoutContext &context) const = 0;

    /// Appends the draw items of this view, placed with its top left at `rect`'s and laid out for
    /// `rect`'s size.
    virtual void place(const QRectF &rect, const LayoutContext &context,
                       std::vector<DrawItem> &items) const = 0;
};

/// A value tree of text, symbols, bars and stacks that knows how to measure and place itself.
class View {
public:
    /// The empty view: no size, draws nothing.
    View();
    explicit View(std::shared_ptr<const ViewNode> node) : m_node(std::move(node)) {}

    /// True for the empty view only: stacks and layouts leave it out, its spacing too.
    bool isEmpty() const { return m_node == nullptr; }

    QSizeF measure(const ProposedSize &proposal, const LayoutContext &context) const;
    void place(const QRectF &rect, const LayoutContext &context,
               std::vector<DrawItem> &items) const;

private:
    std::shared_ptr<const ViewNode> m_node; // shared: copies of an immutable tree cost nothing
};

/// Takes the empty views out of `views`.
void dropEmptyViews(std::vector<View> &views);

} // namespace zeph
