// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Card.h"

namespace zeph::ui {

/// A card that only says why there is nothing on it.
class EmptyCard : public Card {
public:
    explicit EmptyCard(const QString &text, QWidget *parent = nullptr);
};

} // namespace zeph::ui
