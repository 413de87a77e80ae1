// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/view/WallpaperStackLayout.h"
#include "model/SimpleIntegrationStats.h"
#include "settings/WidgetKind.h"
#include "widgets/WidgetContext.h"

#include <QSizeF>

#include <set>
#include <variant>
#include <vector>

namespace zeph {

/// The widgets of the wallpaper, flowing down in columns with the clock in the bottom-left corner.
class WallpaperContentView {
public:
    /// One widget of the flow.
    struct WidgetRow {
        WidgetKind kind;
        bool operator==(const WidgetRow &) const = default;
    };
    /// Adjacent integration cards, which share one block.
    struct IntegrationCardsRow {
        std::vector<WidgetKind> kinds;
        bool operator==(const IntegrationCardsRow &) const = default;
    };
    /// One card of such a block.
    struct IntegrationCardItem {
        WidgetKind kind;
        SimpleIntegrationStats stats;
        bool operator==(const IntegrationCardItem &) const = default;
    };
    using FlowRow = std::variant<WidgetRow, IntegrationCardsRow>;

    /// `available` is the size of the content area, in points.
    WallpaperContentView(const WidgetContext &context, const QSizeF &available)
        : m_context(context), m_available(available) {}

    static std::vector<FlowRow> flowRows(const std::vector<WidgetKind> &kinds);

    /// All of `kinds`, which stand in the order of the flow; the clock leaves it for its corner.
    View body(const std::vector<WidgetKind> &kinds) const;

    /// The widgets of `kinds` that the content area has no room for, whole or in part, in order.
    std::vector<WidgetKind> cutOff(const std::vector<WidgetKind> &kinds,
                                   const LayoutContext &layout) const;

    /// The records that the cards of `kinds` show, kind by kind; those of a provider whose key is
    /// excluded are left out.
    std::vector<IntegrationCardItem>
    integrationCardStats(const std::vector<WidgetKind> &kinds,
                         const std::set<QString> &excludedKeys) const;

    View integrationCard(const IntegrationCardItem &item) const;

    /// One row; the results of integrations whose key is excluded are left out.
    View flowRow(const FlowRow &row, const std::set<QString> &excludedKeys) const;

    /// The widget at the size that the user chose for it.
    View sizedWidget(WidgetKind kind) const;

    /// The widget at its natural size.
    View widget(WidgetKind kind) const;

private:
    /// What the stack holds: the views of the flow, and last the clock where there is one.
    struct Flow {
        std::vector<FlowRow> rows; ///< one a view that draws something
        std::vector<View> views;
        WallpaperStackLayout layout;
    };
    Flow flow(const std::vector<WidgetKind> &kinds) const;
    View cardBlock(const IntegrationCardsRow &row, const std::set<QString> &excludedKeys) const;

    WidgetContext m_context;
    QSizeF m_available;
};

} // namespace zeph
