// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/wayland/WaylandConnection.h"

#include <QStringList>

#include <functional>

namespace zeph {

/// The user's order of the displays, where the compositor has one: KWin, since Plasma 5.27.
class OutputOrder {
public:
    /// `changed` is called whenever a whole order was told.
    explicit OutputOrder(std::function<void()> changed) : m_changed(std::move(changed)) {}
    OutputOrder(const OutputOrder &) = delete;
    OutputOrder &operator=(const OutputOrder &) = delete;
    ~OutputOrder() = default;

    /// Follows what the compositor offers by now; what is followed already stays.
    void follow(const WaylandConnection &connection);

    /// Place of the output that the compositor calls `name`, from 0; behind all others where it is
    /// not told.
    qsizetype rankOf(const QString &name) const;
    qsizetype count() const { return m_names.size(); }

private:
    WaylandHandle<kde_output_order_v1> m_order;
    std::function<void()> m_changed;
    QStringList m_told;  // so far
    QStringList m_names; // as of the last complete list
};

} // namespace zeph
