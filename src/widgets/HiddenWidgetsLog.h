// SPDX-License-Identifier: MIT
#pragma once

#include "settings/WidgetKind.h"

#include <QString>

#include <functional>
#include <map>
#include <optional>

namespace zeph {

/// Tells in the category zeph.widgets why each widget that does not show is hidden, and again
/// whenever that changes. Costs nothing while the category is silent. Main thread only.
class HiddenWidgetsLog {
public:
    using Reason = std::function<std::optional<QString>(WidgetKind kind)>;

    /// `reasonOf` is not called while the category is silent.
    void update(const Reason &reasonOf);

private:
    std::map<WidgetKind, std::optional<QString>> m_told;
};

} // namespace zeph
