// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/BusService.h"
#include "adapters/session/common/IdleWatcher.h"

#include <functional>
#include <map>
#include <optional>

namespace zeph {

/// The idle watches of GNOME's shell, org.gnome.Mutter.IdleMonitor on the session bus: it signals
/// when their time is reached, and once again at the next input. Set anew when the shell is
/// started anew.
class MutterIdle : public IdleWatcher {
public:
    explicit MutterIdle(const QDBusConnection &bus);
    ~MutterIdle() override;

    std::unique_ptr<IdleWatch> watch(std::chrono::milliseconds limit) override;

private:
    class Watch;

    void ownerChanged();
    void fired(const QDBusMessage &signal);
    void add(quint64 key, const QString &method, const QVariantList &arguments,
             std::function<void(std::optional<quint32> number)> take);
    void remove(quint32 number) const;

    std::map<quint64, Watch *> m_watches; // by a key of their own; they end before this
    quint64 m_lastKey = 0;
    BusService m_service; // last, since it calls back
};

} // namespace zeph
