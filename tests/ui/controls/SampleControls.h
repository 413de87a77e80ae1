// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/LinkLabel.h"
#include "ui/controls/PercentSlider.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/SecretField.h"
#include "ui/controls/SizeChoice.h"
#include "ui/controls/Stepper.h"
#include "ui/controls/Swatch.h"
#include "ui/controls/Switch.h"

/// Controls to be painted, each for its new owner.
namespace zeph::ui::sample {

Switch *switchThatIs(bool isOn);
Segmented *segmented(const QStringList &labels, int chosen);
SizeChoice *sizeChoice(int chosen);
PercentSlider *slider(int value);
Stepper *stepper(int value);
Swatch *swatch(const QString &hex, bool isChosen = false);
TextField *field(const QString &text, bool isWrong = false);
SecretField *secret(bool isRevealed);
PillButton *button(const QString &text, PillButton::Kind kind);
LinkLabel *linkTo(const QString &text);

} // namespace zeph::ui::sample
