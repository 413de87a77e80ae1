// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/BusService.h"
#include "ports/VirtualDesktops.h"

#include <map>

namespace zeph {

/// The virtual desktops of KWin, which all displays share. None are known before its first answer.
class KWinVirtualDesktops : public VirtualDesktops {
public:
    explicit KWinVirtualDesktops(const QDBusConnection &bus);

    std::vector<ManagedDisplay> managedDisplays() const override;
    [[nodiscard]] Subscription subscribe(std::function<void()> handler) override;

private:
    void ownerChanged();
    void read();
    void take(const QDBusMessage &answer);
    void set(ManagedDisplay shared);
    quint64 numberOf(const QString &identifier);

    ManagedDisplay m_shared;
    std::map<QString, quint64> m_numbers; // of the desktops, by KWin's identifiers
    bool m_isReading = false;
    bool m_readsAgain = false;
    ChangePublisher m_changes;
    BusService m_service; // last, since it calls back
};

} // namespace zeph
