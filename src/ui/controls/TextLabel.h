// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Look.h"

#include <QLabel>

namespace zeph::ui {

/// A text that wraps to lines of about the same length. Never rich text.
class TextLabel : public QLabel {
public:
    enum class Ink { ink, second, third, error };

    TextLabel(const QString &text, TypeRole role, Ink ink, QWidget *parent = nullptr);

    void setInk(Ink ink);

private:
    Ink m_ink;
};

} // namespace zeph::ui
