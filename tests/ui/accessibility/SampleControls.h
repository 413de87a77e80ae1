// SPDX-License-Identifier: MIT
#pragma once

#include "ui/settings/Pane.h"

#include <memory>

namespace zeph {

/// A pane with one of each control, each with the name that it has in a row.
std::unique_ptr<ui::Pane> makeSampleControls();

} // namespace zeph
