// SPDX-License-Identifier: MIT
#include "ui/settings/CheckOnly.h"

#include <QAbstractButton>
#include <QButtonGroup>

namespace zeph::ui {

void checkOnly(QButtonGroup &group, int id) {
    group.setExclusive(false); // else the last one could not be unchecked
    for (QAbstractButton *button : group.buttons()) {
        button->setChecked(group.id(button) == id);
    }
    group.setExclusive(true);
}

} // namespace zeph::ui
