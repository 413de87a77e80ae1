// SPDX-License-Identifier: MIT
#pragma once

#include "host/PermissionWords.h"
#include "ui/controls/SettingRow.h"

#include <functional>

namespace zeph::ui {

class IconButton;
class PillButton;
class StatusLine;

/// One permission: what it is for, whether it is given, and the button that changes that.
class PermissionRow : public SettingRow {
public:
    /// Asks for the permission, or takes it back.
    struct Actions {
        std::function<void()> allow;
        std::function<void()> withdraw;
    };

    PermissionRow(const Words &words, Actions actions, QWidget *parent = nullptr);

    /// What is not offered has no button until it is granted.
    void show(bool isGranted, const PermissionState &state);

    /// What can be pressed now.
    QWidget *button() const;

private:
    struct Control;

    PermissionRow(const Words &words, Actions actions, Control *control, QWidget *parent);

    Control *m_state;
    StatusLine *m_note;
    bool m_isGranted = false;
};

} // namespace zeph::ui
