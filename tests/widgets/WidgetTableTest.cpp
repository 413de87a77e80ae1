// SPDX-License-Identifier: MIT
#include "widgets/WidgetTable.h"

#include <set>

#include <gtest/gtest.h>

namespace zeph {

namespace {

TEST(WidgetTable, everyKindIsFound) {
    for (const WidgetKind kind : allWidgetKinds()) {
        EXPECT_EQ(widgetEntry(kind).kind, kind) << rawValue(kind).toStdString();
    }
}

TEST(WidgetTable, everyKindButTheCardsIsDrawn) {
    for (const WidgetKind kind : allWidgetKinds()) {
        EXPECT_EQ(widgetEntry(kind).draw == nullptr, isIntegrationCard(kind))
            << rawValue(kind).toStdString();
    }
}

TEST(WidgetTable, whatAnAccountFeedsIsAwayUntilItHasAnswered) {
    for (const WidgetKind kind : allWidgetKinds()) {
        if (isIntegrationCard(kind)) {
            EXPECT_TRUE(widgetEntry(kind).absence) << rawValue(kind).toStdString();
        }
    }
}

TEST(WidgetTable, noWidgetIsDrawnAsAnother) {
    std::set<View (*)(const WidgetContext &)> seen;
    for (const WidgetKind kind : allWidgetKinds()) {
        if (const auto draw = widgetEntry(kind).draw) {
            EXPECT_TRUE(seen.insert(draw).second) << rawValue(kind).toStdString();
        }
    }
}

} // namespace

} // namespace zeph
