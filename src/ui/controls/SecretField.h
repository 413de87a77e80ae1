// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/TextField.h"

namespace zeph::ui {

/// A key or a password: hidden until the eye at its end is pressed, and hidden again as soon as the
/// field is emptied. It can't be copied or dragged out of, the input method learns nothing of it,
/// and a screen reader is told its length only.
class SecretField : public TextField {
public:
    explicit SecretField(const QString &placeholder = {}, QWidget *parent = nullptr);
};

} // namespace zeph::ui
