// SPDX-License-Identifier: MIT
#include "ui/controls/OneOfEach.h"

#include "ui/controls/ChoiceBox.h"
#include "ui/controls/ControlSheet.h"
#include "ui/controls/DateField.h"
#include "ui/controls/SampleControls.h"

namespace zeph::ui {

using namespace Qt::StringLiterals;
using namespace sample;

QImage oneOfEach(Appearance appearance, double enlarged, bool isMirrored) {
    const auto at = [&](int x, int y) {
        return QPoint(static_cast<int>(x * enlarged), static_cast<int>(y * enlarged));
    };
    const auto wide = [&](int width) { return static_cast<int>(width * enlarged); };
    ControlSheet sheet((QSizeF(480, 300) * enlarged).toSize(), appearance);
    const auto add = [&](const QPoint &place, QWidget *control, int width = 0) {
        if (isMirrored) {
            sheet.addMirrored(place, control, width);
        } else {
            sheet.add(place, control, ControlSheet::State::normal, width);
        }
    };
    add(at(16, 16), switchThatIs(true));
    add(at(80, 16), switchThatIs(false));
    add(at(150, 16), segmented({u"Metric"_s, u"Imperial"_s}, 0));
    add(at(340, 18), sizeChoice(0));
    add(at(16, 70), slider(35), wide(200));
    add(at(250, 66), stepper(1));
    add(at(350, 66), swatch(u"#1B4D36"_s, true));
    add(at(16, 120), field(u"Main store"_s), wide(200));
    add(at(236, 120), secret(true), wide(220));
    add(at(16, 176), button(u"Save changes"_s, PillButton::Kind::primary));
    auto *back = button(u"All integrations"_s, PillButton::Kind::plain);
    back->setSymbol(u"chevron.right"_s);
    add(at(160, 178), back);
    add(at(320, 176), new ChoiceBox({u"Last year"_s}), wide(140));
    add(at(16, 230), linkTo(u"Where to find your key"_s));
    add(at(236, 230), new DateField(QDate(2027, 3, 14)));
    return sheet.picture();
}

} // namespace zeph::ui
