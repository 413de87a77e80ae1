// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>

class QWidget;

namespace zeph::ui {

/// Lets assistive technology take a plain `widget` for something of that role. Its name and its
/// description stay what is set on the widget; the name of a combo box goes on with what is chosen.
/// A button is pressed as before.
void announceAs(QWidget &widget, QAccessible::Role role);

} // namespace zeph::ui
