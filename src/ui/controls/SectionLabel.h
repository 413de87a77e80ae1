// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace zeph::ui {

/// What a group is, in small capitals, and a line under it.
class SectionLabel : public QWidget {
public:
    SectionLabel(const QString &title, const QString &line, QWidget *parent = nullptr);
};

} // namespace zeph::ui
