// SPDX-License-Identifier: MIT
#include "ui/controls/SampleControls.h"

#include "ui/controls/IconButton.h"

#include <QTest>

namespace zeph::ui::sample {

using namespace Qt::StringLiterals;

Switch *switchThatIs(bool isOn) {
    auto *control = new Switch;
    control->setChecked(isOn);
    return control;
}

Segmented *segmented(const QStringList &labels, int chosen) {
    auto *control = new Segmented(labels);
    control->choose(chosen);
    return control;
}

SizeChoice *sizeChoice(int chosen) {
    auto *control = new SizeChoice;
    control->choose(chosen);
    return control;
}

PercentSlider *slider(int value) {
    auto *control = new PercentSlider;
    control->setValue(value);
    return control;
}

Stepper *stepper(int value) {
    auto *control = new Stepper(1, 5);
    control->setValue(value);
    return control;
}

Swatch *swatch(const QString &hex, bool isChosen) {
    auto *control = new Swatch(u"Colour"_s, hex);
    control->setChecked(isChosen);
    return control;
}

TextField *field(const QString &text, bool isWrong) {
    auto *control = new TextField(u"e.g. Main store"_s);
    control->setText(text);
    control->setWrong(isWrong);
    return control;
}

SecretField *secret(bool isRevealed) {
    auto *control = new SecretField(u"Key"_s);
    control->setText(u"rk_live_51Hx9wJqT2mB4z"_s);
    if (isRevealed) {
        QTest::mouseClick(control->findChild<IconButton *>(), Qt::LeftButton);
    }
    return control;
}

PillButton *button(const QString &text, PillButton::Kind kind) {
    return new PillButton(text, kind);
}

LinkLabel *linkTo(const QString &text) {
    return new LinkLabel(text, QUrl(u"https://example.org"_s));
}

} // namespace zeph::ui::sample
