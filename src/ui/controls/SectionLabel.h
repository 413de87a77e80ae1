// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace zeph::ui {

/// What a group is, in small capitals, and a line under it. Stands 30 below what is above it (26
/// below a pane's header) and 12 above its group; it brings no room of its own.
class SectionLabel : public QWidget {
public:
    SectionLabel(const QString &title, const QString &line, QWidget *parent = nullptr);
};

} // namespace zeph::ui
