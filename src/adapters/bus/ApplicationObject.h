// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/ApplicationRequest.h"

#include <QDBusVirtualObject>

#include <functional>
#include <optional>

namespace zeph {

/// The org.freedesktop.Application interface on the bus, turned into requests.
class ApplicationObject : public QDBusVirtualObject {
public:
    /// `handler` runs on the thread of this object, after the caller got its answer.
    explicit ApplicationObject(std::function<void(const ApplicationRequest &)> handler);

    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    static std::optional<ApplicationRequest> requestIn(const QDBusMessage &message);

    std::function<void(const ApplicationRequest &)> m_handler;
};

} // namespace zeph
