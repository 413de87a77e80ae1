// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/view/Views.h"
#include "support/FixedTextMetrics.h"

#include <gtest/gtest.h>

namespace zeph {

/// Measures and places views with characters 10 points wide; a font of 10 points is 12 high.
class ViewFixture : public testing::Test {
protected:
    static TextStyle plain() {
        TextStyle style;
        style.font.size = 10;
        return style;
    }

    /// A view of fixed size that draws one shape as large as what it is placed into.
    static View box(double width, double height) {
        FrameSpec frame;
        frame.width = width;
        frame.height = height;
        return framed(roundedRectangle(0, Fill{Color::white(), {}}), frame);
    }

    QSizeF measure(const View &view, const ProposedSize &proposal = {}) const {
        return view.measure(proposal, {metrics});
    }

    std::vector<DrawItem> place(const View &view, const QRectF &rect) const {
        std::vector<DrawItem> items;
        view.place(rect, {metrics}, items);
        return items;
    }

    std::vector<QRectF> shapes(const View &view, const QRectF &rect) const {
        std::vector<QRectF> rects;
        for (const DrawItem &item : place(view, rect)) {
            if (const auto *shape = std::get_if<ShapeItem>(&item)) {
                rects.push_back(shape->rect);
            }
        }
        return rects;
    }

    std::vector<TextItem> texts(const View &view, const QRectF &rect) const {
        std::vector<TextItem> found;
        for (const DrawItem &item : place(view, rect)) {
            if (const auto *text = std::get_if<TextItem>(&item)) {
                found.push_back(*text);
            }
        }
        return found;
    }

    FixedTextMetrics metrics;
};

} // namespace zeph
