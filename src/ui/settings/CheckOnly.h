// SPDX-License-Identifier: MIT
#pragma once

class QButtonGroup;

namespace zeph::ui {

/// Shows the button `id` of an exclusive group as chosen; with an id that no button has, none.
void checkOnly(QButtonGroup &group, int id);

} // namespace zeph::ui
