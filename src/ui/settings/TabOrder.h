// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace zeph::ui {

/// Has the Tab key come to `row`, which was added to a pane that is there already, right after
/// `above` instead of after all others.
void visitAfter(QWidget &above, QWidget &row);

/// The same for a row that is the first of `list`: right after what comes before the list.
void visitFirst(QWidget &list, QWidget &row);

} // namespace zeph::ui
