// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/OutputOrder.h"

#include <utility>

namespace zeph {

void OutputOrder::follow(const WaylandConnection &connection) {
    if (m_order) {
        return;
    }
    m_order = connection.bindFirst<kde_output_order_v1>(kde_output_order_v1_interface, 1);
    if (!m_order) {
        return;
    }
    static constexpr kde_output_order_v1_listener listener{
        [](void *self, kde_output_order_v1 *, const char *name) {
            static_cast<OutputOrder *>(self)->m_told.append(QString::fromUtf8(name));
        },
        [](void *self, kde_output_order_v1 *) {
            auto &order = *static_cast<OutputOrder *>(self);
            order.m_names = std::exchange(order.m_told, {});
            order.m_changed();
        }};
    kde_output_order_v1_add_listener(m_order.get(), &listener, this);
}

qsizetype OutputOrder::rankOf(const QString &name) const {
    const qsizetype rank = m_names.indexOf(name);
    return rank < 0 ? m_names.size() : rank;
}

} // namespace zeph
