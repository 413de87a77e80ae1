// SPDX-License-Identifier: MIT
#include "ui/controls/SizeChoice.h"

#include <QAbstractButton>
#include <QButtonGroup>

namespace zeph::ui {

using namespace Qt::StringLiterals;

SizeChoice::SizeChoice(QWidget *parent)
    : Segmented({u"A"_s, u"A"_s, u"A"_s},
                {.height = 30, .inset = 1, .padding = 0, .least = 34, .sizes = {11, 14, 18}},
                parent) {
    const QStringList names{u"Small"_s, u"Medium"_s, u"Large"_s};
    for (int index = 0; index < names.size(); ++index) {
        group().button(index)->setAccessibleName(names[index]);
    }
    setToolTip(u"Display size: Small, Medium or Large"_s);
}

} // namespace zeph::ui
