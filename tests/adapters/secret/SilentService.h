// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include <gtest/gtest.h>

#include <atomic>

namespace zeph {

/// A secret service that takes every call and answers none.
class SilentService : public QDBusVirtualObject {
public:
    explicit SilentService(QDBusConnection bus) : m_bus(std::move(bus)) {
        EXPECT_TRUE(m_bus.registerVirtualObject(QStringLiteral("/org/freedesktop/secrets"), this,
                                                QDBusConnection::SubPath));
        EXPECT_TRUE(m_bus.registerService(QStringLiteral("org.freedesktop.secrets")));
    }

    QString introspect(const QString & /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection & /*bus*/) override {
        message.setDelayedReply(true);
        ++calls;
        return true;
    }

    std::atomic<int> calls = 0;

private:
    QDBusConnection m_bus;
};

} // namespace zeph
