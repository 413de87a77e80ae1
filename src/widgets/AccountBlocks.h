// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/WidgetRows.h"

namespace zeph {

/// What a block is called: the account's own name, or `fallback` where it has none.
inline QString blockTitle(const QString &label, const QString &fallback) {
    return label.isEmpty() ? fallback : label;
}

/// A section label over chips.
inline View chipBlock(const QString &title, const std::vector<MetricChip> &chips,
                      const Palette &palette) {
    return widgetRows({sectionLabel(title, palette), chipGrid(chips, palette)});
}

/// The blocks of `records` under each other; the empty view when there are none.
template <typename Record, typename Passes, typename Block>
View accountBlocks(const std::vector<Record> &records, Passes passes, Block block) {
    std::vector<View> blocks;
    for (const Record &record : records) {
        if (passes(record)) {
            blocks.push_back(block(record));
        }
    }
    return blocks.empty() ? View() : widgetRows(std::move(blocks));
}

} // namespace zeph
